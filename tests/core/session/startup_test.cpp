#include "session/startup.h"

#include <gtest/gtest.h>

#include "platform/settings.h"
#include "test_support.h"

namespace halvo {
namespace {

using test::ScratchDir;
using test::TestSession;

TEST(StartSession, TakesTheEngineFromTheEnvironmentAndTheFolderFromTheStore) {
    ScratchDir dir;
    TestSession t;
    platform::MemorySettings store;
    store.setValue("path", "/from/store");
    store.setValue("filepath", dir.path());
    t.session.settings = &store;
    StartSession(t.session, {"/from/env"});
    EXPECT_EQ(t.session.PathVKS, "/from/env");
    EXPECT_EQ(t.session.FilePath, dir.path());
    EXPECT_EQ(t.session.lists.List6, dir.path());
    EXPECT_EQ(t.session.lists.Combo1.items, std::vector<std::string>{"1"});
    EXPECT_FALSE(t.session.Starting);
    EXPECT_TRUE(t.answers.transcript().empty());
    StartSession(t.session, {""});
    EXPECT_EQ(t.session.PathVKS, "/from/store");
}

TEST(StartSession, DropsAWorkingFolderThatIsGone) {
    TestSession t;
    platform::MemorySettings store;
    store.setValue("filepath", "/no/such/folder");
    t.session.settings = &store;
    StartSession(t.session, {""});
    EXPECT_EQ(t.session.FilePath, "");
    EXPECT_EQ(t.answers.transcriptText(),
              "[Please change] Directory /no/such/folder doesn't exist or is empty\n"
              "[VKScontrol.Form_load]  apparently doesn't exist!  Not attempting to open VKS.BAT\n");
    EXPECT_EQ(t.answers.transcript()[0].message.buttons, mb::Exclamation);
    EXPECT_EQ(t.answers.transcript()[1].message.buttons, mb::Critical);
}

TEST(StartSession, WarningsComeBackUnlessSilencedForGood) {
    ScratchDir dir;
    TestSession t;
    platform::MemorySettings store;
    store.setValue("filepath", dir.path());
    t.session.settings = &store;
    SetWarningsFlag(t.session, false);
    StartSession(t.session, {""});
    EXPECT_TRUE(t.session.WarningsFlag);  // the first step turns them on
}

TEST(SetEngineVersion, NumbersTheVersionAndFindsTheRevision) {
    struct Case {
        std::string line;
        std::string shortVersion;
        int major, number;
        std::string revision;
    };
    const std::vector<Case> cases = {
        {"VKS v9.3g", "v9.3g", 9, 9307, ""},
        {"VKS v9.7a rev: 42 (stand-in)", "v9.7a", 9, 9701, " (rev: 42)"},
        {"VKS v8.12 REV: 7", "v8.12", 8, 9200, " (rev: 7)"},
        {"VKS v7.9b something else", "v7.9b", 7, 7902, ""},
        {"VKS", "", 0, 0, ""},
    };
    for (const auto& c : cases) {
        TestSession t;
        EXPECT_EQ(SetEngineVersion(t.session, c.line), c.revision) << c.line;
        EXPECT_EQ(t.session.VKSshortver, c.shortVersion);
        EXPECT_EQ(t.session.VKSversion, c.major);
        EXPECT_EQ(t.session.VKSversionNumber, c.number) << c.line;
        EXPECT_EQ(t.session.VKSlongver, c.line);
    }
    TestSession t;
    const std::string rev = SetEngineVersion(t.session, "VKS v9.7a rev: 42");
    EXPECT_EQ(FrameTitle(t.session, rev).substr(0, 7), "Halvo v");
    EXPECT_NE(FrameTitle(t.session, rev).find(" (rev: 42):  running VKS version v9.7a"), std::string::npos);
}

TEST(Settings, TheStoreFileIsNamedAfterTheClassicKey) {
    EXPECT_TRUE(platform::IniSettings::DefaultPath().ends_with("/Halvo/App.conf"));
}

}  // namespace
}  // namespace halvo
