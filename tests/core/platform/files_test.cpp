#include "platform/files.h"

#include <gtest/gtest.h>

#include <ctime>

#include "platform/settings.h"
#include "test_support.h"

namespace halvo::platform {
namespace {

using test::ScratchDir;

TEST(ResolveCase, ExactMatchWinsThenFirstFoldedMatch) {
    ScratchDir dir;
    dir.write("Run.SPC", "upper");
    dir.write("run.spc", "lower");
    dir.write("RUN.spc", "mixed");
    EXPECT_EQ(ResolveCase(dir.path(), "run.spc"), dir.file("run.spc"));
    // Sorted byte order: "RUN.spc" < "Run.SPC" < "run.spc".
    EXPECT_EQ(ResolveCase(dir.path(), "rUn.SpC"), dir.file("RUN.spc"));
    EXPECT_EQ(ResolveCase(dir.path(), "missing.spc"), std::nullopt);
    EXPECT_EQ(ResolveCase(dir.path() + "/nowhere", "run.spc"), std::nullopt);
}

TEST(ResolveCase, SeesFilesCreatedAfterAnEarlierLookup) {
    ScratchDir dir;
    EXPECT_EQ(ResolveCase(dir.path(), "late.GEO"), std::nullopt);
    dir.write("late.geo", "");
    EXPECT_EQ(ResolveCase(dir.path(), "LATE.GEO"), dir.file("late.geo"));
}

TEST(ResolveForWrite, RewritesTheFileThatDiffersOnlyInCase) {
    ScratchDir dir;
    dir.write("vks.prf", "old");
    EXPECT_EQ(ResolveForWrite(dir.path() + "/VKS.PRF"), dir.file("vks.prf"));
    EXPECT_EQ(ResolveForWrite(dir.path() + "/new.prf"), dir.file("new.prf"));
}

TEST(WriteFileSafely, KeepsThePreviousContentsBesideTheFile) {
    ScratchDir dir;
    ASSERT_TRUE(WriteFileSafely(dir.file("a.spc"), "first"));
    EXPECT_FALSE(dir.exists("a.spc~"));
    ASSERT_TRUE(WriteFileSafely(dir.file("a.spc"), "second"));
    EXPECT_EQ(dir.read("a.spc"), "second");
    EXPECT_EQ(dir.read("a.spc~"), "first");
    EXPECT_FALSE(WriteFileSafely(dir.path() + "/no/such/dir/x", "y"));
    EXPECT_FALSE(dir.exists("a.spc.halvo-tmp"));
}

TEST(FileDate, CountsDaysFrom1899) {
    ScratchDir dir;
    EXPECT_EQ(FileDate(dir.file("none")), 0.0);
    dir.write("f", "x");
    const double now = double(std::time(nullptr)) / 86400.0 + 25569.0;
    EXPECT_NEAR(FileDate(dir.file("F")), now, 1.1);  // found ignoring case; local offset under a day
}

TEST(JoinPath, TakesBackslashesAsSeparators) {
    EXPECT_EQ(JoinPath("C:\\data", "a.spc"), "C:/data/a.spc");
    EXPECT_EQ(JoinPath("/w/", "a.spc"), "/w/a.spc");
    EXPECT_EQ(JoinPath("", "a.spc"), "a.spc");
    EXPECT_EQ(JoinPath("/w", "/abs/a.spc"), "/abs/a.spc");
}

TEST(IniSettings, KeepsTheFourValuesAcrossInstances) {
    ScratchDir dir;
    const std::string file = dir.file("Halvo/App.conf");
    {
        IniSettings settings(file);
        EXPECT_EQ(settings.value("filepath"), "");
        settings.setValue("filepath", "/data/run 1");
        settings.setValue("path", "/opt/engine");
    }
    IniSettings again(file);
    EXPECT_EQ(again.value("filepath"), "/data/run 1");
    EXPECT_EQ(again.value("path"), "/opt/engine");
    EXPECT_NE(dir.read("Halvo/App.conf").find("[General]"), std::string::npos);
}

}  // namespace
}  // namespace halvo::platform
