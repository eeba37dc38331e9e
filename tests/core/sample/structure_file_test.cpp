// The structure file around the golden cases: the 20-place limit, the file lookup and null.str,
// the not-assigned mark, the save questions and the name rule of each engine generation, and round
// trips of the demo structures.
#include <gtest/gtest.h>

#include "chemistry_fixture.h"
#include "platform/files.h"
#include "sample/structure_file.h"
#include "structure_cases.h"
#include "text/numbers.h"

namespace halvo {
namespace {

using test::ChemSession;
using test::ScratchDir;

// A structure of `elements` single elements (H, He, ... by Z) and, with `sphere`, inclusions of the
// first, counted in line 2 as `count` (the true count unless given).
std::string ManyElements(int elements, bool sphere, int count = -1) {
    static const char* const symbols[] = {"H",  "He", "Li", "Be", "B",  "C",  "N",  "O",  "F",  "Ne", "Na",
                                          "Mg", "Al", "Si", "P",  "S",  "Cl", "Ar", "K",  "Ca", "Sc", "Ti"};
    std::string out = "100 20000\r\n" + std::to_string(count >= 0 ? count : elements + (sphere ? 1 : 0)) + "\r\n";
    for (int i = 0; i < elements; ++i) out += std::string(symbols[i]) + "\r\n0 0\r\n0 1\r\n";
    if (sphere) out += "SPHERE\r\n1\r\n50 0.5\r\n0 0\r\n0 1\r\n";
    return out;
}

struct Fixture {
    ScratchDir dir;
    ChemSession t;
    Session& s = t.session;
    Fixture() { s.FilePath = dir.path(); }
    std::string boxes() const { return t.boxes(); }
};

TEST(StructureFile, TwentyLogicalElementsAreTheLimitAndATwentyFirstGoesToTheTrap) {
    {
        Fixture f;
        f.dir.write("twenty.str", ManyElements(20, false));
        EXPECT_FALSE(ReadStructureFile(f.s, "twenty"));
        EXPECT_EQ(f.s.Structure.NLE, 20);
        EXPECT_EQ(f.s.Structure.Targets.LECount, 20);
        EXPECT_EQ(f.boxes(), "");
    }
    {
        Fixture f;
        f.dir.write("incl.str", ManyElements(19, true));
        EXPECT_FALSE(ReadStructureFile(f.s, "incl"));
        EXPECT_EQ(f.s.Structure.Targets.LECount, 20);
        EXPECT_EQ(f.s.Structure.Targets.LogicalElements[20].LEName, "Spher.inclusions: H");
    }
    for (const auto& [text, lastLine, number] :
         {std::tuple{ManyElements(21, false), std::string("Sc"), 63}, {ManyElements(20, true), "SPHERE", 63}}) {
        Fixture f;
        f.dir.write("big.str", text);
        EXPECT_TRUE(ReadStructureFile(f.s, "big"));
        EXPECT_TRUE(f.s.Structure.NotAssigned);
        EXPECT_EQ(f.boxes(), "[vkscontrol.ReadStructureFile: read error] Structure file error: big.str, last line read: " +
                                 lastLine + " at line number " + std::to_string(number) + "\n");
    }
}

TEST(StructureFile, AMissingFileFailsWithoutABoxAndLeavesTheRecordAlone) {
    Fixture f;
    f.s.Structure.NLE = 7;
    f.s.Structure.NotAssigned = false;
    EXPECT_TRUE(ReadStructureFile(f.s, "nothere"));
    EXPECT_EQ(f.boxes(), "");
    EXPECT_EQ(f.s.Structure.NLE, 7);
    EXPECT_FALSE(f.s.Structure.NotAssigned);
}

TEST(StructureFile, AFailedReadKeepsTheNotAssignedMarkAndTheOldLogicalElements) {
    Fixture f;
    f.dir.write("good.str", "100\r\n1\r\nSi\r\n0 0\r\n0 1\r\n");
    f.dir.write("bad.str", "100\r\n1\r\nSi 1 O\r\n0 0\r\n0 1\r\n");
    ASSERT_FALSE(ReadStructureFile(f.s, "good"));
    EXPECT_FALSE(f.s.Structure.NotAssigned);
    f.s.Structure.Roughness.ModelA = 4;
    EXPECT_TRUE(ReadStructureFile(f.s, "bad"));
    EXPECT_TRUE(f.s.Structure.NotAssigned);
    EXPECT_EQ(f.s.Structure.StructureFile, "good.str");
    EXPECT_EQ(f.s.Structure.Targets.LogicalElements.at(1).LEName, "Si");
    // The blocks' records are reset before the read begins.
    EXPECT_EQ(f.s.Structure.Roughness.ModelA, 0);
    ASSERT_FALSE(ReadStructureFile(f.s, "good.str"));
    EXPECT_FALSE(f.s.Structure.NotAssigned);
}

TEST(StructureFile, IsFoundIgnoringCaseWhateverItsLineEndsAndOnlyByItsFileName) {
    const std::string lines[] = {"100", "1", "Si", "0 0", "0 1"};
    for (const std::string end : {"\r\n", "\n", "\r"}) {
        Fixture f;
        std::string bytes;
        for (const auto& l : lines) bytes += l + end;
        f.dir.write("Mixed.STR", bytes);
        EXPECT_FALSE(ReadStructureFile(f.s, "mixed")) << "line end " << int(end.back());
        EXPECT_EQ(f.s.Structure.StructureFile, "mixed.str");
        // A directory in front and an extension behind count for nothing: the working directory holds it.
        EXPECT_FALSE(ReadStructureFile(f.s, "/somewhere/else/MIXED.dat"));
        EXPECT_EQ(f.boxes(), "");
    }
}

TEST(StructureFile, AnEmptyNameWritesAndReadsNullStrKeepingAnOldOne) {
    Fixture f;
    f.dir.write("null.str", "old\r\n");
    RealElementList real;
    EXPECT_FALSE(ReadStructureFile(f.s, "", nullptr, &real));
    EXPECT_EQ(f.dir.read("null.str"), std::string(kNullStructure));
    EXPECT_EQ(f.dir.read("null.str~"), "old\r\n");
    EXPECT_EQ(f.s.Structure.StructureFile, "null.str");
    EXPECT_EQ(f.s.Structure.ThicknessMin, 100.0f);
    EXPECT_EQ(f.s.Structure.ThicknessMax, 0.0f);
    EXPECT_EQ(f.s.Structure.Targets.LogicalElements.at(1).DepthMax, 25000.0f);
    ASSERT_EQ(real.RealElementCount, 1);
    EXPECT_EQ(real.RealElementNames[1], "Si");
    EXPECT_EQ(f.boxes(), "");
}

TEST(StructureFile, TheEditorsListIsReadUnderTheCurrentName) {
    Fixture f;
    f.s.Structure.StructureFile = "layers.str";
    const std::vector<std::string> list = {"100", "1", "Si", "0 0", "0 1"};
    EXPECT_FALSE(ReadStructureFile(f.s, kEditorList, &list));
    EXPECT_EQ(f.s.Structure.StructureFile, "layers.str");
    EXPECT_FALSE(f.dir.exists("layers.str"));
    // No list at all reads as an empty file.
    EXPECT_TRUE(ReadStructureFile(f.s, kEditorList));
    EXPECT_EQ(f.boxes(), "[ReadStructureFile error] Unable to read layers: it appears to be zero length"
                         " (press Cancel to silence this message)\n");
}

TEST(StructureFile, ReadInFileDropsBlankLinesNormalisesBlanksAndReportsAMissingFile) {
    Fixture f;
    f.dir.write("a.str", "  100   200  \r\n\r\n   \r\n Si  1 \tO 2\r\n");
    std::vector<std::string> lines;
    int count = -1, longest = -1;
    ASSERT_TRUE(ReadInFile(f.s, "/elsewhere/A.str", lines, count, longest));
    EXPECT_EQ(lines, (std::vector<std::string>{"100 200", "Si 1 \tO 2"}));
    EXPECT_EQ(count, 2);
    EXPECT_EQ(longest, 9);
    EXPECT_FALSE(ReadInFile(f.s, "b.str", lines, count, longest));
    EXPECT_EQ(count, 0);
    EXPECT_EQ(f.boxes(), "[Read File Error (vkscontrol.ReadInFile)] File b.str not found"
                         " (press Cancel to silence this message)\n");
}

TEST(StructureFile, PrintZonesAreFourteenColumns) {
    EXPECT_EQ(PrintZones({"50", " 1"}), "50             1");
    EXPECT_EQ(PrintZones({"", "x"}), std::string(14, ' ') + "x");
    EXPECT_EQ(PrintZones({"1234567890123", "x"}), "1234567890123 x");
    EXPECT_EQ(PrintZones({"12345678901234", "x"}), "12345678901234" + std::string(14, ' ') + "x");
    EXPECT_EQ(PrintZones({"a", "b", "c"}), "a             b             c");
    EXPECT_EQ(PrintZones({"1  "}), "1  ");
}

// Reads `name`, writes it to `out` through WriteStructureFile, and returns the text written.
std::string Rewrite(Fixture& f, const std::string& name, const std::string& out) {
    EXPECT_FALSE(ReadStructureFile(f.s, name));
    EXPECT_TRUE(WriteStructureFile(f.s, out));
    return f.dir.read(out + ".str");
}

TEST(StructureFile, DemoStructuresReadWithoutAMessageAndTheirRewriteIsAFixedPoint) {
    for (const std::string name : {"sio2si", "thickox", "tio2si"}) {
        SCOPED_TRACE(name);
        Fixture f;
        f.s.Geometry.Syntax = 2;
        const auto demo = platform::ReadFileBytes(test::DataDir() + "/../../examples/demo/" + name + ".str");
        ASSERT_TRUE(demo);
        f.dir.write(name + ".str", *demo);
        RealElementList real;
        ASSERT_FALSE(ReadStructureFile(f.s, name, nullptr, &real));
        const std::string first = test::DumpStructure(f.s, real);
        const std::string once = Rewrite(f, name, "once");
        const std::string twice = Rewrite(f, "once", "twice");
        EXPECT_EQ(once, twice);
        EXPECT_NE(once, *demo);  // the engine's form: blanks before the numbers
        ASSERT_FALSE(ReadStructureFile(f.s, "twice", nullptr, &real));
        std::string again = test::DumpStructure(f.s, real);
        again.replace(again.find("twice.str"), 9, name + ".str");
        EXPECT_EQ(again, first);
        EXPECT_EQ(f.boxes(), "");
    }
}

TEST(StructureFile, OverwritingAsksAndKeepsThePreviousFile) {
    Fixture f;
    f.dir.write("s.str", "100\r\n1\r\nSi\r\n0 0\r\n0 1\r\n");
    ASSERT_FALSE(ReadStructureFile(f.s, "s"));
    f.t.answers.push(mb::Yes);
    EXPECT_TRUE(WriteStructureFile(f.s, "s"));
    EXPECT_EQ(f.dir.read("s.str~"), "100\r\n1\r\nSi\r\n0 0\r\n0 1\r\n");
    EXPECT_EQ(f.dir.read("s.str"), " 100\r\n 1\r\nSi\r\n 0  0\r\n 0  1\r\n");
    EXPECT_EQ(f.boxes(), "[WriteStructureFile: filecheck] Over write s.str?\n");
    EXPECT_EQ(f.t.answers.transcript().back().message.buttons, mb::YesNoCancel);
    EXPECT_EQ(f.s.current().Structure, "s");
    EXPECT_EQ(f.s.lists.List4.items, std::vector<std::string>{"s"});

    // Cancel stops; No asks for another name, and no name stops too.
    f.t.answers.clear();
    f.t.answers.push(mb::Cancel);
    f.t.answers.push(mb::No);
    f.dir.write("s.str", "unchanged");
    EXPECT_FALSE(WriteStructureFile(f.s, "s"));
    EXPECT_FALSE(WriteStructureFile(f.s, "s"));
    std::string proposed;
    f.t.answers.push(mb::No);
    EXPECT_TRUE(WriteStructureFile(f.s, "s.str", [&](const std::string& p) {
        proposed = p;
        return std::string("other.dat");
    }));
    EXPECT_EQ(proposed, "s.str");
    EXPECT_EQ(f.dir.read("s.str"), "unchanged");
    EXPECT_TRUE(f.dir.exists("other.str"));
    EXPECT_EQ(f.s.Structure.StructureFile, "other.str");

    // An empty name is the current file, and is written without a question; so is any name while
    // warnings are off.
    f.t.answers.clear();
    EXPECT_TRUE(WriteStructureFile(f.s, ""));
    SetWarningsFlag(f.s, false);
    EXPECT_TRUE(WriteStructureFile(f.s, "s"));
    EXPECT_EQ(f.boxes(), "");
    EXPECT_EQ(f.dir.read("s.str"), f.dir.read("other.str"));
}

TEST(StructureFile, ANameThatExistsInAnotherCaseIsThatFile) {
    Fixture f;
    f.dir.write("Upper.STR", "100\r\n1\r\nSi\r\n0 0\r\n0 1\r\n");
    ASSERT_FALSE(ReadStructureFile(f.s, "upper"));
    EXPECT_TRUE(WriteStructureFile(f.s, "upper"));
    EXPECT_EQ(f.boxes(), "[WriteStructureFile: filecheck] Over write upper.str?\n");
    EXPECT_EQ(f.dir.read("Upper.STR"), " 100\r\n 1\r\nSi\r\n 0  0\r\n 0  1\r\n");
    EXPECT_TRUE(f.dir.exists("Upper.STR~"));
    EXPECT_FALSE(f.dir.exists("upper.str"));
}

TEST(StructureFile, GenerationsBeforeNineTakeOnlyShortNames) {
    const std::string refusal = "[Error] Non DOS names not allowed in this version (";
    const std::string tail = "). Please use another name,  or change the version to VKSv9 in the Geometry file\n";
    struct Case {
        std::int16_t syntax;
        std::string name;
        std::string boxes;
    };
    const std::vector<Case> cases = {
        {0, "eightchr", ""},
        {0, "ninechars", refusal + "VKSv7" + tail},
        {1, "ninechars", refusal + "VKSv8" + tail},
        {-1, "ninechars", refusal + "VKSv7" + tail},
        {-3, "two words", refusal + "VKSv7" + tail},
        {1, "a.verylongextension", ""},  // the extension is always "str" by then
        {2, "ninechars and blanks", ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name + " " + std::to_string(c.syntax));
        Fixture f;
        f.s.Geometry.Syntax = c.syntax;
        f.dir.write("s.str", "100\r\n1\r\nSi\r\n0 0\r\n0 1\r\n");
        ASSERT_FALSE(ReadStructureFile(f.s, "s"));
        EXPECT_EQ(WriteStructureFile(f.s, c.name), c.boxes.empty());
        EXPECT_EQ(f.boxes(), c.boxes);
        if (!c.boxes.empty()) {
            EXPECT_EQ(f.s.current().Structure, "");
        }
    }
}

TEST(StructureFile, AnUnwritableRecordIsReportedAndNothingIsWritten) {
    Fixture f;
    f.dir.write("s.str", "100\r\n1\r\nSi 1 O 2\r\n0 0\r\n0 1\r\n");
    ASSERT_FALSE(ReadStructureFile(f.s, "s"));
    f.s.Structure.Targets.LogicalElements[1].MoleculeIndex = 5;
    f.s.Geometry.Syntax = 2;
    EXPECT_FALSE(WriteStructureText(f.s, f.dir.file("t.str")));
    EXPECT_FALSE(f.dir.exists("t.str"));
    EXPECT_EQ(f.boxes(), "[WriteStructureText] Unexpected error in WriteStructureText: Subscript out of range\n");
}

}  // namespace
}  // namespace halvo
