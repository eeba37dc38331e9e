// The Qt ports of the core: message boxes in the classic codes, and the per-user settings file that the
// command-line tool reads too.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QFile>
#include <QPushButton>
#include <QStandardPaths>

#include "gui/app/qt_message_port.h"
#include "gui/app/qt_settings_store.h"
#include "gui/widgets/file_filter.h"
#include "modal_answerer.h"
#include "platform/settings.h"

namespace halvo::test {
namespace {

struct Shown {
    QStringList buttons;
    QString defaultButton;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QString title, text;
};

// Shows one box through the port, presses `press` (or Escape when NoButton) and returns the answer
// together with what the box looked like.
int Ask(const Message& message, QMessageBox::StandardButton press, Shown& shown) {
    gui::QtMessagePort port;
    QTimer timer;
    timer.setInterval(5);
    QObject::connect(&timer, &QTimer::timeout, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box || !box->isVisible()) return;
        timer.stop();
        for (QAbstractButton* b : box->buttons()) shown.buttons << b->text().remove('&');
        shown.defaultButton = box->defaultButton() ? box->defaultButton()->text().remove('&') : QString();
        shown.icon = box->icon();
        shown.title = box->windowTitle();
        shown.text = box->text();
        if (press == QMessageBox::NoButton)
            box->reject();  // what Escape or the close button does
        else
            box->button(press)->click();
    });
    timer.start();
    return port.ask(message);
}

TEST(QtMessagePort, ButtonSetsIconsAndDefaultsMapToTheClassicCodes) {
    Shown shown;
    EXPECT_EQ(Ask({"ReadBatch warning", "Do you want to correct file?", mb::YesNoCancel | mb::Question | mb::DefaultButton2},
                  QMessageBox::Cancel, shown),
              mb::Cancel);
    EXPECT_EQ(shown.title, "ReadBatch warning");
    EXPECT_EQ(shown.text, "Do you want to correct file?");
    EXPECT_EQ(shown.icon, QMessageBox::Question);
    EXPECT_EQ(shown.buttons.size(), 3);
    EXPECT_EQ(shown.defaultButton, "No");

    shown = {};
    EXPECT_EQ(Ask({"t", "x", mb::YesNo}, QMessageBox::Yes, shown), mb::Yes);
    EXPECT_EQ(shown.defaultButton, "Yes");
    EXPECT_EQ(shown.icon, QMessageBox::NoIcon);

    shown = {};
    EXPECT_EQ(Ask({"t", "x", mb::AbortRetryIgnore | mb::Critical | mb::DefaultButton3}, QMessageBox::Retry, shown),
              mb::Retry);
    EXPECT_EQ(shown.defaultButton, "Ignore");
    EXPECT_EQ(shown.icon, QMessageBox::Critical);

    shown = {};
    EXPECT_EQ(Ask({"Please change", "x", mb::OKOnly | mb::Exclamation}, QMessageBox::Ok, shown), mb::OK);
    EXPECT_EQ(shown.buttons, QStringList{"OK"});
    EXPECT_EQ(shown.icon, QMessageBox::Warning);

    shown = {};
    EXPECT_EQ(Ask({"", "x", mb::RetryCancel | mb::Information}, QMessageBox::Retry, shown), mb::Retry);
    EXPECT_EQ(shown.title, "Halvo");  // an empty title shows the program's name
    EXPECT_EQ(shown.icon, QMessageBox::Information);
}

TEST(QtMessagePort, EscapeAnswersCancelWhereTheSetHasIt) {
    Shown shown;
    EXPECT_EQ(Ask({"t", "x", mb::OKCancel}, QMessageBox::NoButton, shown), mb::Cancel);
    EXPECT_EQ(Ask({"t", "x", mb::YesNoCancel}, QMessageBox::NoButton, shown), mb::Cancel);
    EXPECT_EQ(Ask({"t", "x", mb::OKOnly}, QMessageBox::NoButton, shown), mb::OK);
}

TEST(QtMessagePort, ShowsBytesOfTheCodePageAndUtf8Names) {
    Shown shown;
    Ask({"t", "charge \xb5" "C", mb::OKOnly}, QMessageBox::Ok, shown);  // Latin-1 micro sign
    EXPECT_EQ(shown.text, QString::fromUtf8("charge µC"));
    Ask({"t", "/home/j\xc3\xb6rg/demo.spc", mb::OKOnly}, QMessageBox::Ok, shown);  // a UTF-8 path
    EXPECT_EQ(shown.text, QString::fromUtf8("/home/jörg/demo.spc"));
}

TEST(QtSettingsStore, KeepsTheFourValuesWhereTheCommandLineToolReadsThem) {
    gui::QtSettingsStore store;
    const QString config = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    EXPECT_EQ(store.fileName(), config + "/Halvo/App.conf");

    store.setValue("filepath", "/data/j\xc3\xb6rg/run 7");
    store.setValue("datafileformat", "12");
    EXPECT_EQ(store.value("filepath"), "/data/j\xc3\xb6rg/run 7");

    platform::IniSettings ini(QFile::encodeName(store.fileName()).toStdString());
    EXPECT_EQ(ini.value("filepath"), "/data/j\xc3\xb6rg/run 7");
    EXPECT_EQ(ini.value("datafileformat"), "12");
}

TEST(FileFilter, ClassicFiltersBecomeQtNameFilters) {
    EXPECT_EQ(gui::QtNameFilters("VKS files *.spc|*.spc"), QStringList{"VKS files (*.spc)"});
    EXPECT_EQ(gui::QtNameFilters("Excel files *.|*.xls|All files *.*|*.*"),
              (QStringList{"Excel files *. (*.xls)", "All files (*.*)"}));
    EXPECT_EQ(gui::QtNameFilters("Text|*.txt;*.log"), QStringList{"Text (*.txt *.log)"});
}

}  // namespace
}  // namespace halvo::test
