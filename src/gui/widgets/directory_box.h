#pragma once
// A directory box: the folders from the root down to the working directory, one per line, indented,
// the last one open and selected. An empty path shows nothing.
#include <QListWidget>

namespace halvo::gui {

class DirectoryBox : public QListWidget {
    Q_OBJECT
public:
    using QListWidget::QListWidget;
    void setPath(const QString& path);
    QString path() const { return path_; }

private:
    QString path_;
};

}  // namespace halvo::gui
