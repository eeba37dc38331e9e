#include <exception>

#include "platform/files.h"
#include "session/session.h"
#include "text/tokens.h"

namespace halvo {

std::string InWorkDir(const Session& s, const std::string& name) {
    if (name.find_first_of("\\/") != std::string::npos) return platform::NormalizeSeparators(name);
    return platform::JoinPath(s.FilePath, name);
}

namespace {

void ReportMissing(Session& s, const std::string& name, int& level) {
    if (level == 10) {
        if (MsgBox(s, name + " does not exist (Cancel to abort routine)", mb::OKCancel, "FileExists") == mb::Cancel)
            level = 0;
    } else if (level == 0) {
        WarningBox(s, "File " + name + " does not exist.", "FileExists");
    } else if (level > 0) {
        MsgBox(s, "File " + name + " does not exist", mb::OKOnly, "FileExists");
    }
}

bool Exempt(const std::string& name) {
    std::string ext;
    text::SplitExtension(text::FileNameOf(name), ext);
    ext = text::Lower(ext);
    return ext == "ini" || ext == "prf" || ext == "cal";
}

}  // namespace

bool FileExists(Session& s, const std::string& given, int& level) {
    if (s.Starting) level = -1;
    std::string name = given;
    try {
        if (name.size() < 2) {
            if (level != -1)
                WarningBox(s, "FileExists warning: filename " + name + " no drive, or no media on drive", "FileExists");
            return false;
        }
        if (name.size() >= 2 && name.front() == '"' && name.back() == '"') name = name.substr(1, name.size() - 2);
        const bool wantDirectory = !name.empty() && (name.back() == '\\' || name.back() == '/');
        const bool hasDirectory = name.find_first_of("\\/") != std::string::npos;
        std::string path = name;
        if (!hasDirectory) {
            if (s.FilePath.empty() && !Exempt(name)) {
                const std::string text = "Directory containing data for previous session is 'null'";
                if (level == 0)
                    WarningBox(s, text, "FileExists");
                else if (level > 0)
                    MsgBox(s, text, mb::OKOnly, "FileExists");
                return false;
            }
            path = InWorkDir(s, name);
        }
        bool found;
        if (wantDirectory) {
            std::string dir = platform::NormalizeSeparators(path);
            while (dir.size() > 1 && dir.back() == '/') dir.pop_back();
            found = platform::IsDirectory(dir);
        } else {
            const auto resolved = platform::ResolvePath(path);
            found = resolved && !platform::IsDirectory(*resolved);
        }
        if (!found) ReportMissing(s, name, level);
        return found;
    } catch (const std::exception&) {
        MsgBox(s, "Unexpected error for filepath " + s.FilePath + " and filename " + name, mb::OKOnly, "FileExists");
        return false;
    }
}

bool FileExists(Session& s, const std::string& name, int&& level) { return FileExists(s, name, level); }

}  // namespace halvo
