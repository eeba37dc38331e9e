// Reading and writing a geometry that uses most directives, against a demo structure, and the syntax
// pass over a batch of geometries. The directives that name files for the checks of their own
// (cross-section, efficiency, DEPTH, SRIM, stopping files) are left out: those checks are measured
// with them.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "geometry/geometry_file.h"
#include "geometry/geometry_record.h"
#include "geometry/geometry_writer.h"
#include "geometry/syntax.h"
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

// The small geometries of the syntax pass's mix, each with the syntax its read gives.
struct SmallGeometry {
    std::string name, text;
    std::int16_t syntax;
};

const std::vector<SmallGeometry>& SmallGeometries() {
    const std::string rbs = "19\r\n60 600\r\n4He 4He\r\n2000\r\n15\r\nIBM\r\n0 165\r\n3.6\r\n1.95 45\r\n";
    static const std::vector<SmallGeometry> list = {
        {"plain", rbs + "chu\r\nZBL00\r\nSi\r\n450 1 -0.0002\r\n", -1},
        {"pileold", rbs + "chu\r\npile 1e-6\r\nLLD 60\r\n", -2},
        {"pupxml", rbs + "pup 1e-6 pur 0.5e-6\r\nxml\r\n", 1},
        {"lowall", rbs + "low_e all\r\nds\r\n", 1},
        {"pilenew", rbs + "pile ga 1e-6 0.5e-6\r\nLLD 60\r\nstrag gamma\r\n", 2},
        {"dead", rbs + "dead 200\r\nAu\r\nbeamfoil 50\r\nC\r\n", -3},
        {"mixed", rbs + "low_e all\r\nstrag gamma\r\n", -1},  // VKS8 and VKS9 at once: inconsistent
        {"general", "19\r\n60 600\r\n4He 4He\r\n2000\r\n15\r\ngen\r\n10 165\r\n3.6\r\n1.95 45\r\nchu\r\n", 2},
        {"pixe", "28\r\n100 700\r\n1H X\r\n3000\r\n0.16\r\nIBM\r\n0 135\r\n25\r\nSiLi.cal 5\r\n", 2},
    };
    return list;
}

// One session for every benchmark: element tables, the demo structure, a scratch working directory
// holding the geometries read. Each benchmark loads the geometry it needs.
struct Fixture {
    halvo::DefaultAnswers answers;
    halvo::Session s;
    std::string dir;
    Fixture() {
        dir = (std::filesystem::temp_directory_path() / "halvo-bench-geometry").string();
        std::filesystem::create_directories(dir);
        std::ofstream(dir + "/most.geo", std::ios::binary) << kGeometry;
        for (const SmallGeometry& g : SmallGeometries())
            std::ofstream(dir + "/" + g.name + ".geo", std::ios::binary) << g.text;
        s.ui = &answers;
        s.PathVKS = Here() + "/../examples/engine";
        halvo::LoadElementTables(s);
        s.FilePath = Here() + "/../examples/demo";
        halvo::ReadStructureFile(s, "sio2si", nullptr, &s.ElementList);
        s.FilePath = dir;
        // The engine in use reads VKS9, as the rich geometry does: the older files conflict with it.
        s.VKSversion = 9;
    }
};

Fixture& Shared() {
    static Fixture f;
    return f;
}

bool Load(halvo::Session& s, const std::string& name) {
    halvo::ResetGeometry(s);
    return halvo::ReadGeometry(s, name);
}

void BM_ReadGeometryMostDirectives(benchmark::State& state) {
    halvo::Session& s = Shared().s;
    for (auto _ : state) {
        if (!Load(s, "most")) state.SkipWithError("geometry not read");
        benchmark::DoNotOptimize(s.Geometry.Elements.data());
    }
    if (s.Geometry.StragglingModel != "chu" || s.Geometry.Elements.at(1).MsSet != -1 ||
        s.Geometry.AdvGeomPileup.Model != 5)
        state.SkipWithError("geometry read wrongly");
}
BENCHMARK(BM_ReadGeometryMostDirectives)->Unit(benchmark::kMicrosecond);

// The file text in memory, no disk.
void BM_WriteGeometryMostDirectives(benchmark::State& state) {
    halvo::Session& s = Shared().s;
    if (!Load(s, "most") || s.Geometry.Syntax != 2) {
        state.SkipWithError("geometry not read as VKS9");
        return;
    }
    std::string text;
    for (auto _ : state) {
        text = halvo::WholeGeometryText(s, s.Geometry.Kind);
        benchmark::DoNotOptimize(text.data());
    }
    if (text.find("pile mg") == std::string::npos || text.find("xml fit") == std::string::npos)
        state.SkipWithError("geometry text lacks its directives");
    state.SetLabel("target < 0.5 ms");
}
BENCHMARK(BM_WriteGeometryMostDirectives)->Unit(benchmark::kMicrosecond);

// The editor's whole save: the syntax pass, the text, a temporary file renamed over the last save and
// the backup "~" file.
void BM_SaveGeometryMostDirectives(benchmark::State& state) {
    Fixture& f = Shared();
    halvo::Session& s = f.s;
    if (!Load(s, "most")) {
        state.SkipWithError("geometry not read");
        return;
    }
    s.GeoEditor.OverwriteAsk = false;
    s.GeoEditor.Combo5 = s.Geometry.Kind;
    // A first save must ask nothing: a syntax question answered by default would stop every save.
    halvo::ScriptedAnswers watch;
    s.ui = &watch;
    const bool clean = halvo::Check2_Click(s, "bench.geo") == halvo::GeometrySave::Written && watch.transcript().empty();
    s.ui = &f.answers;
    if (!clean) {
        state.SkipWithError(watch.transcript().empty() ? "not saved" : watch.transcript().front().message.text.c_str());
        return;
    }
    for (auto _ : state)
        if (halvo::Check2_Click(s, "bench.geo") != halvo::GeometrySave::Written) state.SkipWithError("not saved");
    if (!std::filesystem::exists(f.dir + "/bench.geo~")) state.SkipWithError("no backup kept");
    state.SetLabel("disk; no target");
}
BENCHMARK(BM_SaveGeometryMostDirectives)->Unit(benchmark::kMicrosecond);

// The syntax pass over 1,000 geometries held in memory, the mix of files repeated. Warnings stay on, so
// the conflicts of the older files with VKS9 build their text and ask (answered by default: no further
// details); that is what a batch costs with a VKS9 engine.
void BM_DetermineSyntax1000(benchmark::State& state) {
    constexpr size_t kFiles = 1000;
    Fixture& f = Shared();
    halvo::Session& s = f.s;
    std::vector<halvo::GeometryRecord> kinds;
    for (const SmallGeometry& g : SmallGeometries()) {
        if (!Load(s, g.name) || s.Geometry.Syntax != g.syntax) {
            state.SkipWithError(("not read as expected: " + g.name).c_str());
            return;
        }
        kinds.push_back(s.Geometry);
    }
    std::vector<halvo::GeometryRecord> records;
    std::vector<std::string> names;
    for (size_t i = 0; i < kFiles; ++i) {
        records.push_back(kinds[i % kinds.size()]);
        names.push_back(SmallGeometries()[i % kinds.size()].name + ".geo");
    }

    for (auto _ : state) {
        for (size_t i = 0; i < kFiles; ++i) {
            s.Geometry = records[i];
            halvo::DetermineSyntax(s, names[i]);
        }
        benchmark::DoNotOptimize(s.Geometry.Syntax);
    }
    if (!s.WarningsFlag) state.SkipWithError("a conflict question silenced the warnings");
    state.counters["per_file"] = benchmark::Counter(double(kFiles), benchmark::Counter::kIsIterationInvariantRate |
                                                                         benchmark::Counter::kInvert);
    state.SetLabel("target < 50 ms");
}
BENCHMARK(BM_DetermineSyntax1000)->Unit(benchmark::kMillisecond);

}  // namespace
