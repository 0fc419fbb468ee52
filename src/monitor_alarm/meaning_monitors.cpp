#include <kalodata/monitors.h>

#include "merge/on_demand_table.h"
#include "monitor_alarm/axis_tables.h"

using namespace kalo;

namespace {

static_assert(sizeof(KaloMeaningMonitor) == 12);

// A function's case within its block of codes; those below 10 belong to the merge and the frame helpers.
enum MeaningCode : Status {
    kNoMonitorTable = 10,
    kNotOpen = 11,
    kReadFailed = 12,
    kLookupFailed = 13,
    kNoFunctionId = 14,
    kNoFunctions = 15,
};

constexpr MergeColumn kGroupColumns[] = {{ColumnKind::Key, "func_id"}, {ColumnKind::Key, "grp_id"}};
constexpr OnDemandTable kGroups = {
    "tempMeaningMonGrp", "MeaningMonGrp", {"firmMeaningMonGrp", "cmodMeaningMonGrp", kGroupColumns}};

constexpr MergeColumn kValueColumns[] = {{ColumnKind::Key, "func_id"},
                                         {ColumnKind::Data, "fixed_id"},
                                         {ColumnKind::Data, "bit"},
                                         {ColumnKind::Data, "value"}};
constexpr OnDemandTable kValues = {
    "tempmeaningmoninfo", "MeaningMonInfo", {"firmmeaningmoninfo", "cmodmeaningmoninfo", kValueColumns}};

// Makes the table for the axis, lets `use` read it, and drops it.
template <class Use>
Status WithMeaningTable(const OnDemandTable& table, std::int32_t axis, Status codeBase, Use&& use) {
    return WithOnDemandTable(table, axis, nullptr, codeBase, codeBase, use);
}

Status ReadFunctions(Status codeBase, std::int32_t group, std::uint16_t* functions) {
    return Locked(DaoCode(codeBase + kReadFailed), [&]() -> Status {
        Rows rows(Sql("SELECT func_id FROM [%s] WHERE [grp_id] = %ld  ORDER BY 1", kGroups.workTable, group));
        if (rows.Empty()) return codeBase + kNoFunctions;
        const auto count = static_cast<std::uint16_t>(rows.Count());
        rows.First();
        for (int i = 0; i < count; ++i, rows.Next()) {
            if (!rows.Number("func_id", functions[i])) return codeBase + kNoFunctionId;
        }
        return kOk;
    });
}

// The join gives a row per monitor with the fixed id; never more are written than there are functions.
Status ReadValues(Status codeBase, const CString& monitors, KaloMeaningMonitor* values) {
    std::uint16_t count = 0;
    const Status status =
        CountRows(DaoCode(codeBase + kReadFailed), Sql("SELECT * FROM [%s]", kValues.workTable), &count);
    if (status != kOk) return status;
    if (count == 0) return codeBase + kNoFunctions;
    return Locked(DaoCode(codeBase + kReadFailed), [&] {
        Rows rows(
            Sql("SELECT func_id, monitor_id, value FROM [%s] LEFT JOIN [%s] ON [%s].fixed_id = "
                "[%s].fixed_id ORDER BY 1",
                kValues.workTable, monitors, kValues.workTable, monitors));
        for (int i = 0; i < count && !rows.AtEnd(); ++i, rows.Next()) {
            values[i] = {rows.NumberOr<std::uint32_t>("func_id", 0),
                         rows.NumberOr<std::uint32_t>("monitor_id", KALO_NONE), rows.Value("value")};
        }
        return kOk;
    });
}

}  // namespace

KaloStatus KALO_CALL KaloGetMeaningMonGrpNum(std::int32_t axis_num, std::int32_t grp_id,
                                             std::uint16_t* count) {
    constexpr Status kBase = 0x2BFF21A0;
    if (!DatabaseIsOpen()) return kBase + kNotOpen;
    return WithMeaningTable(kGroups, axis_num, kBase, [&] {
        return CountRows(DaoCode(kBase + kReadFailed),
                         Sql("SELECT * FROM [%s] WHERE [grp_id] = %ld", kGroups.workTable, grp_id), count);
    });
}

KaloStatus KALO_CALL KaloGetMeaningMonGrp(std::int32_t axis_num, std::int32_t grp_id,
                                          std::uint16_t* func_ids) {
    constexpr Status kBase = 0x2BFF21B0;
    if (!DatabaseIsOpen()) return kBase + kNotOpen;
    return WithMeaningTable(kGroups, axis_num, kBase, [&] { return ReadFunctions(kBase, grp_id, func_ids); });
}

KaloStatus KALO_CALL KaloGetAllMeaningMonInfoNum(std::int32_t axis_num, std::uint16_t* count) {
    constexpr Status kBase = 0x2BFF21C0;
    if (!DatabaseIsOpen()) return kBase + kNotOpen;
    return WithMeaningTable(kValues, axis_num, kBase, [&] {
        return CountRows(DaoCode(kBase + kReadFailed), Sql("SELECT * FROM [%s]", kValues.workTable), count);
    });
}

KaloStatus KALO_CALL KaloGetAllMeaningMonInfo(std::int32_t axis_num, KaloMeaningMonitor* monitors) {
    constexpr Status kBase = 0x2BFF21D0;
    if (!DatabaseIsOpen()) return kBase + kNotOpen;
    CString table;
    const Status status = FindTable(
        MonitorTable(kBase + 8, kBase + kNoMonitorTable, DaoCode(kBase + kLookupFailed)), axis_num, table);
    if (status != kOk) return status;
    return WithMeaningTable(kValues, axis_num, kBase, [&] { return ReadValues(kBase, table, monitors); });
}
