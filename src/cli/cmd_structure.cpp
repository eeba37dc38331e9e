// Structure files: read one and show the record, or read it and write it back in the engine's form.
// The data tables are loaded from the engine directory first, as the program does at start.
#include <cmath>
#include <iostream>

#include "cli.h"
#include "platform/files.h"
#include "sample/element_table.h"
#include "sample/profile_file.h"
#include "sample/structure_file.h"
#include "text/numbers.h"
#include "text/tokens.h"

namespace halvo::cli {
namespace {

std::string Num(float v) { return std::isfinite(v) ? text::GeneralNumber(v) : "null"; }
std::string Bool(bool b) { return b ? "true" : "false"; }
std::string Int(int v) { return std::to_string(v); }

std::string JsonList(const std::vector<std::string>& items) {
    std::string out = "[";
    for (size_t i = 0; i < items.size(); ++i) out += (i ? "," : "") + JsonString(items[i]);
    return out + "]";
}

struct Options {
    std::vector<std::string> files;
    std::string profile;
    bool syntaxGiven = false;
};

// FILE.str [OUT.str] with --engine-version N, --syntax N, --profile FILE.prf anywhere.
bool ParseOptions(Context& c, const std::vector<std::string>& a, Options& o, bool allowSyntax) {
    for (size_t i = 0; i < a.size(); ++i) {
        if (a[i] == "--engine-version" && i + 1 < a.size()) {
            c.session.VKSversionNumber = text::CInt(text::Val(a[++i]));
        } else if (a[i] == "--syntax" && allowSyntax && i + 1 < a.size()) {
            c.session.Geometry.Syntax = text::CInt(text::Val(a[++i]));
            o.syntaxGiven = true;
        } else if (a[i] == "--profile" && i + 1 < a.size()) {
            o.profile = a[++i];
        } else if (a[i].starts_with("--")) {
            return false;
        } else {
            o.files.push_back(a[i]);
        }
    }
    return true;
}


// Reads the structure; with a profile, the structure is read once quietly to shape the profile's
// read, the profile becomes the current one, and the structure is read again against it.
bool Read(Context& c, const std::string& name, const std::string& profile, RealElementList& real) {
    Session& s = c.session;
    if (!profile.empty()) {
        MessagePort* port = s.ui;
        DefaultAnswers quiet;
        s.ui = &quiet;
        const bool warnings = s.WarningsFlag;
        if (!ReadStructureFile(s, name)) {
            std::string base = text::FileNameOf(profile), extension;
            base = text::SplitExtension(base, extension);
            ProfileRecord rec;
            if (ReadPRF(s, base, rec, "." + extension)) s.Profile = rec;
        }
        s.WarningsFlag = warnings;
        s.ui = port;
    }
    return !ReadStructureFile(s, name, nullptr, &real);
}

std::string Kind(const LogicalElement& le) {
    if (le.MoleculeIndex >= 1) return "molecule";
    if (le.MoleculeIndex == -1) return "element";
    return "inclusion";
}

std::string Limits(const LogicalElement& le) {
    if (le.HasFormula) return "formula file " + le.FormulaFile;
    std::string out = "depth " + Num(le.DepthMin) + " to " + Num(le.DepthMax) + " TFU; ";
    if (le.IsSubstrate) return out + "substrate";
    if (le.IsDelta) return out + "delta layer";
    return out + "concentration " + Num(le.ConcMin) + " to " + Num(le.ConcMax);
}

void PrintRecord(Context& c, const RealElementList& real) {
    const StructureRecord& st = c.session.Structure;
    const TargetRecList& t = st.Targets;
    std::cout << "Structure " << st.StructureFile << " in " << c.session.FilePath << "\n"
              << "  layer thickness " << Num(st.ThicknessMin) << " to " << Num(st.ThicknessMax) << " TFU\n"
              << "  " << st.NLE << " logical element" << (st.NLE == 1 ? "" : "s") << ": " << st.NElements
              << " element" << (st.NElements == 1 ? "" : "s") << ", " << st.NMolecules << " molecule"
              << (st.NMolecules == 1 ? "" : "s") << (st.HasInclusions ? ", inclusions" : "") << "\n";
    for (int i = 1; i <= t.LECount; ++i) {
        const LogicalElement& le = t.LogicalElements[size_t(i)];
        std::cout << "\n  " << i << ". " << le.LEName << "  (" << Kind(le);
        if (le.MoleculeIndex >= 1) std::cout << " " << le.MoleculeIndex;
        if (le.MoleculeIndex == -1) std::cout << " " << le.LESymbol << ", Z " << le.LEZ;
        std::cout << ")\n     line:        " << le.LEFileLine << "\n     composition: " << le.LEComposition
                  << "\n     density:     " << Num(le.LEDensity) << " 1e22 at/cc = " << Num(le.LEMassDensity)
                  << " g/cc" << (le.LEDensityGiven ? " (given)" : "") << ", mean mass " << Num(le.LEAverageMass)
                  << " u\n     " << Limits(le) << "\n";
    }
    const MoleculeRecList& m = t.Molecules;
    for (int k = 1; k <= m.MoleculeCount; ++k)
        std::cout << (k == 1 ? "\n" : "") << "  molecule " << k << " (logical element " << m.MoleculeLE[size_t(k)]
                  << "): " << m.Molecules[size_t(k)].MolTextWithDensity << "\n";
    const InclusionRecord& inc = st.Inclusions;
    if (inc.InclusionType > 0) {
        std::cout << "\n  inclusions: " << (inc.InclusionType == 1 ? "spheres" : "cylinders") << " of "
                  << (inc.MadeOf == 0 ? std::string("voids") : "logical element " + Int(inc.MadeOf)) << ", radius "
                  << Num(inc.Radius) << " nm";
        if (inc.InclusionType == 2) std::cout << ", height " << Num(inc.Height) << " nm";
        std::cout << ", organisation " << Num(inc.OrganisationFactor) << "; depth " << Num(inc.InclDepthMin) << " to "
                  << Num(inc.InclDepthMax) << " TFU; concentration " << Num(inc.InclConcMin) << " to "
                  << Num(inc.InclConcMax) << "\n";
    }
    const RoughnessRecord& r = st.Roughness;
    if (r.ModelFlagsRead || (st.HasRoughness && !r.HasSurface)) {
        static const char* const kinds[] = {"no distribution", "Gauss", "Gamma"};
        std::cout << "\n  roughness: " << (r.RoughKind >= 0 && r.RoughKind <= 2 ? kinds[r.RoughKind] : "?")
                  << ", models " << r.ModelA << " " << r.ModelB << " " << r.ModelC << "; dtheta " << Num(r.DTheta)
                  << (r.DThetaFit ? " (fit)" : "") << " deg, dx " << Num(r.DX) << (r.DXFit ? " (fit)" : "")
                  << " nm, correlation length " << Num(r.CorrelationLength) << (r.CorrelationFit ? " (fit)" : "")
                  << " nm\n";
    }
    if (r.HasSurface)
        std::cout << "\n  surface roughness: asperity separation " << Num(r.AsperitySeparation)
                  << (r.SeparationFit ? " (fit)" : "") << " nm, deviation " << Num(r.AsperityDeviation)
                  << (r.DeviationFit ? " (fit)" : "") << " nm, " << r.SurfaceLayers << " surface layer"
                  << (r.SurfaceLayers == 1 ? "" : "s") << "\n";
    std::cout << "\n  real elements:";
    for (int k = 1; k <= real.RealElementCount; ++k) std::cout << " " << real.RealElementNames[size_t(k)];
    std::cout << "\n";
}

std::string LogicalElementJson(const LogicalElement& le, int index) {
    return "{\"index\":" + Int(index) + ",\"kind\":" + JsonString(Kind(le)) + ",\"fileLine\":" +
           JsonString(le.LEFileLine) + ",\"name\":" + JsonString(le.LEName) + ",\"composition\":" +
           JsonString(le.LEComposition) + ",\"moleculeIndex\":" + Int(le.MoleculeIndex) + ",\"Z\":" + Int(le.LEZ) +
           ",\"symbol\":" + JsonString(le.LESymbol) + ",\"hasIsotopes\":" + Bool(le.HasIsotopes) +
           ",\"depthMin\":" + Num(le.DepthMin) + ",\"depthMax\":" + Num(le.DepthMax) + ",\"concMin\":" +
           Num(le.ConcMin) + ",\"concMax\":" + Num(le.ConcMax) + ",\"substrate\":" + Bool(le.IsSubstrate) +
           ",\"delta\":" + Bool(le.IsDelta) + ",\"formula\":" + Bool(le.HasFormula) + ",\"formulaFile\":" +
           JsonString(le.FormulaFile) + ",\"atomicDensity\":" + Num(le.LEDensity) + ",\"massDensity\":" +
           Num(le.LEMassDensity) + ",\"densityGiven\":" + Bool(le.LEDensityGiven) + ",\"averageMass\":" +
           Num(le.LEAverageMass) + "}";
}

void PutRecord(Context& c, const RealElementList& real) {
    const StructureRecord& st = c.session.Structure;
    const TargetRecList& t = st.Targets;
    c.putString("structureFile", st.StructureFile);
    c.put("thicknessMin", Num(st.ThicknessMin));
    c.put("thicknessMax", Num(st.ThicknessMax));
    c.put("NLE", Int(st.NLE));
    c.put("NElements", Int(st.NElements));
    c.put("NMolecules", Int(st.NMolecules));
    c.put("hasInclusions", Bool(st.HasInclusions));
    c.put("hasRoughness", Bool(st.HasRoughness));
    std::string les = "[";
    for (int i = 1; i <= t.LECount; ++i)
        les += (i > 1 ? "," : "") + LogicalElementJson(t.LogicalElements[size_t(i)], i);
    c.put("logicalElements", les + "]");
    std::string mols = "[";
    for (int k = 1; k <= t.Molecules.MoleculeCount; ++k) {
        const Molecule& m = t.Molecules.Molecules[size_t(k)];
        mols += std::string(k > 1 ? "," : "") + "{\"index\":" + Int(k) +
                ",\"logicalElement\":" + Int(t.Molecules.MoleculeLE[size_t(k)]) + ",\"name\":" + JsonString(m.MolName) +
                ",\"text\":" + JsonString(m.MolText) + ",\"textWithDensity\":" + JsonString(m.MolTextWithDensity) +
                ",\"subMolecules\":" + Int(m.SubCount) + ",\"atomicDensity\":" + Num(m.MolAtomicDensity) +
                ",\"massDensity\":" + Num(m.MolMassDensity) + ",\"averageMass\":" + Num(m.MolAverageMass) + "}";
    }
    c.put("molecules", mols + "]");
    const InclusionRecord& inc = st.Inclusions;
    c.put("inclusions", inc.InclusionType == 0
                            ? std::string("null")
                            : "{\"type\":" + JsonString(inc.InclusionType == 1 ? "sphere" : "cylinder") +
                                  ",\"madeOf\":" + Int(inc.MadeOf) + ",\"radius\":" + Num(inc.Radius) +
                                  ",\"height\":" + Num(inc.Height) + ",\"organisationFactor\":" +
                                  Num(inc.OrganisationFactor) + ",\"depthMin\":" + Num(inc.InclDepthMin) +
                                  ",\"depthMax\":" + Num(inc.InclDepthMax) + ",\"concMin\":" + Num(inc.InclConcMin) +
                                  ",\"concMax\":" + Num(inc.InclConcMax) + "}");
    const RoughnessRecord& r = st.Roughness;
    c.put("roughness", "{\"kind\":" + Int(r.RoughKind) + ",\"modelFlagsRead\":" + Bool(r.ModelFlagsRead) +
                           ",\"models\":[" + Int(r.ModelA) + "," + Int(r.ModelB) + "," + Int(r.ModelC) +
                           "],\"dTheta\":" + Num(r.DTheta) + ",\"dThetaFit\":" + Bool(r.DThetaFit) + ",\"dx\":" +
                           Num(r.DX) + ",\"dxFit\":" + Bool(r.DXFit) + ",\"correlationLength\":" +
                           Num(r.CorrelationLength) + ",\"correlationFit\":" + Bool(r.CorrelationFit) + "}");
    c.put("surface", !r.HasSurface ? std::string("null")
                                   : "{\"asperitySeparation\":" + Num(r.AsperitySeparation) + ",\"separationFit\":" +
                                         Bool(r.SeparationFit) + ",\"asperityDeviation\":" +
                                         Num(r.AsperityDeviation) + ",\"deviationFit\":" + Bool(r.DeviationFit) +
                                         ",\"surfaceLayers\":" + Int(r.SurfaceLayers) + "}");
    std::vector<std::string> names(real.RealElementNames.begin() + 1, real.RealElementNames.end());
    c.put("realElements", JsonList(names));
}

int Show(Context& c, const std::vector<std::string>& a) {
    const Command& self = Registry().at("structure-show");
    Options o;
    if (!ParseOptions(c, a, o, false) || o.files.size() != 1) return Misuse(self);
    if (!LoadElementTables(c.session)) return kFailed;
    const std::string name = EnterDirectoryOf(c, o.files[0]);
    RealElementList real;
    const bool ok = Read(c, name, o.profile, real);
    if (c.json) {
        c.putString("directory", c.session.FilePath);
        c.putString("file", name);
        c.put("read", Bool(ok));
        if (ok) PutRecord(c, real);
    } else if (ok) {
        PrintRecord(c, real);
    } else {
        std::cout << "Structure " << name << " in " << c.session.FilePath << ": not read\n";
    }
    if (!c.json)
        std::cout << "\n" << c.messages.shown().size() << " message" << (c.messages.shown().size() == 1 ? "" : "s")
                  << (c.messages.shown().empty() ? "" : " (on stderr)") << "\n";
    return ok ? kOk : kFailed;
}

int Rewrite(Context& c, const std::vector<std::string>& a) {
    const Command& self = Registry().at("structure-rewrite");
    Options o;
    if (!ParseOptions(c, a, o, true) || o.files.empty() || o.files.size() > 2) return Misuse(self);
    if (!LoadElementTables(c.session)) return kFailed;
    const std::string name = EnterDirectoryOf(c, o.files[0]);
    // An output name without a directory is taken relative to --workdir, as every other name of the tool.
    std::string out = o.files.size() == 2 ? platform::NormalizeSeparators(o.files[1]) : name;
    if (o.files.size() == 2 && out.find('/') == std::string::npos) out = platform::JoinPath(c.workDir, out);
    RealElementList real;
    const bool ok = Read(c, name, o.profile, real);
    bool written = false;
    if (ok) written = WriteStructureFile(c.session, out);
    if (c.json) {
        c.putString("directory", c.session.FilePath);
        c.putString("file", name);
        c.put("read", Bool(ok));
        c.put("written", Bool(written));
        c.putString("output", written ? out : "");
        c.put("syntax", Int(c.session.Geometry.Syntax));
    } else if (!ok) {
        std::cout << "Structure " << name << " in " << c.session.FilePath << ": not read, nothing written\n";
    } else {
        std::cout << (written ? "Wrote " + out : "Not written: " + out) << "\n";
    }
    return ok && written ? kOk : kFailed;
}

const Register show{{"structure-show", "FILE.str [--profile FILE.prf] [--engine-version N]",
                     "read a structure file and show its record: logical elements, molecules, densities, blocks",
                     Show}};
const Register rewrite{{"structure-rewrite", "FILE.str [OUT.str] [--syntax N] [--profile FILE.prf] [--engine-version N]",
                        "read a structure file and write it back in the engine's form (over itself or to OUT.str)",
                        Rewrite}};

}  // namespace
}  // namespace halvo::cli
