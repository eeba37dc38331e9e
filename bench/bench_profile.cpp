// A large profile: 500 layers for a structure of 20 logical elements with roughness model 1 (the
// roughness and its fit flag behind the proportions), and a flags file that fits it.
// The files live under the temporary directory (TMPDIR).
#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "sample/profile_file.h"
#include "sample/variation_flags.h"
#include "session/session.h"

namespace {

constexpr int kLayers = 500, kElements = 20;

struct LargeProfile {
    std::string dir;
    LargeProfile() {
        dir = (std::filesystem::temp_directory_path() / "halvo-bench-profile").string();
        std::filesystem::remove_all(dir);
        std::filesystem::create_directories(dir);
        std::ofstream prf(dir + "/big.prf", std::ios::binary);
        prf << kLayers << "\r\n";
        for (int layer = 1; layer <= kLayers; ++layer) {
            prf << (100 + layer) << ".5";
            for (int e = 1; e <= kElements; ++e) prf << " " << ((layer + e) % 7 == 0 ? 0.0 : 0.125 * e);
            prf << " 12.25 1\r\n";
        }
        std::ofstream str(dir + "/big.str", std::ios::binary);
        str << "100 5000\r\n" << kElements << "\r\n";
        for (int e = 1; e <= kElements; ++e) str << "Si 1 O 2 2.2 Al 1 N 1\r\n0 0\r\n0 1\r\n";
        str << "ROUGH Gauss\r\n1 0 0\r\n0 0\r\n0 0\r\n0 0\r\n";
        std::ofstream ord(dir + "/VKSPRF.ORD", std::ios::binary);
        ord << kLayers << "\r\n";
        for (int layer = 1; layer <= kLayers; ++layer) {
            ord << "1";
            for (int c = 1; c <= kElements + 1; ++c) ord << ((layer + c) % 3 ? "  1" : "  0");
            ord << "\r\n";
        }
    }
};

const LargeProfile& Files() {
    static LargeProfile files;
    return files;
}

// A session with the structure of the files in memory; run speed "x" checks roughness and fit flag.
struct BenchSession {
    halvo::ScriptedAnswers answers;
    halvo::Session s;
    BenchSession() {
        s.ui = &answers;
        s.FilePath = Files().dir;
        s.Structure.NLE = kElements;
        s.Structure.HasRoughness = true;
        s.Structure.Roughness.ModelA = 1;
        s.Structure.Roughness.ModelFlagsRead = true;
        s.TCNdummy.Speed.assign(1, 'x');  // local search
    }
    void failIfReported(benchmark::State& state) const {
        if (!answers.transcript().empty()) state.SkipWithError(answers.transcript().front().message.text.c_str());
    }
};

void BM_ReadPRF(benchmark::State& state) {
    BenchSession b;
    for (auto _ : state) {
        halvo::ProfileRecord rec;
        if (!halvo::ReadPRF(b.s, "big", rec, ".prf")) state.SkipWithError("not read");
        benchmark::DoNotOptimize(rec.Fractions(kElements, kLayers));
    }
    b.failIfReported(state);
}
BENCHMARK(BM_ReadPRF)->Unit(benchmark::kMicrosecond);

void BM_readPRFrecWithFlags(benchmark::State& state) {
    BenchSession b;
    for (auto _ : state)
        if (!halvo::readPRFrec(b.s, "big", "prf", true)) state.SkipWithError("not read");
    if (b.s.Profile.FitFlags(1, 1) != 1 || b.s.Profile.FitFlags(1, 2) != 0) state.SkipWithError("flags file not applied");
    b.failIfReported(state);
}
BENCHMARK(BM_readPRFrecWithFlags)->Unit(benchmark::kMicrosecond);

void BM_PRFsetraw(benchmark::State& state) {
    BenchSession b;
    for (auto _ : state) {
        halvo::PRFarr arr;
        if (!halvo::PRFsetraw(b.s, arr, "big.prf")) state.SkipWithError("not read");
        benchmark::DoNotOptimize(arr.PRFvalues(0, kLayers));
    }
    b.failIfReported(state);
}
BENCHMARK(BM_PRFsetraw)->Unit(benchmark::kMicrosecond);

void BM_chkPRF(benchmark::State& state) {
    BenchSession b;
    for (auto _ : state)
        if (!halvo::chkPRF(b.s, "big", "big")) state.SkipWithError("check failed");
    b.failIfReported(state);
}
BENCHMARK(BM_chkPRF)->Unit(benchmark::kMicrosecond);

// Read raw and write the whole file again (two swaps leave it as it was).
void BM_PRFswapRewrite(benchmark::State& state) {
    BenchSession b;
    for (auto _ : state)
        if (!halvo::PRFswap(b.s, 3, 7, "big.prf")) state.SkipWithError("not written");
    b.failIfReported(state);
}
BENCHMARK(BM_PRFswapRewrite)->Unit(benchmark::kMicrosecond);

void BM_WriteVariationFlags(benchmark::State& state) {
    BenchSession b;
    halvo::readPRFrec(b.s, "big", "prf", true);
    for (auto _ : state)
        if (!halvo::WriteVariationFlags(b.s, b.s.Profile)) state.SkipWithError("not written");
    b.failIfReported(state);
}
BENCHMARK(BM_WriteVariationFlags)->Unit(benchmark::kMicrosecond);

}  // namespace
