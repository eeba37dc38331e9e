#include "gui/app/qt_text.h"

#include <QFile>
#include <QStringDecoder>

namespace halvo::gui {

QString ToQt(const std::string& text) {
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString decoded = utf8(QByteArrayView(text.data(), qsizetype(text.size())));
    if (!utf8.hasError()) return decoded;
    return QString::fromLatin1(text.data(), qsizetype(text.size()));
}

QString ToQtLabel(const std::string& text) {
    QString shown = ToQt(text);
    shown.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    shown.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    while (shown.endsWith(QLatin1Char('\n'))) shown.chop(1);
    return shown;
}

std::string FileNameFromQt(const QString& name) { return QFile::encodeName(name).toStdString(); }

}  // namespace halvo::gui
