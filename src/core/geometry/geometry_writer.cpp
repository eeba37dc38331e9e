// The text of a geometry file as the editor saves it. The fixed lines print their numbers in the
// shortest form; the directives use the plain number form, which leads a positive number with a
// blank, unless a line says the number is trimmed. Reading and writing are not symmetric everywhere
// (the general angles with variations, x_as and s_as, a thin film, DEPTH rows): the engine's files
// have always been written this way, and the reader and writer keep each other's quirks.
#include "geometry/geometry_writer.h"

#include <string>
#include <vector>

#include "geometry/geometry_internal.h"
#include "geometry/geometry_record.h"
#include "session/session.h"
#include "text/lines.h"
#include "text/numbers.h"
#include "text/tokens.h"

namespace halvo {
namespace {

std::string General(float v) { return text::GeneralNumber(v); }
std::string General(double v) { return text::GeneralNumber(v); }
std::string Plain(float v) { return text::Str(v); }
std::string Plain(int v) { return text::Str(v); }
std::string Trimmed(float v) { return text::CStr(v); }
// A number whose plain form's leading blank is its only separator: a negative one gets a blank too.
std::string Spaced(float v) { return v < 0 ? " " + text::CStr(v) : text::Str(v); }

// A foil's composition as the file had it, else as parsed.
std::string CompositionText(const Molecule& m, const std::string& asRead) {
    return asRead.empty() ? geo::MoleculeText(m) : asRead;
}

bool IsSingleWord(const std::string& s) {
    const std::string_view t = text::TrimView(s);
    return !t.empty() && t.find_first_of(" \t") == std::string_view::npos;
}

constexpr const char* kCheck2Title = "Geometry1.Check2";

class GeoWriter {
public:
    GeoWriter(Session& s, int analysis) : s_(s), g_(s.Geometry), analysis_(analysis) {}

    std::string whole() {
        withComments_ = true;
        fixedLines();
        directives();
        restOfComments();
        return out_.take();
    }

    std::string derived() {
        withComments_ = false;
        out_.line("READGEO " + g_.IndirectedName);
        fixedLines();
        changedLines();
        return out_.take();
    }

private:
    Session& s_;
    GeometryRecord& g_;
    const int analysis_;
    text::CrlfWriter out_;
    bool withComments_ = true;
    int lineCounter_ = 0;  // the physical line of the file read that the output has reached

    // Puts back the comment store's lines that stood before the next data line of the file read: moves
    // on a line and prints its comment, until a line that held data (an empty entry).
    void writeComments() {
        if (!withComments_) return;
        const std::vector<std::string>& store = g_.Comments;
        for (;;) {
            ++lineCounter_;
            if (size_t(lineCounter_) >= store.size() || store[size_t(lineCounter_)].empty()) return;
            out_.line(store[size_t(lineCounter_)]);
        }
    }
    // What the store holds past the last data line written: trailing comments, and whatever followed
    // a blank line.
    void restOfComments() {
        const std::vector<std::string>& store = g_.Comments;
        for (size_t n = size_t(lineCounter_) + 1; n < store.size(); ++n)
            if (!store[n].empty()) out_.line(store[n]);
    }
    void commented(const std::string& line) {
        writeComments();
        out_.line(line);
    }

    std::string roiPairs() const {
        std::string line;
        for (int i = 0; i < g_.RoiCount && i < kMaxRois; ++i)
            line += std::to_string(g_.RoiLow[size_t(i)]) + " " + std::to_string(g_.RoiHigh[size_t(i)]) + " ";
        return line;
    }
    std::string energy() const {
        std::string line = General(g_.Energy);
        if (g_.EnergyVar != 0) line += "  " + General(g_.EnergyVar);
        return line;
    }
    std::string fwhm() const {
        if (g_.FWHMVar == 0 && g_.FWHMLinear == 0 && g_.FWHMLinearVar == 0) return General(g_.FWHM);
        return General(g_.FWHM) + "  " + General(g_.FWHMLinear) + "  " + General(g_.FWHMVar) + "  " +
               General(g_.FWHMLinearVar);
    }
    std::string angles(const std::string& separator) const {
        std::vector<float> n;
        const bool general = text::Lower(g_.GeomType) == "general";
        if (general && g_.AngleVarSet)
            n = {g_.Incidence, g_.Scatter, g_.Exit, g_.IncidenceVar, g_.ScatterVar, g_.ExitVar};
        else if (general)
            n = {g_.Incidence, g_.Scatter, g_.Exit};
        else if (g_.AngleVarSet)
            n = {g_.Incidence, g_.Scatter, g_.IncidenceVar, g_.ScatterVar};
        else
            n = {g_.Incidence, g_.Scatter};
        std::string line;
        for (size_t i = 0; i < n.size(); ++i) line += (i ? separator : "") + General(n[i]);
        return line;
    }
    std::string calibration(const std::string& quadSeparator, const std::string& pairSeparator) const {
        if (g_.Quad == 0) return General(g_.Gain) + pairSeparator + General(g_.Offset);
        return General(g_.Quad) + quadSeparator + General(g_.Gain) + quadSeparator + General(g_.Offset);
    }

    void fixedLines() {
        commented(std::to_string(g_.FileFormat));
        commented(roiPairs());
        switch (analysis_) {
            case 0: commented(g_.Ion + " " + g_.Ion); break;
            case 1:
            case 4: commented(g_.Ion + " " + g_.Detected); break;
            case 2:
            case 3:
                commented(g_.Struck + " " + g_.Ion + " " + g_.Resultant1 + " " + g_.Resultant2 + " " +
                          General(g_.QValue) + " " + g_.Detected);
                if (g_.Detected != g_.Resultant1 && g_.Detected != g_.Resultant2)
                    MsgBox(s_, "Error in NRA geometry. Detected Particle MUST be one of the resultants", mb::OKOnly,
                           "Error");
                break;
            case 5: commented(g_.Ion + " " + g_.Struck); break;
            default: break;  // SIMS: no reaction line at all
        }
        commented(energy());
        commented(fwhm());
        commented(text::Lower(g_.GeomType) == "general" ? std::string("g") : g_.GeomType);
        commented(angles("  "));
        commented(General(g_.SolidAngle));
        if (analysis_ == 4) {
            commented(g_.PixeCalibFile + " " + General(g_.PixeErrorPercent));
            commented(geo::Fill("foil <n>", {{"<n>", std::to_string(g_.PixeFoilCount)}}));
            for (int i = 1; i <= g_.PixeFoilCount && i <= kMaxPixeFoils; ++i) {
                const PixeFoil& foil = g_.PixeFoils[size_t(i)];
                commented(General(foil.Thickness) + "  " + CompositionText(foil.Composition, foil.Text) +
                          (foil.FormFlag == 1 ? " 1" : ""));
            }
        } else {
            commented(calibration(" ", "  "));
        }
    }

    void directives() {
        const GeoElementOptions& row0 = g_.Elements.at(0);
        if (row0.AutoL == 2) {
            writeComments();
            if (g_.Syntax == 2) out_.line("AUTOL OFF");
        }
        if (g_.DoubleScatter.Enabled) commented(doubleScattering());
        const std::string model = text::Lower(g_.StragglingModel);
        if (model == "chu" || model == "bohr") {
            const bool dropFactor = g_.StragglingFactor == 1.0f && g_.Syntax != 2;
            commented((model == "chu" ? "chu " : "bohr ") + (dropFactor ? std::string() : Plain(g_.StragglingFactor)));
        }
        if (g_.Syntax == 2 && (row0.StragType == 1 || row0.StragType == 2))
            commented(row0.StragType == 1 ? "strag gauss" : "strag gamma");
        elementBlocks();
        if (g_.MDepthParams.MDEPTH == 1 || g_.MDepthParams.MDEPTH == 2) commented(mdepth());
        if (g_.FAs) {
            commented(asLine("f_as", g_.SAsFactor));
        } else {
            if (g_.SAs) commented(asLine("x_as", g_.SAsFactor));
            if (g_.XAs) commented(asLine("s_as", g_.XAsFactor));
        }
        switch (g_.AdvGeomLowEnergy) {
            case 0: break;
            case 1:
            case 4: commented("low_e"); break;
            case 2: commented("low_e off"); break;
            case 3: commented("low_e all"); break;
            default:
                MsgBox(s_, geo::Fill("Code Error:  Illegal option found for AdvGeomLowEnergy:<n>", {{"<n>", text::CStr(int(g_.AdvGeomLowEnergy))}}),
                       mb::OKOnly, kCheck2Title);
                break;
        }
        const std::string rangeFoil = CompositionText(g_.RangeFoil.Composition, g_.RangeFoil.Text);
        if (!rangeFoil.empty()) {
            out_.line("foil " + Plain(g_.RangeFoil.Thickness) + Spaced(g_.RangeFoil.Second));
            out_.line(rangeFoil + (IsSingleWord(rangeFoil) ? "  1" : ""));
            writeComments();
            writeComments();
        }
        const std::string dead = CompositionText(g_.DeadLayer.Composition, g_.DeadLayer.Text);
        if (!dead.empty()) {
            out_.line("dead " + Plain(g_.DeadLayer.Thickness));
            out_.line(dead + (IsSingleWord(dead) ? " 1" : ""));
            writeComments();
            writeComments();
        }
        if (row0.Nil) out_.line("NIL");
        const std::string beam = CompositionText(g_.BeamFoil.Composition, g_.BeamFoil.Text);
        if (!beam.empty()) {
            out_.line("beamfoil " + Plain(g_.BeamFoil.Thickness));
            out_.line(beam);
            writeComments();
            writeComments();
        }
        if (row0.StopKey != "ZBL90" && !row0.StopKey.empty() && row0.StopKey != "Default")
            commented(row0.StopKey + " ");
        for (int i = 1; i <= g_.StopCount && size_t(i) < g_.Elements.size(); ++i) {
            const GeoElementOptions& row = g_.Elements[size_t(i)];
            if (!row.StopKey.empty()) commented(row.StopKey + " " + row.StopIon + " " + row.StopTarget);
        }
        if (g_.AdvGeomScreen > 0 && g_.AdvGeomScreen <= 6) {
            static constexpr const char* kLetters[] = {"", "e", "n", "u", "m", "l", "b"};
            commented(std::string("screen ") + kLetters[g_.AdvGeomScreen]);
        }
        if (g_.AdvGeomResonance == 1) commented("nores");
        if (g_.AdvGeomResonance == 2) commented("allres");
        if (g_.AdvGeomResonance == 3) commented("ALLRES");
        if (g_.AdvGeomPileup.Model >= 0) pileUp();
        if (g_.AdvGeomPileup.LLDSet) commented("LLD " + Plain(int(g_.AdvGeomPileup.LLD)));
        if (!g_.AdvGeomExtra.empty()) commented(g_.AdvGeomExtra);
        if (g_.FlagVarAny) {
            flagVar("flagvar_charge ", g_.FlagVarCharge);
            if (g_.FlagVarAny2) {
                flagVar("flagvar_quad ", g_.FlagVarQuad);
                flagVar("flagvar_conv ", g_.FlagVarConv);
                flagVar("flagvar_offset ", g_.FlagVarOffset);
            }
        }
        if (g_.XmlMode > 0) {
            switch (g_.XmlMode) {
                case 1: commented("xml "); break;
                case 2: commented("xml fit"); break;
                case 3: commented("xml onlyfit"); break;
                default:
                    MsgBox(s_, geo::Fill("Unknown value:  XML=<n>", {{"<n>", text::CStr(int(g_.XmlMode))}}), mb::OKOnly, kCheck2Title);
                    commented("xml ");
                    break;
            }
        }
        if (g_.EffiSet) commented("effi " + (g_.Kind == 5 ? Trimmed(g_.EffiPercent) : g_.EffiFile));
        if (g_.ActiveSet) commented("Active " + Trimmed(g_.Active));
        if (g_.NdpBackSet) commented("NDPback " + Trimmed(g_.NdpBackPre) + "  " + Trimmed(g_.NdpBackExp));
        if (g_.CrossSet) {
            std::string line = "CROSS " + g_.CrossElement;
            if (g_.CrossRangeSet) line += " " + Trimmed(g_.CrossLow) + " " + Trimmed(g_.CrossHigh);
            commented(line);
        }
    }

    std::string doubleScattering() {
        DoubleScatterRecord& d = g_.DoubleScatter;
        if ((d.Mode == "FILE" && d.File.empty()) || (s_.VKSversion == 9 && d.Mode.empty())) d.Mode = "NORMAL";
        std::string factor = d.Factor == 1.0f ? std::string() : Plain(d.Factor);
        const std::string low = d.NoLow ? " nolow" : "";
        if (d.Mode == "FULL") return "ds full" + low;
        if (d.Mode == "PRECISE") return "ds precise" + low;
        if (d.Mode == "NORMAL") return "ds normal" + low;
        if (d.Mode == "FAST") return "ds fast" + factor;
        if (s_.VKSversion < 9) factor.clear();
        return "ds " + d.File + factor;
    }

    std::string msNumbers(const GeoElementOptions& row) const {
        std::string line = Plain(int(row.MsCutoff));
        for (size_t i = 0; i < (row.MsShort ? 2u : 4u); ++i) line += " " + Plain(row.MsCoef[i]);
        return line;
    }

    void elementBlocks() {
        const int realRows = geo::RealRows(s_);
        try {
            for (size_t i = 1; i < g_.Elements.size(); ++i) elementBlock(g_.Elements[i], int(i) > realRows);
        } catch (const std::exception&) {
            MsgBox(s_, "Code Error at CodeErr1", mb::OKOnly, kCheck2Title);
        }
    }

    void stoppingFiles(const char* word, const std::string& name, const std::string& ionFile,
                       const std::string& detectedFile) {
        if (!ionFile.empty()) commented(word + g_.Ion + " " + name + " " + ionFile);
        if (!detectedFile.empty()) commented(word + g_.Detected + " " + name + " " + detectedFile);
    }

    void elementBlock(const GeoElementOptions& row, bool logical) {
        const std::string& name = row.ElementName;
        if (row.NonR && row.NonRFile != "(SigCalc matrix)") commented(name + " " + row.NonRFile);
        if (row.MsSet) {
            commented(name);
            commented(msNumbers(row));
        }
        if (row.ThinFilm) {
            commented(name);
            commented(Plain(row.ThinFilmCoef[0]) + " " + Plain(row.ThinFilmCoef[1]) + " " + Plain(row.ThinFilmCoef[2]));
        }
        if (row.FitStop) stoppingFiles("Fitstop ", name, row.FitStopFile, row.FitStopFileDet);
        if (row.ElFit) stoppingFiles("Elfit ", name, row.ElFitFile, row.ElFitFileDet);
        if (row.MolFit) stoppingFiles("Molfit ", name, row.MolFitFile, row.MolFitFileDet);
        if (row.ElStop) stoppingFiles("Elstop ", name, row.ElStopFile, row.ElStopFileDet);
        if (row.MolStop)
            stoppingFiles("Molstop ", logical ? geo::WithoutBlanks(name) : name, row.MolStopFile, row.MolStopFileDet);
        if (row.IonStopSet) commented(g_.Ion + " " + name + " " + Plain(row.IonStopFactor));
        if (row.DetStopSet) commented(g_.Detected + " " + name + " " + Plain(row.DetStopFactor));
        if (row.Depth)
            commented("DEPTH " + name + " " + row.DepthFile + " " + Plain(row.DepthFactor) + " " + Plain(row.DepthOffset));
    }

    std::string mdepth() const {
        const MDepthParamsRecord& m = g_.MDepthParams;
        std::string line = (m.MDEPTH == 1 ? "WDEPTH " : "MDEPTH ") + m.File;
        if (!m.AllElements)
            for (size_t i = 1; i < g_.Elements.size(); ++i)
                if (g_.Elements[i].MDepthSelected) line += " " + g_.Elements[i].ElementName;
        if (m.Offset != 0)
            line += Spaced(m.Factor) + Spaced(m.Offset);
        else if (m.Factor != 1)
            line += Spaced(m.Factor);
        return line;
    }

    // "s_as 2" is written back as "x_as 2": the number's own leading blank is the separator.
    static std::string asLine(const char* word, float factor) {
        return std::string(word) + (factor != 1 ? Spaced(factor) : std::string());
    }

    void flagVar(const char* word, std::int16_t value) {
        if (value > -1) commented(word + std::string(value ? "on" : "off"));
    }

    void pileUp() {
        const AdvGeomPileupRecord& p = g_.AdvGeomPileup;
        const std::string shape = Plain(p.ShapeTime) + "e-6";
        switch (p.syntax) {
            case 0: commented("pile " + shape); break;
            case 1:
                switch (p.Model) {
                    case 0: commented("pile " + shape); break;
                    case 1: commented("pup " + shape); break;
                    case 2: commented("pup " + shape + " pur"); break;
                    case 3: commented("pup " + shape + " wg "); break;
                    case 4: commented("pup " + Plain(p.ShapeTime) + "e-6 wg " + Plain(p.PurTime) + "e-6"); break;
                    default: writeComments(); break;
                }
                break;
            case 2: {
                static constexpr const char* kWords[] = {" cj ", " ga ", " ga ", " wg ", " wg ", " mg "};
                std::string line = "pile";
                if (p.Model >= 0 && p.Model <= 5) line += kWords[p.Model];
                line += shape + " ";
                if (p.Model == 5) {
                    line += Plain(p.PurTime) + "e-6 " + Plain(int(p.MgFilter)) + " " + Trimmed(p.MgR) + " ";
                    line += p.MgThresholdSet ? Trimmed(p.MgThreshold * g_.Gain) + " " : std::string("0 ");
                    line += p.MgBimodal ? "1" : "2";
                } else if (!((p.Model == 1 || p.Model == 3) && !p.PeakFactorSet && !p.GammaSet)) {
                    line += Plain(p.PurTime) + "e-6 ";
                    if (p.PeakFactorSet || p.GammaSet) line += Trimmed(p.PeakFactor);
                    if (p.GammaSet) line += " " + Trimmed(p.Gamma);
                }
                commented(line);
                break;
            }
            default: writeComments(); break;  // the one-word PILE and anything else: nothing
        }
    }

    void changedLines() {
        if (g_.AnglesChanged) {
            const bool generalWithVariations = text::Lower(g_.GeomType) == "general" && g_.AngleVarSet;
            out_.line("Angles " + angles(generalWithVariations ? "  " : " "));
        }
        if (g_.CalibChanged) out_.line("Calib " + calibration(" ", " "));
        if (g_.EnergyChanged) out_.line("Energy " + energy());
        if (g_.FWHMChanged) out_.line("FWHM " + fwhm());
        if (g_.Elements.at(0).MsOverride) {
            for (size_t i = 1; i < g_.Elements.size(); ++i) {
                const GeoElementOptions& row = g_.Elements[i];
                if (!row.MsOverride || !row.MsSet) continue;
                out_.line("MSpoly " + row.ElementName);
                out_.line(msNumbers(row));
            }
        }
        if (g_.RoiChanged) out_.line("ROI " + roiPairs());
        if (g_.SolidChanged) out_.line("Solid " + General(g_.SolidAngle));
    }
};

}  // namespace

std::string WholeGeometryText(Session& s, int analysis) { return GeoWriter(s, analysis).whole(); }

std::string DerivedGeometryText(Session& s, int analysis) { return GeoWriter(s, analysis).derived(); }

}  // namespace halvo
