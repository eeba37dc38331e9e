// The directives that follow the fixed lines of a geometry file: each line's first word, upper-cased,
// is looked up in the keyword table; a line that matches no keyword is an element correction, a
// non-Rutherford file, a stopping factor, a thin film or the NDP background, by its count of words.
#include <cmath>
#include <string_view>

#include "geometry/aux_files.h"
#include "geometry/geometry_internal.h"
#include "platform/files.h"
#include "sample/molecule.h"
#include "session/session.h"
#include "text/fault.h"
#include "text/numbers.h"
#include "text/tokens.h"

namespace halvo::geo {
namespace {

float Single(std::string_view word) { return text::CSng(text::Val(word)); }

// Whether the working directory (or the directory the name gives) holds the file.
bool FileThere(const Session& s, const std::string& file) {
    if (file.empty()) return false;
    const auto found = platform::ResolvePath(InWorkDir(s, file));
    return found && !platform::IsDirectory(*found);
}

using Handler = void (*)(GeoReader& r, const std::string& key, std::string& tail);

GeometryRecord& Rec(GeoReader& r) { return r.s.Geometry; }
GeoElementOptions& Row0(GeoReader& r) { return r.s.Geometry.Elements.at(0); }

void AutoL(GeoReader& r, const std::string&, std::string& tail) {
    GeoElementOptions& row0 = Row0(r);
    row0.AutoL = row0.AutoLState = text::Upper(Cut(tail)) == "OFF" ? 2 : 1;
}

void DoubleScattering(GeoReader& r, const std::string&, std::string& tail) {
    DoubleScatterRecord& d = Rec(r).DoubleScatter;
    d.Enabled = -1;
    const std::string word = Cut(tail);
    const std::string mode = text::Upper(word);
    if (mode == "FULL") {
        d.Mode = "FULL";
        d.ModeCode = 2;
    } else if (mode == "PRECISE") {
        d.Mode = "PRECISE";
        d.ModeCode = 1;
    } else if (mode == "NORMAL" || mode.empty()) {
        d.Mode = "NORMAL";
        d.ModeCode = 0;
    } else if (mode == "FAST") {
        d.Mode = "FAST";
        d.ModeCode = 4;
        d.File = "'DSsf.DAT'";
    } else {
        d.File = word;
        d.Mode = "FILE";
        d.ModeCode = -1;
    }
    std::string next = Cut(tail);
    if (text::Upper(next) == "NOLOW") {
        d.NoLow = -1;
        next = Cut(tail);
    }
    if (text::IsNumeric(next)) {
        const float factor = Single(next);
        if (factor >= 0) d.Factor = factor;
    }
}

// A foil's composition line; a refused molecule is reported and the read goes on.
void FoilMolecule(GeoReader& r, GeoFoil& foil) {
    r.need();
    foil.Text = r.line;
    std::int16_t position = 0;
    const std::int32_t code = Parse_Mol(r.s, foil.Text, foil.Composition, position);
    if (code > 0) WarningBox(r.s, MoleculeErrorText(code), "ReadGeometry ParseMol error");
}

// PIXE detector foils: a count, then one line per foil with its thickness and a one-word composition,
// which may carry a flag word behind it.
void PixeFoils(GeoReader& r, std::string& tail) {
    GeometryRecord& g = Rec(r);
    const std::string here = text::CStr(r.lineNo - 1);
    if (r.lineNo > r.calibLineNo + 1)
        WarningBox(r.s,
                   Fill("WARNING:  PIXE detector foil definition should follow calibration.  Here it is on line<n>",
                        {{"<n>", here}}),
                   "PIXE geometry file error");
    const std::string count = Cut(tail);
    if (!text::IsNumeric(count) || text::Val(count) < 1) {
        WarningBox(r.s,
                   Fill("There must be at least one PIXE detector foil definition must follow calibration.  Here it is on line<n>",
                        {{"<n>", here}}),
                   "PIXE geometry file error");
        r.fail(Failure::Stop);
    }
    g.PixeFoilCount = text::CInt(text::Val(count));
    for (int i = 1; i <= g.PixeFoilCount; ++i) {
        r.need();
        if (i > kMaxPixeFoils) RaiseSubscript();
        PixeFoil& foil = g.PixeFoils[size_t(i)];
        std::string rest = r.line;
        const std::string thickness = Cut(rest);
        if (!text::IsNumeric(thickness)) r.fail(Failure::ReadGeom3);
        foil.Thickness = text::Val(thickness);
        foil.FormFlag = 0;
        if (Words(rest) == 2) {
            rest = Cut(rest);
            foil.FormFlag = 1;
        }
        foil.Text = rest;
        std::int16_t position = 0;
        const std::int32_t code = Parse_Mol(r.s, foil.Text, foil.Composition, position);
        if (code > 0 && code != molcode::Spacing && code != molcode::SpacingWarning) r.fail(Failure::ReadGeom4);
    }
}

void Foil(GeoReader& r, const std::string&, std::string& tail) {
    GeometryRecord& g = Rec(r);
    if (g.Kind == geokind::PIXE) return PixeFoils(r, tail);
    g.RangeFoil.Thickness = std::fabs(Single(Cut(tail)));
    g.RangeFoil.Second = std::fabs(Single(Cut(tail)));
    FoilMolecule(r, g.RangeFoil);
}

void Dead(GeoReader& r, const std::string&, std::string& tail) {
    Rec(r).DeadLayer.Thickness = Single(Cut(tail));
    FoilMolecule(r, Rec(r).DeadLayer);
}

void BeamFoil(GeoReader& r, const std::string&, std::string& tail) {
    Rec(r).BeamFoil.Thickness = Single(Cut(tail));
    FoilMolecule(r, Rec(r).BeamFoil);
}

void Nil(GeoReader& r, const std::string&, std::string&) { Row0(r).Nil = -1; }

void ChuBohr(GeoReader& r, const std::string& key, std::string& tail) {
    GeometryRecord& g = Rec(r);
    g.StragglingModel = key == "CHU" ? "chu" : "bohr";
    g.StragglingFactor = 1.0f;
    g.StragglingFactor2 = 0;
    const int words = Words(tail);
    if (words == 1) {
        g.StragglingFactor = Single(tail);
    } else if (words >= 2) {
        g.StragglingFactor = Single(Cut(tail));
        g.StragglingFactor2 = Single(tail);
    }
}

void Strag(GeoReader& r, const std::string&, std::string& tail) {
    const std::string kind = text::Upper(Cut(tail));
    if (kind == "GAUSS")
        Row0(r).StragType = 1;
    else if (kind == "GAMMA")
        Row0(r).StragType = 2;
    else
        WarningBox(r.s, "Gauss/Gamma parameter missing in STRAG codeword", "ReadGeometry Error");
    Rec(r).StragSet = 1;
}

// The VKS9 form names the model and gives times in seconds; one word alone is the old form.
void Pile(GeoReader& r, const std::string&, std::string& tail) {
    GeometryRecord& g = Rec(r);
    AdvGeomPileupRecord& p = g.AdvGeomPileup;
    const int words = Words(tail);
    if (words == 1) {
        p.syntax = -2;
        p.Model = 0;
        p.ShapeTime = text::CSng(text::Val(tail) * 1e6);
        return;
    }
    bool error = false;
    auto number = [&](const std::string& word) {
        if (!text::IsNumeric(word)) error = true;
        return text::Val(word);
    };
    p.syntax = 2;
    p.PurTime = 0;
    p.PeakFactor = 1.9f;
    p.Gamma = 0;
    const std::string model = text::Upper(Cut(tail));
    const int left = words - 1;
    if (model == "CJ")
        p.Model = 0;
    else if (model == "GA")
        p.Model = left == 1 ? 1 : 2;
    else if (model == "WG")
        p.Model = left == 1 ? 3 : 4;
    else if (model == "MG")
        p.Model = 5;
    if ((model == "CJ" || model == "WG") && left == 4) error = true;
    if (left <= 0) {
        error = true;
    } else {
        p.ShapeTime = text::CSng(number(Cut(tail)) * 1e6);
        if (p.Model == 5) {
            if (!tail.empty()) p.PurTime = text::CSng(number(Cut(tail)) * 1e6);
            if (!tail.empty()) p.MgFilter = text::CInt(number(Cut(tail)));
            if (p.MgFilter == 0) p.MgFilter = 2;
            if (!tail.empty()) p.MgR = text::CSng(number(Cut(tail)));
            if (p.MgR == 0) p.MgR = 1000.0f;
            p.MgThresholdSet = 0;
            if (tail.empty()) {
                if (g.Gain > 0) p.MgThreshold = g.FWHM / g.Gain;
            } else {
                p.MgThreshold = text::CSng(number(Cut(tail)));
                if (p.MgThreshold > 0) {
                    p.MgThresholdSet = -1;
                    if (g.Gain > 0) p.MgThreshold = p.MgThreshold / g.Gain;
                }
            }
            p.MgBimodal = -1;
            const std::string last = Cut(tail);
            if (last == "2")
                p.MgBimodal = 0;
            else if (last == "1")
                p.MgBimodal = -1;
        } else {
            if (!tail.empty()) p.PurTime = text::CSng(number(Cut(tail)) * 1e6);
            if (!tail.empty()) {
                p.PeakFactor = text::CSng(number(Cut(tail)));
                p.PeakFactorSet = -1;
            }
            if (!tail.empty()) {
                p.Gamma = text::CSng(number(Cut(tail)));
                p.GammaSet = -1;
            }
            if (p.PurTime == 0 && (p.Model == 2 || p.Model == 4)) --p.Model;
        }
    }
    if (error)
        WarningBox(r.s, Fill("Error in pileup directive, geometry file <name>", {{"<name>", r.name}}),
                   "ReadGeometry Error");
}

// The VKS8 form: the words PUR and WG anywhere in the line choose the model.
void Pup(GeoReader& r, const std::string&, std::string& tail) {
    AdvGeomPileupRecord& p = Rec(r).AdvGeomPileup;
    p.syntax = 1;
    const std::string upper = text::Upper(tail);
    if (upper.find("PUR") != std::string::npos)
        p.Model = 2;
    else if (upper.find("WG") != std::string::npos)
        p.Model = Words(tail) < 3 ? 3 : 4;
    else
        p.Model = 1;
    p.ShapeTime = text::CSng(text::Val(Cut(tail)) * 1e6);
    if (p.ShapeTime > 0 && p.Model > -1) {
        Cut(tail);
        if (p.Model == 4) p.PurTime = text::CSng(text::Val(Cut(tail)) * 1e6);
    }
}

void Lld(GeoReader& r, const std::string&, std::string& tail) {
    AdvGeomPileupRecord& p = Rec(r).AdvGeomPileup;
    p.LLD = text::CInt(text::Val(Cut(tail)));
    p.LLDSet = -1;
}

void Screen(GeoReader& r, const std::string&, std::string& tail) {
    const std::string letter = text::Upper(Cut(tail));
    static constexpr std::string_view kLetters = "AENUMLB";
    if (letter.size() == 1 && kLetters.find(letter[0]) != std::string_view::npos)
        Rec(r).AdvGeomScreen = std::int16_t(kLetters.find(letter[0]));
}

// A stopping key with an ion and a target adds a row to the stopping list; alone it is the default.
void StoppingKey(GeoReader& r, const std::string& key, std::string& tail) {
    GeometryRecord& g = Rec(r);
    if (!tail.empty()) {
        g.StopCount = text::Add16(g.StopCount, 1);
        GeoElementOptions& row = StopRow(g, g.StopCount);
        row.StopKey = key;
        row.StopIon = Cut(tail);
        row.StopTarget = Cut(tail);
    } else {
        GeoElementOptions& row0 = Row0(r);
        row0.StopKey = key;
        row0.StopIon.clear();
        row0.StopTarget.clear();
    }
    if (key == "SR03") CheckSRIM(r.s);
}

void NoRes(GeoReader& r, const std::string&, std::string&) { Rec(r).AdvGeomResonance = 1; }

void AllRes(GeoReader& r, const std::string&, std::string& tail) {
    GeometryRecord& g = Rec(r);
    g.AdvGeomResonance = 2;
    g.Elements[0].AllRes = -1;
    const int last = RealRows(r.s);
    while (!tail.empty()) {
        const std::string word = Cut(tail);
        const std::string lower = text::Lower(word);
        bool found = false;
        for (int i = 1; i <= last; ++i) {
            if (text::Lower(g.Elements[size_t(i)].ElementName) == lower) {
                g.Elements[size_t(i)].AllRes = -1;
                found = true;
            }
        }
        if (!found && r.s.WarningsFlag &&
            MsgBox(r.s,
                   Fill("Selected element <w> for ALLRES option not in structure file <structure> (Cancel to silence this warning)",
                        {{"<w>", word}, {"<structure>", r.s.Structure.StructureFile}}),
                   mb::OKCancel, "ReadGeometry") == mb::Cancel)
            SetWarningsFlag(r.s, false);
    }
}

void CheckDepthOnce(Session& s) {
    if (!s.Aux.DEPTHChecked) CheckDEPTH(s);
}

// The element list counts from 0 where the rows count from 1, and the match marks the row of the
// list position: one row below the element's own.
void Depth(GeoReader& r, const std::string&, std::string& tail) {
    CheckDepthOnce(r.s);
    GeometryRecord& g = Rec(r);
    const std::string element = text::Upper(Cut(tail));
    const int last = RealRows(r.s);
    for (int k = 0; k < last; ++k) {
        if (text::Upper(g.Elements[size_t(k + 1)].ElementName) != element) continue;
        GeoElementOptions& row = g.Elements[size_t(k)];
        row.Depth = -1;
        row.DepthFactor = 1.0f;
        row.DepthOffset = 0;
        row.DepthFile = Cut(tail);
        const std::string factor = Cut(tail);
        if (!factor.empty()) row.DepthFactor = Single(factor);
        row.DepthOffset = Single(Cut(tail));
        break;
    }
    CheckDEPTH(r.s);
}

void MDepth(GeoReader& r, const std::string& key, std::string& tail) {
    CheckDepthOnce(r.s);
    GeometryRecord& g = Rec(r);
    MDepthParamsRecord& m = g.MDepthParams;
    m.MDEPTH = key == "MDEPTH" ? 2 : 1;
    const int last = RealRows(r.s);
    const int words = Words(tail);
    if (words == 0) {
        m.AllElements = -1;
        for (int i = 0; i <= last; ++i) g.Elements[size_t(i)].MDepthSelected = -1;
    } else if (words == 1) {
        m.AllElements = -1;
        m.File = Cut(tail);
        m.Factor = 1.0f;
        m.Offset = 0;
        for (int i = 0; i < last; ++i) g.Elements[size_t(i)].MDepthSelected = -1;
    } else {
        m.File = Cut(tail);
        for (int i = 1; i <= last; ++i) g.Elements[size_t(i)].MDepthSelected = 0;
        m.AllElements = 0;
        int numbers = 0;
        while (!tail.empty()) {
            const std::string word = Cut(tail);
            if (text::IsNumeric(word)) {
                if (numbers == 0)
                    m.Factor = Single(word);
                else if (numbers == 1)
                    m.Offset = Single(word);
                ++numbers;
            } else if (const int row = FindRealRow(r.s, word)) {
                g.Elements[size_t(row)].MDepthSelected = -1;
            } else {
                WarningBox(r.s,
                           Fill("Error found with a DEPTH element <w>: not on current structure file list",
                                {{"<w>", word}}),
                           Fill("Warning for Geometry file <name>", {{"<name>", r.name}}));
            }
        }
    }
    CheckDEPTH(r.s);
}

void DpError(GeoReader& r, const std::string&, std::string& tail) {
    const std::string word = Cut(tail);
    if (!text::IsNumeric(word)) return;
    const float limit = Single(word);
    Rec(r).DepthErrorLimit = limit < 0 ? 1e10f : limit;
}

void XAs(GeoReader& r, const std::string&, std::string& tail) {
    Rec(r).XAs = -1;
    Rec(r).XAsFactor = Single(tail);
}

// The factor is read from the whole line's fifth character on.
void SAs(GeoReader& r, const std::string&, std::string&) {
    GeometryRecord& g = Rec(r);
    g.SAs = -1;
    g.SAsFactor = 1.0f;
    if (r.line.size() > 4) g.SAsFactor = Single(std::string_view(r.line).substr(4));
}

void FAs(GeoReader& r, const std::string&, std::string&) {
    GeometryRecord& g = Rec(r);
    g.SAs = g.XAs = g.FAs = -1;
    g.SAsFactor = g.XAsFactor = 1.0f;
    if (r.line.size() > 4) g.SAsFactor = Single(std::string_view(r.line).substr(4));
}

void LowE(GeoReader& r, const std::string&, std::string& tail) {
    const std::string option = text::Upper(Cut(tail));
    if (option.empty())
        Rec(r).AdvGeomLowEnergy = 1;
    else if (option == "OFF")
        Rec(r).AdvGeomLowEnergy = 2;
    else if (option == "ALL")
        Rec(r).AdvGeomLowEnergy = 3;
}

// ELFIT, MOLFIT, MOLSTOP, ELSTOP: a stopping file of the user's for the ion or the detected particle
// in one element. The element is looked for among the real elements, then by the logical elements'
// names: exactly, by first letter, and last by a name that holds the word, which is only a guess.
void UserStopping(GeoReader& r, const std::string& key, std::string& tail) {
    Session& s = r.s;
    GeometryRecord& g = Rec(r);
    const std::string title = Fill("ReadGeometry <name>: option <line>", {{"<name>", r.name}, {"<line>", r.line}});
    const std::string particle = Cut(tail);
    const std::string upper = text::Upper(particle);
    const bool forIon = upper == text::Upper(g.Ion);
    const bool forDetected = upper == text::Upper(g.Detected);
    if (!forIon && !forDetected) {
        WarningBox(s, Fill("Could not find incident or scattered ion <w> (command ignored)", {{"<w>", particle}}), title);
        return;
    }
    const std::string element = Cut(tail);
    int row = FindRealRow(s, element);
    const int first = RealRows(s) + 1, end = int(g.Elements.size());
    for (int j = first; row == 0 && j < end; ++j)
        if (WithoutBlanks(g.Elements[size_t(j)].ElementName) == element) row = j;
    for (int j = first; row == 0 && j < end; ++j) {
        const std::string name = WithoutBlanks(g.Elements[size_t(j)].ElementName);
        if (!name.empty() && !element.empty() && name.front() == element.front()) row = j;
    }
    for (int j = first; row == 0 && j < end; ++j) {
        const std::string& name = g.Elements[size_t(j)].ElementName;
        if (element.empty() || WithoutBlanks(name).find(element) == std::string::npos) continue;
        if (MsgBox(s,
                   Fill("Could not find logical element <w> but it looks like <name>! Is this a good guess?",
                        {{"<w>", element}, {"<name>", name}}),
                   mb::YesNo, title) == mb::Yes)
            row = j;
        break;
    }
    if (row == 0) {
        WarningBox(s, Fill("Could not find logical element <w> (command ignored)", {{"<w>", element}}), title);
        return;
    }
    GeoElementOptions& row0 = g.Elements[0];
    GeoElementOptions& found = g.Elements[size_t(row)];
    std::string* ionFile = nullptr;
    std::string* detectedFile = nullptr;
    if (key == "ELFIT") {
        row0.ElFit = found.ElStop = -1;
        ionFile = &found.ElFitFile;
        detectedFile = &found.ElFitFileDet;
    } else if (key == "MOLFIT") {
        row0.MolFit = found.MolStop = -1;
        ionFile = &found.MolFitFile;
        detectedFile = &found.MolFitFileDet;
    } else if (key == "MOLSTOP") {
        row0.MolStop = found.MolStop = -1;
        ionFile = &found.MolStopFile;
        detectedFile = &found.MolStopFileDet;
    } else {
        row0.ElStop = found.ElStop = -1;
        ionFile = &found.ElStopFile;
        detectedFile = &found.ElStopFileDet;
    }
    const std::string file = Cut(tail);
    if (forIon) *ionFile = file;
    if (forDetected) *detectedFile = file;
    if (!FileThere(s, WithoutBlanks(file)))
        WarningBox(s, Fill("Warning:  File <file> not found", {{"<file>", file}}),
                   Fill("ReadGeometry <name>: command <line>", {{"<name>", r.name}, {"<line>", r.line}}));
}

void Xml(GeoReader& r, const std::string&, std::string& tail) {
    const int words = Words(tail);
    const std::string option = text::Lower(tail);
    if (words == 0)
        Rec(r).XmlMode = 1;
    else if (words == 1 && option == "fit")
        Rec(r).XmlMode = 2;
    else if (words == 1 && option == "onlyfit")
        Rec(r).XmlMode = 3;
    else
        WarningBox(r.s, Fill("unrecognised options <tail> following XML directive ", {{"<tail>", tail}}),
                   Fill("ReadGeometry warning, file:  <name>", {{"<name>", r.name}}));
}

void FlagVar(GeoReader& r, const std::string& key, std::string& tail) {
    GeometryRecord& g = Rec(r);
    std::int16_t& field = key == "FLAGVAR_CHARGE" ? g.FlagVarCharge
                          : key == "FLAGVAR_QUAD" ? g.FlagVarQuad
                          : key == "FLAGVAR_CONV" ? g.FlagVarConv
                                                  : g.FlagVarOffset;
    g.FlagVarAny = -1;
    if (key != "FLAGVAR_CHARGE") g.FlagVarAny2 = -1;
    const std::string word = text::Upper(Cut(tail));
    if (word == "ON") {
        field = 1;
        return;
    }
    if (word == "OFF") {
        field = 0;
        return;
    }
    field = -1;
    std::string text, title;
    if (key == "FLAGVAR_CHARGE") {
        if (word.empty()) {
            title = Fill("ReadGeometry Warning (no argument supplied, file: )<name>", {{"<name>", r.name}});
            text = "The FLAGVAR_CHARGE  directive must have an argument ON/OFF ";
        } else {
            title = Fill("ReadGeometry Warning (incorrect argument supplied), file: <name>", {{"<name>", r.name}});
            text = "The FLAGVAR_CHARGE  directive must have an argument ON/OFF";
        }
    } else if (word.empty()) {
        title = Fill("ReadGeometry Warning (no argument supplied), file: <name>", {{"<name>", r.name}});
        text = Fill("The <key>  directive must have an argument ON/OFF (Cancel to silence this warning)", {{"<key>", key}});
    } else if (key == "FLAGVAR_OFFSET") {
        title = Fill("ReadGeometry Warning (incorrect argument supplied)<name>", {{"<name>", r.name}});
        text = "The FLAGVAR_OFFSET  directive must have an argument ON/OFF (Cancel to silence this warning)";
    } else {
        title = Fill("ReadGeometry Warning (incorrect argument supplied), file: <name>", {{"<name>", r.name}});
        text = Fill("The <key>  directive must have an argument ON/OFF ", {{"<key>", key}});
    }
    WarningBox(r.s, text, title);
}

void Effi(GeoReader& r, const std::string&, std::string& tail) {
    GeometryRecord& g = Rec(r);
    const std::string title = Fill("ReadGeometry: <name>", {{"<name>", r.name}});
    if (Words(tail) > 1) WarningBox(r.s, "Warning: more than one parameters of EFFI command ignored!", title);
    g.EffiSet = -1;
    const std::string word = Cut(tail);
    if (g.Kind == geokind::PIXE) {
        g.EffiSet = 0;
        WarningBox(r.s, "Warning: illegal Detector efficiency command with PIXE", title);
        if (text::IsNumeric(word))
            g.EffiPercent = Single(word);
        else
            g.EffiFile = word;
    } else if (g.Kind == geokind::PIGE) {
        if (!text::IsNumeric(word))
            WarningBox(r.s, "Warning: detector efficiency must be a number (%) for PIGE (NRP)", title);
        g.EffiPercent = Single(word);
    } else {
        g.EffiFile = word;
        if (!FileThere(r.s, word))
            WarningBox(r.s, Fill("Warning: detector efficiency file <w> not found", {{"<w>", word}}), title);
        else
            CheckEffiFile(r.s, word);
    }
}

void Active(GeoReader& r, const std::string&, std::string& tail) {
    Rec(r).Active = Single(Cut(tail));
    Rec(r).ActiveSet = -1;
}

void Cross(GeoReader& r, const std::string&, std::string& tail) {
    GeometryRecord& g = Rec(r);
    g.CrossSet = -1;
    g.CrossElement = Cut(tail);
    if (FindRealRow(r.s, g.CrossElement) == 0)
        WarningBox(r.s, Fill("Element specified (<w>) not in element list", {{"<w>", g.CrossElement}}),
                   Fill("ReadGeometry with GEO file <name>:  CROSS directive", {{"<name>", r.name}}));
    g.CrossRangeSet = tail.empty() ? 0 : -1;
    if (!tail.empty()) {
        g.CrossLow = Single(Cut(tail));
        g.CrossHigh = Single(Cut(tail));
    }
}

struct Keyword {
    std::string_view word;
    Handler handler;
};

// In the order they are tried. FITSTOP is not among them: such a line stays a comment, though the
// writer puts it out, since files of other origin may carry it.
constexpr Keyword kKeywords[] = {
    {"AUTOL", AutoL},
    {"DS", DoubleScattering},
    {"FOIL", Foil},
    {"DEAD", Dead},
    {"NIL", Nil},
    {"BEAMFOIL", BeamFoil},
    {"CHU", ChuBohr},
    {"BOHR", ChuBohr},
    {"STRAG", Strag},
    {"PILE", Pile},
    {"PUP", Pup},
    {"LLD", Lld},
    {"SCREEN", Screen},
    {"MSTAR", StoppingKey},
    {"SR03", StoppingKey},
    {"ZBL90", StoppingKey},
    {"ZBL00", StoppingKey},
    {"NORES", NoRes},
    {"ALLRES", AllRes},
    {"DEPTH", Depth},
    {"MDEPTH", MDepth},
    {"WDEPTH", MDepth},
    {"DPERROR", DpError},
    {"X_AS", XAs},
    {"S_AS", SAs},
    {"F_AS", FAs},
    {"LOW_E", LowE},
    {"ELFIT", UserStopping},
    {"MOLFIT", UserStopping},
    {"MOLSTOP", UserStopping},
    {"ELSTOP", UserStopping},
    {"XML", Xml},
    {"FLAGVAR_CHARGE", FlagVar},
    {"FLAGVAR_QUAD", FlagVar},
    {"FLAGVAR_CONV", FlagVar},
    {"FLAGVAR_OFFSET", FlagVar},
    {"EFFI", Effi},
    {"ACTIVE", Active},
    {"CROS", Cross},
    {"CROSS", Cross},
};

// A line without a keyword stays in the comment store unless it is understood.
void WithoutKeyword(GeoReader& r) {
    Session& s = r.s;
    GeometryRecord& g = Rec(r);
    r.keepLine();
    const int at = r.lineNo - 1;
    const int words = Words(r.line);
    std::string rest = r.line;
    const std::string first = Cut(rest);
    const int realRows = RealRows(s);

    // Numbers first: the numbers of a yield correction whose element line is missing.
    if (words >= 2 && text::IsNumeric(first)) {
        MsNumbers(g.Elements[0], r.line);
        if (realRows == 0)
            WarningBox(s,
                       Fill("No elements in structure file,  can't assign stopping power correction <line>",
                            {{"<line>", r.line}}),
                       "ReadGeometry: stopping for incident ions");
        else
            WarningBox(s, Fill("Can't find element <w> for MS Correction <line>", {{"<w>", first}, {"<line>", r.line}}),
                       "ReadGeometry: stopping for incident ions");
        return;
    }
    switch (words) {
        case 1: {  // element, then its yield correction on the next line, consumed in any case
            const int row = FindRealRow(s, first);
            r.need();
            r.keepLine();
            MsNumbers(g.Elements[size_t(row)], r.line);
            if (row != 0) {
                g.Elements[size_t(row)].MsSet = g.Elements[0].MsSet = -1;
                r.dropLine(at);
                r.dropLine(r.lineNo - 1);
            }
            break;
        }
        case 2: {  // element and non-Rutherford cross-section file
            if (realRows == 0) {
                WarningBox(s,
                           Fill("No elements in structure file,  can't assign NonR correction for line <line>",
                                {{"<line>", r.line}}),
                           "ReadGeometry: Non-Rutherford line");
                break;
            }
            const int row = FindRealRow(s, first);
            if (row == 0) break;
            GeoElementOptions& e = g.Elements[size_t(row)];
            e.NonR = g.Elements[0].NonR = -1;
            e.NonRFile = Cut(rest);
            r.dropLine(at);
            AskFixNonRFile(s, e.NonRFile, true);
            break;
        }
        case 3: {  // particle, element and stopping factor; or the NDP background
            const std::string particle = text::Upper(first);
            const std::string element = Cut(rest);
            const std::string factor = Cut(rest);
            if (particle == text::Upper(g.Ion)) {
                const int row = FindRealRow(s, element);
                if (row == 0) {
                    WarningBox(s,
                               Fill("Can't find element for Stopping Power or Thin Film Correction <line>",
                                    {{"<line>", r.line}}),
                               "ReadGeometry: stopping for incident ions");
                    break;
                }
                g.Elements[size_t(row)].IonStopSet = g.Elements[0].IonStopSet = -1;
                g.Elements[size_t(row)].IonStopFactor = Single(factor);
                g.Elements[0].IonStopFactor = 1.0f;
                r.dropLine(at);
            } else if (particle == text::Upper(g.Detected)) {
                const int row = FindRealRow(s, element);
                if (row == 0) {
                    WarningBox(s, Fill("Can't find element for Stopping Power Correction <line>", {{"<line>", r.line}}),
                               "ReadGeometry: stopping for recoils");
                    break;
                }
                g.Elements[size_t(row)].DetStopSet = g.Elements[0].DetStopSet = -1;
                g.Elements[size_t(row)].DetStopFactor = Single(factor);
                g.Elements[0].DetStopFactor = 1.0f;
                r.dropLine(at);
            } else if (particle == "NDPBACK") {
                g.NdpBackPre = Single(element);
                g.NdpBackExp = Single(factor);
                g.NdpBackSet = -1;
                r.dropLine(at);
            } else {
                WarningBox(s,
                           Fill("Can't find moving particle for Stopping Power Correction <line>", {{"<line>", r.line}}),
                           "ReadGeometry: stopping for recoils");
            }
            break;
        }
        case 4: {  // element and the thin film correction
            const int row = FindRealRow(s, first);
            if (row == 0) {
                WarningBox(s, Fill("Can't find element for Thin Film Correction <line>", {{"<line>", r.line}}),
                           "ReadGeometry: stopping for recoils");
                break;
            }
            GeoElementOptions& e = g.Elements[size_t(row)];
            e.ThinFilm = -1;
            for (size_t i = 0; i < 3; ++i) e.ThinFilmCoef[i] = Single(Cut(rest));
            r.dropLine(at);
            break;
        }
        default: break;
    }
}

}  // namespace

std::string WithoutBlanks(std::string_view text) {
    std::string out;
    for (char c : text)
        if (c != ' ') out += c;
    return out;
}

std::string MoleculeText(const Molecule& m) { return m.MolTextWithDensity.empty() ? m.MolText : m.MolTextWithDensity; }

void MsNumbers(GeoElementOptions& row, const std::string& line) {
    std::string rest = line;
    const bool full = Words(line) == 5;
    row.MsShort = full ? 0 : -1;
    row.MsCutoff = text::CInt(text::Val(Cut(rest)));
    for (size_t i = 0; i < (full ? 4u : 2u); ++i) row.MsCoef[i] = Single(Cut(rest));
}

void ReadDirectives(GeoReader& r) {
    while (r.next()) {
        std::string tail = r.line;
        const std::string key = text::Upper(Cut(tail));
        const Keyword* hit = nullptr;
        for (const Keyword& k : kKeywords) {
            if (k.word == key) {
                hit = &k;
                break;
            }
        }
        if (hit)
            hit->handler(r, key, tail);
        else
            WithoutKeyword(r);
    }
}

}  // namespace halvo::geo
