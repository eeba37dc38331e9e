#include <exception>

#include "platform/files.h"
#include "session/batch_file.h"
#include "session/main_view.h"
#include "text/fault.h"
#include "text/lines.h"
#include "text/numbers.h"
#include "text/tokens.h"

namespace halvo {
namespace {

using text::NextToken;

// A charge token that is not numeric ends the read; what was read stays.
struct BadCharge {
    std::string token;
    std::string line;
};

float ReadCharge(std::string& rest, const std::string& separator, const std::string& line) {
    std::string token = NextToken(rest, separator);
    if (!text::IsNumeric(token)) throw BadCharge{token, line};
    return text::CSng(text::Val(token));
}

std::int16_t VerbosityOf(const std::string& token, bool keepSign) {
    if (token.empty()) return 0;
    double v = text::Fix(text::Val(token));
    if (!keepSign) v = std::abs(v);
    return std::int16_t(text::CLng(v) % 4);
}

void ReadHeadFields(Session& s, platform::LookupMemo& memo, Sample& sample, std::string& rest,
                    const std::string& separator, bool keepSign) {
    SpectrumEntry& head = sample.Spectra[0];
    head.GeometryFile = NextToken(rest, separator);
    head.GeometryDate = memo.fileDate(InWorkDir(s, head.GeometryFile + ".geo"));
    sample.Structure = NextToken(rest, separator);
    sample.StructureDate = memo.fileDate(InWorkDir(s, sample.Structure + ".str"));
    sample.Verbosity = VerbosityOf(NextToken(rest, separator), keepSign);
    sample.AllAssociated = true;
}

// Steps 6 to 9 of the read: the lines of the file into the samples.
void ReadSamples(Session& s, const std::string& bytes) {
    platform::LookupMemo memo;
    text::LineReader reader(bytes);
    std::string line;
    std::string separator;
    s.Samples.assign(2, Sample{});
    if (!reader.next(line) || text::CountTokens(line, separator) < 2) return;

    s.Samples[1].Spectra.assign(2, SpectrumEntry{});
    std::string rest = line;
    {
        Sample& first = s.Samples[1];
        SpectrumEntry& head = first.Spectra[0];
        head.DataFile = NextToken(rest, separator);
        head.DataFileDate = platform::FileDate(InWorkDir(s, head.DataFile));
        head.Charge = ReadCharge(rest, separator, line);
        ReadHeadFields(s, memo, first, rest, separator, true);
    }

    std::int16_t n = 1;
    while (reader.next(line)) {
        if (text::CountTokens(line, separator) < 3) continue;
        Sample* sample = &s.Samples[size_t(s.NSamples)];
        sample->Spectra.resize(size_t(n) + 2);
        SpectrumEntry entry;
        rest = line;
        entry.DataFile = NextToken(rest, separator);
        entry.DataFileDate = platform::FileDate(InWorkDir(s, entry.DataFile));
        entry.Charge = ReadCharge(rest, separator, line);
        if (text::CountTokens(rest, separator) < 2) {
            entry.GeometryFile = rest;
            entry.GeometryDate = memo.fileDate(InWorkDir(s, entry.GeometryFile));
            entry.LinkTo = 0;
            entry.LinkKind = ' ';
            sample->Spectra[size_t(n)] = std::move(entry);
            n = text::Add16(n, 1);
        } else if (rest.find_first_of("<[({") == std::string::npos) {
            sample->NSpectra = n;
            s.NSamples = text::Add16(s.NSamples, 1);
            s.Samples.resize(size_t(s.NSamples) + 2);
            Sample& next = s.Samples[size_t(s.NSamples)];
            next.Spectra.assign(2, SpectrumEntry{});
            next.Spectra[0] = std::move(entry);
            n = 1;
            ReadHeadFields(s, memo, next, rest, separator, false);
            next.Shown = {true, true, true};
        } else {
            entry.GeometryFile = NextToken(rest, separator);
            entry.GeometryDate = memo.fileDate(InWorkDir(s, entry.GeometryFile + ".geo"));
            const std::string link = NextToken(rest, separator);
            entry.LinkKind = link.empty() ? ' ' : link.front();
            entry.LinkTo = link.size() > 2 ? text::CInt(text::Val(link.substr(1, link.size() - 2))) : 0;
            sample->Spectra[size_t(n)] = std::move(entry);
            n = text::Add16(n, 1);
        }
    }
    s.Samples[size_t(s.NSamples)].NSpectra = n;
}

}  // namespace

void ReadBatch(Session& s, const std::string& givenPath) {
    std::string path = givenPath;
    if (!FileExists(s, path, -1)) return;
    if (path.empty()) {
        MsgBox(s, "Batchfilename is empty!", mb::OKOnly, "Read Batch warning");
        return;
    }
    long length = 0;
    if (checkBatchFile(s, path, length, false)) {
        if (length == 0) {
            MsgBox(s, "BatchFile is empty!", mb::OKOnly, "Read Batch warning (checkBatchFile found length=0)");
            return;
        }
        if (path.empty()) {
            MsgBox(s, "Batchfilename is empty!", mb::OKOnly, "Read Batch warning (problem with checkBatchFile)");
            return;
        }
        const std::string name = text::BaseName(text::FileNameOf(path));
        const int answer = MsgBox(s, "Do you want to correct file? (Rewrites " + name + ".spc)", mb::YesNoCancel,
                                  "ReadBatch warning");
        if (answer == mb::Cancel) return;
        if (answer == mb::Yes) checkBatchFile(s, path, length, true);
    }

    const std::int16_t keptSample = s.CurrentSample;
    s.lists.BatchToolTip = "VKScontrol (main) window: batch file is " + path;
    if (path.find(':') != std::string::npos) path = text::FileNameOf(path);
    const std::string base = text::BaseName(text::FileNameOf(path));
    const std::string rebuilt = platform::JoinPath(s.FilePath, base + ".spc");
    const auto found = platform::ResolveCase(s.FilePath, base + ".spc");
    if (!found || text::Lower(*found) != text::Lower(rebuilt)) {
        if (s.WarningsFlag) MsgBox(s, rebuilt + " appears not to exist", mb::OKOnly, "Read Batch warning");
        s.CurrentSample = keptSample;
        return;
    }

    path = *found;
    s.BatchName = base;
    s.lists.Combo1.clear();
    s.NSamples = 1;
    const auto bytes = platform::ReadFileBytes(path);
    try {
        ReadSamples(s, bytes.value_or(std::string()));
    } catch (const BadCharge& failure) {
        if (s.WarningsFlag)
            MsgBox(s,
                   "Charge '" + failure.token + "' not numeric in line ''" + failure.line +
                       "'' in structure file " + path,
                   mb::OKOnly | mb::Exclamation, "Read Batch Error");
        s.CurrentSample = keptSample;
        return;
    } catch (const RuntimeFault& fault) {
        MsgBox(s, std::string("Unexpected error in ReadBatch: ") + fault.what(), mb::OKOnly | mb::Critical,
               "ReadBatch");
        s.CurrentSample = keptSample;
        return;
    }

    for (int i = 1; i <= s.NSamples; ++i) s.lists.Combo1.items.push_back(std::to_string(i));
    s.lists.Combo1.index = 0;
    s.CurrentSample = 1;
    s.VerbosityAllSame = true;
    for (int i = 2; i <= s.NSamples; ++i) {
        if (s.Samples[size_t(i)].Verbosity != s.Samples[1].Verbosity) {
            s.VerbosityAllSame = false;
            break;
        }
    }
    SetVerbosityLabel(s);
    ReadBatchComments(s, path);
    if (!s.Starting) ShowSample(s);
    Sample& current = s.current();
    current.HasPixe = false;
    for (int i = 0; i < current.NSpectra; ++i)
        if (current.Spectra[size_t(i)].IsPixe) current.HasPixe = true;
    s.lists.VScroll1Max = 2 * int(s.lists.Combo1.items.size());
    MarkSaved(s, true);
}

bool checkBatchFile(Session& s, std::string& path, long& length, bool repair) {
    length = 0;
    if (path.empty() || path.back() == '\\' || path.back() == '/') return true;
    if (!FileExists(s, path, -1)) return true;
    const auto resolved = platform::ResolvePath(InWorkDir(s, path));
    const auto bytes = resolved ? platform::ReadFileBytes(*resolved) : std::nullopt;
    if (!bytes) {
        MsgBox(s, "EoF error found in *.SPC file.  Suspect termination character.", mb::OKOnly, "checkBatchFile");
        return true;
    }
    length = long(bytes->size());
    if (bytes->empty()) return true;
    const bool hasQuote = bytes->find('"') != std::string::npos;
    long bareLF = 0;
    for (size_t i = 0; i < bytes->size(); ++i)
        if ((*bytes)[i] == '\n' && (i == 0 || (*bytes)[i - 1] != '\r')) ++bareLF;
    if (!repair) {
        if (!hasQuote && bareLF == 0) return false;
        WarningBox(s, "The batch file " + path + " has double-quotes or bare LFs in it", "checkBatchFile warning");
        return true;
    }
    std::string fixed;
    fixed.reserve(bytes->size() + size_t(bareLF));
    for (size_t i = 0; i < bytes->size(); ++i) {
        const char c = (*bytes)[i];
        if (c == '\n' && (i == 0 || (*bytes)[i - 1] != '\r')) fixed += '\r';
        fixed += c;
    }
    platform::WriteFileSafely(*resolved, fixed);
    return false;
}

std::string CommentsFileName(const std::string& batchPath) {
    return batchPath.substr(0, batchPath.size() >= 3 ? batchPath.size() - 3 : 0) + "txt";
}

void ReadBatchComments(Session& s, const std::string& batchPath) {
    s.BatchComment.clear();
    s.BatchComment2.clear();
    for (auto& sample : s.Samples) sample.Comment.clear();
    const auto resolved = platform::ResolvePath(CommentsFileName(batchPath));
    if (!resolved) return;
    const auto bytes = platform::ReadFileBytes(*resolved);
    if (!bytes) return;
    text::LineReader reader(*bytes);
    std::string line;
    size_t section = 0;  // 0 batch, 1 batch 2, then samples from 1
    std::string text;
    auto store = [&] {
        if (section == 0)
            s.BatchComment = text;
        else if (section == 1)
            s.BatchComment2 = text;
        else if (section - 1 <= size_t(s.NSamples))
            s.Samples[section - 1].Comment = text;
    };
    while (reader.next(line)) {
        if (line == kCommentSeparator) {
            store();
            text.clear();
            ++section;
            continue;
        }
        if (line.empty()) continue;
        text += line + "\r\n";
    }
}

void NewBatch(Session& s) {
    auto& l = s.lists;
    l.List1.clear();
    l.List2.clear();
    l.List3.clear();
    l.List4.clear();
    l.List5.clear();
    s.Experiments.clear();
    if (s.ResetSamples) {
        s.BatchName.clear();
        s.BatchComment.clear();
        s.BatchComment2.clear();
        s.Samples.assign(2, Sample{});
        s.NSamples = 1;
        s.CurrentSample = 1;
        l.Combo1.items = {"1"};
        l.Combo1.index = 0;
        l.VScroll1Max = 2;
        MarkSaved(s, true);
    }
}

}  // namespace halvo
