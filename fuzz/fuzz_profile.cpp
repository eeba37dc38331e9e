// Feeds arbitrary bytes to the profile readers, the column edits and the pre-run check. The first
// byte picks the structure's shape and the run; the rest is the profile, and, behind a line "~~",
// the structure file that the check reads (a built-in one of that shape when there is none).
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <string>

#include "sample/profile_file.h"
#include "sample/variation_flags.h"
#include "fuzz_support.h"
#include "session/session.h"

namespace {

void Write(const std::string& name, const std::string& bytes) {
    std::ofstream out(halvo::fuzz::ScratchDir("profile") + "/" + name, std::ios::binary | std::ios::trunc);
    out << bytes;
}

std::string BuiltInStructure(int nle, bool inclusions, int rough) {
    std::string s = "100\r\n" + std::to_string(nle) + "\r\n";
    for (int i = 1; i < nle + (inclusions ? 0 : 1); ++i) s += "Si\r\n0 0\r\n0 1\r\n";
    if (inclusions) s += "SPHERE\r\n1\r\n10 1\r\n0 0\r\n0 1\r\n";
    if (rough >= 0) s += "ROUGH\r\n" + std::to_string(rough) + " 0 0\r\n0 0\r\n0 0\r\n0 0\r\n";
    return s;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace halvo;
    if (size == 0) return 0;
    const int choice = data[0];
    std::string profile(reinterpret_cast<const char*>(data) + 1, size - 1);
    const int nle = choice % 5 + 1;
    const bool inclusions = (choice & 8) != 0 && nle > 1;
    const int rough = (choice >> 4) % 4 == 3 ? -1 : ((choice >> 4) % 4 == 0 ? 0 : ((choice >> 4) % 4 == 1 ? 1 : 4));
    std::string structure = BuiltInStructure(nle, inclusions, rough);
    if (const auto cut = profile.find("\n~~"); cut != std::string::npos) {
        structure = profile.substr(cut + 3);
        profile.resize(cut + 1);
    }
    Write("fz.prf", profile);
    Write("fz.str", structure);
    Write("VKSPRF.ORD", profile.substr(0, profile.size() / 2));

    ScriptedAnswers answers({choice & 1 ? mb::Cancel : mb::OK});
    Session s;
    s.ui = &answers;
    s.FilePath = halvo::fuzz::ScratchDir("profile");
    s.Structure.NLE = std::int16_t(nle);
    s.Structure.HasInclusions = inclusions;
    s.Structure.HasRoughness = rough >= 0;
    s.Structure.Roughness.ModelA = std::int16_t(rough < 0 ? 0 : rough);
    s.Structure.Roughness.ModelFlagsRead = rough >= 0;
    static const char* const speeds[] = {"0", "p", "x", "6", "1", "7"};
    s.TCNdummy.Speed = speeds[(choice >> 2) % 6];
    s.TCNdummy.Mode = std::int16_t((choice >> 5) % 5 - 1);

    PRFarr raw;
    PRFsetraw(s, raw, "fz.prf");
    ProfileRecord rec;
    if (ReadPRF(s, "fz", rec, ".prf")) {
        ReadVariationFlags(s, rec);
        WriteVariationFlags(s, rec);
    }
    chkPRF(s, "fz", "fz");
    readPRFrec(s, "fz", "prf", true);
    const int column = size > 1 ? data[size - 1] % 8 - 1 : 0;
    switch (choice % 3) {
        case 0: PRFaddLE(s, std::int16_t(column), "fz.prf"); break;
        case 1: PRFdelLE(s, std::int16_t(column), "fz.prf"); break;
        default: PRFswap(s, std::int16_t(column), std::int16_t(column / 2), "fz.prf"); break;
    }
    PRFsetraw(s, raw, "fz.prf");
    return 0;
}
