#include "gui/widgets/file_filter.h"

#include <QString>

namespace halvo::gui {

QStringList QtNameFilters(std::string_view classic) {
    const QStringList parts =
        QString::fromLatin1(classic.data(), qsizetype(classic.size())).split(QLatin1Char('|'));
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString description = parts[i].trimmed();
        QString patterns = parts[i + 1].trimmed();
        patterns.replace(QLatin1Char(';'), QLatin1Char(' '));
        // The description often repeats the pattern already ("VKS files *.spc"); it is not shown twice.
        if (description.endsWith(patterns)) description.chop(patterns.size());
        filters.push_back(description.trimmed() + QStringLiteral(" (") + patterns + QLatin1Char(')'));
    }
    return filters;
}

}  // namespace halvo::gui
