// Feeds arbitrary bytes to the variation flags reader as "VKSPRF.ORD", for a profile whose shape and
// values come from the first bytes; then writes the flags and reads them back, which must give the
// same pattern of fixed and free cells.
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <string>

#include "sample/variation_flags.h"
#include "fuzz_support.h"
#include "session/session.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace halvo;
    if (size < 3) return 0;
    {
        std::ofstream out(halvo::fuzz::ScratchDir("flags") + "/VKSPRF.ORD", std::ios::binary | std::ios::trunc);
        out.write(reinterpret_cast<const char*>(data) + 3, std::streamsize(size - 3));
    }
    Session s;
    s.FilePath = halvo::fuzz::ScratchDir("flags");
    s.Structure.NLE = std::int16_t(data[0] % 21);
    ProfileRecord p;
    p.Layers = std::int16_t(data[1] % 41);
    p.ProfileLE = std::int16_t(data[0] & 0x80 ? 0 : s.Structure.NLE);  // 0: taken from the structure
    p.HasRoughColumns = (data[2] & 1) != 0;
    const int columns = s.Structure.NLE + 1;
    p.RawValues.resize(columns, p.Layers);
    for (int layer = 1; layer <= p.Layers; ++layer)
        for (int c = 0; c <= columns; ++c) p.RawValues(c, layer) = float(data[(layer * 7 + c * 3) % size] % 3);

    ReadVariationFlags(s, p);
    if (p.ProfileLE != s.Structure.NLE) std::abort();
    const int numColumns = NumColumns(s, p);
    if (p.FitFlags.columns() != numColumns || p.FitFlags.layers() != p.Layers) std::abort();

    if (!WriteVariationFlags(s, p)) return 0;
    ProfileRecord again = p;
    again.RawValues.clear();  // the file alone must give the flags back
    ReadVariationFlags(s, again);
    for (int layer = 1; layer <= p.Layers; ++layer)
        for (int c = 0; c <= numColumns; ++c)
            if ((again.FitFlags(c, layer) != 0) != (p.FitFlags(c, layer) != 0)) std::abort();
    return 0;
}
