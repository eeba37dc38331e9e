#pragma once
// vkscontrol: the main window. It draws the session's lists (samples, data files, geometries,
// associations, structure, charges, directory, verbosity, warnings) and passes every command to the
// core; after each command it redraws itself from the session. It keeps no state of its own.
#include <QWidget>

#include "session/session.h"

class QAction;
class QComboBox;
class QLabel;
class QListWidget;
class QMenu;
class QScrollBar;

namespace halvo::gui {

class ClickLabel;
class DirectoryBox;

class VksControl : public QWidget {
    Q_OBJECT
public:
    explicit VksControl(Session& session, QWidget* parent = nullptr);

    // The batch menu; the frame shows it in its menu bar.
    QMenu* batchMenu() const { return batchMenu_; }

    // Redraws every control and the title from the session.
    void refresh();

    // Opens a batch file as the open dialog does once a file is chosen.
    void openBatch(const QString& path);

    // Menu commands.
    void mnuOpenBatch_Click();
    void mnuSave_Click();
    void mnuSaveBatch_Click();
    void mnuNextSample_Click();
    void mnuPrevSample_Click();

signals:
    // After every redraw.
    void refreshed();

private:
    void buildControls();
    void buildLayout();
    void buildMenu();
    void connectControls();
    // DLG_Save_batch, then the core's OK or Cancel.
    void askBatchName();
    // Runs a command of the core and redraws.
    template <typename F>
    void run(F&& command) {
        command();
        refresh();
    }

    Session& s_;
    QComboBox* Combo1_ = nullptr;
    QScrollBar* VScroll1_ = nullptr;
    QListWidget* List1_ = nullptr;
    QListWidget* List2_ = nullptr;
    QListWidget* List3_ = nullptr;
    QListWidget* List4_ = nullptr;
    QListWidget* List5_ = nullptr;
    DirectoryBox* List6_ = nullptr;
    QComboBox* Combo3_ = nullptr;
    QLabel* Label12_ = nullptr;
    QLabel* Label13_ = nullptr;
    QLabel* Label14_ = nullptr;
    QLabel* Label15_ = nullptr;
    ClickLabel* Label19_ = nullptr;
    QMenu* batchMenu_ = nullptr;
};

}  // namespace halvo::gui
