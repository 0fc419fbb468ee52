#pragma once

#include <memory>
#include <set>
#include <string>
#include <vector>

#include "jetsql/ast.h"
#include "jetsql/translator.h"
#include "jetsql/types.h"

namespace jetsql {

// A column that statements may name, and how SQLite's text names it.
struct BoundColumn {
    std::string name;
    std::string sql;
    ValueType type;
    bool counter = false;
};

// What rows are ordered by.
struct OrderKey {
    std::string sql;
    bool descending = false;
};

// A table, external table, stored query or sub-select in a FROM clause.
struct BoundSource {
    std::string name;   // that qualifies its columns: alias, else table name
    std::string alias;  // in SQLite's text
    std::string from;   // `"table" AS t1`
    std::vector<BoundColumn> columns;
    std::vector<OrderKey> storageOrder;  // the order in which its rows are stored
    std::string rowid;                   // of a table; empty for a query
    const jet::Table* table = nullptr;   // of this database only
    bool nullable = false;               // an outer join may fill it with Nulls
};

// The sources that names in one SELECT, UPDATE or DELETE refer to, inner scopes before outer ones.
class Scope {
  public:
    explicit Scope(const Scope* outer) : outer_(outer) {}

    // The sources from `first` up to `last` of another scope, as the condition of a join sees them.
    Scope(const Scope& whole, std::size_t first, std::size_t last);

    void Add(BoundSource source) { sources_.push_back(std::make_shared<BoundSource>(std::move(source))); }
    std::size_t Size() const { return sources_.size(); }
    const BoundSource& At(std::size_t index) const { return *sources_[index]; }
    BoundSource& At(std::size_t index) { return *sources_[index]; }

    struct Match {
        const BoundSource* source = nullptr;
        const BoundColumn* column = nullptr;
        bool outer = false;
    };

    // Finds a column here, then in the outer scopes; an empty match when there is none, 3079 when there are
    // several.
    Match Find(const std::string& table, const std::string& name) const;

    // The source that a qualifier names, in this scope only; nullptr when there is none.
    const BoundSource* FindSource(const std::string& name) const;

  private:
    Match FindHere(const std::string& table, const std::string& name) const;

    const Scope* outer_;
    std::vector<std::shared_ptr<BoundSource>> sources_;
};

// What one translation accumulates while its statement is bound and printed.
class Binding {
  public:
    Binding(Catalogue& source, Translation& target) : catalogue(source), result(target) {}

    Catalogue& catalogue;
    Translation& result;
    std::size_t literals = 0;  // lifted out of the statement

    // A name for a source or an output in SQLite's text, unique in the statement.
    std::string NewAlias() { return "t" + std::to_string(++aliases_); }

    // Notes a table of this database that the statement touches.
    void Touch(const jet::Table& table);

    // Notes a name that no table has: Jet takes it for a parameter that nobody gives.
    void Unknown(const std::string& table, const std::string& name);

    // 3061 when there were unknown names.
    void RefuseUnknown() const;

    // Encloses the expansion of a stored query; 3102 when it contains itself.
    void OpenQuery(const std::string& name);
    void CloseQuery() { openQueries_.pop_back(); }

  private:
    int aliases_ = 0;
    int expansions_ = 0;
    std::set<std::string> unknown_;
    std::vector<std::string> openQueries_;
};

// The name of SQLite's row number of a table, which a column of that name would hide.
std::string RowidName(const jet::Table& table);

// A table as a source; `printed` is the quoted name to read it by.
BoundSource BindTable(Binding& binding, const jet::Table& table, const std::string& printed,
                      const std::string& name);

}  // namespace jetsql
