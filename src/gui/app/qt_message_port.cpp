#include "gui/app/qt_message_port.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QMessageBox>
#include <QPushButton>
#include <algorithm>
#include <vector>

#include "gui/app/qt_text.h"

namespace halvo::gui {
namespace {

QMessageBox::StandardButton ButtonOf(int answer) {
    switch (answer) {
        case mb::OK: return QMessageBox::Ok;
        case mb::Cancel: return QMessageBox::Cancel;
        case mb::Abort: return QMessageBox::Abort;
        case mb::Retry: return QMessageBox::Retry;
        case mb::Ignore: return QMessageBox::Ignore;
        case mb::Yes: return QMessageBox::Yes;
        case mb::No: return QMessageBox::No;
        default: return QMessageBox::NoButton;
    }
}

QMessageBox::Icon IconOf(int buttons) {
    switch (buttons & 0x70) {
        case mb::Critical: return QMessageBox::Critical;
        case mb::Question: return QMessageBox::Question;
        case mb::Exclamation: return QMessageBox::Warning;
        case mb::Information: return QMessageBox::Information;
        default: return QMessageBox::NoIcon;
    }
}

}  // namespace

int QtMessagePort::ask(const Message& message) {
    QMessageBox box(parent_.data());
    box.setObjectName(QStringLiteral("MsgBox"));
    box.setIcon(IconOf(message.buttons));
    box.setWindowTitle(message.title.empty() ? QCoreApplication::applicationName() : ToQt(message.title));
    box.setTextFormat(Qt::PlainText);
    box.setText(ToQt(message.text));

    const std::vector<int> answers = AnswersOf(message.buttons);
    std::vector<std::pair<QAbstractButton*, int>> made;
    for (int answer : answers) made.emplace_back(box.addButton(ButtonOf(answer)), answer);
    const int wanted = DefaultAnswer(message.buttons);
    for (auto& [button, answer] : made)
        if (answer == wanted) box.setDefaultButton(qobject_cast<QPushButton*>(button));
    // Escape answers Cancel where the set has it, and OK on a lone OK; the other sets leave it to the box.
    const bool hasCancel = std::find(answers.begin(), answers.end(), mb::Cancel) != answers.end();
    if (hasCancel)
        box.setEscapeButton(box.button(QMessageBox::Cancel));
    else if (answers.size() == 1)
        box.setEscapeButton(made.front().first);

    box.exec();
    for (auto& [button, answer] : made)
        if (box.clickedButton() == button) return answer;
    return hasCancel ? mb::Cancel : wanted;
}

}  // namespace halvo::gui
