#pragma once

#include "session/query_frame.h"

// How the functions of this subsystem find the working tables of an axis.
namespace kalo {

constexpr TableLookup MonitorTable(Status noAxis, Status noTable, const OnDaoError& onError) {
    return {"SELECT * FROM [tablemanager] WHERE axis_num = %d", "monitor_table", noAxis, noTable, onError};
}

// The look-ups of the alarm getters have one code for an unknown axis and for a missing table.
constexpr TableLookup AlarmMonitorTable(Status noTable, const OnDaoError& onError) {
    return {"SELECT [monitor_table] FROM [tablemanager] WHERE [axis_num] = %d", "monitor_table", noTable,
            noTable, onError};
}

constexpr TableLookup AlarmTable(Status noTable, const OnDaoError& onError) {
    return {"SELECT [dispalarm_table] FROM [tablemanager] WHERE [axis_num] = %d", "dispalarm_table", noTable,
            noTable, onError};
}

}  // namespace kalo
