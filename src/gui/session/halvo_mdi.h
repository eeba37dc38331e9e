#pragma once
// Halvo_MDI: the frame. Its menu bar carries the main window's menus, its work area holds vkscontrol,
// and closing it stores the per-user settings.
#include <QMainWindow>

#include "session/session.h"

class QMdiArea;
class QMdiSubWindow;

namespace halvo::gui {

class VksControl;

class HalvoMdi : public QMainWindow {
    Q_OBJECT
public:
    explicit HalvoMdi(Session& session, QWidget* parent = nullptr);

    VksControl* vks() const { return vks_; }
    QMdiArea* area() const { return area_; }

    // Redraws the frame's title and the main window.
    void refresh();
    // Lets pending events run, then closes the frame.
    void ExitProgram();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    Session& s_;
    QMdiArea* area_;
    VksControl* vks_;
    QMdiSubWindow* vksWindow_;
};

}  // namespace halvo::gui
