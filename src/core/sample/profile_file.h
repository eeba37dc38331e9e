#pragma once
// The profile file (*.prf): reading it against the session's structure, the column edits that keep
// it in step with its structure file, the default profile, and the check made before a run.
// Names without a directory are looked up in the working directory, case ignored.
#include <cstdint>
#include <string>

#include "sample/profile_record.h"

namespace halvo {

struct Session;

// Fills Arr from a file; an empty name means the current profile's name, else "VKS.PRF".
// "|" ends the data of a layer line. False after a warning when the file is missing or short.
bool PRFsetraw(Session& s, PRFarr& Arr, const std::string& File);

// Column edits: the file is rewritten (the old contents kept as "<name>~") or, when a check fails,
// left untouched. Columns count from 0, the thickness.
// Inserts an all-zero column behind column Column (0 puts it directly behind the thickness).
bool PRFaddLE(Session& s, std::int16_t Column, const std::string& File);
bool PRFdelLE(Session& s, std::int16_t Column, const std::string& File);
bool PRFswap(Session& s, std::int16_t ColumnA, std::int16_t ColumnB, const std::string& File);

// The plain read of File + Extension into Rec, shaped by the session's structure. True on success.
bool ReadPRF(Session& s, const std::string& File, ProfileRecord& Rec, const std::string& Extension);

// Reads a profile into the session's record and then its variation flags. File is a base name
// ("vks" when empty) and Extension its extension (".prf" when empty). A missing or near-empty
// file is replaced by the default profile (after asking, unless it is vks.prf). With Quiet the
// question is not asked and the default file is written, as when warnings are off.
bool readPRFrec(Session& s, const std::string& File, const std::string& Extension, bool Quiet = false);

// Writes the default profile of the session's structure: one 100 TFU layer of each pure logical element.
bool WriteDefaultPRF(Session& s, const std::string& File);

// Checks a profile against its structure file before a run, by the session's TCNdummy speed and mode.
// True when the pair passes (a large roughness only warns).
bool chkPRF(Session& s, const std::string& ProfileFile, const std::string& StructureFile);

}  // namespace halvo
