#pragma once
// Pieces shared by the checks of auxiliary files: how their lines are cut and where their names point.
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "text/lines.h"
#include "text/pattern.h"

namespace halvo {

struct Session;

namespace auxfile {

using text::Fill;

// The words of a line as the engine's reader cuts them (blanks, tabs, and a minus after a number
// with an exponent).
std::vector<std::string> Words(std::string line);
// The same, reusing its buffers from line to line (for long tables).
class WordCutter {
public:
    const std::vector<std::string>& operator()(std::string_view line);

private:
    std::string buffer_;
    std::vector<std::string> words_;
};
bool AllNumeric(const std::vector<std::string>& words);
// Nothing but blanks and tabs.
bool IsBlank(std::string_view line);
// The line without leading and trailing blanks and tabs.
std::string_view Stripped(std::string_view line);

// `path` as it stands when absolute, else under `base` (the working directory for relative names).
std::string UnderDirectory(const std::string& base, const std::string& path);

// Where a cross-section file named in a geometry is: quotes dropped, a bare name taken from
// EBSFilePath (or the working directory when that is empty). No check, no message.
std::string NonRPath(const Session& s, const std::string& file);

// One cross-section table as far as the checks need it.
struct NonRScan {
    bool legal = false;
    std::int16_t lines = 0;    // data lines
    float first = 0, last = 0;  // energies of the first and last data line, keV
};

// A file's lines in turn, with the number of the line last read (from 1).
class NumberedLines {
public:
    explicit NumberedLines(std::string_view bytes) : reader_(bytes) {}
    bool next(std::string& line) {
        if (!reader_.next(line)) return false;
        ++number_;
        return true;
    }
    int number() const { return number_; }

private:
    text::LineReader reader_;
    int number_ = 0;
};

// The two formats. `head` is the file's first non-blank line, the last one `in` gave. Each reports
// what it finds and counts into errors and warnings.
NonRScan CheckR33(Session& s, const std::string& file, NumberedLines& in, const std::string& head, bool quiet,
                  std::int16_t& errors, std::int16_t& warnings);
NonRScan CheckPlainNonR(Session& s, const std::string& file, NumberedLines& in, const std::string& head,
                        bool quiet, std::int16_t& errors);

inline void Count(std::int16_t& n) {
    if (n < 32767) ++n;
}

}  // namespace auxfile
}  // namespace halvo
