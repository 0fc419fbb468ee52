#pragma once

#include <cstdint>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace jetsql {

// Row numbers in an order that the engine does not know of.
using RowList = std::vector<std::int64_t>;

// The table from which a statement reads a list: kRowList(?n) with the column `number`. No Jet table is named
// like it.
inline constexpr char kRowList[] = "\"row.list\"";

// Makes the table known on a connection; returns SQLite's code.
int RegisterRowList(sqlite3* connection);

// Binds a list, which must stay as it is while the statement runs; returns SQLite's code.
int BindRowList(sqlite3_stmt* statement, int parameter, const RowList& rows);

}  // namespace jetsql
