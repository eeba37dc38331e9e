// The test program runs offscreen and keeps its per-user settings in a directory of its own.
#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryDir>

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QTemporaryDir home;
    qputenv("XDG_CONFIG_HOME", (home.path() + QStringLiteral("/config")).toLocal8Bit());
    qputenv("XDG_RUNTIME_DIR", (home.path() + QStringLiteral("/runtime")).toLocal8Bit());
    // The engine's data tables: the ones shipped with the examples, so that geometries can be read.
    qputenv("PATHVKS", HALVO_EXAMPLES "/engine");
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Halvo"));
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
