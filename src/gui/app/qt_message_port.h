#pragma once
// The core's message boxes as QMessageBox: title, text, button set, icon and default button in the
// classic codes, and the answer back in those codes.
#include <QPointer>
#include <QWidget>

#include "session/messages.h"

namespace halvo::gui {

class QtMessagePort : public MessagePort {
public:
    // Boxes are centred on `parent` once it is set; before that they stand alone.
    void setParent(QWidget* parent) { parent_ = parent; }
    int ask(const Message& message) override;

private:
    QPointer<QWidget> parent_;
};

}  // namespace halvo::gui
