// The plain cross-section format: an optional header line of the letters m, t, c (first letter of
// each word), then two numbers a line: energy in keV and cross-section.
#include "geometry/aux_files_internal.h"
#include "session/session.h"
#include "text/numbers.h"
#include "text/tokens.h"

namespace halvo::auxfile {

namespace {

// The header's letters in the order given, or "" when the line is no header: one to three words,
// each starting with a different one of m, t, c. So "m t" is a header, and "m m" is a data line
// (and an illegal one).
std::string HeaderLetters(const std::vector<std::string>& words) {
    if (words.empty() || words.size() > 3) return {};
    std::string letters;
    for (const auto& w : words) {
        const char c = text::Lower(w.substr(0, 1)).front();
        if ((c != 'm' && c != 't' && c != 'c') || letters.find(c) != std::string::npos) return {};
        letters += c;
    }
    return letters;
}

std::string HeaderText(const std::string& letters) {
    switch (letters.size()) {
        case 1:
            if (letters == "m") return "Non-Rutherford file starts with mbarn/sr keyword";
            if (letters == "t") return "Non-Rutherford file starts with total cross-section keyword (NRA only)";
            return "Non-Rutherford file starts with centre of mass system (NRA only)";
        case 2:
            return "Non-Rutherford file starts with total cross-section and centre of mass system (NRA only)";
        default:
            return "Non-Rutherford file starts with total cross-section and centre of mass system, in mbarns";
    }
}

}  // namespace

NonRScan CheckPlainNonR(Session& s, const std::string& file, NumberedLines& in, const std::string& head,
                        bool quiet, std::int16_t& errors) {
    NonRScan scan;
    const std::string sample = text::CStr(int(s.CurrentSample));
    WordCutter words;
    const std::string letters = HeaderLetters(words(head));
    if (!letters.empty() && !quiet)
        WarningBox(s, HeaderText(letters), Fill("VerifyNonRFile (<sample>)", {{"<sample>", sample}}), mb::Information);
    // Without a header the first line is the first data line.
    std::string line = letters.empty() ? head : std::string();
    for (bool more = letters.empty() || in.next(line); more; more = in.next(line)) {
        if (IsBlank(line)) continue;
        const auto& w = words(line);
        if (w.size() != 2 || !AllNumeric(w)) {
            WarningBox(s, Fill("Non-Rutherford file contains illegal string: <line>", {{"<line>", line}}),
                       Fill("VerifyNonRFile: error for <file>", {{"<file>", file}}));
            Count(errors);
            WarningBox(s, "Verify Non-Rutherford cross-section file: ILLEGAL for VKS (it will ignore this EBS!)",
                       Fill("VerifyNonRFile (<file>): ERROR for Sample Number = <n>", {{"<file>", file}, {"<n>", sample}}));
            return scan;
        }
        const float energy = text::CSng(text::Val(w[0]));
        if (scan.lines == 0) scan.first = energy;
        scan.last = energy;
        Count(scan.lines);
    }
    scan.legal = true;
    if (!quiet)
        WarningBox(s,
                   Fill("File <file> has <n> lines,  The header is <h>: m is mb/sr, t is total Xsection (NRA), c is centre of mass.  Units are Relative to Rutherford, lab system (or mbarns/sr for NRA).",
                        {{"<file>", file}, {"<n>", text::CStr(int(scan.lines))}, {"<h>", letters}}),
                   Fill("VerifyNonRFile (<file>): OK for Sample Number = <n>", {{"<file>", file}, {"<n>", sample}}),
                   mb::Information);
    return scan;
}

}  // namespace halvo::auxfile
