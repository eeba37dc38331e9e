#pragma once
// DLG_Save_batch: asks for the name of a batch file. The batch files of the working directory stand in
// a list; choosing one puts its name in the name box. The caller hands the name to the core.
#include <QDialog>

class QLineEdit;
class QListWidget;
class QPushButton;

namespace halvo::gui {

class DlgSaveBatch : public QDialog {
    Q_OBJECT
public:
    DlgSaveBatch(const QString& directory, const QString& initialName, QWidget* parent = nullptr);
    QString name() const;

private:
    void fillFiles(const QString& directory);

    QListWidget* files_;
    QLineEdit* name_;
    QPushButton* ok_;
};

}  // namespace halvo::gui
