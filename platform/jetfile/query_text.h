#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "jetfile/reader.h"

namespace jetfile {

// One piece of a stored query; `attribute` says what the other fields mean.
struct QueryRow {
    std::int64_t attribute = 0;
    Blob order;
    std::string name1;
    std::string name2;
    std::string expression;
    std::int64_t flag = 0;
};

// The Jet SQL text of a SELECT query, from its catalogue flags and its rows in logical order. Throws
// jet::Error for a query of another kind (3064) and for rows that make no query (3049).
std::string SelectText(std::uint32_t catalogueFlags, const std::vector<QueryRow>& rows);

}  // namespace jetfile
