#pragma once

#include <optional>
#include <string>
#include <vector>

#include "jetsql/expression_printer.h"
#include "jetsql/scope.h"

namespace jetsql {

// One output of a SELECT.
struct SelectItem {
    std::string sql;    // with its collation
    std::string name;   // empty for an unnamed expression
    std::string table;  // the source's name for a plain column
    ValueType type;
    bool counter = false;
    bool named = false;     // by an alias of its own
    bool constant = false;  // looks at no row
    bool nullable = false;
};

// A SELECT as pieces of SQLite's text, to be put together as its place demands.
struct SelectText {
    std::vector<SelectItem> items;
    std::string tail;             // FROM, WHERE, GROUP BY and HAVING, with a leading blank
    std::string where;            // the condition alone
    std::vector<OrderKey> order;  // the whole order of the rows
    std::size_t ownKeys = 0;      // so many of them come from its ORDER BY
    bool distinct = false;
    bool grouped = false;
    std::string rowSource;   // the table alone, where the rows are those of one table
    std::string rowid;       // and its row number
    bool singleRow = false;  // one row at most, whatever the tables hold
    std::optional<std::int64_t> top;

    // The statement itself.
    std::string Ordered() const;

    // The same without sorting, for rows of one whole table that are to be sorted. A list of row numbers is
    // `parameter`.
    std::optional<StoredOrder> InStoredOrder(int parameter) const;

    // As a sub-query, where the order matters to TOP alone.
    std::string Unordered() const;

    // As a source with columns c1, c2 …, and its order in k1, k2 …
    std::string Derived() const;

    // SELECT, outputs and tail.
    std::string Plain() const;

  private:
    bool SortsByRow() const { return !top && ownKeys > 0 && !rowSource.empty(); }
    std::string Source() const;
    std::string Ranked(bool keys) const;
    std::string SortedByRow() const;
    std::string ByRow(const std::string& source, const std::string& number) const;
};

// The outputs' names: alias, else column name, which is qualified by its table where several outputs share
// it.
std::vector<std::string> OutputNames(const std::vector<SelectItem>& items, char separator);

// ` ORDER BY …`, or nothing.
std::string OrderClause(const std::vector<OrderKey>& order);

// Binds and prints a SELECT; `outer` is the scope around a sub-query.
SelectText PrintSelect(Binding& binding, const Select& select, const Scope* outer);

}  // namespace jetsql
