#pragma once

#include <string>
#include <vector>

#include "dao/engine.h"
#include "jetfile/reader.h"

namespace daoengine {

// What a converted database keeps beside its tables: the password and the version of the format in
// "~jet_properties", the stored queries in "~jet_queries". A file of the engine's format without them has no
// password and no queries.
void WriteBookkeeping(Engine& engine, const std::string& password,
                      const std::vector<jetfile::StoredQuery>& queries);

// Throws jet::Error: 3031 when the database has another password, 3343 when it is of a later format.
void CheckBookkeeping(Engine& engine, const std::string& password);

}  // namespace daoengine
