// Geometry files: read one as the program does when it shows a sample (against a structure if one is
// given) and show its record; rewrite one as the editor saves it, for a chosen engine generation; and
// report the generations each of a set of geometries needs.
#include <iostream>

#include "cli.h"
#include "geometry/geometry_file.h"
#include "geometry/geometry_writer.h"
#include "geometry/syntax.h"
#include "platform/files.h"
#include "sample/element_table.h"
#include "sample/structure_file.h"
#include "text/numbers.h"

namespace halvo::cli {
namespace {

struct Options {
    std::vector<std::string> files;
    std::string structure;
    int syntax = -1;    // --syntax: the generation to switch to
    int analysis = -1;  // --analysis: the editor's analysis type; default the file's kind
};

// Files and options in any order; false on an option the command does not take.
bool Parse(Context& c, const std::vector<std::string>& a, Options& o, bool forRewrite) {
    for (size_t i = 0; i < a.size(); ++i) {
        const bool value = i + 1 < a.size();
        if (a[i] == "--structure" && value)
            o.structure = a[++i];
        else if (a[i] == "--engine-version" && value)
            c.session.VKSversionNumber = text::CInt(text::Val(a[++i]));
        else if (forRewrite && a[i] == "--syntax" && value)
            o.syntax = text::CInt(text::Val(a[++i]));
        else if (forRewrite && a[i] == "--analysis" && value)
            o.analysis = text::CInt(text::Val(a[++i]));
        else if (a[i].starts_with("--"))
            return false;
        else
            o.files.push_back(a[i]);
    }
    c.session.VKSversion = std::int16_t(c.session.VKSversionNumber / 1000);
    return true;
}

// The structure first, as the current sample's, then the geometry. The working directory becomes the
// geometry's own.
bool Load(Context& c, const std::string& structure, const std::string& file, std::string& name) {
    Session& s = c.session;
    bool structureRead = true;
    if (!structure.empty()) structureRead = !ReadStructureFile(s, EnterDirectoryOf(c, structure), nullptr, &s.ElementList);
    name = EnterDirectoryOf(c, file);
    ResetGeometry(s);
    return structureRead && ReadGeometry(s, name);
}

std::string Quoted(const std::vector<std::pair<std::string, std::string>>& pairs) {
    std::string out = "{";
    for (const auto& [k, v] : pairs) out += (out.size() > 1 ? "," : "") + JsonString(k) + ":" + JsonString(v);
    return out + "}";
}

// The features a geometry uses with their masks, the conflicts with the engine in use and what the
// masks make of it.
struct SyntaxReport {
    std::int16_t syntax = -1, verSyn = -1;
    bool inconsistent = false;
    std::string label, conflicts;
    std::vector<std::pair<std::string, std::int16_t>> features;
};

std::string FeatureLabel(int index) {
    if (index < 16) return std::string(FeatureName(index));
    return index == feature::DeadLayer ? "DeadLayer" : "Nil";
}

SyntaxReport ReportSyntax(Session& s) {
    SyntaxReport r;
    const GeometryRecord& g = s.Geometry;
    r.syntax = g.Syntax;
    r.inconsistent = g.SyntaxInconsistent != 0;
    CheckGeomSyntaxLbl(s);
    r.label = s.GeoEditor.SyntaxLabel;
    r.verSyn = s.VKSverSyn;
    for (int i = 0; i < feature::Count; ++i)
        if (g.GeoFeatureMask[size_t(i)] != -1) r.features.emplace_back(FeatureLabel(i), g.GeoFeatureMask[size_t(i)]);
    SyntaxConflicts(s, r.conflicts);
    return r;
}

std::string Json(const SyntaxReport& r) {
    std::string features = "{";
    for (const auto& [name, mask] : r.features)
        features += (features.size() > 1 ? "," : "") + JsonString(name) + ":" + std::to_string(mask);
    return "{\"syntax\":" + std::to_string(r.syntax) + ",\"inconsistent\":" + (r.inconsistent ? "true" : "false") +
           ",\"label\":" + JsonString(r.label) + ",\"vksVerSyn\":" + std::to_string(r.verSyn) +
           ",\"features\":" + features + "},\"conflicts\":" + JsonString(r.conflicts) + "}";
}

void Print(const SyntaxReport& r, const Session& s) {
    std::cout << "  syntax " << r.syntax << (r.inconsistent ? " (inconsistent)" : "") << ": " << r.label
              << "; VKSverSyn " << r.verSyn << "\n  features:";
    for (const auto& [name, mask] : r.features) std::cout << " " << name << " " << mask;
    std::cout << "\n  conflicts with the engine";
    if (s.VKSversion >= 7 && s.VKSversion <= 9) std::cout << " (VKS" << s.VKSversion << ")";
    std::cout << ": " << (r.conflicts.empty() ? "none" : r.conflicts) << "\n";
}

void PrintMessages(const Context& c) {
    const auto& shown = c.messages.shown();
    std::cout << "\n" << shown.size() << " message" << (shown.size() == 1 ? "" : "s") << (shown.empty() ? "" : ":")
              << "\n";
    for (const auto& [m, answer] : shown)
        std::cout << "  [" << m.title << "] " << m.text << "  -> " << AnswerName(answer) << "\n";
}

int Show(Context& c, const std::vector<std::string>& a) {
    const Command& self = Registry().at("geometry-show");
    Session& s = c.session;
    Options o;
    if (!Parse(c, a, o, false) || o.files.size() != 1) return Misuse(self);
    if (!LoadElementTables(s)) return kFailed;
    std::string name;
    const bool read = Load(c, o.structure, o.files[0], name);
    const GeometryRecord& g = s.Geometry;

    if (c.json) {
        c.putString("directory", s.FilePath);
        c.putString("file", name);
        c.putString("structure", o.structure.empty() ? "" : s.Structure.StructureFile);
        c.put("read", read ? "true" : "false");
        c.put("record", Quoted(GeometryFields(g)));
        std::string comments = "[";
        for (size_t n = 0; n < g.Comments.size(); ++n)
            if (!g.Comments[n].empty())
                comments += (comments.size() > 1 ? "," : "") + std::string("{\"line\":") + std::to_string(n) +
                            ",\"text\":" + JsonString(g.Comments[n]) + "}";
        c.put("comments", comments + "]");
        return read ? kOk : kFailed;
    }

    std::cout << "Geometry " << name << " in " << s.FilePath;
    if (!o.structure.empty()) std::cout << ", structure " << s.Structure.StructureFile;
    std::cout << (read ? "" : ": the read failed") << "\n\n";
    for (const auto& [field, value] : GeometryFields(g)) {
        std::string head = "  " + field;
        if (head.size() < 32) head.resize(32, ' ');
        std::cout << head << " " << value << "\n";
    }
    std::cout << "\nComment store (line: text):\n";
    for (size_t n = 0; n < g.Comments.size(); ++n)
        if (!g.Comments[n].empty()) std::cout << "  " << n << ": " << g.Comments[n] << "\n";
    PrintMessages(c);
    return read ? kOk : kFailed;
}

const char* SaveResult(GeometrySave r) {
    switch (r) {
        case GeometrySave::Written: return "written";
        case GeometrySave::Cancelled: return "cancelled";
        case GeometrySave::NameRefused: return "name refused";
        case GeometrySave::ProblemsShown: return "problems shown, file left empty";
        case GeometrySave::WriteFailed: return "write failed";
    }
    return "";
}

// Reads, switches the generation if asked, and saves as the editor does: the overwrite question, the
// short-name rule, the syntax question, and "<name>~" for the previous contents.
int Rewrite(Context& c, const std::vector<std::string>& a) {
    const Command& self = Registry().at("geometry-rewrite");
    Session& s = c.session;
    Options o;
    if (!Parse(c, a, o, true) || o.files.empty() || o.files.size() > 2) return Misuse(self);
    if (o.syntax < -1 || o.syntax > 2 || o.analysis < -1 || o.analysis > 6) return Misuse(self);
    if (!LoadElementTables(s)) return kFailed;
    std::string name;
    if (!Load(c, o.structure, o.files[0], name)) {
        if (!c.json) PrintMessages(c);
        return kFailed;
    }
    if (o.syntax != -1) CorrectGeometrySyntax(s, o.syntax);
    s.GeoEditor.Combo5 = std::int16_t(o.analysis >= 0 ? o.analysis : s.Geometry.Kind);
    std::string target = name;
    if (o.files.size() == 2) {
        const std::string sourceDir = s.FilePath;
        target = EnterDirectoryOf(c, o.files[1]);
        if (o.files[1].find_first_of("\\/") == std::string::npos) s.FilePath = sourceDir;
    }
    const GeometrySave result = Check2_Click(s, target);
    const SyntaxReport report = ReportSyntax(s);
    // Where the save wrote: the name's extension is always ".geo".
    const auto dot = target.rfind('.');
    const std::string written =
        platform::ResolveForWrite(platform::JoinPath(s.FilePath, target.substr(0, dot) + ".geo"));
    if (c.json) {
        c.putString("file", name);
        c.putString("written", written);
        c.putString("result", SaveResult(result));
        c.put("syntax", Json(report));
    } else {
        std::cout << "Geometry " << name << " saved as " << written << ": " << SaveResult(result) << "\n";
        Print(report, s);
        PrintMessages(c);
    }
    return result == GeometrySave::Written ? kOk : kFailed;
}

int Syntax(Context& c, const std::vector<std::string>& a) {
    const Command& self = Registry().at("geometry-syntax");
    Session& s = c.session;
    Options o;
    if (!Parse(c, a, o, false) || o.files.empty()) return Misuse(self);
    if (!LoadElementTables(s)) return kFailed;
    bool allRead = true;
    std::string list = "[";
    for (const std::string& file : o.files) {
        std::string name;
        const bool read = Load(c, o.structure, file, name);
        allRead = allRead && read;
        const SyntaxReport report = ReportSyntax(s);
        if (c.json) {
            list += (list.size() > 1 ? "," : "") + std::string("{\"file\":") + JsonString(file) +
                    ",\"read\":" + (read ? "true" : "false") + ",\"syntax\":" + Json(report) + "}";
        } else {
            std::cout << file << (read ? "" : " (the read failed)") << "\n";
            Print(report, s);
        }
    }
    if (c.json) c.put("geometries", list + "]");
    return allRead ? kOk : kFailed;
}

const Register show{{"geometry-show", "FILE.geo [--structure FILE.str] [--engine-version N]",
                     "read a geometry file as the program does and show its record, comment store and messages",
                     Show}};
const Register rewrite{{"geometry-rewrite",
                        "FILE.geo [OUT.geo] [--syntax 0|1|2] [--analysis 0-6] [--structure FILE.str] [--engine-version N]",
                        "save a geometry as the editor does, optionally for another engine generation", Rewrite}};
const Register syntax{{"geometry-syntax", "FILE.geo... [--structure FILE.str] [--engine-version N]",
                       "the engine generations each geometry needs, its features and its conflicts", Syntax}};

}  // namespace
}  // namespace halvo::cli
