#pragma once

#include <kalodata/parameters.h>

#include <vector>

#include "table.h"

namespace cli {

// Parameters of the axis: all of them, one by its id, and one by its place in the order of ids. Each throws
// Failure.
std::vector<KaloUserParameter> ReadParameters();
KaloUserParameter ReadParameter(std::int32_t id);
KaloUserParameter ReadParameterAt(std::int16_t index);

Table ParameterTable(const std::vector<KaloUserParameter>& parameters);

}  // namespace cli
