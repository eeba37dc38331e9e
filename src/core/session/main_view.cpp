#include "session/main_view.h"

#include "geometry/geometry_file.h"
#include "geometry/syntax.h"
#include "text/numbers.h"

namespace halvo {

namespace {

// Each association's geometry says what its spectrum is: data format, kind and engine generation.
void ReadGeometries(Session& s, Sample& sample) {
    sample.HasPixe = false;
    for (int i = 0; i < sample.NSpectra; ++i) {
        SpectrumEntry& e = sample.Spectra[size_t(i)];
        if (e.GeometryFile.empty()) continue;
        ResetGeometry(s);
        ReadGeometry(s, e.GeometryFile);
        const GeometryRecord& g = s.Geometry;
        if (g.CrossSet && i > 0)
            MsgBox(s,
                   "The GEO file directive CROSS (to find EBS cross-sections by MCMC) must be used ONLY in the first GEO file of the sample.",
                   mb::OKOnly,
                   "ShowSample, Sample# = " + text::CStr(int(s.CurrentSample)) + ", experiment# = " + text::CStr(i + 1));
        e.FileFormat = g.FileFormat;
        e.Syntax = g.Syntax;
        e.IsPixe = g.IsPixe != 0 || g.FileFormat == 28;
        e.IsPige = g.IsPige != 0 || g.FileFormat == 32;
        if (e.IsPixe) sample.HasPixe = true;
        static_cast<SpectrumEntry&>(s.Experiments[size_t(i)]) = e;
    }
}

}  // namespace

const char* const* VerbosityTexts() {
    static const char* const texts[] = {"0 Not Used", "1 EleProfs", "2 EleLays", "3 Verbose!"};
    return texts;
}

std::string AssociationText(const SpectrumEntry& e) {
    std::string line = e.DataFile + " ==> " + e.GeometryFile;
    if (e.LinkTo > 0) {
        const std::string n = std::to_string(e.LinkTo);
        switch (e.LinkKind) {
            case '(': line += " (" + n + ")"; break;
            case '[': line += " [" + n + "]"; break;
            case '{': line += " {" + n + "}"; break;
            case '<': line += " <" + n + ">"; break;
            default: break;
        }
    }
    return line;
}

void ShowSample(Session& s) {
    auto& l = s.lists;
    Sample& sample = s.current();
    l.Label12 = "Sample: " + sample.Comment;
    l.Label13 = "Batch: " + s.BatchComment;
    l.List4.clear();
    if (!sample.Structure.empty()) l.List4.items.push_back(sample.Structure);
    l.List1.clear();
    l.List2.clear();
    l.List3.clear();
    l.List5.clear();
    s.Experiments.clear();
    sample.NUnassociated = 0;
    for (int i = 0; i < sample.NSpectra; ++i) {
        const SpectrumEntry& e = sample.Spectra[size_t(i)];
        if (e.LinkTo > 0 && std::string("([{<").find(e.LinkKind) == std::string::npos) {
            MsgBox(s,
                   "Unrecognised line " + std::string(1, e.LinkKind) + " in structure file " + s.BatchName + ".spc",
                   mb::OKOnly, "Read Batch Error");
            return;
        }
        l.List1.items.push_back(e.DataFile);
        if (e.GeometryFile.empty()) {
            ++sample.NUnassociated;
        } else {
            l.List2.items.push_back(e.GeometryFile);
            l.List3.items.push_back(AssociationText(e));
            l.List5.items.push_back(text::CStr(e.Charge));
        }
        s.Experiments.emplace_back(e);
    }
    sample.NGeometries = std::int16_t(l.List2.items.size());
    sample.AllAssociated = sample.NUnassociated == 0;
    ReadGeometries(s, sample);
    CheckSampleSyntax(s, sample);
    l.Label14 = SampleSyntaxLabel(sample);
    l.Combo3.items.assign(VerbosityTexts(), VerbosityTexts() + 4);
    l.Combo3.index = sample.Verbosity >= 0 && sample.Verbosity <= 3 ? sample.Verbosity : -1;
    l.List6 = s.FilePath;
}

void SetVerbosityLabel(Session& s) {
    s.lists.Label14 = SampleSyntaxLabel(s.current());
    const std::string lead = std::string("VKS can output more or less files: default 1, see VKS9 Manual Chapter ") + "8";
    if (s.VerbosityAllSame) {
        s.lists.Label15 = "Verbosity: set all";
        s.lists.Label15ToolTip = lead + "; all samples = Sample1 (click to switch to: per sample)";
    } else {
        s.lists.Label15 = "Verbosity: per sample";
        s.lists.Label15ToolTip = lead + "; samples set separately (click to switch to: all same as Sample1)";
    }
}

void Combo1_Click(Session& s, int index) {
    const int count = int(s.lists.Combo1.items.size());
    if (index < 0 || index >= count) return;
    s.lists.Combo1.index = index;
    s.NSamples = std::int16_t(count);
    s.CurrentSample = std::int16_t(index + 1);
    ShowSample(s);
    SetVerbosityLabel(s);
    s.lists.Label12 = "Sample: " + s.current().Comment;
}

void mnuNextSample_Click(Session& s) {
    const int count = int(s.lists.Combo1.items.size());
    if (count == 0) return;
    Combo1_Click(s, (s.lists.Combo1.index + 1) % count);
}

void mnuPrevSample_Click(Session& s) {
    const int count = int(s.lists.Combo1.items.size());
    if (count == 0) return;
    Combo1_Click(s, s.lists.Combo1.index <= 0 ? count - 1 : s.lists.Combo1.index - 1);
}

void VScroll1_Change(Session& s, int value) {
    const int last = s.lists.VScroll1Value;
    s.lists.VScroll1Value = value;
    if (value > last)
        mnuNextSample_Click(s);
    else if (value < last)
        mnuPrevSample_Click(s);
}

}  // namespace halvo
