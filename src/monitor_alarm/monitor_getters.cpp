#include <kalodata/monitors.h>

#include <bit>

#include "monitor_alarm/axis_tables.h"

using namespace kalo;

namespace {

static_assert(sizeof(KaloMonitor) == 766);
static_assert(offsetof(KaloMonitor, category_name_id) == 4 && offsetof(KaloMonitor, category_name) == 6);
static_assert(offsetof(KaloMonitor, monitor_name) == 134 && offsetof(KaloMonitor, display_type) == 262);
static_assert(offsetof(KaloMonitor, on_text) == 264 && offsetof(KaloMonitor, off_text) == 392);
static_assert(offsetof(KaloMonitor, size) == 520 && offsetof(KaloMonitor, unit) == 522);
static_assert(offsetof(KaloMonitor, unit_multiplier) == 572 && offsetof(KaloMonitor, unit_name) == 576);
static_assert(offsetof(KaloMonitor, bit_position) == 626 && offsetof(KaloMonitor, address) == 628);
static_assert(offsetof(KaloMonitor, access_level) == 632 && offsetof(KaloMonitor, control_type_mask) == 634);
static_assert(offsetof(KaloMonitor, fixed_id) == 636 && offsetof(KaloMonitor, help_reference) == 638);

constexpr bool IsCategory(std::uint16_t category) {
    return category >= 1 && category <= 4;
}

// On and off texts get their terminator at byte 649 of the record, inside the help reference that is copied
// after them, so that a text of 128 bytes stays unterminated and is given whole.
void ReadBitText(Rows& rows, const char* column, char (&text)[128], KaloMonitor& monitor) {
    constexpr std::size_t kTerminator = 649;
    if (!rows.TextUnterminated(column, text, sizeof(text))) return;
    reinterpret_cast<char*>(&monitor)[kTerminator] = '\0';
}

void ReadMonitor(Rows& rows, KaloMonitor& monitor) {
    monitor = {};
    monitor.monitor_id = rows.NumberOr("monitor_id", monitor.monitor_id);
    monitor.category_name_id = rows.NumberOr("category_name_id", monitor.category_name_id);
    rows.Text("category_name", monitor.category_name);
    rows.Text("monitor_name", monitor.monitor_name);
    monitor.display_type = rows.NumberOr("display_type", monitor.display_type);
    ReadBitText(rows, "on_content", monitor.on_text, monitor);
    ReadBitText(rows, "off_content", monitor.off_text, monitor);
    monitor.size = rows.NumberOr("size", monitor.size);
    rows.Text("unit", monitor.unit);
    monitor.unit_multiplier = std::bit_cast<float>(rows.Value("unit_multiplier"));
    rows.Text("unit_name", monitor.unit_name);
    monitor.bit_position = rows.NumberOr("bit_position", monitor.bit_position);
    monitor.address = rows.NumberOr<std::int16_t>("address", 0);
    monitor.access_level = rows.NumberOr("access_level", monitor.access_level);
    monitor.control_type_mask = rows.NumberOr("sv_control_type", monitor.control_type_mask);
    monitor.fixed_id = rows.NumberOr("fixed_id", monitor.fixed_id);
    rows.Text("parameter_help", monitor.help_reference);
}

// One monitor and all monitors share their codes. `read` gets the rows of `statement` on the axis's monitor
// table.
template <class Read>
Status ReadMonitors(std::int16_t axis, const char* statement, std::initializer_list<std::int32_t> numbers,
                    Read&& read) {
    constexpr Status kNotOpen = 0x2A000028;
    constexpr Status kNoMonitor = 0x2A00002B;
    if (!DatabaseIsOpen()) return kNotOpen;
    CString table;
    const Status status = FindTable(MonitorTable(0x2A000029, 0x2A00002A, DaoBase(0x2B5A0000)), axis, table);
    if (status != kOk) return status;
    return Locked(DaoBase(0x2B5B0000), [&] {
        Rows rows(SqlOnTable(statement, table, numbers));
        if (rows.Empty()) return kNoMonitor;
        read(rows);
        return kOk;
    });
}

}  // namespace

KaloStatus KALO_CALL KaloGetMonitorNumber(std::int16_t axis_num, std::uint16_t category_name_id,
                                          std::uint16_t* count) {
    constexpr Status kNotOpen = 0x2A00002C;
    constexpr Status kNoCategory = 0x2A00002D;
    if (!DatabaseIsOpen()) return kNotOpen;
    if (!IsCategory(category_name_id)) return kNoCategory;
    CString table;
    const Status status =
        FindTable(MonitorTable(0x2A00002E, 0x2A00002F, DaoBase(0x2B5C0000)), axis_num, table);
    if (status != kOk) return status;
    return CountRows(DaoBase(0x2B5D0000),
                     Sql("SELECT * FROM [%s] WHERE category_name_id = %d", table, category_name_id), count);
}

KaloStatus KALO_CALL KaloGetMonitorId(std::int16_t axis_num, std::uint16_t category_name_id,
                                      std::uint16_t index, std::uint32_t* monitor_id) {
    constexpr Status kNotOpen = 0x2A000022;
    constexpr Status kNoCategory = 0x2A000023;
    constexpr Status kNoMonitor = 0x2A000026;
    constexpr Status kNoId = 0x2A000027;
    if (!DatabaseIsOpen()) return kNotOpen;
    if (!IsCategory(category_name_id)) return kNoCategory;
    CString table;
    const Status status =
        FindTable(MonitorTable(0x2A000024, 0x2A000025, DaoBase(0x2B580000)), axis_num, table);
    if (status != kOk) return status;
    return Locked(DaoBase(0x2B590000), [&] {
        Rows rows(Sql("SELECT * FROM [%s] WHERE category_name_id = %d ORDER BY [monitor_id]", table,
                      category_name_id));
        if (rows.Empty()) return kNoMonitor;
        rows.Seek(index);
        return rows.Number("monitor_id", *monitor_id) ? kOk : kNoId;
    });
}

KaloStatus KALO_CALL KaloGetMonitorInfo(std::int16_t axis_num, std::int32_t monitor_id,
                                        KaloMonitor* monitor) {
    return ReadMonitors(axis_num, "SELECT * FROM [%s] WHERE monitor_id = %d", {monitor_id},
                        [&](Rows& rows) { ReadMonitor(rows, *monitor); });
}

KaloStatus KALO_CALL KaloGetAllMonitorInfo(std::int16_t axis_num, std::uint16_t count,
                                           KaloMonitor* monitors) {
    return ReadMonitors(axis_num, "SELECT * FROM [%s] ORDER BY [monitor_id]", {}, [&](Rows& rows) {
        for (int i = 0; i < count && !rows.AtEnd(); ++i, rows.Next())
            ReadMonitor(rows, monitors[i]);
    });
}
