#include "gui/session/halvo_mdi.h"

#include <QAction>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>

#include "gui/app/qt_text.h"
#include "gui/session/vks_control.h"
#include "session/startup.h"

namespace halvo::gui {

HalvoMdi::HalvoMdi(Session& session, QWidget* parent)
    : QMainWindow(parent), s_(session), area_(new QMdiArea(this)), vks_(new VksControl(session)) {
    setObjectName(QStringLiteral("Halvo_MDI"));
    area_->setObjectName(QStringLiteral("MDIArea"));
    setCentralWidget(area_);

    // The main window stays for the whole session: it has no close button of its own.
    vksWindow_ = area_->addSubWindow(vks_, Qt::SubWindow | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                                               Qt::WindowMinMaxButtonsHint);
    vksWindow_->setObjectName(QStringLiteral("vkscontrolWindow"));
    vksWindow_->resize(820, 600);
    vksWindow_->move(0, 0);

    QMenu* batch = vks_->batchMenu();
    batch->addSeparator();
    QAction* exit = batch->addAction(tr("&Exit"));
    exit->setObjectName(QStringLiteral("mnuExit"));
    connect(exit, &QAction::triggered, this, &HalvoMdi::ExitProgram);
    menuBar()->addMenu(batch);

    resize(1000, 700);
    refresh();
}

void HalvoMdi::refresh() {
    setWindowTitle(ToQt(FrameTitle(s_)));
    vks_->refresh();
}

void HalvoMdi::ExitProgram() {
    QCoreApplication::processEvents();
    close();
}

void HalvoMdi::closeEvent(QCloseEvent* event) {
    StoreSettingsOnExit(s_);
    event->accept();
}

}  // namespace halvo::gui
