#pragma once

#include <string>

// Small tables of a knowledge database for the tests of monitors, alarms and I/O: model 7 ("M"), option unit
// 3, and model 9, whose variant is 7 with flag bit 0.
namespace monitor_tables {

constexpr const char* kRegistry[] = {
    "CREATE TABLE [tablemanager] ([axis_num] SHORT, [servo_id] LONG, [option_id] LONG, [sFirm_version] LONG, "
    "[sCmod_version] LONG, [oFirm_version] LONG, [oCmod_version] LONG, [monitor_table] TEXT(64), [io_table] "
    "TEXT(64), "
    "[dispalarm_table] TEXT(64), [userparameter_table] TEXT(64))",
    "CREATE TABLE [model] ([model_id] TEXT(20), [model_name] TEXT(20))",
    "INSERT INTO [model] VALUES ('7','M')",
    "INSERT INTO [model] VALUES ('7_3','MO')",
    "CREATE TABLE [model_subspecies] ([servo_id] LONG, [ide_servo_id] LONG, [modify_flag_bitmask] LONG, "
    "[modify_flag] LONG, [modify_threshold_bitmask] LONG, [modify_threshold] LONG)",
    "INSERT INTO [model_subspecies] VALUES (9,7,1,1,0,1)",
};

constexpr const char* kMonitorColumns =
    "[monitor_id] LONG, [user_constant] TEXT(19), [category_name_id] SHORT, [monitor_name_id] LONG, "
    "[display_type] "
    "SHORT, [on_content_id] SHORT, [off_content_id] SHORT, [unit_str_id] SHORT, [size] BYTE, [bit_position] "
    "BYTE, "
    "[address] SHORT, [access_level] BYTE, [sv_control_type] SHORT, [fixed_id] SHORT, [parameter_help] "
    "TEXT(127)";

constexpr const char* kMonitorTexts =
    ", [category_name] TEXT(255), [monitor_name] TEXT(255), [on_content] TEXT(255), [off_content] TEXT(255), "
    "[unit] "
    "TEXT(255), [unit_multiplier] SINGLE, [unit_name] TEXT(255)";

constexpr const char* kIoColumns =
    "[Parameter_id] LONG, [io_code] SHORT, [address] LONG, [digit] SHORT, [value] LONG, [logical_name] "
    "TEXT(255), "
    "[physical_name] TEXT(255), [positive_logic] SHORT, [reverse] SHORT, [mode_select] SHORT, "
    "[input_mode_select] "
    "SHORT, [reverse_address] SHORT";

constexpr const char* kAlarmColumns =
    "[alarm_code] LONG, [indexer_alarm_code] LONG, [alarm_display] SHORT, [alarm_type] BYTE, [alarm_level] "
    "BYTE, "
    "[alarm_category_id] SHORT, [alarm_name_id] LONG, [alarm_meaning_id] LONG, [alo] SHORT, [fixed_id] LONG, "
    "[help_path] TEXT(255)";

inline std::string Create(const std::string& table, const std::string& columns) {
    return "CREATE TABLE [" + table + "] (" + columns + ")";
}

// A delta table: the columns of its kind behind those that say whose change it is.
inline std::string CreateDeltas(const std::string& table, const char* version, const char* columns) {
    return Create(table,
                  "[model_id] LONG, [" + std::string(version) + "] LONG, [change_type] BYTE, " + columns);
}

}  // namespace monitor_tables
