#pragma once
// Density arithmetic of sub-molecules and molecules, the thickness units, and the program's rule for
// numbers shown on screen.
#include <cstdint>
#include <string>
#include <string_view>

#include "sample/molecule.h"

namespace halvo {

struct Session;

// One atomic mass unit in grams times 1e22: between g/cc and 1e22 atoms/cc.
inline constexpr double kDensityConstant = 0.0166053886;

// Each returns the value, or -1 after its box.
float CalcDensity(Session& s, const SubMolecule& Sub);  // weighted atomic density of the elements
float Density2Rho(Session& s, SubMolecule& Sub);        // atomic to mass density (SubMassDensity)
float Rho2Density(Session& s, SubMolecule& Sub);        // mass to atomic density (SubAtomicDensity)
float CalcMolDensity(Session& s, Molecule& Mol);        // the molecule's densities from its sub-molecules

// Thickness conversions. TFU is 1e15 atoms/cm2, D the atomic density in 1e22 atoms/cc, A the mean
// mass in u. A divisor below 1e-18 gives -1.
float AngstromToTFU(float L, float D);
float TFUToAngstrom(float T, float D);
float NmToTFU(float L, float D);
float TFUToNm(float T, float D);
float UgToTFU(float M, float A);  // ug/cm2
float TFUToUg(float T, float A);

// The number-to-text rule for results on screen. Decimals of -1 picks as many as fit and is written
// back. The float form reads the value as its 7-digit decimal, the double form as its 15-digit one.
std::string FormatNumber(float Value, std::int16_t& Decimals);
std::string FormatNumber(double Value, std::int16_t& Decimals);
// A value through one of the pictures of FormatNumber ("####.000", "######.#", "########", ...).
std::string FormatPicture(std::string_view decimalText, std::string_view picture);
// The scientific form: one digit, `decimals` decimals, "E+00".
std::string FormatScientific(std::string_view decimalText, int decimals);

// The caption of a decimals chooser: below -1 becomes -1; -1 takes the decimals of `numberText`
// (digits behind the point, exponent cut off). Returns "SigFigs =" and the number, or "max".
std::string ShowSigFigs(std::int16_t& Decimals, std::string_view numberText);

}  // namespace halvo
