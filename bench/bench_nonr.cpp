// Checking a large cross-section file: a 2,000-line R33 file (1,980 data lines of four numbers) and
// a plain file of the same size, quiet, as a geometry read checks them.
// The files live under the temporary directory (TMPDIR).
#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "geometry/aux_files.h"
#include "session/session.h"

namespace {

constexpr int kLines = 2000;

struct LargeFiles {
    std::string dir;
    LargeFiles() {
        dir = (std::filesystem::temp_directory_path() / "halvo-bench-nonr").string();
        std::filesystem::remove_all(dir);
        std::filesystem::create_directories(dir);
        std::ofstream r33(dir + "/big.r33", std::ios::binary);
        const char* head[] = {"Comment: a long table for timing", "  continued", "Version: R33", "Source: bench",
                              "Address1: none", "Reaction: 28Si(p,p)28Si", "Theta: 170", "Units: rr", "Name: si",
                              "Nucleus: 28Si", "Qvalue: 0", "Distribution: energy", "Enfactors: 1 0 0 0",
                              "Sigfactors: 1 0", "Data:"};
        int written = 0;
        for (const char* h : head) r33 << h << "\r\n", ++written;
        for (int i = 0; written < kLines - 1; ++i, ++written)
            r33 << 500 + i * 2.5 << " 0.0 " << 1.0 + (i % 97) * 0.0137 << " 0.012\r\n";
        r33 << "EndData:\r\n";
        std::ofstream plain(dir + "/big.dat", std::ios::binary);
        plain << "m t\r\n";
        for (int i = 1; i < kLines; ++i) plain << 500 + i * 2.5 << " " << 1.0 + (i % 97) * 0.0137 << "\r\n";
    }
};

const LargeFiles& Files() {
    static LargeFiles files;
    return files;
}

void Verify(benchmark::State& state, const char* name) {
    halvo::ScriptedAnswers answers;
    halvo::Session s;
    s.ui = &answers;
    s.FilePath = Files().dir;
    s.Aux.EBSFilePath = Files().dir;
    s.Geometry.Scatter = 170;
    s.Geometry.Energy = 3000;
    for (auto _ : state) {
        std::int16_t errors = 0, warnings = 0;
        const bool pass = halvo::VerifyNonRFile(s, name, true, errors, warnings);
        if (!pass || warnings != 0) state.SkipWithError("the large file did not pass");
        benchmark::DoNotOptimize(errors);
    }
}

void BM_VerifyR33(benchmark::State& state) { Verify(state, "big.r33"); }
void BM_VerifyPlain(benchmark::State& state) { Verify(state, "big.dat"); }

BENCHMARK(BM_VerifyR33)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_VerifyPlain)->Unit(benchmark::kMicrosecond);

}  // namespace
