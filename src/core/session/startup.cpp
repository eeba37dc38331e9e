#include "session/startup.h"

#include <filesystem>
#include <system_error>

#include "halvo/version.h"
#include "platform/files.h"
#include "platform/settings.h"
#include "sample/element_table.h"
#include "session/main_view.h"
#include "text/numbers.h"
#include "text/tokens.h"

namespace halvo {

bool StartSession(Session& s, const StartupEnvironment& env) {
    SetWarningsFlag(s, true);
    s.Starting = true;

    s.PathVKS = env.pathVKS;
    if (s.PathVKS.empty() && s.settings) s.PathVKS = s.settings->value("path");
    if (s.settings) s.FilePath = s.settings->value("filepath");

    s.lists.Combo1.items = {"1"};
    s.lists.Combo1.index = 0;
    s.NSamples = 1;
    s.CurrentSample = 1;
    s.Samples.assign(2, Sample{});
    s.Samples[1].AllAssociated = false;

    const std::string wanted = s.FilePath;
    if (wanted.empty() || wanted == "." || !platform::IsDirectory(wanted)) {
        s.FilePath.clear();
        if (!wanted.empty())
            MsgBox(s, "Directory " + wanted + " doesn't exist or is empty", mb::OKOnly | mb::Exclamation,
                   "Please change");
    } else {
        // Relative names resolve against FilePath explicitly; the current directory follows it too so that
        // whatever the user starts from here sees the same folder.
        std::error_code ec;
        std::filesystem::current_path(wanted, ec);
    }
    s.lists.List6 = s.FilePath;

    // The data tables of the engine directory; Cancel in a load error ends the program.
    if (!LoadElementTables(s)) {
        s.Starting = false;
        return false;
    }

    s.VKSverSyn = -1;
    s.WarningsFlag = true;
    if (!FileExists(s, s.FilePath + "/", -1)) {
        MsgBox(s, s.FilePath + " apparently doesn't exist!  Not attempting to open VKS.BAT", mb::OKOnly | mb::Critical,
               "VKScontrol.Form_load");
    }
    if (s.WarningsAsked) SetWarningsFlag(s, true);
    MarkSaved(s, s.UnsavedMark.empty());
    s.WarningsAsked = true;
    s.Starting = false;
    ShowSample(s);
    return true;
}

std::string SetEngineVersion(Session& s, const std::string& versionLine) {
    s.VKSlongver = versionLine;
    std::string rest = versionLine;
    const std::string separator;
    text::NextToken(rest, separator);
    s.VKSshortver = text::NextToken(rest, separator);
    const std::string& v = s.VKSshortver;

    // The major number is the first digit after the "v".
    const auto vpos = text::Lower(v).find('v');
    const auto digit = vpos == std::string::npos ? std::string::npos : v.find_first_of("0123456789", vpos);
    s.VKSversion = digit == std::string::npos ? 0 : std::int16_t(v[digit] - '0');
    int number = s.VKSversion * 1000;
    const auto dot = v.find('.');
    if (dot != std::string::npos) {
        std::string minor = v.substr(dot + 1);
        while (!minor.empty() && !text::IsNumeric(minor)) minor.pop_back();
        if (!minor.empty()) number += 100 * int(text::Val(minor));
    }
    if (!v.empty()) {
        const char last = text::Upper(v.substr(v.size() - 1))[0];
        if (last >= 'A' && last <= 'Z') number += last - 'A' + 1;
    }
    s.VKSversionNumber = text::CInt(number);

    if (text::Lower(rest).starts_with("rev:")) {
        std::string after = rest.substr(4);
        const std::string revision = text::NextToken(after, separator);
        return " (rev: " + revision + ")";
    }
    return "";
}

std::string FrameTitle(const Session& s, const std::string& revisionText) {
    std::string title = "Halvo v" + std::to_string(version::major) + "." + std::to_string(version::minor) + "." +
                        std::to_string(version::revision) + revisionText;
    if (!s.VKSshortver.empty()) title += ":  running VKS version " + s.VKSshortver;
    return title;
}

void StoreSettingsOnExit(Session& s) {
    if (!s.SaveSettingsOnExit || !s.settings) return;
    s.settings->setValue("filepath", s.FilePath);
    s.settings->setValue("datafileformat", std::to_string(s.Geometry.FileFormat));
    s.settings->setValue("datafiletype", std::to_string(s.Geometry.FileFormat));
}

}  // namespace halvo
