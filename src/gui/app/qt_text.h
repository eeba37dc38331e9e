#pragma once
// Texts between the core and the widgets. The core keeps file contents as bytes in the Windows code
// page and file names as the system's bytes (UTF-8); a text is shown as UTF-8 when it is valid UTF-8
// and as Latin-1 otherwise. Names typed or chosen by the user go back as the system's file-name bytes.
#include <QString>
#include <string>

namespace halvo::gui {

QString ToQt(const std::string& text);
// A text of the core meant for a label: CR LF line ends become plain line ends, and the trailing ones go.
QString ToQtLabel(const std::string& text);
std::string FileNameFromQt(const QString& name);

}  // namespace halvo::gui
