#pragma once
// The molecule language: one line of text that says what a layer, a foil or a window is made of.
// Parse_Mol reads a whole molecule string (weighted sub-molecules in parentheses), Parse_SMol one list
// of elements. Both repair what they can and report the rest through message boxes.
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace halvo {

struct Session;

// One list of elements. Every array runs from 0 to ElementCount; slot 0 is the summary.
struct SubMolecule {
    std::int16_t ElementCount = 0;
    std::vector<std::string> Symbols = std::vector<std::string>(1);   // 1+: element symbol
    std::vector<std::string> Isotopes = std::vector<std::string>(1);  // 1+: "28Si" or "Si"; 0: composition text
    std::vector<std::int16_t> MassNumbers = std::vector<std::int16_t>(1);
    std::vector<std::int16_t> AtomicNumbers = std::vector<std::int16_t>(1);
    std::vector<float> Masses = std::vector<float>(1);          // 0: concentration-weighted mean mass
    std::vector<float> Concentrations = std::vector<float>(1);  // negative: marked for fitting; 0: sum of |c|
    std::string SubName;  // data base compound, element name, or the sub-molecule's text
    std::string SubText;  // composition text with its density
    float SubAtomicDensity = 0;  // 1e22 atoms/cc
    bool DensityGiven = false;
    float SubMassDensity = 0;  // g/cc

    SubMolecule() = default;
    // A record with its arrays sized for `count` elements.
    explicit SubMolecule(int count)
        : ElementCount(std::int16_t(count)),
          Symbols(size_t(count) + 1),
          Isotopes(size_t(count) + 1),
          MassNumbers(size_t(count) + 1),
          AtomicNumbers(size_t(count) + 1),
          Masses(size_t(count) + 1),
          Concentrations(size_t(count) + 1) {}

    // Sizes every array for `count` elements and clears them.
    void resize(int count);
};

struct Molecule {
    std::int16_t SubCount = 0;
    std::vector<SubMolecule> SubMolecules = std::vector<SubMolecule>(1);  // 0 .. SubCount
    std::vector<float> SubConcentrations = std::vector<float>(1);        // negative: fitted; 0: sum of |c|
    std::string MolName;
    float MolAtomicDensity = 0;
    bool MolDensityGiven = false;
    float MolMassDensity = 0;
    float MolAverageMass = 0;
    std::string MolText;
    std::string MolTextWithDensity;
};

// Result bits of the parsers (a positive result is a mask of these).
namespace molcode {
inline constexpr std::int32_t ElementUnknown = 1, IsotopeUnknown = 2, BadConcentration = 4, BadDensity = 8,
                              Empty = 16, MoleculeNotUnique = 32, SubMoleculeNotUnique = 64, Unmatched = 128,
                              Nested = 256, SinglePair = 512, Spacing = 1024, TooMany = 2048, CodeError = 4096,
                              SpacingWarning = 0x100000, TooLong = 0x200000;
// Flags kept in the upper half while parsing, turned into the negative success codes.
inline constexpr std::int32_t FlagOneElement = 0x5000000, FlagElementDensity = 0x1000000,
                              FlagDefaultDensity = 0x4000000;
}  // namespace molcode

// Parses a molecule string into `Mol`. `Text` is rewritten (repaired, or on failure what was left);
// `Position` gets the count of "?" on success, the character reached on failure. Returns 0 or a
// negative value on success, a positive bit mask on failure. Faults of the classic runtime (an element
// past uranium, a 16-bit overflow) are raised as RuntimeFault for the caller's trap.
std::int32_t Parse_Mol(Session& s, std::string& Text, Molecule& Mol, std::int16_t& Position);

// The same for one list of elements; `Text` is only rewritten on failure.
std::int32_t Parse_SMol(Session& s, std::string& Text, SubMolecule& Sub, std::int16_t& Position);

// The texts of the bits of a positive code, joined with ";  ".
std::string MoleculeErrorText(std::int32_t Code);

// Sizes `Mol` for sub-molecules of the given element counts and clears it.
void EmptyMol(Molecule& Mol, const std::vector<std::int16_t>& Counts);

// Turns the flags kept in the upper half of a code into the negative success value: only when the low
// 16 bits are clear and the code is not 0.
std::int32_t ConvertUpperFlags(std::int32_t code);

// Leading and trailing blanks removed, runs of blanks made one.
std::string NormaliseBlanks(std::string_view text);
void NormaliseBlanksInPlace(std::string& text);

}  // namespace halvo
