#pragma once

#include <cstdint>
#include <limits>
#include <vector>

#include "options.h"
#include "status_words.h"

namespace cli {

// The one axis that the program registers for a combination.
inline constexpr std::int16_t kAxis = 1;

// What is mounted behind an amplifier.
struct Motor {
    std::int32_t id = 0;
    std::int32_t encoder = 0;
    std::int32_t encoderFirmware = KALO_NONE;
};

// Each builds a table of the axis. Throws Failure.
void BuildParameters(const Combination& combination, std::uint16_t language);
void BuildMonitors(const Combination& combination, std::uint16_t language);
void BuildAlarms(const Combination& combination, std::uint16_t language);

// Which rows of the trace tables an axis gets.
struct TraceRange {
    std::int16_t specVersion = std::numeric_limits<std::int16_t>::max();  // the newest one not above it
    std::int16_t controlType = 0;  // of the digital signals; 0: only those of every control type
};

void BuildTraces(const Combination& combination, std::uint16_t language, const TraceRange& range = {});

// Writes the identity of the axis, for which something has to be built already.
void Identify(const Combination& combination, const Motor& motor = {});

// The records of a list that a getter of its length goes before.
template <class Record, class Number, class CountGetter, class ListGetter>
std::vector<Record> ReadList(const char* countName, CountGetter countGetter, const char* listName,
                             ListGetter listGetter) {
    Number count = 0;
    Check(countName, countGetter(&count));
    std::vector<Record> records(count);
    if (count != 0) Check(listName, listGetter(count, records.data()));
    return records;
}

}  // namespace cli
