#pragma once
// Which engine generations can read the loaded geometry: every feature the record uses has a mask of
// the generations that accept it (bit 1 VKS7, 2 VKS8, 4 VKS9), and the AND of the masks decides.
#include <cstdint>

namespace halvo {

struct Session;
struct GeometryRecord;

// Sets every mask of g.GeoFeatureMask (-1 for a feature not in use) and returns their AND.
std::int16_t FeatureMasks(GeometryRecord& g);

// The pass at the end of a read: Syntax, SyntaxInconsistent and the session's VKSverSyn from the masks.
void DetermineSyntax(Session& s);

}  // namespace halvo
