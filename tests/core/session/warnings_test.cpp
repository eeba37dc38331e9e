#include <gtest/gtest.h>

#include "session/session.h"
#include "test_support.h"

namespace halvo {
namespace {

using test::TestSession;

struct BoxCase {
    int buttonsIn;
    std::string suffixIn;
    int answer;
    int shownButtons;
    std::string shownSuffix;
    bool warningsAfter;
};

TEST(WarningBox, AdjustsButtonsAndSuffixAndCancelSilences) {
    const std::string silence = " (press Cancel to silence this message)";
    const std::vector<BoxCase> cases = {
        {0, "", mb::OK, mb::OKCancel, silence, true},
        {0, "", mb::Cancel, mb::OKCancel, silence, false},
        {mb::Exclamation, "", mb::OK, mb::Exclamation | 1, silence, true},
        {mb::YesNo, "", mb::Yes, mb::YesNo, "  ", true},
        // Only a plain YesNo is protected: with an icon bit 0 turns it into RetryCancel, which can silence.
        {mb::YesNo | mb::Question, "", mb::Cancel, mb::RetryCancel | mb::Question, silence, false},
        {mb::OKCancel, "own words", mb::OK, mb::OKCancel, " own words", true},
        {mb::OKCancel, " spaced", mb::OK, mb::OKCancel, " spaced", true},
    };
    for (const auto& c : cases) {
        TestSession t;
        t.answers.push(c.answer);
        int buttons = c.buttonsIn;
        std::string suffix = c.suffixIn;
        WarningBox(t.session, "Text", "Title", buttons, suffix);
        ASSERT_EQ(t.answers.transcript().size(), 1u);
        const auto& shown = t.answers.transcript()[0].message;
        EXPECT_EQ(shown.buttons, c.shownButtons) << c.buttonsIn;
        EXPECT_EQ(shown.text, "Text" + c.shownSuffix);
        EXPECT_EQ(shown.title, "Title");
        EXPECT_EQ(buttons, c.answer);
        EXPECT_EQ(suffix, c.shownSuffix);
        EXPECT_EQ(t.session.WarningsFlag, c.warningsAfter);
    }
}

TEST(WarningBox, WithWarningsOffShowsNothingAndLeavesTheAdjustedButtons) {
    TestSession t;
    SetWarningsFlag(t.session, false);
    int yesNo = mb::YesNo;
    std::string suffix;
    WarningBox(t.session, "Question?", "T", yesNo, suffix);
    EXPECT_EQ(yesNo, mb::YesNo);  // as the caller set it: neither Yes nor No
    EXPECT_EQ(WarningBox(t.session, "x", "T", 0), mb::OK);
    EXPECT_EQ(WarningBox(t.session, "x", "T", mb::Exclamation), mb::Exclamation | 1);
    EXPECT_TRUE(t.answers.transcript().empty());
}

TEST(Warnings, Label19FlipsTheFlagAndSilencingForgetsTheAsking) {
    TestSession t;
    EXPECT_EQ(t.session.lists.Label19, "Warnings shown");
    t.answers.push(mb::Cancel);
    WarningBox(t.session, "x", "T");
    EXPECT_FALSE(t.session.WarningsFlag);
    EXPECT_FALSE(t.session.WarningsAsked);
    EXPECT_EQ(t.session.lists.Label19, "Warnings not shown");
    EXPECT_TRUE(t.session.lists.Label19Marked);
    WarningBox(t.session, "silenced", "T");
    EXPECT_EQ(t.answers.transcript().size(), 1u);
    Label19_Click(t.session);
    EXPECT_TRUE(t.session.WarningsFlag);
    EXPECT_EQ(t.session.lists.Label19, "Warnings shown");
    WarningBox(t.session, "again", "T");
    EXPECT_EQ(t.answers.transcript().size(), 2u);
}

TEST(MarkSaved, TitleFollowsTheBatchAndItsState) {
    TestSession t;
    t.session.BatchName = "demo";
    MarkSaved(t.session, false);
    EXPECT_EQ(t.session.MainTitle, "VKScontrol - demo - Unsaved");
    EXPECT_EQ(t.session.UnsavedMark, " - Unsaved");
    MarkSaved(t.session, true);
    EXPECT_EQ(t.session.MainTitle, "VKScontrol - demo");
}

}  // namespace
}  // namespace halvo
