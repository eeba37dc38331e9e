// The tagged cross-section format: identifiers in a fixed order, each at the start of a line of its
// own; lines between two identifiers belong to the first (other tags, continued comments).
#include <array>

#include "geometry/aux_files_internal.h"
#include "session/session.h"
#include "text/numbers.h"
#include "text/tokens.h"

namespace halvo::auxfile {

namespace {

struct Identifier {
    const char* tag;
    const char* missing;
};

constexpr std::array<Identifier, 9> kIdentifiers{{
    {"comment:", ""},
    {"version:", "Identifier 'Version: R33' not found"},
    {"source:", "Identifier 'Source:' not found"},
    {"reaction:", "Identifier 'Reaction:' not found"},
    {"theta:", "Identifier 'Theta:' not found"},
    {"units:", "Identifier 'Units:' not found"},
    {"name:", "Identifier 'Name:' not found"},
    {"data:", "Identifier 'Data:' not found"},
    {"enddata:", "Identifier 'EndData:' not found"},
}};
enum : size_t { kTheta = 4, kUnits = 5, kSource = 2, kReaction = 3, kData = 7, kEndData = 8 };

bool StartsWithTag(std::string_view line, const char* tag) {
    const std::string_view t(tag);
    return line.size() >= t.size() && text::EqualsIgnoreCase(line.substr(0, t.size()), t);
}

}  // namespace

NonRScan CheckR33(Session& s, const std::string& file, NumberedLines& in, const std::string&, bool quiet,
                  std::int16_t& errors, std::int16_t& warnings) {
    NonRScan scan;
    const std::string formatTitle = Fill("Non-Rutherford file has illegal R33 format <file>", {{"<file>", file}});
    std::array<std::string, kIdentifiers.size()> values;
    size_t next = 1;  // the first line holds "comment:"
    WordCutter words;
    std::string raw;
    while (next < kIdentifiers.size() && in.next(raw)) {
        const std::string_view line = Stripped(raw);
        if (StartsWithTag(line, kIdentifiers[next].tag)) {
            values[next] = text::Trim(Stripped(line.substr(std::string_view(kIdentifiers[next].tag).size())));
            ++next;
            continue;
        }
        if (next != kEndData || line.empty()) continue;
        // Inside the data: numbers only, the energy first.
        const auto& w = words(line);
        if (!AllNumeric(w)) {
            WarningBox(s,
                       Fill("Non-Rutherford file in R33 format contains illegal string: <line> at line number<n>",
                            {{"<line>", raw}, {"<n>", text::CStr(in.number())}}),
                       formatTitle);
            Count(errors);
            return scan;
        }
        const float energy = text::CSng(text::Val(w.front()));
        if (scan.lines == 0) scan.first = energy;
        scan.last = energy;
        Count(scan.lines);
    }
    if (next < kIdentifiers.size()) {
        WarningBox(s, kIdentifiers[next].missing, formatTitle);
        Count(errors);
        return scan;
    }
    scan.legal = true;
    const float theta = text::CSng(text::Val(values[kTheta]));
    const std::string sample = text::CStr(int(s.CurrentSample));
    if (theta != s.Geometry.Scatter) {
        WarningBox(s,
                   Fill("R33 file (nonRBS cross-sections) is for scattering angle <a> not value in Geo file <b>",
                        {{"<a>", text::CStr(theta)}, {"<b>", text::CStr(s.Geometry.Scatter)}}),
                   Fill("VerifyNonRFile warning (<sample>)", {{"<sample>", sample}}));
        Count(warnings);
    }
    if (!quiet)
        WarningBox(s,
                   Fill("R33 file <file> has<n> lines,    and has cross-sections between <low>keV and <high>keV.    Units: <units>; source: <source>; reaction: <reaction>; theta: <theta>",
                        {{"<file>", file},
                         {"<n>", text::CStr(int(scan.lines))},
                         {"<low>", text::CStr(scan.first)},
                         {"<high>", text::CStr(scan.last)},
                         {"<units>", values[kUnits]},
                         {"<source>", values[kSource]},
                         {"<reaction>", values[kReaction]},
                         {"<theta>", values[kTheta]}}),
                   Fill("VerifyNonRFile for <file> (R33): OK for Sample Number = <n> and Geofile = <g>",
                        {{"<file>", file}, {"<n>", sample}, {"<g>", s.Geometry.Name}}),
                   mb::Information);
    return scan;
}

}  // namespace halvo::auxfile
