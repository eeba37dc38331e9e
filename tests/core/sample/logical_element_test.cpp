#include "sample/logical_element.h"

#include <gtest/gtest.h>

#include "chemistry_fixture.h"

namespace halvo {
namespace {

using test::ChemSession;
using test::F;

Molecule Mol(ChemSession& t, const std::string& text) {
    Molecule mol;
    std::string s = text;
    std::int16_t pos = 0;
    EXPECT_LE(Parse_Mol(t.session, s, mol, pos), 0) << text;
    return mol;
}

// Si, SiO2, O, Al2O3: elements and molecules in turn.
void BuildStructure(ChemSession& t) {
    TargetRecList& list = t.session.Structure.Targets;
    const char* texts[] = {"Si", "Si 1 O 2", "O", "Al 2 O 3"};
    for (std::int16_t i = 1; i <= 4; ++i) {
        const bool molecule = i % 2 == 0;
        ASSERT_TRUE(AssignLE2Target(t.session, list, i, Mol(t, texts[i - 1]), molecule));
        list.LogicalElements[size_t(i)].LEComposition = texts[i - 1];
    }
}

std::string Compositions(const TargetRecList& list) {
    std::string out;
    for (int i = 1; i <= list.LECount; ++i) {
        const LogicalElement& le = list.LogicalElements[size_t(i)];
        out += le.LEComposition;
        if (le.MoleculeIndex >= 1)
            out += "[m" + std::to_string(le.MoleculeIndex) + " of LE " +
                   std::to_string(list.Molecules.MoleculeLE[size_t(le.MoleculeIndex)]) + ": " +
                   list.Molecules.Molecules[size_t(le.MoleculeIndex)].MolText + "]";
        out += ";";
    }
    return out;
}

TEST(LEnewAndLEdel, KeepEveryMoleculeWithItsLogicalElement) {
    ChemSession t;
    BuildStructure(t);
    StructureRecord& st = t.session.Structure;
    EXPECT_EQ(Compositions(st.Targets), "Si;Si 1 O 2[m1 of LE 2: Si 1 O 2];O;Al 2 O 3[m2 of LE 4: Al 2 O 3];");

    ASSERT_TRUE(LEnew(t.session, 2));  // the first element no entry has: hydrogen
    EXPECT_EQ(Compositions(st.Targets), "Si;H;Si 1 O 2[m1 of LE 3: Si 1 O 2];O;Al 2 O 3[m2 of LE 5: Al 2 O 3];");
    EXPECT_EQ((std::vector<int>{st.NLE, st.NMolecules, st.NElements}), (std::vector<int>{5, 2, 3}));
    EXPECT_EQ(st.Targets.ElementLECount, 3);
    EXPECT_EQ(st.Targets.LogicalElements[0].MoleculeIndex, -1);  // the blank entry

    ASSERT_TRUE(LEnew(t.session, 6));  // behind the last
    EXPECT_EQ(st.Targets.LogicalElements[6].LEComposition, "He");

    ASSERT_TRUE(LEdel(t.session, 3));
    EXPECT_EQ(Compositions(st.Targets), "Si;H;O;Al 2 O 3[m1 of LE 4: Al 2 O 3];He;");
    EXPECT_EQ((std::vector<int>{st.NLE, st.NMolecules, st.NElements}), (std::vector<int>{5, 1, 4}));
    EXPECT_EQ(t.boxes(), "");
}

TEST(LEnewAndLEdel, AnIndexOffTheListIsTheCodeErrorBox) {
    ChemSession t;
    BuildStructure(t);
    EXPECT_FALSE(LEnew(t.session, 0));
    EXPECT_FALSE(LEnew(t.session, 6));
    EXPECT_FALSE(LEdel(t.session, 5));
    EXPECT_EQ(t.boxes(),
              "[LEnew error] Code error at logical element LE=0\n[LEnew error] Code error at logical element LE=6\n"
              "[LEdel error] Code error at logical element LE=5\n");
    EXPECT_EQ(t.answers.transcript()[0].message.buttons, mb::Critical);
    EXPECT_EQ(t.session.Structure.Targets.LECount, 4);  // untouched
}

TEST(MakeNewLE, TakesTheFirstElementNotYetUsedWithItsTableValues) {
    ChemSession t;
    TargetRecList list;
    LogicalElement h, he;
    h.LEComposition = "H";
    he.LEComposition = " He ";
    CopyLE(list, TargetRecList{1, {LogicalElement{}, h}, {}, 1}, 1);
    CopyLE(list, TargetRecList{1, {LogicalElement{}, he}, {}, 1}, 1);
    LogicalElement le;
    MakeNewLE(t.session, le, list);
    const ElementRecord& li = test::ShippedTables().Elements[2];
    EXPECT_EQ(le.LEComposition, "Li");
    EXPECT_EQ(le.LEName, "Li");
    EXPECT_EQ(le.LESymbol, "Li");
    EXPECT_EQ(le.LEZ, 3);
    EXPECT_TRUE(le.HasIsotopes);
    EXPECT_EQ(le.LEDensity, li.AtomicDensity);
    EXPECT_EQ(F(le.LEAverageMass), F(li.AMASS));
    EXPECT_EQ(le.ConcMax, 1.0f);
    EXPECT_EQ(le.MoleculeIndex, -1);
    EXPECT_FALSE(le.LEDensityGiven);
}

TEST(CopyLE, AnEmptyListFirstGetsItsBlankEntry) {
    ChemSession t;
    BuildStructure(t);
    TargetRecList copy;
    CopyLE(copy, t.session.Structure.Targets, 4);
    ASSERT_EQ(copy.LogicalElements.size(), 2u);
    EXPECT_EQ(copy.LogicalElements[0].MoleculeIndex, -1);
    EXPECT_EQ(copy.LECount, 1);
    EXPECT_EQ(copy.LogicalElements[1].MoleculeIndex, 1);
    EXPECT_EQ(copy.Molecules.MoleculeLE[1], 1);
    EXPECT_EQ(copy.Molecules.Molecules[1].MolText, "Al 2 O 3");
    EXPECT_EQ(copy.ElementLECount, 0);
}

TEST(AssignTRLAndMRL, AnInconsistentListGivesTheCodeErrorBoxAndLeavesTheTargetAlone) {
    ChemSession t;
    BuildStructure(t);
    TargetRecList broken = t.session.Structure.Targets;
    broken.LogicalElements[4].MoleculeIndex = 7;
    broken.LogicalElements[4].LEFileLine = "Al 2 O 3 4.1";
    TargetRecList dest;
    EXPECT_FALSE(AssignTRL(t.session, dest, broken));
    broken.LogicalElements[4].LEFileLine.clear();
    broken.LogicalElements[4].LEName.clear();
    EXPECT_FALSE(AssignTRL(t.session, dest, broken));
    EXPECT_EQ(dest.LECount, 0);
    MoleculeRecList mrl = t.session.Structure.Targets.Molecules;
    mrl.MoleculeLE.resize(2);
    MoleculeRecList mdest;
    EXPECT_FALSE(AssignMRL(t.session, mdest, mrl));
    EXPECT_EQ(t.boxes(),
              "[AssignTRL error] Code Error for TargetRecList at logical element Al 2 O 3 4.1\n"
              "[AssignTRL error] Code Error for TargetRecList at logical element 4 target\n"
              "[AssignMRL error] Code Error for MoleculeRecList Al 2 O 3\n");
    EXPECT_TRUE(AssignTRL(t.session, dest, t.session.Structure.Targets));
    EXPECT_EQ(Compositions(dest), Compositions(t.session.Structure.Targets));
}

TEST(AssignStructure, DoesNothingWhileTheCurrentStructureIsNotAssigned) {
    ChemSession t;
    BuildStructure(t);
    StructureRecord copy;
    t.session.Structure.NotAssigned = true;
    EXPECT_FALSE(AssignStructure(t.session, copy, t.session.Structure));
    EXPECT_EQ(copy.Targets.LECount, 0);
    t.session.Structure.NotAssigned = false;
    t.session.Structure.StructureFile = "a.str";
    EXPECT_TRUE(AssignStructure(t.session, copy, t.session.Structure));
    EXPECT_EQ(copy.StructureFile, "a.str");
    EXPECT_EQ(Compositions(copy.Targets), Compositions(t.session.Structure.Targets));
}

TEST(AssignLE2Target, ReplacingAMoleculeRenumbersTheOthers) {
    ChemSession t;
    BuildStructure(t);
    TargetRecList& list = t.session.Structure.Targets;
    ASSERT_TRUE(AssignLE2Target(t.session, list, 2, Mol(t, "Ti 1 O 2"), true));
    list.LogicalElements[2].LEComposition = "Ti 1 O 2";
    EXPECT_EQ(Compositions(list), "Si;Ti 1 O 2[m2 of LE 2: Ti 1 O 2];O;Al 2 O 3[m1 of LE 4: Al 2 O 3];");
    ASSERT_TRUE(AssignLE2Target(t.session, list, 4, Mol(t, "N"), false));
    EXPECT_EQ(list.LogicalElements[4].MoleculeIndex, -1);
    EXPECT_EQ(list.LogicalElements[4].LEZ, 7);
    EXPECT_EQ(list.LogicalElements[4].LESymbol, "N");
}

TEST(LEinsertMol, StoresTheReparsedMoleculeAndItsFields) {
    ChemSession t;
    BuildStructure(t);
    TargetRecList& list = t.session.Structure.Targets;
    Molecule mol = Mol(t, "( Si 1 O 2 ) 1 ( Al 2 O 3 ) ?=1");
    ASSERT_TRUE(LEinsertMol(t.session, mol, list, 2));  // replaces the molecule of LE 2
    EXPECT_EQ(list.Molecules.Molecules[1].MolText, "( Si 1 O 2 ) 1 ( Al 2 O 3 ) ?=1");
    const LogicalElement& le = list.LogicalElements[2];
    EXPECT_EQ(le.LEComposition, mol.MolText);
    EXPECT_EQ(le.LEName, mol.MolName);
    EXPECT_EQ(le.LEDensity, mol.MolAtomicDensity);
    EXPECT_TRUE(le.LEDensityGiven);

    // An entry without a molecule gets it at its own place in the molecule list, pointing at
    // molecule 1: the way the structure editor has always filled a fresh list.
    TargetRecList fresh;
    ASSERT_TRUE(LEinsertMol(t.session, Mol(t, "Ga 1 As 1"), fresh, 1));
    EXPECT_EQ(fresh.LECount, 1);
    EXPECT_EQ(fresh.LogicalElements[1].MoleculeIndex, 1);
    EXPECT_EQ(fresh.Molecules.MoleculeCount, 1);
    EXPECT_EQ(fresh.Molecules.Molecules[1].MolName, "GaAs");
    EXPECT_EQ(t.boxes(), "");
}

TEST(LEinsertMol, APositiveParseCodeIsReportedWithItsErrorText) {
    ChemSession t;
    TargetRecList list;
    Molecule mol;
    mol.MolText = "( Si 1 O 2 )";
    EXPECT_FALSE(LEinsertMol(t.session, mol, list, 3));
    ASSERT_EQ(t.answers.transcript().size(), 2u);
    EXPECT_EQ(t.answers.transcript()[1].message.title, "Error in LEinsertMol for LE=3");
    EXPECT_EQ(t.answers.transcript()[1].message.text,
              "sub-molecule syntax error (single pair of parentheses is illegal);  (press Cancel to silence this "
              "message)");
    EXPECT_EQ(list.LECount, 0);
}

TEST(AssignElementList, RealElementsAndDuplicateLogicalElements) {
    ChemSession t;
    TargetRecList list;
    const char* texts[] = {"Si", "28Si", "Si 1 O 2", "O 2 Si 1", "Si 1  O 2"};
    for (std::int16_t i = 1; i <= 5; ++i) {
        const Molecule mol = Mol(t, texts[i - 1]);
        ASSERT_TRUE(AssignLE2Target(t.session, list, i, mol, i >= 3));
        list.LogicalElements[size_t(i)].LEComposition = texts[i - 1];
        list.LogicalElements[size_t(i)].LEName = mol.MolName;
    }
    RealElementList real;
    AssignElementList(t.session, list, 4, real);
    EXPECT_EQ(real.RealElementCount, 3);  // Si and 28Si are two, O joins from the molecule
    EXPECT_EQ((std::vector<std::string>(real.RealElementNames.begin() + 1, real.RealElementNames.end())),
              (std::vector<std::string>{"Si", "28Si", "O"}));
    EXPECT_EQ(t.boxes(), "");  // "Si 1 O 2" and "O 2 Si 1" have different keys

    AssignElementList(t.session, list, 5, real);
    EXPECT_EQ(t.boxes(),
              "[AssignElementList] Warning: logical element 3 = logical element 5  (SiO2)   (press Cancel to silence "
              "this message)\n");
}

}  // namespace
}  // namespace halvo
