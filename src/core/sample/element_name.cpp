// assignZA: from whatever a user types for an element, an isotope or a special particle to Z, A and
// mass. Elements past uranium are named by the symbol string but have no table entry: looking one
// up raises the subscript fault for the caller's trap, so they can't be used.
#include "sample/element_table.h"
#include "session/session.h"
#include "text/numbers.h"
#include "text/tokens.h"

namespace halvo {
namespace {

// Place (1-based) of `key` in a two-characters-per-entry string, or 0. A find that straddles two
// entries (an even place) does not count.
int AlignedPlace(std::string_view table, const std::string& key, bool& straddles) {
    const auto at = table.find(key);
    straddles = false;
    if (at == std::string_view::npos) return 0;
    const int place = int(at) + 1;
    if (place % 2 == 0) straddles = true;
    return place;
}

void Refuse(std::int16_t& Z, float& Mass, std::int16_t& A, std::int16_t& Failed) {
    Failed = -1;
    Z = -1;
    Mass = 0;
    A = -1;
}

}  // namespace

void assignZA(Session& s, std::string& Name, std::int16_t& Z, float& Mass, std::int16_t& A, std::int16_t& Failed,
              ElementSelection& Selection, std::int16_t& AnalysisKind) {
    if (!Name.empty() && (Name.front() == ' ' || Name.back() == ' ')) Name = text::Trim(Name);
    const std::string_view n = Name;
    if (n == "nn" || n == "NN" || n == "neutron")
        Name = "NN";
    else if (n == "X-ray" || n == "x" || n == "X")
        Name = "X";
    else if (n == "gamma" || n == "g")
        Name = "G";
    else if (n == "T")
        Name = "3H";
    else if (n == "MB" || n == "mb" || n == "Mb" || n == "mB") {
        Name = "MB";
        Z = 0;
        Mass = 0;
        A = 0;
        AnalysisKind = analysis::MB;
        Selection.TableButton = 0;
        Selection.SelIsotopeIndex = 0;
        return;
    }

    Failed = 0;
    if (Name.empty() || Name.find('.') != std::string::npos || text::IsNumeric(Name))
        return Refuse(Z, Mass, A, Failed);

    size_t digitsEnd = 0;
    while (digitsEnd < Name.size() && Name[digitsEnd] >= '0' && Name[digitsEnd] <= '9') ++digitsEnd;
    const std::string digits = Name.substr(0, digitsEnd);
    const std::string rest = Name.substr(digitsEnd);
    A = digits.empty() ? std::int16_t(0) : text::CInt(text::Val(digits));
    if (text::IsNumeric(rest) || rest.empty() || rest.size() > 2) return Refuse(Z, Mass, A, Failed);

    std::string key = text::Upper(rest.substr(0, 1)) + (rest.size() == 2 ? text::Lower(rest.substr(1, 1)) : " ");
    bool straddles = false;
    const int place = AlignedPlace(kElementSymbols, key, straddles);
    if (straddles) return Refuse(Z, Mass, A, Failed);
    Z = std::int16_t(place == 0 ? 0 : (place + 1) / 2);

    if (Z != 0) {
        const ElementRecord& e = ElementOf(s, Z);
        bool found = false;
        if (!digits.empty()) {
            Failed = -1;
            Selection.SelIsotopeIndex = -1;
            for (int i = 1; i <= e.IsotopeCount && i < int(e.IsotopeA.size()); ++i) {
                if (e.IsotopeA[size_t(i)] == A) {
                    Failed = 0;
                    Selection.SelIsotopeIndex = std::int16_t(i);
                    found = true;
                    break;
                }
            }
            if (found) Mass = e.IsotopeMass[size_t(Selection.SelIsotopeIndex)];
        } else {
            Mass = e.AMASS;
            A = e.IsotopeA[0];
            Selection.SelIsotopeIndex = 0;
        }
        Name = digits + key;
        Selection.SelA = A;
        Selection.SelName = Name;
        Selection.ZIndex = std::int16_t(Z - 1);
        Selection.TableButton = std::int16_t(Z - 1);
        if (found) {
            // By A alone: every element with an isotope of mass 2, 3 or 4 lands on these buttons.
            if (A == 2)
                Selection.TableButton = 92;
            else if (A == 3)
                Selection.TableButton = Z == 1 ? 93 : 94;
            else if (A == 4)
                Selection.TableButton = 95;
        }
    } else {
        if (!digits.empty()) return Refuse(Z, Mass, A, Failed);
        const int special = AlignedPlace(kSpecialParticles, key, straddles);
        if (straddles) return Refuse(Z, Mass, A, Failed);
        switch (special == 0 ? 0 : (special + 1) / 2) {
            case 1: {  // deuterium: hydrogen's second isotope
                const ElementRecord& h = ElementOf(s, 1);
                Z = 1;
                Mass = h.IsotopeMass[2];
                A = 2;
                Selection.TableButton = 92;
                Selection.SelIsotopeIndex = 2;
                break;
            }
            case 2:
                Z = 0;
                Mass = kNeutronMass;
                A = 1;
                AnalysisKind = analysis::Neutron;
                Selection.TableButton = 96;
                Selection.SelIsotopeIndex = 0;
                break;
            case 3:
                Z = 0;
                Mass = 0;
                A = 0;
                AnalysisKind = analysis::XRay;
                Selection.TableButton = 97;
                Selection.SelIsotopeIndex = 0;
                break;
            case 4:
                Z = 0;
                Mass = 0;
                A = 0;
                AnalysisKind = analysis::Gamma;
                Selection.TableButton = 98;
                Selection.SelIsotopeIndex = 0;
                break;
            default:
                if (key != "T ") return Refuse(Z, Mass, A, Failed);
                Name = "3H";  // a lower-case "t"
                Z = 1;
                Mass = ElementOf(s, 1).IsotopeMass[3];
                A = 3;
                Selection.TableButton = 93;
                Selection.SelIsotopeIndex = 3;
                break;
        }
        Selection.SelA = A;
        Selection.SelName = key;
        Selection.ZIndex = std::int16_t(Z - 1);
    }

    if (Failed) {
        WarningBox(s,
                   "Isotope " + digits + " in element " + key +
                       " not found in stable isotope list.  Please either correct input or extend allowed isotopes in " +
                       s.PathVKS + "\\isotopes.dat",
                   "assignZA: Isotope not found");
    }
    if (Selection.SelectionMode == 99) Selection.TableButton = Selection.ZIndex;
}

}  // namespace halvo
