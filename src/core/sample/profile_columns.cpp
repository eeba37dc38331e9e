// Column edits on a profile file, so that it follows its structure when logical elements are added,
// removed or moved. Each rewrites the whole file from its raw values; "|" comments do not survive.
#include <functional>

#include "platform/files.h"
#include "sample/profile_file.h"
#include "sample/profile_internal.h"
#include "session/session.h"
#include "text/lines.h"
#include "text/numbers.h"

namespace halvo {
namespace {

// The file an edit works on, after the empty name has been given its meaning.
struct Target {
    std::string name;
    std::string path;
};

bool Open(Session& s, const std::string& File, const std::string& title, Target& target, PRFarr& arr) {
    target.name = File;
    if (target.name.empty()) target.name = s.Profile.ProfileFile.empty() ? "VKS.PRF" : s.Profile.ProfileFile;
    const auto path = profile_detail::FindFile(s, target.name);
    if (!path) {
        WarningBox(s, "Profile file, " + target.name + " appears not to exist", title);
        return false;
    }
    target.path = *path;
    return PRFsetraw(s, arr, target.name);
}

std::string RangeText(const PRFarr& arr) { return ", not within profile file range, {0, " + text::CStr(int(arr.PRFcolumns)) + "}"; }

bool InRange(const PRFarr& arr, int column) { return column >= 0 && column <= arr.PRFcolumns; }

// Line 1 the layer count; then each layer as `row` builds it from the layer's values.
bool Rewrite(const Target& target, const PRFarr& arr, const std::function<void(std::string&, int)>& row) {
    text::CrlfWriter out;
    out.line(text::CStr(int(arr.PRFlayers)));
    std::string line;
    for (int layer = 1; layer <= arr.PRFlayers; ++layer) {
        line.clear();
        row(line, layer);
        out.line(line);
    }
    return platform::WriteFileSafely(target.path, out.text());
}

void Value(std::string& line, const PRFarr& arr, int column, int layer) {
    text::AppendCStr(line, arr.PRFvalues(column, layer));
    line += ' ';
}

}  // namespace

bool PRFaddLE(Session& s, std::int16_t Column, const std::string& File) {
    Target target;
    PRFarr arr;
    if (!Open(s, File, "PRFaddLE", target, arr)) return false;
    if (!InRange(arr, Column)) {
        WarningBox(s, "insertion point not within profile file range, {0, " + text::CStr(int(arr.PRFcolumns)) + "}",
                   "PRFaddLE");
        return false;
    }
    return Rewrite(target, arr, [&](std::string& line, int layer) {
        for (int c = 0; c <= Column; ++c) Value(line, arr, c, layer);
        line += " 0 ";
        for (int c = Column + 1; c <= arr.PRFcolumns; ++c) Value(line, arr, c, layer);
    });
}

bool PRFdelLE(Session& s, std::int16_t Column, const std::string& File) {
    Target target;
    PRFarr arr;
    if (!Open(s, File, "PRFdelLE", target, arr)) return false;
    if (!InRange(arr, Column)) {
        WarningBox(s, "deletion point not within profile file range, {0, " + text::CStr(int(arr.PRFcolumns)) + "}",
                   "PRFdelLE");
        return false;
    }
    return Rewrite(target, arr, [&](std::string& line, int layer) {
        for (int c = 0; c <= arr.PRFcolumns; ++c)
            if (c != Column) Value(line, arr, c, layer);
    });
}

bool PRFswap(Session& s, std::int16_t ColumnA, std::int16_t ColumnB, const std::string& File) {
    Target target;
    PRFarr arr;
    if (!Open(s, File, "PRFswap", target, arr)) return false;
    if (!InRange(arr, ColumnA)) {
        WarningBox(s, "First logical element, #" + text::CStr(int(ColumnA)) + RangeText(arr), "PRFswap");
        return false;
    }
    if (!InRange(arr, ColumnB)) {
        WarningBox(s, "Second logical element, #" + text::CStr(int(ColumnB)) + RangeText(arr), "PRFswap");
        return false;
    }
    return Rewrite(target, arr, [&](std::string& line, int layer) {
        for (int c = 0; c <= arr.PRFcolumns; ++c) Value(line, arr, c == ColumnA ? ColumnB : c == ColumnB ? ColumnA : c, layer);
    });
}

}  // namespace halvo
