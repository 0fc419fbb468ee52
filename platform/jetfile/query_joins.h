#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace jetfile {

// A table, stored query or subselect in a query's FROM clause.
struct QueryInput {
    std::string name;  // by which joins refer to it: its alias, else its name
    std::string text;  // as it stands in the clause
};

// One condition between two inputs. `kind` is 1 for an inner, 2 for a left, 3 for a right join.
struct QueryJoin {
    std::string left;
    std::string right;
    std::string condition;
    std::int64_t kind = 0;
};

// The FROM clause without its word: joins nested in parentheses in their order, several conditions of one
// join tied by AND, what is not joined separated by commas. Throws 3049 for joins that make no clause.
std::string FromText(const std::vector<QueryInput>& inputs, const std::vector<QueryJoin>& joins);

// The name as it stands in a statement.
std::string BracketedName(const std::string& name);

}  // namespace jetfile
