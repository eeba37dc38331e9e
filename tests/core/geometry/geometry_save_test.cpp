// The parts of the geometry save that the case files do not reach: the editor's state around a save,
// the main window's geometry list, a save that cannot write, and the short-name rule by itself.
#include <gtest/gtest.h>

#include "../sample/chemistry_fixture.h"
#include "geometry/geometry_file.h"
#include "geometry/geometry_writer.h"

namespace halvo {
namespace {

using test::ChemSession;
using test::ScratchDir;

constexpr const char* kRbs = "19\r\n60 600\r\n4He 4He\r\n2000\r\n15\r\nIBM\r\n0 165\r\n3.6\r\n1.95 45\r\nchu 1.2\r\n";

struct Loaded {
    ScratchDir dir;
    ChemSession t;
    Session& s = t.session;
    Loaded() {
        s.FilePath = dir.path();
        dir.write("rbs.geo", kRbs);
        ResetGeometry(s);
        EXPECT_TRUE(ReadGeometry(s, "rbs"));
        s.GeoEditor.Unsaved = true;
    }
};

TEST(GeometrySave, SetsTheEditorsNameTitleAndMark) {
    Loaded l;
    ASSERT_EQ(Check2_Click(l.s, "Copy.GEO"), GeometrySave::Written);
    EXPECT_EQ(l.s.GeoEditor.CurrentGeometry, "Copy");
    EXPECT_EQ(l.s.GeoEditor.Caption, "Geometry Copy.geo");
    EXPECT_FALSE(l.s.GeoEditor.Unsaved);
    EXPECT_TRUE(l.dir.exists("Copy.geo"));
    EXPECT_EQ(l.t.boxes(), "");
}

TEST(GeometrySave, ANewNameJoinsTheSamplesGeometriesOnlyFromASample) {
    Loaded l;
    l.s.lists.List2.items = {"rbs"};
    ASSERT_EQ(Check2_Click(l.s, "other.geo"), GeometrySave::Written);
    EXPECT_EQ(l.s.lists.List2.items, (std::vector<std::string>{"rbs"}));

    l.s.GeoEditor.OpenedWithSample = true;
    l.s.GeoEditor.OverwriteAsk = false;
    ASSERT_EQ(Check2_Click(l.s, "RBS.geo"), GeometrySave::Written);  // listed already, in another case
    ASSERT_EQ(Check2_Click(l.s, "other.geo"), GeometrySave::Written);
    EXPECT_EQ(l.s.lists.List2.items, (std::vector<std::string>{"rbs", "other"}));
    EXPECT_EQ(l.s.current().NGeometries, 2);
}

TEST(GeometrySave, AFolderThatCannotBeWrittenIsReportedAndNothingElseChanges) {
    Loaded l;
    l.s.FilePath = l.dir.file("missing/folder");
    EXPECT_EQ(Check2_Click(l.s, "rbs.geo"), GeometrySave::WriteFailed);
    EXPECT_EQ(l.t.boxes(), "[Geometry1.Check2] Cannot write " + l.dir.file("missing/folder") + "/rbs.geo\n");
    EXPECT_TRUE(l.s.GeoEditor.Unsaved);
    EXPECT_EQ(l.dir.read("rbs.geo"), kRbs);
}

TEST(GeometrySave, ADerivedRecordIsSavedAsADerivedFileKeepingThePreviousOne) {
    Loaded l;
    l.dir.write("derived.geo", std::string("READGEO rbs\r\n") + (kRbs + 0) + "Energy 2100\r\n");
    ResetGeometry(l.s);
    ASSERT_TRUE(ReadGeometry(l.s, "derived"));
    l.s.GeoEditor.OverwriteAsk = false;
    ASSERT_EQ(Check2_Click(l.s, "derived.geo"), GeometrySave::Written);
    EXPECT_EQ(l.dir.read("derived.geo"),
              "READGEO rbs\r\n19\r\n60 600 \r\n4He 4He\r\n2100\r\n15\r\nIBM\r\n0  165\r\n3.6\r\n1.95  45\r\n"
              "Energy 2100\r\n");
    EXPECT_EQ(l.dir.read("derived.geo~"), std::string("READGEO rbs\r\n") + kRbs + "Energy 2100\r\n");
    EXPECT_EQ(l.dir.read("rbs.geo"), kRbs);
}

TEST(GeometrySave, ShortNamesBeforeVks9) {
    struct Case {
        const char* name;
        bool allowed;
    };
    for (const Case& c : {Case{"rbs165.geo", true}, Case{"abcdefgh.geo", true}, Case{"abcdefghi.geo", false},
                          Case{"abcdefghijkl", true}, Case{"abcdefghijklm", false}, Case{"a.b.geo", false},
                          Case{"a.geox", false}, Case{"my rbs.geo", false}, Case{"rbs", true}, Case{"x.", true}})
        EXPECT_EQ(IsGeometryDosName(c.name), c.allowed) << c.name;
}

}  // namespace
}  // namespace halvo
