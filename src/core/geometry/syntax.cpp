// The engine generations a geometry needs, from the features it uses, and the checks that keep a
// geometry and a sample's geometries within what the engine in use reads.
#include "geometry/syntax.h"

#include <array>

#include "geometry/geometry_internal.h"
#include "geometry/geometry_record.h"
#include "session/session.h"
#include "text/numbers.h"
#include "text/tokens.h"

namespace halvo {
namespace {

constexpr std::array<std::string_view, 16> kFeatureNames = {
    "AutoL",   "BeamFoil",    "ChuBohr", "DoubleScat",   "PIXEdetfficiency", "fsx_as",           "STRAGcommand", "GeneralGeom",
    "Low_E",   "Pixe_or_Pige", "PileUp", "Resonance",    "SRIM03",           "GeoFileVariation", "WDEPTH",       "XML"};

constexpr std::array<std::string_view, 16> kHelpTexts = {
    "AutoLayer option for EBS sharp resonances: v9 has OFF parameter",
    "BeamFoil not available for v7",
    "ChuBohr",
    "DoubleScattering option: v9 has FAST and factor-on-filename parameters",
    "PIXEdetefficiency: PIXE only available for v9",
    "Pathlength and Angular multiple scattering calculations not available for v7",
    "Gamma function straggling only available for v9",
    "GeneralGeometry only available for v9",
    "Low_E option not available for v7,  needs ALL or OFF for v8",
    "Pixe_or_Pige",
    "PileUp has complex syntax changes: use the syntax changer button to investigate",
    "Resonance calculation not available for v7",
    "SRIM 2003 stopping powers only available for v9",
    "Geometry file variation only available for v9",
    "WDEPTH only available for v9",
    "XML only available for v9",
};

// What a mask AND gives: the record's syntax, the session's VKSverSyn and the editor's texts.
struct SyntaxRow {
    std::int16_t syntax, verSyn;
    bool inconsistent;
    const char* label;
    const char* furtherTitle;
};

SyntaxRow RowOfMask(std::int16_t m) {
    switch (m) {
        case -1:
        case 7: return {-1, -1, false, "VKS syntax: any", "Geometry - Further Parameters; Syntax=Undetermined"};
        case 1: return {0, 7, false, "VKS syntax VKS7", "Geometry - Further Parameters; Syntax=VKS7"};
        case 2: return {1, 8, false, "VKS syntax VKS8", "Geometry - Further Parameters; Syntax=VKS8"};
        case 3: return {-2, -1, false, "VKS syntax pre-VKS9", "Geometry - Further Parameters; Syntax=pre-VKS9"};
        case 4: return {2, 9, false, "VKS syntax VKS9", "Geometry - Further Parameters; Syntax=VKS9"};
        case 6: return {-3, -1, false, "VKS syntax post-VKS7", "Geometry - Further Parameters; Syntax=Undetermined"};
        default:  // 0, and 5, which no feature produces
            return {-1, -1, true, "VKS syntax inconsistent", "Geometry - Further Parameters; Syntax=Inconsistent"};
    }
}

// The bit of the engine in use; an engine of unknown generation reads everything.
int GenerationBit(const Session& s) {
    switch (s.VKSversion) {
        case 7: return 1;
        case 8: return 2;
        case 9: return 4;
        default: return 7;
    }
}

}  // namespace

std::string_view FeatureName(int bit) { return bit >= 0 && bit < 16 ? kFeatureNames[size_t(bit)] : ""; }

std::int16_t FeatureMasks(GeometryRecord& g) {
    auto& m = g.GeoFeatureMask;
    m.fill(-1);
    const GeoElementOptions& row0 = g.Elements.at(0);
    if (row0.AutoLState == 2) m[feature::AutoL] = 4;
    if (!g.BeamFoil.Composition.MolName.empty()) m[feature::BeamFoil] = 6;
    m[feature::ChuBohr] = 7;
    m[feature::DoubleScat] = g.DoubleScatter.Mode == "FAST" && g.DoubleScatter.Enabled ? 4 : 7;
    if (g.EffiSet) m[feature::PixeDetEfficiency] = 4;
    if (g.XAs || g.SAs) m[feature::FsxAs] = 4;
    if (row0.StragType > 0) m[feature::StragCommand] = 4;
    if (text::Upper(g.GeomType) == "GENERAL") m[feature::GeneralGeom] = 4;
    if (g.AdvGeomLowEnergy > 0) m[feature::LowE] = g.AdvGeomLowEnergy == 1 ? 4 : 2;
    if (g.IsPixe || g.IsPige) m[feature::PixeOrPige] = 4;
    switch (g.AdvGeomPileup.syntax) {
        case -2: m[feature::PileUp] = 3; break;
        case -1: m[feature::PileUp] = 7; break;
        case 0: m[feature::PileUp] = 1; break;
        case 1: m[feature::PileUp] = 2; break;
        case 2: m[feature::PileUp] = 4; break;
        default: break;
    }
    if (g.AdvGeomResonance > 0) m[feature::Resonance] = 6;
    if (row0.StopKey == "SR03") m[feature::Srim03] = 4;
    if (g.EnergyVar != 0) m[feature::GeoFileVariation] = 4;
    m[feature::WDepth] = g.MDepthParams.MDEPTH == 1 ? 4 : 7;
    if (g.XmlMode == 1) m[feature::Xml] = 6;
    if (!g.DeadLayer.Composition.MolName.empty()) m[feature::DeadLayer] = 6;
    if (row0.Nil) m[feature::Nil] = 6;
    std::int16_t all = -1;
    for (std::int16_t mask : m) all = std::int16_t(all & mask);
    return all;
}

bool TestFeature(Session& s, std::int16_t mask, std::string& text, std::string_view name, std::uint16_t bit) {
    bool conflict;
    if ((mask & 7) == 7)
        conflict = false;
    else if ((mask & 7) == 0)
        conflict = true;
    else
        conflict = (mask & GenerationBit(s)) == 0;
    if (conflict) {
        text += name;
        s.SyntaxErrorBits = std::uint16_t(s.SyntaxErrorBits | bit);
    } else {
        s.SyntaxErrorBits = std::uint16_t(s.SyntaxErrorBits & ~bit);
    }
    return conflict;
}

bool SyntaxConflicts(Session& s, std::string& text) {
    text.clear();
    for (int bit = 0; bit < 16; ++bit)
        TestFeature(s, s.Geometry.GeoFeatureMask[size_t(bit)], text, kFeatureNames[size_t(bit)], std::uint16_t(1u << bit));
    return !text.empty();
}

void ShowSyntaxHelp(Session& s) {
    int count = 0;
    for (int bit = 0; bit < 16; ++bit)
        if (s.SyntaxErrorBits & (1u << bit)) ++count;
    int shown = 0;
    for (int bit = 0; bit < 16; ++bit) {
        if (!(s.SyntaxErrorBits & (1u << bit))) continue;
        ++shown;
        const std::string text(kHelpTexts[size_t(bit)]);
        if (shown == count) {
            MsgBox(s, text + ". This is the last error.", mb::OKCancel, "Geometry file syntax error help");
            return;
        }
        const char* suffix = shown == count - 1 ? ". Do you want to see the last error? "
                                                : ". Do you want to see the rest of the errors? ";
        if (MsgBox(s, text + suffix, mb::YesNo, "Geometry file syntax error help") != mb::Yes) return;
    }
}

void DetermineSyntax(Session& s, const std::string& fileName) {
    GeometryRecord& g = s.Geometry;
    const std::int16_t m = FeatureMasks(g);
    std::string conflicts;
    if (SyntaxConflicts(s, conflicts)) {
        int buttons = mb::YesNoCancel;
        std::string suffix = ". Do you want to AVOID further details?";
        WarningBox(s, conflicts, "Syntax error for Geometry file: " + fileName, buttons, suffix);
        if (buttons == mb::No) ShowSyntaxHelp(s);
    }
    const SyntaxRow row = RowOfMask(m);
    g.SyntaxInconsistent = row.inconsistent ? -1 : 0;
    g.Syntax = row.syntax;
    s.VKSverSyn = row.verSyn;
    s.GeoEditor.SyntaxLabel = row.label;
    s.GeoEditor.FurtherTitle = row.furtherTitle;
}

std::string SyntaxLabel(std::int16_t syntax, bool inconsistent) {
    switch (syntax) {
        case -1: return inconsistent ? "VKS syntax inconsistent" : "VKS syntax: any";
        case 0: return "VKS syntax VKS7";
        case 1: return "VKS syntax VKS8";
        case 2: return "VKS syntax VKS9";
        case -2: return "VKS syntax pre-VKS9";
        case -3: return "VKS syntax post-VKS7";
        default: return "VKS syntax: unknown";
    }
}

void CheckGeomSyntaxLbl(Session& s) {
    const GeometryRecord& g = s.Geometry;
    s.GeoEditor.SyntaxLabel = SyntaxLabel(g.Syntax, g.SyntaxInconsistent != 0);
    if (g.Syntax >= 0 && g.Syntax <= 2)
        s.VKSverSyn = std::int16_t(g.Syntax + 7);
    else if (g.Syntax >= -3 && g.Syntax <= -1)
        s.VKSverSyn = -1;
}

void CorrectGeometrySyntax(Session& s, int value) {
    if (value == -1) return;
    if (value < -1 || value > 2) {
        MsgBox(s, geo::Fill("Code Error:  Syntax not in {-1, 0, 1, 2}.  SyntaxValue = <n>", {{"<n>", text::CStr(value)}}), mb::OKOnly,
               "CorrectGeometrySyntax");
        return;
    }
    GeometryRecord& g = s.Geometry;
    GeometryEditorState& e = s.GeoEditor;
    g.Syntax = std::int16_t(value);
    g.AdvGeomPileup.syntax = std::int16_t(value);
    static constexpr const char* kTitles[] = {"Geometry - Further Parameters; Syntax=VKS7",
                                              "Geometry - Further Parameters; Syntax=VKS8",
                                              "Geometry - Further Parameters; Syntax=VKS9"};
    static constexpr const char* kPileup[] = {"Pile-up:  VKS7 and below", "Pile-up:  VKS8a,b", "Pile-up:  VKS9"};
    e.FurtherTitle = kTitles[value];
    e.PileupCaption = kPileup[value];
    if (value == 1 && g.AdvGeomResonance == 3) g.AdvGeomResonance = 2;
    if (value == 2 && g.AdvGeomResonance == 2 && !g.Elements.at(0).AllRes) {
        g.AdvGeomResonance = 3;
        e.AllResList.clear();
        for (size_t i = 1; i < g.Elements.size(); ++i)
            if (g.Elements[i].AllRes) e.AllResList.push_back(g.Elements[i].ElementName);
    }
    LowEnergyCheck(s);
}

bool LowEnergyCheck(Session& s) {
    const GeometryRecord& g = s.Geometry;
    const std::int16_t low = g.AdvGeomLowEnergy;
    const std::string n = text::CStr(int(low)), syntax = text::CStr(int(g.Syntax));
    switch (g.Syntax) {
        case 0: return true;
        case 1:
            if (low == 0 || low == 2 || low == 3) return true;
            MsgBox(s,
                   geo::Fill("AdvGeomLowEnergy = <n>; Geometry.Syntax = <s> (AdvGeomLowEnergy has value for VKS9 syntax,  not current VKS8 syntax)",
                             {{"<n>", n}, {"<s>", syntax}}),
                   mb::OKOnly, "LowEnergyCheck");
            return false;
        case 2:
            if (low == 0 || low == 1) return true;
            MsgBox(s,
                   geo::Fill("AdvGeomLowEnergy = <n>; Geometry.Syntax = <s>; (AdvGeomLowEnergy should have value 0,1 for VKS9 syntax)",
                             {{"<n>", n}, {"<s>", syntax}}),
                   mb::OKOnly, "LowEnergyCheck");
            return false;
        default:
            MsgBox(s, "CODE ERROR: Geometry file Syntax illegal!", mb::OKOnly, "LowEnergyCheck");
            return false;
    }
}

bool CheckSampleSyntax(Session& s, Sample& sample) {
    bool first = true, consistent = true;
    std::int16_t reference = -1, firstSyntax = -1;
    for (const Experiment& e : s.Experiments) {
        if (e.GeometryFile.empty()) continue;
        const std::int16_t v = e.Syntax;
        if (first) {
            first = false;
            reference = firstSyntax = v;
            continue;
        }
        if (reference == -1)
            reference = v;
        else if (v == reference || v == -1)
            continue;
        else if (reference == -2 && (v == 0 || v == 1))
            continue;
        else if (reference == -3 && (v == 1 || v == 2))
            continue;
        else
            consistent = false;
    }
    if (consistent) {
        sample.SyntaxInconsistent = false;
        sample.Syntax = firstSyntax;
        return true;
    }
    sample.SyntaxInconsistent = true;
    sample.Syntax = 0;
    if (s.WarningsFlag &&
        MsgBox(s, "Inconsistent geometry file syntax for geometries in this sample: press Cancel to silence this message",
               mb::OKCancel, "Module1.ShowSample") == mb::Cancel)
        SetWarningsFlag(s, false);
    return false;
}

std::string SampleSyntaxLabel(const Sample& sample) {
    if (sample.Syntax == -1) return ". The syntax of this sample is not set";
    return ". This sample has syntax=" + text::CStr(int(sample.Syntax));
}

}  // namespace halvo
