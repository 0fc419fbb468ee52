#include <kalodata/alarms.h>

#include <algorithm>

#include "session/query_frame.h"

using namespace kalo;

namespace {

static_assert(sizeof(KaloAlarmCondition) == 10);
static_assert(offsetof(KaloAlarmCondition, condition) == 4 && offsetof(KaloAlarmCondition, value) == 6);
static_assert(sizeof(KaloAlarmDiagnosis) == 1638);
static_assert(offsetof(KaloAlarmDiagnosis, conditions) == 2 && offsetof(KaloAlarmDiagnosis, factor) == 102);
static_assert(offsetof(KaloAlarmDiagnosis, confirm) == 614 && offsetof(KaloAlarmDiagnosis, plan) == 1126);

// Every "%s" is the monitor table of the axis, which is joined once for each of the ten monitors.
constexpr const char* kDiagnosisStatement =
    "SELECT alarm_diag.*, %s.monitor_id AS [ID_1], %s_1.monitor_id AS [ID_2], %s_2.monitor_id AS [ID_3], "
    "%s_3.monitor_id AS [ID_4], %s_4.monitor_id AS [ID_5], %s_5.monitor_id AS [ID_6], %s_6.monitor_id AS "
    "[ID_7], "
    "%s_7.monitor_id AS [ID_8], %s_8.monitor_id AS [ID_9], %s_9.monitor_id AS [ID_10], "
    "FunctionStrings.string AS "
    "[STR_1], FunctionStrings_1.string AS [STR_2], FunctionStrings_2.string AS [STR_3] FROM "
    "((((((((((((alarm_diag LEFT JOIN FunctionStrings ON alarm_diag.confirm = FunctionStrings.string_id) "
    "LEFT JOIN "
    "FunctionStrings AS FunctionStrings_1 ON alarm_diag.factor = FunctionStrings_1.string_id) LEFT JOIN "
    "FunctionStrings AS FunctionStrings_2 ON alarm_diag.plan = FunctionStrings_2.string_id) LEFT JOIN %s ON "
    "alarm_diag.fixed_id_1 = %s.fixed_id) LEFT JOIN %s AS %s_1 ON alarm_diag.fixed_id_2 = %s_1.fixed_id) "
    "LEFT JOIN "
    "%s AS %s_2 ON alarm_diag.fixed_id_3 = %s_2.fixed_id) LEFT JOIN %s AS %s_3 ON alarm_diag.fixed_id_4 = "
    "%s_3.fixed_id) LEFT JOIN %s AS %s_4 ON alarm_diag.fixed_id_5 = %s_4.fixed_id) LEFT JOIN %s AS %s_5 ON "
    "alarm_diag.fixed_id_6 = %s_5.fixed_id) LEFT JOIN %s AS %s_6 ON alarm_diag.fixed_id_7 = %s_6.fixed_id) "
    "LEFT JOIN "
    "%s AS %s_7 ON alarm_diag.fixed_id_8 = %s_7.fixed_id) LEFT JOIN %s AS %s_8 ON alarm_diag.fixed_id_9 = "
    "%s_8.fixed_id) LEFT JOIN %s AS %s_9 ON alarm_diag.fixed_id_10 = %s_9.fixed_id WHERE [alarm_code] = %d "
    "ORDER BY "
    "[priority]";

// One of the columns that stand in the table ten times: its name before "_1" to "_10".
CString Numbered(const char* name, int number) {
    return Sql("%s_%d", name, number);
}

// Makes the call's copy of the diagnosis table for a known axis, lets `use` work and drops the copy.
template <class Use>
Status WithDiagnosisCopy(std::int16_t axis, Status dropFailed, Use&& use) {
    constexpr Status kNotOpen = 0x2BFF237B;
    if (!DatabaseIsOpen()) return kNotOpen;
    AxisIdentity identity;
    const Status status = ReadAxisIdentity(axis, 0x2BFF25A0, DaoCode(0x2BFF25A1), identity);
    if (status != kOk) return status;
    const auto copy = [] {
        return Run(DaoCode(0x2BFF25A2), Sql("SELECT * INTO [%s] FROM [alarm_diag]", "tempAlarm_diag"));
    };
    return WithScratchTable("tempAlarm_diag", dropFailed, copy, use);
}

// Which diagnoses the caller asks for.
struct Selection {
    std::uint32_t alarmCode;
    std::uint16_t types;

    bool Includes(std::uint16_t type) const { return type == 0 || (type & types) != 0; }
};

// Counts from 0; after a diagnosis without type or a DAO error `count` holds those before it.
Status CountDiagnoses(const Selection& selection, std::uint16_t& count) {
    constexpr Status kNoType = 0x2BFF237E;
    count = 0;
    return Locked(DaoCode(0x2BFF237C), [&] {
        Rows rows(Sql("SELECT * FROM [tempAlarm_diag] WHERE [alarm_code] = %d", selection.alarmCode));
        for (; !rows.AtEnd(); rows.Next()) {
            std::uint16_t type = 0;
            if (!rows.Number("type", type)) return kNoType;
            if (selection.Includes(type)) ++count;
        }
        return kOk;
    });
}

// The axis's monitor table, as its name is stored.
Status FindMonitors(std::int16_t axis, CString& table) {
    constexpr Status kNotOpen = 0x2BFF238B;
    if (!DatabaseIsOpen()) return kNotOpen;
    return FindTableAsStored({"SELECT * FROM [tablemanager] WHERE axis_num = %d", "monitor_table", 0x2BFF2388,
                              0x2BFF238A, DaoCode(0x2BFF2389)},
                             axis, table);
}

// Returns the number of conditions up to the one that ends the list.
std::uint16_t ReadConditions(Rows& rows, KaloAlarmCondition (&conditions)[10]) {
    std::fill(std::begin(conditions), std::end(conditions), KaloAlarmCondition{KALO_NONE, KALO_NONE, 0});
    std::uint16_t count = 0;
    for (KaloAlarmCondition& entry : conditions) {
        const int number = count + 1;
        if (rows.Read(Numbered("condition", number))) {
            entry.condition = rows.NumberOr(Numbered("condition", number), entry.condition);
            if (entry.condition == KALO_NONE) break;
        }
        entry.monitor_id = rows.NumberOr(Numbered("ID", number), entry.monitor_id);
        entry.value = rows.NumberOr(Numbered("value", number), entry.value);
        ++count;
    }
    return count;
}

void ReadDiagnosisText(Rows& rows, const char* column, char* text, const void* end) {
    text[0] = '\0';
    rows.TextWhole(column, text, end);
}

void ReadDiagnosis(Rows& rows, KaloAlarmDiagnosis& diagnosis, const void* end) {
    ReadDiagnosisText(rows, "STR_1", diagnosis.confirm, end);
    ReadDiagnosisText(rows, "STR_2", diagnosis.factor, end);
    ReadDiagnosisText(rows, "STR_3", diagnosis.plan, end);
    diagnosis.condition_count = ReadConditions(rows, diagnosis.conditions);
}

constexpr Status kNoTypeInData = 0x2BFF239E;

// A fixed id that several monitors have multiplies the rows of the join: no more are written than were
// counted.
Status ReadDiagnoses(const CString& monitors, const Selection& selection, KaloAlarmDiagnosis* diagnoses,
                     std::uint16_t count) {
    const KaloAlarmDiagnosis* const end = diagnoses + count;
    return Locked(DaoCode(0x2BFF239C), [&] {
        Rows rows(
            SqlOnTable(kDiagnosisStatement, monitors, {static_cast<std::int32_t>(selection.alarmCode)}));
        for (; !rows.AtEnd(); rows.Next()) {
            std::uint16_t type = 0;
            if (!rows.Number("type", type)) return kNoTypeInData;
            if (!selection.Includes(type)) continue;
            if (diagnoses == end) break;
            ReadDiagnosis(rows, *diagnoses++, end);
        }
        return kOk;
    });
}

}  // namespace

KaloStatus KALO_CALL KaloGetAlarmDiagDataNum(std::int16_t axis_num, std::uint32_t alarm_code,
                                             std::uint32_t type_mask, std::uint16_t* count) {
    const Selection selection = {alarm_code, static_cast<std::uint16_t>(type_mask)};
    return WithDiagnosisCopy(axis_num, 0x2BFF2377, [&] { return CountDiagnoses(selection, *count); });
}

KaloStatus KALO_CALL KaloGetAlarmDiagData(std::int16_t axis_num, std::uint32_t alarm_code,
                                          std::int32_t type_mask, KaloAlarmDiagnosis* diagnoses) {
    constexpr Status kCountFailed = 0x2BFF237C;
    const Selection selection = {alarm_code, static_cast<std::uint16_t>(type_mask)};
    return WithDiagnosisCopy(axis_num, 0x2BFF2397, [&] {
        CString monitors;
        Status status = FindMonitors(axis_num, monitors);
        if (status != kOk) return status;
        std::uint16_t count = 0;
        const Status counted = CountDiagnoses(selection, count);
        if (counted == kCountFailed) return counted;
        status = ReadDiagnoses(monitors, selection, diagnoses, count);
        // The list may be full before it comes to a diagnosis without type that ended the count.
        return status == kOk && counted != kOk ? kNoTypeInData : status;
    });
}
