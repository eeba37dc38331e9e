#pragma once
// The per-user settings store: four text values ("path", "filepath", "datafileformat",
// "datafiletype"). The program keeps them in its own settings; the command-line tool reads and writes
// the same file through IniSettings.
#include <map>
#include <string>

namespace halvo::platform {

// The key of the four values in the classic per-user store; its last two parts name the settings file.
inline constexpr const char* kSettingsKey = "SOFTWARE\\Halvo\\App";

class SettingsStore {
public:
    virtual ~SettingsStore() = default;
    virtual std::string value(const std::string& key) const = 0;
    virtual void setValue(const std::string& key, const std::string& value) = 0;
};

class MemorySettings : public SettingsStore {
public:
    std::string value(const std::string& key) const override {
        auto it = values_.find(key);
        return it == values_.end() ? std::string() : it->second;
    }
    void setValue(const std::string& key, const std::string& value) override { values_[key] = value; }

private:
    std::map<std::string, std::string> values_;
};

// The "[General]" section of an INI file, the layout the program's settings use on this system
// ($XDG_CONFIG_HOME/Halvo/App.conf, else ~/.config/Halvo/App.conf).
class IniSettings : public SettingsStore {
public:
    explicit IniSettings(std::string path = DefaultPath());
    static std::string DefaultPath();
    std::string value(const std::string& key) const override;
    void setValue(const std::string& key, const std::string& value) override;

private:
    std::string path_;
    std::map<std::string, std::string> values_;
    std::string otherSections_;
};

}  // namespace halvo::platform
