// The molecule parser on a mix of the strings a structure file holds (single elements, oxides,
// three-sub-molecule layers with densities and fit marks), and the load of the three data tables.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "sample/element_table.h"
#include "sample/molecule.h"
#include "session/session.h"

namespace {

std::string EngineDir() {
    if (const char* dir = std::getenv("HALVO_ENGINE_DIR")) return dir;
    std::string here = __FILE__;
    return here.substr(0, here.rfind('/')) + "/../examples/engine";
}

const std::vector<std::string>& Mix() {
    static const std::vector<std::string> mix = {
        "Si",
        "Au",
        "28Si 2.3",
        "Si 1 O 2",
        "Al 2 O 3 3.95",
        "Ti 1 O 2",
        "Si ?=1 O 2",
        "Ga 1 As 1",
        "( Si 1 O 2 ) 0.6 ( Al 2 O 3 ) ?=0.3 ( Ti 1 O 2 4.2 ) 0.1",
        "( Ga 1 As 1 ) 9 ( Al 1 As 1 ) ?=1 ( In 1 P 1 ) 1 4.5",
        "( Si 1 N 1 ) ?=1 ( Si 1 O 2 2.2 ) 2 ( Hf 1 O 2 ) 0.5",
        "Ta 2 O 5 8.2",
    };
    return mix;
}

struct Loaded {
    halvo::DefaultAnswers answers;
    halvo::Session session;
    Loaded() {
        session.ui = &answers;
        session.PathVKS = EngineDir();
        if (!halvo::LoadElementTables(session) || !session.Tables.CompoundsLoaded) std::abort();
        session.VKSversionNumber = 9700;
    }
};

void BM_Parse_Mol_Mix(benchmark::State& state) {
    static Loaded loaded;
    const auto& mix = Mix();
    size_t i = 0;
    for (auto _ : state) {
        std::string text = mix[i];
        halvo::Molecule mol;
        std::int16_t position = 0;
        const std::int32_t code = halvo::Parse_Mol(loaded.session, text, mol, position);
        if (code > 0) state.SkipWithError(("refused: " + mix[i]).c_str());
        benchmark::DoNotOptimize(mol.MolAtomicDensity);
        if (++i == mix.size()) i = 0;
    }
    state.SetItemsProcessed(std::int64_t(state.iterations()));
}
BENCHMARK(BM_Parse_Mol_Mix);

void BM_LoadElementTables(benchmark::State& state) {
    halvo::DefaultAnswers answers;
    for (auto _ : state) {
        halvo::Session s;
        s.ui = &answers;
        s.PathVKS = EngineDir();
        if (!halvo::LoadElementTables(s) || !s.Tables.CompoundsLoaded) state.SkipWithError("tables not loaded");
        benchmark::DoNotOptimize(s.Tables.Elements[13].AMASS);
    }
}
BENCHMARK(BM_LoadElementTables)->Unit(benchmark::kMillisecond);

}  // namespace
