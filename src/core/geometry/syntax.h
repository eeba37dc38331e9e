#pragma once
// Which engine generations can read the loaded geometry: every feature the record uses has a mask of
// the generations that accept it (bit 1 VKS7, 2 VKS8, 4 VKS9), and the AND of the masks decides.
// The generation of the engine in use is the session's VKSversion (7, 8 or 9).
#include <cstdint>
#include <string>
#include <string_view>

namespace halvo {

struct Session;
struct Sample;
struct GeometryRecord;

// Names of the 16 features with a bit, in bit order, as the conflict text and the help show them.
std::string_view FeatureName(int bit);

// Sets every mask of g.GeoFeatureMask (-1 for a feature not in use) and returns their AND.
std::int16_t FeatureMasks(GeometryRecord& g);

// One feature against the engine in use: a conflict appends `name` to `text` and sets `bit` in the
// session's SyntaxErrorBits; otherwise the bit is cleared. True on conflict.
bool TestFeature(Session& s, std::int16_t mask, std::string& text, std::string_view name, std::uint16_t bit);
// Every feature in bit order; `text` gets the names in conflict run together. True when any is.
bool SyntaxConflicts(Session& s, std::string& text);

// One box per feature in conflict, in bit order, each asking whether to go on.
void ShowSyntaxHelp(Session& s);

// The pass at the end of a read: the masks, the question about conflicts with the engine in use
// (`fileName` as the title shows it), then Syntax, SyntaxInconsistent, the session's VKSverSyn and the
// editor's syntax label and further-parameters title.
void DetermineSyntax(Session& s, const std::string& fileName);

// The editor's label for a geometry syntax ("VKS syntax VKS9", ...).
std::string SyntaxLabel(std::int16_t syntax, bool inconsistent);
// The editor's label for Geometry.Syntax; sets VKSverSyn.
void CheckGeomSyntaxLbl(Session& s);

// The editor's "Switch version syntax": 0, 1 or 2 (VKS7, VKS8, VKS9); -1 changes nothing.
void CorrectGeometrySyntax(Session& s, int value);

// Whether AdvGeomLowEnergy belongs to the current syntax; a box says why not.
bool LowEnergyCheck(Session& s);

// One sample, one generation: the syntax of each shown geometry (s.Experiments) against the first.
// Sets the sample's Syntax and SyntaxInconsistent; true when consistent.
bool CheckSampleSyntax(Session& s, Sample& sample);

// The main window's syntax label for a sample.
std::string SampleSyntaxLabel(const Sample& sample);

}  // namespace halvo
