#include "sample/density.h"

#include <gtest/gtest.h>

#include <cmath>

#include "chemistry_fixture.h"
#include "sample/element_table.h"
#include "text/lines.h"
#include "text/tokens.h"

namespace halvo {
namespace {

using test::ChemSession;
using test::F;

SubMolecule Parsed(ChemSession& t, const std::string& text) {
    SubMolecule sub;
    std::string s = text;
    std::int16_t pos = 0;
    const std::int32_t code = Parse_SMol(t.session, s, sub, pos);
    EXPECT_LE(code, 0) << text;
    t.answers.clear();
    return sub;
}

float AtomicDensityOf(int z) { return test::ShippedTables().Elements[size_t(z - 1)].AtomicDensity; }

TEST(CalcDensity, AnElementWithoutZTakesTheDensityOfTheOneBefore) {
    ChemSession t;
    SubMolecule sub = Parsed(t, "Si 1 O 1 Al 1");
    sub.AtomicNumbers[2] = 0;  // as a special particle would stand
    EXPECT_EQ(F(CalcDensity(t.session, sub)), F((AtomicDensityOf(14) * 2 + AtomicDensityOf(13)) / 3));
    sub.AtomicNumbers[1] = 0;  // the first has no density before it
    EXPECT_EQ(F(CalcDensity(t.session, sub)), F((AtomicDensityOf(13)) / 3));
    EXPECT_EQ(t.boxes(), "");
}

TEST(CalcDensity, RefusesASumThatDiffersFromSlotZero) {
    ChemSession t;
    SubMolecule sub = Parsed(t, "Si 1 O 2");
    sub.SubName = "SiO2";
    sub.Concentrations[0] = 3.0001f;
    EXPECT_EQ(CalcDensity(t.session, sub), -1);
    EXPECT_EQ(t.boxes(), "[CalcDensity code error] Code error: sum of concs <> conc(0) in moleculeSiO2\n");
    SubMolecule none;
    EXPECT_EQ(CalcDensity(t.session, none), -1);  // no elements: no box
    EXPECT_EQ(t.answers.transcript().size(), 1u);
}

TEST(Density2Rho, DemandsTheExactMeanWhileRho2DensityAllowsAOneSidedDifference) {
    ChemSession t;
    SubMolecule base = Parsed(t, "Si 1 O 2");
    base.SubName = "X";
    base.SubMassDensity = 2.2f;
    const float mean = base.Masses[0];

    SubMolecule above = base;  // Masses[0] too large: only Density2Rho minds
    above.Masses[0] = mean + 1;
    EXPECT_EQ(Density2Rho(t.session, above), -1);
    EXPECT_EQ(t.boxes(), "[Density2Rho code error] Code error: average mass <> AMASS(0) in moleculeX\n");
    t.answers.clear();
    EXPECT_EQ(F(Rho2Density(t.session, above)), F(float(2.2f / (double(mean) * kDensityConstant))));
    EXPECT_EQ(above.Masses[0], mean);  // written back
    EXPECT_EQ(t.boxes(), "");

    SubMolecule slightlyAbove = base;
    slightlyAbove.Masses[0] = std::nextafter(mean, 100.0f);
    EXPECT_EQ(Density2Rho(t.session, slightlyAbove), -1);
    t.answers.clear();

    SubMolecule below = base;  // more than 1e-7 below the mean: both refuse
    below.Masses[0] = mean - 1e-5f;
    EXPECT_EQ(Rho2Density(t.session, below), -1);
    EXPECT_EQ(t.boxes(), "[Rho2Density code error] Code error: average mass <> AMASS(0) in molecule X\n");
}

TEST(Rho2Density, KeepsTheSignOfFittedConcentrationsSoAQuestionMarkRecordFails) {
    ChemSession t;
    SubMolecule sub = Parsed(t, "Si ?=1 O 2");
    sub.SubName = "fit";
    EXPECT_GT(Density2Rho(t.session, sub), 0);
    EXPECT_EQ(Rho2Density(t.session, sub), -1);
    EXPECT_EQ(t.boxes(), "[Rho2Density code error] Code error: sum of concs <> conc(0) in molecule fit\n");
}

TEST(Density, DivisorErrorsHaveTheirOwnTitles) {
    ChemSession t;
    SubMolecule zero = Parsed(t, "Si 1 O 2");
    SubMolecule massless = zero;
    zero.Concentrations = {0, 0, 0};
    massless.Masses = {0, 0, 0};
    EXPECT_EQ(Density2Rho(t.session, zero), -1);
    EXPECT_EQ(Rho2Density(t.session, zero), -1);
    EXPECT_EQ(CalcDensity(t.session, zero), -1);
    EXPECT_EQ(Rho2Density(t.session, massless), -1);
    EXPECT_EQ(t.boxes(),
              "[Density2Rho divisor error] Cannot calculate density:  sum of concentrations is zero\n"
              "[Rho2Density divisor error] Cannot calculate density:  sum of concentrations is zero\n"
              "[CalcDensity divisor error] Cannot calculate density:  sum of concentrations is zero\n"
              "[Rho2Density divisor error] Cannot calculate density:  average atomic mass is zero\n");
}

TEST(Density, MassAndAtomicDensityGoBackAndForth) {
    ChemSession t;
    SubMolecule sub = Parsed(t, "Al 2 O 3 3.95");
    const float atomic = sub.SubAtomicDensity;
    sub.SubMassDensity = Density2Rho(t.session, sub);
    sub.SubAtomicDensity = 0;
    EXPECT_NEAR(Rho2Density(t.session, sub), atomic, atomic * 1e-6f);
}

TEST(CalcMolDensity, WeighsTheSubMoleculesByTheSizeOfTheirConcentrations) {
    ChemSession t;
    Molecule mol;
    std::string s = "( Si 1 O 2 ) ?=1 ( Al 2 O 3 ) 3";
    std::int16_t pos = 0;
    ASSERT_EQ(Parse_Mol(t.session, s, mol, pos), 0);
    const SubMolecule& a = mol.SubMolecules[1];
    const SubMolecule& b = mol.SubMolecules[2];
    EXPECT_EQ(pos, 1);  // one "?"
    EXPECT_EQ(mol.SubConcentrations[0], 4.0f);
    EXPECT_EQ(F(mol.MolAtomicDensity), F((a.SubAtomicDensity + 3 * b.SubAtomicDensity) / 4));
    EXPECT_EQ(F(mol.MolMassDensity), F((a.SubMassDensity + 3 * b.SubMassDensity) / 4));
    EXPECT_EQ(F(mol.MolAverageMass), F((a.Masses[0] + 3 * b.Masses[0]) / 4));
    Molecule empty;
    EmptyMol(empty, {2, 0});
    EXPECT_EQ(CalcMolDensity(t.session, empty), -1);
}

TEST(Thickness, ConversionsAndTheirRoundTrips) {
    const float D = 4.996026f, A = 28.0855f;  // silicon
    EXPECT_EQ(F(NmToTFU(100, D)), "499.6026");
    EXPECT_EQ(F(AngstromToTFU(1000, D)), "499.6026");
    EXPECT_EQ(F(TFUToNm(499.6026f, D)), "100");
    EXPECT_EQ(F(TFUToAngstrom(499.6026f, D)), "1000");
    EXPECT_EQ(F(TFUToUg(1000, A)), F(float(1000 * 0.0166053886 * 28.0855f / 10)));
    for (float t : {1.0f, 123.5f, 1e5f}) {
        EXPECT_NEAR(NmToTFU(TFUToNm(t, D), D), t, t * 1e-6f);
        EXPECT_NEAR(UgToTFU(TFUToUg(t, A), A), t, t * 1e-6f);
        EXPECT_NEAR(AngstromToTFU(TFUToAngstrom(t, D), D), t, t * 1e-6f);
    }
    EXPECT_EQ(TFUToNm(10, 0), -1);
    EXPECT_EQ(TFUToAngstrom(10, 1e-19f), -1);
    EXPECT_EQ(UgToTFU(10, 0), -1);
}

TEST(FormatNumber, ValuesFromTheTable) {
    int cases = 0;
    for (const auto& line : text::SplitLines(test::ReadData("sample/chemistry/format_number.txt"))) {
        if (line.empty() || line[0] == '#') continue;
        std::vector<std::string> f;
        std::string rest = line;
        for (size_t bar; (bar = rest.find('|')) != std::string::npos; rest = rest.substr(bar + 1))
            f.push_back(text::Trim(rest.substr(0, bar)));
        f.push_back(text::Trim(rest));
        ASSERT_EQ(f.size(), 4u) << line;
        std::int16_t decimals = std::int16_t(std::stoi(f[1]));
        const float value = text::CSng(text::Val(f[0]));
        EXPECT_EQ(FormatNumber(value, decimals), f[2]) << line;
        EXPECT_EQ(decimals, std::stoi(f[3])) << line;
        ++cases;
    }
    EXPECT_GT(cases, 30);
}

TEST(FormatNumber, DoubleValuesReadTheirFifteenDigitForm) {
    std::int16_t d = 2;
    EXPECT_EQ(FormatNumber(0.125, d), ".13");  // half away from zero on the decimal form
    d = 2;
    EXPECT_EQ(FormatNumber(-0.125, d), "-.13");
    d = 3;
    EXPECT_EQ(FormatNumber(1.0005, d), "1.001");
    EXPECT_EQ(FormatScientific("0", 2), "0.00E+00");
    EXPECT_EQ(FormatScientific("-9.996e-3", 2), "-1.00E-02");
    EXPECT_EQ(FormatPicture("99.96", "##.0"), "100.0");
}

TEST(ShowSigFigs, CaptionsAndTheDecimalsOfANumberText) {
    std::int16_t d = 3;
    EXPECT_EQ(ShowSigFigs(d, "1.5"), "SigFigs = 3");
    EXPECT_EQ(d, 3);
    d = -7;
    EXPECT_EQ(ShowSigFigs(d, "1.2345"), "max");
    EXPECT_EQ(d, 4);
    d = -1;
    EXPECT_EQ(ShowSigFigs(d, "2.50E+03"), "max");
    EXPECT_EQ(d, 2);
    d = -1;
    ShowSigFigs(d, "12");
    EXPECT_EQ(d, 0);
}

}  // namespace
}  // namespace halvo
