// ReadGeometry: the nine fixed lines, the READGEO indirection and the common failure exit. The
// directives that follow the fixed lines are in geometry_directives.cpp.
#include <cmath>

#include "geometry/aux_files.h"
#include "geometry/geometry_file.h"
#include "geometry/geometry_internal.h"
#include "geometry/syntax.h"
#include "platform/files.h"
#include "sample/element_table.h"
#include "session/session.h"
#include "text/fault.h"
#include "text/lines.h"
#include "text/numbers.h"
#include "text/tokens.h"

namespace halvo {

GeoLineSource::GeoLineSource(std::string_view bytes) : lines_(text::SplitLines(bytes)) {}

// A blank line is a hard stop: the call that meets one keeps every line to the end of the file as
// comment, so nothing behind it reaches the fixed lines or the directives.
bool GeoLineSource::ReadGeoLine(int& lineNo, std::string& line, std::vector<std::string>& comments) {
    bool blank = false;
    while (next_ < lines_.size()) {
        const std::string_view l = text::TrimView(lines_[next_++]);
        std::string& slot = comments.at(size_t(lineNo));
        ++lineNo;
        if (l.empty()) {
            slot = "  ";
            blank = true;
        } else if (blank || l.front() == '\\' || l.front() == '/') {
            slot.assign(l);
        } else {
            slot.clear();
            line.assign(l);
            return true;
        }
    }
    return false;
}

namespace geo {

int Words(std::string_view line) {
    std::string separator;
    return text::CountTokens(line, separator);
}

std::string Cut(std::string& rest) {
    static const std::string none;
    return text::NextToken(rest, none);
}

namespace {

float Single(std::string_view word) { return text::CSng(text::Val(word)); }

constexpr const char* kWarningTitle = "ReadGeometry warning, file:  <name>";

}  // namespace

// A derived file (read into a scratch record) has its number tested for being negative, and the base
// file's number, `upperValue`, for being past the last format.
void GeoReader::fileFormatLine(GeometryRecord& t, const std::string& text, std::int16_t upperValue) {
    std::string rest = text;
    t.FileFormat = text::CInt(text::Val(Cut(rest)));
    if (&t == &s.Geometry) upperValue = t.FileFormat;
    if (t.FileFormat < 0 || upperValue > kHighestFileFormat)
        WarningBox(s, Fill("Filetype <n> not recognised", {{"<n>", text::CStr(int(t.FileFormat))}}),
                   Fill(kWarningTitle, {{"<name>", name}}));
    t.Indirected = 0;
}

void GeoReader::roiLine(GeometryRecord& t, std::string rest) {
    const int pairs = std::min<int>(text::CInt(Words(rest) / 2.0), kMaxRois);
    if (pairs <= 0) fail(Failure::ReadGeom2);
    for (int i = 0; i < pairs; ++i) {
        t.RoiLow[size_t(i)] = text::CInt(text::Val(Cut(rest)));
        t.RoiHigh[size_t(i)] = text::CInt(text::Val(Cut(rest)));
    }
    t.RoiCount = std::int16_t(pairs);
}

bool GeoReader::needsIsotope(int Z, std::int16_t isotopeIndex) const {
    return Z >= 1 && isotopeIndex == 0 && ElementOf(s, Z).IsotopeCount > 1;
}

// Z, mass and A of one particle word into slot `slot`; the word comes back normalised. The word's
// isotope index is kept for the isotope warning that follows.
void GeoReader::particle(GeometryRecord& t, std::string& word, int slot) {
    std::int16_t failed = 0;
    ElementSelection selection;
    assignZA(s, word, t.Z[size_t(slot)], t.Mass[size_t(slot)], t.A[size_t(slot)], failed, selection, t.Kind);
    word = text::Trim(word);
    isotopeIndex_ = selection.SelIsotopeIndex;
    if (failed) fail(Failure::ReadGeom1);
}

void GeoReader::isotopeWarning(const std::string& word, int slot, const GeometryRecord& t, std::string_view text) {
    if (needsIsotope(t.Z[size_t(slot)], isotopeIndex_))
        WarningBox(s, Fill(text, {{"<w>", word}}), Fill(kWarningTitle, {{"<name>", name}}));
}

void GeoReader::reactionLine(GeometryRecord& t, const std::string& text) {
    std::string rest = text;
    const int words = Words(text);
    if (words == 6) {
        t.Kind = geokind::NRA;
        std::string w = Cut(rest);
        particle(t, w, 2);
        t.Struck = w;
        isotopeWarning(w, 2, t, "The struck ion <w> should surely be an isotope? (Press Cancel to silence this message)");
        w = Cut(rest);
        particle(t, w, 0);
        t.Ion = w;
        if (w != "NN")
            isotopeWarning(w, 0, t,
                           "The incident ion <w> should surely be an isotope? (Press Cancel to silence this message)");
        w = Cut(rest);
        particle(t, w, 3);
        t.Resultant1 = w;
        if (t.Kind < 3)
            isotopeWarning(w, 3, t,
                           "The resultant ion <w> should surely be an isotope? (Press Cancel to silence this message)");
        w = Cut(rest);
        particle(t, w, 4);
        t.Resultant2 = w;
        if (t.Kind < 3)
            isotopeWarning(w, 4, t,
                           "The resultant ion <w> should surely be an isotope? (Press Cancel to silence this message)");
        w = Cut(rest);
        if (!text::IsNumeric(w)) fail(Failure::ReadGeom1);
        t.QValue = Single(w);
        w = Cut(rest);
        particle(t, w, 1);
        t.Detected = w;
        isotopeWarning(w, 1, t, "The resultant ion <w> should surely be an isotope? ");
        return;
    }
    if (words != 2) fail(Failure::ReadGeom1);

    t.Kind = geokind::ERDA;
    std::string w = Cut(rest);
    particle(t, w, 0);
    t.Ion = w;
    if (t.Kind >= 3 && t.Kind <= 5) fail(Failure::ReadGeom1);
    if (w != "MB") isotopeWarning(w, 0, t, "The incident ion <w> should surely be an isotope?");
    w = Cut(rest);
    particle(t, w, 1);
    t.Detected = w;
    if (t.Kind == 3) fail(Failure::ReadGeom1);
    if (w != "MB" && t.Kind != geokind::PIXE)
        isotopeWarning(w, 1, t, "The detected ion <w> should surely be an isotope? (Press Cancel to silence this message)");

    if (t.Ion == t.Detected) {
        t.Kind = geokind::RBS;
        t.IsRbs = -1;
    }
    if (t.Kind == geokind::PIXE) {
        if (t.FileFormat != 26 && t.FileFormat != 28) {
            MsgBox(s, Fill("Setting filetype <n> to type 26: AXIL PIXE!", {{"<n>", text::CStr(int(t.FileFormat))}}),
                   mb::OKOnly, "Read Geometry warning");
            t.FileFormat = 26;
        }
        t.IsPixe = -1;
    }
    if (t.FileFormat == 32) {
        t.Kind = geokind::PIGE;
        t.IsPige = -1;
        t.Struck = t.Detected;
        t.Z[2] = t.Z[1];
        t.Mass[2] = t.Mass[1];
        t.A[2] = t.A[1];
        t.Detected = "G";
        t.Z[1] = 0;
        t.Mass[1] = 0;
        t.A[1] = 0;
    }
    if (t.FileFormat == 33 || t.FileFormat == 34) {
        t.Kind = geokind::SIMS;
        t.IsSims = -1;
    }
}

void GeoReader::energyLine(GeometryRecord& t, std::string rest) {
    t.Energy = Single(Cut(rest));
    t.EnergyVar = Single(Cut(rest));
}

// Every word must be a number; an invalid line leaves FWHM at 20 keV after its warning.
bool GeoReader::fwhmLine(GeometryRecord& t, const std::string& text) {
    std::string rest = text;
    const int words = Words(text);
    std::string w[4];
    bool valid = words > 0;
    for (int i = 0; i < words; ++i) {
        const std::string word = Cut(rest);
        if (!text::IsNumeric(word)) valid = false;
        if (i < 4) w[i] = word;
    }
    if (!valid) {
        WarningBox(s, "FWHM not recognised,  using 20keV", "ReadGeometry error");
        t.FWHM = 20;
        return false;
    }
    t.FWHM = Single(w[0]);
    t.FWHMLinear = Single(w[1]);
    t.FWHMVar = Single(w[2]);
    t.FWHMLinearVar = Single(w[3]);
    return true;
}

void GeoReader::geomTypeLine(GeometryRecord& t, const std::string& text) {
    std::string rest = text;
    std::string type = text::Upper(Cut(rest));
    if (!type.empty() && type.front() == 'G') type = "GENERAL";
    if (type != "CORNELL" && type != "IBM" && type != "GENERAL") {
        WarningBox(s, "Geometry type not recognised, using IBM",
                   Fill("ReadGeometry error:  <name> line <n>", {{"<name>", name}, {"<n>", text::CStr(lineNo)}}));
        type = "IBM";
    }
    t.GeomType = type;
}

// Incidence and scatter, then by the count of words: the exit angle, or the variations.
void GeoReader::anglesLine(GeometryRecord& t, const std::string& text) {
    std::string rest = text;
    const int words = Words(text);
    if (words != 2 && words != 3 && words != 4 && words != 6) fail(Failure::Angles);
    std::string w[6];
    for (int i = 0; i < words; ++i) {
        w[i] = Cut(rest);
        if (!text::IsNumeric(w[i])) fail(Failure::Angles);
    }
    t.Incidence = Single(w[0]);
    t.Scatter = Single(w[1]);
    switch (words) {
        case 2: t.Exit = 0; break;
        case 3:
            t.Exit = Single(w[2]);
            t.GeomType = "GENERAL";
            break;
        case 4:
            t.IncidenceVar = Single(w[2]);
            t.ScatterVar = Single(w[3]);
            t.AngleVarSet = -1;
            break;
        default:  // six: the sixth word is not read
            t.IncidenceVar = Single(w[2]);
            t.ScatterVar = Single(w[3]);
            t.ExitVar = Single(w[4]);
            t.AngleVarSet = -1;
            break;
    }
    if (t.ScatterVar == 0 && t.IncidenceVar == 0) t.AngleVarSet = 0;
    t.Exit = ExitAngle(t.GeomType, t.Scatter, t.Incidence, t.Exit);
}

// A word that is no number makes the line false, but what was assigned stays.
bool GeoReader::calibrationLine(GeometryRecord& t, const std::string& text) {
    std::string rest = text;
    if (t.Kind == geokind::PIXE) {
        t.PixeCalibFile = Cut(rest);
        if (!platform::ResolveCase(s.PathVKS, t.PixeCalibFile)) t.GeoFeatureMask[feature::PixeOrPige] = 0;
        if (rest.empty()) {
            t.PixeErrorPercent = 0;
        } else {
            if (!text::IsNumeric(rest)) return false;
            t.PixeErrorPercent = Single(rest);
        }
        return true;
    }
    const int words = Words(text);
    if (words <= 1) {
        t.Gain = Single(text);
        t.Quad = t.Offset = 0;
        return text::IsNumeric(text);
    }
    if (words == 2) {
        const std::string gain = Cut(rest), offset = Cut(rest);
        t.Gain = Single(gain);
        t.Offset = Single(offset);
        t.Quad = 0;
        return text::IsNumeric(gain) && text::IsNumeric(offset);
    }
    const std::string quad = Cut(rest), gain = Cut(rest);
    t.Quad = Single(quad);
    t.Gain = Single(gain);
    t.Offset = Single(rest);
    return text::IsNumeric(quad) && text::IsNumeric(gain) && text::IsNumeric(rest);
}

}  // namespace geo

float ExitAngle(const std::string& geomType, float scatter, float incidence, float exit) {
    const std::string type = text::Upper(geomType);
    if (type == "IBM") return 180 - scatter + incidence;
    if (type == "CORNELL") {
        const double i = incidence, back = 180 - double(scatter);
        return text::CSng(std::sqrt(i * i + back * back));
    }
    if (type == "GENERAL") return exit;
    return 0;
}

namespace {

using geo::Failure;
using geo::Fill;
using geo::GeoReader;

// Base files may name further base files; a chain this deep can only be a loop.
constexpr int kMaxIndirection = 8;

struct FileName {
    std::string given;    // as the caller named it
    std::string withExt;  // ".geo" added when there is no dot: what messages show
    std::string path;     // where it is
};

FileName Locate(const Session& s, const std::string& given) {
    FileName f{given, given, {}};
    if (f.withExt.find('.') == std::string::npos) f.withExt += ".geo";
    // A relative directory is taken from the working directory, as the engine started there does.
    f.path = platform::JoinPath(s.FilePath, f.withExt);
    return f;
}

bool HasDirectory(const std::string& name) { return name.find_first_of("\\/") != std::string::npos; }

void Report(GeoReader& r, Failure kind, const std::string& base) {
    const std::string n = text::CStr(r.lineNo);
    std::string text, title;
    switch (kind) {
        case Failure::ReadGeom1:
            text = Fill("(ReadGeom1) Error in Geometry <name> at line number: <n> ('<line>')",
                        {{"<name>", r.name}, {"<n>", n}, {"<line>", r.line}});
            title = "Undetermined Geometry file error: Please Check";
            break;
        case Failure::ReadGeom2:
            text = Fill("(ReadGeom2) Error in Geometry <name> at line number: <n> ('<line>')  ",
                        {{"<name>", r.name}, {"<n>", n}, {"<line>", r.line}});
            title = "Geometry parse error: Please Check";
            break;
        case Failure::ReadGeom3:
            text = Fill("(ReadGeom3) Error in Geometry  <name> at line number: <n> ('<line>')  ",
                        {{"<name>", r.name}, {"<n>", n}, {"<line>", r.line}});
            title = "Foil thickness error:  Please Check";
            break;
        case Failure::ReadGeom4:
            text = Fill("(ReadGeom4) Error in Geometry  <name> at line number: <n> ('<line>') ",
                        {{"<name>", r.name}, {"<n>", n}, {"<line>", r.line}});
            title = "Error in parsing molecule:  Please Check";
            break;
        case Failure::ReadGeom5:
            text = Fill("(ReadGeom5) Error in Geometry  <name> at line number: <n>: file terminates too soon! ",
                        {{"<name>", r.name}, {"<n>", n}});
            title = "Incomplete geo file:  Please Check";
            break;
        case Failure::Angles:
            text = Fill("Unrecognised string <line> in angles line of geo file <name> :  bad assignments made!",
                        {{"<line>", r.line}, {"<name>", r.name}});
            title = "Angles error:  Please Check";
            break;
        case Failure::ReadgeoBase:
            text = Fill("Indirected GEO file, <base> apparently does not exist. Many undesired defaults will be used.",
                        {{"<base>", base}});
            title = "READGEO error";
            break;
        case Failure::Stop: return;
    }
    WarningBox(r.s, text, "ReadGeometry warning: " + title);
}

void ReadFixedLines(GeoReader& r, GeometryRecord& t) {
    const std::int16_t baseFormat = r.s.Geometry.FileFormat;
    r.need();
    r.fileFormatLine(t, r.line, baseFormat);
    r.need();
    r.roiLine(t, r.line);
    r.need();
    r.reactionLine(t, r.line);
    r.need();
    r.energyLine(t, r.line);
    r.need();
    if (!r.fwhmLine(t, r.line)) r.fail(Failure::ReadGeom2);
    r.need();
    r.geomTypeLine(t, r.line);
    r.need();
    r.anglesLine(t, r.line);
    r.need();
    std::string rest = r.line;
    t.SolidAngle = text::CSng(text::Val(geo::Cut(rest)));
    r.need();
    if (!r.calibrationLine(t, r.line)) r.fail(Failure::ReadGeom1);
    r.calibLineNo = r.lineNo;
}

// "PILESPEED" in the working directory switches the fast pile-up calculation: its first word 1 on.
void ReadPileSpeed(Session& s) {
    const auto found = platform::ResolveCase(s.FilePath, "PILESPEED");
    if (!found) return;
    const auto bytes = platform::ReadFileBytes(*found);
    if (!bytes) return;
    std::string first;
    text::LineReader(*bytes).next(first);
    s.Geometry.AdvGeomPileup.Speed = text::Val(geo::Cut(first)) == 1 ? -1 : 0;
}

bool ReadFile(Session& s, const std::string& given, bool isBase, int depth);

// A derived file: the base file is read first, then this file's fixed lines are checked into a
// scratch record, and only its keyword lines change the record (ENERGY, SOLID and MSPOLY directly;
// ROI, ANGLES, FWHM and CALIB only as marks: the engine applies those itself).
void ReadDerived(GeoReader& r, const std::string& given, int depth, std::string& base) {
    Session& s = r.s;
    GeometryRecord& g = s.Geometry;
    std::string rest = r.line;
    geo::Cut(rest);
    base = geo::Cut(rest);
    if (!FileExists(s, Locate(s, base).path, -1)) r.fail(Failure::ReadgeoBase);
    if (depth >= kMaxIndirection) throw RuntimeFault(RuntimeFault::OutOfStackSpace, "Out of stack space");
    ReadFile(s, base, true, depth + 1);
    g.Name = given;
    ResetIndirection(s, 0, base);

    // The base file's comment store stands; this file's lines go to one of their own.
    std::vector<std::string> own(size_t(r.source.LineCount()) + 1);
    r.store = &own;
    GeometryRecord scratch;
    ReadFixedLines(r, scratch);
    while (r.next()) {
        std::string tail = r.line;
        const std::string key = text::Upper(geo::Cut(tail));
        if (key == "ROI") {
            r.roiLine(scratch, tail);
            g.RoiChanged = -1;
        } else if (key == "ENERGY") {
            g.Energy = text::CSng(text::Val(geo::Cut(tail)));
            g.EnergyVar = text::CSng(text::Val(geo::Cut(tail)));
            g.EnergyChanged = -1;
        } else if (key == "ANGLES") {
            r.anglesLine(scratch, tail);
            g.AnglesChanged = -1;
        } else if (key == "FWHM") {
            // Reversed on purpose: a valid line ends the read, an invalid one is a change.
            if (r.fwhmLine(scratch, tail)) r.fail(Failure::ReadGeom2);
            g.FWHMChanged = -1;
        } else if (key == "SOLID") {
            g.SolidAngle = text::CSng(text::Val(geo::Cut(tail)));
            g.SolidChanged = -1;
        } else if (key == "CALIB") {
            if (!r.calibrationLine(scratch, tail)) r.fail(Failure::ReadGeom1);
            g.CalibChanged = -1;
        } else if (key == "MSPOLY") {
            const std::string element = geo::Cut(tail);
            const int row = geo::FindRealRow(s, element);
            if (row == 0) {
                WarningBox(s, Fill("MSpoly for element <e> not in Structure file", {{"<e>", element}}),
                           Fill("ReadGeometry, GEO file <name>", {{"<name>", r.name}}));
                continue;
            }
            r.need();
            g.Elements[0].MsSet = g.Elements[0].MsOverride = -1;
            g.Elements[size_t(row)].MsSet = g.Elements[size_t(row)].MsOverride = -1;
            geo::MsNumbers(g.Elements[size_t(row)], r.line);
        }
    }
    g.Indirected = -1;
}

bool ReadFile(Session& s, const std::string& given, bool isBase, int depth) {
    GeometryRecord& g = s.Geometry;
    const FileName f = Locate(s, given);
    const auto path = FileExists(s, f.path, -1) ? platform::ResolvePath(f.path) : std::nullopt;
    const auto bytes = path ? platform::ReadFileBytes(*path) : std::nullopt;
    if (!bytes) {
        WarningBox(s, Fill("Geometry file <name> not found", {{"<name>", f.withExt}}),
                   Fill("ReadGeometry read error for file <name>", {{"<name>", f.withExt}}));
        g.Syntax = -1;
        return false;
    }
    g.Name = given;
    GeoReader r(s, f.withExt, *bytes, g.Comments);
    g.Comments.assign(size_t(r.source.LineCount()) + 1, std::string());
    std::string base;
    try {
        r.need();
        if (text::Upper(std::string_view(r.line).substr(0, 7)) == "READGEO") {
            ReadDerived(r, given, depth, base);
            return true;
        }
        if (HasDirectory(given) && !isBase) {
            MsgBox(s, "Geometry file is pathname,  not filename", mb::OKOnly,
                   Fill("Read Error in Geometry file <name>", {{"<name>", f.withExt}}));
            g.Syntax = -1;
            return false;
        }
        r.source.Rewind();
        r.lineNo = 1;
        ReadFixedLines(r, g);
        geo::ReadDirectives(r);
        ReadPileSpeed(s);
        DetermineSyntax(s, f.withExt);
        FindSigmaCalc(s, std::int16_t(geo::RealRows(s)));
        return true;
    } catch (const geo::ReadStop& stop) {
        Report(r, stop.kind, base);
    } catch (const std::exception&) {
        // The read's trap: any run-time fault is reported as an undetermined error at the line reached.
        Report(r, Failure::ReadGeom1, base);
    }
    g.Syntax = -1;
    return false;
}

}  // namespace

bool ReadGeometry(Session& s, const std::string& name) { return ReadFile(s, name, false, 0); }

}  // namespace halvo
