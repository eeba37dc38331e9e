#include <gtest/gtest.h>

#include <sstream>

#include "profile_cases.h"
#include "sample/profile_file.h"
#include "test_support.h"

namespace halvo {
namespace {

using test::ScratchDir;
using test::TestSession;

const std::string kTwoElements = "100\r\n2\r\nSi\r\n0 0\r\n0 1\r\nO\r\n0 0\r\n0 1\r\n";

TEST(ProfileCheck, GoldenCases) {
    const auto cases = test::ReadProfileCases("sample/profile/check.txt");
    ASSERT_GE(cases.size(), 30u);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        ScratchDir dir;
        if (const auto str = c.file("structure")) dir.write("s.str", *str);
        if (const auto prf = c.file("profile")) dir.write("p.prf", *prf);
        TestSession t(dir.path());
        t.session.BatchName = "run";
        std::istringstream run(c.has("run") ? c.word("run") : "0 -1");
        int mode = 0;
        run >> t.session.TCNdummy.Speed >> mode;
        t.session.TCNdummy.Mode = std::int16_t(mode);
        EXPECT_EQ(chkPRF(t.session, "p", "s"), c.word("result") == "pass");
        EXPECT_EQ(t.answers.transcriptText(), c.text("messages"));
    }
}

TEST(ProfileCheck, FindsFilesIgnoringCaseThenInTheDataDirectory) {
    ScratchDir work, data;
    work.write("P.PRF", "1\r\n100 1 0\r\n");
    data.write("S.Str", kTwoElements);
    TestSession t(work.path());
    t.session.PathVKS = data.path();
    EXPECT_TRUE(chkPRF(t.session, "p", "s"));
    EXPECT_TRUE(chkPRF(t.session, "p.prf", "s.str"));  // an extension given is kept
    EXPECT_TRUE(chkPRF(t.session, work.file("p.prf"), "s"));
    EXPECT_EQ(t.answers.transcriptText(), "");
    EXPECT_FALSE(chkPRF(t.session, "p.txt", "s"));
    EXPECT_EQ(t.answers.transcript().front().message.text,
              "p.txt apparently doesn't exist! (press Cancel to silence this message)");
}

TEST(ProfileCheck, FailsSilentlyWithWarningsOff) {
    ScratchDir dir;
    dir.write("s.str", kTwoElements);
    dir.write("p.prf", "1\r\n100 1\r\n");
    TestSession t(dir.path());
    SetWarningsFlag(t.session, false);
    EXPECT_FALSE(chkPRF(t.session, "p", "s"));
    EXPECT_EQ(t.answers.transcriptText(), "");
}

TEST(ProfileCheck, CancelOnTheFirstMessageSilencesTheLast) {
    ScratchDir dir;
    dir.write("s.str", kTwoElements);
    TestSession t(dir.path());
    t.session.CurrentSample = 4;
    t.session.BatchName = "abc";
    t.answers.push(mb::Cancel);
    EXPECT_FALSE(chkPRF(t.session, "p", "s"));
    EXPECT_EQ(t.answers.transcript().size(), 1u);
    EXPECT_FALSE(t.session.WarningsFlag);
    SetWarningsFlag(t.session, true);
    EXPECT_FALSE(chkPRF(t.session, "p", "s"));
    EXPECT_EQ(t.answers.transcript().back().message.text,
              "Check profile files (chkPRF): error in sample 4 in batch abc (press Cancel to silence this message)");
}

}  // namespace
}  // namespace halvo
