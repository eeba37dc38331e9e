#include "text/tokens.h"

#include <gtest/gtest.h>

#include <vector>

namespace halvo::text {
namespace {

struct CountCase {
    std::string line;
    std::string separatorIn;
    int count;
    std::string separatorOut;
};

TEST(CountTokens, FixesTheSeparatorAndFoldsRuns) {
    const std::vector<CountCase> cases = {
        {"", "", 0, ""},
        {"   ", "", 0, ""},
        {"one", "", 1, ""},
        {"  a   b  c ", "", 3, " "},
        {"a\tb\t\tc", "", 3, "\t"},
        {"\ta\tb\t", "", 2, "\t"},
        {"a\rb", "", 2, "\r"},
        // A blank anywhere wins over a tab: the tab then stays inside a field.
        {"a\tb c", "", 2, " "},
        // A fixed separator is kept.
        {"a b\tc", "\t", 2, "\t"},
        {"test-1.dat 12 geo", "", 3, " "},
    };
    for (const auto& c : cases) {
        std::string sep = c.separatorIn;
        EXPECT_EQ(CountTokens(c.line, sep), c.count) << "line [" << c.line << "]";
        EXPECT_EQ(sep, c.separatorOut) << "line [" << c.line << "]";
    }
}

struct TokenCase {
    std::string line;
    std::string separator;
    bool allowQuote;
    std::vector<std::string> tokens;  // successive calls until the line is empty
};

TEST(NextToken, CutsTokensInTurn) {
    const std::vector<TokenCase> cases = {
        {"a  b c", " ", false, {"a", "b", "c"}},
        {"  lead  trail  ", " ", false, {"lead", "trail"}},
        {"a\tb\tc", "\t", false, {"a", "b", "c"}},
        // A doubled tab leaves an empty field: only blanks are trimmed.
        {"a\t\tb", "\t", false, {"a", "", "b"}},
        {"\"two words\" next", " ", true, {"two words", "next"}},
        {"\"quoted\" next", " ", false, {"\"quoted\"", "next"}},
        // Without a separator: blank, tab and LF end a token.
        {"x\ty z\nw", "", false, {"x", "y", "z", "w"}},
        // The minus split needs an "e" somewhere in the line and never drops a character.
        {"1.5e3-2.5", "", false, {"1.5e3", "-2.5"}},
        {"1.5e-3 2", "", false, {"1.5e-3", "2"}},
        {"test-1.dat 12", "", false, {"test", "-1.dat", "12"}},
        {"tst-1.dat 12", "", false, {"tst-1.dat", "12"}},
        {"-5e2 3", "", false, {"-5e2", "3"}},
        // A minus behind the first blank does not split the first token.
        {"ab e-1", "", false, {"ab", "e-1"}},
        // With a fixed separator a minus never splits.
        {"test-1.dat 12", " ", false, {"test-1.dat", "12"}},
    };
    for (const auto& c : cases) {
        std::string line = c.line;
        std::vector<std::string> got;
        for (int guard = 0; guard < 10 && !line.empty(); ++guard) got.push_back(NextToken(line, c.separator, c.allowQuote));
        EXPECT_EQ(got, c.tokens) << "line [" << c.line << "]";
    }
}

TEST(FileNames, SplitAtEitherSeparatorAndTheFirstDot) {
    EXPECT_EQ(FileNameOf("C:\\data\\run.spc"), "run.spc");
    EXPECT_EQ(FileNameOf("C:\\data\\run.spc", true), "C:\\data");
    EXPECT_EQ(FileNameOf("/home/u/run.spc"), "run.spc");
    EXPECT_EQ(FileNameOf("/home/u/run.spc", true), "/home/u");
    EXPECT_EQ(FileNameOf("run.spc"), "run.spc");
    EXPECT_EQ(FileNameOf("run.spc", true), "");
    std::string ext;
    EXPECT_EQ(SplitExtension("a.b.c", ext), "a");
    EXPECT_EQ(ext, "b.c");
    EXPECT_EQ(SplitExtension("noext", ext), "noext");
    EXPECT_EQ(ext, "");
}

TEST(Trim, RemovesBlanksOnly) {
    EXPECT_EQ(Trim("  a b  "), "a b");
    EXPECT_EQ(Trim("\ta\t"), "\ta\t");
    EXPECT_EQ(Trim("    "), "");
}

}  // namespace
}  // namespace halvo::text
