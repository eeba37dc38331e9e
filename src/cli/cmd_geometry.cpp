// Geometry files: read one as the program does when it shows a sample, against a structure if one
// is given, and show the whole record, the comment store and the boxes of the read.
#include <iostream>

#include "cli.h"
#include "geometry/geometry_file.h"
#include "platform/files.h"
#include "sample/element_table.h"
#include "sample/structure_file.h"
#include "text/numbers.h"

namespace halvo::cli {
namespace {

// The working directory becomes the file's own when the name holds one; returns the bare name.
std::string EnterDirectoryOf(Context& c, const std::string& path) {
    const std::string normal = platform::NormalizeSeparators(path);
    const auto slash = normal.find_last_of('/');
    if (slash == std::string::npos) {
        c.session.FilePath = c.workDir;
        return normal;
    }
    c.session.FilePath = slash == 0 ? "/" : normal.substr(0, slash);
    return normal.substr(slash + 1);
}

int Show(Context& c, const std::vector<std::string>& a) {
    const Command& self = Registry().at("geometry-show");
    Session& s = c.session;
    std::string file, structure;
    for (size_t i = 0; i < a.size(); ++i) {
        if (a[i] == "--structure" && i + 1 < a.size())
            structure = a[++i];
        else if (a[i] == "--engine-version" && i + 1 < a.size())
            s.VKSversionNumber = text::CInt(text::Val(a[++i]));
        else if (a[i].starts_with("--") || !file.empty())
            return Misuse(self);
        else
            file = a[i];
    }
    if (file.empty()) return Misuse(self);
    if (!LoadElementTables(s)) return kFailed;
    s.VKSversion = std::int16_t(s.VKSversionNumber / 1000);

    bool structureRead = true;
    if (!structure.empty()) structureRead = !ReadStructureFile(s, EnterDirectoryOf(c, structure), nullptr, &s.ElementList);
    const std::string name = EnterDirectoryOf(c, file);
    ResetGeometry(s);
    const bool read = structureRead && ReadGeometry(s, name);
    const GeometryRecord& g = s.Geometry;

    if (c.json) {
        c.putString("directory", s.FilePath);
        c.putString("file", name);
        c.putString("structure", structure.empty() ? "" : s.Structure.StructureFile);
        c.put("read", read ? "true" : "false");
        std::string record = "{";
        for (const auto& [field, value] : GeometryFields(g))
            record += (record.size() > 1 ? "," : "") + JsonString(field) + ":" + JsonString(value);
        c.put("record", record + "}");
        std::string comments = "[";
        for (size_t n = 0; n < g.Comments.size(); ++n)
            if (!g.Comments[n].empty())
                comments += (comments.size() > 1 ? "," : "") + std::string("{\"line\":") + std::to_string(n) +
                            ",\"text\":" + JsonString(g.Comments[n]) + "}";
        c.put("comments", comments + "]");
        return read ? kOk : kFailed;
    }

    std::cout << "Geometry " << name << " in " << s.FilePath;
    if (!structure.empty()) std::cout << ", structure " << s.Structure.StructureFile;
    std::cout << (read ? "" : ": the read failed") << "\n\n";
    for (const auto& [field, value] : GeometryFields(g)) {
        std::string head = "  " + field;
        if (head.size() < 32) head.resize(32, ' ');
        std::cout << head << " " << value << "\n";
    }
    std::cout << "\nComment store (line: text):\n";
    for (size_t n = 0; n < g.Comments.size(); ++n)
        if (!g.Comments[n].empty()) std::cout << "  " << n << ": " << g.Comments[n] << "\n";
    const auto& shown = c.messages.shown();
    std::cout << "\n" << shown.size() << " message" << (shown.size() == 1 ? "" : "s") << (shown.empty() ? "" : ":")
              << "\n";
    for (const auto& [m, answer] : shown)
        std::cout << "  [" << m.title << "] " << m.text << "  -> " << AnswerName(answer) << "\n";
    return read ? kOk : kFailed;
}

const Register show{{"geometry-show", "FILE.geo [--structure FILE.str] [--engine-version N]",
                     "read a geometry file as the program does and show its record, comment store and messages",
                     Show}};

}  // namespace
}  // namespace halvo::cli
