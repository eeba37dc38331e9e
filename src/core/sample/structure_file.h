#pragma once
// The structure file (*.str): what a sample can be made of. The engine reads the same file, so the
// reader is also the program's check of a user's file; the writer produces the engine's form of it.
//
// The reader works on lines: from a file in the working directory, or from the structure editor's
// list (the source kEditorList), which the editor hands over as it stands.
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "sample/logical_element.h"

namespace halvo {

struct Session;

// The source name under which the structure editor's list stands in for the file.
inline constexpr const char* kEditorList = "Structure4.List1";

// Logical elements a structure file can hold, inclusions included: the reader's fixed buffer.
inline constexpr int kMaxLogicalElements = 20;

// Reads `Source` (only its trailing file name counts; it is looked up in the working directory,
// case ignored) into `Lines`: blank lines dropped, blanks trimmed at both ends and runs made one.
// With Source kEditorList the lines come from `editorList`. False when the file is missing (after
// a warning) or cannot be read.
bool ReadInFile(Session& s, const std::string& Source, std::vector<std::string>& Lines, int& LineCount,
                int& LongestLine, const std::vector<std::string>* editorList = nullptr);

// Loads the structure `Name` (extension optional; "" means the default file null.str, written anew)
// into s.Structure. Returns true on FAILURE, as the program has always had it: the record then keeps
// its not-assigned mark. With Name kEditorList the lines come from `editorList` and the name is the
// current structure's. `elements` receives the real elements of the structure.
bool ReadStructureFile(Session& s, const std::string& Name, const std::vector<std::string>* editorList = nullptr,
                       RealElementList* elements = nullptr);

// The part of the read that works on lines already normalised by ReadInFile: steps from the first
// line on. `name` is the base name used in messages and kept in the record.
bool ReadStructureLines(Session& s, const std::string& name, const std::vector<std::string>& lines,
                        RealElementList* elements = nullptr);

// Asks for a new name when the user will not overwrite a file: returns the chosen name, "" to stop.
using SaveDialog = std::function<std::string(const std::string& proposed)>;

// Saves s.Structure as `Name` ("" means the current file): asks before overwriting, refuses names
// the engine generation cannot take, and writes through WriteStructureText. True when written.
bool WriteStructureFile(Session& s, const std::string& Name, const SaveDialog& saveDialog = {});

// Writes s.Structure to `Path` (the previous file kept as "<Path>~"). True when written.
bool WriteStructureText(Session& s, const std::string& Path);

// The bytes WriteStructureText writes for `st` (CR LF lines). A second formula is reported here.
std::string StructureText(Session& s, const StructureRecord& st);

// Items laid out in print zones of 14 columns: each item but the last is padded with blanks up to the
// start of the next zone.
std::string PrintZones(const std::vector<std::string>& items);

// The text of one logical element's name line without its density: the composition, or for a
// molecule the text rebuilt from its Molecule.
std::string LogicalElementText(const StructureRecord& st, const LogicalElement& le);

// The contents of null.str, the structure of an empty name.
inline constexpr std::string_view kNullStructure = "100\r\n1\r\nSi\r\n0 25000\r\n0 1\r\n";

}  // namespace halvo
