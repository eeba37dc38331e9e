#include "sample/formula_file.h"

#include <array>
#include <optional>

#include "platform/files.h"
#include "text/fault.h"
#include "text/lines.h"
#include "text/numbers.h"
#include "text/tokens.h"

namespace halvo {
namespace {

const std::string kErrorTitle = "checkFormula error";
const std::string kWarningTitle = "checkFormula warning";
const std::string kInFormula = " in formula ";
const std::string kInFile = " in file ";
const std::string kParameterLineIn = " parameter line in formula file ";
// The bad-number and the out-of-limits reports end alike: one text, kept shared on purpose.
const std::string kNotValidNumber = " is not a valid number.";
constexpr size_t kMaxLength = 250;

// The function names in the order they are spaced out: the group of five letters, then four, then
// three. A longer name is upper-cased first, so a shorter one inside it ("sin" in "asin", "log" in
// "log10") is never found again.
constexpr std::array<std::string_view, 23> kFunctions = {
    "log10", "anint", "floor",                                                                   //
    "asin",  "acos",  "atan",  "sinh", "cosh", "tanh", "sind", "cosd", "tand", "nint", "aint",  //
    "sqrt",  "erfc",                                                                             //
    "sin",   "cos",   "tan",   "log",  "exp",  "abs",  "erf",
};
constexpr std::array<std::string_view, 10> kParameters = {"a0", "a1", "a2", "a3", "a4",
                                                          "a5", "a6", "a7", "a8", "a9"};
// Spaced out after the functions and parameters; "**" has gone to "^" by then.
constexpr std::array<std::string_view, 8> kSymbols = {"+", "-", "*", "/", "^", "t", "(", ")"};

// Every `name` in `text` becomes `replacement`; the search goes on behind each find.
std::string ReplaceAll(const std::string& text, std::string_view name, std::string_view replacement, bool& found) {
    std::string out;
    out.reserve(text.size() + 8);
    size_t from = 0;
    for (size_t at; (at = text.find(name, from)) != std::string::npos; from = at + name.size()) {
        out.append(text, from, at - from);
        out.append(replacement);
        found = true;
    }
    out.append(text, from, std::string::npos);
    return out;
}

std::string Spaced(std::string_view name) { return " " + text::Upper(name) + " "; }

// The states of the item walk.
enum State { GivenUp = 0, Start = 1, AfterOperand = 2, AfterFunction = 3, AfterClose = 4, AfterOperator = 5 };

struct Transition {
    unsigned faultIn;  // bit per state in which the item is a syntax fault
    State next;
    int nesting;
};

constexpr unsigned Bit(State s) { return 1u << s; }

Transition TransitionOf(int itemClass) {
    switch (itemClass) {
        case formula::Sign: return {Bit(AfterOperator), AfterOperator, 0};
        case formula::Operator: return {Bit(Start) | Bit(AfterFunction) | Bit(AfterOperator), AfterOperator, 0};
        case formula::Function: return {Bit(AfterOperand) | Bit(AfterFunction) | Bit(AfterClose), AfterFunction, 0};
        case formula::Open: return {Bit(AfterOperand) | Bit(AfterClose), Start, 1};
        case formula::Close: return {Bit(Start) | Bit(AfterFunction) | Bit(AfterOperator), AfterClose, -1};
        default: return {Bit(AfterOperand) | Bit(AfterClose), AfterOperand, 0};  // number, parameter, t
    }
}

class Checker {
public:
    Checker(Session& s, const std::string& file) : s_(s), file_(file) {}

    FormulaCheck run() {
        const auto path = platform::ResolvePath(InWorkDir(s_, file_));
        if (!path || !platform::IsRegularFile(*path)) {
            MsgBox(s_, "The formula file " + file_ + " does not appear to exist.", mb::OKOnly, kWarningTitle);
            return result_;
        }
        const auto bytes = platform::ReadFileBytes(*path);
        if (!bytes) throw RuntimeFault(RuntimeFault::FileAccess, "Path/File access error");
        text::LineReader reader(*bytes);
        std::string formula;
        if (!reader.next(formula)) RaiseInputPastEnd();
        formula_ = text::Lower(formula);
        result_.formula = formula_;

        if (formula_.size() > kMaxLength &&
            !report("Formula " + formula_ + " too long: it has " + text::CStr(int(formula_.size())) +
                    " characters and only 250 is allowed"))
            return result_;
        if (!bracketsAndVariable()) return result_;

        const std::string spaced = SpaceOutFormula(formula_, result_.parameters);
        if (spaced.find(" T ") == std::string::npos) {
            report("No independent variable 't' in formula " + formula_);
            return result_;
        }
        if (!walkItems(text::Lower(spaced))) return result_;
        if (!controlLines(reader)) return result_;
        result_.passes = ok_;
        return result_;
    }

private:
    // A report with OK and Cancel; false when the user chose to stop.
    bool report(const std::string& message) {
        ok_ = false;
        if (MsgBox(s_, message, mb::OKCancel, kErrorTitle) != mb::Cancel) return true;
        result_.cancelled = true;
        return false;
    }

    // The quick test before any cutting: unclosed brackets, and any "t" at all (that of "tan" or
    // "sqrt" will do here). A bracket closed too often passes; the item walk finds it.
    bool bracketsAndVariable() {
        int nesting = 0;
        bool hasT = false;
        for (char c : formula_) {
            if (c == '(') ++nesting;
            if (c == ')') --nesting;
            if (c == 't') hasT = true;
        }
        if (nesting > 0 && !report("Parentheses not matching in formula " + formula_)) return false;
        if (!hasT) report("No independent variable 't' in formula " + formula_);
        return nesting <= 0 && hasT;
    }

    // Takes the items in turn through the state table. After an unrecognised item the state gives up
    // for good: only further unrecognised items and the final nesting are reported then.
    bool walkItems(std::string spaced) {
        std::string separator = " ";
        const int count = text::CountTokens(spaced, separator);
        State state = Start;
        int nesting = 0;
        for (int n = 1; n <= count; ++n) {
            const std::string item = text::NextToken(spaced, separator);
            result_.items.push_back(item);
            const int itemClass = ClassifyItem(item);
            if (itemClass == formula::Unrecognised) {
                state = GivenUp;
                if (!report("Unrecognised item " + item + kInFormula + formula_ + kInFile + file_)) return false;
                continue;
            }
            const Transition t = TransitionOf(itemClass);
            nesting += t.nesting;
            if (state == GivenUp) continue;
            const bool fault = (t.faultIn & Bit(state)) != 0;
            state = t.next;
            if (fault && !report("Syntax error at " + text::CStr(n) + "'th item (" + item + ") in formula " + formula_ +
                                 kInFile + file_))
                return false;
        }
        if (nesting != 0)
            return report("Syntax (nesting) error in formula " + formula_ + kInFile + file_ +
                          ".  Final nesting level is " + text::CStr(nesting));
        return true;
    }

    // One control line per parameter: four numbers, the start within the limits, a flag of 0 or 1.
    bool controlLines(text::LineReader& reader) {
        for (int line = 1; line <= result_.parameters; ++line) {
            std::string rest;
            if (!reader.next(rest)) {
                report("Not enough parameter control lines in file " + file_ + ".  There are only " +
                       text::CStr(line - 1) + " and we need " + text::CStr(result_.parameters));
                return false;
            }
            std::array<double, 4> value{};
            for (int column = 1; column <= 4; ++column) {
                const std::string item = text::NextToken(rest, "");
                if (!text::IsNumeric(item) &&
                    !report("Column number " + Ordinal(column) + " item in " + Ordinal(line) + kParameterLineIn +
                            file_ + kNotValidNumber))
                    return false;
                value[size_t(column - 1)] = text::Val(item);
            }
            if ((value[1] > value[0] || value[2] < value[0]) &&
                !report("Starting value is not between limits in " + Ordinal(line) + kParameterLineIn + file_ +
                        kNotValidNumber))
                return false;
            if (value[3] != 0 && value[3] != 1 &&
                !report("Flag " + Ordinal(line) + kParameterLineIn + file_ + " is not 0 or 1."))
                return false;
        }
        return true;
    }

    Session& s_;
    const std::string& file_;
    std::string formula_;
    bool ok_ = true;
    FormulaCheck result_;
};

}  // namespace

int ClassifyItem(std::string_view item) {
    const std::string it = text::Lower(item);
    if (it.empty()) return formula::Unrecognised;
    if (it == "+" || it == "-") return formula::Sign;
    if (it == "*" || it == "/" || it == "^" || it == "**") return formula::Operator;
    for (std::string_view f : kFunctions)
        if (it == f) return formula::Function;
    if (it == "t") return formula::Variable;
    if (it == "(") return formula::Open;
    if (it == ")") return formula::Close;
    for (std::string_view p : kParameters)
        if (it == p) return formula::Parameter;
    if (text::IsNumeric(it)) return formula::Number;
    return formula::Unrecognised;
}

std::string SpaceOutFormula(std::string_view formula, int& parameters) {
    std::string text(formula);
    bool found = false;
    for (std::string_view f : kFunctions) text = ReplaceAll(text, f, Spaced(f), found);
    text = ReplaceAll(text, "**", " ^ ", found);
    parameters = 0;
    for (std::string_view p : kParameters) {
        found = false;
        text = ReplaceAll(text, p, Spaced(p), found);
        if (found) ++parameters;
    }
    for (std::string_view c : kSymbols) text = ReplaceAll(text, c, Spaced(c), found);
    return text;
}

std::string Ordinal(int n) {
    static const char* const kSuffix[] = {"th ", "st ", "nd ", "rd "};
    return text::CStr(n) + kSuffix[n >= 1 && n <= 3 ? n : 0];
}

FormulaCheck CheckFormulaFile(Session& s, const std::string& file) { return Checker(s, file).run(); }

bool checkFormula(Session& s, const std::string& file) { return CheckFormulaFile(s, file).passes; }

}  // namespace halvo
