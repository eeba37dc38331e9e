#pragma once
// Golden cases of structure files (tests/data/sample/structure/*.txt) and a compact text form of the
// structure record to compare them with.
//
// A case file holds cases "=== name", each with sections "--- kind":
//   session        lines: "engine N", "syntax N", "warnings off", "answers Yes No ...", "profile N FILE",
//                  "name NAME" (what is read; default "case"), "editor" (read as the editor's list)
//   file NAME      a file of the working directory (CR LF added to each line; "\t" stands for a tab);
//                  "file" alone is the structure, NAME.str
//   result         "read" or "fail"
//   record         the record after the read (see Dump)
//   messages       the boxes of the read and then of the write, "[title] text" each
//   written        what the writer makes of the record; every line ends in "$", which is cut off
#include "case_file.h"
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "sample/structure_file.h"
#include "session/session.h"
#include "text/numbers.h"

namespace halvo::test {

struct StructureCase {
    std::string name;
    std::vector<std::string> session;
    std::vector<std::pair<std::string, std::string>> files;  // name, bytes
    std::vector<std::string> editorLines;
    std::string result;
    bool hasRecord = false, hasMessages = false, hasWritten = false;
    std::string record, messages, written;
};

using halvo::test::Unescape;

inline std::vector<StructureCase> ReadStructureCases(const std::string& data) {
    return halvo::test::ReadCaseFile<StructureCase>(data, [&](StructureCase& c, const std::string& kind, std::vector<std::string> section) {
        const std::vector<std::string> lines = halvo::test::WithoutTrailingBlanks(section);
        const std::string joined = halvo::test::JoinLines(lines);
        if (kind == "session") {
            c.session = lines;
        } else if (kind.starts_with("file")) {
            std::string name = kind.size() > 5 ? kind.substr(5) : "";
            std::string bytes;
            for (const auto& l : lines) bytes += Unescape(l) + "\r\n";
            if (name.empty()) {
                for (const auto& l : lines) c.editorLines.push_back(Unescape(l));
                name = "<structure>";
            }
            c.files.emplace_back(name, bytes);
        } else if (kind == "result") {
            c.result = lines.empty() ? "" : lines[0];
        } else if (kind == "record") {
            c.hasRecord = true;
            c.record = joined;
        } else if (kind == "messages") {
            c.hasMessages = true;
            c.messages = joined;
        } else if (kind == "written") {
            c.hasWritten = true;
            for (const auto& l : lines) c.written += (l.ends_with("$") ? l.substr(0, l.size() - 1) : l) + "\r\n";
        }
    });
}

inline std::string G(float v) { return text::GeneralNumber(v); }
inline std::string B(bool b) { return b ? "1" : "0"; }

// The record as one line per part.
inline std::string DumpStructure(const Session& s, const RealElementList& real) {
    const StructureRecord& st = s.Structure;
    std::string out = "file " + st.StructureFile + " thickness " + G(st.ThicknessMin) + " " + G(st.ThicknessMax) +
                      "\ncounts NLE=" + std::to_string(st.NLE) + " elements=" + std::to_string(st.NElements) +
                      " molecules=" + std::to_string(st.NMolecules) + " inclusions=" + B(st.HasInclusions) +
                      " roughness=" + B(st.HasRoughness) + " sample=" + std::to_string(s.current().NStructA) + "," +
                      std::to_string(s.current().NStructB) + "\n";
    const TargetRecList& t = st.Targets;
    for (int i = 1; i <= t.LECount; ++i) {
        const LogicalElement& le = t.LogicalElements[size_t(i)];
        out += "le " + std::to_string(i) + " [" + le.LEFileLine + "] mol=" + std::to_string(le.MoleculeIndex) +
               " name=[" + le.LEName + "] comp=[" + le.LEComposition + "]";
        if (le.MoleculeIndex == -1) out += " Z=" + std::to_string(le.LEZ) + " " + le.LESymbol + " iso=" + B(le.HasIsotopes);
        out += " depth=" + G(le.DepthMin) + ".." + G(le.DepthMax) + " conc=" + G(le.ConcMin) + ".." + G(le.ConcMax);
        if (le.IsSubstrate) out += " s";
        if (le.IsDelta) out += " d";
        if (le.HasFormula) out += " f=[" + le.FormulaFile + "]";
        out += " rho=" + G(le.LEDensity) + (le.LEDensityGiven ? "!" : "") + "/" + G(le.LEMassDensity) +
               " m=" + G(le.LEAverageMass) + "\n";
    }
    for (int k = 1; k <= t.Molecules.MoleculeCount; ++k)
        out += "mol " + std::to_string(k) + " le=" + std::to_string(t.Molecules.MoleculeLE[size_t(k)]) + " [" +
               t.Molecules.Molecules[size_t(k)].MolTextWithDensity + "]\n";
    const InclusionRecord& inc = st.Inclusions;
    if (inc.InclusionType)
        out += "incl type=" + std::to_string(inc.InclusionType) + " madeOf=" + std::to_string(inc.MadeOf) + " r=" +
               G(inc.Radius) + " h=" + G(inc.Height) + " o=" + G(inc.OrganisationFactor) + " depth=" +
               G(inc.InclDepthMin) + ".." + G(inc.InclDepthMax) + " conc=" + G(inc.InclConcMin) + ".." +
               G(inc.InclConcMax) + "\n";
    const RoughnessRecord& r = st.Roughness;
    if (st.HasRoughness && (r.ModelFlagsRead || !r.HasSurface || r.RoughKind != 1))
        out += "rough kind=" + std::to_string(r.RoughKind) + " models=" + std::to_string(r.ModelA) + "," +
               std::to_string(r.ModelB) + "," + std::to_string(r.ModelC) + " read=" + B(r.ModelFlagsRead) +
               " dtheta=" + G(r.DTheta) + "/" + B(r.DThetaFit) + " dx=" + G(r.DX) + "/" + B(r.DXFit) +
               " corr=" + G(r.CorrelationLength) + "/" + B(r.CorrelationFit) + "\n";
    if (r.HasSurface)
        out += "surface sep=" + G(r.AsperitySeparation) + "/" + B(r.SeparationFit) + " dev=" + G(r.AsperityDeviation) +
               "/" + B(r.DeviationFit) + " layers=" + std::to_string(r.SurfaceLayers) + "\n";
    out += "real";
    for (int k = 1; k <= real.RealElementCount; ++k) out += " " + real.RealElementNames[size_t(k)];
    return out + "\n";
}

}  // namespace halvo::test
