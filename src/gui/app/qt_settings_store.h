#pragma once
// The per-user settings ("path", "filepath", "datafileformat", "datafiletype") in the program's own
// settings: ~/.config/Halvo/App.conf on this system.
#include <QSettings>

#include "platform/settings.h"

namespace halvo::gui {

class QtSettingsStore : public platform::SettingsStore {
public:
    QtSettingsStore();
    std::string value(const std::string& key) const override;
    void setValue(const std::string& key, const std::string& value) override;
    QString fileName() const { return settings_.fileName(); }

private:
    mutable QSettings settings_;
};

}  // namespace halvo::gui
