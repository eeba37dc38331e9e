#pragma once
// The case files of the profile tests (tests/data/sample/profile/*.txt). A case starts with
// "=== name"; "--- section" starts one of its sections, whose lines run to the next marker. Lines
// before the first case are comments. In file sections a "$" at the end of a line marks where the
// line ends (so that trailing blanks show), and "<none>" means that there is no file at all.
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "test_support.h"
#include "text/lines.h"

namespace halvo::test {

struct ProfileCase {
    std::string name;
    std::map<std::string, std::vector<std::string>> sections;

    bool has(const std::string& section) const { return sections.count(section) > 0; }
    const std::vector<std::string>& lines(const std::string& section) const {
        static const std::vector<std::string> none;
        const auto it = sections.find(section);
        return it == sections.end() ? none : it->second;
    }
    // A file section as bytes with CR LF ends; nothing when the section is absent or "<none>".
    std::optional<std::string> file(const std::string& section) const {
        if (!has(section)) return std::nullopt;
        auto l = lines(section);
        while (!l.empty() && l.back().empty()) l.pop_back();
        if (l.size() == 1 && l[0] == "<none>") return std::nullopt;
        std::string bytes;
        for (auto line : l) {
            if (!line.empty() && line.back() == '$') line.pop_back();
            bytes += line + "\r\n";
        }
        return bytes;
    }
    // A text section with "\n" ends, trailing empty lines dropped.
    std::string text(const std::string& section) const {
        auto l = lines(section);
        while (!l.empty() && l.back().empty()) l.pop_back();
        std::string out;
        for (const auto& line : l) out += line + "\n";
        return out;
    }
    std::string word(const std::string& section) const {
        const auto& l = lines(section);
        return l.empty() ? std::string() : l.front();
    }
};

inline std::vector<ProfileCase> ReadProfileCases(const std::string& relative) {
    std::vector<ProfileCase> cases;
    std::vector<std::string>* section = nullptr;
    for (const auto& line : text::SplitLines(ReadData(relative))) {
        if (line.rfind("=== ", 0) == 0) {
            cases.push_back({line.substr(4), {}});
            section = nullptr;
        } else if (line.rfind("--- ", 0) == 0 && !cases.empty()) {
            section = &cases.back().sections[line.substr(4)];
        } else if (section) {
            section->push_back(line);
        }
    }
    return cases;
}

}  // namespace halvo::test
