#pragma once
// The DEPTH codes' parameter file, which the DEPTH editing window writes and the check reads: the
// executable (without its ".EXE") on the first line, then one line per group, each a label and its
// numbers:
//   C:\DEPTH\WDEPTH
//   Chu straggling                      (or Bohr straggling)
//   Circular detector aperture 5        (diameter, mm; or Rectangular ... width height)
//   Circular beam spot 1                (diameter, mm; or Rectangular ... width height)
//   Detector area 19.6                  (mm^2)
#include <string>
#include <string_view>

namespace halvo {

struct DepthParameters {
    std::string Executable;  // as named, without ".EXE"
    bool Bohr = false;       // Chu straggling otherwise
    bool RectangularAperture = false;
    float Aperture[2] = {0, 0};  // diameter, or width and height, mm
    bool RectangularSpot = false;
    float Spot[2] = {0, 0};
    float DetectorArea = 0;  // mm^2
};

// The file's contents, lines ending CR LF.
std::string WriteDepthParameters(const DepthParameters& p);
// Reads what it recognises; a group that is missing keeps its default. False for a file with no
// executable line.
bool ReadDepthParameters(std::string_view bytes, DepthParameters& p);

}  // namespace halvo
