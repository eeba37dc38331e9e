#pragma once
// What the parts of the geometry reader share: the reading state of one file, the failures that end
// a read, and the element lookups against the current structure.
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "geometry/geometry_file.h"
#include "geometry/geometry_record.h"
#include "text/pattern.h"

namespace halvo {

struct Session;

namespace geo {

// The failures that end a read, each with its text and title; Stop ends it without a further box.
enum class Failure { ReadGeom1, ReadGeom2, ReadGeom3, ReadGeom4, ReadGeom5, Angles, ReadgeoBase, Stop };

// Thrown inside a read and caught where the read began: the common failure exit.
struct ReadStop {
    Failure kind;
};

using text::Fill;

// Words of a line as the geometry file has them: cut by NextToken with no fixed separator, counted by
// CountTokens.
int Words(std::string_view line);
std::string Cut(std::string& rest);

// The state of reading one file.
class GeoReader {
public:
    GeoReader(Session& s, std::string messageName, std::string_view bytes, std::vector<std::string>& store)
        : s(s), name(std::move(messageName)), source(bytes), store(&store) {}

    Session& s;
    const std::string name;  // the file as messages name it
    GeoLineSource source;
    std::vector<std::string>* store;  // the comment store the lines go to
    int lineNo = 1;                   // one past the physical line just read
    std::string line;                 // the data line just read
    int calibLineNo = 0;              // the line counter after the calibration line

    bool next() { return source.ReadGeoLine(lineNo, line, *store); }
    // The next data line, or the read fails as a file that ends too soon.
    void need() {
        if (!next()) fail(Failure::ReadGeom5);
    }
    [[noreturn]] void fail(Failure kind) { throw ReadStop{kind}; }
    // Keeps the data line just read in the comment store / takes it out again.
    void keepLine() { store->at(size_t(lineNo - 1)) = line; }
    void dropLine(int number) { store->at(size_t(number)).clear(); }

    // The fixed lines, into `t` (the record, or the scratch record of a derived file).
    void fileFormatLine(GeometryRecord& t, const std::string& text, std::int16_t upperValue);
    void roiLine(GeometryRecord& t, std::string rest);
    void reactionLine(GeometryRecord& t, const std::string& text);
    void energyLine(GeometryRecord& t, std::string rest);
    bool fwhmLine(GeometryRecord& t, const std::string& text);
    void geomTypeLine(GeometryRecord& t, const std::string& text);
    void anglesLine(GeometryRecord& t, const std::string& text);
    bool calibrationLine(GeometryRecord& t, const std::string& text);

private:
    void particle(GeometryRecord& t, std::string& word, int slot);
    void isotopeWarning(const std::string& word, int slot, const GeometryRecord& t, std::string_view text);
    bool needsIsotope(int Z, std::int16_t isotopeIndex) const;
    std::int16_t isotopeIndex_ = 0;  // of the particle word just read: 0 for a natural element
};

// The directives that follow the fixed lines, to the end of the file.
void ReadDirectives(GeoReader& r);
// The numbers of a yield correction: cutoff and four coefficients from a line of five words, else
// cutoff and two.
void MsNumbers(GeoElementOptions& row, const std::string& line);

// A name with its blanks taken out: how stopping lines name a logical element.
std::string WithoutBlanks(std::string_view text);
// A parsed composition as text: with its density when one was given.
std::string MoleculeText(const Molecule& m);

// Real elements of the current structure that the record has rows for.
int RealRows(const Session& s);
// Row (1 to RealRows) of the real element called `word`, case ignored; 0 when there is none.
int FindRealRow(const Session& s, std::string_view word);
// The row of the stopping list, which shares the element rows; past the last row is a subscript fault.
GeoElementOptions& StopRow(GeometryRecord& g, int row);

// Fills the element rows' names from the current structure: real elements, then logical elements.
void SizeElementRows(Session& s);

}  // namespace geo
}  // namespace halvo
