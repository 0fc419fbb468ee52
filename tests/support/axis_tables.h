#pragma once

namespace support {

// The registry of axes with all its columns.
inline constexpr const char* kCreateTableManager =
    "CREATE TABLE [tablemanager] ([axis_num] SHORT, [servo_id] LONG, [original_servo_id] LONG, "
    "[sFirm_version] LONG, "
    "[sCmod_version] LONG, [prate] LONG, [option_id] LONG, [oFirm_version] LONG, [oCmod_version] LONG, "
    "[motor_id] "
    "LONG, [eFirm_id] LONG, [encodor_ability] LONG, [encodor_type] TEXT(50), [sfunction_table] TEXT(64), "
    "[nibble_table] TEXT(64), [dec_table] TEXT(64), [auxiliary_table] TEXT(64), [io_table] TEXT(64), "
    "[getalarm_table] "
    "TEXT(64), [index_table] TEXT(64), [zone_table] TEXT(64), [jog_table] TEXT(64), [funcid_table] TEXT(64), "
    "[funcmode_table] TEXT(64), [opmode_table] TEXT(64), [loopprm_table] TEXT(64), [simprm_table] TEXT(64), "
    "[indexprm_table] TEXT(64), [zoneprm_table] TEXT(64), [jogprm_table] TEXT(64), [userparameter_table] "
    "TEXT(64), "
    "[monitor_table] TEXT(64), [dispalarm_table] TEXT(64), [traceadd_table] TEXT(64), [iotrace_table] "
    "TEXT(64), "
    "[analogtrace_table] TEXT(64), [traceaddinfo_table] TEXT(64), [triggertype_table] TEXT(64), "
    "[select_table] "
    "TEXT(64), [reftype_table] TEXT(64), [commselect_table] TEXT(64), [commtype_table] TEXT(64), "
    "[dsdatatype_table] "
    "TEXT(64), [tuningprm_table] TEXT(64))";

}  // namespace support
