// Parse_Mol: a whole molecule string, "( Si 1 O 2 ) 0.6 ( Al 2 O 3 ) 0.4 3.9". The parentheses are
// repaired where they can be, bare elements beside pairs are turned into sub-molecules of their own,
// and every repair and fault is told in a box. The engine reads the same strings, so what this parser
// refuses the engine could not take.
#include <cmath>

#include "sample/density.h"
#include "sample/molecule.h"
#include "sample/molecule_internal.h"
#include "session/session.h"
#include "text/fault.h"
#include "text/numbers.h"
#include "text/tokens.h"

namespace halvo {

using namespace molecule_detail;

std::string MoleculeErrorText(std::int32_t Code) {
    struct Bit {
        std::int32_t bit;
        const char* text;
    };
    static const Bit kBits[] = {
        {1, "element not recognised; "},
        {2, "isotope not on stable isotope list; "},
        {4, "concentration not recognised; "},
        {8, "density not recognised; "},
        {16, "buffer1 empty; "},
        {32, "all elements of molecule not different; "},
        {64, "all elements of sub-molecule not different; "},
        {128, "sub-molecule syntax error (non-matching parentheses); "},
        {256, "sub-molecule syntax error (nested parentheses); "},
        {512, "sub-molecule syntax error (single pair of parentheses is illegal); "},
        {1024,
         "sub-molecule syntax error: parentheses spaced or bare elts in molecule, structure file must be corrected; "},
        {2048, "too many sub-molecules (>5); "},
        {4096, "parse_mol code error! "},
        {0x100000, "warning, parentheses spaced or bare elts in molecule, structure file must be corrected; "},
        {0x200000, "string too long (>132 characters) after trimming spaces; "},
    };
    std::string out;
    if (Code <= 0) return out;
    for (const Bit& b : kBits) {
        if (b.bit >= 0x200000) break;  // the walk stops before the last bit
        if (!(Code & b.bit)) continue;
        if (!out.empty()) out += ";  ";
        out += b.text;
    }
    return out;
}

// Every field is cleared; the arrays keep their storage, which spares the parser most of its
// allocations when a record is parsed into again.
void EmptyMol(Molecule& Mol, const std::vector<std::int16_t>& Counts) {
    Mol.SubCount = std::int16_t(Counts.size());
    if (Mol.SubMolecules.size() > Counts.size() + 1) Mol.SubMolecules.resize(Counts.size() + 1);
    Mol.SubMolecules.reserve(Counts.size() + 1);
    Mol.SubConcentrations.assign(Counts.size() + 1, 0.0f);
    for (size_t i = 0; i <= Counts.size(); ++i) {
        const std::int16_t count = i == 0 ? std::int16_t(0) : Counts[i - 1];
        if (i == Mol.SubMolecules.size()) Mol.SubMolecules.emplace_back(count);
        SubMolecule& sub = Mol.SubMolecules[i];
        sub.resize(count);
        sub.ElementCount = count;
        sub.SubName.clear();
        sub.SubText.clear();
        sub.SubAtomicDensity = 0;
        sub.DensityGiven = false;
        sub.SubMassDensity = 0;
    }
    Mol.MolName.clear();
    Mol.MolAtomicDensity = 0;
    Mol.MolDensityGiven = false;
    Mol.MolMassDensity = 0;
    Mol.MolAverageMass = 0;
    Mol.MolText.clear();
    Mol.MolTextWithDensity.clear();
}

namespace {

bool IsParen(char c) { return c == '(' || c == ')'; }

// The working state of one Parse_Mol call.
struct MolParse {
    MolParse(Session& session, std::string& text, Molecule& mol, std::int16_t& position)
        : s(session), Text(text), Mol(mol), Position(position) {}
    Session& s;
    std::string& Text;
    Molecule& Mol;
    std::int16_t& Position;
    std::string w;      // the string as it is being repaired
    std::string first;  // the string as it came, blanks normalised
    std::int32_t code = 0;
    std::int16_t questions = 0;
    int opens = 0;
    int subCount = 1;
    // What the split finds, before the record is sized for it.
    std::vector<std::string> texts;
    std::vector<float> concentrations;
    float wholeDensity = 0;
    bool wholeDensityGiven = false;

    void box(const std::string& text, int buttons, const std::string& title) { MsgBox(s, text, buttons, title); }

    // The concentration failure: reported with the rest of the string from `at`.
    std::int32_t badConcentration(size_t at) {
        const std::string rest = at < w.size() ? w.substr(at) : std::string();
        box("Unrecognised concentration '" + rest + "' in molecule " + first + ".  chrpos=" + std::to_string(Position),
            mb::OKOnly, "Parse_Mol: unrecognised concentration");
        Text = rest;
        return code | molcode::BadConcentration;
    }

    // Steps before the split, for strings with parentheses. Returns false when the parse stops.
    bool checkParentheses();
    void countBareElements();
    bool split();
    bool outside(size_t start, size_t end, std::int16_t& index);
};

bool MolParse::checkParentheses() {
    if (w[0] == '(' && (w.size() == 1 || w[1] != ' ')) w.insert(1, " ");

    // The limit is fixed before the loop; an insertion moves the parenthesis one place on, so that the
    // second test sees the parenthesis itself and puts a second blank before it (taken out later).
    const size_t limit = w.size();
    for (size_t p = 1; p < limit; ++p) {
        if (!IsParen(w[p])) continue;
        const bool leftBad = w[p - 1] != ' ';
        const bool rightBad = p + 1 < w.size() && w[p + 1] != ' ';
        if (!leftBad && !rightBad) continue;
        if (leftBad) w.insert(p, " ");
        if (p + 1 < w.size() && w[p + 1] != ' ') w.insert(p + 1, " ");
        box("WARNING: parentheses must be preceded and followed by a space: error in molecule '" + w +
                "'.  Halvo has corrected, please store corrected file.",
            mb::OKOnly | mb::Exclamation, "Parse_Mol: parenthesis error");
        code |= molcode::Spacing;
    }

    int closes = 0;
    for (char c : w) {
        if (c == '(') ++opens;
        if (c == ')') ++closes;
    }
    subCount = opens;
    if (opens != closes) {
        box("FATAL: unmatched parentheses: error in molecule '" + w + "'", mb::OKOnly, "Parse_Mol: fatal parentheses error");
        Text = w;
        code |= molcode::Unmatched;
        return false;
    }

    int depth = 0;
    for (size_t i = 0; i < w.size(); ++i) {
        Position = text::Add16(Position, 1);
        const char c = w[i];
        const char prev = i > 0 ? w[i - 1] : ' ';
        if (c == '=' && prev != '?') {
            code = badConcentration(i);
            return false;
        }
        if (IsParen(prev) && c != ' ') {
            box("FATAL: parentheses must be followed by a space: error in molecule '" + w + "'", mb::OKOnly,
                "Parse_Mol: fatal parenthesis error");
            w.insert(i, " ");
            code |= molcode::Spacing;
            continue;
        }
        if (IsParen(c) && prev != ' ') {
            box("FATAL: parentheses must be preceded by a space: error in molecule '" + w + "'", mb::OKOnly,
                "Parse_Mol: fatal parenthesis error");
            w.insert(i, " ");
            code |= molcode::Spacing;
            continue;
        }
        if (c == '?') ++questions;
        if (c == '(') ++depth;
        if (c == ')') --depth;
        if (depth > 1 || depth < 0) {
            box("FATAL: nesting parentheses is not allowed: error in molecule '" + w + "'", mb::OKOnly,
                "Parse_Mol: fatal parentheses error");
            Text = w.substr(i);
            code |= molcode::Nested;
            return false;
        }
    }

    countBareElements();

    if (opens == 1 && subCount == 1) {
        code |= molcode::SinglePair;
        if (s.WarningsFlag)
            box("FATAL: One sub-molecule is not allowed: error in molecule '" + w + "'", mb::OKOnly,
                "Parse_Mol: fatal parentheses error");
        const auto close = w.rfind(')');
        Text = text::Trim(w.substr(close + 1));
        return false;
    }
    if (opens < subCount) {
        box("WARNING: Bare elements are not allowed: error in molecule '" + w +
                "'.  VKS will crash: get Halvo to save this file (it will correct the syntax)!",
            mb::OKOnly, "Parse_Mol Warning");
        code |= molcode::Spacing;
    }
    return true;
}

// Pairs standing outside the parentheses count as sub-molecules of their own while fewer than two
// are known; once two are, a piece of exactly two tokens (concentration and density) ends the count.
void MolParse::countBareElements() {
    size_t start = 0;
    size_t end = w.find('(');
    for (int piece = 0; piece < 1000; ++piece) {
        const std::string text = w.substr(start, (end == std::string::npos ? w.size() : end) - start);
        std::string separator;
        const int tokens = text::CountTokens(text, separator);
        if (subCount < 2) {
            if (tokens > 0) subCount += tokens / 2;
        } else if (tokens == 2) {
            break;
        }
        if (end == std::string::npos) break;
        const auto close = w.find(')', end);
        if (close == std::string::npos) break;
        start = close + 1;
        end = w.find('(', start);
    }
}

// Text outside a pair: the concentration of the sub-molecule before it, then a density for the
// whole, or bare elements that become sub-molecules of their own.
bool MolParse::outside(size_t start, size_t end, std::int16_t& index) {
    std::string rest = w.substr(start, end - start);
    std::string separator;
    const int tokens = text::CountTokens(rest, separator);
    if (tokens == 0) return true;
    size_t cursor = start;
    auto next = [&](size_t& at) {
        std::string t = text::NextToken(rest, separator);
        at = w.find(t, cursor);
        if (at == std::string::npos) at = cursor;
        cursor = at + t.size();
        return t;
    };
    size_t at = 0;
    const std::string concToken = next(at);
    if (tokens == 2 && index < 1) {
        box("Code error: error in molecule '" + w + "'", mb::OKOnly | mb::Critical, "Parse_Mol Code Error");
        code |= molcode::CodeError;
        return false;
    }
    float c = 0;
    if (!ReadConcentration(concToken, c)) {
        code = badConcentration(at);
        return false;
    }
    concentrations[size_t(index)] = c;
    if (tokens == 2) {
        wholeDensity = text::CSng(text::Val(next(at)));
        wholeDensityGiven = true;
        return true;
    }
    // Bare pairs: each becomes a sub-molecule. The count of them was fixed before; more pairs than
    // counted run past the end of the list.
    for (int left = tokens - 1; left > 0;) {
        const std::string name = next(at);
        --left;
        if (text::IsNumeric(name) && left >= 1) continue;
        const std::string concText = next(at);
        --left;
        if (!ReadConcentration(concText, c)) {
            code = badConcentration(at);
            return false;
        }
        index = text::Add16(index, 1);
        if (index > subCount) RaiseSubscript();
        texts[size_t(index)] = name;
        concentrations[size_t(index)] = c;
    }
    return true;
}

bool MolParse::split() {
    std::int16_t index = 0;
    size_t pos = 0;
    while (pos <= w.size()) {
        const size_t open = w.find('(', pos);
        if (!outside(pos, open == std::string::npos ? w.size() : open, index)) return false;
        if (open == std::string::npos) break;
        const size_t close = w.find(')', open);
        const std::string inside = w.substr(open + 1, close - open - 1);
        std::string separator;
        const int tokens = text::CountTokens(inside, separator);
        std::string subText = inside;
        if (tokens == 1) {
            code |= molcode::FlagOneElement;
        } else if (tokens == 2) {
            std::string rest = inside;
            subText = text::NextToken(rest, separator);  // the second token is dropped
        } else if (tokens == 0) {
            box("Empty sub-molecule is not allowed: error in molecule '" + w + "'", mb::OKOnly, "Parse_Mol: parentheses error");
            Text = w.substr(open);
            code |= molcode::Empty;
        }
        index = text::Add16(index, 1);
        if (index > subCount) RaiseSubscript();
        texts[size_t(index)] = subText;
        pos = close + 1;
    }
    return true;
}

}  // namespace

std::int32_t Parse_Mol(Session& s, std::string& Text, Molecule& Mol, std::int16_t& Position) {
    MolParse p(s, Text, Mol, Position);
    Position = 0;
    p.w = NormaliseBlanks(Text);
    p.first = p.w;

    const bool parens = p.w.find('(') != std::string::npos;
    if (parens && !p.checkParentheses()) return p.code;

    NormaliseBlanksInPlace(p.w);
    if (p.w.size() >= 133 && s.VKSversionNumber < 9505) {
        WarningBox(s,
                   "WARNING:  length of molecule " + p.w + " exceeds 132 characters.  Length = " +
                       std::to_string(p.w.size()) + ".  Note that VKS will truncate this string.",
                   "Parse_Mol: fatal length error for VKS versions below 9.5e");
        p.code |= molcode::Spacing;
    }
    Text = p.w;

    p.texts.assign(size_t(p.subCount) + 1, std::string());
    p.concentrations.assign(size_t(p.subCount) + 1, 0.0f);
    std::vector<std::int16_t> counts(size_t(p.subCount), 0);
    if (p.subCount == 1) {
        p.texts[1] = p.w;
    } else if (!p.split()) {
        EmptyMol(Mol, counts);
        return p.code;
    }
    // Sized for the elements each sub-molecule will hold, so that parsing them reuses the arrays.
    for (int i = 1; i <= p.subCount; ++i) {
        std::string separator;
        const int n = text::CountTokens(p.texts[size_t(i)], separator);
        counts[size_t(i - 1)] = std::int16_t(n == 1 ? 1 : n / 2);
    }
    EmptyMol(Mol, counts);
    for (int i = 1; i <= p.subCount; ++i) {
        Mol.SubMolecules[size_t(i)].Isotopes[0] = std::move(p.texts[size_t(i)]);
        Mol.SubConcentrations[size_t(i)] = p.concentrations[size_t(i)];
    }
    Mol.MolAtomicDensity = p.wholeDensity;
    Mol.MolDensityGiven = p.wholeDensityGiven;

    // Each sub-molecule is parsed in its own place; after a failure the record is not to be used.
    for (int i = 1; i <= Mol.SubCount; ++i) {
        SubMolecule& sub = Mol.SubMolecules[size_t(i)];
        const std::string subText = NormaliseBlanks(sub.Isotopes[0]);
        sub.SubName = subText;
        std::string t = subText;
        std::int16_t at = 0;
        if (Parse_SMol(s, t, sub, at) > 0) {
            WarningBox(s, "FATAL: Unrecognised submolecule " + subText + " in molecule " + p.w, "Parse_Mol error");
            return p.code;  // the sub-molecule's own code is not passed on
        }
    }

    std::vector<std::string> keys(size_t(Mol.SubCount) + 1);
    for (int i = 1; i <= Mol.SubCount; ++i) {
        for (char c : Mol.SubMolecules[size_t(i)].Isotopes[0])
            if (c != ' ') keys[size_t(i)] += c;
    }
    int later = 0;
    if (FirstDouble(keys, Mol.SubCount, later)) {
        MsgBox(s, "All elements in the molecule " + p.first + " are not different!", mb::OKOnly,
               "Parse_Mol: elements not unique");
        return p.code | molcode::MoleculeNotUnique;
    }

    float sum = 0;
    for (int i = 1; i <= Mol.SubCount; ++i) {
        sum += std::fabs(Mol.SubConcentrations[size_t(i)]);
        NormaliseBlanksInPlace(Mol.SubMolecules[size_t(i)].Isotopes[0]);
    }
    Mol.SubConcentrations[0] = sum;

    std::string canonical;
    if (Mol.SubCount == 1) {
        const SubMolecule& only = Mol.SubMolecules[1];
        canonical = only.Isotopes[0];
        Mol.SubConcentrations[0] = only.Concentrations[0];
        Mol.MolAtomicDensity = only.SubAtomicDensity;
        Mol.MolDensityGiven = only.DensityGiven;
        Mol.MolMassDensity = only.SubMassDensity;
    } else {
        for (int i = 1; i <= Mol.SubCount; ++i) {
            const SubMolecule& sub = Mol.SubMolecules[size_t(i)];
            canonical += " ( ";
            canonical += sub.Isotopes[0];
            if (sub.Isotopes[0].find(' ') == std::string::npos) canonical += " 1 ";
            if (sub.DensityGiven) {
                canonical += ' ';
                canonical += text::CStr(sub.SubAtomicDensity);
            }
            canonical += " ) ";
            canonical += ConcentrationText(Mol.SubConcentrations[size_t(i)]);
        }
    }
    NormaliseBlanksInPlace(canonical);
    Mol.MolText = std::move(canonical);
    Mol.MolName = Mol.SubCount == 1 ? Mol.SubMolecules[1].SubName : Mol.MolText;
    Mol.MolTextWithDensity = Mol.MolText;
    if (Mol.MolDensityGiven) Mol.MolTextWithDensity += " " + text::CStr(Mol.MolAtomicDensity);

    // The sub-molecules decide the densities: a density given for the whole lives on only in
    // MolTextWithDensity.
    bool given = false;
    for (int i = 1; i <= Mol.SubCount; ++i) given = given || Mol.SubMolecules[size_t(i)].DensityGiven;
    Mol.MolDensityGiven = given;
    Mol.SubMolecules[0].DensityGiven = given;
    if (CalcMolDensity(s, Mol) != -1) {
        Position = p.questions;
        p.code = ConvertUpperFlags(p.code);
    }
    return p.code;
}

}  // namespace halvo
