// The geometry editor's save: the questions before a write, the whole file or the derived file, and
// the main window's geometry list afterwards. The file is emptied before the syntax question, as the
// engine's tools have always done it; its previous contents stay in "<name>~".
#include <algorithm>

#include "geometry/geometry_internal.h"
#include "geometry/geometry_record.h"
#include "geometry/geometry_writer.h"
#include "geometry/syntax.h"
#include "platform/files.h"
#include "session/session.h"
#include "text/tokens.h"

namespace halvo {
namespace {

constexpr const char* kTitle = "Geometry1.Check2";

std::string WithoutExtension(const std::string& name) {
    const auto dot = name.rfind('.');
    return dot == std::string::npos ? name : name.substr(0, dot);
}

GeometrySave Failed(Session& s, const std::string& path) {
    MsgBox(s, "Cannot write " + path, mb::OKOnly, kTitle);
    return GeometrySave::WriteFailed;
}

// A name saved from the editor opened on a sample joins the sample's geometries.
void AddToSampleGeometries(Session& s, const std::string& stem) {
    TextList& list = s.lists.List2;
    const bool listed = std::any_of(list.items.begin(), list.items.end(),
                                    [&](const std::string& item) { return text::EqualsIgnoreCase(item, stem); });
    if (listed) return;
    list.items.push_back(stem);
    s.current().NGeometries = std::int16_t(list.items.size());
}

}  // namespace

bool IsGeometryDosName(std::string_view name) {
    if (name.find(' ') != std::string_view::npos || name.size() > 12) return false;
    const auto dot = name.find('.');
    return dot == std::string_view::npos || name.size() - dot - 1 <= 3;
}

GeometrySave Check2_Click(Session& s, const std::string& fileName) {
    GeometryRecord& g = s.Geometry;
    GeometryEditorState& editor = s.GeoEditor;
    const std::string name = text::FileNameOf(fileName);
    const std::string stem = WithoutExtension(name);
    const std::string path = platform::ResolveForWrite(platform::JoinPath(s.FilePath, stem + ".geo"));

    if (editor.OverwriteAsk && platform::IsRegularFile(path) &&
        MsgBox(s, geo::Fill("Over write <name>?", {{"<name>", fileName}}), mb::OKCancel, "Please Check") == mb::Cancel)
        return GeometrySave::Cancelled;
    if (g.Syntax < 2 && !IsGeometryDosName(name)) {
        MsgBox(s, "Non DOS names not allowed in this version. Please use another name", mb::OKOnly, kTitle);
        return GeometrySave::NameRefused;
    }

    if (g.Indirected) {
        if (!platform::WriteFileSafely(path, DerivedGeometryText(s, editor.Combo5))) return Failed(s, path);
    } else {
        // Opened for output: emptied before anything is asked.
        if (!platform::WriteFileSafely(path, "")) return Failed(s, path);
        editor.CurrentGeometry = text::Upper(name).ends_with(".GEO") ? name.substr(0, name.size() - 4) : name;
        editor.Unsaved = false;
        DetermineSyntax(s, name);
        std::string conflicts;
        if (SyntaxConflicts(s, conflicts)) {
            // No (save) is the default: a save nobody answers keeps the user's work on disk.
            int buttons = mb::YesNoCancel | mb::DefaultButton2;
            std::string suffix = " (Cancel to turn off warnings)";
            WarningBox(s,
                       "Syntax conflict: do you want to see the problems? (both Yes returns to the Geo Editor, No exits and saves)",
                       geo::Fill("Geometry File <path> write routine", {{"<path>", path}}), buttons, suffix);
            if (buttons == mb::Yes) {
                ShowSyntaxHelp(s);
                return GeometrySave::ProblemsShown;
            }
        }
        if (!platform::WriteFileSafely(path, WholeGeometryText(s, editor.Combo5), false)) return Failed(s, path);
    }

    editor.Caption = "Geometry " + stem + ".geo";
    if (editor.OpenedWithSample) AddToSampleGeometries(s, stem);
    return GeometrySave::Written;
}

}  // namespace halvo
