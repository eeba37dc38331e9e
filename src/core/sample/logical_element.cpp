// Logical elements and their molecules. Lists are rebuilt entry by entry through CopyLE, which takes
// each entry's molecule along and renumbers it, so molecule indices stay right after an insert or a
// delete. An inconsistent list (a molecule index past the list) is a subscript fault that the copying
// routine's trap reports.
#include <algorithm>
#include <exception>

#include "sample/element_table.h"
#include "sample/logical_element.h"
#include "session/session.h"
#include "text/fault.h"
#include "text/numbers.h"
#include "text/tokens.h"

namespace halvo {
namespace {

void EnsureBlankEntry(TargetRecList& list) {
    if (!list.LogicalElements.empty()) return;
    LogicalElement blank;
    blank.MoleculeIndex = -1;
    list.LogicalElements.push_back(blank);
    list.LECount = 0;
}

void GrowTo(TargetRecList& list, std::int16_t index) {
    if (index < 1) RaiseSubscript();
    EnsureBlankEntry(list);
    if (list.LogicalElements.size() < size_t(index) + 1) list.LogicalElements.resize(size_t(index) + 1);
    list.LECount = std::max(list.LECount, index);
}

void CountElements(TargetRecList& list) {
    list.ElementLECount = std::int16_t(list.LECount - list.Molecules.MoleculeCount);
}

const LogicalElement& EntryOf(const TargetRecList& list, int index) {
    if (index < 0 || index > list.LECount || size_t(index) >= list.LogicalElements.size()) RaiseSubscript();
    return list.LogicalElements[size_t(index)];
}

const Molecule& MoleculeOf(const MoleculeRecList& list, int number) {
    if (number < 1 || number > list.MoleculeCount || size_t(number) >= list.Molecules.size()) RaiseSubscript();
    return list.Molecules[size_t(number)];
}

void Append(TargetRecList& list, const LogicalElement& le) {
    EnsureBlankEntry(list);
    list.LogicalElements.push_back(le);
    list.LECount = text::Add16(list.LECount, 1);
    CountElements(list);
}

void SetCounts(StructureRecord& st) {
    st.NLE = st.Targets.LECount;
    st.NMolecules = st.Targets.Molecules.MoleculeCount;
    st.NElements = std::int16_t(st.NLE - st.NMolecules);
}

std::string BlankFree(const std::string& s) {
    std::string out;
    for (char c : s)
        if (c != ' ') out += c;
    return out;
}

}  // namespace

bool AddMoleculeToList(MoleculeRecList& List, const Molecule& Mol, std::int16_t& Number, std::int16_t LE) {
    Number = text::Add16(List.MoleculeCount, 1);
    List.Molecules.resize(size_t(Number) + 1);
    List.MoleculeLE.resize(size_t(Number) + 1);
    List.Molecules[size_t(Number)] = Mol;
    List.MoleculeLE[size_t(Number)] = LE;
    List.MoleculeCount = Number;
    return true;
}

void DelMoleculeFromList(MoleculeRecList& List, std::int16_t Number) {
    MoleculeOf(List, Number);
    MoleculeRecList out;
    for (std::int16_t i = 1; i <= List.MoleculeCount; ++i) {
        if (i == Number) continue;
        std::int16_t n = 0;
        AddMoleculeToList(out, List.Molecules[size_t(i)], n, List.MoleculeLE[size_t(i)]);
    }
    List = std::move(out);
}

void CopyLE(TargetRecList& Dest, const TargetRecList& Src, std::int16_t Index) {
    LogicalElement le = EntryOf(Src, Index);
    EnsureBlankEntry(Dest);
    const std::int16_t newIndex = text::Add16(Dest.LECount, 1);
    if (le.MoleculeIndex >= 1) {
        std::int16_t number = 0;
        AddMoleculeToList(Dest.Molecules, MoleculeOf(Src.Molecules, le.MoleculeIndex), number, newIndex);
        le.MoleculeIndex = number;
    }
    Dest.LogicalElements.push_back(std::move(le));
    Dest.LECount = newIndex;
    CountElements(Dest);
}

bool AssignMRL(Session& s, MoleculeRecList& Dest, const MoleculeRecList& Src) {
    MoleculeRecList out;
    int at = 0;
    try {
        for (at = 1; at <= Src.MoleculeCount; ++at) {
            const Molecule& mol = MoleculeOf(Src, at);
            if (size_t(at) >= Src.MoleculeLE.size()) RaiseSubscript();
            std::int16_t n = 0;
            AddMoleculeToList(out, mol, n, Src.MoleculeLE[size_t(at)]);
        }
    } catch (const std::exception&) {
        const std::string composition =
            at >= 1 && size_t(at) < Src.Molecules.size() ? Src.Molecules[size_t(at)].MolText : std::string();
        MsgBox(s, "Code Error for MoleculeRecList " + composition, mb::OKOnly | mb::Critical, "AssignMRL error");
        return false;
    }
    Dest = std::move(out);
    return true;
}

bool AssignTRL(Session& s, TargetRecList& Dest, const TargetRecList& Src) {
    TargetRecList out;
    int at = 0;
    try {
        for (at = 1; at <= Src.LECount; ++at) CopyLE(out, Src, std::int16_t(at));
    } catch (const std::exception&) {
        std::string which = text::CStr(at) + " target";
        if (size_t(at) < Src.LogicalElements.size()) {
            const LogicalElement& le = Src.LogicalElements[size_t(at)];
            if (!le.LEFileLine.empty())
                which = le.LEFileLine;
            else if (!le.LEName.empty())
                which = le.LEName;
        }
        MsgBox(s, "Code Error for TargetRecList at logical element " + which, mb::OKOnly | mb::Critical,
               "AssignTRL error");
        return false;
    }
    Dest = std::move(out);
    return true;
}

bool AssignStructure(Session& s, StructureRecord& Dest, const StructureRecord& Src) {
    if (s.Structure.NotAssigned) return false;
    StructureRecord out = Src;
    out.Targets = TargetRecList{};
    try {
        for (int i = 1; i <= Src.Targets.LECount; ++i) CopyLE(out.Targets, Src.Targets, std::int16_t(i));
    } catch (const std::exception&) {
        MsgBox(s, "Code Error", mb::OKOnly | mb::Critical, "AssignStructure error");
        return false;
    }
    Dest = std::move(out);
    return true;
}

void SetElementFields(LogicalElement& LE, const Molecule& Mol) {
    LE.LEDensity = Mol.MolAtomicDensity;
    LE.LEMassDensity = Mol.MolMassDensity;
    LE.LEAverageMass = Mol.MolAverageMass;
    LE.LEName = Mol.MolName;
    if (Mol.SubCount >= 1 && Mol.SubMolecules[1].ElementCount >= 1) {
        const SubMolecule& sub = Mol.SubMolecules[1];
        LE.HasIsotopes = sub.MassNumbers[1] >= 1;
        LE.LEZ = sub.AtomicNumbers[1];
        LE.LESymbol = sub.Symbols[1];
    }
}

bool AssignLE2Target(Session& s, TargetRecList& List, std::int16_t Index, const Molecule& Mol, bool AsMolecule) {
    try {
        GrowTo(List, Index);
        LogicalElement& le = List.LogicalElements[size_t(Index)];
        if (!AsMolecule) {
            SetElementFields(le, Mol);
            le.MoleculeIndex = -1;
        } else {
            MoleculeRecList& mols = List.Molecules;
            if (le.MoleculeIndex >= 1 && mols.MoleculeCount > 1) {
                const std::int16_t gone = le.MoleculeIndex;
                DelMoleculeFromList(mols, gone);
                for (auto& other : List.LogicalElements)
                    if (other.MoleculeIndex > gone) --other.MoleculeIndex;
                le.MoleculeIndex = 0;
            }
            if (le.MoleculeIndex >= 1) {
                MoleculeOf(mols, le.MoleculeIndex);
                mols.Molecules[size_t(le.MoleculeIndex)] = Mol;
                mols.MoleculeLE[size_t(le.MoleculeIndex)] = Index;
            } else {
                std::int16_t n = 0;
                AddMoleculeToList(mols, Mol, n, Index);
                le.MoleculeIndex = n;
            }
        }
        CountElements(List);
    } catch (const std::exception&) {
        MsgBox(s, "Code Error", mb::OKOnly | mb::Critical, "AssignLE2Target error");
        return false;
    }
    return true;
}

void MakeNewLE(Session& s, LogicalElement& LE, const TargetRecList& List) {
    std::string symbol;
    for (const ElementRecord& e : s.Tables.Elements) {
        const std::string candidate = text::Trim(e.Symbol);
        bool used = false;
        for (int i = 1; i <= List.LECount && size_t(i) < List.LogicalElements.size() && !used; ++i)
            used = text::Trim(List.LogicalElements[size_t(i)].LEComposition) == candidate;
        if (!used) {
            symbol = candidate;
            break;
        }
    }
    LE = LogicalElement{};
    LE.ConcMax = 1;
    LE.MoleculeIndex = -1;
    LE.LEDensityGiven = false;
    Molecule mol;
    std::string t = symbol;
    std::int16_t position = 0;
    Parse_Mol(s, t, mol, position);
    SetElementFields(LE, mol);
    LE.LEComposition = symbol;
    LE.LEFileLine = symbol;
}

bool LEnew(Session& s, std::int16_t Index) {
    StructureRecord& st = s.Structure;
    try {
        const TargetRecList& current = st.Targets;
        if (Index < 1 || Index > current.LECount + 1) RaiseSubscript();
        TargetRecList out;
        for (std::int16_t i = 1; i < Index; ++i) CopyLE(out, current, i);
        LogicalElement fresh;
        MakeNewLE(s, fresh, current);
        Append(out, fresh);
        for (std::int16_t i = Index; i <= current.LECount; ++i) CopyLE(out, current, i);
        st.Targets = std::move(out);
        SetCounts(st);
    } catch (const std::exception&) {
        MsgBox(s, "Code error at logical element LE=" + text::CStr(int(Index)), mb::OKOnly | mb::Critical,
               "LEnew error");
        return false;
    }
    return true;
}

bool LEdel(Session& s, std::int16_t Index) {
    StructureRecord& st = s.Structure;
    try {
        const TargetRecList& current = st.Targets;
        if (Index < 1 || Index > current.LECount) RaiseSubscript();
        TargetRecList out;
        for (std::int16_t i = 1; i <= current.LECount; ++i)
            if (i != Index) CopyLE(out, current, i);
        st.Targets = std::move(out);
        SetCounts(st);
    } catch (const std::exception&) {
        MsgBox(s, "Code error at logical element LE=" + text::CStr(int(Index)), mb::OKOnly | mb::Critical,
               "LEdel error");
        return false;
    }
    return true;
}

bool LEinsertMol(Session& s, const Molecule& Mol, TargetRecList& List, std::int16_t Index) {
    Molecule parsed;
    std::string t = Mol.MolText;
    std::int16_t position = 0;
    const std::int32_t code = Parse_Mol(s, t, parsed, position);
    if (code > 0) {
        WarningBox(s, MoleculeErrorText(code), "Error in LEinsertMol for LE=" + text::CStr(int(Index)));
        return false;
    }
    GrowTo(List, Index);
    LogicalElement& le = List.LogicalElements[size_t(Index)];
    MoleculeRecList& mols = List.Molecules;
    if (le.MoleculeIndex >= 1) {
        MoleculeOf(mols, le.MoleculeIndex);
        mols.Molecules[size_t(le.MoleculeIndex)] = std::move(parsed);
    } else {
        // As the structure editor has always done it: the molecule goes to place Index of the molecule
        // list, and the entry points at molecule 1.
        if (mols.Molecules.size() < size_t(Index) + 1) {
            mols.Molecules.resize(size_t(Index) + 1);
            mols.MoleculeLE.resize(size_t(Index) + 1);
        }
        mols.Molecules[size_t(Index)] = std::move(parsed);
        mols.MoleculeLE[size_t(Index)] = Index;
        mols.MoleculeCount = std::max(mols.MoleculeCount, Index);
        le.MoleculeIndex = 1;
    }
    le.LEDensity = Mol.MolAtomicDensity;
    le.LEMassDensity = Mol.MolMassDensity;
    le.LEAverageMass = Mol.MolAverageMass;
    le.LEFileLine = Mol.MolTextWithDensity;
    le.LEName = Mol.MolName;
    le.LEComposition = NormaliseBlanks(Mol.MolText);
    le.LEDensityGiven = true;
    CountElements(List);
    return true;
}

void AssignElementList(Session& s, const TargetRecList& Target, std::int16_t Count, RealElementList& List) {
    List = RealElementList{};
    auto add = [&](const std::string& name) {
        for (int k = 1; k <= List.RealElementCount; ++k)
            if (List.RealElementNames[size_t(k)] == name) return;
        List.RealElementNames.push_back(name);
        List.RealElementCount = text::Add16(List.RealElementCount, 1);
    };
    std::vector<std::string> keys(size_t(std::max<int>(Count, 0)) + 1);
    for (int i = 1; i <= Count; ++i) {
        const LogicalElement& le = EntryOf(Target, i);
        keys[size_t(i)] = text::Lower(BlankFree(le.LEComposition));
        int molecule = 0;
        for (int m = 1; m <= Target.Molecules.MoleculeCount && size_t(m) < Target.Molecules.MoleculeLE.size(); ++m)
            if (Target.Molecules.MoleculeLE[size_t(m)] == i) {
                molecule = m;
                break;
            }
        if (molecule) {
            const Molecule& mol = MoleculeOf(Target.Molecules, molecule);
            for (int j = 1; j <= mol.SubCount; ++j) {
                const SubMolecule& sub = mol.SubMolecules[size_t(j)];
                for (int k = 1; k <= sub.ElementCount; ++k) add(text::Trim(sub.Isotopes[size_t(k)]));
            }
        } else {
            add(text::Trim(le.LEComposition));
        }
    }
    for (int i = 1; i <= Count; ++i)
        for (int j = i + 1; j <= Count; ++j)
            if (keys[size_t(i)] == keys[size_t(j)])
                WarningBox(s,
                           "Warning: logical element " + text::CStr(i) + " = logical element " + text::CStr(j) +
                               "  (" + Target.LogicalElements[size_t(i)].LEName + ")  ",
                           "AssignElementList");
}

}  // namespace halvo
