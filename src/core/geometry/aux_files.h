#pragma once
// Checks of the files a geometry names for the engine: non-Rutherford cross-sections (R33 and the
// plain two-column form), detector efficiency tables, the DEPTH code's set-up and the SRIM tables.
// The engine ignores or crashes on bad ones, so they are checked as soon as they are named. Every
// report goes through WarningBox; nothing here stops a read.
#include <cstdint>
#include <functional>
#include <string>

namespace halvo {

struct Session;

// Directories of the auxiliary files and the marks of the checks done once per session.
struct AuxFileState {
    std::string EBSFilePath;    // cross-section files named without a directory are looked up here
    std::string SRIMPath;       // the SRIM installation
    bool SRIMChecked = false;   // CheckSRIM has run in this session
    bool DEPTHChecked = false;  // CheckDEPTH has run in this session
    // Starts the user's text editor on a file and returns at once. `command` is the editor command as
    // the files' home desktop has it ("notepad.exe" and the file), for the program to map onto the
    // user's own text editor; `path` is the file alone. Unset, nothing opens but the pause still comes.
    std::function<void(const std::string& command, const std::string& path)> EditFile;
};

// Verifies a non-Rutherford cross-section file for the loaded geometry (its scattering angle, beam
// energy and name) and the current sample. A name without a directory is taken from EBSFilePath.
// `errors` and `warnings` count what was found (both start at 0); `quiet` keeps the report of a
// file that passes from being shown. Returns true when the file has no errors.
bool VerifyNonRFile(Session& s, const std::string& file, bool quiet, std::int16_t& errors,
                    std::int16_t& warnings);

// What the geometry reader and editor call: verifies, and after errors offers to open the file in
// the text editor and verifies again until the user declines. Returns true when the file is good.
bool AskFixNonRFile(Session& s, const std::string& file, bool quiet);

// Checks a detector efficiency file (energy in keV, efficiency in %) and shows the summary.
// Returns the number of errors; -1 when the file cannot be read.
std::int16_t CheckEffiFile(Session& s, const std::string& file);

// Checks the SRIM installation in Aux.SRIMPath; once per session (the mark is Aux.SRIMChecked).
void CheckSRIM(Session& s);

// Checks the files of the DEPTH straggling codes the geometry asks for. Checks whenever called and
// sets Aux.DEPTHChecked; a caller that wants it once per session tests the mark first.
void CheckDEPTH(Session& s);

// Marks every real element (rows 1 to Nelts of the geometry) for which the data directory holds a
// cross-section matrix for the geometry's ion, RBS and ERDA only; nothing when row 0's NonR is on.
void FindSigmaCalc(Session& s, std::int16_t Nelts);

}  // namespace halvo
