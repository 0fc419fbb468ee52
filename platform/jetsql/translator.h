#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "jet/schema.h"

// The Jet SQL dialect: lexer, parser, binder and printer to SQLite's SQL. All texts are UTF-8. Every failure
// is a jet::Error with DAO's number: a statement outside the dialect is refused, never passed on.
namespace jetsql {

// Where the binder finds tables and stored queries. Names compare without case.
class Catalogue {
  public:
    virtual ~Catalogue() = default;

    // A table of the current database, nullptr when there is none. The pointer stays valid during a
    // translation.
    virtual const jet::Table* FindTable(std::string_view name) = 0;

    // The Jet SQL text of a stored query, nullptr when there is none. A query that cannot be expressed throws
    // its jet::Error here.
    virtual const std::string* FindQuery(std::string_view name) = 0;

    // A table of another database file (FROM t IN '' [;DATABASE=path;PWD=pw]). `connect` is the text between
    // the brackets, `path` the text between the quotes; the implementation checks both (3321, 3170, 3024,
    // 3031, 3343, 3078) and makes the table visible to SQLite. Returns its definition and the quoted name to
    // read it by.
    struct ExternalTable {
        const jet::Table* table;
        std::string sqliteName;  // e.g. temp."external1"
    };
    virtual ExternalTable FindExternalTable(std::string_view name, std::string_view path,
                                            std::string_view connect) = 0;
};

// A literal lifted out of a statement's text: an integer, another number, or a text.
using Literal = std::variant<std::int64_t, double, std::string>;

// A statement with its literals lifted out. `key` is the same for all statements of one shape: same tokens
// (names as written, blanks folded), same kinds of literals. Positions in ORDER BY, sizes in DDL and TOP
// counts are no literals and stay in the key; so do the texts of an IN clause.
struct Shape {
    std::string key;
    std::vector<Literal> literals;
};

// Lexes a statement. This is the hot path of every call: one pass, no tree.
Shape ShapeOf(std::string_view statement);

enum class StatementKind {
    Select,
    SelectInto,
    Insert,
    Update,
    Delete,
    CreateTable,
    DropTable,
    AddColumn,
    DropColumn,
    CreateIndex,
    DropIndex,
};

struct OutputColumn {
    std::string name;  // alias, else the column's name
    jet::Type type = jet::Type::Long;
    int size = 0;
    int scale = 0;
};

// A SELECT over one table whose WHERE demands `column` = a literal at its top level (alone or joined by AND),
// so that an engine which knows the rows with that value need not walk the table. Where the translation is
// ordered, a lookup serves for one row at most.
struct EqualityLookup {
    std::string column;       // the table's spelling
    std::size_t literal = 0;  // index into Shape::literals
    std::string sqlByRow;  // the same SELECT (whole WHERE kept) for one row: SQLite's rowid is the parameter
                           // after the last literal; no ORDER BY
};

// A SELECT of a whole table in an order of its own, where the rows may happen to be stored in that order.
struct StoredOrder {
    std::string sql;      // the same SELECT in storage order
    std::string sqlKeys;  // the keys of the order, the first one first, then the row number, in storage order
    std::vector<bool> descending;  // by key
    std::string sqlByList;  // the same SELECT in the order of a list of row numbers (jetsql/row_list.h):
                            // the parameter after the last literal
};

struct Translation {
    StatementKind kind = StatementKind::Select;

    // SQLite's SQL; literal i is parameter ?i+1. For SelectInto the SELECT alone; empty for DDL.
    std::string sql;

    // Select and SelectInto.
    std::vector<OutputColumn> columns;

    // SelectInto and CreateTable: the new table; AddColumn: one column; CreateIndex: one index.
    jet::Table definition;

    // The table written, made, altered, indexed or dropped, in its stored spelling.
    std::string target;

    // DropColumn: the column; DropIndex: the index.
    std::string dropped;

    // Every table of this database that is read or written, in its stored spelling.
    std::vector<std::string> tables;

    std::vector<EqualityLookup> lookups;
    std::optional<StoredOrder> storedOrder;

    // False when the text depends on more than the shape and the tables named: an external table, or the
    // absence of the table that a definition or SELECT … INTO makes.
    bool cacheable = true;

    // Select: has an ORDER BY of its own, or DISTINCT.
    bool ordered = false;
};

// Parses, binds and prints one statement; its literals are the parameters, numbered as ShapeOf numbers them.
// Numbers: 3061 unknown column, 3075 and its kin for syntax, 3078 missing table, 3192/3127/3346/3063 for
// INSERT, 3010 existing table, 3376 DROP/ALTER of a missing one, 3380/3381 columns, 3464/3615 types, 3079
// ambiguous …
Translation Translate(std::string_view statement, Catalogue& catalogue);

// The same for a statement that is parsed already (jetsql/parser.h).
struct ParsedStatement;
Translation Translate(const ParsedStatement& statement, Catalogue& catalogue);

// Printed statements use SQL functions and a collation that the engine registers on each connection it opens:
// RegisterFunctions of jetsql/functions.h.

}  // namespace jetsql
