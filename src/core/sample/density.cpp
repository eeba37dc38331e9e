// Densities of element lists and molecules. The checks are strict on purpose: Density2Rho wants the
// recomputed sums exactly as the parser left them, Rho2Density allows a small one-sided difference
// and keeps the signs of fitted concentrations, so a "?=" record passes the one and not the other.
#include <cmath>

#include "sample/density.h"
#include "sample/element_table.h"
#include "sample/molecule_internal.h"
#include "session/session.h"
#include "text/numbers.h"

namespace halvo {

using namespace molecule_detail;

namespace {
void Box(Session& s, const std::string& text, const std::string& title) { MsgBox(s, text, mb::OKOnly, title); }
}  // namespace

float CalcDensity(Session& s, const SubMolecule& Sub) {
    if (Sub.ElementCount == 0) return -1;
    if (Sub.ElementCount == 1) return ElementOf(s, Sub.AtomicNumbers[1]).AtomicDensity;
    float sumCD = 0, sumC = 0;
    float d = 0;  // an element without Z takes the density of the one before it
    for (int i = 1; i <= Sub.ElementCount; ++i) {
        if (Sub.AtomicNumbers[size_t(i)] > 0) d = ElementOf(s, Sub.AtomicNumbers[size_t(i)]).AtomicDensity;
        const float c = std::fabs(Sub.Concentrations[size_t(i)]);
        sumCD += c * d;
        sumC += c;
    }
    if (sumC != Sub.Concentrations[0]) {
        Box(s, "Code error: sum of concs <> conc(0) in molecule" + Sub.SubName, "CalcDensity code error");
        return -1;
    }
    if (sumC < 1e-18f) {
        Box(s, "Cannot calculate density:  sum of concentrations is zero", "CalcDensity divisor error");
        return -1;
    }
    return sumCD / sumC;
}

float Density2Rho(Session& s, SubMolecule& Sub) {
    const MassSums sums = SumsOf(Sub, false);
    if (sums.S2 < 1e-18f) {
        Box(s, "Cannot calculate density:  sum of concentrations is zero", "Density2Rho divisor error");
        return -1;
    }
    if (sums.S2 != Sub.Concentrations[0]) {
        Box(s, "Code error: sum of concs <> conc(0) in molecule" + Sub.SubName, "Density2Rho code error");
        return -1;
    }
    const float mean = sums.S1 / sums.S2;
    if (mean != Sub.Masses[0]) {
        Box(s, "Code error: average mass <> AMASS(0) in molecule" + Sub.SubName, "Density2Rho code error");
        return -1;
    }
    Sub.Masses[0] = mean;
    Sub.Concentrations[0] = sums.S2;
    Sub.SubMassDensity = text::CSng(double(Sub.SubAtomicDensity) * double(mean) * kDensityConstant);
    return Sub.SubMassDensity;
}

float Rho2Density(Session& s, SubMolecule& Sub) {
    const MassSums sums = SumsOf(Sub, true);
    if (sums.S2 < 1e-18f) {
        Box(s, "Cannot calculate density:  sum of concentrations is zero", "Rho2Density divisor error");
        return -1;
    }
    if (float(std::fabs(double(sums.S2) - double(Sub.Concentrations[0]))) > 1e-7f) {
        Box(s, "Code error: sum of concs <> conc(0) in molecule " + Sub.SubName, "Rho2Density code error");
        return -1;
    }
    const float mean = sums.S1 / sums.S2;
    if (float(double(mean) - double(Sub.Masses[0])) > 1e-7f) {
        Box(s, "Code error: average mass <> AMASS(0) in molecule " + Sub.SubName, "Rho2Density code error");
        return -1;
    }
    if (mean < 1e-18f) {
        Box(s, "Cannot calculate density:  average atomic mass is zero", "Rho2Density divisor error");
        return -1;
    }
    Sub.Masses[0] = mean;
    Sub.Concentrations[0] = sums.S2;
    Sub.SubAtomicDensity = text::CSng(double(Sub.SubMassDensity) / (double(mean) * kDensityConstant));
    return Sub.SubAtomicDensity;
}

float CalcMolDensity(Session& s, Molecule& Mol) {
    for (int i = 1; i <= Mol.SubCount; ++i)
        if (Mol.SubMolecules[size_t(i)].ElementCount == 0) return -1;
    if (Mol.SubCount == 1) {
        const SubMolecule& only = Mol.SubMolecules[1];
        Mol.MolAtomicDensity = only.SubAtomicDensity;
        Mol.MolMassDensity = only.SubMassDensity;
        Mol.MolAverageMass = only.Masses[0];
        return Mol.MolAtomicDensity;
    }
    float sumCM = 0, sumC = 0, sumCD = 0, sumCR = 0;
    for (int i = 1; i <= Mol.SubCount; ++i) {
        const SubMolecule& sub = Mol.SubMolecules[size_t(i)];
        const float c = std::fabs(Mol.SubConcentrations[size_t(i)]);
        sumCM += c * sub.Masses[0];
        sumC += c;
        sumCD += c * sub.SubAtomicDensity;
        sumCR += c * sub.SubMassDensity;
    }
    Mol.SubConcentrations[0] = sumC;
    if (sumC < 1e-18f) {
        Box(s, "Cannot calculate density:  sum of concentrations is zero", "CalcMolDensity divisor error");
        return -1;
    }
    Mol.MolAverageMass = sumCM / sumC;
    Mol.MolAtomicDensity = sumCD / sumC;
    Mol.MolMassDensity = sumCR / sumC;
    return Mol.MolAtomicDensity;
}

float AngstromToTFU(float L, float D) { return text::CSng(double(L) * double(D) / 10); }
float TFUToAngstrom(float T, float D) { return D < 1e-18f ? -1 : text::CSng(double(T) / double(D) * 10); }
float NmToTFU(float L, float D) { return text::CSng(double(L) * double(D)); }
float TFUToNm(float T, float D) { return D < 1e-18f ? -1 : text::CSng(double(T) / double(D)); }
float UgToTFU(float M, float A) {
    return A < 1e-18f ? -1 : text::CSng(double(M) / kDensityConstant / double(A) * 10);
}
float TFUToUg(float T, float A) { return text::CSng(double(T) * kDensityConstant * double(A) / 10); }

}  // namespace halvo
