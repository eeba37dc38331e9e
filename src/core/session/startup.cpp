#include "session/startup.h"

#include <filesystem>
#include <system_error>

#include "halvo/version.h"
#include "platform/files.h"
#include "platform/settings.h"
#include "session/main_view.h"

namespace halvo {

void StartSession(Session& s, const StartupEnvironment& env) {
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

    s.VKSverSyn = -1;
    if (s.WarningsAsked) SetWarningsFlag(s, true);
    MarkSaved(s, s.UnsavedMark.empty());
    s.WarningsAsked = true;
    s.Starting = false;
    ShowSample(s);
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
