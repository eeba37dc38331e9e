#include "modal_answerer.h"

#include <QAbstractButton>
#include <QPushButton>
#include <QApplication>
#include <QDialog>

namespace halvo::test {

ModalAnswerer::ModalAnswerer() {
    timer_.setInterval(5);
    connect(&timer_, &QTimer::timeout, this, &ModalAnswerer::tick);
    timer_.start();
}

QStringList ModalAnswerer::transcript() const {
    QStringList lines;
    for (const Box& box : boxes_) lines << QStringLiteral("[%1] %2").arg(box.title, box.text);
    return lines;
}

void ModalAnswerer::tick() {
    QWidget* modal = QApplication::activeModalWidget();
    if (!modal || !modal->isVisible()) return;

    if (auto* box = qobject_cast<QMessageBox*>(modal)) {
        QAbstractButton* button = box->defaultButton();
        if (!answers_.empty()) {
            button = box->button(answers_.front());
            answers_.pop_front();
        }
        if (!button) button = box->buttons().value(0);
        boxes_.push_back({box->windowTitle(), box->text(), box->icon(), button ? button->text() : QString()});
        if (button) button->click();
        return;
    }

    auto* dialog = qobject_cast<QDialog*>(modal);
    if (!dialog) return;
    if (dialog != current_) {
        current_ = dialog;
        dialogs_ << dialog->objectName();
    }
    auto handler = handlers_.find(dialog->objectName());
    if (handler == handlers_.end()) {
        dialog->reject();
        current_ = nullptr;
        return;
    }
    if (handler->second(dialog)) current_ = nullptr;
}

}  // namespace halvo::test
