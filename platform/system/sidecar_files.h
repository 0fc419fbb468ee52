#pragma once

#include <filesystem>
#include <system_error>

namespace fileio {

// Removes what the database engine keeps beside a database file: its journals.
// Whatever removes or renews a database file calls this first, because the engine would apply a journal of
// the former file to the new one without a word. Returns the first error; a missing sidecar is none.
std::error_code RemoveSidecarFiles(const std::filesystem::path& database);

}  // namespace fileio
