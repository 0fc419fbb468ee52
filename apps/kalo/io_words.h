#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "output.h"

namespace cli {

enum class Direction : std::int16_t { Inputs = 1, Outputs = 2 };

const char* NameOf(Direction direction);

// Ids of the user parameters of the axis that allocate signals of a direction.
std::vector<std::int32_t> AllocatingParameterIds(Direction direction);

// What every value of every digit stands for, of every allocating parameter or of the one at an address.
Table AllocationTable(const std::vector<Direction>& directions, std::optional<std::int32_t> address,
                      std::uint16_t selectWord);

// Prints the signals and terminals that a parameter's word allocates, as a picture of its four digits;
// parameters as above. Both throw Failure where there is none at the address.
void PrintDecodedWord(const std::vector<Direction>& directions, std::optional<std::int32_t> address,
                      std::uint16_t word, std::uint16_t selectWord, Format format);

}  // namespace cli
