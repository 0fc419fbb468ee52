#include "merge/on_demand_table.h"

#include "merge/builder.h"

namespace kalo {

Status BuildOnDemand(const OnDemandTable& table, std::int32_t axis, const BaseFilter* filter,
                     Status codeBase) {
    AxisIdentity axisIdentity;
    Status status = ReadAxisIdentity(axis, codeBase, axisIdentity);
    if (status != kOk) return status;
    const auto number = [](std::uint32_t value) { return static_cast<std::int32_t>(value); };
    const DeltaIdentity identity{number(axisIdentity.servoId),         number(axisIdentity.servoFirmware),
                                 number(axisIdentity.servoCustomSpec), number(axisIdentity.optionId),
                                 number(axisIdentity.optionFirmware),  number(axisIdentity.optionCustomSpec)};
    status = filter != nullptr ? CopyBaseRows(table.workTable, table.baseTable, identity.servoId,
                                              identity.optionId, *filter, codeBase)
                               : CopyBaseRows(table.workTable, table.baseTable, identity.servoId,
                                              identity.optionId, codeBase);
    if (status == kOk) status = ApplyDeltas(table.workTable, table.deltas, identity, codeBase);
    if (status != kOk) DropLeftover(table.workTable);
    return status;
}

}  // namespace kalo
