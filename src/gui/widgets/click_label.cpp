#include "gui/widgets/click_label.h"

#include <QMouseEvent>

namespace halvo::gui {

void ClickLabel::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) emit clicked();
    QLabel::mouseReleaseEvent(event);
}

}  // namespace halvo::gui
