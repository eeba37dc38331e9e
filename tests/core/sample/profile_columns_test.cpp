#include <gtest/gtest.h>

#include <sstream>

#include "profile_cases.h"
#include "sample/profile_file.h"
#include "test_support.h"

namespace halvo {
namespace {

using test::ScratchDir;
using test::TestSession;

bool RunEdit(Session& s, const std::string& edit, const std::string& file) {
    std::istringstream in(edit);
    std::string op;
    int a = 0, b = 0;
    in >> op >> a >> b;
    if (op == "add") return PRFaddLE(s, std::int16_t(a), file);
    if (op == "del") return PRFdelLE(s, std::int16_t(a), file);
    if (op == "swap") return PRFswap(s, std::int16_t(a), std::int16_t(b), file);
    ADD_FAILURE() << "unknown edit " << edit;
    return false;
}

TEST(ProfileColumns, GoldenCases) {
    const auto cases = test::ReadProfileCases("sample/profile/columns.txt");
    ASSERT_GE(cases.size(), 20u);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        ScratchDir dir;
        const auto before = c.file("profile");
        if (before) dir.write("p.prf", *before);
        TestSession t(dir.path());
        const bool done = RunEdit(t.session, c.word("edit"), "p.prf");
        EXPECT_EQ(t.answers.transcriptText(), c.text("messages"));
        if (const auto expected = c.file("expect")) {
            EXPECT_TRUE(done);
            EXPECT_EQ(dir.read("p.prf"), *expected);
            EXPECT_EQ(dir.read("p.prf~"), *before);  // the old contents are kept beside it
        } else {
            EXPECT_FALSE(done);
            EXPECT_EQ(dir.read("p.prf"), before.value_or("<missing>"));
            EXPECT_FALSE(dir.exists("p.prf~"));
        }
    }
}

TEST(ProfileColumns, EmptyNameMeansTheCurrentProfileElseVksPrfInAnyCase) {
    ScratchDir dir;
    dir.write("vks.prf", "1\r\n100 1\r\n");
    dir.write("mine.prf", "1\r\n50 2\r\n");
    TestSession t(dir.path());
    ASSERT_TRUE(PRFaddLE(t.session, 1, ""));  // "VKS.PRF" rewrites vks.prf
    EXPECT_EQ(dir.read("vks.prf"), "1\r\n100 1  0 \r\n");
    EXPECT_FALSE(dir.exists("VKS.PRF"));
    t.session.Profile.ProfileFile = "MINE.PRF";
    ASSERT_TRUE(PRFdelLE(t.session, 1, ""));
    EXPECT_EQ(dir.read("mine.prf"), "1\r\n50 \r\n");
    EXPECT_EQ(dir.read("mine.prf~"), "1\r\n50 2\r\n");
    EXPECT_EQ(t.answers.transcriptText(), "");
}

TEST(ProfileColumns, RawReadCutsCommentsAndCountsColumnsOnTheFirstLayer) {
    ScratchDir dir;
    dir.write("p.prf", "2 layers\r\n10 1 2 | x y\r\n20 3|4 5\r\n");
    TestSession t(dir.path());
    PRFarr arr;
    ASSERT_TRUE(PRFsetraw(t.session, arr, "p.prf"));
    EXPECT_EQ(arr.PRFlayers, 2);
    EXPECT_EQ(arr.PRFcolumns, 2);
    EXPECT_EQ(arr.PRFvalues(2, 1), 2.0f);
    EXPECT_EQ(arr.PRFvalues(1, 2), 3.0f);
    EXPECT_EQ(arr.PRFvalues(2, 2), 0.0f);
    EXPECT_THROW(arr.PRFvalues(3, 1), RuntimeFault);
}

}  // namespace
}  // namespace halvo
