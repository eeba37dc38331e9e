// The main window as a view of the batch: what a freshly opened demo batch shows, and how the sample
// controls step through it.
#include <QDir>
#include <QFile>
#include <QScrollBar>
#include <QTest>

#include "gui/app/qt_settings_store.h"
#include "halvo_fixture.h"

namespace halvo::test {
namespace {

using Strings = QStringList;

class MainWindow : public HalvoFixture {};

TEST_F(MainWindow, OpeningTheDemoBatchShowsItsFirstSample) {
    startWithDemo();
    EXPECT_TRUE(answers.boxes().empty()) << answers.transcript().join('\n').toStdString();

    EXPECT_EQ(items("Combo1"), (Strings{"1", "2", "3"}));
    EXPECT_EQ(control<QComboBox>("Combo1")->currentIndex(), 0);
    EXPECT_EQ(items("List1"), (Strings{"s1rbs165.dat", "s1rbs120.dat"}));
    EXPECT_EQ(items("List2"), (Strings{"rbs165", "rbs120"}));
    EXPECT_EQ(items("List3"), (Strings{"s1rbs165.dat ==> rbs165", "s1rbs120.dat ==> rbs120"}));
    EXPECT_EQ(items("List4"), (Strings{"sio2si"}));
    EXPECT_EQ(items("List5"), (Strings{"10.5", "10.5"}));
    EXPECT_EQ(control<QComboBox>("Combo3")->currentIndex(), 1);
    EXPECT_EQ(text("Label12"), "Sample: Thin SiO2 on Si, about 100 nm.");
    EXPECT_EQ(text("Label13"), "Batch: Demo batch: synthetic spectra for trying the front end.");
    EXPECT_EQ(text("Label15"), "Verbosity: per sample");
    EXPECT_TRUE(control<QLabel>("Label15")->toolTip().endsWith("(click to switch to: all same as Sample1)"));
    EXPECT_EQ(text("Label19"), "Warnings shown");
    EXPECT_EQ(control<QScrollBar>("VScroll1")->maximum(), 6);

    // The directory box ends in the batch's folder, and both titles are set.
    const QStringList dirs = items("List6");
    ASSERT_FALSE(dirs.isEmpty());
    EXPECT_EQ(dirs.back().trimmed(), QDir(dir()).dirName());
    EXPECT_EQ(vks()->windowTitle(), "VKScontrol - demo");
    EXPECT_TRUE(frame()->windowTitle().startsWith("Halvo v2.1.0")) << frame()->windowTitle().toStdString();
}

TEST_F(MainWindow, ChoosingASampleInCombo1RedrawsEveryList) {
    startWithDemo();
    auto* combo = control<QComboBox>("Combo1");
    combo->setFocus();
    QTest::keyClick(combo, Qt::Key_Down);  // a user's choice: emits activated

    EXPECT_EQ(combo->currentIndex(), 1);
    EXPECT_EQ(session().CurrentSample, 2);
    EXPECT_EQ(items("List1"), (Strings{"s2rbs165.dat", "s2erda.dat", "s2nra.dat"}));
    EXPECT_EQ(items("List3"),
              (Strings{"s2rbs165.dat ==> rbs165", "s2erda.dat ==> erda30 (1)", "s2nra.dat ==> nra150"}));
    EXPECT_EQ(items("List5"), (Strings{"12", "4.25", "8"}));
    EXPECT_EQ(items("List4"), (Strings{"thickox"}));
    EXPECT_EQ(control<QComboBox>("Combo3")->currentIndex(), 0);
    EXPECT_EQ(text("Label12"), "Sample: Thick oxide with hydrogen; the ERDA charge is linked to the RBS spectrum.");

    // The third sample carries a square-bracket link and a PIXE spectrum.
    QTest::keyClick(combo, Qt::Key_Down);
    EXPECT_EQ(items("List3"), (Strings{"s3rbs165.dat ==> rbs165", "s3rbs120.dat ==> rbs120 [1]",
                                       "s3pixe.dat ==> pixe135"}));
    EXPECT_EQ(vks()->windowTitle(), "VKScontrol - demo");
}

TEST_F(MainWindow, CtrlNAndCtrlPStepThroughTheSamplesAndWrap) {
    startWithDemo();
    auto* combo = control<QComboBox>("Combo1");
    auto press = [&](Qt::Key key) {
        QTest::keyClick(frame(), key, Qt::ControlModifier);
        return combo->currentText();
    };
    EXPECT_EQ(press(Qt::Key_N), "2");
    EXPECT_EQ(items("List4"), (Strings{"thickox"}));
    EXPECT_EQ(press(Qt::Key_N), "3");
    EXPECT_EQ(press(Qt::Key_N), "1");
    EXPECT_EQ(items("List4"), (Strings{"sio2si"}));
    EXPECT_EQ(press(Qt::Key_P), "3");
    EXPECT_EQ(items("List4"), (Strings{"tio2si"}));
    EXPECT_EQ(press(Qt::Key_P), "2");
    EXPECT_EQ(session().CurrentSample, 2);
}

TEST_F(MainWindow, VScroll1MovesOneSamplePerStep) {
    startWithDemo();
    auto* bar = control<QScrollBar>("VScroll1");
    auto* combo = control<QComboBox>("Combo1");
    bar->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_EQ(combo->currentText(), "2");
    bar->triggerAction(QAbstractSlider::SliderPageStepAdd);
    EXPECT_EQ(combo->currentText(), "3");
    bar->triggerAction(QAbstractSlider::SliderSingleStepSub);
    EXPECT_EQ(combo->currentText(), "2");
    EXPECT_EQ(items("List1"), (Strings{"s2rbs165.dat", "s2erda.dat", "s2nra.dat"}));
    EXPECT_EQ(bar->value(), session().lists.VScroll1Value);
}

TEST_F(MainWindow, Label19TogglesTheWarningsAndIsMarkedWhenOff) {
    startWithDemo();
    auto* label = control<QLabel>("Label19");
    QTest::mouseClick(label, Qt::LeftButton);
    EXPECT_EQ(label->text(), "Warnings not shown");
    EXPECT_FALSE(session().WarningsFlag);
    EXPECT_FALSE(label->styleSheet().isEmpty());
    QTest::mouseClick(label, Qt::LeftButton);
    EXPECT_EQ(label->text(), "Warnings shown");
    EXPECT_TRUE(session().WarningsFlag);
    EXPECT_TRUE(label->styleSheet().isEmpty());
}

// Each sample's geometries must need one engine generation: the label says which, and a sample whose
// geometries disagree is reported as its lists are drawn.
TEST_F(MainWindow, Label14ShowsTheSampleSyntaxAndAMixedSampleIsReported) {
    QFile rbs120(file("rbs120.geo"));
    ASSERT_TRUE(rbs120.open(QIODevice::ReadOnly));
    QByteArray bytes = rbs120.readAll();
    rbs120.close();
    bytes.replace("pile ga 1e-6 0.5e-6", "pup 1e-6");  // the VKS8 form of the pile-up line
    ASSERT_TRUE(rbs120.open(QIODevice::WriteOnly | QIODevice::Truncate));
    rbs120.write(bytes);
    rbs120.close();

    startWithDemo();
    ASSERT_EQ(answers.boxes().size(), 1u) << answers.transcript().join('\n').toStdString();
    EXPECT_EQ(answers.transcript()[0],
              "[Module1.ShowSample] Inconsistent geometry file syntax for geometries in this sample: press Cancel "
              "to silence this message");
    EXPECT_EQ(text("Label14"), ". This sample has syntax=0");
    EXPECT_TRUE(session().current().SyntaxInconsistent);

    answers.clear();
    QTest::keyClick(frame(), Qt::Key_N, Qt::ControlModifier);
    EXPECT_TRUE(answers.boxes().empty()) << answers.transcript().join('\n').toStdString();
    EXPECT_EQ(text("Label14"), ". This sample has syntax=2");
}

TEST_F(MainWindow, SelectingAListEntryIsKeptInTheModel) {
    startWithDemo();
    auto* list = control<QListWidget>("List3");
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(1)).center());
    EXPECT_EQ(session().lists.List3.index, 1);
    // A redraw keeps the selection where the model has it.
    vks()->refresh();
    EXPECT_EQ(list->currentRow(), 1);
}

}  // namespace
}  // namespace halvo::test

namespace halvo::test {
namespace {

class StartUp : public HalvoFixture {
protected:
    // Starts with PATHVKS on a folder whose isotopes.dat holds `bytes`; the first box gets `answer`.
    bool startWithIsotopes(const QByteArray& bytes, QMessageBox::StandardButton answer) {
        QDir(dir()).mkdir("engine");
        QFile table(file("engine/isotopes.dat"));
        EXPECT_TRUE(table.open(QIODevice::WriteOnly));
        table.write(bytes);
        table.close();
        qputenv("PATHVKS", QFile::encodeName(file("engine")));
        answers.answer(answer);
        const bool started = startOnly();
        qputenv("PATHVKS", HALVO_EXAMPLES "/engine");
        return started;
    }
};

TEST_F(StartUp, WithTheStoredFolderTheWindowComesUpEmptyAndQuiet) {
    startEmpty();
    EXPECT_TRUE(answers.boxes().empty()) << answers.transcript().join('\n').toStdString();
    EXPECT_EQ(items("Combo1"), QStringList{"1"});
    EXPECT_TRUE(items("List1").isEmpty());
    EXPECT_EQ(items("List6").back().trimmed(), QDir(dir()).dirName());
    EXPECT_EQ(session().FilePath, QFile::encodeName(dir()).toStdString());
}

TEST_F(StartUp, WithoutAFolderTheMissingFolderIsReportedThroughAMessageBox) {
    forgetWorkingDirectory();
    startEmpty();
    ASSERT_EQ(answers.boxes().size(), 1u);
    EXPECT_EQ(answers.boxes()[0].title, "VKScontrol.Form_load");
    EXPECT_EQ(answers.boxes()[0].text, " apparently doesn't exist!  Not attempting to open VKS.BAT");
    EXPECT_EQ(answers.boxes()[0].icon, QMessageBox::Critical);
    EXPECT_TRUE(items("List6").isEmpty());
}

// A broken data table in the engine's folder: Cancel in its load error ends the program before the frame
// is shown.
TEST_F(StartUp, CancelAtADataTableLoadErrorEndsTheProgram) {
    EXPECT_FALSE(startWithIsotopes("header\r\nHydrogen\t1\t1H\t1.0078\t99.9\r\n", QMessageBox::Cancel));
    ASSERT_EQ(answers.boxes().size(), 1u);
    EXPECT_EQ(answers.boxes()[0].title, "Halvo load error");
    EXPECT_EQ(answers.boxes()[0].text, "Unexpected error handling Isotopes.dat file (Cancel to exit Halvo)");
    EXPECT_FALSE(frame()->isVisible());
}

// Exit closes the frame, and closing stores the working directory and the data format when the
// session says so (and only then).
TEST_F(StartUp, ExitClosesTheFrameAndStoresTheSettingsWhenAsked) {
    startWithDemo();
    gui::QtSettingsStore store;
    store.setValue("filepath", "/elsewhere");
    trigger("mnuExit");
    settle();
    EXPECT_FALSE(frame()->isVisible());
    EXPECT_EQ(store.value("filepath"), "/elsewhere");

    frame()->show();
    session().SaveSettingsOnExit = true;
    session().Geometry.FileFormat = 7;
    trigger("mnuExit");
    settle();
    EXPECT_EQ(store.value("filepath"), QFile::encodeName(dir()).toStdString());
    EXPECT_EQ(store.value("datafileformat"), "7");
    EXPECT_EQ(store.value("datafiletype"), "7");
}

}  // namespace
}  // namespace halvo::test
