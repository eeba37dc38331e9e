#include "text/numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "text/fault.h"

namespace halvo::text {
namespace {

TEST(Val, ReadsTheLongestNumberPrefix) {
    const std::vector<std::pair<std::string, double>> cases = {
        {"", 0},          {"abc", 0},        {"12", 12},          {"  \t\n 12", 12},   {"1 2 3", 123},
        {"-.5", -0.5},    {"+4", 4},         {"1.5e3", 1500},     {"1.5E+3x", 1500},   {"2d2", 200},
        {"2D-1", 0.2},    {"1e", 1},         {"1e+", 1},          {"3.4.5", 3.4},      {"12abc", 12},
        {"&H10", 0},      {"- 5", -5},       {"1 . 5", 1.5},      {".", 0},            {"1e-400", 0},
        {"10.5uC", 10.5}, {"7,5", 7},
    };
    for (const auto& [in, want] : cases) EXPECT_DOUBLE_EQ(Val(in), want) << "[" << in << "]";
    EXPECT_THROW(Val("1e999"), RuntimeFault);
}

TEST(IsNumeric, IsStrict) {
    for (const char* yes : {"1", " 12 ", "-3", "+3", "1.5", ".5", "5.", "1e5", "1E-5", "2d3", "  -1.5e+10  "})
        EXPECT_TRUE(IsNumeric(yes)) << yes;
    for (const char* no : {"", " ", "-", ".", "1.2.3", "1e", "1e+", "abc", "12a", "1 2", "&H10", "1,5", "e5"})
        EXPECT_FALSE(IsNumeric(no)) << no;
}

TEST(Str, WritesThePlainForm) {
    const std::vector<std::pair<float, std::string>> singles = {
        {0.0f, " 0"},          {1.0f, " 1"},          {-1.0f, "-1"},         {0.5f, " .5"},
        {-0.5f, "-.5"},        {10.5f, " 10.5"},      {0.1f, " .1"},         {2.2307f, " 2.2307"},
        {1234567.0f, " 1234567"}, {1e7f, " 1E+07"},   {12345678.0f, " 1.234568E+07"},
        {0.0001f, " .0001"},   {1.5e-5f, " 1.5E-05"}, {-1.5e-5f, "-1.5E-05"}, {3.14159265f, " 3.141593"},
    };
    for (const auto& [v, want] : singles) EXPECT_EQ(Str(v), want) << v;
    EXPECT_EQ(CStr(0.5f), ".5");
    EXPECT_EQ(CStr(1e15), "1E+15");
    EXPECT_EQ(CStr(123456789012345.0), "123456789012345");
    EXPECT_EQ(CStr(1.0 / 3.0), ".333333333333333");
    EXPECT_EQ(Str(3), " 3");
    EXPECT_EQ(Str(-3), "-3");
}

TEST(GeneralNumber, PrintsTheShortestFloat) {
    EXPECT_EQ(GeneralNumber(2.2307f), "2.2307");
    EXPECT_EQ(GeneralNumber(0.5f), "0.5");
    EXPECT_EQ(GeneralNumber(-0.25f), "-0.25");
    EXPECT_EQ(GeneralNumber(100.0f), "100");
    EXPECT_EQ(GeneralNumber(1e7f), "1E+07");
    EXPECT_EQ(GeneralNumber(0.1), "0.1");
    EXPECT_EQ(GeneralNumber(0.0f), "0");
}

TEST(Rounding, HalfToEvenWithOverflowFaults) {
    EXPECT_EQ(CInt(0.5), 0);
    EXPECT_EQ(CInt(1.5), 2);
    EXPECT_EQ(CInt(2.5), 2);
    EXPECT_EQ(CInt(-2.5), -2);
    EXPECT_EQ(CInt(-3.5), -4);
    EXPECT_EQ(CInt(2.4999), 2);
    EXPECT_EQ(CInt(32767.4), 32767);
    EXPECT_EQ(CInt(-32768.0), -32768);
    EXPECT_THROW(CInt(32767.5), RuntimeFault);
    EXPECT_THROW(CInt(-32769), RuntimeFault);
    EXPECT_THROW(CInt(std::nan("")), RuntimeFault);
    EXPECT_THROW(CLng(3e9), RuntimeFault);
    EXPECT_EQ(Fix(-2.7), -2);
    EXPECT_EQ(Int(-2.7), -3);
    EXPECT_THROW(CSng(1e39), RuntimeFault);
    EXPECT_EQ(Add16(32766, 1), 32767);
    EXPECT_THROW(Add16(32767, 1), RuntimeFault);
}

}  // namespace
}  // namespace halvo::text
