#include <kalodata/digits.h>

#include "merge/on_demand_table.h"

using namespace kalo;

namespace {

static_assert(sizeof(KaloDigitSwitch) == 12);

constexpr Status kBuildBase = 0x2BFF1450;
constexpr Status kReadBase = 0x2BFF1480;

constexpr MergeColumn kColumns[] = {
    {ColumnKind::Key, "func_id"},
    {ColumnKind::Data, "fixed_id"},
    {ColumnKind::Data, "digit"},
    {ColumnKind::Data, "value"},
};

constexpr OnDemandTable kSwitchTable = {
    "tempnibbleswitchinfo", "NibbleSwitchInfo", {"firmnibbleswitchinfo", "cmodnibbleswitchinfo", kColumns}};

Status ReadSwitch(std::int32_t funcId, KaloDigitSwitch& found) {
    enum : Status { kReadFailed = kReadBase + 0xC, kNoFunction = kReadBase + 0xF };
    return Locked(DaoCode(kReadFailed), [&]() -> Status {
        Rows rows(Sql("SELECT * FROM [%s] WHERE func_id = %d", kSwitchTable.workTable, funcId));
        if (rows.Empty()) return kNoFunction;
        found.fixed_id = rows.NumberOr("fixed_id", found.fixed_id);
        found.digit = rows.NumberOr("digit", found.digit);
        found.value = rows.NumberOr("value", found.value);
        return kOk;
    });
}

// The axis's parameter with the switch's fixed id.
Status ReadParameter(std::int32_t axis, KaloDigitSwitch& found) {
    enum : Status {
        kNoAxis = kReadBase + 8,
        kLookupFailed = kReadBase + 9,
        kNoTable = kReadBase + 0xA,
        kReadFailed = kReadBase + 0xD,
        kNoParameter = kReadBase + 0xE
    };
    CString table;
    const Status status = FindTable({"SELECT [userparameter_table] FROM [tablemanager] WHERE axis_num = %d",
                                     "userparameter_table", kNoAxis, kNoTable, DaoCode(kLookupFailed)},
                                    axis, table);
    if (status != kOk) return status;
    return Locked(DaoCode(kReadFailed), [&]() -> Status {
        Rows rows(Sql("SELECT [Parameter_id] FROM [%s] where fixed_id = %d", table, found.fixed_id));
        if (rows.Empty()) return kNoParameter;
        found.parameter_id = rows.Value("Parameter_id");
        return kOk;
    });
}

}  // namespace

KaloStatus KALO_CALL KaloGetNibbleSwitchInfo(std::int32_t axis, std::int32_t funcId,
                                             KaloDigitSwitch* record) {
    constexpr Status kNotOpen = 0x2BFF145B;
    if (!DatabaseIsOpen()) return kNotOpen;
    const BaseFilter filter{"func_id", funcId};
    KaloDigitSwitch found = {};
    const Status status = WithOnDemandTable(kSwitchTable, axis, &filter, kBuildBase, kReadBase, [&] {
        const Status read = ReadSwitch(funcId, found);
        return read != kOk ? read : ReadParameter(axis, found);
    });
    if (status == kOk) *record = found;
    return status;
}
