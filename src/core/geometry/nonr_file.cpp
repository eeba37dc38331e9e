// Non-Rutherford cross-section files: finding the file, telling the two formats apart, the energy
// range, and the offer to fix a bad file in the text editor.
#include <exception>

#include "geometry/aux_files.h"
#include "geometry/aux_files_internal.h"
#include "platform/files.h"
#include "session/session.h"
#include "text/lines.h"
#include "text/numbers.h"
#include "text/tokens.h"

namespace halvo {

namespace auxfile {

const std::vector<std::string>& WordCutter::operator()(std::string_view line) {
    static const std::string none;
    words_.clear();
    buffer_.assign(line);
    while (!IsBlank(buffer_)) {
        std::string word = text::NextToken(buffer_, none);
        if (word.empty()) {
            // A tab or LF right at the front: NextToken trims blanks only.
            const auto at = buffer_.find_first_not_of(" \t\n");
            if (at == std::string::npos) break;
            buffer_.erase(0, at);
            continue;
        }
        words_.push_back(std::move(word));
    }
    return words_;
}

std::vector<std::string> Words(std::string line) { return WordCutter()(line); }

bool AllNumeric(const std::vector<std::string>& words) {
    for (const auto& w : words)
        if (!text::IsNumeric(w)) return false;
    return true;
}

bool IsBlank(std::string_view line) { return line.find_first_not_of(" \t") == std::string_view::npos; }

std::string_view Stripped(std::string_view line) {
    const auto first = line.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    const auto last = line.find_last_not_of(" \t");
    return line.substr(first, last - first + 1);
}

std::string UnderDirectory(const std::string& base, const std::string& path) {
    if (!path.empty() && (path.front() == '/' || path.front() == '\\')) return platform::NormalizeSeparators(path);
    return platform::JoinPath(base, path);
}

std::string NonRPath(const Session& s, const std::string& file) {
    std::string name = text::Trim(file);
    if (name.size() >= 2 && name.front() == '"' && name.back() == '"') name = name.substr(1, name.size() - 2);
    if (name.find_first_of("\\/") != std::string::npos) return UnderDirectory(s.FilePath, name);
    if (s.Aux.EBSFilePath.empty()) return platform::JoinPath(s.FilePath, name);
    return UnderDirectory(s.FilePath, platform::JoinPath(s.Aux.EBSFilePath, name));
}

}  // namespace auxfile

using namespace auxfile;

namespace {

std::string ErrorTitle(const std::string& file) { return Fill("VerifyNonRFile: error for <file>", {{"<file>", file}}); }

// The directory of the cross-section files, without its final separator; false when it is given
// and is no directory.
bool EBSDirectoryUsable(Session& s) {
    std::string& dir = s.Aux.EBSFilePath;
    while (dir.size() > 1 && (dir.back() == '\\' || dir.back() == '/')) dir.pop_back();
    if (dir.empty()) return true;
    const std::string path = UnderDirectory(s.FilePath, dir);
    if (platform::IsDirectory(path)) return true;
    if (const auto found = platform::ResolvePath(path); found && platform::IsDirectory(*found)) return true;
    WarningBox(s, Fill("EBSFilePath <path>does not appear to exist", {{"<path>", dir}}), "VerifyNonRFile error ");
    return false;
}

}  // namespace

bool VerifyNonRFile(Session& s, const std::string& given, bool quiet, std::int16_t& errors, std::int16_t& warnings) {
    if (!EBSDirectoryUsable(s)) {
        Count(errors);
        return false;
    }
    const std::string file = NonRPath(s, given);
    const std::int16_t errorsBefore = errors;
    try {
        const auto found = platform::ResolvePath(file);
        if (!found || platform::IsDirectory(*found)) {
            WarningBox(s, Fill("Non-Rutherford file <file>does not appear to exist", {{"<file>", file}}), ErrorTitle(file));
            Count(errors);
            return false;
        }
        const auto bytes = platform::ReadFileBytes(*found);
        if (!bytes) throw std::runtime_error("unreadable");
        NumberedLines in(*bytes);
        std::string head;
        bool any = false;
        while ((any = in.next(head)) && IsBlank(head)) {
        }
        if (!any) {
            WarningBox(s, "Non-Rutherford file is empty", ErrorTitle(file));
            Count(errors);
            return false;
        }
        const bool r33 = text::Lower(head).find("comment:") != std::string::npos;
        const NonRScan scan = r33 ? CheckR33(s, file, in, head, quiet, errors, warnings)
                                  : CheckPlainNonR(s, file, in, head, quiet, errors);
        if (scan.legal && scan.last < s.Geometry.Energy) {
            WarningBox(s,
                       Fill("Maximum energy (<e> keV) in EBS Xsection file (<file> for geometry file <g>) is less than the beam energy (<E> keV)!",
                            {{"<e>", text::CStr(scan.last)},
                             {"<file>", file},
                             {"<g>", s.Geometry.Name},
                             {"<E>", text::CStr(s.Geometry.Energy)}}),
                       Fill("VerifyNonRFile warning (<sample>)", {{"<sample>", text::CStr(int(s.CurrentSample))}}));
            Count(warnings);
        }
    } catch (const std::exception&) {
        // A number beyond range, an unreadable file: what the routine's own trap reported.
        WarningBox(s, Fill("Unknown problem with Non-Rutherford file <file>", {{"<file>", file}}), ErrorTitle(file));
        Count(errors);
    }
    return errors == errorsBefore;
}

bool AskFixNonRFile(Session& s, const std::string& file, bool quiet) {
    for (;;) {
        std::int16_t errors = 0, warnings = 0;
        if (VerifyNonRFile(s, file, quiet, errors, warnings)) return true;
        const std::string path = NonRPath(s, file);
        // No is the default button, so that a run without answers ends.
        int buttons = mb::YesNoCancel + mb::Question + mb::DefaultButton2;
        std::string suffix = " (Press Cancel to silence this message and default to 'No')";
        WarningBox(s, Fill("Do you want to fix the errors in file <file>", {{"<file>", path}}),
                   "Geometry2.check1:  bad format in NonRutherford file", buttons, suffix);
        // With warnings off nothing is asked and the answer stays No.
        if (buttons != mb::Yes) return false;
        if (s.Aux.EditFile) {
            const auto found = platform::ResolvePath(path);
            const std::string& target = found ? *found : path;
            s.Aux.EditFile(Fill("notepad.exe <file>", {{"<file>", target}}), target);
        }
        MsgBox(s, "Pausing until you are ready ... (press OK to continue)", mb::OKOnly,
               "Geometry2.check1:  bad format in NonRutherford file");
    }
}

}  // namespace halvo
