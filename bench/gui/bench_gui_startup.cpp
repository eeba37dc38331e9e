// How long a user waits for the demo batch: the program object is built, the frame shown, the session
// started and the batch read and drawn. Runs offscreen with its settings in a directory of its own, the
// demo's folder stored as the last working directory (so start-up shows no box).
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>
#include <memory>

#include "gui/app/halvo_application.h"
#include "gui/app/qt_settings_store.h"
#include "gui/session/halvo_mdi.h"
#include "gui/session/vks_control.h"

namespace {

QString CopyDemo(const QTemporaryDir& work) {
    const QDir demo(QStringLiteral(HALVO_EXAMPLES "/demo"));
    for (const QString& name : demo.entryList(QDir::Files)) QFile::copy(demo.filePath(name), work.filePath(name));
    return work.filePath(QStringLiteral("demo.spc"));
}

void BM_FrameToDemoBatchShown(benchmark::State& state) {
    QTemporaryDir work;
    const QString batch = CopyDemo(work);
    halvo::gui::QtSettingsStore().setValue("filepath", QFile::encodeName(work.path()).toStdString());

    // A box would wait for a user: any that appears is closed and counted.
    int boxes = 0;
    QTimer guard;
    QObject::connect(&guard, &QTimer::timeout, [&] {
        if (QWidget* modal = QApplication::activeModalWidget()) {
            ++boxes;
            modal->close();
        }
    });
    guard.start(50);

    for (auto _ : state) {
        auto app = std::make_unique<halvo::gui::HalvoApplication>();
        app->start(batch);
        QApplication::processEvents();  // exposed and painted
        auto* samples = app->frame()->vks()->findChild<QComboBox*>(QStringLiteral("Combo1"));
        if (!samples || samples->count() != 3) state.SkipWithError("the demo batch is not shown");

        state.PauseTiming();
        app->frame()->close();
        app.reset();
        QApplication::processEvents();
        state.ResumeTiming();
    }
    state.counters["boxes"] = boxes;
}
// The first start in the process pays for fonts, style and platform set-up: what a user sees at launch.
BENCHMARK(BM_FrameToDemoBatchShown)->Name("FirstStart")->Unit(benchmark::kMillisecond)->Iterations(1);
// Later starts: the program's own share.
BENCHMARK(BM_FrameToDemoBatchShown)->Name("WarmStart")->Unit(benchmark::kMillisecond)->MinTime(2.0);

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QTemporaryDir home;
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(home.filePath(QStringLiteral("config"))));
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(home.filePath(QStringLiteral("runtime"))));
    qunsetenv("PATHVKS");
    QApplication qt(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Halvo"));

    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
