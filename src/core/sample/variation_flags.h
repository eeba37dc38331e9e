#pragma once
// The variation flags file "VKSPRF.ORD": for a local search, which numbers of the profile the
// engine may vary, cell by cell. Without a usable file, what is zero stays zero and all else varies.
#include <cstdint>

#include "sample/profile_record.h"

namespace halvo {

struct Session;

// Flags per row behind the thickness: the profile's logical elements (the structure's NLE while the
// profile has none), plus one for the roughness column. The roughness fit flag has no place here.
std::int16_t NumColumns(const Session& s, const ProfileRecord& profile);

// Fills profile.FitFlags from "VKSPRF.ORD" in the working directory, or by the default rule when the
// file is missing or does not fit the profile. Silent either way.
void ReadVariationFlags(Session& s, ProfileRecord& profile);

// Writes "VKSPRF.ORD": a 1 for every non-zero flag. False, quietly, when it cannot be written.
bool WriteVariationFlags(Session& s, const ProfileRecord& profile);

// What the flags window shows: the logical element columns or only thickness, inclusions and
// roughness, and how far it is rolled to the right.
struct VariationMatrixView {
    bool ShowLogicalElements = true;
    std::int16_t ColumnOffset = 0;
    std::int16_t NLE = 0;
    bool HasInclusions = false;
};

// The profile column that a column of the window's matrix stands for; -1 after the "Unexpected
// Error" box for a column that the hidden view does not have.
std::int16_t PRFfromORD(Session& s, const VariationMatrixView& view, std::int16_t matrixColumn);

}  // namespace halvo
