#pragma once

#include <optional>

#include "jet/error.h"

struct sqlite3;

namespace jetsql {

// Registers the collation JET, the functions that printed statements call and the table of row lists. Throws
// jet::Error when SQLite has no memory for them.
void RegisterFunctions(sqlite3* connection);

// The error that a function raised while a statement ran, out of SQLite's message; nothing for SQLite's own
// errors.
std::optional<jet::Error> ErrorFromMessage(const char* message);

}  // namespace jetsql
