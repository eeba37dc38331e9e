// Reading a structure file. The reader is also the program's check of a user's file, so every fault
// names the file and the last line taken; a fault of the runtime (a number out of range, a 21st logical
// element, a line missing where one must stand) falls to the routine's trap, the read error box.
#include <algorithm>
#include <array>
#include <exception>

#include "platform/files.h"
#include "sample/formula_file.h"
#include "sample/molecule.h"
#include "sample/structure_file.h"
#include "session/session.h"
#include "text/fault.h"
#include "text/lines.h"
#include "text/numbers.h"
#include "text/tokens.h"

namespace halvo {
namespace {

constexpr const char* kReadErrorTitle = "vkscontrol.ReadStructureFile: read error";
constexpr const char* kBlockErrorTitle = "VKScontrol.ReadStructureFile error";

std::string BaseOf(const std::string& name) { return text::BaseName(text::FileNameOf(name)); }

bool Contains(const std::string& line, std::string_view upperWord) {
    return text::Upper(line).find(upperWord) != std::string::npos;
}

bool IsInclusionWord(const std::string& line) { return Contains(line, "SPHERE") || Contains(line, "CYLINDER"); }

// The lines in turn, remembering the last one taken: the read error box names it.
class Cursor {
public:
    explicit Cursor(const std::vector<std::string>& lines) : lines_(lines) {}
    bool more() const { return next_ < lines_.size(); }
    const std::string& take() {
        if (!more()) RaiseInputPastEnd();
        last_ = next_++;
        return lines_[last_];
    }
    // Where a missing line reads as empty.
    std::string takeOrEmpty() { return more() ? take() : std::string(); }
    std::string last() const { return next_ ? lines_[last_] : std::string(); }
    int lastNumber() const { return int(last_) + 1; }

private:
    const std::vector<std::string>& lines_;
    size_t next_ = 0, last_ = 0;
};

// The numbers of a line, in turn; a missing one reads 0.
class Numbers {
public:
    explicit Numbers(std::string line) : rest_(std::move(line)) {}
    std::string token() { return text::NextToken(rest_, std::string()); }
    float single() { return text::CSng(text::Val(token())); }
    std::int16_t whole() { return text::CInt(text::Val(token())); }
    bool flag() { return text::Val(token()) != 0; }

private:
    std::string rest_;
};

// While a file is read its logical elements stand in a fixed buffer: a 21st is a subscript fault.
class Buffer {
public:
    LogicalElement& at(int i) {
        if (i < 0 || i > kMaxLogicalElements) RaiseSubscript();
        return entries_[size_t(i)];
    }

private:
    std::array<LogicalElement, kMaxLogicalElements + 1> entries_{};
};

void Limit(float& lo, float& hi, bool fraction) {
    lo = std::max(lo, 0.0f);
    hi = std::max(hi, 0.0f);
    if (fraction) {
        lo = std::min(lo, 1.0f);
        hi = std::min(hi, 1.0f);
    }
    if (lo > hi) std::swap(lo, hi);
}

std::int16_t KindOf(const std::string& roughLine) {
    const std::string upper = text::Upper(roughLine);
    std::string behind = upper.substr(upper.find("ROUGH") + 5);
    const std::string word = text::NextToken(behind, std::string());
    if (word == "GAUSS") return 1;
    if (word == "GAMMA") return 2;
    return 0;
}

class StructureReader {
public:
    StructureReader(Session& s, const std::string& name, const std::vector<std::string>& lines)
        : s_(s), name_(name), lines_(lines), cur_(lines) {}

    // True on failure.
    bool run(RealElementList* elements) {
        try {
            return read(elements);
        } catch (const std::exception&) {
            readError(cur_.last(), cur_.lastNumber());
            return true;
        }
    }

private:
    void readError(const std::string& line, int number) {
        MsgBox(s_,
               "Structure file error: " + name_ + ".str" + ", last line read: " + line + " at line number " +
                   text::CStr(number),
               mb::OKOnly, kReadErrorTitle);
    }

    bool read(RealElementList* elements) {
        StructureRecord& st = s_.Structure;
        if (lines_.empty()) {
            WarningBox(s_, "Unable to read " + name_ + ": it appears to be zero length", "ReadStructureFile error");
            return true;
        }
        Numbers first(cur_.take());
        const float thicknessMin = first.single();
        const float thicknessMax = first.single();
        const std::int16_t nle = Numbers(cur_.take()).whole();

        int i = 1;
        bool inclusion = false;
        for (i = 1; i <= nle; ++i) {
            if (!readLogicalElement(i, inclusion)) return true;
            if (inclusion) break;
        }
        if (inclusion ? i != nle : i != nle + 1) {
            MsgBox(s_, "Structure file error: " + name_ + ".str" + ", last line read: " + cur_.last(), mb::OKOnly,
                   "vkscontrol.ReadStructureFile: #elts error");
            return true;
        }

        InclusionRecord inc;
        RoughnessRecord rough;
        bool hasRoughness = false;
        if (inclusion) readInclusions(i, inc);
        if (cur_.more()) readBlocks(rough, hasRoughness);

        const int count = nElements_ + nMolecules_ + (inclusion ? 1 : 0);
        Sample& sample = s_.current();
        sample.NStructA = nElements_;
        sample.NStructB = nMolecules_;
        TargetRecList read;
        read.LogicalElements.resize(size_t(count) + 1);
        read.LogicalElements[0].MoleculeIndex = -1;
        for (int k = 1; k <= count; ++k) read.LogicalElements[size_t(k)] = buffer_.at(k);
        read.LECount = std::int16_t(count);
        if (!AssignMRL(s_, read.Molecules, molecules_)) return true;
        read.ElementLECount = std::int16_t(read.LECount - read.Molecules.MoleculeCount);
        RealElementList real;
        AssignElementList(s_, read, std::int16_t(nElements_ + nMolecules_), real);
        if (real.RealElementCount == 0) {
            MsgBox(s_, "No elements defined in structure file " + name_, mb::OKOnly, "");
            return true;
        }

        st.StructureFile = name_.find('.') == std::string::npos ? name_ + ".str" : name_;
        st.Modified = false;
        st.ThicknessMin = thicknessMin;
        st.ThicknessMax = thicknessMax;
        st.NLE = nle;
        st.NMolecules = nMolecules_;
        st.NElements = nElements_;
        st.HasInclusions = inclusion;
        st.HasRoughness = hasRoughness;
        st.Inclusions = inc;
        st.Roughness = rough;
        if (!AssignTRL(s_, st.Targets, read)) return true;

        // Parse_Mol never raises the repair warning bit, so this question is never asked: a repair
        // stays in memory until the user saves.
        if (corrected_ &&
            MsgBox(s_, "Structure file " + name_ + " has been corrected,  do you want to save it to disc?", mb::YesNo,
                   "ReadStructureFile warning") == mb::Yes)
            WriteStructureFile(s_, name_);

        st.NotAssigned = false;
        if (elements) *elements = std::move(real);
        return false;
    }

    // One logical element: name line, range line, limit line. False after a box that ends the read.
    bool readLogicalElement(int i, bool& inclusion) {
        const std::string& line = cur_.take();
        const int lineNumber = cur_.lastNumber();
        if (line.size() > 132 && s_.VKSversionNumber < 9505)
            WarningBox(s_, "Warning:  Molecule " + line + " exceeds 132 characters.",
                       "ReadStructureFile warning for VKS versions below 9.5e");
        LogicalElement& le = buffer_.at(i);
        le = LogicalElement{};
        le.LEFileLine = line;
        le.LEComposition = line;
        if (!line.empty() && line[0] == '?') {
            MsgBox(s_, "Structure file error: " + name_ + ".str" + ", last line read: " + line, mb::OKOnly,
                   "vkscontrol.ReadStructureFile: '?' element not allowed");
            return false;
        }
        if (IsInclusionWord(line)) {
            inclusion = true;
            return true;
        }
        std::string separator;
        const int tokens = text::CountTokens(line, separator);
        if (tokens == 3)
            MsgBox(s_, "The '?' syntax for unknown element is obsolete since VKSv7.9b", mb::OKOnly,
                   "ReadStructureFile error");
        if (tokens == 0 || tokens == 3) {
            readError(line, lineNumber);
            return false;
        }

        std::string parsed = line;
        Molecule mol;
        std::int16_t position = 0;
        if (tokens >= 4) {
            const std::int32_t code = Parse_Mol(s_, parsed, mol, position);
            nMolecules_ = text::Add16(nMolecules_, 1);
            std::int16_t number = 0;
            if (!AddMoleculeToList(molecules_, mol, number, std::int16_t(i)))
                MsgBox(s_, "problem assigning molecule", mb::OKOnly, "ReadStructureFile Error");
            le.MoleculeIndex = nMolecules_;
            le.LEDensity = mol.MolAtomicDensity;
            le.LEDensityGiven = mol.MolDensityGiven;
            le.LEMassDensity = mol.MolMassDensity;
            le.LEAverageMass = mol.MolAverageMass;
            le.LEName = mol.MolName;
            if (code < 0 && (-code & 8)) corrected_ = true;
        } else {
            nElements_ = text::Add16(nElements_, 1);
            le.MoleculeIndex = -1;
            Parse_Mol(s_, parsed, mol, position);
            SetElementFields(le, mol);
            le.LEDensityGiven = tokens == 2;
        }
        // A molecule the parser refused has no text: the line stands for it.
        if (!mol.MolText.empty()) le.LEComposition = mol.MolText;

        const std::string range = cur_.take();
        le.IsSubstrate = le.IsDelta = le.HasFormula = false;
        if (text::Lower(range).find('f') != std::string::npos) {
            le.FormulaFile = cur_.take();
            checkFormula(s_, le.FormulaFile);
            le.HasFormula = true;
        } else {
            Numbers depth(range);
            le.DepthMin = depth.single();
            le.DepthMax = depth.single();
            const std::string limit = text::Lower(cur_.take());
            if (limit.find('s') != std::string::npos) {
                le.IsSubstrate = true;
            } else if (limit.find('d') != std::string::npos) {
                le.IsDelta = true;
            } else {
                Numbers conc(limit);
                le.ConcMin = conc.single();
                le.ConcMax = conc.single();
            }
        }
        Limit(le.DepthMin, le.DepthMax, false);
        Limit(le.ConcMin, le.ConcMax, true);
        return true;
    }

    // The block behind the inclusion word; its logical element takes place `at`.
    void readInclusions(int at, InclusionRecord& inc) {
        inc.InclusionType = Contains(buffer_.at(at).LEFileLine, "SPHERE") ? 1 : 2;
        inc.MadeOf = Numbers(cur_.take()).whole();
        Numbers sizes(cur_.take());
        inc.Radius = sizes.single();
        if (inc.InclusionType == 2) inc.Height = sizes.single();
        inc.OrganisationFactor = sizes.single();
        Numbers depth(cur_.take());
        inc.InclDepthMin = depth.single();
        inc.InclDepthMax = depth.single();
        Numbers conc(cur_.take());
        inc.InclConcMin = conc.single();
        inc.InclConcMax = conc.single();

        const LogicalElement madeOf = inc.MadeOf == 0 ? LogicalElement{} : buffer_.at(inc.MadeOf);
        LogicalElement& le = buffer_.at(nElements_ + nMolecules_ + 1);
        if (inc.MadeOf == 0) {
            le.LEName = "Voids";
            le.LEComposition = "Voids";
            le.LEDensity = le.LEMassDensity = le.LEAverageMass = 0;
        } else {
            le.LEDensity = madeOf.LEDensity;
            le.LEMassDensity = madeOf.LEMassDensity;
            le.LEAverageMass = madeOf.LEAverageMass;
            le.LEComposition = madeOf.LEComposition;
            le.LEName = (inc.InclusionType == 1 ? "Spher.inclusions: " : "Cylin.inclusions: ") + madeOf.LEComposition;
        }
        le.DepthMin = inc.InclDepthMin;
        le.DepthMax = inc.InclDepthMax;
        le.ConcMin = inc.InclConcMin;
        le.ConcMax = inc.InclConcMax;
        le.LEDensityGiven = false;
    }

    // The roughness and surface blocks, from the next line on.
    void readBlocks(RoughnessRecord& rough, bool& hasRoughness) {
        std::string line = cur_.take();
        if (Contains(line, "ROUGH")) {
            hasRoughness = true;
            rough.RoughKind = KindOf(line);
            line = cur_.takeOrEmpty();
            std::string separator;
            if (text::CountTokens(line, separator) == 3) {
                Numbers models(line);
                rough.ModelA = models.whole();
                rough.ModelB = models.whole();
                rough.ModelC = models.whole();
                rough.ModelFlagsRead = true;
                const auto pair = [&](float& value, bool& fit) {
                    Numbers n(cur_.takeOrEmpty());
                    value = n.single();
                    fit = n.flag();
                };
                pair(rough.DTheta, rough.DThetaFit);
                pair(rough.DX, rough.DXFit);
                pair(rough.CorrelationLength, rough.CorrelationFit);
                if (!cur_.more()) return;
                line = cur_.take();
            } else if (text::Upper(line) != "SURFACE") {
                MsgBox(s_, "Problem with roughness model flags", mb::OKOnly, kBlockErrorTitle);
                return;
            }
        }
        if (Contains(line, "SURFACE")) readSurface(rough, hasRoughness);
    }

    void readSurface(RoughnessRecord& rough, bool& hasRoughness) {
        rough.HasSurface = true;
        hasRoughness = true;
        for (int k = 0; k < 3 && cur_.more(); ++k) {
            const std::string& line = cur_.take();
            std::string separator;
            Numbers n(line);
            const bool twoTokens = text::CountTokens(line, separator) == 2;
            const std::string head = n.token();
            if (!twoTokens || (k == 2 && head != "1")) {
                MsgBox(s_, "Problem with Gurbich roughness model flags: line number = " + text::CStr(cur_.lastNumber()),
                       mb::OKOnly, kBlockErrorTitle);
                return;
            }
            if (k == 0) {
                rough.AsperitySeparation = text::CSng(text::Val(head));
                rough.SeparationFit = n.flag();
            } else if (k == 1) {
                rough.AsperityDeviation = text::CSng(text::Val(head));
                rough.DeviationFit = n.flag();
            } else {
                rough.SurfaceLayers = n.whole();
            }
        }
        const ProfileRecord& profile = s_.Profile;
        if (rough.SurfaceLayers > profile.Layers)
            WarningBox(s_,
                       "Problem with Gurbich roughness model flags: number of surface layers ( = " +
                           text::CStr(int(rough.SurfaceLayers)) + ") is greater than the number of layers ( = " +
                           text::CStr(int(profile.Layers)) + ") in the profile file: " +
                           (profile.ProfileFile.empty() ? std::string("(is null)") : profile.ProfileFile),
                       "VKScontrol.ReadStructureFile warning");
    }

    Session& s_;
    const std::string& name_;
    const std::vector<std::string>& lines_;
    Cursor cur_;
    Buffer buffer_;
    MoleculeRecList molecules_;
    std::int16_t nElements_ = 0, nMolecules_ = 0;
    bool corrected_ = false;
};

}  // namespace

bool ReadInFile(Session& s, const std::string& Source, std::vector<std::string>& Lines, int& LineCount,
                int& LongestLine, const std::vector<std::string>* editorList) {
    Lines.clear();
    LineCount = 0;
    LongestLine = 0;
    std::vector<std::string> raw;
    if (Source == kEditorList) {
        if (editorList) raw = *editorList;
    } else {
        const std::string name = text::FileNameOf(Source);
        std::optional<std::string> bytes;
        if (FileExists(s, name))
            if (const auto path = platform::ResolvePath(InWorkDir(s, name))) bytes = platform::ReadFileBytes(*path);
        if (!bytes) {
            WarningBox(s, "File " + name + " not found", "Read File Error (vkscontrol.ReadInFile)");
            return false;
        }
        raw = text::SplitLines(*bytes);
    }
    for (const std::string& line : raw) {
        std::string normal = NormaliseBlanks(line);
        if (normal.empty()) continue;
        LongestLine = std::max(LongestLine, int(normal.size()));
        Lines.push_back(std::move(normal));
    }
    LineCount = int(Lines.size());
    return true;
}

bool ReadStructureLines(Session& s, const std::string& name, const std::vector<std::string>& lines,
                        RealElementList* elements) {
    s.Structure.Roughness = RoughnessRecord{};
    s.Structure.Inclusions = InclusionRecord{};
    s.Structure.NotAssigned = true;
    return StructureReader(s, name, lines).run(elements);
}

bool ReadStructureFile(Session& s, const std::string& Name, const std::vector<std::string>* editorList,
                       RealElementList* elements) {
    const bool fromEditor = Name == kEditorList;
    std::string name = fromEditor ? BaseOf(s.Structure.StructureFile) : BaseOf(Name);
    if (!fromEditor) {
        if (name.empty()) {
            name = "null";
            platform::WriteFileSafely(InWorkDir(s, "null.str"), kNullStructure);
        } else if (!FileExists(s, name + ".str")) {
            return true;
        }
    }
    s.Structure.Roughness = RoughnessRecord{};
    s.Structure.Inclusions = InclusionRecord{};
    s.Structure.NotAssigned = true;
    std::vector<std::string> lines;
    int count = 0, longest = 0;
    if (!ReadInFile(s, fromEditor ? Name : name + ".str", lines, count, longest, editorList)) return true;
    return ReadStructureLines(s, name, lines, elements);
}

}  // namespace halvo
