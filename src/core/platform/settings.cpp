#include "platform/settings.h"

#include <cstdlib>
#include <filesystem>

#include "platform/files.h"
#include "text/lines.h"
#include "text/tokens.h"

namespace halvo::platform {

std::string IniSettings::DefaultPath() {
    const char* xdg = std::getenv("XDG_CONFIG_HOME");
    std::string base;
    if (xdg && *xdg) {
        base = xdg;
    } else if (const char* home = std::getenv("HOME")) {
        base = std::string(home) + "/.config";
    } else {
        base = ".";
    }
    // "SOFTWARE\Halvo\App" becomes Halvo/App.conf, where the program's own settings live.
    const std::string key = kSettingsKey;
    const auto last = key.find_last_of('\\');
    const auto before = key.find_last_of('\\', last - 1);
    return base + "/" + key.substr(before + 1, last - before - 1) + "/" + key.substr(last + 1) + ".conf";
}

IniSettings::IniSettings(std::string path) : path_(std::move(path)) {
    const auto bytes = ReadFileBytes(path_);
    if (!bytes) return;
    bool general = false;
    for (const auto& line : text::SplitLines(*bytes)) {
        if (!line.empty() && line.front() == '[') {
            general = line == "[General]";
            if (!general) otherSections_ += line + "\n";
            continue;
        }
        if (!general) {
            if (!otherSections_.empty()) otherSections_ += line + "\n";
            continue;
        }
        const auto eq = line.find('=');
        if (eq == std::string::npos) continue;
        std::string v = line.substr(eq + 1);
        if (v.size() >= 2 && v.front() == '"' && v.back() == '"') v = v.substr(1, v.size() - 2);
        values_[line.substr(0, eq)] = v;
    }
}

std::string IniSettings::value(const std::string& key) const {
    auto it = values_.find(key);
    return it == values_.end() ? std::string() : it->second;
}

void IniSettings::setValue(const std::string& key, const std::string& value) {
    values_[key] = value;
    std::string out = "[General]\n";
    for (const auto& [k, v] : values_) out += k + "=" + v + "\n";
    if (!otherSections_.empty()) out += "\n" + otherSections_;
    std::error_code ec;
    std::filesystem::create_directories(std::filesystem::path(path_).parent_path(), ec);
    WriteFileSafely(path_, out);
}

}  // namespace halvo::platform
