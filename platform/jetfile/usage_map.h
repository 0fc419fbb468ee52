#pragma once

#include <cstdint>
#include <vector>

#include "jetfile/database_file.h"

namespace jetfile {

// The pages that a usage map names, in ascending order; `pointer` leads to the map's row. Throws 3049 when
// the map is damaged or names a page beyond the end of the file.
std::vector<std::uint32_t> MappedPages(const DatabaseFile& file, std::uint32_t pointer);

}  // namespace jetfile
