#include "gui/app/halvo_application.h"

#include <QFileInfo>
#include <QtGlobal>
#include <cstdio>

#include "gui/session/halvo_mdi.h"
#include "gui/session/vks_control.h"
#include "session/startup.h"

namespace halvo::gui {

HalvoApplication::HalvoApplication() {
    session_.ui = &messages_;
    session_.settings = &settings_;
}

HalvoApplication::~HalvoApplication() = default;

bool HalvoApplication::start(const QString& batchPath) {
    // Start-up changes to the working directory: a relative batch name is taken from where we started.
    const QString batch = batchPath.isEmpty() ? QString() : QFileInfo(batchPath).absoluteFilePath();

    // The session starts while the frame is still hidden, as a window loads before it is shown: the
    // boxes of start-up stand alone, and the frame comes up already drawn.
    frame_ = std::make_unique<HalvoMdi>(session_);
    messages_.setParent(frame_.get());
    if (!StartSession(session_, StartupEnvironment{qgetenv("PATHVKS").toStdString()})) {
        frame_->ExitProgram();
        return false;
    }
    frame_->refresh();
    frame_->show();

    if (batch.isEmpty()) return true;
    if (!QFileInfo(batch).isFile()) {
        std::fprintf(stderr, "halvo: no batch file %s\n", qPrintable(batchPath));
        return true;
    }
    frame_->vks()->openBatch(batch);
    return true;
}

}  // namespace halvo::gui
