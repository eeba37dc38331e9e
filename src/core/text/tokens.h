#pragma once
// Line cutting shared by every reader: the tokeniser, token counting and file-name pieces.
#include <string>
#include <string_view>

namespace halvo::text {

// Removes leading and trailing blanks (blanks only, not tabs).
std::string_view TrimView(std::string_view s);
std::string Trim(std::string_view s);
std::string Lower(std::string_view s);
std::string Upper(std::string_view s);
bool EqualsIgnoreCase(std::string_view a, std::string_view b);

// Number of fields in `line`. An empty `separator` is set to the first of blank, tab, CR (in that
// order of preference) found in the trimmed line; runs of the separator count as one.
int CountTokens(std::string_view line, std::string& separator);

// Cuts one token off the front of `line` (see the notes in tokens.cpp for the exact rules).
std::string NextToken(std::string& line, const std::string& separator, bool allowQuote = false);

// The name after the last path separator ("\" or "/"), or with wantDirectory the part before it.
std::string FileNameOf(std::string_view path, bool wantDirectory = false);

// The text before the first dot; `extension` receives what follows that dot.
std::string SplitExtension(std::string_view name, std::string& extension);
inline std::string BaseName(std::string_view name) {
    std::string ext;
    return SplitExtension(name, ext);
}

}  // namespace halvo::text
