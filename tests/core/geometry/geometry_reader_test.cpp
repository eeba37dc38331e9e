// The parts of the geometry reader that the case files do not reach well: the line source, the exit
// angle, the check before a run, the reset between reads, and the main window's use of the reader.
#include <gtest/gtest.h>

#include <cmath>

#include "../sample/chemistry_fixture.h"
#include "geometry/geometry_file.h"
#include "session/batch_file.h"
#include "session/main_view.h"
#include "text/lines.h"

namespace halvo {
namespace {

using test::ChemSession;
using test::ScratchDir;

constexpr const char* kRbs = "19\r\n60 600\r\n4He 4He\r\n2000\r\n15\r\nIBM\r\n0 165\r\n3.6\r\n1.95 45\r\n";

TEST(GeoLineSource, TakesEveryLineEndAndCountsPhysicalLines) {
    GeoLineSource src("a\nb\r\n  \\ note\rc");
    ASSERT_EQ(src.LineCount(), 4);
    std::vector<std::string> store(5);
    int lineNo = 1;
    std::string line;
    ASSERT_TRUE(src.ReadGeoLine(lineNo, line, store));
    EXPECT_EQ(line, "a");
    EXPECT_EQ(lineNo, 2);
    ASSERT_TRUE(src.ReadGeoLine(lineNo, line, store));
    EXPECT_EQ(line, "b");
    ASSERT_TRUE(src.ReadGeoLine(lineNo, line, store));
    EXPECT_EQ(line, "c");
    EXPECT_EQ(lineNo, 5);
    EXPECT_EQ(store[3], "\\ note");
    EXPECT_FALSE(src.ReadGeoLine(lineNo, line, store));
    EXPECT_EQ(lineNo, 5);
}

TEST(GeoLineSource, BlankLineRunsToTheEndKeepingEverything) {
    GeoLineSource src("a\r\n\r\nb\r\n\r\nc\r\n");
    std::vector<std::string> store(src.LineCount() + 1, "stale");
    int lineNo = 1;
    std::string line;
    ASSERT_TRUE(src.ReadGeoLine(lineNo, line, store));
    EXPECT_EQ(store[1], "");  // a data line clears its slot
    EXPECT_FALSE(src.ReadGeoLine(lineNo, line, store));
    EXPECT_EQ(line, "a");
    EXPECT_EQ(lineNo, 6);
    EXPECT_EQ(store, (std::vector<std::string>{"stale", "", "  ", "b", "  ", "c"}));
}

TEST(ExitAngle, FollowsTheGeometryType) {
    EXPECT_EQ(ExitAngle("IBM", 170, 0, 99), 10.0f);
    EXPECT_EQ(ExitAngle("ibm", 170, 5, 99), 15.0f);
    EXPECT_EQ(ExitAngle("CORNELL", 170, 5, 99), float(std::sqrt(125.0)));
    EXPECT_EQ(ExitAngle("Cornell", 180, 0, 99), 0.0f);
    EXPECT_EQ(ExitAngle("GENERAL", 170, 5, 42), 42.0f);
    EXPECT_EQ(ExitAngle("", 170, 5, 42), 0.0f);
}

TEST(IsGeomValid, ReportsEachIllegalValueInOrder) {
    ChemSession t;
    ScratchDir dir;
    t.session.FilePath = dir.path();
    GeometryRecord g;
    g.Name = "gone";
    g.FileFormat = 40;
    EXPECT_FALSE(IsGeomValid(t.session, g, true, true));
    const char* title = "[IsGeomValid function: illegal value (press Cancel to turn off these warnings)] ";
    EXPECT_EQ(t.boxes(), std::string(title) + "gone.geo does not exist!\n" + title +
                             "Energy of geometry file gone is 0\n" + title + "FileFormat of geometry file gone is 40\n" +
                             title + "FWHM of geometry file gone is 0\n" + title + "Gain of geometry file gone is 0\n" +
                             title + "'Geometry' of geometry file gone is \n" + title +
                             "The scattered (detected) nucleus in the geometry file gone is not set.\n" + title +
                             "The ion in the geometry file gone is  not set.\n");
}

TEST(IsGeomValid, CancelTurnsTheLaterBoxesOffAndTheFileFlagOnlyGuardsTheFirst) {
    ChemSession t;
    ScratchDir dir;
    t.session.FilePath = dir.path();
    GeometryRecord g;
    t.answers.push(mb::OK);
    t.answers.push(mb::Cancel);
    EXPECT_FALSE(IsGeomValid(t.session, g, true, false));
    ASSERT_EQ(t.answers.transcript().size(), 2u);
    EXPECT_EQ(t.answers.transcript()[0].message.text, "Energy of geometry file  is 0");
    EXPECT_EQ(t.answers.transcript()[0].message.buttons, mb::OKCancel);

    t.answers.clear();
    EXPECT_FALSE(IsGeomValid(t.session, g, false, true));
    EXPECT_EQ(t.boxes(),
              "[IsGeomValid function: illegal value (press Cancel to turn off these warnings)] (filename not set!).geo does "
              "not exist!\n");
}

TEST(IsGeomValid, PassesAReadGeometry) {
    ChemSession t;
    ScratchDir dir;
    t.session.FilePath = dir.path();
    dir.write("ok.geo", kRbs);
    ResetGeometry(t.session);
    ASSERT_TRUE(ReadGeometry(t.session, "ok"));
    EXPECT_TRUE(IsGeomValid(t.session, t.session.Geometry, true, true));
    EXPECT_EQ(t.boxes(), "");
}

// A file using every kind of setting, then a reset: the defaults come back, the values that the
// fixed lines always set are left, and the rows follow the structure loaded now.
TEST(ResetGeometry, RestoresTheDefaultsAndSizesRowsByTheCurrentStructure) {
    ChemSession t;
    ScratchDir dir;
    Session& s = t.session;
    s.FilePath = dir.path();
    dir.write("full.geo", std::string(kRbs) +
                              "chu 1.5 2\r\nstrag gamma\r\nds fast\r\nxml fit\r\nflagvar_quad on\r\nactive 10\r\n"
                              "pile mg 2e-6 1e-6 3 500 39 1\r\nlld 40\r\nlow_e\r\nf_as 2\r\nnil\r\nzbl00\r\n"
                              "dead 100\r\nAu\r\nndpback 1 2\r\nwdepth p.par\r\n");
    s.ElementList.RealElementNames = {"", "Si", "O"};
    s.ElementList.RealElementCount = 2;
    ResetGeometry(s);
    ASSERT_EQ(s.Geometry.Elements.size(), 3u);
    EXPECT_EQ(s.Geometry.Elements[2].ElementName, "O");
    ReadGeometry(s, "full");
    GeometryRecord& g = s.Geometry;
    ASSERT_EQ(g.StragglingModel, "chu");
    ASSERT_EQ(g.AdvGeomPileup.Model, 5);
    ASSERT_EQ(g.DeadLayer.Composition.MolText, "Au");
    g.Elements[1].MsSet = -1;

    s.ElementList.RealElementNames = {"", "Ti"};
    s.ElementList.RealElementCount = 1;
    ResetGeometry(s);
    const GeometryRecord fresh;
    EXPECT_EQ(g.StragglingModel, "");
    EXPECT_EQ(g.StragglingFactor, 1.0f);
    EXPECT_EQ(g.StragglingFactor2, 0.0f);
    EXPECT_EQ(g.StragSet, -1);
    EXPECT_EQ(g.XmlMode, 0);
    EXPECT_EQ(g.FlagVarQuad, -1);
    EXPECT_EQ(g.FlagVarAny2, 0);
    EXPECT_EQ(g.ActiveSet, 0);
    EXPECT_EQ(g.SAs, 0);
    EXPECT_EQ(g.SAsFactor, 1.0f);
    EXPECT_EQ(g.DoubleScatter.Enabled, 0);
    EXPECT_EQ(g.DoubleScatter.Mode, "");
    EXPECT_EQ(g.DeadLayer.Composition.MolText, "");
    EXPECT_EQ(g.NdpBackSet, 0);
    EXPECT_EQ(g.MDepthParams.MDEPTH, 0);
    EXPECT_EQ(g.AdvGeomLowEnergy, 0);
    EXPECT_EQ(g.AdvGeomPileup.Model, -1);
    EXPECT_EQ(g.AdvGeomPileup.MgFilter, 2);
    EXPECT_EQ(g.AdvGeomPileup.MgR, 1000.0f);
    EXPECT_EQ(g.GeoFeatureMask, fresh.GeoFeatureMask);
    // No default: kept.
    EXPECT_EQ(g.AdvGeomPileup.LLD, 40);
    EXPECT_EQ(g.AdvGeomPileup.MgBimodal, -1);
    EXPECT_EQ(g.AdvGeomPileup.MgThresholdSet, -1);
    EXPECT_EQ(g.Energy, 2000.0f);
    EXPECT_EQ(g.Ion, "4He");
    EXPECT_EQ(g.FileFormat, 19);
    EXPECT_EQ(g.Gain, 1.95f);
    EXPECT_EQ(g.GeomType, "IBM");
    // Rows: one real element now, every row fresh, row 0's stop factors 0.
    ASSERT_EQ(g.Elements.size(), 2u);
    EXPECT_EQ(g.Elements[1].ElementName, "Ti");
    EXPECT_EQ(g.Elements[1].MsSet, 0);
    EXPECT_EQ(g.Elements[0].StopKey, "");
    EXPECT_EQ(g.Elements[0].Nil, 0);
    EXPECT_EQ(g.Elements[0].IonStopFactor, 0.0f);
    EXPECT_EQ(g.Elements[1].IonStopFactor, 1.0f);
    EXPECT_EQ(g.Indirected, 0);
}

TEST(ResetIndirection, MarksADerivedFileAndClearsTheCorrectionsOfTheRealRows) {
    ChemSession t;
    Session& s = t.session;
    s.ElementList.RealElementNames = {"", "Si"};
    s.ElementList.RealElementCount = 1;
    ResetGeometry(s);
    GeometryRecord& g = s.Geometry;
    g.IndirectedName = "old";
    g.RoiChanged = g.CalibChanged = -1;
    g.Elements[1].ThinFilm = g.Elements[1].DetStopSet = -1;
    g.Elements[1].DetStopFactor = 3;
    ResetIndirection(s, 0, "");
    EXPECT_EQ(g.Indirected, -1);
    EXPECT_EQ(g.IndirectedName, "old");
    EXPECT_EQ(g.RoiChanged, 0);
    EXPECT_EQ(g.CalibChanged, 0);
    EXPECT_EQ(g.Elements[1].ThinFilm, 0);
    EXPECT_EQ(g.Elements[1].DetStopSet, 0);
    EXPECT_EQ(g.Elements[1].DetStopFactor, 1.0f);
    EXPECT_EQ(g.Elements[0].DetStopFactor, 0.0f);
    ResetIndirection(s, -1, "base");
    EXPECT_EQ(g.Indirected, 0);
    EXPECT_EQ(g.IndirectedName, "base");
}

TEST(ReadGeometry, EveryReadSetsTheSessionsSyntaxAndTheStoreIsSizedPerFile) {
    ChemSession t;
    ScratchDir dir;
    Session& s = t.session;
    s.FilePath = dir.path();
    dir.write("nine.geo", std::string(kRbs) + "pile ga 1e-6 1e-6\r\n\\ a\r\n\\ b\r\n");
    dir.write("old.geo", std::string(kRbs) + "pup 1e-6\r\n");
    ResetGeometry(s);
    ReadGeometry(s, "nine");
    EXPECT_EQ(s.Geometry.Syntax, 2);
    EXPECT_EQ(s.VKSverSyn, 9);
    EXPECT_EQ(s.Geometry.Comments.size(), 13u);
    ResetGeometry(s);
    ReadGeometry(s, "old");
    EXPECT_EQ(s.Geometry.Syntax, 1);
    EXPECT_EQ(s.VKSverSyn, 8);
    EXPECT_EQ(s.Geometry.Comments.size(), 11u);
    EXPECT_EQ(s.Geometry.Comments[11 - 1], "");
    EXPECT_EQ(t.boxes(), "");
}

TEST(ReadGeometry, FindsTheFileWhateverItsCase) {
    ChemSession t;
    ScratchDir dir;
    t.session.FilePath = dir.path();
    dir.write("RBS165.GEO", kRbs);
    ResetGeometry(t.session);
    EXPECT_TRUE(ReadGeometry(t.session, "rbs165"));
    EXPECT_EQ(t.session.Geometry.Name, "rbs165");
    EXPECT_EQ(t.boxes(), "");
}

// The main window reads each association's geometry and takes its format, kind and syntax.
TEST(ShowSample, TakesFormatKindAndSyntaxFromEachGeometry) {
    ChemSession t;
    ScratchDir dir;
    Session& s = t.session;
    s.FilePath = dir.path();
    dir.write("rbs.geo", std::string(kRbs) + "pile ga 1e-6 1e-6\r\n");
    dir.write("pixe.geo", "28\r\n100 700\r\n4He X\r\n2000\r\n0.16\r\nIBM\r\n0 135\r\n25\r\nSiLi.cal 5\r\n");
    dir.write("cross.geo", std::string(kRbs) + "cross Si\r\n");
    dir.write("run.spc", "a.dat 1 rbs s1\r\nb.dat 2 cross\r\nd.dat 4 pixe\r\n");
    for (const char* data : {"a.dat", "b.dat", "d.dat"}) dir.write(data, "0 1\r\n");
    SetWarningsFlag(s, false);  // the structure s1 is not there; only the boxes shown regardless count
    ReadBatch(s, dir.file("run.spc"));
    const Sample& sample = s.Samples[1];
    ASSERT_EQ(sample.NSpectra, 3);
    EXPECT_EQ(sample.Spectra[0].FileFormat, 19);
    EXPECT_EQ(sample.Spectra[0].Syntax, 2);
    EXPECT_FALSE(sample.Spectra[0].IsPixe);
    EXPECT_EQ(sample.Spectra[1].Syntax, -1);
    EXPECT_EQ(sample.Spectra[2].FileFormat, 28);
    EXPECT_TRUE(sample.Spectra[2].IsPixe);
    EXPECT_FALSE(sample.Spectra[2].IsPige);
    EXPECT_TRUE(sample.HasPixe);
    ASSERT_EQ(s.Experiments.size(), 3u);
    EXPECT_TRUE(s.Experiments[2].IsPixe);
    EXPECT_EQ(s.Experiments[0].Syntax, 2);
    EXPECT_EQ(t.boxes(),
              "[ShowSample, Sample# = 1, experiment# = 2] The GEO file directive CROSS (to find EBS cross-sections by "
              "MCMC) must be used ONLY in the first GEO file of the sample.\n");
}

}  // namespace
}  // namespace halvo
