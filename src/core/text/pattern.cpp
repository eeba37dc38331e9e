#include "text/pattern.h"

namespace halvo::text {

std::string Fill(std::string_view pattern, std::initializer_list<std::pair<std::string_view, std::string_view>> values) {
    std::string out;
    out.reserve(pattern.size() + 64);
    for (size_t i = 0; i < pattern.size();) {
        bool replaced = false;
        for (const auto& [key, value] : values) {
            if (!key.empty() && pattern.compare(i, key.size(), key) == 0) {
                out += value;
                i += key.size();
                replaced = true;
                break;
            }
        }
        if (!replaced) out += pattern[i++];
    }
    return out;
}

}  // namespace halvo::text
