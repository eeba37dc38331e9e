#include "sample/profile_file.h"

#include <gtest/gtest.h>

#include "test_support.h"

namespace halvo {
namespace {

using test::ScratchDir;
using test::TestSession;

// The parts of a structure that shape its profile.
void SetShape(Session& s, int nle, bool inclusions = false, int roughModel = -1, bool flagsRead = true) {
    s.Structure = StructureRecord{};
    s.Structure.NLE = std::int16_t(nle);
    s.Structure.HasInclusions = inclusions;
    s.Structure.HasRoughness = roughModel >= 0;
    s.Structure.Roughness.ModelA = std::int16_t(roughModel < 0 ? 0 : roughModel);
    s.Structure.Roughness.ModelFlagsRead = roughModel >= 0 && flagsRead;
}

struct ProfileFixture {
    ScratchDir dir;
    TestSession t{dir.path()};
    Session& s = t.session;
    ProfileRecord rec;
    bool read(const std::string& bytes) {
        dir.write("p.prf", bytes);
        return ReadPRF(s, "p", rec, ".prf");
    }
};

TEST(ReadProfile, FractionsAreTakenInSinglePrecision) {
    ProfileFixture f;
    SetShape(f.s, 3);
    ASSERT_TRUE(f.read("2\r\n100 1 2 1\r\n250 1e8 1 .1\r\n"));
    EXPECT_EQ(f.rec.Layers, 2);
    EXPECT_EQ(f.rec.ProfileLE, 3);
    EXPECT_EQ(f.rec.ProfileFile, "p.prf");
    EXPECT_EQ(f.rec.RawValues.columns(), 3);
    EXPECT_EQ(f.rec.Fractions(0, 1), 100.0f);
    EXPECT_EQ(f.rec.Fractions(1, 1), 0.25f);
    EXPECT_EQ(f.rec.Fractions(2, 1), 0.5f);
    // The sum is a float: 1e8 + 1 + .1 is 1e8 there, so the small shares come out as v / 1e8.
    volatile float sum = 1e8f;
    sum = sum + 1.0f;
    sum = sum + 0.1f;
    EXPECT_EQ(sum, 1e8f);
    EXPECT_EQ(f.rec.Fractions(1, 2), 1.0f);
    EXPECT_EQ(f.rec.Fractions(2, 2), 1.0f / sum);
    EXPECT_EQ(f.rec.Fractions(3, 2), 0.1f / sum);
    EXPECT_EQ(f.rec.RawValues(3, 2), 0.1f);
    EXPECT_EQ(f.t.answers.transcriptText(), "");
}

TEST(ReadProfile, ALayerOfZerosHasZeroFractions) {
    ProfileFixture f;
    SetShape(f.s, 2);
    ASSERT_TRUE(f.read("1\r\n0 0 0\r\n"));
    EXPECT_EQ(f.rec.Fractions(1, 1), 0.0f);
    EXPECT_EQ(f.rec.Fractions(2, 1), 0.0f);
}

TEST(ReadProfile, RoughnessFlagColumnMayBeAbsent) {
    ProfileFixture f;
    SetShape(f.s, 2, false, 1);
    ASSERT_TRUE(f.read("2\r\n100 1 3 20\r\n200 1 1 30 1\r\n"));  // NLE + 2 items on the first layer
    EXPECT_TRUE(f.rec.HasRoughColumns);
    EXPECT_FALSE(f.rec.HasRoughFlag);
    EXPECT_EQ(f.rec.RawValues.columns(), 3);
    EXPECT_EQ(f.rec.Fractions(3, 1), 20.0f);  // the roughness is copied, not divided
    EXPECT_EQ(f.rec.Fractions(2, 1), 0.75f);

    ASSERT_TRUE(f.read("1\r\n100 1 3 20 1\r\n"));
    EXPECT_TRUE(f.rec.HasRoughFlag);
    EXPECT_EQ(f.rec.RawValues.columns(), 4);
    EXPECT_EQ(f.rec.RawValues(4, 1), 1.0f);
}

TEST(ReadProfile, RoughnessColumnsNeedModelOneOrFourAndItsFlagsLine) {
    ProfileFixture f;
    SetShape(f.s, 1, false, 0);  // a roughness block without model 1 or 4
    ASSERT_TRUE(f.read("1\r\n100 1 5 1\r\n"));
    EXPECT_FALSE(f.rec.HasRoughColumns);
    EXPECT_EQ(f.rec.RawValues.columns(), 1);

    SetShape(f.s, 1, false, 4, false);  // model 4, but its flags line was never read
    ASSERT_TRUE(f.read("1\r\n100 1 5\r\n"));
    EXPECT_FALSE(f.rec.HasRoughColumns);
    EXPECT_TRUE(f.rec.HasRoughFlag);  // the flag column is taken as present
    EXPECT_EQ(f.rec.RawValues.columns(), 3);
    EXPECT_EQ(f.rec.RawValues(3, 1), 0.0f);
}

TEST(ReadProfile, SeesTheTokensBehindACommentAsNumbers) {
    ProfileFixture f;
    SetShape(f.s, 2, false, 1);
    // Five items with the comment: no short count, so the flag column is taken as present, and the
    // comment supplies the roughness ("|" reads as 0) and the flag.
    ASSERT_TRUE(f.read("1\r\n100 1 0 | 5\r\n"));
    EXPECT_TRUE(f.rec.HasRoughFlag);
    EXPECT_EQ(f.rec.RawValues(3, 1), 0.0f);
    EXPECT_EQ(f.rec.RawValues(4, 1), 5.0f);
    PRFarr raw;
    ASSERT_TRUE(PRFsetraw(f.s, raw, "p.prf"));
    EXPECT_EQ(raw.PRFcolumns, 2);
}

TEST(ReadProfile, ReportsFilesThatCannotBeRead) {
    for (const std::string bytes : {"3\r\n100 1\r\n200 1\r\n", "0\r\n100 1\r\n", "1\r\n", "", "99999\r\n1 1\r\n"}) {
        SCOPED_TRACE(bytes);
        ProfileFixture f;
        SetShape(f.s, 1);
        EXPECT_FALSE(f.read(bytes));
        EXPECT_EQ(f.t.answers.transcriptText(),
                  "[Module1.readPRFrec Warning (code error)] Something wrong with file p.prf\n");
    }
    ProfileFixture f;
    SetShape(f.s, 1);
    EXPECT_FALSE(ReadPRF(f.s, "gone", f.rec, ".prf"));
    EXPECT_EQ(f.t.answers.transcriptText(),
              "[Module1.readPRFrec Warning (code error)] Something wrong with file gone.prf\n");
}

TEST(DefaultProfile, OneLayerOfEachPureLogicalElement) {
    struct Case {
        int nle;
        bool inclusions;
        int rough;
        std::string text;
    };
    const Case cases[] = {
        {3, false, -1, "3\r\n100 1 0 0 \r\n100 0 1 0 \r\n100 0 0 1 \r\n"},
        {3, true, -1, "2\r\n100 1 0 0 \r\n100 0 1 0 \r\n"},
        {2, false, 1, "2\r\n100 1 0 0 0 \r\n100 0 1 0 0 \r\n"},
        {2, false, 0, "2\r\n100 1 0 0 0 \r\n100 0 1 0 0 \r\n"},  // any roughness block adds both columns
        {2, true, 4, "1\r\n100 1 0 0 0 \r\n"},
    };
    for (const auto& c : cases) {
        ScratchDir dir;
        TestSession t(dir.path());
        SetShape(t.session, c.nle, c.inclusions, c.rough);
        ASSERT_TRUE(WriteDefaultPRF(t.session, "d.prf"));
        EXPECT_EQ(dir.read("d.prf"), c.text);
    }
}

struct RecordFixture : ProfileFixture {
    RecordFixture() { SetShape(s, 2); }
};

TEST(ReadProfileRecord, NeedsAStructure) {
    RecordFixture f;
    f.s.Structure.NLE = 0;
    EXPECT_FALSE(readPRFrec(f.s, "", "", false));
    f.s.Structure.NLE = 2;
    f.s.Structure.NotAssigned = true;
    EXPECT_FALSE(readPRFrec(f.s, "", "", false));
    EXPECT_EQ(f.t.answers.transcriptText(),
              "[Module1.readPRFrec] No Structure file!  (Cannot read VKS.PRF!)\n"
              "[Module1.readPRFrec] No Structure file!  (Cannot read VKS.PRF!)\n");
    EXPECT_FALSE(f.dir.exists("vks.prf"));
}

TEST(ReadProfileRecord, AMissingVksPrfIsMadeWithoutAsking) {
    RecordFixture f;
    f.s.Profile.Layers = 9;
    ASSERT_TRUE(readPRFrec(f.s, "", "", false));
    EXPECT_EQ(f.dir.read("vks.prf"), "2\r\n100 1 0 \r\n100 0 1 \r\n");
    EXPECT_EQ(f.s.Profile.ProfileFile, "vks.prf");
    EXPECT_EQ(f.s.Profile.Layers, 2);
    // Then the flags, here by the default rule.
    EXPECT_EQ(f.s.Profile.FitFlags(1, 1), -1);
    EXPECT_EQ(f.s.Profile.FitFlags(2, 1), 0);
    EXPECT_EQ(f.t.answers.transcriptText(), "");
}

TEST(ReadProfileRecord, AsksBeforeMakingAnyOtherProfile) {
    const std::string question =
        "[Module1.ReadPRFrec] PRF file other.prf appears not to exist - do you want me to cancel this operation "
        "('No' will create new PRF file)? (press Cancel to silence this message)\n";
    for (int answer : {mb::Yes, mb::Cancel}) {
        RecordFixture f;
        f.t.answers.push(answer);
        EXPECT_FALSE(readPRFrec(f.s, "other", "prf", false));
        EXPECT_EQ(f.t.answers.transcriptText(), question);
        EXPECT_EQ(f.t.answers.transcript()[0].message.buttons, mb::YesNoCancel);
        EXPECT_FALSE(f.dir.exists("other.prf"));
        EXPECT_EQ(f.s.WarningsFlag, answer != mb::Cancel);
    }
    RecordFixture f;
    f.t.answers.push(mb::No);
    EXPECT_TRUE(readPRFrec(f.s, "other", "prf", false));
    EXPECT_EQ(f.dir.read("other.prf"), "2\r\n100 1 0 \r\n100 0 1 \r\n");
    EXPECT_EQ(f.s.Profile.ProfileFile, "other.prf");
}

TEST(ReadProfileRecord, MakesTheProfileUnaskedWithWarningsOffOrQuiet) {
    RecordFixture off;
    SetWarningsFlag(off.s, false);
    EXPECT_TRUE(readPRFrec(off.s, "other", ".prf", false));
    EXPECT_TRUE(off.dir.exists("other.prf"));
    RecordFixture quiet;
    EXPECT_TRUE(readPRFrec(quiet.s, "other", ".prf", true));
    EXPECT_TRUE(quiet.dir.exists("other.prf"));
    EXPECT_EQ(off.t.answers.transcriptText() + quiet.t.answers.transcriptText(), "");
}

TEST(ReadProfileRecord, ReplacesAFileOfOneLineKeepingTheOldOne) {
    RecordFixture f;
    f.dir.write("VKS.PRF", "5\r\n");
    ASSERT_TRUE(readPRFrec(f.s, "vks", "", false));
    EXPECT_EQ(f.dir.read("VKS.PRF"), "2\r\n100 1 0 \r\n100 0 1 \r\n");
    EXPECT_EQ(f.dir.read("VKS.PRF~"), "5\r\n");
    EXPECT_FALSE(f.dir.exists("vks.prf"));
}

TEST(ReadProfileRecord, KeepsTheLastGoodReadWhenAReadFails) {
    RecordFixture f;
    f.dir.write("good.prf", "1\r\n10 1 1\r\n");
    f.dir.write("bad.prf", "4\r\n10 1 1\r\n");
    ASSERT_TRUE(readPRFrec(f.s, "good", "", false));
    EXPECT_FALSE(readPRFrec(f.s, "bad", "", false));
    EXPECT_EQ(f.s.Profile.ProfileFile, "good.prf");
    EXPECT_EQ(f.s.Profile.Fractions(2, 1), 0.5f);
}

TEST(ReadProfileRecord, ReadsTheFlagsFileOfTheWorkingDirectory) {
    RecordFixture f;
    f.dir.write("p.prf", "1\r\n10 1 0\r\n");
    f.dir.write("vksprf.ord", "1\r\n0  0  1\r\n");
    ASSERT_TRUE(readPRFrec(f.s, "p", "", false));
    EXPECT_EQ(f.s.Profile.FitFlags(0, 1), 0);
    EXPECT_EQ(f.s.Profile.FitFlags(1, 1), 0);
    EXPECT_EQ(f.s.Profile.FitFlags(2, 1), 1);
}

}  // namespace
}  // namespace halvo
