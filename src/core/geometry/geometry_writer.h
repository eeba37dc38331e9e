#pragma once
// Writing the loaded geometry (the session's GeometryRecord) back to a *.geo file that the engine and
// the reader both take: the text of a whole file or of a file derived from a base, and the editor's
// save with its questions.
#include <string>
#include <string_view>

namespace halvo {

struct Session;

// The text of a whole file, by the analysis type at list position `analysis` (0 RBS, 1 ERDA, 2 NRA,
// 3 NDP, 4 PIXE, 5 PIGE, 6 SIMS): the fixed lines, then the directives in their fixed order, with the
// comment store's lines put back at the line numbers they came from. Boxes report what cannot be
// written; a double-scattering mode that cannot stand is made NORMAL in the record.
std::string WholeGeometryText(Session& s, int analysis);

// The text of a derived file: READGEO and the base's name, the fixed lines, and one keyword line for
// each group marked as changed. No comments.
std::string DerivedGeometryText(Session& s, int analysis);

enum class GeometrySave {
    Written,
    Cancelled,      // the overwrite question was answered Cancel
    NameRefused,    // a name the engine generation cannot take
    ProblemsShown,  // the user chose to see the syntax problems: the file is left empty
    WriteFailed,
};

// The editor's save (Save, Save As, Save + Exit) of s.Geometry as `fileName` in the working
// directory, with the analysis type of s.GeoEditor.Combo5. The previous contents of the file are kept
// as "<name>~" whatever happens.
GeometrySave Check2_Click(Session& s, const std::string& fileName);

// The short-name rule of geometry saves before VKS9: no blank, at most 12 characters, and no dot or
// at most 3 characters after the first dot.
bool IsGeometryDosName(std::string_view name);

}  // namespace halvo
