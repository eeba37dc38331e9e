#pragma once
// A label that reports a click of the left button.
#include <QLabel>

namespace halvo::gui {

class ClickLabel : public QLabel {
    Q_OBJECT
public:
    using QLabel::QLabel;

signals:
    void clicked();

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
};

}  // namespace halvo::gui
