// The installations the engine calls out to: the SRIM stopping tables and the DEPTH straggling codes.
#include <array>
#include <filesystem>
#include <optional>
#include <system_error>

#include "geometry/aux_files.h"
#include "geometry/aux_files_internal.h"
#include "geometry/depth_parameters.h"
#include "platform/files.h"
#include "session/session.h"
#include "text/numbers.h"

namespace halvo {

using namespace auxfile;

namespace {

struct SrimFile {
    const char* name;
    std::uintmax_t longerThan;  // bytes; shorter files are taken as damaged
};

constexpr std::array<SrimFile, 4> kSrimFiles{{
    {"SRModule.exe", 16},
    {"VERSION", 50},
    {"SCOEF03.dat", 16},
    {"SNUC03.dat", 200000},
}};

std::optional<std::string> Existing(const std::string& path) {
    auto found = platform::ResolvePath(path);
    if (found && platform::IsDirectory(*found)) return std::nullopt;
    return found;
}

}  // namespace

void CheckSRIM(Session& s) {
    if (s.Aux.SRIMChecked) return;
    s.Aux.SRIMChecked = true;
    const std::string dir = s.Aux.SRIMPath.empty() ? s.PathVKS : s.Aux.SRIMPath;
    std::string list;
    for (const auto& f : kSrimFiles) {
        const auto found = Existing(platform::JoinPath(dir, f.name));
        if (!found) {
            list += std::string(f.name) + "\n";
            continue;
        }
        std::error_code ec;
        const std::uintmax_t length = std::filesystem::file_size(*found, ec);
        if (ec || length <= f.longerThan)
            list += std::string(f.name) + " " +
                    Fill("suspected corrupt (length(=<n>)", {{"<n>", text::CStr(int(ec ? 0 : length))}}) + "\n";
    }
    if (list.empty()) return;
    WarningBox(s,
               Fill("SRIM03 stopping powers have been requested but these files cannot be found (or are suspected of corruption) in the path <path>:",
                    {{"<path>", dir}}) +
                   "\n" + list + "SRIM 2003 stopping powers are generally highly recommended\n" +
                   "To call SRIM from a program you need 'SRModule.exe' \n" +
                   "Obviously,  the stopping power tables in 'SCOEF03.dat' and 'SNUC03.dat' are also essential\n" +
                   "You also need the version number in the file 'VERSION': \n" +
                   "if this is not present the SRIM code complains loudly about being out of date",
               "ReadGeometry: SRIM installation error", mb::Exclamation);
}

void CheckDEPTH(Session& s) {
    s.Aux.DEPTHChecked = true;
    const GeometryRecord& g = s.Geometry;
    const std::int16_t mode = g.MDepthParams.MDEPTH;
    if (mode == 0) {
        // DEPTH: the engine reads tables the code wrote beforehand; it never runs the code.
        for (size_t row = 1; row < g.Elements.size(); ++row) {
            const auto& e = g.Elements[row];
            if (e.Depth && !Existing(InWorkDir(s, e.DepthFile)))
                WarningBox(s,
                           Fill("Treifar's DEPTH straggle calculations have been requested but the DEPTH input file <f>cannot be found",
                                {{"<f>", e.DepthFile}}),
                           "ReadGeometry: DEPTH output file not found error", mb::Exclamation);
        }
        return;
    }
    const std::string warningTitle = "Module1.CheckDEPTH warning";
    if (mode == 2) {
        WarningBox(s,
                   "Note that MDEPTH is obsolete 16bit code that runs very slow on 32bit machines.  Use WDEPTH instead",
                   warningTitle, mb::Exclamation);
    } else if (mode == 1) {
        if (s.VKSversion < 9) WarningBox(s, "WDEPTH not available for VKS versions below 9", warningTitle, mb::Exclamation);
    } else {
        WarningBox(s, Fill("Code error: MDepthParams.MDEPTH = <n>", {{"<n>", text::CStr(int(mode))}}), warningTitle,
                   mb::Critical);
        return;
    }
    const std::string code = mode == 2 ? "MDEPTH" : "WDEPTH";
    const std::string& parFile = g.MDepthParams.File;
    const auto par = Existing(InWorkDir(s, parFile));
    const auto bytes = par ? platform::ReadFileBytes(*par) : std::nullopt;
    if (!bytes) {
        WarningBox(s,
                   Fill("DEPTH problem:  location of executable could not be determined since parameter file <f> could not be found",
                        {{"<f>", parFile}}),
                   "ReadGeometry DEPTH setup error", mb::Exclamation);
        return;
    }
    const std::int16_t syntax = s.VKSverSyn;
    if (syntax != -1 && syntax != 7 && syntax != 8 && syntax != 9) {
        WarningBox(s,
                   Fill("Code error: VKSverSyn =<n>;  cannot check for presence of DEPTH executable.",
                        {{"<n>", text::CStr(int(syntax))}}),
                   warningTitle, mb::Critical);
        return;
    }
    DepthParameters p;
    ReadDepthParameters(*bytes, p);
    const std::string executable = p.Executable + ".EXE";
    // A relative name is the engine's: the engine starts the code from its own directory.
    const std::string full = UnderDirectory(s.PathVKS, executable);
    if (!Existing(full))
        WarningBox(s,
                   Fill("Treifar's DEPTH straggle calculations have been requested but the executable <f>cannot be found (full pathname not found is: <p>",
                        {{"<f>", executable}, {"<p>", full}}) +
                       "\n" +
                       "You can correct this by using the More button in the geometry file editor,  then the DEPTH edit button",
                   Fill("ReadGeometry <code> installation error", {{"<code>", code}}), mb::Exclamation);
}

}  // namespace halvo
