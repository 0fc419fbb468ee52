#pragma once

#include <kalodata/parameters.h>

#include <string>
#include <vector>

namespace cli {

// Those of the axis's parameters that are in a category or an additional group, given by name or id. Throws
// Failure, with the groups that there are, for one that does not exist.
std::vector<KaloUserParameter> MembersOf(const std::string& group,
                                         const std::vector<KaloUserParameter>& parameters);

}  // namespace cli
