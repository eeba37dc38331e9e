#pragma once
// Names derived from the batch: the engine's output files and the per-sample files are named by the
// first three letters of the batch, the sample and the spectrum in two characters each.
#include <string>

#include "session/session.h"

namespace halvo {

// "01".."99", then a letter and a digit for 100..359 ("a0", "c3", "z9"), the last digit alone for
// 360..999, "00" from 1000 on, "" below 0.
std::string TwoCharNumber(int n);

// The first `count` letters of the batch name (0 means 3), `tag`, then TwoCharNumber of the sample
// (0 means the current one).
std::string DerivedName(const Session& s, int count, int sampleNumber, const std::string& tag);

// The name of a per-sample file: ".spx", ".str", ".geo", ".prf"; "" when out of range.
std::string SPXname(Session& s, const std::string& extension, int sampleNumber, int spectrumNumber);

// Cuts `name` to its last path component and tells whether it exists in the working directory.
// reportFlags: 1 a missing file, 2 a name that is no legal short name, 4 an empty name.
bool FileFromTreename(Session& s, std::string& name, int reportFlags);

}  // namespace halvo
