#pragma once

#include <string_view>

namespace jetsql {

// Jet's LIKE: `*` any characters, `?` one, `#` one digit, `[a-z]` and `[!a-z]` one of a list; without case.
// A list that is not closed matches nothing.
bool MatchesPattern(std::string_view text, std::string_view pattern);

}  // namespace jetsql
