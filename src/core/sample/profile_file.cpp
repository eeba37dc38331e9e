// Reading profile files: the raw form for the column edits, the record form for everything else,
// and the default profile that stands in for a missing one.
#include "sample/profile_file.h"

#include <exception>
#include <new>

#include "platform/files.h"
#include "sample/profile_internal.h"
#include "sample/variation_flags.h"
#include "session/session.h"
#include "text/fault.h"
#include "text/lines.h"
#include "text/numbers.h"
#include "text/tokens.h"

namespace halvo {

namespace profile_detail {

std::optional<std::string> FindFile(const Session& s, const std::string& name) {
    if (name.empty()) return std::nullopt;
    auto found = platform::ResolvePath(InWorkDir(s, name));
    if (!found || !platform::IsRegularFile(*found)) return std::nullopt;
    return found;
}

void SplitItems(std::string_view line, std::vector<std::string>& items) {
    items.clear();
    std::string separator;
    const int count = text::CountTokens(line, separator);
    std::string rest(line);
    for (int i = 0; i < count; ++i) items.push_back(text::NextToken(rest, separator));
}

std::string_view BeforeComment(std::string_view line) {
    const auto bar = line.rfind('|');
    return bar == std::string_view::npos ? line : line.substr(0, bar);
}

}  // namespace profile_detail

using profile_detail::FindFile;
using profile_detail::SplitItems;

namespace {

// A file whose declared size cannot be held is as broken as one that ends early.
constexpr size_t kMaxCells = size_t(1) << 26;

float ItemValue(const std::vector<std::string>& items, int at) {
    return at < int(items.size()) ? text::CSng(text::Val(items[size_t(at)])) : 0.0f;
}

struct Corrupted {};

}  // namespace

bool PRFsetraw(Session& s, PRFarr& Arr, const std::string& File) {
    std::string name = File;
    if (name.empty()) name = s.Profile.ProfileFile.empty() ? "VKS.PRF" : s.Profile.ProfileFile;
    const auto path = FindFile(s, name);
    if (!path) {
        WarningBox(s, "Profile file, " + name + " appears not to exist", "PRFsetrawOK");
        return false;
    }
    try {
        const auto lines = text::SplitLines(platform::ReadFileBytes(*path).value_or(std::string()));
        if (lines.size() < 2) throw Corrupted{};
        std::vector<std::string> items;
        SplitItems(lines[0], items);
        const std::int16_t layers = text::CInt(text::Int(items.empty() ? 0.0 : text::Val(items[0])));
        SplitItems(profile_detail::BeforeComment(lines[1]), items);
        const int columns = int(items.size()) - 1;
        if (layers < 1 || columns < 0 || lines.size() < size_t(layers) + 1) throw Corrupted{};
        if (size_t(columns + 1) * size_t(layers + 1) > kMaxCells) throw Corrupted{};
        PRFarr a;
        a.PRFlayers = layers;
        a.PRFcolumns = std::int16_t(columns);
        a.PRFvalues.resize(columns, layers);
        for (int layer = 1; layer <= layers; ++layer) {
            if (layer > 1) SplitItems(profile_detail::BeforeComment(lines[size_t(layer)]), items);
            for (int c = 0; c <= columns; ++c) a.PRFvalues(c, layer) = ItemValue(items, c);
        }
        Arr = std::move(a);
        return true;
    } catch (const Corrupted&) {
    } catch (const RuntimeFault&) {
    } catch (const std::bad_alloc&) {
    }
    WarningBox(s, "Corrupted profile file, " + name, "PRFsetrawOK");
    return false;
}

bool ReadPRF(Session& s, const std::string& File, ProfileRecord& Rec, const std::string& Extension) {
    const std::string name = File + Extension;
    const StructureRecord& st = s.Structure;
    const bool roughModel = st.HasRoughness && st.Roughness.ModelA != 0;
    int highest = roughModel ? st.NLE + 2 : st.NLE;
    Rec.ProfileFile = name;
    Rec.HasRoughColumns = roughModel && st.Roughness.ModelFlagsRead;
    Rec.HasRoughFlag = true;
    Rec.ProfileLE = st.NLE;
    try {
        const auto path = FindFile(s, name);
        if (!path) throw Corrupted{};
        const auto lines = text::SplitLines(platform::ReadFileBytes(*path).value_or(std::string()));
        if (lines.size() < 2) RaiseInputPastEnd();
        std::vector<std::string> items;
        SplitItems(lines[0], items);
        Rec.Layers = text::CInt(items.empty() ? 0.0 : text::Val(items[0]));
        std::string separator;
        if (text::CountTokens(lines[1], separator) == highest && Rec.HasRoughColumns) {
            Rec.HasRoughFlag = false;
            --highest;
        }
        const int layers = Rec.Layers;
        if (layers < 1 || st.NLE < 0) RaiseSubscript();
        if (lines.size() < size_t(layers) + 1) RaiseInputPastEnd();
        Rec.RawValues.resize(highest, layers);
        Rec.Fractions.resize(highest, layers);
        for (int layer = 1; layer <= layers; ++layer) {
            // The whole line is data here: a "|" comment is read as numbers.
            SplitItems(lines[size_t(layer)], items);
            const float thickness = ItemValue(items, 0);
            Rec.RawValues(0, layer) = thickness;
            Rec.Fractions(0, layer) = thickness;
            float sum = 0;
            for (int c = 1; c <= st.NLE; ++c) {
                const float v = ItemValue(items, c);
                Rec.RawValues(c, layer) = v;
                sum += v;
            }
            if (sum == 0) sum = 1;
            for (int c = 1; c <= st.NLE; ++c) Rec.Fractions(c, layer) = Rec.RawValues(c, layer) / sum;
            for (int c = st.NLE + 1; c <= highest; ++c) {
                const float v = ItemValue(items, c);
                Rec.RawValues(c, layer) = v;
                Rec.Fractions(c, layer) = v;
            }
        }
        return true;
    } catch (const Corrupted&) {
    } catch (const RuntimeFault&) {
    } catch (const std::bad_alloc&) {
    }
    MsgBox(s, "Something wrong with file " + name, mb::OKOnly, "Module1.readPRFrec Warning (code error)");
    return false;
}

bool readPRFrec(Session& s, const std::string& File, const std::string& Extension, bool Quiet) {
    if (s.Structure.NotAssigned || s.Structure.NLE < 1) {
        MsgBox(s, "No Structure file!  (Cannot read VKS.PRF!)", mb::OKOnly, "Module1.readPRFrec");
        return false;
    }
    const std::string base = File.empty() ? "vks" : File;
    std::string extension = Extension.empty() ? ".prf" : Extension;
    if (extension.front() != '.') extension = "." + extension;
    const std::string name = base + extension;

    const auto path = FindFile(s, name);
    if (!path) {
        if (!text::EqualsIgnoreCase(text::FileNameOf(name), "vks.prf") && !Quiet) {
            // With warnings off the question is not shown and the default file is written.
            int buttons = s.WarningsFlag ? mb::YesNoCancel : mb::YesNo;
            std::string suffix;
            WarningBox(s,
                       "PRF file " + name +
                           " appears not to exist - do you want me to cancel this operation ('No' will create new PRF file)?",
                       "Module1.ReadPRFrec", buttons, suffix);
            if (buttons == mb::Yes || buttons == mb::Cancel) return false;
        }
        if (!WriteDefaultPRF(s, name)) return false;
    } else {
        const auto bytes = platform::ReadFileBytes(*path).value_or(std::string());
        text::LineReader reader(bytes);
        std::string line;
        int count = 0;
        while (count < 2 && reader.next(line)) ++count;
        if (count < 2 && !WriteDefaultPRF(s, name)) return false;
    }

    ProfileRecord rec;
    if (!ReadPRF(s, base, rec, extension)) return false;
    s.Profile = std::move(rec);
    ReadVariationFlags(s, s.Profile);
    return true;
}

bool WriteDefaultPRF(Session& s, const std::string& File) {
    const StructureRecord& st = s.Structure;
    const int layers = st.NLE - (st.HasInclusions ? 1 : 0);
    text::CrlfWriter out;
    out.line(text::CStr(layers));
    std::string row;
    for (int i = 1; i <= layers; ++i) {
        row = "100 ";
        for (int j = 1; j <= layers; ++j) row += j == i ? "1 " : "0 ";
        if (st.HasInclusions) row += "0 ";
        if (st.HasRoughness) row += "0 0 ";
        out.line(row);
    }
    return platform::WriteFileSafely(InWorkDir(s, File.empty() ? "vks.prf" : File), out.text());
}

}  // namespace halvo
