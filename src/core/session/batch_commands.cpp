#include "session/batch_commands.h"

#include <algorithm>

#include "platform/files.h"
#include "session/batch_file.h"
#include "text/tokens.h"

namespace halvo {
namespace {

constexpr const char* kNoStructure = "No structure file selected for this sample - please select one";

std::string NotAllAssociated(const Session& s) {
    return "Not all Data Files in sample " + std::to_string(s.CurrentSample) + " have geometries";
}

}  // namespace

SaveStep mnuSave_Click(Session& s) {
    if (s.current().Structure.empty()) {
        MsgBox(s, kNoStructure, mb::OKOnly, "Error!");
        return SaveStep::Refused;
    }
    int unassociated = 0;
    for (const auto& data : s.lists.List1.items) {
        const std::string key = text::Lower(data);
        const bool found = std::any_of(s.lists.List3.items.begin(), s.lists.List3.items.end(),
                                       [&](const std::string& a) { return text::Lower(a).find(key) != std::string::npos; });
        if (!found) ++unassociated;
    }
    if (unassociated > 0) {
        MsgBox(s, NotAllAssociated(s), mb::OKOnly, "Error!");
        return SaveStep::Refused;
    }
    if (!s.BatchName.empty()) {
        s.OverwriteAsk = false;
        s.dlg_FileName = s.BatchName + ".spc";
        SaveBatchFile(s);
        return SaveStep::Done;
    }
    s.OverwriteAsk = true;
    return SaveStep::AskForName;
}

SaveStep mnuSaveBatch_Click(Session& s) {
    if (s.current().Structure.empty()) {
        MsgBox(s, kNoStructure, mb::OKOnly, "SaveBatch Error!");
        return SaveStep::Refused;
    }
    if (s.current().NUnassociated > 0) {
        MsgBox(s, NotAllAssociated(s), mb::OKOnly, "SaveBatch Error!");
        return SaveStep::Refused;
    }
    s.OverwriteAsk = true;
    return SaveStep::AskForName;
}

void DLG_Save_batch_OK(Session& s, const std::string& name) {
    s.dlg_FileName = name;
    if (text::Lower(name).find(".spc") == std::string::npos) s.dlg_FileName += ".spc";
    SaveBatchFile(s);
}

void DLG_Save_batch_Cancel(Session& s) { s.dlg_FileName.clear(); }

void mnuOpenBatch_Click(Session& s) {
    s.ResetSamples = true;
    NewBatch(s);
}

void OpenBatchFile(Session& s, const std::string& path) {
    if (path.empty()) return;
    const std::string normal = platform::NormalizeSeparators(path);
    const auto slash = normal.find_last_of('/');
    const std::string name = slash == std::string::npos ? normal : normal.substr(slash + 1);
    s.BatchName = text::BaseName(name);
    if (slash != std::string::npos) s.FilePath = slash == 0 ? "/" : normal.substr(0, slash);
    MarkSaved(s, true);
    s.lists.List6 = s.FilePath;
    ReadBatch(s, path);
}

}  // namespace halvo
