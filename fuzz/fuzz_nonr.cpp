// Feeds arbitrary bytes to the cross-section check as the file's contents (R33 or plain, as the first
// line decides), answering the boxes with OK or Cancel as the first byte's bits say, and checks what
// must always hold of a result.
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <string>

#include "geometry/aux_files.h"
#include "fuzz_support.h"
#include "session/session.h"

namespace {

using halvo::fuzz::Require;

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace halvo;
    const std::string dir = halvo::fuzz::ScratchDir("nonr");
    fuzz::WriteInput(dir + "/fz.r33", data, size);
    const unsigned choice = size > 0 ? data[0] : 0;
    ScriptedAnswers answers(fuzz::OkCancelScript(choice));
    Session s;
    s.ui = &answers;
    s.FilePath = dir;
    s.Aux.EBSFilePath = dir;
    s.Geometry.Scatter = 170;
    s.Geometry.Energy = float(choice) * 10;
    const bool quiet = choice & 0x80;
    std::int16_t errors = 0, warnings = 0;
    const bool pass = VerifyNonRFile(s, "FZ.R33", quiet, errors, warnings);
    // The verdict is the error count; every error and warning was reported (until a Cancel silenced).
    Require(pass == (errors == 0));
    Require(errors <= 1 && warnings <= 2);
    Require(answers.transcript().size() <= 3);
    if (!pass && s.WarningsFlag) Require(!answers.transcript().empty());
    if (pass && quiet) Require(answers.transcript().size() <= size_t(warnings));
    return 0;
}
