#pragma once
// The main window's lists as a model: which sample is shown and what its lists hold. The window draws
// these; the commands read and change them.
#include <string>

#include "session/session.h"

namespace halvo {

// Fills the lists of the current sample from its records: data files, geometries, associations with
// their links, charges, structure and verbosity.
void ShowSample(Session& s);

// The syntax and verbosity labels: Label14 from the current sample, Label15 and its tool tip from
// VerbosityAllSame.
void SetVerbosityLabel(Session& s);

// A sample chosen in Combo1 (index from 0).
void Combo1_Click(Session& s, int index);
void mnuNextSample_Click(Session& s);
void mnuPrevSample_Click(Session& s);
// VScroll1 moved to `value` (0 .. twice the sample count): one sample per step.
void VScroll1_Change(Session& s, int value);

// The texts of Combo3, verbosity 0 to 3.
const char* const* VerbosityTexts();

// The association line of List3 for an entry: "data ==> geometry" and the link suffix.
std::string AssociationText(const SpectrumEntry& e);

}  // namespace halvo
