#pragma once

#include <kalodata/parameters.h>

#include <vector>

#include "output.h"
#include "table.h"

namespace cli {

// Prints the digits of those parameters that have any: each digit's name, its values and their meanings.
void PrintDigits(const std::vector<KaloUserParameter>& parameters, std::uint16_t language, Format format);

// The values that the digits of those parameters may have, digit after digit, and the messages that they
// show.
Table DigitValueTable(const std::vector<KaloUserParameter>& parameters, std::uint16_t language);

}  // namespace cli
