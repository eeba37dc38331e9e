#include "session/derived_names.h"

#include "platform/files.h"
#include "text/numbers.h"
#include "text/tokens.h"

namespace halvo {

std::string TwoCharNumber(int n) {
    if (n < 0) return "";
    if (n < 10) return "0" + std::to_string(n);
    if (n < 100) return std::to_string(n);
    if (n < 1000) {
        static const std::string letters = "abcdefghijklmnopqrstuvwxyz";
        const size_t place = size_t((n - 100) / 10);  // 0-based place of the letter
        const std::string letter = place < letters.size() ? letters.substr(place, 1) : "";
        return letter + std::to_string(n % 10);
    }
    return "00";
}

std::string DerivedName(const Session& s, int count, int sampleNumber, const std::string& tag) {
    if (count == 0) count = 3;
    if (s.BatchName.size() < 3) count = int(s.BatchName.size());
    if (sampleNumber == 0) sampleNumber = s.CurrentSample;
    return s.BatchName.substr(0, size_t(count)) + tag + TwoCharNumber(sampleNumber);
}

std::string SPXname(Session& s, const std::string& extension, int sampleNumber, int spectrumNumber) {
    if (sampleNumber < 0 || sampleNumber > s.NSamples) return "";
    std::string ext = text::Lower(extension);
    if (!ext.empty() && ext.front() == '.') ext.erase(0, 1);
    if (ext == "geo") {
        const int count = s.current().NSpectra;
        if (spectrumNumber > count) {
            WarningBox(s, "SPXname warning: FileNumber = " + std::to_string(spectrumNumber) +
                              "; number of expts = " + std::to_string(count),
                       "Spectrum number < number of experiments is illegal!");
            return "";
        }
        if (spectrumNumber == 0) {
            WarningBox(s, "Spectrum (and associated GEO file) not specified", "SPXname warning");
            return "";
        }
        if (spectrumNumber < 0) {
            WarningBox(s, "Spectrum number < 0 illegal!", "SPXname warning");
            return "";
        }
    }
    std::string b = DerivedName(s, 0, sampleNumber, "");
    b.resize(b.size() >= 2 ? b.size() - 2 : 0);
    const int sample = sampleNumber == 0 ? s.CurrentSample : sampleNumber;
    if (ext == "spx") return b + ".spx";
    if (ext == "str") return b + "S" + TwoCharNumber(sample) + ".str";
    if (ext == "geo") return b + "G" + TwoCharNumber(sample) + TwoCharNumber(spectrumNumber) + ".geo";
    if (ext == "prf") return b + TwoCharNumber(sample) + ".prf";
    return "";
}

bool FileFromTreename(Session& s, std::string& name, int reportFlags) {
    name = text::FileNameOf(name);
    std::string ext;
    const std::string base = text::SplitExtension(name, ext);
    const bool legal = base.size() <= 8 && ext.size() <= 3;
    const bool exists = !name.empty() && platform::ResolveCase(s.FilePath, name).has_value() &&
                        !platform::IsDirectory(InWorkDir(s, name));
    if (reportFlags != 0) {
        const std::string missing = name + ": File with treename " + name + " apparently doesn't exist";
        std::string report = "FileFromTreename error";
        const size_t bare = report.size();
        if ((reportFlags & 1) && !exists) report += missing;
        if ((reportFlags & 2) && !legal) report += ": Filename " + name + " is not legal DOS filename";
        if ((reportFlags & 4) && name.empty()) report += missing;
        if (report.size() > bare) MsgBox(s, report, mb::OKOnly, "FileFromTreename error");
    }
    return exists;
}

}  // namespace halvo
