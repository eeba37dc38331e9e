// Parse_SMol: one list of elements, "Si 1 O 2 2.2", with the helpers both parsers share.
#include <cmath>

#include "sample/density.h"
#include "sample/element_table.h"
#include "sample/molecule.h"
#include "sample/molecule_internal.h"
#include "session/session.h"
#include "text/numbers.h"
#include "text/tokens.h"

namespace halvo {

void SubMolecule::resize(int count) {
    const size_t n = size_t(count) + 1;
    // Strings are cleared rather than replaced, so that their storage is kept.
    Symbols.resize(n);
    Isotopes.resize(n);
    for (auto& t : Symbols) t.clear();
    for (auto& t : Isotopes) t.clear();
    MassNumbers.assign(n, 0);
    AtomicNumbers.assign(n, 0);
    Masses.assign(n, 0.0f);
    Concentrations.assign(n, 0.0f);
}

std::string NormaliseBlanks(std::string_view text) {
    const bool clean = text.empty() || (text.front() != ' ' && text.back() != ' ' && text.find("  ") == std::string_view::npos);
    if (clean) return std::string(text);
    std::string out;
    out.reserve(text.size());
    for (char c : text) {
        if (c == ' ' && (out.empty() || out.back() == ' ')) continue;
        out += c;
    }
    if (!out.empty() && out.back() == ' ') out.pop_back();
    return out;
}

void NormaliseBlanksInPlace(std::string& text) {
    if (text.empty() || (text.front() != ' ' && text.back() != ' ' && text.find("  ") == std::string::npos)) return;
    text = NormaliseBlanks(text);
}

std::int32_t ConvertUpperFlags(std::int32_t code) {
    if (code == 0 || (code & 0xFFFF) != 0) return code;
    const std::int32_t upper = code / 65536;
    std::int32_t magnitude = 0;
    if (upper & 0x100) magnitude += 1;
    if (upper & 0x200) magnitude += 2;
    if (upper & 0x400) magnitude += 4;
    if (upper & 0x10) magnitude += 8;
    return -magnitude;
}

namespace molecule_detail {

bool ReadConcentration(const std::string& token, float& value) {
    if (text::IsNumeric(token)) {
        value = text::CSng(text::Val(token));
        return true;
    }
    if (token.size() > 2 && token[0] == '?' && token[1] == '=' && text::IsNumeric(std::string_view(token).substr(2))) {
        value = -text::CSng(text::Val(std::string_view(token).substr(2)));
        return true;
    }
    return false;
}

std::string ConcentrationText(float c) { return c < 0 ? "?=" + text::CStr(-c) : text::CStr(c); }

MassSums SumsOf(const SubMolecule& Sub, bool keepSign) {
    MassSums sums;
    if (Sub.ElementCount == 1) {
        sums.S1 = Sub.Masses[0];
        sums.S2 = 1;
        return sums;
    }
    for (int i = 1; i <= Sub.ElementCount; ++i) {
        const float c = keepSign ? Sub.Concentrations[size_t(i)] : std::fabs(Sub.Concentrations[size_t(i)]);
        sums.S1 += c * Sub.Masses[size_t(i)];
        sums.S2 += c;
    }
    return sums;
}

bool FirstDouble(const std::vector<std::string>& names, int count, int& later) {
    for (int i = count; i >= 2; --i)
        for (int j = 1; j < i; ++j)
            if (names[size_t(i)] == names[size_t(j)]) {
                later = i;
                return true;
            }
    return false;
}

}  // namespace molecule_detail

using namespace molecule_detail;

namespace {

// The data base compound this list of elements is: the same composition text, or the same symbols in
// nearly the same proportions. The search starts at the second record, and the proportions compare
// crossed sums without taking the difference's size, as the program always has.
const SubMolecule* FindCompound(const Session& s, const SubMolecule& sub) {
    const CompoundTable& table = s.Tables.Compounds;
    for (int i = 1; i <= table.CompoundCount && i < int(table.Compounds.size()); ++i) {
        const SubMolecule& c = table.Compounds[size_t(i)];
        if (c.Isotopes[0] == sub.Isotopes[0]) return &c;
        if (c.ElementCount != sub.ElementCount) continue;
        const float s1 = c.Concentrations[0];
        const float s2 = sub.Concentrations[0];
        if (!(std::fabs(s1 - s2) < 0.02f)) continue;
        bool all = true;
        for (int e = 1; e <= sub.ElementCount && all; ++e) {
            bool found = false;
            for (int k = 1; k <= c.ElementCount; ++k) {
                if (c.Symbols[size_t(k)] != sub.Symbols[size_t(e)]) continue;
                found = std::fabs(sub.Concentrations[size_t(e)]) / s1 - c.Concentrations[size_t(k)] / s2 < 0.02f;
                break;
            }
            all = found;
        }
        if (all) return &c;
    }
    return nullptr;
}

}  // namespace

std::int32_t Parse_SMol(Session& s, std::string& Text, SubMolecule& Sub, std::int16_t& Position) {
    const std::string whole = Text;  // a copy: Text may be a field of Sub itself
    std::string separator;
    const int n = text::CountTokens(whole, separator);
    const int count = n == 1 ? 1 : n / 2;
    const bool densityToken = n % 2 == 1 && n >= 3;
    Sub.resize(count);
    Sub.ElementCount = std::int16_t(count);
    Position = 0;
    Sub.DensityGiven = false;

    std::string rest = whole;
    std::string token;
    std::int32_t code = 0;

    auto elementFailure = [&](std::int16_t a) -> std::int32_t {
        MsgBox(s, "Unrecognised element name or isotope not on stable isotope list: " + token, mb::OKOnly,
               "Parse_SMol: unrecognised name");
        Text = token;
        return a == -1 ? 3 : 1;
    };
    auto densityFailure = [&]() -> std::int32_t {
        MsgBox(s, "Unrecognised density " + token + " in molecule " + whole, mb::OKOnly,
               "Parse_SMol: unrecognised density");
        Text = token;
        return 8;
    };

    if (n == 0) {
        if (s.WarningsFlag) MsgBox(s, "Empty molecule not allowed", mb::OKOnly, "Parse_SMol");
        code = molcode::Empty;
    } else if (n <= 2) {
        code = n == 1 ? molcode::FlagOneElement : molcode::FlagElementDensity;
        token = text::NextToken(rest, separator);
        std::string name = token;
        std::int16_t z = 0, a = 0, failed = 0;
        float mass = 0;
        ElementSelection selection;
        assignZA(s, name, z, mass, a, failed, selection, s.AnalysisKind);
        if (failed) return elementFailure(a);
        const ElementRecord& e = ElementOf(s, z);
        name = text::Trim(name);
        for (size_t i : {size_t(0), size_t(1)}) {
            Sub.Masses[i] = mass;
            Sub.Concentrations[i] = 1;
            Sub.Symbols[i] = text::Trim(e.Symbol);
            Sub.Isotopes[i] = name;
            Sub.MassNumbers[i] = a;
            Sub.AtomicNumbers[i] = z;
        }
        Sub.SubName = name;
        Sub.SubText = name;
        Sub.SubAtomicDensity = e.AtomicDensity;
        Sub.SubMassDensity = e.MassDensity;
        if (n == 2) {
            token = text::NextToken(rest, separator);
            if (!text::IsNumeric(token)) return densityFailure();
            Sub.DensityGiven = true;
            Sub.SubAtomicDensity = text::CSng(text::Val(token));
            Sub.SubText = name + " " + token;
        }
    } else {
        Sub.Isotopes[0] = whole;
        std::string composition;
        composition.reserve(whole.size() + 8);
        for (int i = 1; i <= count; ++i) {
            token = text::NextToken(rest, separator);
            std::string name = token;
            std::int16_t z = 0, a = 0, failed = 0;
            float mass = 0;
            ElementSelection selection;
            assignZA(s, name, z, mass, a, failed, selection, s.AnalysisKind);
            if (failed) return elementFailure(a);
            Position = text::Add16(Position, int(token.size()) + 1);
            token = text::NextToken(rest, separator);
            float c = 0;
            if (text::IsNumeric(token)) {
                c = text::CSng(text::Val(token));
            } else if (ReadConcentration(token, c)) {
                Position = text::Add16(Position, 2);
            } else {
                MsgBox(s,
                       "Unrecognised concentration '" + token + "' in molecule " + whole + ".  chrpos=" +
                           std::to_string(Position),
                       mb::OKOnly, "Parse_SMol: unrecognised concentration");
                Text = token;
                return molcode::BadConcentration;
            }
            Position = text::Add16(Position, int(token.size()) + 1);
            name = text::Trim(name);
            Sub.Symbols[size_t(i)] = SymbolOf(s, z);
            Sub.Isotopes[size_t(i)] = name;
            Sub.MassNumbers[size_t(i)] = a;
            Sub.AtomicNumbers[size_t(i)] = z;
            Sub.Masses[size_t(i)] = mass;
            Sub.Concentrations[size_t(i)] = c;
            composition += ' ';
            composition += name;
            composition += ' ';
            composition += ConcentrationText(c);
        }
        const MassSums sums = SumsOf(Sub, false);
        Sub.Isotopes[0] = text::Trim(composition);
        Sub.Concentrations[0] = sums.S2;
        if (sums.S2 > 1e-18f) Sub.Masses[0] = sums.S1 / sums.S2;

        int later = 0;
        if (FirstDouble(Sub.Isotopes, count, later)) {
            // The place where the later name of the pair ends, counted as the loop above counts.
            std::string again = whole;
            Position = 0;
            for (int i = 1; i <= later; ++i) {
                Position = std::int16_t(Position + text::NextToken(again, separator).size() + 1);
                const std::string conc = text::NextToken(again, separator);
                if (i < later) Position = std::int16_t(Position + conc.size() + 1 + (conc.starts_with("?=") ? 2 : 0));
            }
            Position = std::int16_t(Position - 1);
            MsgBox(s, "All elements in the molecule " + whole + " are not different!", mb::OKOnly,
                   "Parse_SMol: elements not unique");
            Text = whole.substr(0, std::min(whole.size(), size_t(std::max<int>(Position, 0))));
            return molcode::MoleculeNotUnique;
        }

        std::string density;
        if (!densityToken) {
            Sub.SubAtomicDensity = CalcDensity(s, Sub);
            code = molcode::FlagDefaultDensity;
            if (Sub.SubAtomicDensity == -1) {
                MsgBox(s, "Unrecognised density " + token + " in molecule " + whole, mb::OKOnly,
                       "Parse_SMol: CODE ERROR  error detected in Function calcdensity");
                Text = token;
                return molcode::BadDensity;
            }
        } else {
            token = text::NextToken(rest, separator);
            if (!text::IsNumeric(token)) return densityFailure();
            density = token;
            Sub.DensityGiven = true;
            Sub.SubAtomicDensity = text::CSng(text::Val(token));
        }
        Sub.SubText = Sub.Isotopes[0];  // already single-spaced
        if (!density.empty()) {
            Sub.SubText += ' ';
            Sub.SubText += density;
        }
        if (const SubMolecule* compound = FindCompound(s, Sub)) Sub.SubName = compound->SubName;
    }

    if (Density2Rho(s, Sub) == -1) return densityFailure();
    Position = 0;
    return ConvertUpperFlags(code);
}

}  // namespace halvo
