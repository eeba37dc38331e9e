#pragma once
// Classic file-dialog filters ("VKS files *.spc|*.spc": description and pattern in turns, split by "|")
// as Qt name filters ("VKS files (*.spc)").
#include <QStringList>
#include <string_view>

namespace halvo::gui {

QStringList QtNameFilters(std::string_view classic);

}  // namespace halvo::gui
