#include "sample/formula_file.h"

#include <gtest/gtest.h>

#include "case_file.h"

#include <optional>
#include <sstream>

#include "text/fault.h"
#include "test_support.h"

namespace halvo {
namespace {

using test::ScratchDir;
using test::TestSession;

// One case of tests/data/sample/formula/cases.txt.
struct GoldenCase {
    std::string name;
    std::optional<std::string> file;  // none: no file at all
    std::vector<int> answers;
    bool passes = false;
    std::optional<std::string> items;
    std::string messages;
};

std::vector<GoldenCase> ReadCases(const std::string& data) {
    return halvo::test::ReadCaseFile<GoldenCase>(data, [&](GoldenCase& c, const std::string& kind, std::vector<std::string> section) {
        if (kind == "file") {
            std::string bytes;
            for (const auto& l : section) bytes += l + "\r\n";
            if (!(section.size() == 1 && section[0] == "<none>")) c.file = bytes;
            return;
        }
        section = halvo::test::WithoutTrailingBlanks(section);
        const std::string joined = halvo::test::JoinLines(section);
        if (kind == "answers") {
            std::istringstream in(joined);
            for (std::string a; in >> a;) c.answers.push_back(AnswerFromName(a));
        } else if (kind == "result") {
            c.passes = joined == "pass\n";
        } else if (kind == "items") {
            c.items = section.empty() ? "" : section[0];
        } else if (kind == "messages") {
            c.messages = joined;
        }
    });
}

std::string Joined(const std::vector<std::string>& items) {
    std::string out;
    for (const auto& i : items) out += (out.empty() ? "" : " ") + i;
    return out;
}

TEST(FormulaFile, GoldenCases) {
    const auto cases = ReadCases(test::ReadData("sample/formula/cases.txt"));
    ASSERT_GT(cases.size(), 40u);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        ScratchDir dir;
        if (c.file) dir.write("conc.txt", *c.file);
        TestSession t(dir.path());
        for (int a : c.answers) t.answers.push(a);
        const FormulaCheck result = CheckFormulaFile(t.session, "conc.txt");
        EXPECT_EQ(result.passes, c.passes);
        EXPECT_EQ(t.answers.transcriptText(), c.messages);
        if (c.items) {
            EXPECT_EQ(Joined(result.items), *c.items);
        }
        // A check that passes reported nothing; one that fails reported something.
        EXPECT_EQ(result.passes, t.answers.transcript().empty());
        EXPECT_EQ(result.cancelled, !c.answers.empty() && c.answers.back() == mb::Cancel &&
                                        t.answers.transcript().size() == c.answers.size());
        for (const auto& e : t.answers.transcript())
            EXPECT_EQ(e.message.buttons, e.message.title == "checkFormula warning" ? mb::OKOnly : mb::OKCancel);
    }
}

TEST(FormulaFile, ClassifiesItemsIgnoringCase) {
    const std::vector<std::pair<std::string, int>> cases = {
        {"", -1},     {"+", 1},     {"-", 1},      {"*", 2},     {"/", 2},      {"^", 2},   {"**", 2},
        {"sin", 3},   {"SIN", 3},   {"log10", 3},  {"anint", 3}, {"floor", 3},  {"tand", 3}, {"erf", 3},
        {"sinx", -1}, {"a0", 4},    {"A9", 4},     {"a10", -1},  {"b1", -1},    {"t", 5},   {"T", 5},
        {"(", 6},     {")", 7},     {"2", 0},      {".5", 0},    {"-2.5e3", 0}, {"1d5", 0}, {"2.5e", -1},
        {"1.2.3", -1}, {"x", -1},   {"tt", -1},    {"\t", -1},
    };
    for (const auto& [item, expected] : cases) EXPECT_EQ(ClassifyItem(item), expected) << "item [" << item << "]";
}

TEST(FormulaFile, OrdinalsEndInABlankAndOnlyOneToThreeAreSpecial) {
    EXPECT_EQ(Ordinal(1), "1st ");
    EXPECT_EQ(Ordinal(2), "2nd ");
    EXPECT_EQ(Ordinal(3), "3rd ");
    EXPECT_EQ(Ordinal(4), "4th ");
    EXPECT_EQ(Ordinal(11), "11th ");
    EXPECT_EQ(Ordinal(21), "21th ");
    EXPECT_EQ(Ordinal(22), "22th ");
    EXPECT_EQ(Ordinal(0), "0th ");
}

TEST(FormulaFile, SpacingOutRunsLongestNamesFirstAndCountsEachParameterOnce) {
    int parameters = -1;
    EXPECT_EQ(SpaceOutFormula("asin(t)", parameters), " ASIN  (  T  ) ");
    EXPECT_EQ(parameters, 0);
    EXPECT_EQ(SpaceOutFormula("log10(a1)*a1**a2", parameters), " LOG10  (  A1  )  *  A1   ^   A2 ");
    EXPECT_EQ(parameters, 2);
    SpaceOutFormula("a0a1a2a3a4a5a6a7a8a9a0", parameters);
    EXPECT_EQ(parameters, 10);
}

// A formula of 250 characters: "t" and then "+1" repeated, with blanks to make up the length.
std::string FormulaOfLength(size_t length) {
    std::string f = "t";
    while (f.size() + 2 <= length) f += "+1";
    return f + std::string(length - f.size(), ' ');
}

TEST(FormulaFile, TwoHundredAndFiftyCharactersAreAllowed) {
    ScratchDir dir;
    TestSession t(dir.path());
    dir.write("f.txt", FormulaOfLength(250) + "\r\n");
    EXPECT_TRUE(checkFormula(t.session, "f.txt"));
    EXPECT_EQ(t.answers.transcriptText(), "");
}

TEST(FormulaFile, ALongerFormulaIsReportedAndTheCheckGoesOnUnlessCancelled) {
    ScratchDir dir;
    const std::string formula = "*" + FormulaOfLength(251);
    dir.write("f.txt", formula + "\r\n");
    TestSession t(dir.path());
    EXPECT_FALSE(checkFormula(t.session, "f.txt"));
    EXPECT_EQ(t.answers.transcriptText(), "[checkFormula error] Formula " + formula +
                                              " too long: it has 252 characters and only 250 is allowed\n"
                                              "[checkFormula error] Syntax error at 1'th item (*) in formula " +
                                              formula + " in file f.txt\n");
    TestSession cancelled(dir.path());
    cancelled.answers.push(mb::Cancel);
    const FormulaCheck result = CheckFormulaFile(cancelled.session, "f.txt");
    EXPECT_FALSE(result.passes);
    EXPECT_TRUE(result.cancelled);
    EXPECT_EQ(cancelled.answers.transcript().size(), 1u);
}

TEST(FormulaFile, IsFoundIgnoringCaseAndReadWithAnyLineEnd) {
    ScratchDir dir;
    TestSession t(dir.path());
    dir.write("Conc.TXT", "a1*t\n1 0 2 1\n");
    EXPECT_TRUE(checkFormula(t.session, "conc.txt"));
    dir.write("cr.txt", "a1*t\r1 0 2 1");
    EXPECT_TRUE(checkFormula(t.session, "CR.txt"));
    // A name with a directory is taken as it stands, and messages name the file as it was given.
    EXPECT_TRUE(checkFormula(t.session, dir.file("conc.txt")));
    EXPECT_FALSE(checkFormula(t.session, dir.path() + "/"));
    EXPECT_EQ(t.answers.transcriptText(),
              "[checkFormula warning] The formula file " + dir.path() + "/ does not appear to exist.\n");
}

TEST(FormulaFile, AnEmptyFileFallsToTheCallersTrap) {
    ScratchDir dir;
    dir.write("empty.txt", "");
    TestSession t(dir.path());
    try {
        checkFormula(t.session, "empty.txt");
        FAIL() << "no fault raised";
    } catch (const RuntimeFault& fault) {
        EXPECT_EQ(fault.code(), RuntimeFault::InputPastEnd);
    }
    EXPECT_TRUE(t.answers.transcript().empty());
    // An empty first line is a formula, and has no "t".
    dir.write("blank.txt", "\r\n");
    EXPECT_FALSE(checkFormula(t.session, "blank.txt"));
    EXPECT_EQ(t.answers.transcriptText(), "[checkFormula error] No independent variable 't' in formula \n");
}

TEST(FormulaFile, AHugeNumberInAControlLineFallsToTheCallersTrap) {
    ScratchDir dir;
    dir.write("f.txt", "a1*t\r\n1 0 1e999 1\r\n");
    TestSession t(dir.path());
    EXPECT_THROW(checkFormula(t.session, "f.txt"), RuntimeFault);
}

}  // namespace
}  // namespace halvo
