// Reading and saving a large batch: 2,000 samples of 6 spectra each, every file it names present.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "session/batch_file.h"
#include "session/session.h"

namespace {

struct LargeBatch {
    std::string dir;
    LargeBatch() {
        dir = (std::filesystem::temp_directory_path() / "halvo-bench-batch").string();
        if (std::filesystem::exists(dir + "/complete")) return;  // made by an earlier run
        std::filesystem::remove_all(dir);
        std::filesystem::create_directories(dir);
        std::ofstream spc(dir + "/big.spc", std::ios::binary);
        auto touch = [&](const std::string& name) { std::ofstream(dir + "/" + name) << ""; };
        for (int s = 1; s <= 2000; ++s) {
            const std::string tag = std::to_string(s);
            touch("st" + tag + ".str");
            for (int f = 1; f <= 6; ++f) {
                const std::string data = "d" + tag + "_" + std::to_string(f) + ".dat";
                const std::string geo = "g" + std::to_string(f);
                touch(data);
                if (s == 1) touch(geo + ".geo");
                if (f == 1)
                    spc << data << "   12.5  " << geo << "  st" << tag << "   1  \r\n";
                else if (f == 3)
                    spc << data << "   7.25  " << geo << "  (1)\r\n";
                else
                    spc << data << "   12.5  " << geo << "\r\n";
            }
        }
        spc.close();
        std::ofstream txt(dir + "/big.txt", std::ios::binary);
        for (int s = 0; s < 2002; ++s) txt << "comment " << s << "\r\n###########################\r\n";
        txt.close();
        std::ofstream(dir + "/complete") << "";
    }
};

const LargeBatch& Batch() {
    static LargeBatch batch;
    return batch;
}

void BM_ReadBatch2000x6(benchmark::State& state) {
    const auto& b = Batch();
    halvo::DefaultAnswers answers;
    for (auto _ : state) {
        halvo::Session s;
        s.ui = &answers;
        s.FilePath = b.dir;
        halvo::ReadBatch(s, b.dir + "/big.spc");
        if (s.NSamples != 2000) state.SkipWithError("batch not read");
        benchmark::DoNotOptimize(s.Samples.data());
    }
}
BENCHMARK(BM_ReadBatch2000x6)->Unit(benchmark::kMillisecond);

void BM_SaveBatch2000x6(benchmark::State& state) {
    const auto& b = Batch();
    halvo::ScriptedAnswers answers;
    halvo::Session s;
    s.ui = &answers;
    s.FilePath = b.dir;
    halvo::ReadBatch(s, b.dir + "/big.spc");
    answers.clear();  // the fixture's empty geometries draw the reader's reports; only the save's count here
    s.dlg_FileName = "copy.spc";
    for (auto _ : state) halvo::SaveBatchFile(s);
    if (!answers.transcript().empty()) state.SkipWithError(answers.transcript().front().message.text.c_str());
}
BENCHMARK(BM_SaveBatch2000x6)->Unit(benchmark::kMillisecond);

}  // namespace
