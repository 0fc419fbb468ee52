#pragma once

#include <string_view>

struct sqlite3;

namespace jetsql {

// Compares texts as Jet does: without case, trailing blanks ignored.
int CompareTexts(std::string_view a, std::string_view b);

// Makes the collation JET known to a connection.
int RegisterCollation(sqlite3* connection);

}  // namespace jetsql
