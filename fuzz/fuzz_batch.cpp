// Feeds arbitrary bytes to the batch reader (with the repair offered and answered by the first byte),
// then saves what was read and reads the result back.
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <string>

#include "session/batch_commands.h"
#include "session/batch_file.h"
#include "session/main_view.h"
#include "fuzz_support.h"
#include "session/session.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace halvo;
    const std::string dir = halvo::fuzz::ScratchDir("batch");
    const int choice = size > 0 ? data[0] : 0;
    fuzz::WriteInput(dir + "/fz.spc", data, size);
    {
        std::ofstream out(dir + "/fz.txt", std::ios::binary | std::ios::trunc);
        out.write(reinterpret_cast<const char*>(data), std::streamsize(size / 2));
    }
    ScriptedAnswers answers({choice % 3 == 0 ? mb::Yes : choice % 3 == 1 ? mb::No : mb::Cancel});
    Session s;
    s.ui = &answers;
    s.FilePath = dir;
    s.Geometry.Syntax = std::int16_t(choice & 1 ? 2 : -1);
    ReadBatch(s, dir + "/fz.spc");
    for (int i = 0; i < int(s.lists.Combo1.items.size()) && i < 8; ++i) Combo1_Click(s, i);
    s.dlg_FileName = "out.spc";
    SaveBatchFile(s);
    Session again;
    again.ui = &answers;
    again.FilePath = dir;
    ReadBatch(again, dir + "/out.spc");
    return 0;
}
