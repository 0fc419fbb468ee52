#pragma once

#include "merge/version_delta.h"

// A table that lives within one call: built from a base table and its deltas for the drive of an axis, read,
// dropped.
namespace kalo {

struct OnDemandTable {
    const char* workTable;
    const char* baseTable;
    DeltaTables deltas;
};

// Builds the table for an axis as it is registered; the base rows are those of its model and option unit,
// filtered once more where `filter` is given. Codes: the offsets of MergeCode to `codeBase`, + 8 unknown
// axis, + 9 reading the axis failed. A failed build leaves no table behind.
Status BuildOnDemand(const OnDemandTable& table, std::int32_t axis, const BaseFilter* filter,
                     Status codeBase);

// Builds the table with `buildBase`, runs `read` and drops the table with `dropBase` (+ 7), whether the read
// succeeded or not. Returns the first status that is not 0.
template <class Read>
Status WithOnDemandTable(const OnDemandTable& table, std::int32_t axis, const BaseFilter* filter,
                         Status buildBase, Status dropBase, Read read) {
    const Status built = BuildOnDemand(table, axis, filter, buildBase);
    if (built != kOk) return built;
    const Status status = read();
    const Status dropped = DropWorkTable(table.workTable, dropBase);
    return status != kOk ? status : dropped;
}

}  // namespace kalo
