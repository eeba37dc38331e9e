#pragma once
// Message patterns: a text with "<name>"-style places filled in, so that messages stand in the source
// as the program shows them.
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

namespace halvo::text {

// Each place (a key such as "<file>", or any other piece of the text) is replaced by its value, in
// one pass from the left; text that no key matches stays as it is.
std::string Fill(std::string_view pattern, std::initializer_list<std::pair<std::string_view, std::string_view>> values);

}  // namespace halvo::text
