#pragma once

#include <cstdint>

#include "table.h"

// What the database knows about parameters beside their list. Each throws Failure.
namespace cli {

// The name of the parameter with a fixed id; asks no axis.
Table FixedName(std::uint16_t fixedId, std::uint16_t language);

// The digit of a parameter that switches a function of the axis's drive on.
Table FunctionSwitch(std::int32_t function);

// Two versions of an amplifier, and two of its option unit.
struct VersionPairs {
    std::uint32_t firmware[2] = {};
    std::uint32_t optionFirmware[2] = {};
};

// Whether the parameters of the axis's devices differ between versions.
Table VersionComparison(const VersionPairs& versions);

}  // namespace cli
