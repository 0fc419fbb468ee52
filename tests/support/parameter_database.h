#pragma once

#include <string>
#include <vector>

#include "support/axis_tables.h"

namespace support {

// The statements of a small database that KaloUparaCreate can build from: model 17 ("M17", with option unit 5
// "M17_FB") without parameters, names in languages 0 and 1, and empty delta tables.
inline std::vector<std::string> ParameterDatabase() {
    const std::string merged =
        "[user_constant] TEXT(30), [category_name_id] LONG, [parameter_name_id] LONG, [nibble_data_id] LONG, "
        "[dec_data_id] LONG, [decdata_num] LONG, [nonvolatile_address] LONG, [volatile_address] LONG, [size] "
        "LONG, "
        "[max] LONG, [min] LONG, [max_check] LONG, [min_check] LONG, [initial_value] LONG, [unit_str_id] "
        "LONG, "
        "[edit_type] LONG, [disp_type] LONG, [user_level] LONG, [control_mode] LONG, [access_level] LONG, "
        "[sv_control_type] LONG, [effective_timing] LONG, [fixed_id] LONG, [parameter_help] TEXT(200)";
    const std::string base = "([Parameter_id] LONG, " + merged +
                             ", [category_name] TEXT(200), [parameter_name] TEXT(200), [unit] TEXT(100), "
                             "[unit_multiplier] SINGLE, [unit_name] TEXT(100))";
    return {
        kCreateTableManager,
        "CREATE TABLE [model] ([model_id] TEXT(20), [model_name] TEXT(20))",
        "INSERT INTO [model] VALUES ('17','M17')",
        "INSERT INTO [model] VALUES ('17_5','M17_FB')",
        "INSERT INTO [model] VALUES ('18',NULL)",
        "CREATE TABLE [model_subspecies] ([servo_id] LONG, [ide_servo_id] LONG, [modify_flag_bitmask] LONG, "
        "[modify_flag] LONG, [modify_threshold_bitmask] LONG, [modify_threshold] LONG)",
        "INSERT INTO [model_subspecies] VALUES (17,19,1,1,0,1)",
        "CREATE TABLE [M17_Upara] " + base,
        "CREATE TABLE [M17_FB_Upara] " + base,
        "CREATE TABLE [FirmUPara] ([FirmUPara_id] LONG, " + merged +
            ", [model_id] LONG, [option_id] LONG, [change_type] LONG, [firm_id] LONG)",
        "CREATE TABLE [CmodUPara] ([cmodUPara_id] LONG, " + merged +
            ", [model_id] LONG, [option_id] LONG, [model_type] LONG, [change_type] LONG, [cmod_id] LONG)",
        "CREATE TABLE [nibble_ex] ([nibble_data_id] LONG, [pos] LONG)",
        "INSERT INTO [nibble_ex] VALUES (101,0)",
        "INSERT INTO [nibble_ex] VALUES (102,0)",
        "CREATE TABLE [decdata] ([dec_data_id] LONG, [country_id] LONG, [dec_value] LONG)",
        "INSERT INTO [decdata] VALUES (801,0,1)",
        "INSERT INTO [decdata] VALUES (801,1,2)",
        "CREATE TABLE [paracategory] ([category_name_id] LONG, [category_id] LONG, [country_id] LONG, "
        "[category_name] "
        "TEXT(200))",
        "INSERT INTO [paracategory] VALUES (1,11,0,'Basic')",
        "INSERT INTO [paracategory] VALUES (1,11,1,'Kihon')",
        "INSERT INTO [paracategory] VALUES (2,12,2,'Erweitert')",
        "CREATE TABLE [paraname] ([name_id] LONG, [country_id] LONG, [parameter_name] TEXT(200))",
        "INSERT INTO [paraname] VALUES (1,0,'Gain')",
        "INSERT INTO [paraname] VALUES (1,1,'Gein')",
        "CREATE TABLE [unit] ([unit_str_id] LONG, [country_id] LONG, [unit] TEXT(100), [unit_multiplier] "
        "SINGLE, "
        "[unit_name] TEXT(100))",
        "INSERT INTO [unit] VALUES (1,0,'turns',1,'turns')",
        "INSERT INTO [unit] VALUES (1,1,'kaiten',1,'kaiten')",
        "INSERT INTO [unit] VALUES (2,100,'0.1 Hz',0.1,'Hz')",
        "CREATE TABLE [powerrating] ([powerrating_id] LONG, [model_id] LONG, [user_constant] TEXT(30), [max] "
        "LONG, "
        "[min] LONG, [initial_value] LONG, [max_check] LONG, [min_check] LONG)",
        "INSERT INTO [powerrating] VALUES (3,17,'P1',300,-300,30,1,1)",
        "INSERT INTO [powerrating] VALUES (3,18,'P1',1,1,1,1,1)",
    };
}

}  // namespace support
