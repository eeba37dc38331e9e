// Profile files and variation flags: show, check against a structure, edit columns, write the
// default profile, and show the flags the engine would use.
#include <iostream>
#include <map>
#include <set>

#include "cli.h"
#include "sample/element_table.h"
#include "sample/profile_file.h"
#include "sample/structure_file.h"
#include "sample/variation_flags.h"
#include "text/numbers.h"

namespace halvo::cli {
namespace {

// Positional arguments and options; an option in `withValue` takes the next argument.
struct Parsed {
    std::vector<std::string> positional;
    std::map<std::string, std::string> options;
    bool ok = true;
    bool has(const std::string& o) const { return options.count(o) > 0; }
};

Parsed Parse(const std::vector<std::string>& a, const std::set<std::string>& withValue,
             const std::set<std::string>& flags) {
    Parsed p;
    for (size_t i = 0; i < a.size(); ++i) {
        if (withValue.count(a[i])) {
            if (i + 1 >= a.size()) {
                p.ok = false;
            } else {
                p.options[a[i]] = a[i + 1];
                ++i;
            }
        } else if (flags.count(a[i])) {
            p.options[a[i]] = "";
        } else if (a[i].starts_with("--") && a[i].size() > 2) {
            p.ok = false;
        } else {
            p.positional.push_back(a[i]);
        }
    }
    return p;
}

bool Whole(const std::string& s, int& out) {
    if (!text::IsNumeric(s)) return false;
    const double v = text::Val(s);
    if (v != text::Fix(v) || v < -32768 || v > 32767) return false;
    out = int(v);
    return true;
}

// The structure: read from --structure (with the data tables of the engine directory), or its shape
// from --nle, --inclusions and --roughness (the model of its first flags line). False for misuse;
// `read` is false when the structure file could not be read.
bool ApplyShape(Session& s, const Parsed& p, bool& read) {
    read = true;
    if (p.has("--structure")) {
        if (p.has("--nle") || p.has("--inclusions") || p.has("--roughness")) return false;
        read = LoadElementTables(s) && !ReadStructureFile(s, p.options.at("--structure"));
        return true;
    }
    int nle = 0;
    if (!p.has("--nle") || !Whole(p.options.at("--nle"), nle) || nle < 1) return false;
    s.Structure = StructureRecord{};
    s.Structure.NLE = std::int16_t(nle);
    s.Structure.HasInclusions = p.has("--inclusions");
    if (p.has("--roughness")) {
        int model = 0;
        if (!Whole(p.options.at("--roughness"), model)) return false;
        s.Structure.HasRoughness = true;
        s.Structure.Roughness.ModelA = std::int16_t(model);
        s.Structure.Roughness.ModelFlagsRead = true;
    }
    return true;
}

const std::set<std::string> kShapeValues = {"--structure", "--nle", "--roughness"};
const std::set<std::string> kShapeFlags = {"--inclusions"};

std::string JsonNumber(float v) { return text::GeneralNumber(v); }
std::string JsonBool(bool b) { return b ? "true" : "false"; }

template <class T, class Format>
std::string JsonRows(const LayerTable<T>& t, Format format) {
    std::string out = "[";
    for (int layer = 1; layer <= t.layers(); ++layer) {
        out += layer > 1 ? ",[" : "[";
        for (int c = 0; c <= t.columns(); ++c) out += (c ? "," : "") + format(t(c, layer));
        out += "]";
    }
    return out + "]";
}

template <class T, class Format>
void PrintRows(const LayerTable<T>& t, Format format) {
    for (int layer = 1; layer <= t.layers(); ++layer) {
        std::cout << "  " << layer << ":";
        for (int c = 0; c <= t.columns(); ++c) std::cout << " " << format(t(c, layer));
        std::cout << "\n";
    }
}

std::string PlainFloat(float v) { return text::CStr(v); }
std::string Flag(std::int16_t v) { return std::to_string(v); }

int Show(Context& c, const std::vector<std::string>& a) {
    const Command& self = Registry().at("profile-show");
    const Parsed p = Parse(a, kShapeValues, kShapeFlags);
    bool read = false;
    if (!p.ok || p.positional.size() != 1 || !ApplyShape(c.session, p, read)) return Misuse(self);
    ProfileRecord rec;
    if (!read || !ReadPRF(c.session, p.positional[0], rec, "")) return kFailed;
    if (c.json) {
        c.putString("file", rec.ProfileFile);
        c.put("layers", std::to_string(rec.Layers));
        c.put("profileLE", std::to_string(rec.ProfileLE));
        c.put("hasRoughColumns", JsonBool(rec.HasRoughColumns));
        c.put("hasRoughFlag", JsonBool(rec.HasRoughFlag));
        c.put("raw", JsonRows(rec.RawValues, JsonNumber));
        c.put("fractions", JsonRows(rec.Fractions, JsonNumber));
        return kOk;
    }
    std::cout << rec.ProfileFile << ": " << rec.Layers << " layers, " << rec.ProfileLE
              << " logical elements, roughness column " << (rec.HasRoughColumns ? "yes" : "no")
              << ", fit flag column " << (rec.HasRoughFlag ? "yes" : "no") << "\n"
              << "raw values (column 0 is the thickness):\n";
    PrintRows(rec.RawValues, PlainFloat);
    std::cout << "fractions:\n";
    PrintRows(rec.Fractions, PlainFloat);
    return kOk;
}

int Check(Context& c, const std::vector<std::string>& a) {
    const Command& self = Registry().at("profile-check");
    const Parsed p = Parse(a, {"--speed", "--mode"}, {});
    if (!p.ok || p.positional.size() != 2) return Misuse(self);
    TechnicalRecord& t = c.session.TCNdummy;
    if (p.has("--speed")) t.Speed = p.options.at("--speed");
    if (p.has("--mode")) {
        int mode = 0;
        if (!Whole(p.options.at("--mode"), mode)) return Misuse(self);
        t.Mode = std::int16_t(mode);
    }
    const bool passes = chkPRF(c.session, p.positional[0], p.positional[1]);
    if (c.json) c.put("passes", JsonBool(passes));
    else std::cout << (passes ? "passes" : "fails") << "\n";
    return passes ? kOk : kFailed;
}

int Column(Context& c, const std::vector<std::string>& a) {
    const Command& self = Registry().at("profile-column");
    if (a.size() < 3) return Misuse(self);
    const std::string& op = a[0];
    const std::string& file = a[1];
    int n = 0, m = 0;
    if (!Whole(a[2], n)) return Misuse(self);
    bool done;
    if (op == "add" && a.size() == 3) {
        done = PRFaddLE(c.session, std::int16_t(n), file);
    } else if (op == "del" && a.size() == 3) {
        done = PRFdelLE(c.session, std::int16_t(n), file);
    } else if (op == "swap" && a.size() == 4 && Whole(a[3], m)) {
        done = PRFswap(c.session, std::int16_t(n), std::int16_t(m), file);
    } else {
        return Misuse(self);
    }
    if (c.json) c.put("done", JsonBool(done));
    else if (done) std::cout << "rewrote " << file << " (the previous contents are in " << file << "~)\n";
    return done ? kOk : kFailed;
}

int Default(Context& c, const std::vector<std::string>& a) {
    const Command& self = Registry().at("profile-default");
    const Parsed p = Parse(a, kShapeValues, kShapeFlags);
    bool read = false;
    if (!p.ok || p.positional.size() != 1 || !ApplyShape(c.session, p, read)) return Misuse(self);
    if (!read) return kFailed;
    const bool done = WriteDefaultPRF(c.session, p.positional[0]);
    if (c.json) c.put("done", JsonBool(done));
    else if (done) std::cout << "wrote " << p.positional[0] << "\n";
    else std::cerr << "halvo-cli: profile-default: cannot write " << p.positional[0] << "\n";
    return done ? kOk : kFailed;
}

int Flags(Context& c, const std::vector<std::string>& a) {
    const Command& self = Registry().at("flags-show");
    const Parsed p = Parse(a, kShapeValues, kShapeFlags);
    bool read = false;
    if (!p.ok || p.positional.size() != 1 || !ApplyShape(c.session, p, read)) return Misuse(self);
    ProfileRecord rec;
    if (!read || !ReadPRF(c.session, p.positional[0], rec, "")) return kFailed;
    ReadVariationFlags(c.session, rec);
    if (c.json) {
        c.putString("file", rec.ProfileFile);
        c.put("layers", std::to_string(rec.Layers));
        c.put("numColumns", std::to_string(NumColumns(c.session, rec)));
        c.put("flags", JsonRows(rec.FitFlags, Flag));
        return kOk;
    }
    std::cout << rec.ProfileFile << ": " << rec.Layers << " layers, flags for columns 0 to "
              << NumColumns(c.session, rec) << " (0 fixed; anything else may vary, and the default rule gives -1):\n";
    PrintRows(rec.FitFlags, Flag);
    return kOk;
}

const Register show{{"profile-show", "FILE.prf --structure FILE.str | --nle N [--inclusions] [--roughness MODEL]",
                     "read a profile for its structure and show its values and fractions", Show}};
const Register check{{"profile-check", "FILE.prf FILE.str [--speed S] [--mode M]",
                      "check a profile against its structure file for the run of that speed and mode", Check}};
const Register column{{"profile-column", "add|del|swap FILE.prf N [M]",
                       "insert an all-zero column behind column N, delete column N, or swap columns N and M", Column}};
const Register fallback{{"profile-default", "FILE.prf --structure FILE.str | --nle N [--inclusions] [--roughness MODEL]",
                         "write the default profile: one 100 TFU layer of each pure logical element", Default}};
const Register flags{{"flags-show", "FILE.prf --structure FILE.str | --nle N [--inclusions] [--roughness MODEL]",
                      "the variation flags of a profile: from VKSPRF.ORD of the working directory, or by default",
                      Flags}};

}  // namespace
}  // namespace halvo::cli
