// The checks of the files a geometry names, one file at a time.
#include <iostream>

#include "cli.h"
#include "geometry/aux_files.h"
#include "geometry/aux_files_internal.h"
#include "text/numbers.h"

namespace halvo::cli {
namespace {

int VerifyNonR(Context& c, const std::vector<std::string>& a) {
    const Command& self = Registry().at("verify-nonr");
    Session& s = c.session;
    std::string file;
    bool quiet = false;
    for (size_t i = 0; i < a.size(); ++i) {
        const bool hasValue = i + 1 < a.size();
        if (a[i] == "--ebs-dir" && hasValue)
            s.Aux.EBSFilePath = a[++i];
        else if (a[i] == "--scatter" && hasValue && text::IsNumeric(a[i + 1]))
            s.Geometry.Scatter = text::CSng(text::Val(a[++i]));
        else if (a[i] == "--energy" && hasValue && text::IsNumeric(a[i + 1]))
            s.Geometry.Energy = text::CSng(text::Val(a[++i]));
        else if (a[i] == "--quiet")
            quiet = true;
        else if (a[i].starts_with("--") || !file.empty())
            return Misuse(self);
        else
            file = a[i];
    }
    if (file.empty()) return Misuse(self);
    std::int16_t errors = 0, warnings = 0;
    const bool pass = VerifyNonRFile(s, file, quiet, errors, warnings);
    const std::string path = auxfile::NonRPath(s, file);
    if (c.json) {
        c.putString("file", file);
        c.putString("path", path);
        c.put("pass", pass ? "true" : "false");
        c.put("errors", std::to_string(errors));
        c.put("warnings", std::to_string(warnings));
    } else {
        std::cout << path << ": " << (pass ? "pass" : "fail") << " (" << errors << " errors, " << warnings
                  << " warnings)\n";
    }
    return pass ? kOk : kFailed;
}

int VerifyEffi(Context& c, const std::vector<std::string>& a) {
    if (a.size() != 1 || a[0].starts_with("--")) return Misuse(Registry().at("verify-effi"));
    const std::int16_t errors = CheckEffiFile(c.session, a[0]);
    if (c.json) {
        c.putString("file", a[0]);
        if (errors < 0) c.putString("error", "cannot be read");
        c.put("pass", errors == 0 ? "true" : "false");
        c.put("errors", std::to_string(errors));
    } else if (errors < 0) {
        std::cerr << "halvo-cli: verify-effi: " << a[0] << ": cannot be read\n";
    } else {
        std::cout << a[0] << ": " << (errors == 0 ? "pass" : "fail") << " (" << errors << " errors)\n";
    }
    return errors == 0 ? kOk : kFailed;
}

const Register nonr{{"verify-nonr", "FILE [--ebs-dir DIR] [--scatter DEG] [--energy KEV] [--quiet]",
                     "check a non-Rutherford cross-section file (R33 or two columns) as a geometry naming it would",
                     VerifyNonR}};
const Register effi{{"verify-effi", "FILE", "check a detector efficiency file (energy keV, efficiency %)",
                     VerifyEffi}};

}  // namespace
}  // namespace halvo::cli
