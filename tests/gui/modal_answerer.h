#pragma once
// Answers the modal windows a command opens while a test drives the program. A timer looks at the
// active modal window: a message box is recorded and answered with the next queued button (its default
// button when the queue is empty); a dialog is handed to the handler registered for its object name,
// called on every tick until it returns true; any other dialog is recorded and rejected.
#include <QMessageBox>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <deque>
#include <functional>
#include <map>

class QDialog;

namespace halvo::test {

class ModalAnswerer : public QObject {
    Q_OBJECT
public:
    ModalAnswerer();

    void answer(QMessageBox::StandardButton button) { answers_.push_back(button); }
    void onDialog(const QString& objectName, std::function<bool(QDialog*)> handler) {
        handlers_[objectName] = std::move(handler);
    }

    struct Box {
        QString title, text;
        QMessageBox::Icon icon;
        QString answer;  // text of the button pressed
    };
    const std::vector<Box>& boxes() const { return boxes_; }
    // "[title] text" per box.
    QStringList transcript() const;
    QStringList dialogsSeen() const { return dialogs_; }
    void clear() {
        boxes_.clear();
        dialogs_.clear();
    }

private:
    void tick();

    QTimer timer_;
    std::deque<QMessageBox::StandardButton> answers_;
    std::map<QString, std::function<bool(QDialog*)>> handlers_;
    std::vector<Box> boxes_;
    QStringList dialogs_;
    QDialog* current_ = nullptr;
};

}  // namespace halvo::test
