#pragma once
// The menu commands that open and save a batch.
#include <string>

#include "session/session.h"

namespace halvo {

enum class SaveStep {
    Refused,    // a check refused the save; nothing written
    Done,       // SaveBatchFile ran
    AskForName  // the save dialog is wanted: call DLG_Save_batch_OK or DLG_Save_batch_Cancel
};

SaveStep mnuSave_Click(Session& s);
SaveStep mnuSaveBatch_Click(Session& s);
void DLG_Save_batch_OK(Session& s, const std::string& name);
void DLG_Save_batch_Cancel(Session& s);

// After the open dialog: `path` is the chosen *.spc. Its directory becomes the working directory.
void OpenBatchFile(Session& s, const std::string& path);

}  // namespace halvo
