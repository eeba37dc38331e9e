// Feeds arbitrary bytes to the readers of isotopes.dat, pscoef.dat and compound.dat (the first byte
// picks which). The readers raise RuntimeFault for what the load traps report (input past the end,
// overflow); anything else that escapes, and every sanitizer report, is a finding. A compound table
// that loads is then used by the molecule parser.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "sample/element_table.h"
#include "sample/molecule.h"
#include "fuzz_support.h"
#include "session/session.h"
#include "text/fault.h"

namespace {

const halvo::DataTables& Shipped() { return halvo::fuzz::EngineTables(); }

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace halvo;
    static DefaultAnswers answers;
    static Session s;
    s.ui = &answers;
    s.Tables = Shipped();
    const int choice = size > 0 ? data[0] % 3 : 0;
    const std::string bytes(reinterpret_cast<const char*>(data) + (size > 0 ? 1 : 0), size > 0 ? size - 1 : 0);
    try {
        if (choice == 0) {
            ReadIsotopes(s, bytes);
        } else if (choice == 1) {
            int lineZ = 0;
            ReadPscoef(s, bytes, lineZ);
        } else {
            ReadCompounds(s, bytes);
        }
    } catch (const RuntimeFault&) {
        return 0;
    }
    // Whatever loaded must serve the parser.
    for (const char* text : {"Si 1 O 2", "( Ga 1 As 1 ) 9 ( Al 1 As 1 ) ?=1", "H", "28Si 2.3"}) {
        try {
            std::string t = text;
            Molecule mol;
            std::int16_t position = 0;
            Parse_Mol(s, t, mol, position);
        } catch (const RuntimeFault&) {
        }
    }
    return 0;
}
