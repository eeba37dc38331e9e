#pragma once
// The chemistry the program knows: the elements with their isotopes, masses and densities, and the
// user's compound data base, read once at start from the engine's directory. assignZA turns any name
// a user may type into atomic number, mass number and mass.
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "sample/molecule.h"

namespace halvo {

struct Session;

struct ElementRecord {
    std::string Symbol;  // letters of the first isotope token of the element's line
    std::string Name;
    std::int16_t Z = 0;  // as the file gives it
    float AMASS = 0;          // natural atomic mass, u
    float MassDensity = 0;    // g/cc
    float AtomicDensity = 0;  // 1e22 atoms/cc
    std::int16_t IsotopeCount = 0;
    std::string IsotopeList;  // the isotope tokens of the line, joined
    // Index 0 is the main isotope (from pscoef.dat), 1 to 7 the listed ones.
    std::array<std::int16_t, 8> IsotopeA{};
    std::array<float, 8> IsotopeMass{};
    std::array<float, 8> IsotopeAbundance{};  // 1 to 7
    std::string LatinName;
};

// Z = 1 to 92 at index Z-1.
using ElementTable = std::array<ElementRecord, 92>;

struct CompoundTable {
    std::vector<SubMolecule> Compounds;  // 0 .. CompoundCount
    std::int16_t CompoundCount = -1;     // records read - 1
};

// What the Session holds of the three data files.
struct DataTables {
    ElementTable Elements;
    CompoundTable Compounds;
    bool IsotopesLoaded = false, PscoefLoaded = false, CompoundsLoaded = false;
};

// Filled by assignZA for the caller, chiefly the periodic table window.
struct ElementSelection {
    std::int16_t ZIndex = 0;       // Z-1
    std::int16_t TableButton = 0;  // Z-1, or 92 D, 93 T, 94 3He, 95 4He, 96 neutron, 97 X-ray, 98 gamma
    std::string SelName;
    std::int16_t SelA = 0;
    std::int16_t SelIsotopeIndex = 0;  // 0 for the natural element
    std::int16_t SelectionMode = 0;    // 99: the table shows plain elements only
};

// Values of the analysis kind that assignZA sets for the special particles.
namespace analysis {
inline constexpr std::int16_t Neutron = 3, XRay = 4, Gamma = 5, MB = 6;
}

// Two characters per element from Z = 1, one-letter symbols padded; goes on past the table to Z = 111.
// clang-format off
inline constexpr std::string_view kElementSymbols = "H HeLiBeB C N O F NeNaMgAlSiP S ClArK CaScTiV CrMnFeCoNiCuZnGaGeAsSeBrKrRbSrY ZrNbMoTcRuRhPdAgCdInSnSbTeI XeCsBaLaCePrNdPmSmEuGdTbDyHoErTmYbLuHfTaW ReOsIrPtAuHgTlPbBiPoAtRnFrRaAcThPaU NpPuAmCmBkCfEsFmMdNoLrRfDbSgBhHsMtDsRg";
// clang-format on
inline constexpr std::string_view kSpecialParticles = "D NnX G ";
inline constexpr float kNeutronMass = 1.0086649656f;

// The element of atomic number Z; a Z outside the table raises the subscript fault.
const ElementRecord& ElementOf(const Session& s, int Z);
// The symbol of Z, or "" for Z of 0 or below (a name that assignZA refused, or a special particle).
std::string SymbolOf(const Session& s, int Z);

// Reads isotopes.dat, pscoef.dat and compound.dat from PathVKS into s.Tables. A missing file is
// reported by FileExists and skipped. A broken file gives its "Halvo load error" box; returns false
// when the user answered Cancel there, which ends the program.
bool LoadElementTables(Session& s);

// The three loaders on a file's contents, for LoadElementTables and the tests. Each raises
// RuntimeFault on a fault of the classic runtime (input past the end, overflow); LoadElementTables
// turns that into the box.
void ReadIsotopes(Session& s, std::string_view bytes);
void ReadPscoef(Session& s, std::string_view bytes, int& lineZ);
void ReadCompounds(Session& s, std::string_view bytes);

// Splits "28Si" into A and, when Symbol comes in empty, the symbol.
void SplitIsotopeToken(const std::string& Token, std::string& Symbol, std::int16_t& A);

// Turns a name (element, isotope or special particle) into Z, Mass and A; see element_name.cpp.
// `Failed` is -1 when the name is refused; `Name` comes back normalised ("28si" -> "28Si", "O" -> "O ").
void assignZA(Session& s, std::string& Name, std::int16_t& Z, float& Mass, std::int16_t& A, std::int16_t& Failed,
              ElementSelection& Selection, std::int16_t& AnalysisKind);

// The molecule windows' refusal when compound.dat could not be read; returns true when the table is
// there.
bool CompoundTableReady(Session& s, const std::string& title);

}  // namespace halvo
