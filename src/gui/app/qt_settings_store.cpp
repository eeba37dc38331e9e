#include "gui/app/qt_settings_store.h"

#include <QFile>

namespace halvo::gui {

QtSettingsStore::QtSettingsStore()
    : settings_(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("Halvo"), QStringLiteral("App")) {}

// The values are paths and numbers: kept as the system's file-name bytes.
std::string QtSettingsStore::value(const std::string& key) const {
    return QFile::encodeName(settings_.value(QString::fromStdString(key)).toString()).toStdString();
}

void QtSettingsStore::setValue(const std::string& key, const std::string& value) {
    settings_.setValue(QString::fromStdString(key), QFile::decodeName(QByteArray::fromStdString(value)));
    settings_.sync();
}

}  // namespace halvo::gui
