#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "jetfile/table_rows.h"

namespace jetfile {

// A user table that the catalogue names.
struct CataloguedTable {
    std::string name;
    std::uint32_t definitionPage = 0;
};

// A stored query that the catalogue names.
struct CataloguedQuery {
    std::string name;
    std::int64_t id = 0;
    std::uint32_t flags = 0;
};

struct Catalogue {
    std::vector<CataloguedTable> tables;
    std::vector<CataloguedQuery> queries;
    std::uint32_t queryRowsPage =
        0;  // definition of the system table of stored queries; 0 when there is none
};

// Reads the system table of all objects.
Catalogue ReadCatalogue(const DatabaseFile& file);

// Visits the rows of a system table, reduced to the named columns in the given order.
void ForEachSystemRow(const DatabaseFile& file, std::uint32_t definitionPage,
                      const std::vector<std::string>& columns, const std::function<void(const Row&)>& visit);

// A field of a system table as number or text; 0 or "" for Null and for a value of another kind.
std::int64_t NumberOf(const Value& value);
std::string TextOf(const Value& value);

}  // namespace jetfile
