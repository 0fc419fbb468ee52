#include <kalodata/alarms.h>

#include <utility>

#include "monitor_alarm/axis_tables.h"

using namespace kalo;

namespace {

// The id of the alarm or monitor that has a fixed role: the first row of a statement over one of the axis's
// tables.
struct RoleQuery {
    Status notOpen;
    TableLookup table;
    const char* statement;
    const char* column;
    Status noRow;
    OnDaoError onRead;
};

// Reads the id of a role in `table`.
Status ReadRole(const RoleQuery& role, const CString& table, std::uint32_t& id) {
    return Locked(role.onRead, [&] {
        Rows rows(Sql(role.statement, table));
        if (rows.Empty()) return role.noRow;
        rows.First();
        id = static_cast<std::uint32_t>(rows.Value(role.column));
        return kOk;
    });
}

Status FindRole(const RoleQuery& role, std::int16_t axis, std::uint32_t* id) {
    if (!DatabaseIsOpen()) return role.notOpen;
    CString table;
    const Status status = FindTable(role.table, axis, table);
    if (status != kOk) return status;
    return ReadRole(role, table, *id);
}

constexpr RoleQuery kNormalState = {
    .notOpen = 0x2BFF0070,
    .table = AlarmTable(0x2BFF06DB, DaoCode(0x2BFF0071)),
    .statement = "SELECT * FROM [%s] WHERE [alarm_name_id] = 1",
    .column = "alarm_code",
    .noRow = 0x2BFF0072,
    .onRead = DaoCode(0x2BFF0073),
};
constexpr RoleQuery kAppModuleAlarm = {
    .notOpen = 0x2BFF08AB,
    .table = AlarmTable(0x2BFF08AC, DaoCode(0x2BFF08AD)),
    .statement = "SELECT * FROM [%s] WHERE [fixed_id] = 10",
    .column = "alarm_code",
    .noRow = 0x2BFF08AE,
    .onRead = DaoCode(0x2BFF08AF),
};
// The normal state, the alarm monitor and the error monitor share codes.
constexpr RoleQuery kAlarmMonitor = {
    .notOpen = 0x2BFF0070,
    .table = AlarmMonitorTable(0x2BFF06DC, DaoCode(0x2BFF0078)),
    .statement = "SELECT * FROM [%s] WHERE [fixed_id] =10",
    .column = "monitor_id",
    .noRow = 0x2BFF0079,
    .onRead = DaoCode(0x2BFF007A),
};
constexpr RoleQuery kErrorMonitor = {
    .notOpen = 0x2BFF0070,
    .table = AlarmMonitorTable(0x2BFF0992, DaoCode(0x2BFF0993)),
    .statement = "SELECT * FROM [%s] WHERE [fixed_id] = 250",
    .column = "monitor_id",
    .noRow = 0x2BFF0079,
    .onRead = DaoCode(0x2BFF007A),
};
constexpr RoleQuery kTraceBack = {
    .notOpen = 0x2BFF007C,
    .table = AlarmMonitorTable(0x2BFF06DD, DaoCode(0x2BFF007D)),
    .statement = "SELECT * FROM [%s] WHERE [fixed_id] =11",
    .column = "monitor_id",
    .noRow = 0x2BFF007E,
    .onRead = DaoCode(0x2BFF007F),
};

// The first two entries of the trace-back, for their distance.
constexpr RoleQuery kFirstEntry = {
    .notOpen = 0x2BFF0080,
    .table = AlarmMonitorTable(0x2BFF06DE, DaoCode(0x2BFF0081)),
    .statement = "SELECT * FROM [%s] WHERE [fixed_id] =11",
    .column = "monitor_id",
    .noRow = 0x2BFF0082,
    .onRead = DaoCode(0x2BFF0083),
};
constexpr RoleQuery kSecondEntry = {
    .notOpen = 0x2BFF0080,
    .table = kFirstEntry.table,
    .statement = "SELECT * FROM [%s] WHERE [fixed_id] =12",
    .column = "monitor_id",
    .noRow = 0x2BFF0084,
    .onRead = DaoCode(0x2BFF0085),
};

}  // namespace

KaloStatus KALO_CALL KaloGetAlarmNormalId(std::int16_t axis_num, std::uint32_t* alarm_code) {
    return FindRole(kNormalState, axis_num, alarm_code);
}

KaloStatus KALO_CALL KaloGetAppModuleAlarmId(std::int16_t axis_num, std::uint32_t* alarm_code) {
    return FindRole(kAppModuleAlarm, axis_num, alarm_code);
}

KaloStatus KALO_CALL KaloGetAlarmId(std::int16_t axis_num, std::uint32_t* monitor_id) {
    return FindRole(kAlarmMonitor, axis_num, monitor_id);
}

KaloStatus KALO_CALL KaloGetErrorId(std::int16_t axis_num, std::uint32_t* monitor_id) {
    return FindRole(kErrorMonitor, axis_num, monitor_id);
}

KaloStatus KALO_CALL KaloGetAlarmTBId(std::int16_t axis_num, std::uint32_t* monitor_id) {
    return FindRole(kTraceBack, axis_num, monitor_id);
}

KaloStatus KALO_CALL KaloGetAlarmTBOffset(std::int16_t axis_num, std::uint16_t* offset) {
    constexpr Status kSameId = 0x2BFF0086;
    if (!DatabaseIsOpen()) return kFirstEntry.notOpen;
    CString table;
    std::uint32_t first = 0;
    std::uint32_t second = 0;
    Status status = FindTable(kFirstEntry.table, axis_num, table);
    if (status == kOk) status = ReadRole(kFirstEntry, table, first);
    if (status == kOk) status = ReadRole(kSecondEntry, table, second);
    if (status != kOk) return status;
    if (first == second) return kSameId;
    if (first < second) std::swap(first, second);
    *offset = static_cast<std::uint16_t>(first - second);
    return kOk;
}

KaloStatus KALO_CALL KaloGetAlarmTBNum(std::int16_t axis_num, std::uint16_t* count) {
    constexpr Status kNotOpen = 0x2BFF0074;
    constexpr Status kNoEntry = 0x2BFF0075;
    if (!DatabaseIsOpen()) return kNotOpen;
    CString table;
    Status status = FindTable(AlarmMonitorTable(0x2BFF0077, DaoBase(0x2BF10000)), axis_num, table);
    if (status != kOk) return status;
    status = CountRows(
        DaoCode(0x2BFF0076),
        Sql("SELECT DISTINCT [fixed_id] FROM [%s] WHERE ([fixed_id] >10 AND [fixed_id] < 100)", table),
        count);
    if (status != kOk) return status;
    return *count == 0 ? kNoEntry : kOk;
}
