// Feeds arbitrary text to the molecule parsers, with the shipped data tables. The first byte picks the
// session's state (warnings, engine version); a fault of the classic runtime (an element past uranium,
// a 16-bit overflow) is what the caller's trap reports and counts as a clean end. Anything else that
// escapes, and every sanitizer report, is a finding.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "sample/density.h"
#include "sample/element_table.h"
#include "sample/logical_element.h"
#include "sample/molecule.h"
#include "fuzz_support.h"
#include "session/session.h"
#include "text/fault.h"

namespace {

const halvo::DataTables& Tables() { return halvo::fuzz::EngineTables(); }

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace halvo;
    static Session s = [] {
        Session session;
        session.Tables = Tables();
        session.PathVKS = halvo::fuzz::EngineDir();
        return session;
    }();
    static DefaultAnswers answers;
    s.ui = &answers;
    const int choice = size > 0 ? data[0] : 0;
    s.WarningsFlag = (choice & 1) != 0;
    s.VKSversionNumber = std::int16_t(choice & 2 ? 9505 : 0);
    const std::string input(reinterpret_cast<const char*>(data) + (size > 0 ? 1 : 0), size > 0 ? size - 1 : 0);

    std::int16_t position = 0;
    try {
        std::string text = input;
        Molecule mol;
        const std::int32_t code = Parse_Mol(s, text, mol, position);
        MoleculeErrorText(code);
        if (code <= 0 && !mol.MolText.empty()) {
            std::int16_t decimals = -1;
            FormatNumber(mol.MolAtomicDensity, decimals);
            TargetRecList list;
            if (LEinsertMol(s, mol, list, 1)) {
                RealElementList real;
                AssignElementList(s, list, list.LECount, real);
            }
        }
    } catch (const RuntimeFault&) {
    }
    try {
        std::string text = input;
        SubMolecule sub;
        const std::int32_t code = Parse_SMol(s, text, sub, position);
        if (code <= 0 && sub.ElementCount > 0) Rho2Density(s, sub);
    } catch (const RuntimeFault&) {
    }
    try {
        std::string name = input.substr(0, 16);
        std::int16_t z = 0, a = 0, failed = 0;
        float mass = 0;
        ElementSelection selection;
        selection.SelectionMode = std::int16_t(choice & 4 ? 99 : 0);
        assignZA(s, name, z, mass, a, failed, selection, s.AnalysisKind);
    } catch (const RuntimeFault&) {
    }
    return 0;
}
