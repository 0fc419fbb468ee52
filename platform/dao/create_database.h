#pragma once

#include <string>

namespace daoengine {

// Makes an empty database file in the engine's own format, protected by a password (in UTF-8) unless that is
// empty. A file of that name is replaced. Throws jet::Error.
void CreateDatabaseFile(const std::string& path, const std::string& password);

}  // namespace daoengine
