// The geometry against the current structure (element rows and the stopping list) and the check
// made before a run.
#include "geometry/geometry_file.h"
#include "geometry/geometry_internal.h"
#include "session/session.h"
#include "text/fault.h"
#include "text/numbers.h"
#include "text/tokens.h"

namespace halvo {
namespace geo {

int FindRealRow(const Session& s, std::string_view word) {
    if (word.empty()) return 0;
    const int last = RealRows(s);
    for (int i = 1; i <= last; ++i)
        if (text::EqualsIgnoreCase(s.Geometry.Elements[size_t(i)].ElementName, word)) return i;
    return 0;
}

GeoElementOptions& StopRow(GeometryRecord& g, int row) {
    if (row < 0 || size_t(row) >= g.Elements.size()) RaiseSubscript();
    return g.Elements[size_t(row)];
}

}  // namespace geo

bool IsGeomValid(Session& s, const GeometryRecord& g, bool warnFlag, bool fileWarnFlag) {
    const char* const title = "IsGeomValid function: illegal value (press Cancel to turn off these warnings)";
    bool valid = true;
    auto test = [&](bool passes, bool& flag, const std::string& text) {
        if (passes) return;
        valid = false;
        if (flag && MsgBox(s, text, mb::OKCancel, title) == mb::Cancel) warnFlag = fileWarnFlag = false;
    };
    const std::string& name = g.Name;
    const std::string base = text::BaseName(name);
    test(!name.empty() && FileExists(s, base + ".geo", -1), fileWarnFlag,
         geo::Fill("<name>.geo does not exist!", {{"<name>", name.empty() ? "(filename not set!)" : base}}));
    test(g.Energy >= 1, warnFlag,
         geo::Fill("Energy of geometry file <name> is <value>", {{"<name>", name}, {"<value>", text::CStr(g.Energy)}}));
    test(g.FileFormat >= 0 && g.FileFormat <= kHighestFileFormat, warnFlag,
         geo::Fill("FileFormat of geometry file <name> is <value>",
                   {{"<name>", name}, {"<value>", text::CStr(int(g.FileFormat))}}));
    test(g.FWHM > 0, warnFlag,
         geo::Fill("FWHM of geometry file <name> is <value>", {{"<name>", name}, {"<value>", text::CStr(g.FWHM)}}));
    test(g.Gain > 0, warnFlag,
         geo::Fill("Gain of geometry file <name> is <value>", {{"<name>", name}, {"<value>", text::CStr(g.Gain)}}));
    test(!g.GeomType.empty(), warnFlag, geo::Fill("'Geometry' of geometry file <name> is ", {{"<name>", name}}));
    test(!g.Detected.empty(), warnFlag,
         geo::Fill("The scattered (detected) nucleus in the geometry file <name> is not set.", {{"<name>", name}}));
    test(!g.Ion.empty(), warnFlag, geo::Fill("The ion in the geometry file <name> is  not set.", {{"<name>", name}}));
    return valid;
}

}  // namespace halvo
