#pragma once
// Start-up and close of a session: where the engine and the working directory are, the first state
// of the batch, and what is remembered for the next session.
#include <string>

#include "session/session.h"

namespace halvo {

struct StartupEnvironment {
    std::string pathVKS;  // the PATHVKS environment variable ("" when unset)
};

// The start-up steps, in order: warnings on, the engine directory from PATHVKS or else the stored
// "path", the working directory from the stored "filepath" (dropped with "Please change" when it is no
// directory), one empty sample, and warnings on again at the end when they were not silenced for good.
// s.settings must be set. The data tables are loaded from PathVKS; returns false when the user chose
// Cancel at a table's load error, which ends the program.
bool StartSession(Session& s, const StartupEnvironment& env);

// Takes the engine's version line (the first output line holding "VKS v"): VKSlongver, VKSshortver,
// VKSversion and VKSversionNumber (9.3g gives 9307). Returns the revision text for the title,
// " (rev: N)", or "".
std::string SetEngineVersion(Session& s, const std::string& versionLine);

// The title of the frame window: "Halvo v" + version, the revision text and the engine version when one
// is known.
std::string FrameTitle(const Session& s, const std::string& revisionText = "");

// On unload: store the working directory and the data format when asked to.
void StoreSettingsOnExit(Session& s);

}  // namespace halvo
