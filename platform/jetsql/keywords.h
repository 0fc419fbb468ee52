#pragma once

#include <string_view>

#include "jetsql/lexer.h"

namespace jetsql {

// The keyword that a bare word is, in any case; None for a name.
Keyword KeywordOf(std::string_view word);

// True when an operand must follow the keyword, so that a minus sign after it belongs to a number.
bool ExpectsOperand(Keyword keyword);

}  // namespace jetsql
