#pragma once

#include "table.h"

namespace cli {

// The choices of pulse form, logic and multiplication in a language. Throws Failure for a language without
// any.
Table PulseTable(std::uint16_t language);

}  // namespace cli
