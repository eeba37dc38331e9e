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

// Opening a batch empties the current one before the file dialog is shown (so a cancelled dialog
// leaves an empty batch); OpenBatchFile then takes the chosen *.spc, whose directory becomes the
// working directory.
void mnuOpenBatch_Click(Session& s);
void OpenBatchFile(Session& s, const std::string& path);

}  // namespace halvo
