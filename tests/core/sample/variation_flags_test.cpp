#include "sample/variation_flags.h"

#include <gtest/gtest.h>

#include <sstream>

#include "profile_cases.h"
#include "sample/profile_file.h"
#include "test_support.h"

namespace halvo {
namespace {

using test::ScratchDir;
using test::TestSession;

void SetShape(Session& s, const std::string& shape) {
    s.Structure = StructureRecord{};
    std::istringstream in(shape);
    for (std::string word; in >> word;) {
        int n = 0;
        if (word == "nle" && in >> n) s.Structure.NLE = std::int16_t(n);
        if (word == "inclusions") s.Structure.HasInclusions = true;
        if (word == "rough" && in >> n) {
            s.Structure.HasRoughness = true;
            s.Structure.Roughness.ModelA = std::int16_t(n);
            s.Structure.Roughness.ModelFlagsRead = true;
        }
    }
}

std::string Rows(const ProfileRecord& p) {
    std::string out;
    for (int layer = 1; layer <= p.FitFlags.layers(); ++layer) {
        for (int c = 0; c <= p.FitFlags.columns(); ++c) out += (c ? " " : "") + std::to_string(p.FitFlags(c, layer));
        out += "\n";
    }
    return out;
}

TEST(VariationFlags, GoldenCases) {
    const auto cases = test::ReadProfileCases("sample/profile/flags.txt");
    ASSERT_GE(cases.size(), 12u);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        ScratchDir dir;
        TestSession t(dir.path());
        SetShape(t.session, c.word("shape"));
        dir.write("p.prf", c.file("profile").value());
        if (const auto flags = c.file("flags")) dir.write("VKSPRF.ORD", *flags);
        ProfileRecord p;
        ASSERT_TRUE(ReadPRF(t.session, "p", p, ".prf"));
        ReadVariationFlags(t.session, p);
        EXPECT_EQ(Rows(p), c.text("expect"));
        if (const auto written = c.file("written")) {
            ASSERT_TRUE(WriteVariationFlags(t.session, p));
            EXPECT_EQ(dir.read("VKSPRF.ORD"), *written);
        }
        EXPECT_EQ(t.answers.transcriptText(), "");
    }
}

TEST(VariationFlags, ProfileWithoutLogicalElementsTakesTheStructures) {
    ScratchDir dir;
    TestSession t(dir.path());
    t.session.Structure.NLE = 2;
    ProfileRecord p;
    p.Layers = 1;
    p.RawValues.resize(2, 1);
    p.RawValues(2, 1) = 3;
    ReadVariationFlags(t.session, p);
    EXPECT_EQ(p.ProfileLE, 2);
    EXPECT_EQ(Rows(p), "0 0 -1\n");
}

TEST(VariationFlags, WritingRewritesTheFileInWhateverCaseItHas) {
    ScratchDir dir;
    dir.write("vksprf.ord", "old\r\n");
    TestSession t(dir.path());
    t.session.Structure.NLE = 1;
    ProfileRecord p;
    p.Layers = 2;
    p.ProfileLE = 1;
    p.FitFlags.resize(1, 2);
    p.FitFlags(1, 2) = -1;
    ASSERT_TRUE(WriteVariationFlags(t.session, p));
    EXPECT_EQ(dir.read("vksprf.ord"), "2\r\n0  0\r\n0  1\r\n");
    EXPECT_EQ(dir.read("vksprf.ord~"), "old\r\n");
    EXPECT_FALSE(dir.exists("VKSPRF.ORD"));
}

TEST(VariationFlags, MatrixColumnsMapToProfileColumns) {
    ScratchDir dir;
    TestSession t(dir.path());
    Session& s = t.session;
    // Logical elements shown: the matrix column plus the window's offset.
    EXPECT_EQ(PRFfromORD(s, {true, 0, 5, false}, 0), 0);
    EXPECT_EQ(PRFfromORD(s, {true, 0, 5, false}, 6), 6);
    EXPECT_EQ(PRFfromORD(s, {true, 3, 5, true}, 4), 7);
    // Hidden, without inclusions: thickness and roughness.
    EXPECT_EQ(PRFfromORD(s, {false, 3, 5, false}, 0), 0);
    EXPECT_EQ(PRFfromORD(s, {false, 3, 5, false}, 1), 6);
    EXPECT_EQ(t.answers.transcriptText(), "");
    EXPECT_EQ(PRFfromORD(s, {false, 0, 5, false}, 2), -1);
    // Hidden, with inclusions: thickness, the inclusions' logical element, roughness.
    EXPECT_EQ(PRFfromORD(s, {false, 0, 5, true}, 1), 5);
    EXPECT_EQ(PRFfromORD(s, {false, 0, 5, true}, 2), 6);
    EXPECT_EQ(PRFfromORD(s, {false, 0, 5, true}, 3), -1);
    EXPECT_EQ(PRFfromORD(s, {false, 0, 5, true}, -1), -1);
    EXPECT_EQ(t.answers.transcriptText(),
              "[VariationMatrix.PRFfromORD] Unexpected Error\n"
              "[VariationMatrix.PRFfromORD] Unexpected Error\n"
              "[VariationMatrix.PRFfromORD] Unexpected Error\n");
    EXPECT_EQ(t.answers.transcript()[0].message.buttons, mb::Exclamation);
}

}  // namespace
}  // namespace halvo
