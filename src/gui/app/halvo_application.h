#pragma once
// The running program: the one Session, the ports it shows boxes and keeps settings through, and the
// frame. The windows get the session by reference.
#include <QString>
#include <memory>

#include "gui/app/qt_message_port.h"
#include "gui/app/qt_settings_store.h"
#include "session/session.h"

namespace halvo::gui {

class HalvoMdi;

class HalvoApplication {
public:
    HalvoApplication();
    ~HalvoApplication();
    HalvoApplication(const HalvoApplication&) = delete;
    HalvoApplication& operator=(const HalvoApplication&) = delete;

    // Starts the session, shows the frame, and opens `batchPath` when it is given. False when the user
    // ended the program during start-up (Cancel at a load error); the frame is closed then.
    bool start(const QString& batchPath = QString());

    Session& session() { return session_; }
    HalvoMdi* frame() const { return frame_.get(); }
    QtMessagePort& messages() { return messages_; }

private:
    QtSettingsStore settings_;
    QtMessagePort messages_;
    Session session_;
    std::unique_ptr<HalvoMdi> frame_;
};

}  // namespace halvo::gui
