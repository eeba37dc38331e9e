#pragma once
// Formula files: a concentration or range given as a formula the engine evaluates and fits. The
// front end never evaluates one; it only proves that the engine will be able to parse it, and says
// exactly where it can't.
//
// Line 1 is the formula (at most 250 characters, any case); then one control line per distinct
// parameter a0..a9: starting value, lower limit, upper limit, flag 0 or 1.
#include <string>
#include <string_view>
#include <vector>

#include "session/session.h"

namespace halvo {

// The file kind as the program names it to a user.
inline constexpr const char* kFormulaFileKind = "Elemental Concentration Formula File - see VKS manual Section 3.4";

// Item classes of the formula language, as ClassifyItem returns them.
namespace formula {
inline constexpr int Unrecognised = -1, Number = 0, Sign = 1, Operator = 2, Function = 3, Parameter = 4,
                     Variable = 5, Open = 6, Close = 7;
}

// The class of one item, case ignored: an empty item is unrecognised; "**" counts as "^".
int ClassifyItem(std::string_view item);

// What a check found, for callers that show more than the verdict.
struct FormulaCheck {
    bool passes = false;
    bool cancelled = false;          // a box was answered Cancel and the check stopped there
    std::string formula;             // the first line, lower case ("" when the file is missing)
    int parameters = 0;              // distinct a0..a9 in the formula
    std::vector<std::string> items;  // the formula cut into items, once it got that far
};

// Checks the formula file `file` (a name without a directory is looked up in the working directory,
// case ignored) and reports every fault found through the session's message port. Each report but
// the missing-file warning offers OK and Cancel: OK goes on looking, Cancel stops at once.
// A file that can't be read (an empty one has no formula line) raises a RuntimeFault for the
// caller's trap.
FormulaCheck CheckFormulaFile(Session& s, const std::string& file);
// True when the formula passes, false when any fault was reported.
bool checkFormula(Session& s, const std::string& file);

// The formula spaced out into items as the check cuts it, upper case, with the number of distinct
// parameters it uses.
std::string SpaceOutFormula(std::string_view formula, int& parameters);

// "1st ", "2nd ", "3rd ", then "4th ", ... "21th ": the trailing blank is part of the messages.
std::string Ordinal(int n);

}  // namespace halvo
