#pragma once
// Reading a geometry file (*.geo) into the session's one GeometryRecord. The engine reads the same file,
// so the reader is also the program's check of it. ResetGeometry and then ReadGeometry is the one way
// to load a geometry; every failure is reported through the session's message port and leaves the
// record holding what had been read, with Syntax -1.
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "geometry/geometry_record.h"

namespace halvo {

struct Session;

// Sets the defaults of the record, clears the feature masks and the foils, and sizes and resets the
// element rows from the session's current structure (its real elements, then its logical elements).
void ResetGeometry(Session& s);

// notIndirected -1 makes the record a top-level file, 0 a derived one. An empty baseName keeps the
// name of the base file. Clears the Changed flags and the per-element corrections of rows 0 to the
// real-element count.
void ResetIndirection(Session& s, std::int16_t notIndirected, const std::string& baseName);

// Reads `name` (".geo" added when it has no dot; the working directory when it has no directory).
// True when the read reached the end of the file (the boxes have told the user otherwise).
bool ReadGeometry(Session& s, const std::string& name);

// The exit angle by geometry type, upper-cased: IBM, CORNELL, GENERAL (exit as given), else 0.
float ExitAngle(const std::string& geomType, float scatter, float incidence, float exit);

// The check made before a run; each failure is a box, and Cancel turns the later boxes off. The
// existence test uses fileWarnFlag, the others warnFlag.
bool IsGeomValid(Session& s, const GeometryRecord& g, bool warnFlag, bool fileWarnFlag);

// The record as "name value" pairs, field by field in declared order: element rows as
// "Elements[n].Field" (every field of a row with a setting, only the name of a fresh row), foils by
// their composition text. For display and for tests.
std::vector<std::pair<std::string, std::string>> GeometryFields(const GeometryRecord& g);

// The physical lines of one geometry file, read as the engine reads them: each line trimmed, comment
// lines (a first "\" or "/") and everything from a blank line on kept in a comment store indexed by
// line number, which the caller provides sized to LineCount() + 1.
class GeoLineSource {
public:
    explicit GeoLineSource(std::string_view bytes);
    int LineCount() const { return int(lines_.size()); }
    // The next data line, trimmed, or false at the end of the file. `lineNo` is the line counter: it
    // goes up by one for each physical line and stands one past the line just read.
    bool ReadGeoLine(int& lineNo, std::string& line, std::vector<std::string>& comments);
    void Rewind() { next_ = 0; }

private:
    std::vector<std::string> lines_;
    size_t next_ = 0;
};

}  // namespace halvo
