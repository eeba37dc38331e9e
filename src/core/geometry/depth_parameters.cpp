#include "geometry/depth_parameters.h"

#include "geometry/aux_files_internal.h"
#include "text/lines.h"
#include "text/numbers.h"
#include "text/tokens.h"

namespace halvo {

namespace {

constexpr std::string_view kChu = "Chu straggling", kBohr = "Bohr straggling";
constexpr std::string_view kCircAperture = "Circular detector aperture",
                           kRectAperture = "Rectangular detector aperture";
constexpr std::string_view kCircSpot = "Circular beam spot", kRectSpot = "Rectangular beam spot";
constexpr std::string_view kArea = "Detector area ";

std::string Numbers(const float* v, bool two) {
    return text::CStr(v[0]) + (two ? " " + text::CStr(v[1]) : std::string());
}

// The numbers after a label: the line less the label.
void ReadNumbers(std::string_view line, size_t labelLength, float* out, int count) {
    const auto words = auxfile::Words(std::string(line.substr(labelLength)));
    for (int i = 0; i < count && size_t(i) < words.size(); ++i)
        out[i] = text::IsNumeric(words[size_t(i)]) ? text::CSng(text::Val(words[size_t(i)])) : 0.0f;
}

bool Starts(std::string_view line, std::string_view label) {
    const std::string_view bare = text::TrimView(label);
    return line.size() >= bare.size() && text::EqualsIgnoreCase(line.substr(0, bare.size()), bare);
}

}  // namespace

std::string WriteDepthParameters(const DepthParameters& p) {
    text::CrlfWriter w;
    w.line(p.Executable);
    w.line(p.Bohr ? kBohr : kChu);
    w.line(std::string(p.RectangularAperture ? kRectAperture : kCircAperture) + " " +
           Numbers(p.Aperture, p.RectangularAperture));
    w.line(std::string(p.RectangularSpot ? kRectSpot : kCircSpot) + " " + Numbers(p.Spot, p.RectangularSpot));
    w.line(std::string(kArea) + text::CStr(p.DetectorArea));
    return w.take();
}

bool ReadDepthParameters(std::string_view bytes, DepthParameters& p) {
    text::LineReader reader(bytes);
    std::string raw;
    bool first = true;
    while (reader.next(raw)) {
        const std::string_view line = auxfile::Stripped(raw);
        if (line.empty()) continue;
        if (first) {
            p.Executable = std::string(line);
            first = false;
        } else if (Starts(line, kChu)) {
            p.Bohr = false;
        } else if (Starts(line, kBohr)) {
            p.Bohr = true;
        } else if (Starts(line, kCircAperture) || Starts(line, kRectAperture)) {
            p.RectangularAperture = Starts(line, kRectAperture);
            const size_t n = p.RectangularAperture ? kRectAperture.size() : kCircAperture.size();
            ReadNumbers(line, n, p.Aperture, p.RectangularAperture ? 2 : 1);
        } else if (Starts(line, kCircSpot) || Starts(line, kRectSpot)) {
            p.RectangularSpot = Starts(line, kRectSpot);
            const size_t n = p.RectangularSpot ? kRectSpot.size() : kCircSpot.size();
            ReadNumbers(line, n, p.Spot, p.RectangularSpot ? 2 : 1);
        } else if (Starts(line, kArea)) {
            ReadNumbers(line, text::TrimView(kArea).size(), &p.DetectorArea, 1);
        }
    }
    return !first;
}

}  // namespace halvo
