// halvo [batch.spc]: the frame with the main window; the batch is opened when one is named.
#include <QApplication>

#include "gui/app/halvo_application.h"

int main(int argc, char** argv) {
    QApplication qt(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Halvo"));
    QApplication::setOrganizationName(QStringLiteral("Halvo"));

    const QStringList args = QApplication::arguments();
    halvo::gui::HalvoApplication app;
    if (!app.start(args.size() > 1 ? args.at(1) : QString())) return 0;
    return QApplication::exec();
}
