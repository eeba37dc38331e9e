// The syntax pass over a geometry: the mask of each feature, what their AND makes of the record, the
// questions about conflicts with the engine in use, the editor's syntax switch, and the check across
// the geometries of one sample.
#include "geometry/syntax.h"

#include <gtest/gtest.h>

#include <functional>

#include "test_support.h"

namespace halvo {
namespace {

using test::TestSession;
using Edit = std::function<void(GeometryRecord&)>;

std::string Texts(const TestSession& t) {
    std::string out;
    for (const auto& e : t.answers.transcript()) out += e.message.text + "\n";
    return out;
}

// "[title] text|buttons" per box.
std::string Boxes(const TestSession& t) {
    std::string out;
    for (const auto& e : t.answers.transcript())
        out += "[" + e.message.title + "] " + e.message.text + "|" + std::to_string(e.message.buttons) + "\n";
    return out;
}

const std::string kLowVks8 =
    "AdvGeomLowEnergy = 1; Geometry.Syntax = 1 (AdvGeomLowEnergy has value for VKS9 syntax,  not current "
    "VKS8 syntax)\n";
const std::string kLowVks9 =
    "AdvGeomLowEnergy = 3; Geometry.Syntax = 2; (AdvGeomLowEnergy should have value 0,1 for VKS9 syntax)\n";

TEST(SyntaxFeatureMasks, EachFeatureGivesItsGenerations) {
    GeometryRecord plain;
    FeatureMasks(plain);
    for (int f = 0; f < feature::Count; ++f) {
        const bool always =
            f == feature::ChuBohr || f == feature::DoubleScat || f == feature::PileUp || f == feature::WDepth;
        EXPECT_EQ(plain.GeoFeatureMask[size_t(f)], always ? 7 : -1) << f;
    }
    struct Row {
        const char* what;
        int feature;
        std::int16_t mask;
        Edit set;
    };
    const Row rows[] = {
        {"AUTOL OFF", feature::AutoL, 4, [](auto& g) { g.Elements[0].AutoLState = 2; }},
        {"AUTOL", feature::AutoL, -1, [](auto& g) { g.Elements[0].AutoLState = 1; }},
        {"beam foil", feature::BeamFoil, 6, [](auto& g) { g.BeamFoil.Composition.MolName = "Mylar"; }},
        {"DS FAST", feature::DoubleScat, 4,
         [](auto& g) { g.DoubleScatter.Enabled = -1, g.DoubleScatter.Mode = "FAST"; }},
        {"DS FAST off", feature::DoubleScat, 7, [](auto& g) { g.DoubleScatter.Mode = "FAST"; }},
        {"DS FULL", feature::DoubleScat, 7,
         [](auto& g) { g.DoubleScatter.Enabled = -1, g.DoubleScatter.Mode = "FULL"; }},
        {"efficiency", feature::PixeDetEfficiency, 4, [](auto& g) { g.EffiSet = -1; }},
        {"XAs", feature::FsxAs, 4, [](auto& g) { g.XAs = -1; }},
        {"SAs", feature::FsxAs, 4, [](auto& g) { g.SAs = -1; }},
        {"gauss", feature::StragCommand, 4, [](auto& g) { g.Elements[0].StragType = 1; }},
        {"general", feature::GeneralGeom, 4, [](auto& g) { g.GeomType = "General"; }},
        {"IBM", feature::GeneralGeom, -1, [](auto& g) { g.GeomType = "IBM"; }},
        {"LOW_E", feature::LowE, 4, [](auto& g) { g.AdvGeomLowEnergy = 1; }},
        {"LOW_E OFF", feature::LowE, 2, [](auto& g) { g.AdvGeomLowEnergy = 2; }},
        {"LOW_E ALL", feature::LowE, 2, [](auto& g) { g.AdvGeomLowEnergy = 3; }},
        {"PIXE", feature::PixeOrPige, 4, [](auto& g) { g.IsPixe = -1; }},
        {"PIGE", feature::PixeOrPige, 4, [](auto& g) { g.IsPige = -1; }},
        {"PILE", feature::PileUp, 3, [](auto& g) { g.AdvGeomPileup.syntax = -2; }},
        {"pile-up VKS7", feature::PileUp, 1, [](auto& g) { g.AdvGeomPileup.syntax = 0; }},
        {"PUP", feature::PileUp, 2, [](auto& g) { g.AdvGeomPileup.syntax = 1; }},
        {"pile-up VKS9", feature::PileUp, 4, [](auto& g) { g.AdvGeomPileup.syntax = 2; }},
        {"NORES", feature::Resonance, 6, [](auto& g) { g.AdvGeomResonance = 1; }},
        {"SRIM 2003", feature::Srim03, 4, [](auto& g) { g.Elements[0].StopKey = "SR03"; }},
        {"energy variation", feature::GeoFileVariation, 4, [](auto& g) { g.EnergyVar = 10; }},
        {"WDEPTH", feature::WDepth, 4, [](auto& g) { g.MDepthParams.MDEPTH = 1; }},
        {"MDEPTH", feature::WDepth, 7, [](auto& g) { g.MDepthParams.MDEPTH = 2; }},
        {"XML data", feature::Xml, 6, [](auto& g) { g.XmlMode = 1; }},
        {"XML fit", feature::Xml, -1, [](auto& g) { g.XmlMode = 2; }},
        {"dead layer", feature::DeadLayer, 6, [](auto& g) { g.DeadLayer.Composition.MolName = "Si"; }},
        {"NIL", feature::Nil, 6, [](auto& g) { g.Elements[0].Nil = -1; }},
    };
    for (const Row& r : rows) {
        GeometryRecord g;
        r.set(g);
        FeatureMasks(g);
        EXPECT_EQ(g.GeoFeatureMask[size_t(r.feature)], r.mask) << r.what;
    }
}

TEST(SyntaxDetermine, TheAndOfTheMasksDecides) {
    struct Row {
        const char* what;
        Edit set;
        std::int16_t and_, syntax, verSyn, inconsistent;
        const char *label, *title;
    };
    const std::string t = "Geometry - Further Parameters; Syntax=";
    const Row rows[] = {
        {"empty", [](auto&) {}, 7, -1, -1, 0, "VKS syntax: any", "Undetermined"},
        {"PILE", [](auto& g) { g.AdvGeomPileup.syntax = -2; }, 3, -2, -1, 0, "VKS syntax pre-VKS9",
         "pre-VKS9"},
        {"VKS7 pile-up", [](auto& g) { g.AdvGeomPileup.syntax = 0; }, 1, 0, 7, 0, "VKS syntax VKS7", "VKS7"},
        {"LOW_E OFF", [](auto& g) { g.AdvGeomLowEnergy = 2; }, 2, 1, 8, 0, "VKS syntax VKS8", "VKS8"},
        {"PIXE", [](auto& g) { g.IsPixe = -1; }, 4, 2, 9, 0, "VKS syntax VKS9", "VKS9"},
        {"XML", [](auto& g) { g.XmlMode = 1; }, 6, -3, -1, 0, "VKS syntax post-VKS7", "Undetermined"},
        {"XML and PUP", [](auto& g) { g.XmlMode = 1, g.AdvGeomPileup.syntax = 1; }, 2, 1, 8, 0,
         "VKS syntax VKS8", "VKS8"},
        {"PILE model and LOW_E ALL", [](auto& g) { g.AdvGeomPileup.syntax = 2, g.AdvGeomLowEnergy = 3; }, 0,
         -1, -1, -1, "VKS syntax inconsistent", "Inconsistent"},
    };
    for (const Row& r : rows) {
        TestSession ts;
        Session& s = ts.session;
        r.set(s.Geometry);
        GeometryRecord copy = s.Geometry;
        EXPECT_EQ(FeatureMasks(copy), r.and_) << r.what;
        s.Geometry.Syntax = 5;
        s.Geometry.SyntaxInconsistent = std::int16_t(-1 - r.inconsistent);  // the opposite
        s.VKSverSyn = 42;
        DetermineSyntax(s, "demo");  // VKSversion 0 reads everything: no question
        EXPECT_EQ(s.Geometry.Syntax, r.syntax) << r.what;
        EXPECT_EQ(s.Geometry.SyntaxInconsistent, r.inconsistent) << r.what;
        EXPECT_EQ(s.VKSverSyn, r.verSyn) << r.what;
        EXPECT_EQ(s.GeoEditor.SyntaxLabel, r.label) << r.what;
        EXPECT_EQ(s.GeoEditor.FurtherTitle, t + r.title) << r.what;
        EXPECT_EQ(Texts(ts), "") << r.what;
    }
}

TEST(SyntaxTestFeature, ConflictsWithTheEngineInUse) {
    struct Row {
        std::int16_t mask, version;
        bool conflict;
    };
    const Row rows[] = {
        {7, 7, false}, {7, 8, false}, {7, 9, false}, {-1, 9, false}, {7, 0, false},
        {0, 9, true},  {0, 0, true},  {8, 9, true},  {4, 9, false},  {4, 8, true},
        {4, 7, true},  {6, 7, true},  {6, 8, false}, {3, 9, true},   {3, 7, false},
        {1, 8, true},  {2, 8, false}, {4, 0, false}, {1, 6, false},  {4, 10, false},
    };
    for (const Row& r : rows) {
        TestSession ts;
        ts.session.VKSversion = r.version;
        ts.session.SyntaxErrorBits = 0x0102;
        std::string text = "x";
        EXPECT_EQ(TestFeature(ts.session, r.mask, text, "XML", 0x0002), r.conflict)
            << r.mask << " " << r.version;
        EXPECT_EQ(text, r.conflict ? "xXML" : "x") << r.mask << " " << r.version;
        EXPECT_EQ(ts.session.SyntaxErrorBits, r.conflict ? 0x0102 : 0x0100) << r.mask << " " << r.version;
    }
}

TEST(SyntaxConflicts, NamesEveryConflictInBitOrder) {
    struct Row {
        std::int16_t version;
        const char* text;
        std::uint16_t bits;
    };
    const Row rows[] = {
        {7, "AutoLfsx_asLow_ESRIM03XML", 0x1 | 0x20 | 0x100 | 0x1000 | 0x8000},
        {8, "AutoLfsx_asSRIM03", 0x1 | 0x20 | 0x1000},
        {9, "Low_E", 0x100},
    };
    for (const Row& r : rows) {
        TestSession ts;
        Session& s = ts.session;
        GeometryRecord& g = s.Geometry;
        g.XmlMode = 1;
        g.Elements[0].StopKey = "SR03";
        g.AdvGeomLowEnergy = 2;
        g.SAs = -1;
        g.Elements[0].AutoLState = 2;
        FeatureMasks(g);
        s.VKSversion = r.version;
        s.SyntaxErrorBits = 0xFFFF;
        std::string text = "stale";
        EXPECT_TRUE(SyntaxConflicts(s, text));
        EXPECT_EQ(text, r.text);
        EXPECT_EQ(s.SyntaxErrorBits, r.bits) << r.version;
    }
}

TEST(SyntaxDetermine, AsksAboutConflictsAndShowsTheHelpOnNo) {
    const std::string ask = "[Syntax error for Geometry file: demo] ",
                      tail = " . Do you want to AVOID further details?|3\n";
    const std::string help = "[Geometry file syntax error help] ",
                      rest = ". Do you want to see the rest of the errors? |4\n",
                      last = ". Do you want to see the last error? |4\n",
                      end = ". This is the last error.|1\n";
    const std::string autoL = help + "AutoLayer option for EBS sharp resonances: v9 has OFF parameter",
                      srim = help + "SRIM 2003 stopping powers only available for v9",
                      xml = help + "XML only available for v9", three = ask + "AutoLSRIM03XML" + tail;
    using namespace mb;
    struct Row {
        const char* what;
        std::int16_t version;
        bool xmlOnly, warnings;
        std::vector<int> answers;
        std::string boxes;
        bool warningsAfter;
    };
    const Row rows[] = {
        {"avoid", 7, false, true, {Yes}, three, true},
        {"all help", 7, false, true, {No, Yes, Yes}, three + autoL + rest + srim + last + xml + end, true},
        {"help stopped", 7, false, true, {No, No}, three + autoL + rest, true},
        {"cancel", 7, false, true, {Cancel}, three, false},
        {"warnings off", 7, false, false, {}, "", false},
        {"two", 8, false, true, {No, Yes}, ask + "AutoLSRIM03" + tail + autoL + last + srim + end, true},
        {"one", 7, true, true, {No}, ask + "XML" + tail + xml + end, true},
        {"none", 9, false, true, {}, "", true},
    };
    for (const Row& r : rows) {
        TestSession ts;
        for (int a : r.answers) ts.answers.push(a);
        Session& s = ts.session;
        SetWarningsFlag(s, r.warnings);
        s.VKSversion = r.version;
        if (!r.xmlOnly) s.Geometry.Elements[0].AutoLState = 2, s.Geometry.Elements[0].StopKey = "SR03";
        s.Geometry.XmlMode = 1;
        DetermineSyntax(s, "demo");
        EXPECT_EQ(Boxes(ts), r.boxes) << r.what;
        EXPECT_EQ(s.WarningsFlag, r.warningsAfter) << r.what;
        EXPECT_EQ(s.Geometry.Syntax, r.xmlOnly ? -3 : 2) << r.what;  // whatever the answers
    }
}

TEST(SyntaxSample, LaterGeometriesAgainstTheFirst) {
    constexpr std::int16_t kNoFile = 100;  // an experiment without a geometry, its syntax 2
    struct Row {
        std::vector<std::int16_t> syntaxes;
        bool consistent;
        std::int16_t sampleSyntax;
    };
    const Row rows[] = {
        {{}, true, -1},         {{2}, true, 2},         {{-2}, true, -2},      {{0, 2}, false, 0},
        {{-2, 0}, true, -2},    {{-2, 1}, true, -2},    {{-2, 2}, false, 0},   {{2, -2}, false, 0},
        {{-1, 0, 2}, false, 0}, {{-1, 0, 0}, true, -1}, {{-3, 2}, true, -3},   {{-3, 1}, true, -3},
        {{-3, 0}, false, 0},    {{2, -3}, false, 0},    {{1, -1, 1}, true, 1}, {{0, kNoFile, 0}, true, 0},
        {{-2, 0, 1}, true, -2}, {{2, 2, 1}, false, 0},
    };
    const std::string box =
        "[Module1.ShowSample] Inconsistent geometry file syntax for geometries in this sample: "
        "press Cancel to silence this message|1\n";
    for (const Row& r : rows) {
        TestSession ts;
        Session& s = ts.session;
        for (std::int16_t v : r.syntaxes) {
            s.Experiments.emplace_back();
            s.Experiments.back().GeometryFile = v == kNoFile ? "" : "g";
            s.Experiments.back().Syntax = v == kNoFile ? 2 : v;
        }
        Sample sample;
        sample.Syntax = 5;
        sample.SyntaxInconsistent = r.consistent;
        const std::string what = ::testing::PrintToString(r.syntaxes);
        EXPECT_EQ(CheckSampleSyntax(s, sample), r.consistent) << what;
        EXPECT_EQ(sample.SyntaxInconsistent, !r.consistent) << what;
        EXPECT_EQ(sample.Syntax, r.sampleSyntax) << what;
        EXPECT_EQ(Boxes(ts), r.consistent ? "" : box) << what;
    }
}

TEST(SyntaxSample, CancelSilencesTheBoxAndTheLabelNamesTheSyntax) {
    TestSession ts;
    Session& s = ts.session;
    ts.answers.push(mb::Cancel);
    s.Experiments.resize(2);
    s.Experiments[0].GeometryFile = s.Experiments[1].GeometryFile = "g";
    s.Experiments[0].Syntax = 0;
    s.Experiments[1].Syntax = 1;
    Sample sample;
    EXPECT_FALSE(CheckSampleSyntax(s, sample));
    EXPECT_FALSE(s.WarningsFlag);
    EXPECT_FALSE(CheckSampleSyntax(s, sample));
    EXPECT_TRUE(sample.SyntaxInconsistent);
    EXPECT_EQ(ts.answers.transcript().size(), 1u);

    sample.Syntax = -1;
    EXPECT_EQ(SampleSyntaxLabel(sample), ". The syntax of this sample is not set");
    sample.Syntax = 2;
    EXPECT_EQ(SampleSyntaxLabel(sample), ". This sample has syntax=2");
    sample.Syntax = -3;
    EXPECT_EQ(SampleSyntaxLabel(sample), ". This sample has syntax=-3");
}

TEST(SyntaxCorrect, SwitchesTheGeometryToOneGeneration) {
    struct Row {
        int value;
        std::int16_t resonance, row0AllRes, lowEnergy;
        std::int16_t syntax, resonanceAfter;
        const char *title, *caption;
        std::vector<std::string> allRes;
        std::string boxes;
    };
    const std::string t = "Geometry - Further Parameters; Syntax=";
    const std::vector<std::string> stale = {"stale"};
    const std::string bad = "Code Error:  Syntax not in {-1, 0, 1, 2}.  SyntaxValue = ";
    const Row rows[] = {
        {3, 3, 0, 1, -3, 3, "old", "old", stale, bad + "3\n"},
        {-2, 3, 0, 1, -3, 3, "old", "old", stale, bad + "-2\n"},
        {-1, 3, 0, 1, -3, 3, "old", "old", stale, ""},
        {0, 3, 0, 3, 0, 3, "VKS7", "Pile-up:  VKS7 and below", stale, ""},
        {1, 3, 0, 2, 1, 2, "VKS8", "Pile-up:  VKS8a,b", stale, ""},
        {1, 2, 0, 0, 1, 2, "VKS8", "Pile-up:  VKS8a,b", stale, ""},
        {1, 3, 0, 1, 1, 2, "VKS8", "Pile-up:  VKS8a,b", stale, kLowVks8},
        {2, 2, 0, 1, 2, 3, "VKS9", "Pile-up:  VKS9", {"C", "Si"}, ""},
        {2, 2, -1, 0, 2, 2, "VKS9", "Pile-up:  VKS9", stale, ""},
        {2, 3, 0, 3, 2, 3, "VKS9", "Pile-up:  VKS9", stale, kLowVks9},
    };
    for (const Row& r : rows) {
        TestSession ts;
        Session& s = ts.session;
        GeometryRecord& g = s.Geometry;
        g.Syntax = -3;
        g.AdvGeomPileup.syntax = -2;
        g.AdvGeomResonance = r.resonance;
        g.AdvGeomLowEnergy = r.lowEnergy;
        g.Elements.resize(4);
        g.Elements[0].AllRes = r.row0AllRes;
        const char* names[] = {"", "C", "O", "Si"};
        for (int i = 1; i < 4; ++i) {
            g.Elements[size_t(i)].ElementName = names[i];
            g.Elements[size_t(i)].AllRes = i == 2 ? 0 : -1;
        }
        s.GeoEditor.FurtherTitle = s.GeoEditor.PileupCaption = "old";
        s.GeoEditor.AllResList = stale;
        CorrectGeometrySyntax(s, r.value);
        const bool changed = r.value >= 0 && r.value <= 2;
        EXPECT_EQ(g.Syntax, r.syntax) << r.value;
        EXPECT_EQ(g.AdvGeomPileup.syntax, changed ? r.syntax : -2) << r.value;
        EXPECT_EQ(g.AdvGeomResonance, r.resonanceAfter) << r.value;
        EXPECT_EQ(s.GeoEditor.FurtherTitle, changed ? t + r.title : "old") << r.value;
        EXPECT_EQ(s.GeoEditor.PileupCaption, r.caption) << r.value;
        EXPECT_EQ(s.GeoEditor.AllResList, r.allRes) << r.value;
        EXPECT_EQ(Texts(ts), r.boxes) << r.value;
    }
}

TEST(SyntaxLowEnergy, BelongsToTheSyntax) {
    const std::string illegal = "CODE ERROR: Geometry file Syntax illegal!\n";
    struct Row {
        std::int16_t syntax, low;
        bool ok;
        std::string box;
    };
    const Row rows[] = {
        {0, 3, true, ""},        {0, 1, true, ""},        {1, 0, true, ""},        {1, 2, true, ""},
        {1, 3, true, ""},        {1, 1, false, kLowVks8}, {2, 0, true, ""},        {2, 1, true, ""},
        {2, 3, false, kLowVks9}, {-1, 0, false, illegal}, {-3, 1, false, illegal}, {3, 0, false, illegal},
    };
    for (const Row& r : rows) {
        TestSession ts;
        ts.session.Geometry.Syntax = r.syntax;
        ts.session.Geometry.AdvGeomLowEnergy = r.low;
        EXPECT_EQ(LowEnergyCheck(ts.session), r.ok) << r.syntax << " " << r.low;
        EXPECT_EQ(Texts(ts), r.box) << r.syntax << " " << r.low;
    }
}

TEST(SyntaxLabel, FollowsTheGeometrySyntax) {
    struct Row {
        std::int16_t syntax, inconsistent;
        const char* label;
        std::int16_t verSyn;
    };
    const Row rows[] = {{0, 0, "VKS syntax VKS7", 7},
                        {1, 0, "VKS syntax VKS8", 8},
                        {2, 0, "VKS syntax VKS9", 9},
                        {-1, 0, "VKS syntax: any", -1},
                        {-1, -1, "VKS syntax inconsistent", -1},
                        {-2, 0, "VKS syntax pre-VKS9", -1},
                        {-3, 0, "VKS syntax post-VKS7", -1},
                        {3, 0, "VKS syntax: unknown", 42},
                        {-4, 0, "VKS syntax: unknown", 42}};
    for (const Row& r : rows) {
        TestSession ts;
        ts.session.Geometry.Syntax = r.syntax;
        ts.session.Geometry.SyntaxInconsistent = r.inconsistent;
        ts.session.VKSverSyn = 42;
        CheckGeomSyntaxLbl(ts.session);
        EXPECT_EQ(ts.session.GeoEditor.SyntaxLabel, r.label) << r.syntax;
        EXPECT_EQ(ts.session.VKSverSyn, r.verSyn) << r.syntax;
    }
}

}  // namespace
}  // namespace halvo
