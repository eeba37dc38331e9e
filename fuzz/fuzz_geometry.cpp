// Feeds arbitrary bytes to the geometry reader as a file of the working directory, with the shipped
// data tables and a demo structure loaded. The first byte picks the session's state (warnings, engine
// generation, whether the structure is there). The reader owns a trap for run-time faults, so any
// exception that escapes it, and every sanitizer report, is a finding.
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "geometry/geometry_file.h"
#include "sample/element_table.h"
#include "sample/structure_file.h"
#include "fuzz_support.h"
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
    halvo::ReadGeometry(s, "fuzz");
    halvo::GeometryFields(s.Geometry);
    halvo::IsGeomValid(s, s.Geometry, choice & 8, choice & 16);
    return 0;
}
