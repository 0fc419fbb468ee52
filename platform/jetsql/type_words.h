#pragma once

#include <string_view>

#include "jet/schema.h"

// The type words of CREATE TABLE and ALTER TABLE, with their synonyms.
namespace jetsql {

// Sets type, default size and counter by a type word in any case; false for a word that is none.
bool SetTypeByWord(std::string_view word, jet::Column& column);

// Sets the size in parentheses after a type word; false where the type has none or it is out of range. TEXT
// with a size is Text, without one Memo.
bool SetTypeSize(jet::Column& column, int size, int scale);

}  // namespace jetsql
