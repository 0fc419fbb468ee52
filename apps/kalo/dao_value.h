#pragma once

#include <afxdao.h>

#include "table.h"

namespace cli {

// A field's value: binary as hexadecimal digits, a date in ISO 8601, an exact number as its digits.
Cell CellOf(const COleVariant& value);

}  // namespace cli
