#pragma once
// What the fuzz targets share: a scratch folder per process (in memory where there is one, since every
// run rewrites files), the shipped data tables loaded once, and a check that ends the run loudly.
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <string>

#include "sample/element_table.h"
#include "session/messages.h"
#include "session/session.h"

namespace halvo::fuzz {

inline std::string MakeScratchDir(const std::string& tag) {
    std::string templ = (access("/dev/shm", W_OK) == 0 ? "/dev/shm/halvo-fuzz-" : "/tmp/halvo-fuzz-") + tag + "-XXXXXX";
    const char* made = mkdtemp(templ.data());
    if (!made) std::abort();
    return made;
}

// The program's one scratch folder, made at the first call.
inline const std::string& ScratchDir(const std::string& tag) {
    static const std::string dir = MakeScratchDir(tag);
    return dir;
}

inline void WriteInput(const std::string& path, const uint8_t* data, size_t size) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(reinterpret_cast<const char*>(data), std::streamsize(size));
}

inline void Require(bool condition) {
    if (!condition) std::abort();
}

// The tables in examples/engine (or $HALVO_ENGINE_DIR).
inline std::string EngineDir() {
    if (const char* dir = std::getenv("HALVO_ENGINE_DIR")) return dir;
    const std::string here = __FILE__;
    return here.substr(0, here.rfind('/')) + "/../examples/engine";
}

inline const DataTables& EngineTables() {
    static const DataTables tables = [] {
        DefaultAnswers answers;
        Session s;
        s.ui = &answers;
        s.PathVKS = EngineDir();
        if (!LoadElementTables(s) || !s.Tables.CompoundsLoaded) std::abort();
        return s.Tables;
    }();
    return tables;
}

// Answers OK or Cancel to the first eight boxes as the bits of `choice` say.
inline std::vector<int> OkCancelScript(unsigned choice) {
    std::vector<int> script;
    for (int bit = 0; bit < 8; ++bit) script.push_back(choice >> bit & 1 ? mb::Cancel : mb::OK);
    return script;
}

}  // namespace halvo::fuzz
