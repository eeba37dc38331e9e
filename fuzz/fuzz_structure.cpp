// Feeds arbitrary bytes to the structure reader as a structure file (or as the editor's list), with the
// shipped data tables loaded once, then writes what was read and reads that back. The first byte picks
// the session's state: warnings, engine version, profile layers, and whether the bytes go through a
// file. Every fault must be caught by the reader's own trap; anything that escapes, and every
// sanitizer report, is a finding.
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include "sample/element_table.h"
#include "sample/structure_file.h"
#include "fuzz_support.h"
#include "session/session.h"
#include "text/lines.h"

namespace {

using halvo::fuzz::Require;

const halvo::DataTables& Tables() { return halvo::fuzz::EngineTables(); }

// A working directory with one good formula file, for the "f" lines that name it.
const std::string& WorkDir() {
    static const std::string dir = [] {
        std::string made = halvo::fuzz::MakeScratchDir("structure");
        std::ofstream(made + "/conc.txt", std::ios::binary) << "a1*t\r\n1 0 2 1\r\n";
        return made;
    }();
    return dir;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace halvo;
    static const DataTables& tables = Tables();
    const std::string dir = WorkDir();
    const unsigned choice = size > 0 ? data[0] : 0;
    const std::string bytes(reinterpret_cast<const char*>(data) + (size > 0 ? 1 : 0), size > 0 ? size - 1 : 0);

    // One session for all runs (the tables are large); what a read depends on is set anew each time.
    static DefaultAnswers answers;
    static Session s = [&] {
        Session session;
        session.ui = &answers;
        session.Tables = tables;
        session.PathVKS = halvo::fuzz::EngineDir();
        session.FilePath = dir;
        return session;
    }();
    s.Structure = StructureRecord{};
    s.Samples = std::vector<Sample>(2);
    s.CurrentSample = 1;
    s.WarningsFlag = (choice & 1) != 0;
    s.VKSversionNumber = std::int16_t(choice & 2 ? 9505 : 0);
    s.Profile.Layers = std::int16_t(choice >> 4);
    s.Geometry.Syntax = 2;

    bool failed;
    if (choice & 4) {
        // Unlinked first: truncating a file that holds data makes the file system flush it, every run.
        std::remove((dir + "/fz.str").c_str());
        std::ofstream(dir + "/fz.str", std::ios::binary) << bytes;
        failed = ReadStructureFile(s, "FZ");
    } else {
        s.Structure.StructureFile = "fz.str";
        const std::vector<std::string> lines = text::SplitLines(bytes);
        failed = ReadStructureFile(s, kEditorList, &lines);
    }
    Require(failed == s.Structure.NotAssigned);
    if (failed) return 0;

    const StructureRecord& st = s.Structure;
    Require(st.NElements >= 0 && st.NMolecules >= 0);
    Require(st.NLE == st.NElements + st.NMolecules + (st.HasInclusions ? 1 : 0));
    Require(st.Targets.LECount == st.NLE && st.NLE <= kMaxLogicalElements);
    Require(st.Targets.Molecules.MoleculeCount == st.NMolecules);

    // What was read can be written, and what is written can be read without a crash.
    const std::string written = StructureText(s, st);
    Require(written.size() >= 2 && written.compare(written.size() - 2, 2, "\r\n") == 0);
    const std::vector<std::string> lines = text::SplitLines(written);
    ReadStructureFile(s, kEditorList, &lines);
    return 0;
}
