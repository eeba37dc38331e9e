#pragma once
// The geometry now loaded: one measurement as its *.geo file describes it. There is one record in the
// session; whoever needs another geometry resets it and reads the other file over it.
//
// Flags are 16-bit, 0 off and -1 on, unless a comment says otherwise. Angles in degrees, energies in
// keV, pile-up times in microseconds. A "variation" is the fit range the engine may use; 0 is fixed.
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "sample/molecule.h"

namespace halvo {

// Data formats are numbered 0 to this; the number is kept in the geometry, never guessed.
inline constexpr std::int16_t kHighestFileFormat = 35;
inline constexpr int kMaxRois = 5;
inline constexpr int kMaxPixeFoils = 20;

// Analysis kinds, as the reaction line sets them.
namespace geokind {
inline constexpr std::int16_t RBS = 0, ERDA = 1, NRA = 2, NDP = 3, PIXE = 4, PIGE = 5, SIMS = 6;
}

// One row per element. Row 0 holds the switches of the whole geometry and the marks that some element
// has a setting; rows 1 to the real-element count are the real elements of the current structure, the
// rows after them its logical elements. Rows 1 to StopCount double as the list of stopping keys.
struct GeoElementOptions {
    std::string ElementName;
    std::int16_t NonR = 0;
    std::string NonRFile;  // "(SigCalc matrix)" marks one the engine finds by itself
    std::int16_t AllRes = 0;
    std::int16_t AutoL = 0, AutoLState = 0;  // row 0: 0 absent, 1 AUTOL, 2 AUTOL OFF
    std::int16_t Nil = 0;
    std::int16_t Depth = 0;
    std::string DepthFile;
    float DepthFactor = 1.0f, DepthOffset = 0;
    std::int16_t StragType = 0;  // row 0: 0 none, 1 gauss, 2 gamma
    std::int16_t MDepthSelected = 0;
    std::int16_t MsSet = 0;
    std::int16_t MsShort = 0;  // cutoff and two coefficients
    std::int16_t ThinFilm = 0;
    std::int16_t MsCutoff = 0;
    std::array<float, 4> MsCoef{};
    std::array<float, 3> ThinFilmCoef{};  // fit parameter c, first and last channel
    std::int16_t IonStopSet = 0;
    float IonStopFactor = 1.0f;
    std::int16_t DetStopSet = 0;
    float DetStopFactor = 1.0f;
    std::string StopKey, StopIon, StopTarget;
    std::int16_t FitStop = 0, MolFit = 0, ElFit = 0, MolStop = 0, ElStop = 0;
    std::string FitStopFile, ElFitFile, MolFitFile, MolStopFile, ElStopFile;                 // incident ion
    std::string FitStopFileDet, ElFitFileDet, MolFitFileDet, MolStopFileDet, ElStopFileDet;  // detected
    std::int16_t MsOverride = 0;
};

struct MDepthParamsRecord {
    std::string File;
    std::int16_t MDEPTH = 0;  // 0 none, 1 WDEPTH, 2 MDEPTH
    std::int16_t AllElements = -1;
    float Factor = 1.0f;
    float Offset = 0;
};

struct DoubleScatterRecord {
    std::int16_t Enabled = 0;
    std::string File;
    std::string Mode;            // "FULL", "PRECISE", "NORMAL", "FAST", "FILE"
    std::int16_t ModeCode = 0;   // 2, 1, 0, 4, -1
    std::int16_t NoLow = 0;
    float Factor = 1.0f;
};

struct AdvGeomPileupRecord {
    std::int16_t Model = -1;  // -1 none, 0 CJ, 1/2 Amsel without/with PUR, 3/4 WG without/with PUR, 5 MG
    float ShapeTime = 0;      // Tw
    float PurTime = 0;        // 0: no pile-up rejection
    float Gamma = 0;
    std::int16_t LLD = 0;     // channel copied to all lower channels
    std::int16_t syntax = -1;  // -2 one-word PILE, -1 none, 0 VKS7, 1 VKS8 (PUP), 2 VKS9
    float PeakFactor = 0;      // time to peak in units of Tw
    std::int16_t LLDSet = 0;
    std::int16_t PeakFactorSet = 0, GammaSet = 0;
    std::int16_t MgFilter = 2;  // order of the CR-nRC filter
    float MgR = 1000.0f;        // dimensionless pulse width
    std::int16_t MgThresholdSet = 0;
    float MgThreshold = 0;  // channels
    std::int16_t MgBimodal = 0;
    std::int16_t Speed = 0;  // the PILESPEED switch of the working directory
};

// A range foil, dead layer or beam foil: thickness, a second number (the range foil's
// inhomogeneity) and the composition.
struct GeoFoil {
    float Thickness = 0;
    float Second = 0;
    Molecule Composition;
    std::string Text;  // the composition line as read (after the parser's repairs); what a save writes
};

struct PixeFoil {
    double Thickness = 0;
    Molecule Composition;
    std::int16_t FormFlag = 0;  // 1: the file gave a flag word behind the one-word composition
    std::string Text;           // the composition as read, without the flag word
};

// Bits of the features whose engine generations the syntax pass weighs, in the order of their bits;
// the last two masks have no bit.
namespace feature {
inline constexpr int AutoL = 0, BeamFoil = 1, ChuBohr = 2, DoubleScat = 3, PixeDetEfficiency = 4, FsxAs = 5,
                     StragCommand = 6, GeneralGeom = 7, LowE = 8, PixeOrPige = 9, PileUp = 10, Resonance = 11,
                     Srim03 = 12, GeoFileVariation = 13, WDepth = 14, Xml = 15, DeadLayer = 16, Nil = 17, Count = 18;
}

struct GeometryRecord {
    std::int16_t FileFormat = 0;
    std::string Name;  // as given; no directory for a top-level file
    std::array<std::int16_t, kMaxRois> RoiLow{}, RoiHigh{};
    std::int16_t RoiCount = 0;
    std::string Ion;
    std::string Detected;
    // -1 undetermined or any, 0 VKS7, 1 VKS8, 2 VKS9, -2 pre-VKS9, -3 post-VKS7.
    std::int16_t Syntax = -1;
    std::int16_t Kind = 0;  // geokind
    std::string Struck;     // for PIGE the nucleus named on the reaction line
    std::string Resultant1, Resultant2;
    // Ion, detected, struck, resultant 1, resultant 2.
    std::array<std::int16_t, 5> Z{};
    std::array<float, 5> Mass{};
    std::array<std::int16_t, 5> A{};
    float QValue = 0;
    float Energy = 0;
    float EnergyVar = 0;
    float FWHM = 0;
    float FWHMVar = 0;
    float FWHMLinear = 0;  // resolution = FWHM + FWHMLinear times the detected energy
    float FWHMLinearVar = 0;
    std::string GeomType;  // "IBM", "CORNELL" or "GENERAL"
    float Scatter = 0;
    float ScatterVar = 0;
    float Incidence = 0;
    float IncidenceVar = 0;
    float Exit = 0;
    float ExitVar = 0;
    std::int16_t AngleVarSet = 0;
    float SolidAngle = 0;  // msr
    float Quad = 0;        // E = Quad channel^2 + Gain channel + Offset
    float Gain = 0;
    float Offset = 0;
    std::string PixeCalibFile;
    float PixeErrorPercent = 0;
    std::int16_t IsPixe = 0, IsPige = 0, IsSims = 0, IsRbs = 0;
    std::string StragglingModel;  // "chu", "bohr" or empty
    std::int16_t StragSet = -1;   // 1 once a STRAG directive was read
    std::int16_t SyntaxInconsistent = 0;
    float StragglingFactor = 1.0f;
    float StragglingFactor2 = 0;
    std::int16_t XmlMode = 0;  // 0 none, 1 data, 2 fit, 3 onlyfit
    // -1 directive absent, 0 OFF, 1 ON.
    std::int16_t FlagVarCharge = -1, FlagVarQuad = -1, FlagVarConv = -1, FlagVarOffset = -1;
    std::int16_t FlagVarAny = 0, FlagVarAny2 = 0;
    std::int16_t EffiSet = 0;
    float EffiPercent = 100.0f;
    std::string EffiFile;
    float Active = 0;  // depletion depth of a partially depleted detector, TFU
    std::int16_t ActiveSet = 0;
    float NdpBackPre = 0, NdpBackExp = 0;
    std::int16_t NdpBackSet = 0;
    std::int16_t CrossSet = 0;
    std::string CrossElement;
    float CrossLow = 0, CrossHigh = 0;
    std::int16_t CrossRangeSet = 0;
    std::int16_t Indirected = 0;
    std::string IndirectedName;
    std::int16_t RoiChanged = 0, EnergyChanged = 0, AnglesChanged = 0, FWHMChanged = 0, SolidChanged = 0,
                 CalibChanged = 0;
    // What the file had at each physical line (from 1) that the reader did not take up: comment lines,
    // blank lines as two blanks, directives not understood. Sized to the file's line count + 1.
    std::vector<std::string> Comments;
    std::vector<GeoElementOptions> Elements = std::vector<GeoElementOptions>(1);
    std::int16_t StopCount = 0;
    MDepthParamsRecord MDepthParams;
    std::int16_t SAs = 0, XAs = 0, FAs = 0;
    float SAsFactor = 1.0f, XAsFactor = 1.0f;
    float DepthErrorLimit = 0;
    DoubleScatterRecord DoubleScatter;
    GeoFoil RangeFoil, DeadLayer, BeamFoil;
    std::array<PixeFoil, kMaxPixeFoils + 1> PixeFoils{};  // 1 to 20
    std::int16_t PixeFoilCount = 0;

    AdvGeomPileupRecord AdvGeomPileup;
    std::int16_t AdvGeomLowEnergy = 0;  // 0 absent, 1 bare LOW_E, 2 OFF, 3 ALL
    std::int16_t AdvGeomScreen = 0;     // 0 Andersen, 1 L'Ecuyer, 2 none, 3 Universal, 4 Moliere, 5 Lenz-Jensen, 6 Bohr
    std::int16_t AdvGeomResonance = 0;  // 0 default, 1 NORES, 2 ALLRES (3: ALLRES of the editor, written as ALLRES)
    std::string AdvGeomExtra;           // a free-text line the writer puts out as it stands; no reader fills it

    // Masks of the engine generations each feature needs (bit 1 VKS7, 2 VKS8, 4 VKS9; -1 not in use).
    std::array<std::int16_t, feature::Count> GeoFeatureMask{};
};

}  // namespace halvo
