#include "text/lines.h"

#include <gtest/gtest.h>

namespace halvo::text {
namespace {

TEST(LineReader, AcceptsEveryLineEnd) {
    EXPECT_EQ(SplitLines("a\r\nb\nc\rd"), (std::vector<std::string>{"a", "b", "c", "d"}));
    EXPECT_EQ(SplitLines("a\r\n\r\nb\r\n"), (std::vector<std::string>{"a", "", "b"}));
    EXPECT_EQ(SplitLines(""), std::vector<std::string>{});
    EXPECT_EQ(SplitLines("\n"), std::vector<std::string>{""});
    EXPECT_EQ(SplitLines("x\r"), std::vector<std::string>{"x"});
}

TEST(CrlfWriter, EndsEveryLineWithCrLf) {
    CrlfWriter w;
    w.line("a").raw("b").line("");
    EXPECT_EQ(w.text(), "a\r\nb\r\n");
}

}  // namespace
}  // namespace halvo::text
