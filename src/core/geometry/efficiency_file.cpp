// Detector efficiency files: energy in keV and efficiency in percent, one pair a line, the energies
// strictly monotonic in the direction the first two lines set.
#include <exception>

#include "geometry/aux_files.h"
#include "geometry/aux_files_internal.h"
#include "platform/files.h"
#include "session/session.h"
#include "text/lines.h"
#include "text/numbers.h"

namespace halvo {

using namespace auxfile;

namespace {
constexpr std::string_view kEfficiencyReason = ", Efficiency must be between [0,100]%!";
}

std::int16_t CheckEffiFile(Session& s, const std::string& file) {
    const auto found = platform::ResolvePath(InWorkDir(s, file));
    if (!found || platform::IsDirectory(*found)) return -1;
    const auto bytes = platform::ReadFileBytes(*found);
    if (!bytes) return -1;
    const std::string title = Fill("Module1.CheckEffiFile: <file>", {{"<file>", file}});
    std::int16_t errors = 0, count = 0;
    float first = 0, last = 0;
    int direction = 0;  // +1 increasing, -1 decreasing, once the first pair has set it
    std::string line;
    WordCutter cut;
    text::LineReader reader(*bytes);
    for (int number = 1; reader.next(line); ++number) {
        if (IsBlank(line)) continue;
        // Every problem is told in the words of the efficiency one, with its own reason.
        const auto problem = [&](std::string_view why) {
            WarningBox(s,
                       Fill("Problem with line <line>, Efficiency must be between [0,100]%! (line #<n>) of detector efficiency file",
                            {{"<line>", line}, {"<n>", text::CStr(number)}, {kEfficiencyReason, why}}),
                       title);
            Count(errors);
        };
        const auto& words = cut(line);
        if (words.size() != 2 || !AllNumeric(words)) {
            problem(", two numbers expected: energy (keV) and efficiency (%)");
            continue;
        }
        float energy, efficiency;
        try {
            energy = text::CSng(text::Val(words[0]));
            efficiency = text::CSng(text::Val(words[1]));
        } catch (const std::exception&) {
            problem(", number out of range");
            continue;
        }
        if (efficiency < 0 || efficiency > 100) problem(kEfficiencyReason);
        if (count == 1) direction = energy > last ? 1 : energy < last ? -1 : 0;
        if (count >= 1) {
            if (direction >= 0 && !(energy > last)) problem(", Energy not increasing monotonically");
            if (direction < 0 && !(energy < last)) problem(", Energy not decreasing monotonically");
        }
        if (count == 0) first = energy;
        last = energy;
        Count(count);
    }
    const std::string verdict =
        errors == 0 ? Fill("Detector Efficiency file <file> parsed OK", {{"<file>", file}})
                    : Fill("Detector Efficiency file <file> ", {{"<file>", file}}) +
                          Fill("did not parse OK (<n> errors)", {{"<n>", text::CStr(int(errors))}});
    WarningBox(s,
               verdict + "\n" +
                   Fill("<n> lines in detector efficiency file,  between enegies <a> and <b> (keV)",
                        {{"<n>", text::CStr(int(count))}, {"<a>", text::CStr(first)}, {"<b>", text::CStr(last)}}),
               title, mb::Information);
    return errors;
}

}  // namespace halvo
