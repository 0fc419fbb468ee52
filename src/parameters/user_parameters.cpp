#include <kalodata/parameters.h>

#include <algorithm>

#include "merge/control_type_trim.h"

using namespace kalo;

static_assert(sizeof(KaloUserParameter) == 504);
static_assert(offsetof(KaloUserParameter, parameter_id) == 0);
static_assert(offsetof(KaloUserParameter, user_constant) == 4);
static_assert(offsetof(KaloUserParameter, category_id) == 24);
static_assert(offsetof(KaloUserParameter, category_name) == 28);
static_assert(offsetof(KaloUserParameter, parameter_name) == 156);
static_assert(offsetof(KaloUserParameter, nibble_data_id) == 216);
static_assert(offsetof(KaloUserParameter, dec_data_id) == 220);
static_assert(offsetof(KaloUserParameter, decdata_num) == 224);
static_assert(offsetof(KaloUserParameter, volatile_address) == 228);
static_assert(offsetof(KaloUserParameter, nonvolatile_address) == 232);
static_assert(offsetof(KaloUserParameter, size) == 236);
static_assert(offsetof(KaloUserParameter, unit) == 238);
static_assert(offsetof(KaloUserParameter, unit_multiplier) == 288);
static_assert(offsetof(KaloUserParameter, unit_name) == 292);
static_assert(offsetof(KaloUserParameter, max) == 342);
static_assert(offsetof(KaloUserParameter, min) == 346);
static_assert(offsetof(KaloUserParameter, max_check) == 350);
static_assert(offsetof(KaloUserParameter, min_check) == 352);
static_assert(offsetof(KaloUserParameter, initial_value) == 354);
static_assert(offsetof(KaloUserParameter, edit_type) == 358);
static_assert(offsetof(KaloUserParameter, disp_type) == 360);
static_assert(offsetof(KaloUserParameter, user_level) == 362);
static_assert(offsetof(KaloUserParameter, access_level) == 364);
static_assert(offsetof(KaloUserParameter, sv_control_type) == 366);
static_assert(offsetof(KaloUserParameter, control_mode) == 368);
static_assert(offsetof(KaloUserParameter, effective_timing) == 370);
static_assert(offsetof(KaloUserParameter, fixed_id) == 372);
static_assert(offsetof(KaloUserParameter, parameter_help) == 376);

namespace {

constexpr const char* kAxisRow = "SELECT * FROM [tablemanager] WHERE axis_num = %d";
constexpr const char* kTableColumn = "userparameter_table";

// Fills a zeroed record from the current row; a NULL column leaves its field zero.
void ReadParameter(Rows& rows, KaloUserParameter& record) {
    record.parameter_id = rows.NumberOr("Parameter_id", record.parameter_id);
    rows.Text("user_constant", record.user_constant);
    record.category_id = rows.NumberOr("category_id", record.category_id);
    rows.Text("category_name", record.category_name);
    rows.Text("parameter_name", record.parameter_name);
    record.nibble_data_id = rows.NumberOr("nibble_data_id", record.nibble_data_id);
    record.dec_data_id = rows.NumberOr("dec_data_id", record.dec_data_id);
    record.decdata_num = rows.NumberOr("decdata_num", record.decdata_num);
    record.volatile_address = rows.NumberOr("volatile_address", record.volatile_address);
    record.nonvolatile_address = rows.NumberOr("nonvolatile_address", record.nonvolatile_address);
    record.size = rows.NumberOr("size", record.size);
    rows.Text("unit", record.unit);
    record.unit_multiplier = rows.NumberOr("unit_multiplier", record.unit_multiplier);
    rows.Text("unit_name", record.unit_name);
    record.max = rows.NumberOr("max", record.max);
    record.min = rows.NumberOr("min", record.min);
    record.max_check = rows.NumberOr("max_check", record.max_check);
    record.min_check = rows.NumberOr("min_check", record.min_check);
    record.initial_value = rows.NumberOr("initial_value", record.initial_value);
    record.edit_type = rows.NumberOr("edit_type", record.edit_type);
    record.disp_type = rows.NumberOr("disp_type", record.disp_type);
    record.user_level = rows.NumberOr("user_level", record.user_level);
    record.access_level = rows.NumberOr("access_level", record.access_level);
    record.sv_control_type = rows.NumberOr("sv_control_type", record.sv_control_type);
    record.control_mode = rows.NumberOr("control_mode", record.control_mode);
    record.effective_timing = rows.NumberOr("effective_timing", record.effective_timing);
    record.fixed_id = rows.NumberOr("fixed_id", record.fixed_id);
    rows.Text("parameter_help", record.parameter_help);
}

}  // namespace

KaloStatus KALO_CALL KaloGetUParaNum(std::int16_t axis, std::uint16_t* count) {
    enum : Status { kNotOpen = 0x2A000067, kNoAxis = 0x2A000068, kNoTable = 0x2A000069 };
    if (!DatabaseIsOpen()) return kNotOpen;
    CString table;
    const Status status =
        FindTable({kAxisRow, kTableColumn, kNoAxis, kNoTable, DaoBase(0x2B7D0000)}, axis, table);
    if (status != kOk) return status;
    return CountRows(DaoBase(0x2B7E0000), Sql("SELECT * FROM [%s]", table), count);
}

KaloStatus KALO_CALL KaloGetUParaId(std::int16_t axis, std::int16_t index, std::uint32_t* parameterId) {
    enum : Status {
        kNotOpen = 0x2A00005F,
        kNoAxis = 0x2A000060,
        kNoTable = 0x2A000061,
        kNoRows = 0x2A000062,
        kNoId = 0x2A000063
    };
    if (!DatabaseIsOpen()) return kNotOpen;
    CString table;
    const Status status =
        FindTable({kAxisRow, kTableColumn, kNoAxis, kNoTable, DaoBase(0x2B740000)}, axis, table);
    if (status != kOk) return status;
    return Locked(DaoBase(0x2B750000), [&]() -> Status {
        Rows rows(Sql("SELECT * FROM [%s]", table));
        if (rows.Empty()) return kNoRows;
        rows.Seek(index);
        return rows.Number("parameter_id", *parameterId) ? kOk : kNoId;
    });
}

KaloStatus KALO_CALL KaloGetUParaInfo(std::int16_t axis, std::int32_t parameterId,
                                      KaloUserParameter* record) {
    enum : Status { kNotOpen = 0x2A000064, kNoAxis = 0x2A000065, kNoTable = 0x2A000066, kNoRow = 0x2A000071 };
    if (!DatabaseIsOpen()) return kNotOpen;
    *record = {};
    CString table;
    const Status status =
        FindTable({kAxisRow, kTableColumn, kNoAxis, kNoTable, DaoBase(0x2B790000)}, axis, table);
    if (status != kOk) return status;
    return Locked(DaoBase(0x2B7A0000), [&]() -> Status {
        Rows rows(Sql("SELECT * FROM [%s] WHERE parameter_id = %ld", table, parameterId));
        if (rows.Empty()) return kNoRow;
        rows.First();
        ReadParameter(rows, *record);
        return kOk;
    });
}

KaloStatus KALO_CALL KaloGetAllUParaInfo(std::int16_t axis, std::int16_t count, KaloUserParameter* records) {
    enum : Status { kNotOpen = 0x2A000064, kNoAxis = 0x2A000065, kNoTable = 0x2A000066, kNoRow = 0x2A000071 };
    if (!DatabaseIsOpen()) return kNotOpen;
    KaloUserParameter* const end = records + std::max<std::int16_t>(count, 0);
    std::fill(records, end, KaloUserParameter{});
    CString table;
    const Status status =
        FindTable({kAxisRow, kTableColumn, kNoAxis, kNoTable, DaoBase(0x2B7B0000)}, axis, table);
    if (status != kOk) return status;
    return Locked(DaoBase(0x2B7C0000), [&]() -> Status {
        Rows rows(Sql("SELECT * FROM [%s] ORDER BY [Parameter_id]", table));
        if (rows.Empty()) return kNoRow;
        rows.First();
        for (KaloUserParameter* record = records; record != end && !rows.AtEnd(); ++record) {
            ReadParameter(rows, *record);
            rows.Next();
        }
        return kOk;
    });
}

KaloStatus KALO_CALL KaloUparaUpdate(std::int16_t axis, std::uint16_t controlTypeMask) {
    enum : Status { kNotOpen = 0x2BFF1570, kNoAxis = 0x2BFF1571, kNoTable = 0x2BFF1572 };
    if (!DatabaseIsOpen()) return kNotOpen;
    CString table;
    const Status status =
        FindTable({kAxisRow, kTableColumn, kNoAxis, kNoTable, DaoCode(0x2BFF1574)}, axis, table);
    if (status != kOk) return status;
    return TrimByControlType(
        table, controlTypeMask,
        {.emptyTable = 0x2BFF1573, .onWalk = DaoCode(0x2BFF1575), .onDelete = DaoCode(0x2BFF1576)});
}
