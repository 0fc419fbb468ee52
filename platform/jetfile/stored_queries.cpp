#include "jetfile/stored_queries.h"

#include <algorithm>
#include <map>
#include <set>
#include <tuple>

#include "jet/error.h"
#include "jetfile/query_text.h"

namespace jetfile {
namespace {

using RowsByQuery = std::map<std::int64_t, std::vector<QueryRow>>;

Blob OrderOf(const Value& value) {
    const auto* order = std::get_if<Blob>(&value);
    return order != nullptr ? *order : Blob();
}

// The rows of all queries that the catalogue names, each query's in their logical order.
RowsByQuery ReadRows(const DatabaseFile& file, const Catalogue& catalogue) {
    RowsByQuery rows;
    for (const CataloguedQuery& query : catalogue.queries)
        rows[query.id];
    ForEachSystemRow(file, catalogue.queryRowsPage,
                     {"ObjectId", "Attribute", "Order", "Name1", "Name2", "Expression", "Flag"},
                     [&](const Row& row) {
                         const auto query = rows.find(NumberOf(row[0]));
                         if (query == rows.end()) return;
                         query->second.push_back({.attribute = NumberOf(row[1]),
                                                  .order = OrderOf(row[2]),
                                                  .name1 = TextOf(row[3]),
                                                  .name2 = TextOf(row[4]),
                                                  .expression = TextOf(row[5]),
                                                  .flag = NumberOf(row[6])});
                     });
    for (auto& [id, list] : rows) {
        std::stable_sort(list.begin(), list.end(), [](const QueryRow& left, const QueryRow& right) {
            return std::tie(left.attribute, left.order) < std::tie(right.attribute, right.order);
        });
    }
    return rows;
}

StoredQuery Rebuild(const CataloguedQuery& query, const std::vector<QueryRow>& rows) {
    try {
        return {.name = query.name, .sql = SelectText(query.flags, rows), .problem = {}};
    } catch (const jet::Error& error) {
        return {.name = query.name, .sql = {}, .problem = error.what()};
    }
}

}  // namespace

std::vector<StoredQuery> ReadStoredQueries(const DatabaseFile& file, const Catalogue& catalogue) {
    std::vector<StoredQuery> queries;
    if (catalogue.queries.empty()) return queries;
    try {
        const RowsByQuery rows = ReadRows(file, catalogue);
        for (const CataloguedQuery& query : catalogue.queries)
            queries.push_back(Rebuild(query, rows.at(query.id)));
    } catch (const jet::Error& error) {
        for (const CataloguedQuery& query : catalogue.queries)
            queries.push_back({query.name, {}, error.what()});
    }
    return queries;
}

}  // namespace jetfile
