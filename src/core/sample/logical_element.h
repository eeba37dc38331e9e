#pragma once
// The records of a sample's structure: logical elements (what a column of the profile stands for),
// the molecules they hold, and the operations that copy, insert and delete them.
#include <cstdint>
#include <string>
#include <vector>

#include "sample/molecule.h"

namespace halvo {

struct Session;

struct LogicalElement {
    std::string LEName;
    std::string LEFileLine;
    std::string LEComposition;
    float DepthMin = 0, DepthMax = 0;  // TFU, 0 meaning no limit
    float ConcMin = 0, ConcMax = 0;    // 0 .. 1
    std::int16_t MoleculeIndex = 0;    // 1+: molecule; -1: single element; 0: nothing assigned
    bool IsSubstrate = false;
    bool IsDelta = false;
    bool HasFormula = false;
    std::string FormulaFile;
    float LEDensity = 0;  // 1e22 atoms/cc
    bool LEDensityGiven = false;
    float LEMassDensity = 0;  // g/cc
    bool HasIsotopes = false;
    std::int16_t LEZ = 0;
    std::string LESymbol;
    float LEAverageMass = 0;
};

struct MoleculeRecList {
    std::vector<Molecule> Molecules = std::vector<Molecule>(1);  // 0 unused
    std::int16_t MoleculeCount = 0;
    std::vector<std::int16_t> MoleculeLE = std::vector<std::int16_t>(1);  // logical element of each molecule
};

struct TargetRecList {
    std::int16_t LECount = 0;                     // highest index
    std::vector<LogicalElement> LogicalElements;  // 0 is a blank entry once the list has any; empty before
    MoleculeRecList Molecules;
    std::int16_t ElementLECount = 0;  // logical elements that are no molecules
};

struct InclusionRecord {
    std::int16_t InclusionType = 0;  // 0 none, 1 sphere, 2 cylinder
    std::int16_t MadeOf = 0;         // logical element; 0 voids
    float Radius = 100;              // nm
    float Height = 1000;             // nm, cylinders
    float OrganisationFactor = 1;
    float InclDepthMin = 0, InclDepthMax = 0;
    float InclConcMin = 0, InclConcMax = 1;
};

struct RoughnessRecord {
    std::int16_t RoughKind = 1;  // 0 no word, 1 Gauss, 2 Gamma
    std::int16_t ModelA = 0, ModelB = 0, ModelC = 0;
    bool ModelFlagsRead = false;
    float DTheta = 0;
    bool DThetaFit = false;
    float DX = 0;
    bool DXFit = false;
    float CorrelationLength = 0;
    bool CorrelationFit = false;
    bool HasSurface = false;
    float AsperitySeparation = 0;
    bool SeparationFit = false;
    float AsperityDeviation = 0;
    bool DeviationFit = false;
    std::int16_t SurfaceLayers = 0;
};

struct StructureRecord {
    std::string StructureFile;
    bool Modified = false;
    float ThicknessMin = 0, ThicknessMax = 0;  // TFU
    std::int16_t NLE = 0;
    std::int16_t NMolecules = 0;
    std::int16_t NElements = 0;
    bool HasInclusions = false;
    bool HasRoughness = false;
    TargetRecList Targets;
    InclusionRecord Inclusions;
    RoughnessRecord Roughness;
    // Set while a structure is being read and when a read failed: the record must not be used.
    bool NotAssigned = false;
};

// The distinct elements and isotopes of the logical elements, in order of first appearance (1 and up).
struct RealElementList {
    std::vector<std::string> RealElementNames = std::vector<std::string>(1);
    std::int16_t RealElementCount = 0;
};

// Copies; each returns false after its box when the source is inconsistent.
bool AssignStructure(Session& s, StructureRecord& Dest, const StructureRecord& Src);
bool AssignMRL(Session& s, MoleculeRecList& Dest, const MoleculeRecList& Src);
bool AssignTRL(Session& s, TargetRecList& Dest, const TargetRecList& Src);
// Fills entry Index of List from a parsed molecule: as a single element, or as a molecule of the list.
bool AssignLE2Target(Session& s, TargetRecList& List, std::int16_t Index, const Molecule& Mol, bool AsMolecule);
// Appends Src's entry Index to Dest, with its molecule.
void CopyLE(TargetRecList& Dest, const TargetRecList& Src, std::int16_t Index);
bool AddMoleculeToList(MoleculeRecList& List, const Molecule& Mol, std::int16_t& Number, std::int16_t LE);
void DelMoleculeFromList(MoleculeRecList& List, std::int16_t Number);

// A new single-element logical element: the first element of the table, by Z, that no entry of List
// has as its composition.
void MakeNewLE(Session& s, LogicalElement& LE, const TargetRecList& List);
// Adds a logical element before entry Index of the current structure / deletes entry Index.
bool LEnew(Session& s, std::int16_t Index);
bool LEdel(Session& s, std::int16_t Index);
// Parses the molecule's text again and stores it as entry Index of List.
bool LEinsertMol(Session& s, const Molecule& Mol, TargetRecList& List, std::int16_t Index);

// Builds the real-element list of the first Count logical elements, and warns about logical elements
// whose compositions (blanks removed, case ignored) are alike.
void AssignElementList(Session& s, const TargetRecList& Target, std::int16_t Count, RealElementList& List);

// The element fields of a logical element from a parsed one-element molecule.
void SetElementFields(LogicalElement& LE, const Molecule& Mol);

}  // namespace halvo
