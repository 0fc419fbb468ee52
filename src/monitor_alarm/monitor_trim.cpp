#include <kalodata/monitors.h>

#include "merge/control_type_trim.h"
#include "monitor_alarm/axis_tables.h"

using namespace kalo;

KaloStatus KALO_CALL KaloMonUpdate(std::int32_t axis_num, std::int32_t control_mask) {
    constexpr Status kNotOpen = 0x2BFF1570;
    constexpr TrimCodes kTrim = {
        .emptyTable = 0x2BFF1C03,
        .onWalk = DaoCode(0x2BFF1C04),
        .onDelete = DaoCode(0x2BFF1C05),
    };
    if (!DatabaseIsOpen()) return kNotOpen;
    CString table;
    const Status status =
        FindTable(MonitorTable(0x2BFF1C00, 0x2BFF1C01, DaoCode(0x2BFF1C02)), axis_num, table);
    if (status != kOk) return status;
    return TrimByControlType(table, static_cast<std::uint16_t>(control_mask), kTrim);
}
