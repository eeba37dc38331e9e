#include "sample/element_table.h"

#include <gtest/gtest.h>

#include <sstream>

#include "chemistry_fixture.h"
#include "text/fault.h"
#include "text/lines.h"
#include "text/tokens.h"

namespace halvo {
namespace {

using test::ChemSession;
using test::F;
using test::ScratchDir;
using test::TestSession;

std::string Unquote(const std::string& field) {
    const std::string t = text::Trim(field);
    if (t.size() >= 2 && t.front() == '"' && t.back() == '"') return t.substr(1, t.size() - 2);
    return t;
}

std::vector<std::string> Fields(const std::string& line) {
    std::vector<std::string> out;
    std::string cur;
    bool quoted = false;
    for (char c : line) {
        if (c == '"') quoted = !quoted;
        if (c == '|' && !quoted) {
            out.push_back(cur);
            cur.clear();
        } else {
            cur += c;
        }
    }
    out.push_back(cur);
    return out;
}

TEST(assignZA, NamesFromTheTable) {
    const auto lines = text::SplitLines(test::ReadData("sample/chemistry/assignza.txt"));
    int cases = 0;
    for (const auto& line : lines) {
        if (line.empty() || line[0] == '#') continue;
        const auto f = Fields(line);
        ASSERT_EQ(f.size(), 11u) << line;
        ChemSession t;
        t.session.PathVKS = "/opt/vks";
        std::string name = Unquote(f[0]);
        std::int16_t z = 33, a = 33, failed = 5;
        float mass = -7;
        ElementSelection sel;
        std::int16_t kind = 0;
        assignZA(t.session, name, z, mass, a, failed, sel, kind);
        SCOPED_TRACE(line);
        EXPECT_EQ(name, Unquote(f[1]));
        EXPECT_EQ(z, std::stoi(f[2]));
        EXPECT_EQ(a, std::stoi(f[3]));
        const std::string m = text::Trim(f[4]);
        EXPECT_EQ(F(mass), m == "-" ? F(-7.0f) : F(text::CSng(text::Val(m))));
        EXPECT_EQ(failed, std::stoi(f[5]));
        EXPECT_EQ(sel.TableButton, std::stoi(f[6]));
        EXPECT_EQ(sel.SelIsotopeIndex, std::stoi(f[7]));
        EXPECT_EQ(sel.SelName, Unquote(f[8]));
        EXPECT_EQ(kind, std::stoi(f[9]));
        const std::string box = text::Trim(f[10]);
        EXPECT_EQ(t.boxes(), box == "-" ? "" : box + "\n");
        ++cases;
    }
    EXPECT_GT(cases, 30);
}

TEST(assignZA, EveryElementOfTheTableIsFoundByItsSymbol) {
    ChemSession t;
    for (int z = 1; z <= 92; ++z) {
        std::string name(test::ShippedTables().Elements[size_t(z - 1)].Symbol);
        std::int16_t gotZ = 0, a = 0, failed = 0;
        float mass = 0;
        ElementSelection sel;
        assignZA(t.session, name, gotZ, mass, a, failed, sel, t.session.AnalysisKind);
        EXPECT_EQ(gotZ, z) << name;
        EXPECT_EQ(std::string(kElementSymbols.substr(size_t(2 * z - 2), 2)), name.size() == 1 ? name + " " : name);
    }
}

TEST(assignZA, ElementsPastUraniumRaiseTheSubscriptFaultForTheCallersTrap) {
    ChemSession t;
    for (const char* past : {"Np", "Pu", "rg", "239Pu"}) {
        std::string name = past;
        std::int16_t z = 0, a = 0, failed = 0;
        float mass = 0;
        ElementSelection sel;
        try {
            assignZA(t.session, name, z, mass, a, failed, sel, t.session.AnalysisKind);
            ADD_FAILURE() << past << " did not fault";
        } catch (const RuntimeFault& f) {
            EXPECT_EQ(f.code(), RuntimeFault::SubscriptOutOfRange) << past;
        }
    }
}

TEST(assignZA, SelectionMode99KeepsTheButtonOfThePlainElement) {
    ChemSession t;
    for (const char* n : {"2H", "D", "4He", "28Si"}) {
        std::string name = n;
        std::int16_t z = 0, a = 0, failed = 0;
        float mass = 0;
        ElementSelection sel;
        sel.SelectionMode = 99;
        assignZA(t.session, name, z, mass, a, failed, sel, t.session.AnalysisKind);
        EXPECT_EQ(sel.TableButton, sel.ZIndex) << n;
        EXPECT_EQ(sel.TableButton, z - 1) << n;
    }
}

TEST(assignZA, IsotopeMessageIsSilencedWithTheOtherWarnings) {
    ChemSession t;
    SetWarningsFlag(t.session, false);
    std::string name = "99Si";
    std::int16_t z = 0, a = 0, failed = 0;
    float mass = 0;
    ElementSelection sel;
    assignZA(t.session, name, z, mass, a, failed, sel, t.session.AnalysisKind);
    EXPECT_EQ(failed, -1);
    EXPECT_EQ(z, 14);
    EXPECT_EQ(t.boxes(), "");
}

TEST(ElementTable, ShippedTablesAreReadInFull) {
    const DataTables& tables = test::ShippedTables();
    const ElementRecord& h = tables.Elements[0];
    EXPECT_EQ(h.Symbol, "H");
    EXPECT_EQ(h.Name, "Hydrogen");
    EXPECT_EQ(h.IsotopeCount, 3);
    EXPECT_EQ(h.IsotopeList, "1H2H3H");
    EXPECT_EQ((std::vector<int>{h.IsotopeA[1], h.IsotopeA[2], h.IsotopeA[3]}), (std::vector<int>{1, 2, 3}));
    const ElementRecord& na = tables.Elements[10];
    EXPECT_EQ(na.Name, "Sodium");
    EXPECT_EQ(na.LatinName, "(Natrium)");
    EXPECT_EQ(na.Z, 11);
    const ElementRecord& si = tables.Elements[13];
    EXPECT_EQ(si.Symbol, "Si");
    EXPECT_EQ(si.IsotopeA[0], 28);
    EXPECT_EQ(F(si.AMASS), "28.0855");
    EXPECT_EQ(F(si.MassDensity), "2.33");
    EXPECT_EQ(F(si.AtomicDensity), "4.996026");
    EXPECT_EQ(tables.Elements[49].IsotopeCount, 7);  // tin keeps its seven most abundant
    EXPECT_EQ(tables.Elements[91].Symbol, "U");
    EXPECT_EQ(tables.Compounds.CompoundCount, 14);
}

TEST(ElementTable, CompoundsGetTheirTrueMeanMassAndAtomicDensity) {
    const SubMolecule& sio2 = test::ShippedTables().Compounds.Compounds[1];
    EXPECT_EQ(sio2.SubName, "SiO2");
    EXPECT_EQ(sio2.Isotopes[0], "Si 1 O 2");
    EXPECT_EQ(sio2.Symbols[1], "Si");
    EXPECT_EQ(sio2.Isotopes[2], "O");
    EXPECT_EQ(sio2.MassNumbers[1], -1);  // natural elements
    EXPECT_EQ(F(sio2.Concentrations[0]), "3");
    // The provisional mean (sum of m x m x c over sum of c) is replaced by the true one.
    const float mean = (1 * 28.0855f + 2 * 15.9994f) / 3;
    EXPECT_EQ(F(sio2.Masses[0]), F(mean));
    EXPECT_EQ(F(sio2.SubMassDensity), "2.2");
    EXPECT_EQ(F(sio2.SubAtomicDensity), F(float(2.2f / (double(mean) * 0.0166053886))));
}

// Table files written into a scratch engine directory.
struct EngineFiles {
    ScratchDir dir;
    TestSession t;
    EngineFiles() { t.session.PathVKS = dir.path(); }
    static std::string Read(const std::string& name) { return test::ReadData("../../examples/engine/" + name); }
    // The shipped file with line `index` (0-based) replaced.
    static std::string WithLine(const std::string& name, size_t index, const std::string& line) {
        auto lines = text::SplitLines(Read(name));
        if (index < lines.size())
            lines[index] = line;
        else
            lines.push_back(line);
        std::string out;
        for (auto& l : lines) out += l + "\r\n";
        return out;
    }
};

TEST(LoadElementTables, MissingFilesAreReportedByFileExistsOnlyAndSkipped) {
    EngineFiles e;
    EXPECT_TRUE(LoadElementTables(e.t.session));
    const std::string p = e.dir.path();
    EXPECT_EQ(e.t.answers.transcriptText(), "[FileExists] File " + p + "/isotopes.dat does not exist\n[FileExists] File " +
                                                 p + "/pscoef.dat does not exist\n[FileExists] File " + p +
                                                 "/compound.dat does not exist\n");
    EXPECT_FALSE(e.t.session.Tables.IsotopesLoaded);
    // While the program starts, FileExists is quiet.
    EngineFiles quiet;
    quiet.t.session.Starting = true;
    EXPECT_TRUE(LoadElementTables(quiet.t.session));
    EXPECT_EQ(quiet.t.answers.transcriptText(), "");
}

TEST(LoadElementTables, NamesAreFoundWhateverTheirCase) {
    EngineFiles e;
    e.dir.write("ISOTOPES.DAT", EngineFiles::Read("isotopes.dat"));
    e.dir.write("PsCoef.dat", EngineFiles::Read("pscoef.dat"));
    e.dir.write("compound.dat", EngineFiles::Read("compound.dat"));
    EXPECT_TRUE(LoadElementTables(e.t.session));
    EXPECT_EQ(e.t.answers.transcriptText(), "");
    EXPECT_TRUE(e.t.session.Tables.IsotopesLoaded && e.t.session.Tables.PscoefLoaded);
}

TEST(LoadElementTables, BrokenFilesGiveTheirLoadErrorAndCancelEndsTheProgram) {
    struct Case {
        std::string file, bytes;
        std::string box;
        bool loaded;
    };
    const std::string startError =
        "[Halvo load error] Unexpected Halvo start error (Cancel to exit Halvo)\n"
        "PathVKS,VKSlongver,Halvo_MDI.Caption,FilePath,dlg_FileName,datafile = ";
    const std::vector<Case> cases = {
        // Too few lines: input past the end.
        {"isotopes.dat", "header\r\nHydrogen\t1\t1H\t1.0078\t99.9\r\n",
         "[Halvo load error] Unexpected error handling Isotopes.dat file (Cancel to exit Halvo)\n", false},
        // A mass number that does not fit 16 bits.
        {"pscoef.dat", EngineFiles::WithLine("pscoef.dat", 4, "5\t99999\t11.0\t10.81\t2.34\t13.0"),
         "[Halvo load error] Error in pscoef.dat file, line number (Z) =5 (Cancel to exit Halvo)\n", false},
        {"pscoef.dat", "1\t1\t1.0\t1.0\t0.07\t4.2\r\n",
         "[Halvo load error] Error in pscoef.dat file, line number (Z) =2 (Cancel to exit Halvo)\n", false},
        // A record that stops short of its density.
        {"compound.dat", "\"SiO2\",2,\"Si\",1,\"O\",2,2.2\r\n\"Al2O3\",2,\"Al\",2,\"O\"", startError, false},
        {"compound.dat", "\"Bad\",-1\r\n", startError, false},
        // A name that is no element stays in the table with Z = -1: the load goes on.
        {"compound.dat", "\"W\",1,\"W\",1,19.3\r\n\"Odd\",2,\"Qq\",1,\"O\",1,1.5\r\n", "", true},
    };
    for (const auto& c : cases) {
        for (int answer : {mb::OK, mb::Cancel}) {
            EngineFiles e;
            e.dir.write("isotopes.dat", EngineFiles::Read("isotopes.dat"));
            e.dir.write("pscoef.dat", EngineFiles::Read("pscoef.dat"));
            e.dir.write("compound.dat", EngineFiles::Read("compound.dat"));
            e.dir.write(c.file, c.bytes);
            e.t.answers.push(answer);
            const bool goOn = LoadElementTables(e.t.session);
            SCOPED_TRACE(c.file + ": " + c.bytes.substr(0, 40));
            const std::string shown = e.t.answers.transcriptText();
            EXPECT_EQ(shown.substr(0, c.box.size()), c.box);
            if (c.box.empty()) {
                EXPECT_EQ(shown, "");
            }
            EXPECT_EQ(goOn, c.box.empty() || answer == mb::OK);
            if (!c.box.empty()) {
                EXPECT_EQ(e.t.answers.transcript()[0].message.buttons, mb::OKCancel | mb::Exclamation);
            }
            if (c.file == "compound.dat") {
                EXPECT_EQ(e.t.session.Tables.CompoundsLoaded, c.loaded);
            }
        }
    }
}

TEST(LoadElementTables, UnknownCompoundElementKeepsZMinusOne) {
    EngineFiles e;
    e.dir.write("isotopes.dat", EngineFiles::Read("isotopes.dat"));
    e.dir.write("pscoef.dat", EngineFiles::Read("pscoef.dat"));
    e.dir.write("compound.dat", "\"W\",1,\"W\",1,19.3\r\n\"Odd\",2,\"Qq\",1,\"28Si\",1,1.5\r\n");
    ASSERT_TRUE(LoadElementTables(e.t.session));
    const SubMolecule& odd = e.t.session.Tables.Compounds.Compounds[1];
    EXPECT_EQ(odd.AtomicNumbers[1], -1);
    EXPECT_EQ(odd.Symbols[1], "");
    EXPECT_EQ(odd.Isotopes[0], "1 Si 1");  // blank symbol of the refused name, trimmed
    EXPECT_EQ(odd.MassNumbers[2], 28);     // an isotope keeps its mass number
    EXPECT_EQ(odd.Isotopes[2], "28Si");
    EXPECT_EQ(e.t.session.Tables.Compounds.CompoundCount, 1);
}

TEST(LoadElementTables, IsotopeLineReadsAtMostSevenTriples) {
    EngineFiles e;
    std::string line = "Carbon\t6";
    for (int a = 10; a < 18; ++a) line += "\t" + std::to_string(a) + "C\t" + std::to_string(a) + ".5\t1";
    e.dir.write("isotopes.dat", EngineFiles::WithLine("isotopes.dat", 6, line));
    e.dir.write("pscoef.dat", EngineFiles::Read("pscoef.dat"));
    e.dir.write("compound.dat", EngineFiles::Read("compound.dat"));
    ASSERT_TRUE(LoadElementTables(e.t.session));
    const ElementRecord& c = e.t.session.Tables.Elements[5];
    EXPECT_EQ(c.IsotopeCount, 7);
    EXPECT_EQ(c.IsotopeA[7], 16);
    EXPECT_EQ(F(c.IsotopeMass[7]), "16.5");
    EXPECT_EQ(c.IsotopeList, "10C11C12C13C14C15C16C");
    EXPECT_EQ(e.t.answers.transcriptText(), "");
}

TEST(SplitIsotopeToken, TakesTheSymbolFromTheFirstTokenAndTheNumbersFromTheRest) {
    std::string symbol;
    std::int16_t a = -1;
    SplitIsotopeToken("28Si", symbol, a);
    EXPECT_EQ(symbol, "Si");
    EXPECT_EQ(a, 28);
    SplitIsotopeToken("30Si", symbol, a);  // symbol given: the part to its left
    EXPECT_EQ(a, 30);
    SplitIsotopeToken("Si", symbol, a);  // nothing to its left
    EXPECT_EQ(a, 0);
    std::string fresh;
    SplitIsotopeToken("123456Xx", fresh, a);  // longer than 5 characters: no symbol
    EXPECT_EQ(fresh, "");
    EXPECT_EQ(a, 0);
    std::string big;
    EXPECT_THROW(SplitIsotopeToken("99999", big, a), RuntimeFault);
}

TEST(CompoundTableReady, RefusesWhenCompoundDatWasNotRead) {
    TestSession t;
    EXPECT_FALSE(CompoundTableReady(t.session, "Molecules"));
    EXPECT_EQ(t.answers.transcriptText(), "[Molecules] Sorry - Can't read compound.dat\n");
    ChemSession c;
    EXPECT_TRUE(CompoundTableReady(c.session, "Molecules"));
}

}  // namespace
}  // namespace halvo
