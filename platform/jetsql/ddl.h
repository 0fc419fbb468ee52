#pragma once

#include <string>
#include <string_view>

#include "jet/schema.h"

// The declarations of the engine's own file format: SQLite tables whose declared types name the Jet type in
// their first word and give SQLite the right affinity by their second ("LONG INTEGER", "JETTEXT TEXT(50)").
//
// Values as stored: Boolean -1 or 0; Currency a double, the nearest to its four decimals, exact up to about
// 900,000,000,000; Single a double cut to float; DateTime the day number; Decimal a number of up to 15 exact
// digits.
namespace jetsql {

// The declared type of a column, without collation or default.
std::string DeclaredType(const jet::Column& column);

// The way back from a declared type as sqlite3_column_decltype or table_info give it. A type that none of
// ours gives becomes Memo, Double or Long by its affinity.
jet::Column ColumnFromDeclaration(std::string_view name, std::string_view declaredType);

std::string CreateTableSql(const jet::Table& table);
std::string AddColumnSql(std::string_view table, const jet::Column& column);
std::string DropColumnSql(std::string_view table, std::string_view column);
std::string DropTableSql(std::string_view table);

// The name of an index within SQLite, where index names are unique in the whole file.
std::string IndexName(std::string_view table, std::string_view index);

std::string CreateIndexSql(std::string_view table, const jet::Index& index);
std::string DropIndexSql(std::string_view table, std::string_view index);

}  // namespace jetsql
