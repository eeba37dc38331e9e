#pragma once
// Pieces shared by the profile and variation-flag routines.
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace halvo {
struct Session;
}

namespace halvo::profile_detail {

// The regular file that `name` stands for: as given when it holds a directory, else in the working
// directory; case ignored.
std::optional<std::string> FindFile(const Session& s, const std::string& name);

// The items of a line as the readers cut them: the separator is fixed by CountTokens, the items are
// cut with NextToken.
void SplitItems(std::string_view line, std::vector<std::string>& items);

// A layer line without its comment: everything from the last "|" on is dropped.
std::string_view BeforeComment(std::string_view line);

}  // namespace halvo::profile_detail
