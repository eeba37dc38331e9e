#include "aux_case_file.h"

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "session/messages.h"
#include "test_support.h"
#include "text/lines.h"

namespace halvo::test {

namespace {

std::vector<std::string> SplitWords(const std::string& s, char sep = ' ') {
    std::vector<std::string> out;
    std::stringstream in(s);
    std::string w;
    while (std::getline(in, w, sep))
        if (!w.empty()) out.push_back(w);
    return out;
}

}  // namespace

std::string ReplaceAll(std::string s, const std::string& what, const std::string& with) {
    if (what.empty()) return s;
    for (size_t at = s.find(what); at != std::string::npos; at = s.find(what, at + with.size()))
        s.replace(at, what.size(), with);
    return s;
}

std::vector<AuxCase> ReadAuxCases(const std::string& relative) { return ReadAuxCaseFile(relative).cases; }

bool Regold() { return std::getenv("HALVO_REGOLD") != nullptr; }

void WriteAuxCaseFile(const std::string& relative, const AuxCaseFile& file) {
    std::string out;
    for (const auto& line : file.preamble) out += line + "\n";
    for (size_t i = 0; i < file.cases.size(); ++i) {
        const AuxCase& c = file.cases[i];
        out += "== " + c.name + "\n";
        for (const auto& line : c.head) out += line + "\n";
        out += "expect: " + c.expect + "\n" + c.transcript;
        if (i + 1 < file.cases.size()) out += "\n";
    }
    std::ofstream(DataDir() + "/" + relative, std::ios::binary | std::ios::trunc) << out;
}

AuxCaseFile ReadAuxCaseFile(const std::string& relative) {
    AuxCaseFile file;
    std::vector<AuxCase>& cases = file.cases;
    bool inTranscript = false;
    for (const std::string& line : text::SplitLines(ReadData(relative))) {
        if (line.rfind("== ", 0) == 0) {
            cases.push_back({});
            cases.back().name = line.substr(3);
            inTranscript = false;
            continue;
        }
        if (cases.empty()) {
            file.preamble.push_back(line);
            continue;
        }
        AuxCase& c = cases.back();
        if (!inTranscript && line.rfind("expect:", 0) != 0) c.head.push_back(line);
        if (!inTranscript) {
            if (line.empty() || line[0] == '#') continue;
            if (line.rfind("call:", 0) == 0) {
                c.call = SplitWords(line.substr(5));
                continue;
            }
            if (line.rfind("set:", 0) == 0) {
                for (const auto& kv : SplitWords(line.substr(4))) {
                    const auto eq = kv.find('=');
                    if (eq == std::string::npos) throw std::runtime_error("bad setting " + kv + " in " + c.name);
                    c.set[kv.substr(0, eq)] = kv.substr(eq + 1);
                }
                continue;
            }
            if (line.rfind("answers:", 0) == 0) {
                for (const auto& a : SplitWords(line.substr(8), ',')) {
                    const int answer = AnswerFromName(a.front() == ' ' ? a.substr(1) : a);
                    if (answer == 0) throw std::runtime_error("bad answer " + a + " in " + c.name);
                    c.answers.push_back(answer);
                }
                continue;
            }
            if (line.rfind("expect:", 0) == 0) {
                c.expect = line.substr(line.find_first_not_of(' ', 7));
                inTranscript = true;
                continue;
            }
            throw std::runtime_error("unexpected line in " + c.name + ": " + line);
        }
        c.transcript += line + "\n";
    }
    // Blank lines between cases belong to no transcript.
    for (auto& c : cases)
        while (c.transcript.size() >= 2 && c.transcript.compare(c.transcript.size() - 2, 2, "\n\n") == 0)
            c.transcript.pop_back();
    for (auto& c : cases)
        if (c.transcript == "\n") c.transcript.clear();
    for (auto& c : cases)
        while (!c.head.empty() && c.head.back().empty()) c.head.pop_back();
    while (!file.preamble.empty() && file.preamble.back().empty()) file.preamble.pop_back();
    if (!file.preamble.empty()) file.preamble.push_back("");
    return file;
}

}  // namespace halvo::test
