#pragma once
// What the geometry editor shows besides the record: the name it saves under, its marks and the texts
// the syntax routines set. The window draws these; the routines of the core change them.
#include <cstdint>
#include <string>
#include <vector>

namespace halvo {

struct GeometryEditorState {
    std::string CurrentGeometry;  // the name saved last, without ".geo"
    bool Unsaved = false;
    bool OverwriteAsk = true;        // ask before a save replaces an existing file
    bool OpenedWithSample = false;   // opened from a sample's geometry list
    std::int16_t Combo5 = 0;         // analysis type by list position: 0 RBS .. 6 SIMS
    std::string Caption;             // "Geometry <name>.geo" once saved
    std::string SyntaxLabel;         // "VKS syntax ..."
    std::string FurtherTitle;        // title of the further-parameters window
    std::string PileupCaption;       // caption of the pile-up frame
    std::vector<std::string> AllResList;  // elements shown for ALLRES
};

}  // namespace halvo
