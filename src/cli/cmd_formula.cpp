// Formula files: check one as reading a structure does.
#include <iostream>

#include "cli.h"
#include "sample/formula_file.h"
#include "text/fault.h"

namespace halvo::cli {
namespace {

std::string JsonList(const std::vector<std::string>& items) {
    std::string out = "[";
    for (size_t i = 0; i < items.size(); ++i) out += (i ? "," : "") + JsonString(items[i]);
    return out + "]";
}

int Check(Context& c, const std::vector<std::string>& a) {
    if (a.size() != 1) return Misuse(Registry().at("formula-check"));
    const std::string& file = a[0];
    FormulaCheck result;
    try {
        result = CheckFormulaFile(c.session, file);
    } catch (const RuntimeFault& fault) {
        // What a structure reader's trap would catch: an empty or unreadable file, a number out of range.
        std::cerr << "halvo-cli: formula-check: " << file << ": " << fault.what() << "\n";
        if (c.json) {
            c.putString("file", file);
            c.putString("error", fault.what());
        }
        return kFailed;
    }
    if (c.json) {
        c.putString("file", file);
        c.putString("formula", result.formula);
        c.put("items", JsonList(result.items));
        c.put("parameters", std::to_string(result.parameters));
        c.put("passes", result.passes ? "true" : "false");
        c.put("cancelled", result.cancelled ? "true" : "false");
    } else {
        std::cout << "formula:    " << result.formula << "\n";
        if (!result.items.empty()) {
            std::cout << "items:     ";
            for (const auto& item : result.items) std::cout << " " << item;
            std::cout << "\n";
        }
        std::cout << "parameters: " << result.parameters << "\n"
                  << (result.passes ? "passes" : "fails") << (result.cancelled ? " (check stopped by Cancel)" : "")
                  << "\n";
    }
    return result.passes ? kOk : kFailed;
}

const Register check{{"formula-check", "FILE",
                      std::string("check a formula file as the engine will parse it (") + kFormulaFileKind + ")",
                      Check}};

}  // namespace
}  // namespace halvo::cli
