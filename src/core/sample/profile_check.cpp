// The check of a profile against its structure file before a run: what the engine would choke on.
// It reads the structure file itself, line by line as the engine does, rather than the parsed record.
#include <new>
#include <optional>
#include <vector>

#include "platform/files.h"
#include "sample/profile_file.h"
#include "sample/profile_internal.h"
#include "session/session.h"
#include "text/fault.h"
#include "text/lines.h"
#include "text/numbers.h"
#include "text/tokens.h"

namespace halvo {
namespace {

const std::string kTitle = "Check Profile File utility (chkPRF)";

std::string WithExtension(const std::string& name, const std::string& extension) {
    return text::FileNameOf(name).find('.') == std::string::npos ? name + extension : name;
}

// In the working directory, else in the engine's data directory.
std::optional<std::string> Locate(const Session& s, const std::string& name) {
    if (name.find_first_of("\\/") != std::string::npos) return profile_detail::FindFile(s, name);
    for (const std::string* dir : {&s.FilePath, &s.PathVKS}) {
        const auto found = platform::ResolvePath(platform::JoinPath(*dir, name));
        if (found && platform::IsRegularFile(*found)) return found;
    }
    return std::nullopt;
}

// Items a layer line must hold besides the proportions: the thickness, then the roughness and its
// fit flag when the run about to start reads them.
int TrailingItems(const TechnicalRecord& t, bool roughColumns) {
    if (!roughColumns) return 1;
    if (t.Speed == "0" || (t.Speed == "6" && t.Mode == -1)) return 2;
    if (t.Speed == "p" || t.Speed == "x" || (t.Speed == "6" && (t.Mode == 2 || t.Mode == 3))) return 3;
    return 1;
}

std::string FirstToken(std::string line) { return text::NextToken(line, ""); }

// Lines of a file read in turn; reading past the end is the classic run-time fault.
class Lines {
public:
    explicit Lines(const std::string& path) : lines_(text::SplitLines(platform::ReadFileBytes(path).value_or(""))) {}
    const std::string& next() {
        if (at_ >= lines_.size()) RaiseInputPastEnd();
        return lines_[at_++];
    }
    bool atEnd() const { return at_ >= lines_.size(); }
    size_t size() const { return lines_.size(); }
    const std::string& operator[](size_t i) const { return lines_[i]; }

private:
    std::vector<std::string> lines_;
    size_t at_ = 0;
};

// What the check learns from the structure file.
struct StructureShape {
    int n = 0;  // proportions per layer, the inclusions' one included
    bool inclusions = false;
    bool roughColumns = false;
};

}  // namespace

bool chkPRF(Session& s, const std::string& ProfileFile, const std::string& StructureFile) {
    const std::string prfName = WithExtension(ProfileFile, ".prf");
    const std::string strName = WithExtension(StructureFile, ".str");
    auto report = [&](const std::string& message) { WarningBox(s, message, kTitle); };
    auto failed = [&] {
        report("Check profile files (chkPRF): error in sample " + text::CStr(int(s.CurrentSample)) + " in batch " +
               s.BatchName);
        return false;
    };
    auto fail = [&](const std::string& message) {
        report(message);
        return failed();
    };
    try {
        const auto prfPath = Locate(s, prfName);
        const auto strPath = Locate(s, strName);
        if (!prfPath) report(prfName + " apparently doesn't exist!");
        if (!strPath) report(strName + " apparently doesn't exist!");
        if (!prfPath || !strPath) return failed();

        StructureShape shape;
        {
            Lines structure(*strPath);
            structure.next();
            const std::string count = structure.next();
            if (!text::IsNumeric(count) || text::Val(count) <= 0)
                return fail("Number of elements in structure file " + strName + " is illegal.  Value is " + count);
            shape.n = text::CInt(text::Val(count));
            for (int i = 1; i < shape.n; ++i) {
                structure.next();
                structure.next();
                structure.next();
            }
            const std::string word = text::Lower(FirstToken(structure.next()));
            shape.inclusions = word == "cylinder" || word == "sphere";
            for (int i = shape.inclusions ? 4 : 2; i > 0; --i) structure.next();
            // No roughness block, or one cut short, leaves the layer lines without roughness columns.
            if (!structure.atEnd() && text::EqualsIgnoreCase(FirstToken(structure.next()), "rough") &&
                !structure.atEnd()) {
                const double model = text::Val(FirstToken(structure.next()));
                shape.roughColumns = model == 1 || model == 4;
            }
        }
        const int e = TrailingItems(s.TCNdummy, shape.roughColumns);
        const bool checkRoughness = shape.roughColumns && e >= 2;

        Lines profile(*prfPath);
        const int declared = text::CInt(text::Val(FirstToken(profile.next())));
        std::vector<std::string> items;
        for (int layer = 1; layer <= declared; ++layer) {
            if (size_t(layer) >= profile.size())
                return fail("Only " + text::CStr(layer - 1) + " lines found in profile file " + prfName +
                            " but it declared " + text::CStr(declared));
            profile_detail::SplitItems(profile[size_t(layer)], items);
            const std::string mismatch = "Number of elements in profile file " + prfName +
                                         " does not match structure file " + strName + " at line number " +
                                         text::CStr(layer);
            if (int(items.size()) < shape.n + e) return fail(mismatch);
            for (int k = 0; k <= shape.n; ++k)
                if (!text::IsNumeric(items[size_t(k)]) || text::Val(items[size_t(k)]) < 0) return fail(mismatch);
            if (shape.inclusions && text::Val(items[size_t(shape.n)]) > 1)
                return fail("Illegal inclusion volume fraction value '" + items[size_t(shape.n)] + "' in profile file " +
                            prfName + " (should be between 0 & 1)");
            if (!checkRoughness) continue;
            const std::string& rough = items[size_t(shape.n) + 1];
            if (!text::IsNumeric(rough))
                return fail("Illegal (not numeric) roughness or inclusion value '" + rough + "' in profile file " +
                            prfName + " (found on line " + text::CStr(layer) + ")");
            const float roughness = text::CSng(text::Val(rough));
            if (roughness < 0)
                return fail("Illegal roughness value '" + rough + "' in profile file " + prfName + " (should be >0)");
            if (2 * roughness >= text::CSng(text::Val(items[0])))
                report("Large roughness value '" + rough + "' in profile file " + prfName +
                       " will turn on gamma straggling (film thickness is " + items[0] + ")");
        }
        return true;
    } catch (const RuntimeFault&) {
    } catch (const std::bad_alloc&) {
    }
    report("Unexpected error");
    return false;
}

}  // namespace halvo
