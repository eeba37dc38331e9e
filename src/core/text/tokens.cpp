#include "text/tokens.h"

#include <algorithm>

namespace halvo::text {

std::string_view TrimView(std::string_view s) {
    const auto first = s.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    const auto last = s.find_last_not_of(' ');
    return s.substr(first, last - first + 1);
}

std::string Trim(std::string_view s) { return std::string(TrimView(s)); }

std::string Lower(std::string_view s) {
    std::string out(s);
    for (char& c : out)
        if (c >= 'A' && c <= 'Z') c = char(c - 'A' + 'a');
    return out;
}

std::string Upper(std::string_view s) {
    std::string out(s);
    for (char& c : out)
        if (c >= 'a' && c <= 'z') c = char(c - 'a' + 'A');
    return out;
}

bool EqualsIgnoreCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i) {
        char x = a[i], y = b[i];
        if (x >= 'A' && x <= 'Z') x = char(x - 'A' + 'a');
        if (y >= 'A' && y <= 'Z') y = char(y - 'A' + 'a');
        if (x != y) return false;
    }
    return true;
}

int CountTokens(std::string_view line, std::string& separator) {
    const std::string_view s = TrimView(line);
    if (s.empty()) return 0;
    if (separator.empty()) {
        for (char candidate : {' ', '\t', '\r'}) {
            if (s.find(candidate) != std::string_view::npos) {
                separator.assign(1, candidate);
                break;
            }
        }
        if (separator.empty()) return 1;
    }
    // Fields are the runs between runs of the separator; separators at either end are ignored.
    const char sep = separator[0];
    int count = 0;
    bool inField = false;
    for (char c : s) {
        if (c == sep) {
            inField = false;
        } else if (!inField) {
            inField = true;
            ++count;
        }
    }
    return count;
}

// With a separator: the token ends before the first separator (a leading double quote, when
// allowed, makes the quote the separator for this call). Without one: the token ends at the first
// blank, tab or LF, or - when the line holds an "e" - before a minus that is not the sign of that
// exponent, so that numbers written together ("1.5e3-2.5") come apart without losing a character.
std::string NextToken(std::string& line, const std::string& separator, bool allowQuote) {
    constexpr size_t npos = std::string_view::npos;
    std::string_view s = TrimView(line);
    std::string_view token;
    std::string_view rest;
    if (!separator.empty()) {
        std::string_view sep = separator;
        if (allowQuote && !s.empty() && s.front() == '"') {
            sep = "\"";
            s.remove_prefix(1);
        }
        const auto at = sep.size() == 1 ? s.find(sep[0]) : s.find(sep);
        if (at == npos) {
            token = s;
        } else {
            token = s.substr(0, at);
            rest = s.substr(at + sep.size());
        }
    } else {
        // The minus only matters before the first blank; the "e" may stand anywhere in the line.
        size_t end = npos, e = npos, m = npos;
        for (size_t i = 0; i < s.size(); ++i) {
            const char c = s[i];
            if (c == ' ' || c == '\t' || c == '\n') {
                end = i;
                break;
            }
            if (m == npos && i >= 1 && c == '-') m = i;
        }
        if (m != npos) e = s.find_first_of("eE");
        const size_t limit = end == npos ? s.size() : end;
        if (e != npos && m != npos && m != e + 1 && m < limit) {
            token = s.substr(0, m);
            rest = s.substr(m);
        } else if (end == npos) {
            token = s;
        } else {
            token = s.substr(0, end);
            rest = s.substr(end + 1);
        }
    }
    std::string out(TrimView(token));
    // The rest stays in `line`, trimmed, cut in place: no copy of the remainder per token.
    const std::string_view kept = TrimView(rest);
    if (kept.empty()) {
        line.clear();
        return out;
    }
    const size_t from = size_t(kept.data() - line.data());
    const size_t length = kept.size();
    line.erase(from + length);
    line.erase(0, from);
    return out;
}

std::string FileNameOf(std::string_view path, bool wantDirectory) {
    const auto at = path.find_last_of("\\/");
    if (at == std::string_view::npos) return wantDirectory ? std::string() : std::string(path);
    return std::string(wantDirectory ? path.substr(0, at) : path.substr(at + 1));
}

std::string SplitExtension(std::string_view name, std::string& extension) {
    const auto dot = name.find('.');
    if (dot == std::string_view::npos) {
        extension.clear();
        return std::string(name);
    }
    extension = std::string(name.substr(dot + 1));
    return std::string(name.substr(0, dot));
}

}  // namespace halvo::text
