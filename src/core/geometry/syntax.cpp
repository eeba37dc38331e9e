// The engine generations a geometry needs, from the features it uses.
#include "geometry/syntax.h"

#include "geometry/geometry_record.h"
#include "session/session.h"
#include "text/tokens.h"

namespace halvo {

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

// The question about conflicts with the engine in use belongs to the syntax checks proper; this pass
// only records what the file needs.
void DetermineSyntax(Session& s) {
    GeometryRecord& g = s.Geometry;
    const std::int16_t m = FeatureMasks(g);
    g.SyntaxInconsistent = 0;
    switch (m) {
        case -1:
        case 7: g.Syntax = -1; s.VKSverSyn = -1; break;
        case 1: g.Syntax = 0; s.VKSverSyn = 7; break;
        case 2: g.Syntax = 1; s.VKSverSyn = 8; break;
        case 3: g.Syntax = -2; s.VKSverSyn = -1; break;
        case 4: g.Syntax = 2; s.VKSverSyn = 9; break;
        case 6: g.Syntax = -3; s.VKSverSyn = -1; break;
        default:
            g.Syntax = -1;
            g.SyntaxInconsistent = -1;
            s.VKSverSyn = -1;
            break;
    }
}

}  // namespace halvo
