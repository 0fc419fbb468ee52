#pragma once

#include <cstdint>
#include <vector>

#include "table.h"

namespace cli {

// A trace kind, and the bitmap by which a drive tells what it supports; an empty one stands for a drive that
// supports everything.
struct TraceQuestion {
    std::uint32_t kind;
    std::vector<std::uint16_t> support;
};

// What the axis offers for a question. Throws Failure.
Table AnalogTraces(const TraceQuestion& question);
Table IoTraces(const TraceQuestion& question);

// What the axis offers at a position of a kind's display order, analog targets among those that are listed;
// whatever the drive supports. Throws Failure past the end.
Table AnalogTraceAt(std::uint32_t kind, std::uint16_t position);
Table IoTraceAt(std::uint32_t kind, std::uint16_t position);

// One target without an axis.
Table OfflineAnalogTrace(std::int32_t id);
Table OfflineIoTrace(std::uint32_t servo, std::int32_t id);

// The settings that stand for no target: of the axis, and without one.
Table NoTarget();
Table OfflineNoTarget();

}  // namespace cli
