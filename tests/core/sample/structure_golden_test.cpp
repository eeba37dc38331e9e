// The structure reader and writer on the golden cases of tests/data/sample/structure: one file per
// block (logical elements, inclusions, roughness and surface), the file edge cases, and the faults.
// HALVO_GOLDEN_PRINT=FILE appends what the code makes of each case to FILE, for writing a new one.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

#include "chemistry_fixture.h"
#include "structure_cases.h"
#include "text/lines.h"
#include "text/tokens.h"

namespace halvo {
namespace {

using test::ChemSession;
using test::ScratchDir;
using test::StructureCase;

struct Outcome {
    bool failed = false;
    std::string record, messages, written;
};

Outcome Run(const StructureCase& c, const ScratchDir& dir) {
    ChemSession t;
    Session& s = t.session;
    s.FilePath = dir.path();
    std::string name = "case";
    bool editor = false;
    for (const auto& option : c.session) {
        std::string rest = option;
        const std::string key = text::NextToken(rest, " ");
        if (key == "engine") s.VKSversionNumber = std::int16_t(std::stoi(rest));
        if (key == "syntax") s.Geometry.Syntax = std::int16_t(std::stoi(rest));
        if (key == "warnings") SetWarningsFlag(s, rest != "off");
        if (key == "name") name = rest;
        if (key == "editor") editor = true;
        if (key == "answers")
            while (!rest.empty()) t.answers.push(AnswerFromName(text::NextToken(rest, " ")));
        if (key == "profile") {
            s.Profile.Layers = std::int16_t(std::stoi(text::NextToken(rest, " ")));
            s.Profile.ProfileFile = rest;
        }
    }
    for (const auto& [file, bytes] : c.files)
        if (file != "<structure>") dir.write(file, bytes);
    Outcome o;
    RealElementList real;
    if (editor) {
        s.Structure.StructureFile = name + ".str";
        o.failed = ReadStructureFile(s, kEditorList, &c.editorLines, &real);
    } else {
        for (const auto& [file, bytes] : c.files)
            if (file == "<structure>") dir.write(name + ".str", bytes);
        o.failed = ReadStructureFile(s, name, nullptr, &real);
    }
    if (!o.failed) o.record = test::DumpStructure(s, real);
    if (c.hasWritten) o.written = StructureText(s, s.Structure);
    o.messages = t.answers.transcriptText();
    return o;
}

void Print(std::ostream& out, const StructureCase& c, const Outcome& o) {
    out << "=== " << c.name << "\n--- result\n" << (o.failed ? "fail" : "read") << "\n";
    if (!o.failed) out << "--- record\n" << o.record;
    out << "--- messages\n" << o.messages;
    if (c.hasWritten) {
        out << "--- written\n";
        for (const auto& line : text::SplitLines(o.written)) out << line << "$\n";
    }
}

void RunFile(const std::string& file, size_t atLeast) {
    const auto cases = test::ReadStructureCases(test::ReadData("sample/structure/" + file));
    ASSERT_GE(cases.size(), atLeast);
    const char* printTo = std::getenv("HALVO_GOLDEN_PRINT");
    std::ofstream print;
    if (printTo) print.open(printTo, std::ios::app);
    for (const auto& c : cases) {
        SCOPED_TRACE(file + ": " + c.name);
        ScratchDir dir;
        const Outcome o = Run(c, dir);
        if (printTo) Print(print, c, o);
        EXPECT_EQ(o.failed ? "fail" : "read", c.result);
        if (c.hasRecord) {
            EXPECT_EQ(o.record, c.record);
        }
        if (c.hasMessages) {
            EXPECT_EQ(o.messages, c.messages);
        }
        if (c.hasWritten) {
            EXPECT_EQ(o.written, c.written);
        }
    }
}

TEST(StructureGolden, LogicalElements) { RunFile("elements.txt", 10); }
TEST(StructureGolden, Inclusions) { RunFile("inclusions.txt", 5); }
TEST(StructureGolden, RoughnessAndSurface) { RunFile("roughness.txt", 8); }
TEST(StructureGolden, FileEdgeCasesAndFaults) { RunFile("faults.txt", 10); }

}  // namespace
}  // namespace halvo
