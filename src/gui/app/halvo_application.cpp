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

void HalvoApplication::start(const QString& batchPath) {
    // Start-up changes to the working directory: a relative batch name is taken from where we started.
    const QString batch = batchPath.isEmpty() ? QString() : QFileInfo(batchPath).absoluteFilePath();

    frame_ = std::make_unique<HalvoMdi>(session_);
    messages_.setParent(frame_.get());
    frame_->show();

    StartSession(session_, StartupEnvironment{qgetenv("PATHVKS").toStdString()});
    frame_->refresh();

    if (batch.isEmpty()) return;
    if (!QFileInfo(batch).isFile()) {
        std::fprintf(stderr, "halvo: no batch file %s\n", qPrintable(batchPath));
        return;
    }
    frame_->vks()->openBatch(batch);
}

}  // namespace halvo::gui
