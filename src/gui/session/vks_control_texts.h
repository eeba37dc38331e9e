#pragma once
// The fixed texts of the main window: menu captions, the tool tip of the sample list and the filter
// of the batch dialog.

namespace halvo::gui::texts {

inline constexpr const char* mnuOpenBatch = "&OpenBatch...";
inline constexpr const char* mnuSave = "&Save Batch";
inline constexpr const char* mnuSaveBatch = "Save &Batch as...";
inline constexpr const char* mnuNextSample = "Ne&xt Sample";
inline constexpr const char* mnuPrevSample = "&Previous Sample";
inline constexpr const char* Combo1ToolTip = "^N for next sample, ^P for previous. Puts visible PlotWindows on clipboard";
inline constexpr const char* BatchFilter = "VKS files *.spc|*.spc";

}  // namespace halvo::gui::texts
