#pragma once
// A running program on a fresh copy of the demo batch, with its modal boxes answered.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <memory>

#include "gui/app/halvo_application.h"
#include "gui/session/halvo_mdi.h"
#include "gui/session/vks_control.h"
#include "modal_answerer.h"

namespace halvo::test {

class HalvoFixture : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // Starts the program with the copy of demo.spc (or no batch).
    void startWithDemo();
    void startEmpty();
    // Starts without waiting for the frame; false when start-up ended the program.
    bool startOnly() { return app_->start(); }
    // Before a start: no working directory stored.
    static void forgetWorkingDirectory();

    QString dir() const { return work_.path(); }
    QString file(const QString& name) const { return work_.path() + QLatin1Char('/') + name; }
    QByteArray read(const QString& name) const;

    gui::HalvoMdi* frame() const { return app_->frame(); }
    gui::VksControl* vks() const { return frame()->vks(); }
    Session& session() { return app_->session(); }

    template <typename W>
    W* control(const char* name) const {
        W* widget = vks()->findChild<W*>(QString::fromLatin1(name));
        EXPECT_NE(widget, nullptr) << name;
        return widget;
    }
    QStringList items(const char* listName) const;
    QString text(const char* labelName) const { return control<QLabel>(labelName)->text(); }
    void trigger(const char* actionName);
    // Lets queued events (and the answerer's timer) run for a moment.
    static void settle(int ms = 20);

    ModalAnswerer answers;

private:
    QTemporaryDir work_;
    std::unique_ptr<gui::HalvoApplication> app_;
};

}  // namespace halvo::test
