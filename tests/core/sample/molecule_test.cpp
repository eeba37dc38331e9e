#include "sample/molecule.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <random>

#include "chemistry_fixture.h"
#include "sample/element_table.h"
#include "text/fault.h"
#include "text/lines.h"
#include "text/tokens.h"

namespace halvo {
namespace {

using test::ChemSession;
using test::F;

std::string Conc(float c) { return c < 0 ? "?=" + text::CStr(-c) : text::CStr(c); }

void RenderSub(std::string& out, const SubMolecule& sub) {
    out += "  composition `" + sub.Isotopes[0] + "` name `" + sub.SubName + "` text `" + sub.SubText + "`\n";
    out += "  mean " + F(sub.Masses[0]) + " sum " + F(sub.Concentrations[0]) + " atomic " + F(sub.SubAtomicDensity) +
           " mass " + F(sub.SubMassDensity) + (sub.DensityGiven ? " given" : "") + "\n";
    for (int i = 1; i <= sub.ElementCount; ++i) {
        const size_t k = size_t(i);
        out += "    " + sub.Isotopes[k] + " (" + sub.Symbols[k] + ") Z " + std::to_string(sub.AtomicNumbers[k]) + " A " +
               std::to_string(sub.MassNumbers[k]) + " m " + F(sub.Masses[k]) + " c " + Conc(sub.Concentrations[k]) +
               "\n";
    }
}

// Everything a parse says, as text: the golden file holds this for each case.
std::string Say(const std::string& routine, const std::string& options, const std::string& input) {
    ChemSession t;
    t.session.PathVKS = "/opt/vks";  // only the isotope message shows it
    if (options.find("vks9505") != std::string::npos) t.session.VKSversionNumber = 9505;
    if (options.find("quiet") != std::string::npos) SetWarningsFlag(t.session, false);
    std::string text = input;
    std::int16_t position = -99;
    std::string out;
    try {
        if (routine == "Parse_SMol") {
            SubMolecule sub;
            const std::int32_t code = Parse_SMol(t.session, text, sub, position);
            out += "code " + std::to_string(code) + " position " + std::to_string(position) + " text `" + text + "`\n";
            if (code <= 0) RenderSub(out, sub);
        } else {
            Molecule mol;
            const std::int32_t code = Parse_Mol(t.session, text, mol, position);
            out += "code " + std::to_string(code) + " position " + std::to_string(position) + " text `" + text + "`\n";
            if (code > 0) out += "errors " + MoleculeErrorText(code) + "\n";
            if (!mol.MolText.empty()) {
                out += "MolName `" + mol.MolName + "`\nMolText `" + mol.MolText + "`\nMolTextWithDensity `" +
                       mol.MolTextWithDensity + "`\n";
                out += "mean " + F(mol.MolAverageMass) + " atomic " + F(mol.MolAtomicDensity) + " mass " +
                       F(mol.MolMassDensity) + (mol.MolDensityGiven ? " given" : "") + " sum " +
                       F(mol.SubConcentrations[0]) + "\n";
                for (int i = 1; i <= mol.SubCount; ++i) {
                    out += "sub " + std::to_string(i) + " conc " + Conc(mol.SubConcentrations[size_t(i)]) + "\n";
                    RenderSub(out, mol.SubMolecules[size_t(i)]);
                }
            }
        }
    } catch (const RuntimeFault& f) {
        out += std::string("fault ") + f.what() + "\n";
    }
    for (const auto& e : t.answers.transcript())
        out += "box [" + e.message.title + "] " + e.message.text + "\n";
    return out;
}

struct GoldenCase {
    std::string header;  // "== routine options `input`"
    std::string routine, options, input;
    std::string expected;
};

std::vector<std::string> ReadGolden(const std::string& path, std::vector<GoldenCase>& cases) {
    std::vector<std::string> preamble;
    std::ifstream in(path, std::ios::binary);
    std::string line;
    while (std::getline(in, line)) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        if (line.starts_with("== ")) {
            GoldenCase c;
            c.header = line;
            const auto tick = line.find('`');
            const std::string head = text::Trim(line.substr(3, tick - 3));
            c.routine = head.substr(0, head.find(' '));
            c.options = head.size() > c.routine.size() ? head.substr(c.routine.size()) : "";
            c.input = line.substr(tick + 1, line.rfind('`') - tick - 1);
            cases.push_back(c);
        } else if (cases.empty()) {
            preamble.push_back(line);
        } else if (!line.empty()) {
            cases.back().expected += line + "\n";
        }
    }
    return preamble;
}

// Set HALVO_UPDATE_GOLDEN=1 to write what the parser says now back into the file (then read the diff).
TEST(MoleculeGolden, EveryCaseSaysWhatTheFileSays) {
    const std::string path = test::DataDir() + "/sample/chemistry/molecules.txt";
    std::vector<GoldenCase> cases;
    const auto preamble = ReadGolden(path, cases);
    ASSERT_GT(cases.size(), 40u);
    const bool update = std::getenv("HALVO_UPDATE_GOLDEN") != nullptr;
    std::string rewritten;
    for (const auto& l : preamble) rewritten += l + "\n";
    for (const auto& c : cases) {
        const std::string got = Say(c.routine, c.options, c.input);
        if (!update) {
            EXPECT_EQ(got, c.expected) << c.header;
        }
        rewritten += c.header + "\n" + got + "\n";
    }
    if (update) std::ofstream(path, std::ios::binary) << rewritten;
}

// The edge cases, each stated on its own.
TEST(Parse_Mol, SingleElementTakesTheTableDensities) {
    ChemSession t;
    std::string s = "Si";
    Molecule mol;
    std::int16_t pos = 0;
    EXPECT_EQ(Parse_Mol(t.session, s, mol, pos), 0);
    EXPECT_EQ(mol.SubCount, 1);
    EXPECT_EQ(mol.SubMolecules[1].ElementCount, 1);
    const ElementRecord& si = test::ShippedTables().Elements[13];
    EXPECT_EQ(mol.MolAtomicDensity, si.AtomicDensity);
    EXPECT_FALSE(mol.MolDensityGiven);
}

TEST(Parse_Mol, ElementWithDensityIsMinusOneFromParse_SMolAndZeroFromParse_Mol) {
    ChemSession t;
    std::string s = "Si 2.3";
    std::int16_t pos = 0;
    SubMolecule sub;
    EXPECT_EQ(Parse_SMol(t.session, s, sub, pos), -1);
    EXPECT_TRUE(sub.DensityGiven);
    Molecule mol;
    EXPECT_EQ(Parse_Mol(t.session, s, mol, pos), 0);
    EXPECT_TRUE(mol.MolDensityGiven);
    EXPECT_EQ(F(mol.MolAtomicDensity), "2.3");
}

TEST(Parse_Mol, TextWithDensityIsTheStringAsWritten) {
    ChemSession t;
    for (const std::string in : {"Si 1 O 2", "Si 1 O 2 2.2"}) {
        std::string s = in;
        Molecule mol;
        std::int16_t pos = 0;
        EXPECT_EQ(Parse_Mol(t.session, s, mol, pos), 0);
        EXPECT_EQ(mol.MolTextWithDensity, in);
    }
}

TEST(Parse_Mol, FailedSubMoleculeReturnsOnlyTheBitsSoFar) {
    ChemSession t;
    std::string s = "Si 1 Si 2";
    std::int16_t pos = 0;
    SubMolecule sub;
    EXPECT_EQ(Parse_SMol(t.session, s, sub, pos), 32);
    Molecule mol;
    s = "Si 1 Si 2";
    t.answers.clear();
    EXPECT_EQ(Parse_Mol(t.session, s, mol, pos), 0);  // a failure that reads as success: callers check the box
    EXPECT_EQ(t.answers.transcript().back().message.text,
              "FATAL: Unrecognised submolecule Si 1 Si 2 in molecule Si 1 Si 2 (press Cancel to silence this message)");
}

TEST(Parse_Mol, FitMarkIsANegativeConcentrationWrittenBackAsQuestionEquals) {
    ChemSession t;
    std::string s = "Si ?=1 O 2";
    Molecule mol;
    std::int16_t pos = 0;
    EXPECT_EQ(Parse_Mol(t.session, s, mol, pos), 0);
    const SubMolecule& sub = mol.SubMolecules[1];
    EXPECT_EQ(sub.Concentrations[1], -1.0f);
    EXPECT_EQ(sub.Concentrations[0], 3.0f);
    EXPECT_EQ(mol.MolText, "Si ?=1 O 2");
}

TEST(Parse_Mol, EqualsWithoutQuestionMarkInAMoleculeWithParenthesesIsAConcentrationFailure) {
    ChemSession t;
    std::string s = "( Si 1 O 2 ) 1 ( Al 2 O 3 ) =1";
    Molecule mol;
    std::int16_t pos = 0;
    EXPECT_EQ(Parse_Mol(t.session, s, mol, pos), 4);
    EXPECT_EQ(s, "=1");
}

TEST(Parse_Mol, LengthWarningFrom133CharactersBelowEngine9505) {
    // 33 sub-molecule pairs of 4 characters each ("Si 1" ...) make strings of exact lengths.
    auto ofLength = [](size_t n) {
        std::string s = "Si 1 O 2";
        while (s.size() + 4 <= n) s += " O 1";  // duplicates make no difference to the length check
        s.resize(n, '0');
        return s;
    };
    for (size_t n : {132u, 133u}) {
        for (int version : {0, 9504, 9505}) {
            ChemSession t;
            t.session.VKSversionNumber = std::int16_t(version);
            std::string s = ofLength(n);
            ASSERT_EQ(s.size(), n);
            Molecule mol;
            std::int16_t pos = 0;
            Parse_Mol(t.session, s, mol, pos);
            const bool warned = t.boxes().find("Parse_Mol: fatal length error for VKS versions below 9.5e") !=
                                std::string::npos;
            EXPECT_EQ(warned, n == 133 && version < 9505) << n << " " << version;
        }
    }
}

TEST(MoleculeErrorText, JoinsTheTextsOfTheBitsBelow0x200000) {
    EXPECT_EQ(MoleculeErrorText(0), "");
    EXPECT_EQ(MoleculeErrorText(-5), "");
    EXPECT_EQ(MoleculeErrorText(3), "element not recognised; ;  isotope not on stable isotope list; ");
    EXPECT_EQ(MoleculeErrorText(1024 | 4096),
              "sub-molecule syntax error: parentheses spaced or bare elts in molecule, structure file must be "
              "corrected; ;  parse_mol code error! ");
    EXPECT_EQ(MoleculeErrorText(0x200000), "");
    EXPECT_EQ(MoleculeErrorText(0x300000 | 16),
              "buffer1 empty; ;  warning, parentheses spaced or bare elts in molecule, structure file must be corrected; ");
}

TEST(ConvertUpperFlags, GivesTheNegativeCodesOnlyWhenNoErrorBitIsSet) {
    EXPECT_EQ(ConvertUpperFlags(0x5000000), -5);
    EXPECT_EQ(ConvertUpperFlags(0x1000000), -1);
    EXPECT_EQ(ConvertUpperFlags(0x4000000), -4);
    EXPECT_EQ(ConvertUpperFlags(0x100000), -8);  // bit 0x10 of the upper half
    EXPECT_EQ(ConvertUpperFlags(0), 0);
    EXPECT_EQ(ConvertUpperFlags(0x5000000 | 1024), 0x5000000 | 1024);
}

// No string made of the language's own pieces, however mangled, may end other than with a code or
// the runtime fault that the caller's trap reports.
TEST(Parse_Mol, RandomStringsOfTheLanguageNeverCrash) {
    ChemSession t;
    SetWarningsFlag(t.session, false);
    DefaultAnswers quiet;
    t.session.ui = &quiet;
    const std::vector<std::string> pieces = {"Si", "O",  "28Si", "99Si", "Np", "X", "nn", "D",   "MB", "1",  "2.5",
                                             "?=1", "=", "?",   "(",    ")",  " ", "  ", "\t",  "e",  "-1", "1e3",
                                             "Al",  "N", "((",  "))",   "?=", "0", "1e40", "Qq", "1d2", "\r"};
    std::mt19937 rng(20261123);
    int faults = 0;
    for (int i = 0; i < 20000; ++i) {
        std::string s;
        const int n = int(rng() % 16);
        for (int k = 0; k < n; ++k) {
            s += pieces[rng() % pieces.size()];
            if (rng() % 3) s += " ";
        }
        Molecule mol;
        std::int16_t pos = 0;
        std::string copy = s;
        try {
            Parse_Mol(t.session, copy, mol, pos);
        } catch (const RuntimeFault&) {
            ++faults;
        }
        SubMolecule sub;
        copy = s;
        try {
            Parse_SMol(t.session, copy, sub, pos);
        } catch (const RuntimeFault&) {
            ++faults;
        }
    }
    EXPECT_GT(faults, 0);  // "Np", "X" alone and the like do reach the trap
}

}  // namespace
}  // namespace halvo
