// The geometry record as named fields, for the command-line tool's display and for tests.
#include "geometry/geometry_file.h"
#include "geometry/geometry_internal.h"
#include "text/numbers.h"

namespace halvo {
namespace {

class Fields {
public:
    std::vector<std::pair<std::string, std::string>> out;
    void add(const std::string& name, const std::string& value) { out.emplace_back(name, value); }
    void add(const std::string& name, float v) { add(name, text::GeneralNumber(v)); }
    void add(const std::string& name, double v) { add(name, text::GeneralNumber(v)); }
    void add(const std::string& name, std::int16_t v) { add(name, std::to_string(v)); }
    void add(const std::string& name, const char* v) { add(name, std::string(v)); }
    template <class T, size_t N>
    void array(const std::string& name, const std::array<T, N>& values, size_t count = N) {
        for (size_t i = 0; i < count && i < N; ++i) add(name + "[" + std::to_string(i) + "]", values[i]);
    }
};

void Foil(Fields& f, const std::string& name, const GeoFoil& foil) {
    f.add(name + ".Thickness", foil.Thickness);
    f.add(name + ".Second", foil.Second);
    f.add(name + ".Composition", geo::MoleculeText(foil.Composition));
    f.add(name + ".Text", foil.Text);
}

// Every field of a row with a setting; of a fresh row only its name.
void Row(Fields& f, size_t index, const GeoElementOptions& e) {
    const std::string p = "Elements[" + std::to_string(index) + "].";
    f.add(p + "ElementName", e.ElementName);
    Fields all;
    bool set = false;
    auto flag = [&](const char* name, std::int16_t v, std::int16_t fresh) {
        set = set || v != fresh;
        all.add(p + name, v);
    };
    auto num = [&](const char* name, float v, float fresh) {
        set = set || v != fresh;
        all.add(p + name, v);
    };
    auto str = [&](const char* name, const std::string& v) {
        set = set || !v.empty();
        all.add(p + name, v);
    };
    static const GeoElementOptions fresh;
    flag("NonR", e.NonR, fresh.NonR);
    str("NonRFile", e.NonRFile);
    flag("AllRes", e.AllRes, fresh.AllRes);
    flag("AutoL", e.AutoL, fresh.AutoL);
    flag("AutoLState", e.AutoLState, fresh.AutoLState);
    flag("Nil", e.Nil, fresh.Nil);
    flag("Depth", e.Depth, fresh.Depth);
    str("DepthFile", e.DepthFile);
    num("DepthFactor", e.DepthFactor, fresh.DepthFactor);
    num("DepthOffset", e.DepthOffset, fresh.DepthOffset);
    flag("StragType", e.StragType, fresh.StragType);
    flag("MDepthSelected", e.MDepthSelected, fresh.MDepthSelected);
    flag("MsSet", e.MsSet, fresh.MsSet);
    flag("MsShort", e.MsShort, fresh.MsShort);
    flag("ThinFilm", e.ThinFilm, fresh.ThinFilm);
    flag("MsCutoff", e.MsCutoff, fresh.MsCutoff);
    for (size_t i = 0; i < e.MsCoef.size(); ++i) num(("MsCoef[" + std::to_string(i) + "]").c_str(), e.MsCoef[i], 0);
    for (size_t i = 0; i < e.ThinFilmCoef.size(); ++i)
        num(("ThinFilmCoef[" + std::to_string(i) + "]").c_str(), e.ThinFilmCoef[i], 0);
    flag("IonStopSet", e.IonStopSet, fresh.IonStopSet);
    num("IonStopFactor", e.IonStopFactor, fresh.IonStopFactor);
    flag("DetStopSet", e.DetStopSet, fresh.DetStopSet);
    num("DetStopFactor", e.DetStopFactor, fresh.DetStopFactor);
    str("StopKey", e.StopKey);
    str("StopIon", e.StopIon);
    str("StopTarget", e.StopTarget);
    flag("FitStop", e.FitStop, 0);
    flag("MolFit", e.MolFit, 0);
    flag("ElFit", e.ElFit, 0);
    flag("MolStop", e.MolStop, 0);
    flag("ElStop", e.ElStop, 0);
    str("FitStopFile", e.FitStopFile);
    str("ElFitFile", e.ElFitFile);
    str("MolFitFile", e.MolFitFile);
    str("MolStopFile", e.MolStopFile);
    str("ElStopFile", e.ElStopFile);
    str("FitStopFileDet", e.FitStopFileDet);
    str("ElFitFileDet", e.ElFitFileDet);
    str("MolFitFileDet", e.MolFitFileDet);
    str("MolStopFileDet", e.MolStopFileDet);
    str("ElStopFileDet", e.ElStopFileDet);
    flag("MsOverride", e.MsOverride, 0);
    if (set) f.out.insert(f.out.end(), all.out.begin(), all.out.end());
}

}  // namespace

std::vector<std::pair<std::string, std::string>> GeometryFields(const GeometryRecord& g) {
    Fields f;
    f.add("FileFormat", g.FileFormat);
    f.add("Name", g.Name);
    f.add("RoiCount", g.RoiCount);
    f.array("RoiLow", g.RoiLow);
    f.array("RoiHigh", g.RoiHigh);
    f.add("Ion", g.Ion);
    f.add("Detected", g.Detected);
    f.add("Syntax", g.Syntax);
    f.add("Kind", g.Kind);
    f.add("Struck", g.Struck);
    f.add("Resultant1", g.Resultant1);
    f.add("Resultant2", g.Resultant2);
    f.array("Z", g.Z);
    f.array("Mass", g.Mass);
    f.array("A", g.A);
    f.add("QValue", g.QValue);
    f.add("Energy", g.Energy);
    f.add("EnergyVar", g.EnergyVar);
    f.add("FWHM", g.FWHM);
    f.add("FWHMVar", g.FWHMVar);
    f.add("FWHMLinear", g.FWHMLinear);
    f.add("FWHMLinearVar", g.FWHMLinearVar);
    f.add("GeomType", g.GeomType);
    f.add("Scatter", g.Scatter);
    f.add("ScatterVar", g.ScatterVar);
    f.add("Incidence", g.Incidence);
    f.add("IncidenceVar", g.IncidenceVar);
    f.add("Exit", g.Exit);
    f.add("ExitVar", g.ExitVar);
    f.add("AngleVarSet", g.AngleVarSet);
    f.add("SolidAngle", g.SolidAngle);
    f.add("Quad", g.Quad);
    f.add("Gain", g.Gain);
    f.add("Offset", g.Offset);
    f.add("PixeCalibFile", g.PixeCalibFile);
    f.add("PixeErrorPercent", g.PixeErrorPercent);
    f.add("IsPixe", g.IsPixe);
    f.add("IsPige", g.IsPige);
    f.add("IsSims", g.IsSims);
    f.add("IsRbs", g.IsRbs);
    f.add("StragglingModel", g.StragglingModel);
    f.add("StragSet", g.StragSet);
    f.add("SyntaxInconsistent", g.SyntaxInconsistent);
    f.add("StragglingFactor", g.StragglingFactor);
    f.add("StragglingFactor2", g.StragglingFactor2);
    f.add("XmlMode", g.XmlMode);
    f.add("FlagVarCharge", g.FlagVarCharge);
    f.add("FlagVarQuad", g.FlagVarQuad);
    f.add("FlagVarConv", g.FlagVarConv);
    f.add("FlagVarOffset", g.FlagVarOffset);
    f.add("FlagVarAny", g.FlagVarAny);
    f.add("FlagVarAny2", g.FlagVarAny2);
    f.add("EffiSet", g.EffiSet);
    f.add("EffiPercent", g.EffiPercent);
    f.add("EffiFile", g.EffiFile);
    f.add("Active", g.Active);
    f.add("ActiveSet", g.ActiveSet);
    f.add("NdpBackPre", g.NdpBackPre);
    f.add("NdpBackExp", g.NdpBackExp);
    f.add("NdpBackSet", g.NdpBackSet);
    f.add("CrossSet", g.CrossSet);
    f.add("CrossElement", g.CrossElement);
    f.add("CrossLow", g.CrossLow);
    f.add("CrossHigh", g.CrossHigh);
    f.add("CrossRangeSet", g.CrossRangeSet);
    f.add("Indirected", g.Indirected);
    f.add("IndirectedName", g.IndirectedName);
    f.add("RoiChanged", g.RoiChanged);
    f.add("EnergyChanged", g.EnergyChanged);
    f.add("AnglesChanged", g.AnglesChanged);
    f.add("FWHMChanged", g.FWHMChanged);
    f.add("SolidChanged", g.SolidChanged);
    f.add("CalibChanged", g.CalibChanged);
    f.add("StopCount", g.StopCount);
    f.add("MDepthParams.File", g.MDepthParams.File);
    f.add("MDepthParams.MDEPTH", g.MDepthParams.MDEPTH);
    f.add("MDepthParams.AllElements", g.MDepthParams.AllElements);
    f.add("MDepthParams.Factor", g.MDepthParams.Factor);
    f.add("MDepthParams.Offset", g.MDepthParams.Offset);
    f.add("SAs", g.SAs);
    f.add("XAs", g.XAs);
    f.add("FAs", g.FAs);
    f.add("SAsFactor", g.SAsFactor);
    f.add("XAsFactor", g.XAsFactor);
    f.add("DepthErrorLimit", g.DepthErrorLimit);
    f.add("DoubleScatter.Enabled", g.DoubleScatter.Enabled);
    f.add("DoubleScatter.File", g.DoubleScatter.File);
    f.add("DoubleScatter.Mode", g.DoubleScatter.Mode);
    f.add("DoubleScatter.ModeCode", g.DoubleScatter.ModeCode);
    f.add("DoubleScatter.NoLow", g.DoubleScatter.NoLow);
    f.add("DoubleScatter.Factor", g.DoubleScatter.Factor);
    Foil(f, "RangeFoil", g.RangeFoil);
    Foil(f, "DeadLayer", g.DeadLayer);
    Foil(f, "BeamFoil", g.BeamFoil);
    f.add("PixeFoilCount", g.PixeFoilCount);
    for (int i = 1; i <= g.PixeFoilCount && i <= kMaxPixeFoils; ++i) {
        const PixeFoil& foil = g.PixeFoils[size_t(i)];
        const std::string p = "PixeFoils[" + std::to_string(i) + "].";
        f.add(p + "Thickness", foil.Thickness);
        f.add(p + "Composition", geo::MoleculeText(foil.Composition));
        f.add(p + "Text", foil.Text);
        f.add(p + "FormFlag", foil.FormFlag);
    }
    const AdvGeomPileupRecord& pile = g.AdvGeomPileup;
    f.add("AdvGeomPileup.Model", pile.Model);
    f.add("AdvGeomPileup.ShapeTime", pile.ShapeTime);
    f.add("AdvGeomPileup.PurTime", pile.PurTime);
    f.add("AdvGeomPileup.Gamma", pile.Gamma);
    f.add("AdvGeomPileup.LLD", pile.LLD);
    f.add("AdvGeomPileup.syntax", pile.syntax);
    f.add("AdvGeomPileup.PeakFactor", pile.PeakFactor);
    f.add("AdvGeomPileup.LLDSet", pile.LLDSet);
    f.add("AdvGeomPileup.PeakFactorSet", pile.PeakFactorSet);
    f.add("AdvGeomPileup.GammaSet", pile.GammaSet);
    f.add("AdvGeomPileup.MgFilter", pile.MgFilter);
    f.add("AdvGeomPileup.MgR", pile.MgR);
    f.add("AdvGeomPileup.MgThresholdSet", pile.MgThresholdSet);
    f.add("AdvGeomPileup.MgThreshold", pile.MgThreshold);
    f.add("AdvGeomPileup.MgBimodal", pile.MgBimodal);
    f.add("AdvGeomPileup.Speed", pile.Speed);
    f.add("AdvGeomLowEnergy", g.AdvGeomLowEnergy);
    f.add("AdvGeomScreen", g.AdvGeomScreen);
    f.add("AdvGeomResonance", g.AdvGeomResonance);
    std::string masks;
    for (std::int16_t m : g.GeoFeatureMask) masks += (masks.empty() ? "" : " ") + std::to_string(m);
    f.add("GeoFeatureMask", masks);
    for (size_t i = 0; i < g.Elements.size(); ++i) Row(f, i, g.Elements[i]);
    return std::move(f.out);
}

}  // namespace halvo
