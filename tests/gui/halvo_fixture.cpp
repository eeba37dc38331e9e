#include "halvo_fixture.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QTest>

#include "gui/app/qt_settings_store.h"

namespace halvo::test {

void HalvoFixture::SetUp() {
    ASSERT_TRUE(work_.isValid());
    const QDir demo(QStringLiteral(HALVO_EXAMPLES "/demo"));
    for (const QString& name : demo.entryList(QDir::Files))
        ASSERT_TRUE(QFile::copy(demo.filePath(name), file(name))) << name.toStdString();
    // The working directory of the last session is the test's folder, as for a returning user.
    gui::QtSettingsStore().setValue("filepath", QFile::encodeName(work_.path()).toStdString());
    app_ = std::make_unique<gui::HalvoApplication>();
}

void HalvoFixture::forgetWorkingDirectory() { gui::QtSettingsStore().setValue("filepath", ""); }

void HalvoFixture::TearDown() {
    if (app_ && app_->frame()) app_->frame()->close();
    app_.reset();
    settle(0);
}

void HalvoFixture::startWithDemo() {
    app_->start(file(QStringLiteral("demo.spc")));
    frame()->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(frame()));
}

void HalvoFixture::startEmpty() {
    app_->start();
    frame()->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(frame()));
}

QByteArray HalvoFixture::read(const QString& name) const {
    QFile f(file(name));
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

QStringList HalvoFixture::items(const char* listName) const {
    QStringList out;
    if (auto* list = vks()->findChild<QListWidget*>(QString::fromLatin1(listName))) {
        for (int i = 0; i < list->count(); ++i) out << list->item(i)->text();
    } else if (auto* combo = vks()->findChild<QComboBox*>(QString::fromLatin1(listName))) {
        for (int i = 0; i < combo->count(); ++i) out << combo->itemText(i);
    } else {
        ADD_FAILURE() << "no list " << listName;
    }
    return out;
}

void HalvoFixture::trigger(const char* actionName) {
    auto* action = frame()->findChild<QAction*>(QString::fromLatin1(actionName));
    ASSERT_NE(action, nullptr) << actionName;
    action->trigger();
}

void HalvoFixture::settle(int ms) { QTest::qWait(ms); }

}  // namespace halvo::test
