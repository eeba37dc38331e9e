// Cross-section matrices the engine finds by itself: the data directory's sigmacalc folder holds
// one file per beam, element and kind of analysis. Rows found so are marked, never written back.
#include "geometry/aux_files.h"
#include "platform/files.h"
#include "session/session.h"
#include "text/tokens.h"

namespace halvo {

void FindSigmaCalc(Session& s, std::int16_t Nelts) {
    GeometryRecord& g = s.Geometry;
    if (g.Elements.empty() || g.Elements[0].NonR) return;
    if (g.Kind != 0 && g.Kind != 1) return;
    const auto dir = platform::ResolveCase(s.PathVKS, "sigmacalc");
    if (!dir || !platform::IsDirectory(*dir)) return;
    const std::string prefix = std::string("sigmacalc_") + (g.Kind == 0 ? "R" : "E") + text::Trim(g.Ion);
    bool any = false;
    for (size_t row = 1; row <= size_t(std::max<std::int16_t>(Nelts, 0)) && row < g.Elements.size(); ++row) {
        auto& e = g.Elements[row];
        const auto found = platform::ResolveCase(*dir, prefix + text::Trim(e.ElementName) + ".dat");
        if (!found || platform::IsDirectory(*found)) continue;
        e.NonR = -1;
        e.NonRFile = "(SigCalc matrix)";
        any = true;
    }
    if (any) g.Elements[0].NonR = -1;
}

}  // namespace halvo
