#include "text/lines.h"

namespace halvo::text {

bool LineReader::next(std::string& line) {
    if (rest_.empty()) return false;
    const auto at = rest_.find_first_of("\r\n");
    if (at == std::string_view::npos) {
        line.assign(rest_);
        rest_ = {};
        return true;
    }
    line.assign(rest_.substr(0, at));
    size_t skip = 1;
    if (rest_[at] == '\r' && at + 1 < rest_.size() && rest_[at + 1] == '\n') skip = 2;
    rest_.remove_prefix(at + skip);
    return true;
}

std::vector<std::string> SplitLines(std::string_view bytes) {
    std::vector<std::string> lines;
    LineReader reader(bytes);
    std::string line;
    while (reader.next(line)) lines.push_back(line);
    return lines;
}

}  // namespace halvo::text
