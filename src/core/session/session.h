#pragma once
// The state of a running front end: the batch with its samples and spectra, the flags every routine
// consults, and the main window's lists (which the commands read as part of the model). One Session is
// owned by the program and passed by reference; nothing here is global.
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "engine/technical_record.h"
#include "geometry/aux_files.h"
#include "geometry/geometry_editor_state.h"
#include "geometry/geometry_record.h"
#include "sample/element_table.h"
#include "sample/logical_element.h"
#include "sample/profile_record.h"
#include "session/messages.h"

namespace halvo {

namespace platform {
class SettingsStore;
}

struct SpectrumEntry {
    std::string DataFile;         // with its extension
    double DataFileDate = 0;      // days since 1899-12-30
    std::int16_t FileFormat = 0;  // data format, from the geometry
    std::string GeometryFile;     // base name, no extension
    double GeometryDate = 0;
    float Charge = 0;  // µC
    float LiveTime = 0, RealTime = 0;
    std::int16_t LinkTo = 0;  // association linked to, 0 for none
    char LinkKind = ' ';      // '(', '[', '{', '<' or blank
    std::int16_t Syntax = -1;
    bool IsPixe = false, IsPige = false, GeometryFlag = false;
    float BeamValue = 0, DetectedValue = 0;
    std::string DetectedIon;
};

// One spectrum of the current sample as shown: the entry's fields, then what the display adds.
struct Experiment : SpectrumEntry {
    Experiment() = default;
    explicit Experiment(const SpectrumEntry& e) : SpectrumEntry(e) {}
};

struct Sample {
    std::vector<SpectrumEntry> Spectra = std::vector<SpectrumEntry>(1);  // 0 .. NSpectra, one spare
    std::string Structure;                                                 // base name of the *.str
    double StructureDate = 0;
    std::int16_t NSpectra = 0;
    std::int16_t NStructA = 0, NStructB = 0;
    std::int16_t Verbosity = 0;
    std::int16_t NUnassociated = 0;
    std::int16_t NGeometries = 0;
    bool AllAssociated = false;
    bool AllUsed = false;
    bool HasPixe = false;
    std::array<bool, 3> Shown{true, true, true};
    std::string Comment;  // lines each ended by CR LF
    std::int16_t Syntax = -1;
    bool SyntaxInconsistent = false;
};

// An ordered list of texts with a selection: what a list box or drop-down shows.
struct TextList {
    std::vector<std::string> items;
    int index = -1;  // selected entry, -1 for none
    void clear() {
        items.clear();
        index = -1;
    }
};

// The main window's controls that belong to the model.
struct MainLists {
    TextList Combo1;  // sample numbers
    TextList List1;   // data files of the sample
    TextList List2;   // geometry files, no extension
    TextList List3;   // associations "data ==> geometry (n)"
    TextList List4;   // the structure file
    TextList List5;   // charges, one per association
    std::string List6;  // the working directory shown
    TextList Combo3;    // verbosity of the sample
    std::string Label12, Label13;  // "Sample: " and "Batch: " comments
    std::string Label14;           // syntax of the sample
    std::string Label15, Label15ToolTip;
    std::string Label19;  // warnings state
    bool Label19Marked = false;
    int VScroll1Max = 0;
    int VScroll1Value = 0;
    std::string BatchToolTip;  // tool tip of the picture and label that name the batch file
};

struct Session {
    MessagePort* ui = nullptr;
    platform::SettingsStore* settings = nullptr;

    std::string PathVKS;
    std::string FilePath;
    std::string BatchName;
    std::string UnsavedMark;
    std::string dlg_FileName;
    std::string BatchComment, BatchComment2;
    std::int16_t NSamples = 1;
    std::int16_t CurrentSample = 1;
    std::vector<Sample> Samples = std::vector<Sample>(2);  // 0 unused, 1 .. NSamples, one spare
    std::vector<Experiment> Experiments;
    std::int16_t MaxSpectra = 0;
    bool WarningsFlag = true;
    bool WarningsAsked = true;
    bool Starting = false;
    bool ResetSamples = true;
    bool VerbosityAllSame = true;
    bool SaveSettingsOnExit = false;
    bool OverwriteAsk = false;
    TechnicalRecord TCNdummy;  // what the technical file and the command line are written from
    TechnicalRecord Techen;    // what the set-up windows show
    std::int16_t VKSversion = 0;
    std::string VKSlongver, VKSshortver;
    std::int16_t VKSversionNumber = 0;
    std::int16_t VKSverSyn = -1;
    GeometryRecord Geometry;
    std::uint16_t SyntaxErrorBits = 0;  // features of the loaded geometry the engine in use cannot read
    GeometryEditorState GeoEditor;
    AuxFileState Aux;  // directories of the files a geometry names, once-per-session checks
    DataTables Tables;              // isotopes.dat, pscoef.dat, compound.dat of PathVKS
    std::int16_t AnalysisKind = 0;  // set by assignZA for the special particles
    StructureRecord Structure;      // the current sample's structure
    RealElementList ElementList;    // its real elements, as the read that loaded it found them
    ProfileRecord Profile;          // the last good read of a profile

    MainLists lists;
    std::string MainTitleBase = "VKScontrol";  // the main window's title as it stood at start
    std::string MainTitle = "VKScontrol";

    Sample& current() { return Samples.at(size_t(CurrentSample)); }
    const Sample& current() const { return Samples.at(size_t(CurrentSample)); }
};

// Shows a box through the session's port (OK when no port is set).
int MsgBox(Session& s, const std::string& text, int buttons = mb::OKOnly, const std::string& title = "");

// A message that may recur: adds the silencing suffix, and Cancel turns warnings off (see warnings.cpp).
void WarningBox(Session& s, const std::string& text, const std::string& title, int& buttons, std::string& suffix);
int WarningBox(Session& s, const std::string& text, const std::string& title, int buttons = 0);
void SetWarningsFlag(Session& s, bool value);
void Label19_Click(Session& s);

// Title of the main window: its start title, " - ", the batch name and " - Unsaved" when unsaved.
void MarkSaved(Session& s, bool saved);

// Existence test with the reporting levels -1 (quiet), 0 (warning), 10 (ask to abort), above 0 (box).
// A level of 10 answered with Cancel is set to 0.
bool FileExists(Session& s, const std::string& name, int& level);
bool FileExists(Session& s, const std::string& name, int&& level = -1);

// Where a name in the working directory is: joined with FilePath unless it holds a directory.
std::string InWorkDir(const Session& s, const std::string& name);

}  // namespace halvo
