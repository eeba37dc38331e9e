// The defaults of a geometry before a read, and the element rows sized by the current structure.
#include <algorithm>

#include "geometry/geometry_file.h"
#include "geometry/geometry_internal.h"
#include "session/session.h"
#include "text/tokens.h"

namespace halvo {
namespace geo {

int RealRows(const Session& s) {
    const int rows = int(s.Geometry.Elements.size()) - 1;
    return std::clamp(int(s.ElementList.RealElementCount), 0, std::max(rows, 0));
}

// The rows are sized at each reset, so a structure loaded between two reads is what the next read
// finds: its real elements, then its logical elements by name.
void SizeElementRows(Session& s) {
    const RealElementList& real = s.ElementList;
    const TargetRecList& targets = s.Structure.Targets;
    const int nReal = std::clamp(int(real.RealElementCount), 0, int(real.RealElementNames.size()) - 1);
    const int nLogical = std::clamp(int(targets.LECount), 0, std::max(int(targets.LogicalElements.size()) - 1, 0));
    auto& rows = s.Geometry.Elements;
    rows.assign(size_t(1 + nReal + nLogical), GeoElementOptions{});
    for (int i = 1; i <= nReal; ++i) rows[size_t(i)].ElementName = text::Trim(real.RealElementNames[size_t(i)]);
    for (int j = 1; j <= nLogical; ++j)
        rows[size_t(nReal + j)].ElementName = targets.LogicalElements[size_t(j)].LEName;
}

}  // namespace geo

void ResetIndirection(Session& s, std::int16_t notIndirected, const std::string& baseName) {
    GeometryRecord& g = s.Geometry;
    g.Indirected = std::int16_t(~notIndirected);
    if (!baseName.empty()) g.IndirectedName = baseName;
    g.RoiChanged = g.EnergyChanged = g.AnglesChanged = g.FWHMChanged = g.SolidChanged = g.CalibChanged = 0;
    const int last = geo::RealRows(s);
    for (int i = 0; i <= last; ++i) {
        GeoElementOptions& row = g.Elements[size_t(i)];
        row.MsOverride = row.MsSet = row.MsShort = row.ThinFilm = row.IonStopSet = row.DetStopSet = 0;
        row.IonStopFactor = row.DetStopFactor = 1.0f;
    }
    g.Elements[0].IonStopFactor = g.Elements[0].DetStopFactor = 0;
}

void ResetGeometry(Session& s) {
    GeometryRecord& g = s.Geometry;
    g.RoiLow.fill(0);
    g.RoiHigh.fill(0);
    g.EnergyVar = 0;
    g.FWHMVar = g.FWHMLinear = g.FWHMLinearVar = 0;
    g.ScatterVar = g.IncidenceVar = g.ExitVar = 0;
    g.AngleVarSet = 0;
    g.IsPixe = g.IsPige = g.IsSims = g.IsRbs = 0;
    g.StragglingModel.clear();
    g.StragSet = -1;
    g.SyntaxInconsistent = 0;
    g.StragglingFactor = 1.0f;
    g.StragglingFactor2 = 0;
    g.XmlMode = 0;
    g.FlagVarCharge = g.FlagVarQuad = g.FlagVarConv = g.FlagVarOffset = -1;
    g.FlagVarAny = g.FlagVarAny2 = 0;
    g.EffiSet = 0;
    g.EffiPercent = 100.0f;
    g.EffiFile.clear();
    g.Active = 0;
    g.ActiveSet = 0;
    g.NdpBackPre = g.NdpBackExp = 0;
    g.NdpBackSet = 0;
    g.CrossSet = 0;
    g.StopCount = 0;
    g.MDepthParams = MDepthParamsRecord{};
    g.SAs = g.XAs = g.FAs = 0;
    g.SAsFactor = g.XAsFactor = 1.0f;
    g.DoubleScatter = DoubleScatterRecord{};
    g.RangeFoil = g.DeadLayer = g.BeamFoil = GeoFoil{};
    for (PixeFoil& foil : g.PixeFoils) foil = PixeFoil{};
    g.PixeFoilCount = 0;

    // The pile-up fields without a default keep their values.
    AdvGeomPileupRecord& p = g.AdvGeomPileup;
    const AdvGeomPileupRecord kept = p;
    p = AdvGeomPileupRecord{};
    p.LLD = kept.LLD;
    p.MgThresholdSet = kept.MgThresholdSet;
    p.MgThreshold = kept.MgThreshold;
    p.MgBimodal = kept.MgBimodal;
    p.Speed = kept.Speed;
    g.AdvGeomLowEnergy = g.AdvGeomScreen = g.AdvGeomResonance = 0;
    g.AdvGeomExtra.clear();

    g.GeoFeatureMask.fill(0);
    geo::SizeElementRows(s);
    ResetIndirection(s, -1, "");
}

}  // namespace halvo
