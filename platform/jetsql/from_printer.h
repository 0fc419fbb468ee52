#pragma once

#include <optional>
#include <string>
#include <vector>

#include "jetsql/scope.h"

namespace jetsql {

// A FROM clause as SQLite's text: joins without parentheses, those conditions of inner joins that have no
// place of their own left over for WHERE.
struct FromText {
    std::string sql;                      // `"a" AS t1 LEFT JOIN "b" AS t2 ON …`
    std::vector<std::string> conditions;  // to be joined to WHERE by AND
    std::string on;                       // of an inner join of two sources, the last one appended
};

// Binds the sources into `scope`, in the order in which they are written, and prints them.
FromText PrintFrom(Binding& binding, Scope& scope, const std::vector<SourcePtr>& from,
                   const std::optional<ExternalDatabase>& external);

// ` WHERE …` of the left-over conditions and the clause's own, or nothing.
std::string WhereClause(const std::vector<std::string>& conditions, const std::string& where);

}  // namespace jetsql
