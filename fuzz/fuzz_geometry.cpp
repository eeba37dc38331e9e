// Feeds arbitrary bytes to the geometry reader as a file of the working directory, with the shipped
// data tables and a demo structure loaded, then saves what was read as the editor does and reads the
// saved file again. The first byte picks the session's state (warnings, engine generation, whether the
// structure is there, the analysis type and generation of the save). The reader owns a trap for
// run-time faults, so any exception that escapes it or the save, and every sanitizer report, is a
// finding; so is a saved file whose lines do not all end in CR LF.
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "geometry/geometry_file.h"
#include "geometry/geometry_writer.h"
#include "geometry/syntax.h"
#include "sample/element_table.h"
#include "sample/structure_file.h"
#include "fuzz_support.h"
#include "platform/files.h"
#include "session/session.h"

namespace {

std::string Here() {
    std::string here = __FILE__;
    return here.substr(0, here.rfind('/'));
}

struct Fixture {
    halvo::DefaultAnswers answers;
    halvo::Session s;
    std::string dir;
    halvo::StructureRecord structure;
    halvo::RealElementList elements;

    Fixture() {
        dir = halvo::fuzz::MakeScratchDir("geometry");
        s.ui = &answers;
        s.PathVKS = halvo::fuzz::EngineDir();
        s.Tables = halvo::fuzz::EngineTables();
        s.FilePath = Here() + "/../examples/demo";
        if (halvo::ReadStructureFile(s, "sio2si", nullptr, &elements)) std::abort();
        structure = s.Structure;
        s.FilePath = dir;
        // A base file for READGEO lines to find, beside the file under test.
        std::ofstream(dir + "/base.geo", std::ios::binary)
            << "19\r\n60 600\r\n4He 4He\r\n2000\r\n15\r\nIBM\r\n0 165\r\n3.6\r\n1.95 45\r\nchu\r\nSi\r\n400 1 2\r\n";
    }
    ~Fixture() {
        std::error_code ec;
        std::filesystem::remove_all(dir, ec);
    }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static Fixture f;
    halvo::Session& s = f.s;
    const int choice = size > 0 ? data[0] : 0;
    s.WarningsFlag = (choice & 1) != 0;
    s.VKSversion = std::int16_t(choice & 2 ? 9 : 8);
    s.VKSversionNumber = std::int16_t(s.VKSversion * 1000 + 505);
    if (choice & 4) {
        s.Structure = f.structure;
        s.ElementList = f.elements;
    } else {
        s.Structure = halvo::StructureRecord{};
        s.ElementList = halvo::RealElementList{};
    }
    {
        std::ofstream out(f.dir + "/fuzz.geo", std::ios::binary | std::ios::trunc);
        out.write(reinterpret_cast<const char*>(data) + (size > 0 ? 1 : 0), std::streamsize(size > 0 ? size - 1 : 0));
    }
    halvo::ResetGeometry(s);
    const bool read = halvo::ReadGeometry(s, "fuzz");
    halvo::GeometryFields(s.Geometry);
    halvo::IsGeomValid(s, s.Geometry, choice & 8, choice & 16);
    if (!read) return 0;

    // The save: the analysis type by the next bits (7 keeps the kind read), and every other input a
    // switch of generation first.
    const int analysis = choice >> 5 & 7;
    s.GeoEditor.Combo5 = std::int16_t(analysis == 7 ? s.Geometry.Kind : analysis);
    s.GeoEditor.OverwriteAsk = false;
    if (size > 1 && data[1] & 1) halvo::CorrectGeometrySyntax(s, data[1] >> 1 & 1 ? 2 : data[1] >> 2 & 1);
    if (halvo::Check2_Click(s, "saved.geo") != halvo::GeometrySave::Written) return 0;
    const auto saved = halvo::platform::ReadFileBytes(f.dir + "/saved.geo");
    halvo::fuzz::Require(saved.has_value());
    for (size_t i = 0; i < saved->size(); ++i) {
        if ((*saved)[i] == '\r') halvo::fuzz::Require(i + 1 < saved->size() && (*saved)[i + 1] == '\n');
        if ((*saved)[i] == '\n') halvo::fuzz::Require(i > 0 && (*saved)[i - 1] == '\r');
    }
    halvo::ResetGeometry(s);
    halvo::ReadGeometry(s, "saved");
    return 0;
}
