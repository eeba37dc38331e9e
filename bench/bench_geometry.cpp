// Reading a geometry that uses most directives, against a demo structure. The directives that name
// files for the checks of their own (cross-section, efficiency, DEPTH, SRIM, stopping files) are left
// out: those checks are measured with them.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "geometry/geometry_file.h"
#include "sample/element_table.h"
#include "sample/structure_file.h"
#include "session/session.h"

namespace {

std::string Here() {
    std::string here = __FILE__;
    return here.substr(0, here.rfind('/'));
}

constexpr const char* kGeometry =
    "\\ RBS at 165 degrees with most of what a geometry can say\r\n"
    "19\r\n"
    "60 600  300 360  400 420\r\n"
    "4He 4He\r\n"
    "2000 20\r\n"
    "15 0.01 2 0.001\r\n"
    "IBM\r\n"
    "0 165 1 2\r\n"
    "3.6\r\n"
    "0.0001 1.95 45\r\n"
    "autol off\r\n"
    "ds precise nolow 1.2\r\n"
    "foil 1000 10\r\n"
    "C 10 H 8 O 4 9.6\r\n"
    "dead 200\r\n"
    "Au\r\n"
    "nil\r\n"
    "beamfoil 50\r\n"
    "C\r\n"
    "chu 1.1 0.5\r\n"
    "strag gamma\r\n"
    "pile mg 2e-6 1e-6 3 500 39 1\r\n"
    "lld 60\r\n"
    "screen u\r\n"
    "zbl00\r\n"
    "mstar 4He Si\r\n"
    "allres si o\r\n"
    "dperror 0.05\r\n"
    "x_as 2\r\n"
    "s_as 3\r\n"
    "low_e\r\n"
    "xml fit\r\n"
    "flagvar_charge on\r\n"
    "flagvar_quad off\r\n"
    "flagvar_conv on\r\n"
    "flagvar_offset off\r\n"
    "active 1500\r\n"
    "cross Si 1500 2500\r\n"
    "\\ yield corrections, stopping factors and a thin film\r\n"
    "Si\r\n"
    "450 1 -0.0002 0.00001 0\r\n"
    "O\r\n"
    "300 1 -0.0001\r\n"
    "4He Si 1.02\r\n"
    "4He O 0.98\r\n"
    "Si 0.5 100 400\r\n"
    "ndpback 1e3 -0.5\r\n";

struct Fixture {
    halvo::DefaultAnswers answers;
    halvo::Session s;
    std::string dir;
    Fixture() {
        dir = (std::filesystem::temp_directory_path() / "halvo-bench-geometry").string();
        std::filesystem::create_directories(dir);
        std::ofstream(dir + "/most.geo", std::ios::binary) << kGeometry;
        s.ui = &answers;
        s.PathVKS = Here() + "/../examples/engine";
        halvo::LoadElementTables(s);
        s.FilePath = Here() + "/../examples/demo";
        halvo::ReadStructureFile(s, "sio2si", nullptr, &s.ElementList);
        s.FilePath = dir;
    }
};

void BM_ReadGeometryMostDirectives(benchmark::State& state) {
    static Fixture f;
    halvo::Session& s = f.s;
    for (auto _ : state) {
        halvo::ResetGeometry(s);
        if (!halvo::ReadGeometry(s, "most")) state.SkipWithError("geometry not read");
        benchmark::DoNotOptimize(s.Geometry.Elements.data());
    }
    if (s.Geometry.StragglingModel != "chu" || s.Geometry.Elements.at(1).MsSet != -1 ||
        s.Geometry.AdvGeomPileup.Model != 5)
        state.SkipWithError("geometry read wrongly");
}
BENCHMARK(BM_ReadGeometryMostDirectives)->Unit(benchmark::kMicrosecond);

}  // namespace
