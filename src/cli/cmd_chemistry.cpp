// Chemistry commands: molecule strings, element names, thickness units and the on-screen number form.
// Each loads the data tables from the engine directory first, as the program does at start.
#include <cmath>
#include <iomanip>
#include <iostream>
#include <sstream>

#include "cli.h"
#include "sample/density.h"
#include "sample/element_table.h"
#include "sample/molecule.h"
#include "text/fault.h"
#include "text/numbers.h"
#include "text/tokens.h"

namespace halvo::cli {
namespace {

std::string Num(float v) { return std::isfinite(v) ? text::GeneralNumber(v) : "null"; }
std::string Bool(bool b) { return b ? "true" : "false"; }

std::string Joined(const std::vector<std::string>& args, size_t from = 0) {
    std::string out;
    for (size_t i = from; i < args.size(); ++i) out += (i > from ? " " : "") + args[i];
    return out;
}

// The tables, and the trap of a command: a fault of the classic runtime is reported, not fatal.
bool Tables(Context& c) { return LoadElementTables(c.session); }

int Trapped(Context& c, const std::string& routine, const RuntimeFault& f) {
    MsgBox(c.session, "Unexpected error in " + routine + ": " + f.what(), mb::OKOnly | mb::Critical,
           "halvo-cli " + routine);
    if (c.json) c.putString("fault", f.what());
    return kFailed;
}

// A concentration as written in a molecule string: "?=" marks a value to fit.
std::string Conc(float v) { return v < 0 ? "?=" + text::CStr(-v) : text::CStr(v); }

std::string SubJson(const SubMolecule& sub, float concentration) {
    std::string els = "[";
    for (int i = 1; i <= sub.ElementCount; ++i) {
        const size_t k = size_t(i);
        els += std::string(i > 1 ? "," : "") + "{\"symbol\":" + JsonString(sub.Symbols[k]) +
               ",\"name\":" + JsonString(sub.Isotopes[k]) + ",\"Z\":" + std::to_string(sub.AtomicNumbers[k]) +
               ",\"A\":" + std::to_string(sub.MassNumbers[k]) + ",\"mass\":" + Num(sub.Masses[k]) +
               ",\"concentration\":" + Num(sub.Concentrations[k]) + ",\"fit\":" + Bool(sub.Concentrations[k] < 0) +
               "}";
    }
    els += "]";
    return "{\"composition\":" + JsonString(sub.Isotopes[0]) + ",\"name\":" + JsonString(sub.SubName) +
           ",\"text\":" + JsonString(sub.SubText) + ",\"concentration\":" + Num(concentration) +
           ",\"fit\":" + Bool(concentration < 0) + ",\"concentrationSum\":" + Num(sub.Concentrations[0]) +
           ",\"averageMass\":" + Num(sub.Masses[0]) + ",\"atomicDensity\":" + Num(sub.SubAtomicDensity) +
           ",\"massDensity\":" + Num(sub.SubMassDensity) + ",\"densityGiven\":" + Bool(sub.DensityGiven) +
           ",\"elements\":" + els + "}";
}

void PrintSub(const SubMolecule& sub, const std::string& head) {
    std::cout << head << sub.Isotopes[0] << "\n";
    if (!sub.SubName.empty()) std::cout << "    name " << sub.SubName << "\n";
    std::cout << "    mean mass " << Num(sub.Masses[0]) << " u, density " << Num(sub.SubAtomicDensity)
              << " 1e22 at/cc = " << Num(sub.SubMassDensity) << " g/cc" << (sub.DensityGiven ? " (given)" : "")
              << "\n";
    for (int i = 1; i <= sub.ElementCount; ++i) {
        const size_t k = size_t(i);
        std::cout << "    " << std::left << std::setw(6) << sub.Isotopes[k] << " Z " << std::setw(3)
                  << sub.AtomicNumbers[k] << " A " << std::setw(4) << sub.MassNumbers[k] << " mass " << std::setw(12)
                  << Num(sub.Masses[k]) << " conc " << Conc(sub.Concentrations[k]) << "\n";
    }
}

int RunMolecule(Context& c, const std::vector<std::string>& a) {
    bool smol = false;
    size_t i = 0;
    for (; i < a.size(); ++i) {
        if (a[i] == "--smol") {
            smol = true;
        } else if (a[i] == "--engine-version" && i + 1 < a.size()) {
            c.session.VKSversionNumber = text::CInt(text::Val(a[++i]));
        } else {
            break;
        }
    }
    if (!Tables(c)) return kFailed;
    std::string textIn = Joined(a, i);
    std::string rewritten = textIn;
    std::int16_t position = 0;
    std::int32_t code = 0;
    // What both parsers report: the input, the result code and its text, and the text they leave.
    const auto putParse = [&] {
        c.putString("input", textIn);
        c.put("code", std::to_string(code));
        c.putString("errorText", MoleculeErrorText(code));
        c.put("position", std::to_string(position));
        c.putString("text", rewritten);
    };
    try {
        if (smol) {
            SubMolecule sub;
            code = Parse_SMol(c.session, rewritten, sub, position);
            if (c.json) {
                putParse();
                c.put("subMolecule", SubJson(sub, 1));
            } else {
                std::cout << "Sub-molecule: " << textIn << "\n  code " << code << ", position " << position << "\n";
                if (code > 0) std::cout << "  " << MoleculeErrorText(code) << "\n  text left: " << rewritten << "\n";
                if (code <= 0) PrintSub(sub, "  ");
            }
            return code > 0 ? kFailed : kOk;
        }
        Molecule mol;
        code = Parse_Mol(c.session, rewritten, mol, position);
        if (c.json) {
            putParse();
            c.putString("molName", mol.MolName);
            c.putString("molText", mol.MolText);
            c.putString("molTextWithDensity", mol.MolTextWithDensity);
            c.put("atomicDensity", Num(mol.MolAtomicDensity));
            c.put("massDensity", Num(mol.MolMassDensity));
            c.put("averageMass", Num(mol.MolAverageMass));
            c.put("densityGiven", Bool(mol.MolDensityGiven));
            c.put("concentrationSum", Num(mol.SubConcentrations[0]));
            std::string subs = "[";
            for (int k = 1; k <= mol.SubCount; ++k)
                subs += std::string(k > 1 ? "," : "") +
                        SubJson(mol.SubMolecules[size_t(k)], mol.SubConcentrations[size_t(k)]);
            c.put("subMolecules", subs + "]");
        } else {
            std::cout << "Molecule: " << textIn << "\n  code " << code << ", position " << position << "\n";
            if (code > 0) std::cout << "  " << MoleculeErrorText(code) << "\n";
            std::cout << "  text " << rewritten << "\n";
            if (!mol.MolText.empty()) {
                std::cout << "  MolName " << mol.MolName << "\n  MolText " << mol.MolText << "\n  with density "
                          << mol.MolTextWithDensity << "\n  mean mass " << Num(mol.MolAverageMass) << " u, density "
                          << Num(mol.MolAtomicDensity) << " 1e22 at/cc = " << Num(mol.MolMassDensity) << " g/cc"
                          << (mol.MolDensityGiven ? " (given)" : "") << "\n";
                for (int k = 1; k <= mol.SubCount; ++k)
                    PrintSub(mol.SubMolecules[size_t(k)],
                             "  sub-molecule " + std::to_string(k) + " (" + Conc(mol.SubConcentrations[size_t(k)]) +
                                 "): ");
            }
        }
    } catch (const RuntimeFault& f) {
        return Trapped(c, smol ? "Parse_SMol" : "Parse_Mol", f);
    }
    return code > 0 ? kFailed : kOk;
}

int RunElement(Context& c, const std::vector<std::string>& a) {
    if (!Tables(c)) return kFailed;
    std::string all = "[";
    bool anyFailed = false;
    for (size_t i = 0; i < a.size(); ++i) {
        std::string name = a[i];
        std::int16_t z = 0, A = 0, failed = 0;
        float mass = 0;
        ElementSelection sel;
        c.session.AnalysisKind = 0;  // so that each name shows what it sets (0: left alone)
        try {
            assignZA(c.session, name, z, mass, A, failed, sel, c.session.AnalysisKind);
        } catch (const RuntimeFault& f) {
            Trapped(c, "assignZA", f);
            anyFailed = true;
            continue;
        }
        anyFailed = anyFailed || failed;
        if (c.json) {
            all += std::string(all.size() > 1 ? "," : "") + "{\"input\":" + JsonString(a[i]) +
                   ",\"name\":" + JsonString(name) + ",\"Z\":" + std::to_string(z) + ",\"A\":" + std::to_string(A) +
                   ",\"mass\":" + Num(mass) + ",\"failed\":" + Bool(failed) + ",\"zIndex\":" +
                   std::to_string(sel.ZIndex) + ",\"tableButton\":" + std::to_string(sel.TableButton) +
                   ",\"selName\":" + JsonString(sel.SelName) + ",\"selA\":" + std::to_string(sel.SelA) +
                   ",\"isotopeIndex\":" + std::to_string(sel.SelIsotopeIndex) +
                   ",\"analysisKind\":" + std::to_string(c.session.AnalysisKind) + "}";
        } else {
            std::cout << a[i] << ": name \"" << name << "\" Z " << z << " A " << A << " mass " << Num(mass)
                      << (failed ? " FAILED" : "") << "; button " << sel.TableButton << ", isotope index "
                      << sel.SelIsotopeIndex << ", analysis kind " << c.session.AnalysisKind << "\n";
        }
    }
    if (c.json) c.put("elements", all + "]");
    return anyFailed ? kFailed : kOk;
}

// Thickness: everything goes through TFU. "ug" and "mg" are per cm2.
bool ToTFU(const std::string& unit, float v, float D, float A, float& t) {
    const std::string u = text::Lower(unit);
    if (u == "tfu") t = v;
    else if (u == "nm") t = NmToTFU(v, D);
    else if (u == "a") t = AngstromToTFU(v, D);
    else if (u == "ug") t = UgToTFU(v, A);
    else if (u == "mg") t = UgToTFU(v * 1000, A);
    else return false;
    return true;
}

float FromTFU(const std::string& unit, float t, float D, float A) {
    const std::string u = text::Lower(unit);
    if (u == "nm") return TFUToNm(t, D);
    if (u == "a") return TFUToAngstrom(t, D);
    if (u == "ug") return TFUToUg(t, A);
    if (u == "mg") return TFUToUg(t, A) / 1000;
    return t;
}

int RunThickness(Context& c, const std::vector<std::string>& a) {
    const Command& self = Registry().at("thickness");
    if (a.size() < 2) return Misuse(self);
    const float value = text::CSng(text::Val(a[0]));
    const std::string from = a[1];
    std::string to;
    size_t i = 2;
    if (i < a.size() && !a[i].starts_with("--")) to = a[i++];
    float D = -1, A = -1;
    std::string molecule;
    for (; i < a.size(); ++i) {
        if (a[i] == "--density" && i + 1 < a.size())
            D = text::CSng(text::Val(a[++i]));
        else if (a[i] == "--mass" && i + 1 < a.size())
            A = text::CSng(text::Val(a[++i]));
        else if (a[i] == "--molecule" && i + 1 < a.size())
            molecule = a[++i];
        else
            return Misuse(self);
    }
    if (!molecule.empty()) {
        if (!Tables(c)) return kFailed;
        Molecule mol;
        std::int16_t position = 0;
        std::string t = molecule;
        try {
            if (Parse_Mol(c.session, t, mol, position) > 0) return kFailed;
        } catch (const RuntimeFault& f) {
            return Trapped(c, "Parse_Mol", f);
        }
        if (D < 0) D = mol.MolAtomicDensity;
        if (A < 0) A = mol.MolAverageMass;
    }
    if (D < 0 || A < 0) return Misuse(self);
    float tfu = 0;
    if (!ToTFU(from, value, D, A, tfu)) return Misuse(self);
    const std::vector<std::string> units = to.empty() ? std::vector<std::string>{"tfu", "nm", "A", "ug", "mg"}
                                                      : std::vector<std::string>{to};
    std::string json = "{";
    for (const auto& u : units) {
        float dummy = 0;
        if (!ToTFU(u, 0, 1, 1, dummy)) return Misuse(self);
        const float v = text::Lower(u) == "tfu" ? tfu : FromTFU(u, tfu, D, A);
        std::int16_t decimals = -1;
        if (c.json)
            json += std::string(json.size() > 1 ? "," : "") + JsonString(u) + ":" + Num(v);
        else
            std::cout << std::left << std::setw(4) << u << " " << FormatNumber(v, decimals) << "   (" << Num(v)
                      << ")\n";
    }
    if (c.json) {
        c.put("atomicDensity", Num(D));
        c.put("averageMass", Num(A));
        c.put("thickness", json + "}");
    } else {
        std::cout << "(density " << Num(D) << " 1e22 at/cc, mean mass " << Num(A) << " u)\n";
    }
    return kOk;
}

int RunFormat(Context& c, const std::vector<std::string>& a) {
    if (a.empty() || a.size() > 2) return Misuse(Registry().at("format-number"));
    std::int16_t decimals = a.size() == 2 ? text::CInt(text::Val(a[1])) : std::int16_t(-1);
    const float value = text::CSng(text::Val(a[0]));
    const std::string shown = FormatNumber(value, decimals);
    if (c.json) {
        c.putString("text", shown);
        c.put("decimals", std::to_string(decimals));
    } else {
        std::cout << shown << "\n";
    }
    return kOk;
}

const Register molecule{{"molecule", "[--smol] [--engine-version N] TEXT...",
                         "parse a molecule string (or with --smol one sub-molecule) and show what it is made of",
                         RunMolecule}};
const Register element{{"element", "NAME...", "look up element, isotope and particle names as assignZA does",
                        RunElement}};
const Register thickness{{"thickness", "VALUE FROM [TO] (--molecule TEXT | --density D --mass A)",
                          "convert a thickness between tfu, nm, A, ug and mg (per cm2)", RunThickness}};
const Register format{{"format-number", "VALUE [DECIMALS]",
                       "show a number as the program's result fields do (DECIMALS -1: as many as fit)", RunFormat}};

}  // namespace
}  // namespace halvo::cli
