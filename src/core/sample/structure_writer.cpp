// Writing a structure file in the engine's form: numbers in the plain number-to-string form (a blank
// before a non-negative one), CR LF line ends, the surface block in print zones of 14 columns.
#include <exception>

#include "platform/files.h"
#include "sample/structure_file.h"
#include "session/session.h"
#include "text/fault.h"
#include "text/lines.h"
#include "text/numbers.h"
#include "text/tokens.h"

namespace halvo {
namespace {

// A concentration as the molecule language writes it: "?=" marks a value to be fitted.
std::string ConcentrationText(float c) { return c < 0 ? "?=" + text::CStr(-c) : text::CStr(c); }

std::string Pair(float a, float b) { return text::Str(a) + " " + text::Str(b); }
std::string Flag(bool on) { return text::Str(on ? 1 : 0); }

const Molecule& MoleculeOf(const StructureRecord& st, int index) {
    const MoleculeRecList& list = st.Targets.Molecules;
    if (index < 1 || index > list.MoleculeCount || size_t(index) >= list.Molecules.size()) RaiseSubscript();
    return list.Molecules[size_t(index)];
}

// A structure name the engines before the ninth generation can't take (8.3 names).
bool IsDosName(const std::string& file) {
    std::string extension;
    text::SplitExtension(file, extension);
    return file.find(' ') == std::string::npos && file.size() < 13 && extension.size() < 5;
}

// The name with ".str" behind what stands before its first dot; a directory in front is kept as it is.
std::string StrName(const std::string& name) {
    const auto at = name.find_last_of("\\/");
    const std::string dir = at == std::string::npos ? std::string() : name.substr(0, at + 1);
    return dir + text::BaseName(text::FileNameOf(name)) + ".str";
}

}  // namespace

std::string PrintZones(const std::vector<std::string>& items) {
    std::string out;
    for (size_t k = 0; k < items.size(); ++k) {
        out += items[k];
        if (k + 1 < items.size()) out.resize((out.size() / 14 + 1) * 14, ' ');
    }
    return out;
}

std::string LogicalElementText(const StructureRecord& st, const LogicalElement& le) {
    if (le.MoleculeIndex <= 0) return le.LEComposition;
    const Molecule& mol = MoleculeOf(st, le.MoleculeIndex);
    std::string out;
    if (mol.SubCount == 1) {
        const SubMolecule& sub = mol.SubMolecules.at(1);
        for (int k = 1; k <= sub.ElementCount; ++k)
            out += sub.Isotopes.at(size_t(k)) + " " + ConcentrationText(sub.Concentrations.at(size_t(k))) + " ";
        return out;
    }
    for (int j = 1; j <= mol.SubCount; ++j) {
        const SubMolecule& sub = mol.SubMolecules.at(size_t(j));
        out += " ( " + sub.Isotopes.at(0);
        if (sub.DensityGiven) out += text::Str(sub.SubAtomicDensity);
        out += " ) " + ConcentrationText(mol.SubConcentrations.at(size_t(j))) + " ";
    }
    return out;
}

std::string StructureText(Session& s, const StructureRecord& st) {
    text::CrlfWriter w;
    w.line(text::Str(st.ThicknessMin) + (st.ThicknessMax != 0 ? " " + text::Str(st.ThicknessMax) : std::string()));
    w.line(text::Str(int(st.NLE)));
    bool formulaWritten = false;
    const int count = st.NElements + st.NMolecules;
    for (int i = 1; i <= count; ++i) {
        if (i > st.Targets.LECount || size_t(i) >= st.Targets.LogicalElements.size()) RaiseSubscript();
        const LogicalElement& le = st.Targets.LogicalElements[size_t(i)];
        std::string name = LogicalElementText(st, le);
        if (le.LEDensityGiven && !le.HasFormula) name += " " + text::Str(le.LEDensity);
        w.line(name);
        if (!le.HasFormula) w.line(Pair(le.DepthMin, le.DepthMax));
        if (le.IsSubstrate) {
            w.line(" s");
        } else if (le.IsDelta) {
            w.line(" d");
        } else if (!le.HasFormula) {
            w.line(Pair(le.ConcMin, le.ConcMax));
        } else if (!formulaWritten) {
            w.line(" f").line(le.FormulaFile);
            formulaWritten = true;
        } else {
            // The engine takes one formula per structure: the element keeps only its name line.
            MsgBox(s, "More than One formula requested - not allowed ignored additional", mb::OKOnly,
                   "WriteStructureText");
        }
    }

    const InclusionRecord& inc = st.Inclusions;
    if (inc.InclusionType > 0) {
        w.line(inc.InclusionType == 2 ? "CYLINDER" : "SPHERE");
        w.line(text::Str(int(inc.MadeOf)));
        if (inc.InclusionType == 2)
            w.line(text::Str(inc.Radius) + " " + text::Str(inc.Height) + " " + text::Str(inc.OrganisationFactor));
        else
            w.line(Pair(inc.Radius, inc.OrganisationFactor));
        w.line(Pair(inc.InclDepthMin, inc.InclDepthMax));
        w.line(Pair(inc.InclConcMin, inc.InclConcMax));
    }

    const RoughnessRecord& r = st.Roughness;
    if (r.ModelFlagsRead && (r.ModelA > 0 || r.ModelB > 0 || r.ModelC > 0)) {
        w.line(std::string("ROUGH  ") + (r.RoughKind == 1 ? "Gauss" : r.RoughKind == 2 ? "Gamma" : ""));
        w.line(text::Str(int(r.ModelA)) + " " + text::Str(int(r.ModelB)) + " " + text::Str(int(r.ModelC)));
        w.line(text::Str(r.DTheta) + " " + Flag(r.DThetaFit));
        w.line(text::Str(r.DX) + " " + Flag(r.DXFit));
        w.line(text::Str(r.CorrelationLength) + " " + Flag(r.CorrelationFit));
    }
    if (r.HasSurface) {
        // The deviation's own flag is read but never written: both print the separation's.
        const std::string fit = r.SeparationFit ? " 1" : " 0";
        w.line("SURFACE  ");
        w.line(PrintZones({text::CStr(r.AsperitySeparation), fit}));
        w.line(PrintZones({text::CStr(r.AsperityDeviation), fit}));
        w.line(PrintZones({"1  ", text::CStr(int(r.SurfaceLayers))}));
    }
    return w.take();
}

bool WriteStructureText(Session& s, const std::string& Path) {
    StructureRecord& st = s.Structure;
    if (st.StructureFile.find('.') == std::string::npos) st.StructureFile += ".str";
    std::string bytes;
    try {
        bytes = StructureText(s, st);
    } catch (const std::exception& fault) {
        MsgBox(s, std::string("Unexpected error in WriteStructureText: ") + fault.what(), mb::OKOnly | mb::Critical,
               "WriteStructureText");
        return false;
    }
    if (!platform::WriteFileSafely(Path, bytes)) {
        MsgBox(s, "Unexpected error in WriteStructureText: cannot write " + Path, mb::OKOnly | mb::Critical,
               "WriteStructureText");
        return false;
    }
    return true;
}

bool WriteStructureFile(Session& s, const std::string& Name, const SaveDialog& saveDialog) {
    std::string name = StrName(Name.empty() ? s.Structure.StructureFile : Name);
    if (!Name.empty() && s.WarningsFlag && FileExists(s, name)) {
        const int answer = MsgBox(s, "Over write " + name + "?", mb::YesNoCancel, "WriteStructureFile: filecheck");
        if (answer == mb::Cancel) return false;
        if (answer == mb::No) {
            const std::string chosen = saveDialog ? saveDialog(name) : std::string();
            if (chosen.empty()) return false;
            name = StrName(chosen);
        }
    }
    const std::string file = text::FileNameOf(name);
    if (s.Geometry.Syntax < 2 && !IsDosName(file)) {
        MsgBox(s,
               std::string("Non DOS names not allowed in this version (") +
                   (s.Geometry.Syntax == 1 ? "VKSv8" : "VKSv7") +
                   "). Please use another name,  or change the version to VKSv9 in the Geometry file",
               mb::OKOnly, "Error");
        return false;
    }
    const std::string base = text::BaseName(file);
    s.lists.List4.items = {base};
    s.lists.List4.index = 0;
    s.current().Structure = base;
    s.Structure.StructureFile = file;
    return WriteStructureText(s, InWorkDir(s, name));
}

}  // namespace halvo
