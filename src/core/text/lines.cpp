#include "text/lines.h"

namespace halvo::text {

bool LineReader::next(std::string& line) {
    if (rest_.empty()) return false;
    // A plain scan: find_first_of tests each character against the set through a library call.
    size_t at = 0;
    while (at < rest_.size() && rest_[at] != '\r' && rest_[at] != '\n') ++at;
    if (at == rest_.size()) {
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
