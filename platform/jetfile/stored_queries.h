#pragma once

#include <vector>

#include "jetfile/catalogue.h"

namespace jetfile {

// Rebuilds the stored queries that the catalogue names. Damage in their rows shows as a query's `problem`,
// not as an exception: it must not keep anybody from the tables.
std::vector<StoredQuery> ReadStoredQueries(const DatabaseFile& file, const Catalogue& catalogue);

}  // namespace jetfile
