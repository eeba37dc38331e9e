#pragma once
// Pieces the two parsers and the density arithmetic share.
#include <string>
#include <vector>

#include "sample/molecule.h"

namespace halvo::molecule_detail {

// A concentration token: a number, or "?=" and a number (a value to fit, held negative).
bool ReadConcentration(const std::string& token, float& value);
// The written form: the plain number, or "?=" and the size of a negative one.
std::string ConcentrationText(float c);

// S1 = sum c x m, S2 = sum c over the elements (c = 1 and m = Masses[0] for a single element), in the
// one order and width that makes the parser's mean and the density routines' check agree exactly.
struct MassSums {
    float S1 = 0, S2 = 0;
};
MassSums SumsOf(const SubMolecule& Sub, bool keepSign);

// Whether names 1..count hold a double: the last is compared with all before it, then the last but
// one, and so on. `later` is the higher index of the first pair found.
bool FirstDouble(const std::vector<std::string>& names, int count, int& later);

}  // namespace halvo::molecule_detail
