#pragma once
// The batch file (*.spc) in both directions, its repair, and the comments file beside it.
#include <string>

#include "session/session.h"

namespace halvo {

// Replaces the batch in the session with the contents of `path`.
void ReadBatch(Session& s, const std::string& path);

// False when the file is clean. `length` receives the number of characters read. With `repair`,
// bare LFs become CR LF and the file is rewritten.
bool checkBatchFile(Session& s, std::string& path, long& length, bool repair);

// Writes s.dlg_FileName (a name ending in ".spc") from the session; asks first when s.OverwriteAsk.
void SaveBatchFile(Session& s);

// Writes the comments file; with onlyIfPresent only when one already stands in the working directory.
void SaveBatchComments(Session& s, bool onlyIfPresent);
// Fills the batch and sample comments from the comments file; a missing or short file leaves the
// rest empty.
void ReadBatchComments(Session& s, const std::string& batchPath);
// The comments file of a batch file: the last three characters of the name replaced by "txt".
std::string CommentsFileName(const std::string& batchPath);

inline constexpr const char* kCommentSeparator = "###########################";

// Empties the batch. With s.ResetSamples off the samples stay (the lists are emptied).
void NewBatch(Session& s);

}  // namespace halvo
