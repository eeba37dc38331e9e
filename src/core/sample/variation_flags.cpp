#include "sample/variation_flags.h"

#include <exception>
#include <string>
#include <vector>

#include "platform/files.h"
#include "sample/profile_internal.h"
#include "session/session.h"
#include "text/fault.h"
#include "text/lines.h"
#include "text/numbers.h"

namespace halvo {
namespace {

const std::string kFlagsFile = "VKSPRF.ORD";

// The file's flags when it has exactly the profile's shape; otherwise nothing of it is used.
bool ReadFlagsFile(const Session& s, int layers, int numColumns, LayerTable<std::int16_t>& flags) {
    const auto path = profile_detail::FindFile(s, kFlagsFile);
    if (!path) return false;
    const auto bytes = platform::ReadFileBytes(*path);
    if (!bytes) return false;
    text::LineReader reader(*bytes);
    std::string line;
    if (!reader.next(line) || text::Val(line) != layers) return false;
    flags.resize(numColumns, layers);
    std::vector<std::string> items;
    for (int layer = 1; layer <= layers; ++layer) {
        if (!reader.next(line)) return false;
        profile_detail::SplitItems(line, items);
        if (int(items.size()) != numColumns + 1) return false;
        for (int c = 0; c <= numColumns; ++c) flags(c, layer) = text::CInt(text::Val(items[size_t(c)]));
    }
    return true;
}

}  // namespace

std::int16_t NumColumns(const Session& s, const ProfileRecord& profile) {
    const int le = profile.ProfileLE != 0 ? profile.ProfileLE : s.Structure.NLE;
    return text::Add16(std::int16_t(le), profile.HasRoughColumns ? 1 : 0);
}

void ReadVariationFlags(Session& s, ProfileRecord& profile) {
    if (profile.ProfileLE == 0) profile.ProfileLE = s.Structure.NLE;
    const int numColumns = profile.ProfileLE + (profile.HasRoughColumns ? 1 : 0);
    const int layers = profile.Layers;
    LayerTable<std::int16_t> flags;
    try {
        if (ReadFlagsFile(s, layers, numColumns, flags)) {
            profile.FitFlags = std::move(flags);
            return;
        }
    } catch (const RuntimeFault&) {
        // A flag that is no 16-bit number makes the file as unusable as a short row.
    }
    // A file out of step with its profile is simply not applied.
    profile.FitFlags.resize(numColumns, layers);
    for (int layer = 1; layer <= layers; ++layer)
        for (int c = 0; c <= numColumns; ++c)
            profile.FitFlags(c, layer) = profile.RawValues.get(c, layer) != 0 ? -1 : 0;
}

bool WriteVariationFlags(Session& s, const ProfileRecord& profile) {
    try {
        const int numColumns = NumColumns(s, profile);
        text::CrlfWriter out;
        out.line(text::CStr(int(profile.Layers)));
        std::string row;
        for (int layer = 1; layer <= profile.Layers; ++layer) {
            row.assign(1, profile.FitFlags.get(0, layer) != 0 ? '1' : '0');
            for (int c = 1; c <= numColumns; ++c) row += profile.FitFlags.get(c, layer) != 0 ? "  1" : "  0";
            out.line(row);
        }
        return platform::WriteFileSafely(InWorkDir(s, kFlagsFile), out.text());
    } catch (const std::exception&) {
        return false;
    }
}

std::int16_t PRFfromORD(Session& s, const VariationMatrixView& view, std::int16_t matrixColumn) {
    try {
        if (view.ShowLogicalElements) return text::Add16(matrixColumn, view.ColumnOffset);
        if (matrixColumn == 0) return 0;
        if (matrixColumn == 1) return view.HasInclusions ? view.NLE : text::Add16(view.NLE, 1);
        if (matrixColumn == 2 && view.HasInclusions) return text::Add16(view.NLE, 1);
    } catch (const RuntimeFault&) {
    }
    MsgBox(s, "Unexpected Error", mb::Exclamation, "VariationMatrix.PRFfromORD");
    return -1;
}

}  // namespace halvo
