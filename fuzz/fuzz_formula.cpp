// Feeds arbitrary bytes to the formula file checker as the file's contents, answering the boxes with
// OK or Cancel as the first byte's bits say, and checks what must always hold of a result.
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <string>

#include "sample/formula_file.h"
#include "fuzz_support.h"
#include "session/session.h"
#include "text/fault.h"

namespace {

using halvo::fuzz::Require;

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace halvo;
    const std::string dir = halvo::fuzz::ScratchDir("formula");
    fuzz::WriteInput(dir + "/fz.txt", data, size);
    const unsigned choice = size > 0 ? data[0] : 0;
    ScriptedAnswers answers(fuzz::OkCancelScript(choice));
    Session s;
    s.ui = &answers;
    s.FilePath = dir;
    try {
        const FormulaCheck result = CheckFormulaFile(s, "FZ.TXT");
        // Every fault is reported; a pass reports nothing.
        Require(result.passes == answers.transcript().empty());
        Require(result.parameters >= 0 && result.parameters <= 10);
        // Only a Cancel stops a check early, and nothing is asked after it.
        if (result.cancelled) Require(answers.transcript().back().answer == mb::Cancel);
        for (const auto& item : result.items) Require(!item.empty() && ClassifyItem(item) >= -1);
    } catch (const RuntimeFault&) {
        // An empty file or a number out of range: the caller's trap.
    }
    return 0;
}
