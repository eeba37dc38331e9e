#include "sample/element_table.h"

#include <cmath>
#include <exception>

#include "halvo/version.h"
#include "platform/files.h"
#include "sample/density.h"
#include "session/session.h"
#include "text/fault.h"
#include "text/lines.h"
#include "text/numbers.h"
#include "text/tokens.h"

namespace halvo {
namespace {

// "Integer part" into a 16-bit field: floors, and a value outside the type is an overflow.
std::int16_t IntPart16(double v) {
    const double f = text::Int(v);
    if (!(f >= -32768.0 && f <= 32767.0)) RaiseOverflow();
    return std::int16_t(f);
}

// Lines of a table file; reading past the last one is the classic "Input past end of file".
class TableLines {
public:
    explicit TableLines(std::string_view bytes) : reader_(bytes) {}
    std::string next() {
        std::string line;
        if (!reader_.next(line)) RaiseInputPastEnd();
        return line;
    }

private:
    text::LineReader reader_;
};

// The free-field stream of compound.dat: items end at a comma or a line end, a quoted string runs to
// its closing quote, blanks around items are dropped.
class FreeFieldReader {
public:
    explicit FreeFieldReader(std::string_view bytes) : in_(bytes) {}

    bool atEnd() {
        while (pos_ < in_.size() && IsSpace(in_[pos_])) ++pos_;
        return pos_ >= in_.size();
    }

    std::string item() {
        while (pos_ < in_.size() && (in_[pos_] == ' ' || in_[pos_] == '\t')) ++pos_;
        if (pos_ >= in_.size()) RaiseInputPastEnd();
        std::string out;
        if (in_[pos_] == '"') {
            const auto close = in_.find('"', pos_ + 1);
            const size_t end = close == std::string_view::npos ? in_.size() : close;
            out = std::string(in_.substr(pos_ + 1, end - pos_ - 1));
            pos_ = close == std::string_view::npos ? in_.size() : close + 1;
            while (pos_ < in_.size() && in_[pos_] != ',' && in_[pos_] != '\r' && in_[pos_] != '\n') ++pos_;
        } else {
            const size_t start = pos_;
            while (pos_ < in_.size() && in_[pos_] != ',' && in_[pos_] != '\r' && in_[pos_] != '\n') ++pos_;
            out = text::Trim(in_.substr(start, pos_ - start));
        }
        // One delimiter belongs to the item: a comma, or a line end (CR LF counted once).
        if (pos_ < in_.size()) {
            if (in_[pos_] == '\r' && pos_ + 1 < in_.size() && in_[pos_ + 1] == '\n')
                pos_ += 2;
            else
                ++pos_;
        }
        return out;
    }

private:
    static bool IsSpace(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }
    std::string_view in_;
    size_t pos_ = 0;
};

}  // namespace

const ElementRecord& ElementOf(const Session& s, int Z) {
    if (Z < 1 || Z > int(s.Tables.Elements.size())) RaiseSubscript();
    return s.Tables.Elements[size_t(Z - 1)];
}

std::string SymbolOf(const Session& s, int Z) {
    if (Z <= 0) return "";
    return text::Trim(ElementOf(s, Z).Symbol);
}

void SplitIsotopeToken(const std::string& Token, std::string& Symbol, std::int16_t& A) {
    A = 0;
    if (!Symbol.empty()) {
        // A token shorter than the symbol has no number in front: A stays 0.
        const size_t keep = Token.size() > Symbol.size() ? Token.size() - Symbol.size() : 0;
        A = IntPart16(text::Val(std::string_view(Token).substr(0, keep)));
        return;
    }
    Symbol = Token.size() > 5 ? std::string() : Token;
    while (!Symbol.empty() && Symbol[0] >= '0' && Symbol[0] <= '9') {
        A = text::Add16(text::CInt(double(A) * 10), Symbol[0] - '0');
        Symbol.erase(0, 1);
    }
}

void ReadIsotopes(Session& s, std::string_view bytes) {
    static const std::string kAny;  // no separator: blanks, tabs and line feeds all cut
    TableLines lines(bytes);
    lines.next();  // header
    for (int z = 1; z <= 92; ++z) {
        ElementRecord& e = s.Tables.Elements[size_t(z - 1)];
        std::string rest = lines.next();
        e.Name = text::NextToken(rest, kAny);
        std::string token = text::NextToken(rest, kAny);
        if (token.find('(') != std::string::npos) {
            e.LatinName = token;
            token = text::NextToken(rest, kAny);
        } else {
            e.LatinName.clear();
        }
        e.Z = IntPart16(text::Val(token));
        e.IsotopeCount = 0;
        e.IsotopeList.clear();
        std::string symbol;
        for (int n = 1; n <= 7 && !rest.empty(); ++n) {
            const std::string iso = text::NextToken(rest, kAny);
            std::int16_t a = 0;
            SplitIsotopeToken(iso, symbol, a);
            if (n == 1) e.Symbol = symbol;
            e.IsotopeA[size_t(n)] = a;
            e.IsotopeMass[size_t(n)] = text::CSng(text::Val(text::NextToken(rest, kAny)));
            e.IsotopeAbundance[size_t(n)] = text::CSng(text::Val(text::NextToken(rest, kAny)));
            e.IsotopeCount = std::int16_t(n);
            e.IsotopeList += iso;
        }
    }
    s.Tables.IsotopesLoaded = true;
}

void ReadPscoef(Session& s, std::string_view bytes, int& lineZ) {
    static const std::string kAny;
    TableLines lines(bytes);
    for (lineZ = 1; lineZ <= 92; ++lineZ) {
        ElementRecord& e = s.Tables.Elements[size_t(lineZ - 1)];
        std::string rest = lines.next();
        text::NextToken(rest, kAny);
        e.IsotopeA[0] = IntPart16(text::Val(text::NextToken(rest, kAny)));
        e.IsotopeMass[0] = text::CSng(text::Val(text::NextToken(rest, kAny)));
        e.AMASS = text::CSng(text::Val(text::NextToken(rest, kAny)));
        e.MassDensity = text::CSng(text::Val(text::NextToken(rest, kAny)));
        e.AtomicDensity = text::CSng(text::Val(text::NextToken(rest, kAny)));
    }
    s.Tables.PscoefLoaded = true;
}

void ReadCompounds(Session& s, std::string_view bytes) {
    CompoundTable& table = s.Tables.Compounds;
    table.Compounds.clear();
    table.CompoundCount = -1;
    FreeFieldReader in(bytes);
    while (!in.atEnd()) {
        table.Compounds.emplace_back();
        SubMolecule& c = table.Compounds.back();
        c.SubName = in.item();
        const std::int16_t n = text::CInt(text::Val(in.item()));
        if (n < 0) RaiseSubscript();
        c.resize(n);
        c.ElementCount = n;
        c.Isotopes[0].clear();
        float sum = 0, sumMass = 0;
        for (int i = 1; i <= n; ++i) {
            std::string name = in.item();
            const float conc = text::CSng(text::Val(in.item()));
            sum += conc;
            std::int16_t z = 0, a = 0, failed = 0;
            float mass = 0;
            ElementSelection sel;
            assignZA(s, name, z, mass, a, failed, sel, s.AnalysisKind);
            const std::string symbol = SymbolOf(s, z);
            c.Symbols[size_t(i)] = symbol;
            c.Isotopes[size_t(i)] = text::Trim(sel.SelName);
            c.AtomicNumbers[size_t(i)] = z;
            c.Masses[size_t(i)] = mass;
            c.Concentrations[size_t(i)] = conc;
            c.MassNumbers[size_t(i)] = sel.SelIsotopeIndex == 0 ? std::int16_t(-1) : a;
            c.Isotopes[0] += " " + symbol + " " + text::CStr(conc);
            // Deliberately m x (m x c): a provisional mean that Rho2Density below replaces.
            sumMass += mass * (mass * conc);
        }
        c.Isotopes[0] = text::Trim(c.Isotopes[0]);
        c.Concentrations[0] = sum;
        if (sum == 0) throw RuntimeFault(RuntimeFault::DivisionByZero, "Division by zero");
        c.Masses[0] = sumMass / sum;
        c.SubMassDensity = text::CSng(text::Val(in.item()));
        c.SubAtomicDensity = Rho2Density(s, c);
        table.CompoundCount = text::Add16(table.CompoundCount, 1);
    }
    s.Tables.CompoundsLoaded = true;
}

namespace {

// The start-up trap's text, with the state it was in.
std::string StartErrorText(const Session& s) {
    const std::string caption = "Halvo v" + std::to_string(version::major) + "." + std::to_string(version::minor) +
                                "." + std::to_string(version::revision) +
                                (s.VKSshortver.empty() ? "" : ":  running VKS version " + s.VKSshortver);
    return std::string("Unexpected Halvo start error (Cancel to exit Halvo)") + "\n" +
           "PathVKS,VKSlongver,Halvo_MDI.Caption,FilePath,dlg_FileName,datafile = " + s.PathVKS + " " + s.VKSlongver +
           " " + caption + " " + s.FilePath + " " + s.dlg_FileName + " " + "";
}

bool LoadError(Session& s, const std::string& text) {
    return MsgBox(s, text, mb::OKCancel | mb::Exclamation, "Halvo load error") != mb::Cancel;
}

std::optional<std::string> TableBytes(Session& s, const std::string& name) {
    const std::string path = s.PathVKS + "/" + name;
    if (!FileExists(s, path, 1)) return std::nullopt;
    const auto found = platform::ResolvePath(path);
    if (!found) return std::nullopt;
    return platform::ReadFileBytes(*found);
}

}  // namespace

bool LoadElementTables(Session& s) {
    s.Tables = DataTables{};
    if (const auto bytes = TableBytes(s, "isotopes.dat")) {
        try {
            ReadIsotopes(s, *bytes);
        } catch (const std::exception&) {
            if (!LoadError(s, "Unexpected error handling Isotopes.dat file (Cancel to exit Halvo)")) return false;
        }
    }
    if (const auto bytes = TableBytes(s, "pscoef.dat")) {
        int lineZ = 0;
        try {
            ReadPscoef(s, *bytes, lineZ);
        } catch (const std::exception&) {
            if (!LoadError(s, "Error in pscoef.dat file, line number (Z) =" + std::to_string(lineZ) +
                                  " (Cancel to exit Halvo)"))
                return false;
        }
    }
    if (const auto bytes = TableBytes(s, "compound.dat")) {
        try {
            ReadCompounds(s, *bytes);
        } catch (const std::exception&) {
            if (!LoadError(s, StartErrorText(s))) return false;
        }
    }
    return true;
}

bool CompoundTableReady(Session& s, const std::string& title) {
    if (s.Tables.CompoundsLoaded) return true;
    MsgBox(s, "Sorry - Can't read compound.dat", mb::OKOnly | mb::Exclamation, title);
    return false;
}

}  // namespace halvo
