#include "session/derived_names.h"

#include <gtest/gtest.h>

#include "test_support.h"

namespace halvo {
namespace {

using test::ScratchDir;
using test::TestSession;

TEST(TwoCharNumber, CoversEveryRange) {
    const std::vector<std::pair<int, std::string>> cases = {
        {-1, ""},    {0, "00"},   {9, "09"},   {10, "10"},  {99, "99"},   {100, "a0"},
        {123, "c3"}, {135, "d5"}, {359, "z9"}, {360, "0"},  {999, "9"},   {1000, "00"}, {12345, "00"},
    };
    for (const auto& [n, want] : cases) EXPECT_EQ(TwoCharNumber(n), want) << n;
}

Session& WithBatch(TestSession& t, const std::string& name, int samples, int spectraOfCurrent) {
    Session& s = t.session;
    s.BatchName = name;
    s.NSamples = std::int16_t(samples);
    s.Samples.resize(size_t(samples) + 2);
    s.CurrentSample = 1;
    s.current().NSpectra = std::int16_t(spectraOfCurrent);
    return s;
}

TEST(SPXname, BuildsTheNamesFromThreeLettersOfTheBatch) {
    TestSession t;
    Session& s = WithBatch(t, "demonstration", 150, 4);
    EXPECT_EQ(SPXname(s, ".spx", 1, 0), "dem.spx");
    EXPECT_EQ(SPXname(s, "str", 2, 0), "demS02.str");
    EXPECT_EQ(SPXname(s, ".geo", 123, 4), "demGc304.geo");
    EXPECT_EQ(SPXname(s, ".prf", 0, 0), "dem01.prf");  // 0 is the current sample
    EXPECT_EQ(SPXname(s, ".dat", 1, 1), "");
    EXPECT_EQ(SPXname(s, ".prf", 151, 0), "");
    EXPECT_EQ(SPXname(s, ".prf", -1, 0), "");
    EXPECT_EQ(DerivedName(s, 0, 7, "F"), "demF07");
    EXPECT_EQ(DerivedName(s, 2, 7, "bs"), "debs07");
    EXPECT_TRUE(t.answers.transcript().empty());
}

TEST(SPXname, ShortBatchNamesGiveShortPrefixes) {
    TestSession t;
    Session& s = WithBatch(t, "ab", 1, 1);
    EXPECT_EQ(SPXname(s, ".prf", 1, 0), "ab01.prf");
    EXPECT_EQ(DerivedName(s, 3, 1, "F"), "abF01");
}

TEST(SPXname, WarnsAboutGeometryNumbersOutOfRange) {
    TestSession t;
    Session& s = WithBatch(t, "run", 2, 3);
    EXPECT_EQ(SPXname(s, ".geo", 1, 4), "");
    EXPECT_EQ(SPXname(s, ".geo", 1, 0), "");
    EXPECT_EQ(SPXname(s, ".geo", 1, -2), "");
    EXPECT_EQ(t.answers.transcriptText(),
              "[Spectrum number < number of experiments is illegal!] SPXname warning: FileNumber = 4; number of expts = "
              "3 (press Cancel to silence this message)\n"
              "[SPXname warning] Spectrum (and associated GEO file) not specified (press Cancel to silence this "
              "message)\n"
              "[SPXname warning] Spectrum number < 0 illegal! (press Cancel to silence this message)\n");
}

TEST(FileFromTreename, CutsThePathAndReportsByFlags) {
    ScratchDir dir;
    dir.write("short.geo", "");
    dir.write("averylongname.geo", "");
    TestSession t(dir.path());
    std::string name = "C:\\old\\place\\SHORT.GEO";
    EXPECT_TRUE(FileFromTreename(t.session, name, 7));
    EXPECT_EQ(name, "SHORT.GEO");
    name = "averylongname.geo";
    EXPECT_TRUE(FileFromTreename(t.session, name, 7));
    name = "missing.geo";
    EXPECT_FALSE(FileFromTreename(t.session, name, 0));
    EXPECT_FALSE(FileFromTreename(t.session, name, 1));
    name = "";
    EXPECT_FALSE(FileFromTreename(t.session, name, 4));
    EXPECT_EQ(t.answers.transcriptText(),
              "[FileFromTreename error] FileFromTreename error: Filename averylongname.geo is not legal DOS filename\n"
              "[FileFromTreename error] FileFromTreename errormissing.geo: File with treename missing.geo apparently "
              "doesn't exist\n"
              "[FileFromTreename error] FileFromTreename error: File with treename  apparently doesn't exist\n");
}

}  // namespace
}  // namespace halvo
