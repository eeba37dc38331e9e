#pragma once
// Golden cases of the auxiliary-file checks, kept in tests/data/geometry/aux/*_cases.txt:
//
//   == name of the case
//   call: FILE [more words]          what the routine is given
//   set: key=value key=value ...     settings of the session (each test documents its keys)
//   answers: yes,no,...              answers to the boxes in turn (default answers after them)
//   expect: words                    the result, as the test prints it
//   [title] text                     the transcript, one box a line (a text with line breaks
//   ...                              continues on the next lines)
//
// Lines starting with "#" before "call:" are comments. In the transcript, <ebs> and <dir> stand
// for the scratch directories.
#include <map>
#include <string>
#include <vector>

namespace halvo::test {

struct AuxCase {
    std::string name;
    std::vector<std::string> call;
    std::map<std::string, std::string> set;
    std::vector<int> answers;
    std::string expect;
    std::string transcript;  // lines ended by "\n"
    std::vector<std::string> head;  // the case's lines before "expect:", as written
};

struct AuxCaseFile {
    std::vector<std::string> preamble;  // lines before the first case
    std::vector<AuxCase> cases;
};

std::vector<AuxCase> ReadAuxCases(const std::string& relative);
AuxCaseFile ReadAuxCaseFile(const std::string& relative);

// With HALVO_REGOLD set in the environment, a golden test writes what it got back into its case
// file (in the source tree) for review, instead of comparing.
bool Regold();
void WriteAuxCaseFile(const std::string& relative, const AuxCaseFile& file);

// Replaces every occurrence of `what` by `with`.
std::string ReplaceAll(std::string s, const std::string& what, const std::string& with);

}  // namespace halvo::test
