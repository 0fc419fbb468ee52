#include <kalodata/axis.h>

#include "session/query_frame.h"

using namespace kalo;

namespace {

// A column of the axis's row that names a working table; one with the keep flag set stays when the axis goes.
struct WorkTableColumn {
    const char* name;
    bool keep;
};

constexpr WorkTableColumn kWorkTableColumns[] = {
    {"sfunction_table", false},   {"nibble_table", false},      {"dec_table", false},
    {"auxiliary_table", false},   {"io_table", false},          {"getalarm_table", false},
    {"index_table", false},       {"zone_table", false},        {"jog_table", false},
    {"funcid_table", false},      {"funcmode_table", false},    {"opmode_table", false},
    {"loopprm_table", false},     {"simprm_table", false},      {"indexprm_table", false},
    {"zoneprm_table", false},     {"jogprm_table", false},      {"userparameter_table", false},
    {"monitor_table", false},     {"dispalarm_table", false},   {"traceadd_table", false},
    {"iotrace_table", false},     {"analogtrace_table", false}, {"traceaddinfo_table", false},
    {"triggertype_table", false}, {"select_table", false},      {"reftype_table", false},
    {"commselect_table", false},  {"commtype_table", false},    {"dsdatatype_table", false},
    {"tuningprm_table", false},
};

bool UsedByAnotherAxis(const char* column, const CString& table, std::int32_t axis) {
    Rows rows(
        Sql("SELECT * FROM [tablemanager] WHERE (%s = \"%s\" AND axis_num <> %d)", column, table, axis));
    return !rows.Empty();
}

// Drops the tables that the axis's row names; `found` tells whether there is one. One locked stretch: the row
// stays open while the tables go.
Status DropTables(std::int32_t axis, bool& found) {
    return Locked(DaoBase(0x2C040000).AndLeaveLock(), [axis, &found] {
        Rows row(Sql("SELECT * FROM [tablemanager] WHERE axis_num = %d", axis));
        found = !row.Empty();
        if (!found) return kOk;
        row.First();
        for (const WorkTableColumn& column : kWorkTableColumns) {
            CString table;
            if (column.keep || !row.Text(column.name, table)) continue;
            if (!UsedByAnotherAxis(column.name, table, axis)) Execute(Sql("DROP TABLE [%s]", table));
        }
        return kOk;
    });
}

}  // namespace

KaloStatus KALO_CALL KaloDeleteAxisTable(std::int16_t axis) {
    if (!DatabaseIsOpen()) return kOk;
    bool found = false;
    const Status status = DropTables(axis, found);
    if (status != kOk || !found) return status;
    return Run(DaoBase(0x2C050000), Sql("DELETE * FROM [tablemanager] WHERE axis_num = %d", axis));
}
