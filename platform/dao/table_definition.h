#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "dao/engine.h"
#include "jet/schema.h"

namespace daoengine {

// What tells user tables in SQLite's schema from the engine's own and from those in which a converted file
// keeps its queries and properties.
inline constexpr char kUserTableFilter[] =
    "type = 'table' AND name NOT GLOB 'sqlite_*' AND name NOT GLOB '~jet_*'";

// Names of the tables that a database's user made, in the order in which they were made: neither the engine's
// own nor those in which a converted file keeps its queries and properties.
std::vector<std::string> UserTableNames(Engine& engine);

// Reads the columns of a table, named as it is stored, from the database's schema.
jet::Table ReadColumns(Engine& engine, const std::string& stored);

// The same by a name that compares without case, whatever the alphabet; nothing when there is no such table.
std::optional<jet::Table> ReadTableDefinition(Engine& engine, std::string_view name);

}  // namespace daoengine
