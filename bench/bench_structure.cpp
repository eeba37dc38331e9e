// A structure of 20 logical elements (twelve elements, seven molecules, one of them of sub-molecules,
// and spheres), with roughness and a surface block: read from its file, checked from the editor's
// list, and written back. The data tables are the shipped ones, loaded once.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "sample/element_table.h"
#include "sample/structure_file.h"
#include "session/session.h"
#include "text/lines.h"

namespace {

std::string EngineDir() {
    std::string here = __FILE__;
    return here.substr(0, here.rfind('/')) + "/../examples/engine";
}

const char* const kStructure =
    "10 50000\r\n20\r\n"
    "Si 1 O 2 6.61\r\n0 2000\r\n0 1\r\n"
    "Ti 1 O 2 9.57\r\n0 3000\r\n0 1\r\n"
    "Al 2 O 3\r\n0 0\r\n0 1\r\n"
    "Hf 1 O 2\r\n0 0\r\n0 1\r\n"
    "Ga 1 As 1\r\n0 0\r\n0 1\r\n"
    "Si ?=3 N 4\r\n0 0\r\n0 1\r\n"
    "( Si 1 O 2 ) 0.6 ( Al 2 O 3 ) ?=0.4\r\n0 0\r\n0 1\r\n"
    "H\r\n0 5000\r\n0 0.2\r\n"
    "2H 6\r\n0 5000\r\n0 0.1\r\n"
    "C\r\n0 0\r\n0 0.5\r\n"
    "N\r\n0 0\r\n0 0.5\r\n"
    "Fe\r\n0 3000\r\n0 0.01\r\n"
    "Ni\r\n0 0\r\n0 0.01\r\n"
    "Cu\r\n0 0\r\n0 0.01\r\n"
    "Ag\r\n0 0\r\n0 0.01\r\n"
    "Au\r\n0 100\r\nd\r\n"
    "Ar\r\n0 0\r\n0 0.05\r\n"
    "Pt\r\n0 0\r\n0 0.01\r\n"
    "Si\r\n0 0\r\ns\r\n"
    "SPHERE\r\n1\r\n50 0.5\r\n0 2000\r\n0 0.3\r\n"
    "ROUGH Gauss\r\n1 0 1\r\n0 0\r\n20 1\r\n50 0\r\n"
    "SURFACE\r\n120 1\r\n15 1\r\n1 3\r\n";

struct Bench {
    std::string dir;
    halvo::DefaultAnswers answers;
    halvo::Session session;
    std::vector<std::string> lines;
    Bench() {
        dir = (std::filesystem::temp_directory_path() / "halvo-bench-structure").string();
        std::filesystem::create_directories(dir);
        std::ofstream(dir + "/big20.str", std::ios::binary | std::ios::trunc) << kStructure;
        session.ui = &answers;
        session.PathVKS = EngineDir();
        if (!halvo::LoadElementTables(session)) std::abort();
        session.FilePath = dir;
        session.Profile.Layers = 5;
        session.Geometry.Syntax = 2;
        lines = halvo::text::SplitLines(kStructure);
    }
};

Bench& TheBench() {
    static Bench b;
    return b;
}

void BM_ReadStructure20(benchmark::State& state) {
    Bench& b = TheBench();
    for (auto _ : state) {
        if (halvo::ReadStructureFile(b.session, "big20")) state.SkipWithError("not read");
        benchmark::DoNotOptimize(b.session.Structure.NLE);
    }
}
BENCHMARK(BM_ReadStructure20)->Unit(benchmark::kMicrosecond);

// The editor's check and save read its list in place of the file.
void BM_CheckStructure20FromEditorList(benchmark::State& state) {
    Bench& b = TheBench();
    b.session.Structure.StructureFile = "big20.str";
    for (auto _ : state) {
        if (halvo::ReadStructureFile(b.session, halvo::kEditorList, &b.lines)) state.SkipWithError("not read");
        benchmark::DoNotOptimize(b.session.Structure.NLE);
    }
}
BENCHMARK(BM_CheckStructure20FromEditorList)->Unit(benchmark::kMicrosecond);

void BM_WriteStructure20(benchmark::State& state) {
    Bench& b = TheBench();
    if (halvo::ReadStructureFile(b.session, "big20")) state.SkipWithError("not read");
    const std::string out = b.dir + "/out20.str";
    for (auto _ : state) {
        if (!halvo::WriteStructureText(b.session, out)) state.SkipWithError("not written");
    }
}
BENCHMARK(BM_WriteStructure20)->Unit(benchmark::kMicrosecond);

void BM_StructureText20(benchmark::State& state) {
    Bench& b = TheBench();
    if (halvo::ReadStructureFile(b.session, "big20")) state.SkipWithError("not read");
    for (auto _ : state) benchmark::DoNotOptimize(halvo::StructureText(b.session, b.session.Structure));
}
BENCHMARK(BM_StructureText20)->Unit(benchmark::kMicrosecond);

}  // namespace
