#pragma once
// Case files of the golden tests: "=== name" opens a case, "--- kind" a section of it, and the lines
// up to the next such line belong to that section. Each test says what a section means for its case.
#include <sstream>
#include <string>
#include <vector>

namespace halvo::test {

// "\t" in a case line stands for a tab.
inline std::string Unescape(const std::string& line) {
    std::string out;
    for (size_t i = 0; i < line.size(); ++i) {
        if (line[i] == '\\' && i + 1 < line.size() && line[i + 1] == 't') {
            out += '\t';
            ++i;
        } else {
            out += line[i];
        }
    }
    return out;
}

// A section without the blank lines that end it (the one that separates cases among them).
inline std::vector<std::string> WithoutTrailingBlanks(std::vector<std::string> lines) {
    while (!lines.empty() && lines.back().empty()) lines.pop_back();
    return lines;
}

// The lines, each ended by "\n".
inline std::string JoinLines(const std::vector<std::string>& lines) {
    std::string joined;
    for (const auto& l : lines) joined += l + "\n";
    return joined;
}

// `fill(case, kind, lines)` is called once per section; Case needs a `name` member.
template <class Case, class Fill>
std::vector<Case> ReadCaseFile(const std::string& data, Fill fill) {
    std::vector<Case> cases;
    std::vector<std::string> section;
    std::string kind;
    auto flush = [&] {
        if (!cases.empty() && !kind.empty()) fill(cases.back(), kind, section);
    };
    std::istringstream in(data);
    for (std::string line; std::getline(in, line);) {
        if (line.starts_with("=== ")) {
            flush();
            kind.clear();
            cases.push_back({});
            cases.back().name = line.substr(4);
        } else if (line.starts_with("--- ")) {
            flush();
            kind = line.substr(4);
            section.clear();
        } else if (!kind.empty()) {
            section.push_back(line);
        }
    }
    flush();
    return cases;
}

}  // namespace halvo::test
