#pragma once

#include <string>

#include "jetsql/expression_printer.h"

namespace jetsql {

// A value as it is stored in a column: converted the way Jet converts it when the types differ, as it is when
// they agree. A conversion that fails raises jet:3349, jet:3163 or jet:3421 when the statement runs.
std::string Stored(const Operand& value, const ValueType& column);

}  // namespace jetsql
