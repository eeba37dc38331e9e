#include "platform/files.h"
#include "session/batch_file.h"
#include "text/lines.h"
#include "text/numbers.h"
#include "text/tokens.h"

namespace halvo {
namespace {

constexpr const char* kSaveTitle = "VKScontrol.check1 warning";

// Names the engines before VKS9 can open: no blank, under 13 characters, at most three after the dot,
// the dot before place 10.
bool IsShortName(const std::string& name) {
    if (name.find(' ') != std::string::npos || name.size() >= 13) return false;
    const auto dot = name.find('.');
    if (dot == std::string::npos) return true;
    return name.size() - dot - 1 < 4 && dot + 1 < 10;
}

std::string StripExtension(const std::string& name) { return text::BaseName(name); }

char ClosingBracket(char open) {
    switch (open) {
        case '(': return ')';
        case '[': return ']';
        case '{': return '}';
        case '<': return '>';
        default: return 0;
    }
}


}  // namespace

void SaveBatchFile(Session& s) {
    if (s.dlg_FileName.empty()) return;
    const std::string target = InWorkDir(s, s.dlg_FileName);
    if (s.OverwriteAsk && platform::ResolvePath(target)) {
        if (MsgBox(s, "Over write " + s.dlg_FileName + "?", mb::OKCancel, kSaveTitle) != mb::OK) return;
    }
    const std::string fileName = text::FileNameOf(s.dlg_FileName);
    if (s.Geometry.Syntax < 2 && !IsShortName(fileName)) {
        // clang-format off
        MsgBox(s, fileName + " is a non DOS name which is not allowed (must be ????????.???, no spaces). Please use another name", mb::OKOnly, kSaveTitle);
        // clang-format on
        return;
    }
    std::string extension;
    text::SplitExtension(fileName, extension);
    if (text::Lower(extension) != "spc") {
        MsgBox(s, s.dlg_FileName + " is not a batch file", mb::OKOnly, kSaveTitle);
        return;
    }

    s.BatchName = s.dlg_FileName.substr(0, s.dlg_FileName.size() - 4);
    if (s.NSamples < 1) {
        s.NSamples = 1;
        if (s.Samples.size() < 3) s.Samples.resize(3);
        if (!s.lists.List4.items.empty()) s.Samples[1].Structure = s.lists.List4.items.front();
    }

    text::CrlfWriter out;
    auto missing = [&](const char* what, const std::string& name, int sample, int spectrum) {
        MsgBox(s,
               std::string(what) + name + " appears not to exist in sample# " + std::to_string(sample) +
                   " and spectrum# " + std::to_string(spectrum),
               mb::OKOnly, kSaveTitle);
    };
    auto empty = [&](const char* what, const std::string& name, int sample, int spectrum) {
        if (!name.empty()) return false;
        MsgBox(s,
               std::string(what) + name + " appears not to be present in sample# " + std::to_string(sample) +
                   " and spectrum# " + std::to_string(spectrum),
               mb::OKOnly, kSaveTitle);
        return true;
    };

    platform::LookupMemo memo;
    auto Present = [&](const Session& s, const std::string& name) { return !name.empty() && memo.exists(s.FilePath, name); };
    bool stopped = false;
    for (int i = 1; i <= s.NSamples && !stopped; ++i) {
        Sample& sample = s.Samples[size_t(i)];
        SpectrumEntry& head = sample.Spectra[0];
        sample.Structure = StripExtension(sample.Structure);
        head.GeometryFile = StripExtension(head.GeometryFile);
        if (empty("datafile name ", head.DataFile, i, 0) || empty("geometry file name ", head.GeometryFile, i, 0) ||
            empty("structure file name ", sample.Structure, i, 0)) {
            stopped = true;
            break;
        }
        if (!Present(s, head.DataFile)) missing("datafile ", head.DataFile, i, 0);
        if (!Present(s, head.GeometryFile + ".GEO")) missing("geometry file ", head.GeometryFile, i, 0);
        if (!Present(s, sample.Structure + ".str")) missing("structure file ", sample.Structure, i, 0);

        std::string line = head.DataFile + "  " + text::Str(head.Charge) + "  " + head.GeometryFile + "  " +
                           sample.Structure + "  ";
        if (sample.Verbosity > 0) line += text::Str(int(sample.Verbosity)) + "  ";
        out.line(line);

        for (int j = 1; j <= sample.NSpectra - 1; ++j) {
            SpectrumEntry& e = sample.Spectra[size_t(j)];
            e.GeometryFile = StripExtension(e.GeometryFile);
            if (empty("datafile name ", e.DataFile, i, j) || empty("geometry file name ", e.GeometryFile, i, j)) {
                stopped = true;
                break;
            }
            if (!Present(s, e.DataFile)) missing("datafile ", e.DataFile, i, j);
            if (!Present(s, e.GeometryFile + ".GEO")) missing("geometry file ", e.GeometryFile, i, j);
            const std::string plain = e.DataFile + "  " + text::Str(e.Charge) + "  " + e.GeometryFile;
            if (e.LinkTo >= 1) {
                const char close = ClosingBracket(e.LinkKind);
                if (close == 0) continue;  // an unknown link kind drops the line
                out.line(plain + "  " + e.LinkKind + std::to_string(e.LinkTo) + close);
            } else {
                out.line(plain);
            }
        }
    }

    if (!platform::WriteFileSafely(target, out.text()))
        MsgBox(s, "Cannot write " + target, mb::OKOnly | mb::Exclamation, kSaveTitle);
    SaveBatchComments(s, true);
    MarkSaved(s, true);
}

void SaveBatchComments(Session& s, bool onlyIfPresent) {
    const std::string path = InWorkDir(s, s.BatchName + ".txt");
    if (onlyIfPresent && !platform::ResolvePath(path)) return;
    text::CrlfWriter out;
    out.raw(s.BatchComment).line(kCommentSeparator);
    out.raw(s.BatchComment2).line(kCommentSeparator);
    for (int i = 1; i <= s.NSamples && size_t(i) < s.Samples.size(); ++i)
        out.raw(s.Samples[size_t(i)].Comment).line(kCommentSeparator);
    platform::WriteFileSafely(path, out.text());
}

}  // namespace halvo
