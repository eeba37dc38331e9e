#include <gtest/gtest.h>

#include "session/session.h"
#include "test_support.h"

namespace halvo {
namespace {

using test::ScratchDir;
using test::TestSession;

TEST(FileExists, LooksInTheWorkingDirectoryIgnoringCase) {
    ScratchDir dir;
    dir.write("Data.DAT", "1");
    TestSession t(dir.path());
    EXPECT_TRUE(FileExists(t.session, "data.dat"));
    EXPECT_TRUE(FileExists(t.session, "\"data.dat\""));
    EXPECT_TRUE(FileExists(t.session, dir.file("DATA.dat")));
    EXPECT_TRUE(FileExists(t.session, dir.path() + "/"));
    EXPECT_FALSE(FileExists(t.session, dir.file("Data.DAT") + "/"));
    EXPECT_TRUE(t.answers.transcript().empty());
}

TEST(FileExists, ReportsAMissingFileByLevel) {
    ScratchDir dir;
    TestSession t(dir.path());
    EXPECT_FALSE(FileExists(t.session, "gone.dat", -1));
    EXPECT_FALSE(FileExists(t.session, "gone.dat", 0));
    EXPECT_FALSE(FileExists(t.session, "gone.dat", 1));
    t.answers.push(mb::OK);
    int ask = 10;
    EXPECT_FALSE(FileExists(t.session, "gone.dat", ask));
    EXPECT_EQ(ask, 10);
    t.answers.push(mb::Cancel);
    EXPECT_FALSE(FileExists(t.session, "gone.dat", ask));
    EXPECT_EQ(ask, 0);
    EXPECT_EQ(t.answers.transcriptText(),
              "[FileExists] File gone.dat does not exist. (press Cancel to silence this message)\n"
              "[FileExists] File gone.dat does not exist\n"
              "[FileExists] gone.dat does not exist (Cancel to abort routine)\n"
              "[FileExists] gone.dat does not exist (Cancel to abort routine)\n");
    EXPECT_EQ(t.answers.transcript()[2].message.buttons, mb::OKCancel);
}

TEST(FileExists, IsQuietDuringStartUp) {
    TestSession t("/no/such/dir");
    t.session.Starting = true;
    EXPECT_FALSE(FileExists(t.session, "gone.dat", 1));
    EXPECT_FALSE(FileExists(t.session, "x", 1));
    EXPECT_TRUE(t.answers.transcript().empty());
}

TEST(FileExists, RefusesOneCharacterNames) {
    TestSession t("/tmp");
    EXPECT_FALSE(FileExists(t.session, "x", 0));
    EXPECT_EQ(t.answers.transcriptText(),
              "[FileExists] FileExists warning: filename x no drive, or no media on drive (press Cancel to silence "
              "this message)\n");
}

TEST(FileExists, WithNoWorkingDirectoryOnlyIniPrfAndCalAreLookedUp) {
    TestSession t("");
    EXPECT_FALSE(FileExists(t.session, "batch.spc", 0));
    EXPECT_FALSE(FileExists(t.session, "batch.spc", 1));
    EXPECT_FALSE(FileExists(t.session, "batch.spc", -1));
    EXPECT_FALSE(FileExists(t.session, "halvo.ini", 1));  // looked up here, and missing
    EXPECT_EQ(t.answers.transcriptText(),
              "[FileExists] Directory containing data for previous session is 'null' (press Cancel to silence this "
              "message)\n"
              "[FileExists] Directory containing data for previous session is 'null'\n"
              "[FileExists] File halvo.ini does not exist\n");
}

}  // namespace
}  // namespace halvo
