#include "gui/widgets/directory_box.h"

#include <QSignalBlocker>
#include <QStyle>

namespace halvo::gui {

void DirectoryBox::setPath(const QString& path) {
    if (path == path_ && (count() > 0 || path.isEmpty())) return;
    const QSignalBlocker block(this);
    path_ = path;
    clear();
    setToolTip(path);
    if (path.isEmpty()) return;

    QStringList parts = path.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    if (path.startsWith(QLatin1Char('/'))) parts.prepend(QStringLiteral("/"));
    const QIcon closed = style()->standardIcon(QStyle::SP_DirClosedIcon);
    const QIcon open = style()->standardIcon(QStyle::SP_DirOpenIcon);
    for (int i = 0; i < parts.size(); ++i) {
        auto* item = new QListWidgetItem(i + 1 == parts.size() ? open : closed,
                                         QString(2 * i, QLatin1Char(' ')) + parts[i], this);
        item->setToolTip(path);
    }
    setCurrentRow(count() - 1);
    scrollToBottom();
}

}  // namespace halvo::gui
