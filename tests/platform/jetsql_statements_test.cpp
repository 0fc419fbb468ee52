#include <gtest/gtest.h>

#include "jetfile/reader.h"
#include "support/memory_database.h"

// A whole session of statements, one after another, over the sample database: each must translate, be
// prepared by SQLite and run.
namespace {

constexpr const char* kSession[] = {
    "SELECT * INTO [model] FROM [tavrowinmodel]",
    "SELECT * INTO [help] FROM [tavrowinhelp]",
    "SELECT * INTO [wizhelp] FROM [tavrowinwizhelp]",
    "SELECT * INTO [MonitorID] FROM [tavrowinMonitorID]",
    "SELECT * INTO [ModelEFencodor] FROM [encodor]",
    "SELECT * INTO [ax_list] FROM [paracategorylist] WHERE [servo_id] = 17 AND [option_id] = 65533",
    "SELECT * INTO [ax_u] FROM [AMPA100_Upara]",
    "SELECT * INTO [ax_m] FROM [AMPA100_Mon]",
    "SELECT * INTO [ax_io] FROM [AMPA100_Io]",
    "SELECT * INTO [ax_al] FROM [AMPA100_DispAl]",
    "SELECT * INTO [tempAlarm_diag] FROM [alarm_diag]",
    "SELECT * INTO [ax_at] FROM [analogtrace] WHERE spec_version = 1 AND (sv_control_type = 0) AND (servo_id "
    "= 17) AND (option_id = 65533)",
    "SELECT * INTO [ax_it] FROM [iotrace] WHERE spec_version = 1 AND (sv_control_type = 0 OR sv_control_type "
    "= 1) AND (servo_id = 17) AND (option_id = 65533)",
    "SELECT * INTO [ax_fix] FROM [fixedio] WHERE [servo_id] = 17 AND [option_id] = 65533 AND [inout] = 1",
    "SELECT * INTO [ax_u_nibble] FROM [nibble_ex] WHERE ([nibble_data_id] = ANY (SELECT [nibble_data_id] "
    "FROM [ax_u]))",
    "SELECT * INTO [ax_u_dec] FROM [decdata] WHERE ([dec_data_id] = ANY (SELECT [dec_data_id] FROM [ax_u]) "
    "AND [decdata].[country_id] = 0)",
    "SELECT * INTO [ax_grp] FROM [MeaningMonGrp] WHERE [servo_id] = 17 AND [option_id] = 65533 AND [grp_id] "
    "= 1",
    "SELECT * INTO [ax_mg] FROM [MeaningMonGrp]",
    "SELECT * INTO [ax_mi] FROM [MeaningMonInfo] WHERE [servo_id] = 17 AND [option_id] = 65533",
    "UPDATE [ax_list] INNER JOIN [firmparacategorylist] ON [ax_list].[servo_id] = "
    "[firmparacategorylist].[servo_id] AND [ax_list].[category_id] = [firmparacategorylist].[category_id] "
    "AND [ax_list].[fixed_id] = [firmparacategorylist].[fixed_id] SET [ax_list].[order] = "
    "[firmparacategorylist].[order] WHERE ([firmparacategorylist].[change_type] = 1 AND "
    "[firmparacategorylist].[servo_id] = 17 AND [firmparacategorylist].[option_id] = 65533 AND "
    "[firmparacategorylist].[firm_id] <= 6)",
    "UPDATE [ax_list] INNER JOIN [cmodparacategorylist] ON [ax_list].[servo_id] = "
    "[cmodparacategorylist].[servo_id] AND [ax_list].[category_id] = [cmodparacategorylist].[category_id] "
    "AND [ax_list].[fixed_id] = [cmodparacategorylist].[fixed_id] SET [ax_list].[order] = "
    "[cmodparacategorylist].[order] WHERE ([cmodparacategorylist].[change_type] = 1 AND "
    "[cmodparacategorylist].[servo_id] = 17 AND [cmodparacategorylist].[option_id] = 65533 AND "
    "[cmodparacategorylist].[cmod_id] = 101)",
    "INSERT INTO [ax_list] SELECT "
    "[firmparacategorylist].[servo_id],[firmparacategorylist].[option_id],[firmparacategorylist].[category_"
    "id],[firmparacategorylist].[order],[firmparacategorylist].[fixed_id] FROM [firmparacategorylist] WHERE "
    "([servo_id] = 17 AND [option_id] = 65533 AND [change_type] = 2 AND [firm_id] <= 6 ) ",
    "INSERT INTO [ax_list] SELECT "
    "[cmodparacategorylist].[servo_id],[cmodparacategorylist].[option_id],[cmodparacategorylist].[category_"
    "id],[cmodparacategorylist].[order],[cmodparacategorylist].[fixed_id] FROM [cmodparacategorylist] WHERE "
    "([servo_id] = 17 AND [option_id] = 65533 AND [change_type] = 2 AND [cmod_id] = 101 ) ",
    "UPDATE [ax_u] INNER JOIN [FirmUPara] ON [ax_u].[Parameter_id] = [FirmUPara].[FirmUPara_id] AND "
    "[ax_u].[sv_control_type] = [FirmUPara].[sv_control_type] SET [ax_u].[user_constant] = "
    "[FirmUPara].[user_constant],[ax_u].[category_name_id] = "
    "[FirmUPara].[category_name_id],[ax_u].[parameter_name_id] = "
    "[FirmUPara].[parameter_name_id],[ax_u].[nibble_data_id] = "
    "[FirmUPara].[nibble_data_id],[ax_u].[dec_data_id] = [FirmUPara].[dec_data_id],[ax_u].[decdata_num] = "
    "[FirmUPara].[decdata_num],[ax_u].[nonvolatile_address] = "
    "[FirmUPara].[nonvolatile_address],[ax_u].[volatile_address] = "
    "[FirmUPara].[volatile_address],[ax_u].[size] = [FirmUPara].[size],[ax_u].[max] = "
    "[FirmUPara].[max],[ax_u].[min] = [FirmUPara].[min],[ax_u].[max_check] = "
    "[FirmUPara].[max_check],[ax_u].[min_check] = [FirmUPara].[min_check],[ax_u].[initial_value] = "
    "[FirmUPara].[initial_value],[ax_u].[unit_str_id] = [FirmUPara].[unit_str_id],[ax_u].[edit_type] = "
    "[FirmUPara].[edit_type],[ax_u].[disp_type] = [FirmUPara].[disp_type],[ax_u].[user_level] = "
    "[FirmUPara].[user_level],[ax_u].[control_mode] = [FirmUPara].[control_mode],[ax_u].[access_level] = "
    "[FirmUPara].[access_level],[ax_u].[sv_control_type] = "
    "[FirmUPara].[sv_control_type],[ax_u].[effective_timing] = "
    "[FirmUPara].[effective_timing],[ax_u].[fixed_id] = [FirmUPara].[fixed_id],[ax_u].[parameter_help] = "
    "[FirmUPara].[parameter_help] WHERE ([FirmUPara].[change_type] = 1 AND [FirmUPara].[firm_id] <= 6 AND "
    "[FirmUPara].[model_id] = 17 AND [FirmUPara].[option_id] = 65533)",
    "UPDATE [ax_u] INNER JOIN [FirmUPara] ON [ax_u].[Parameter_id] = [FirmUPara].[FirmUPara_id] AND "
    "[ax_u].[sv_control_type] = [FirmUPara].[sv_control_type] SET [ax_u].[user_constant] = "
    "[FirmUPara].[user_constant],[ax_u].[category_name_id] = "
    "[FirmUPara].[category_name_id],[ax_u].[parameter_name_id] = "
    "[FirmUPara].[parameter_name_id],[ax_u].[nibble_data_id] = "
    "[FirmUPara].[nibble_data_id],[ax_u].[dec_data_id] = [FirmUPara].[dec_data_id],[ax_u].[decdata_num] = "
    "[FirmUPara].[decdata_num],[ax_u].[nonvolatile_address] = "
    "[FirmUPara].[nonvolatile_address],[ax_u].[volatile_address] = "
    "[FirmUPara].[volatile_address],[ax_u].[size] = [FirmUPara].[size],[ax_u].[max] = "
    "[FirmUPara].[max],[ax_u].[min] = [FirmUPara].[min],[ax_u].[max_check] = "
    "[FirmUPara].[max_check],[ax_u].[min_check] = [FirmUPara].[min_check],[ax_u].[initial_value] = "
    "[FirmUPara].[initial_value],[ax_u].[unit_str_id] = [FirmUPara].[unit_str_id],[ax_u].[edit_type] = "
    "[FirmUPara].[edit_type],[ax_u].[disp_type] = [FirmUPara].[disp_type],[ax_u].[user_level] = "
    "[FirmUPara].[user_level],[ax_u].[control_mode] = [FirmUPara].[control_mode],[ax_u].[access_level] = "
    "[FirmUPara].[access_level],[ax_u].[sv_control_type] = "
    "[FirmUPara].[sv_control_type],[ax_u].[effective_timing] = "
    "[FirmUPara].[effective_timing],[ax_u].[fixed_id] = [FirmUPara].[fixed_id],[ax_u].[parameter_help] = "
    "[FirmUPara].[parameter_help] WHERE ([FirmUPara].[change_type] = 1 AND [FirmUPara].[firm_id] = 0 AND "
    "[FirmUPara].[model_id] = 17 AND [FirmUPara].[option_id] = 3)",
    "UPDATE [ax_u] INNER JOIN [CmodUPara] ON [ax_u].[Parameter_id] = [CmodUPara].[cmodUPara_id] AND "
    "[ax_u].[sv_control_type] = [CmodUPara].[sv_control_type] SET [ax_u].[user_constant] = "
    "[CmodUPara].[user_constant],[ax_u].[category_name_id] = "
    "[CmodUPara].[category_name_id],[ax_u].[parameter_name_id] = "
    "[CmodUPara].[parameter_name_id],[ax_u].[nibble_data_id] = "
    "[CmodUPara].[nibble_data_id],[ax_u].[dec_data_id] = [CmodUPara].[dec_data_id],[ax_u].[decdata_num] = "
    "[CmodUPara].[decdata_num],[ax_u].[nonvolatile_address] = "
    "[CmodUPara].[nonvolatile_address],[ax_u].[volatile_address] = "
    "[CmodUPara].[volatile_address],[ax_u].[size] = [CmodUPara].[size],[ax_u].[max] = "
    "[CmodUPara].[max],[ax_u].[min] = [CmodUPara].[min],[ax_u].[max_check] = "
    "[CmodUPara].[max_check],[ax_u].[min_check] = [CmodUPara]![min_check],[ax_u].[initial_value] = "
    "[CmodUPara]![initial_value],[ax_u].[unit_str_id] = [CmodUPara]![unit_str_id],[ax_u].[edit_type] = "
    "[CmodUPara]![edit_type],[ax_u].[disp_type] = [CmodUPara].[disp_type],[ax_u].[user_level] = "
    "[CmodUPara].[user_level],[ax_u].[control_mode] = [CmodUPara].[control_mode],[ax_u].[access_level] = "
    "[CmodUPara].[access_level],[ax_u].[sv_control_type] = "
    "[CmodUPara].[sv_control_type],[ax_u].[effective_timing] = "
    "[CmodUPara].[effective_timing],[ax_u].[fixed_id] = [CmodUPara].[fixed_id],[ax_u].[parameter_help] = "
    "[CmodUPara].[parameter_help] WHERE ([CmodUPara].[change_type] = 1 AND [CmodUPara].[cmod_id] = 101 AND "
    "[CmodUPara].[model_id] = 17 AND [CmodUPara].[option_id] = 65533 AND [CmodUPara].[model_type] = 1)",
    "INSERT INTO [ax_u] SELECT [FirmUPara].[FirmUPara_id] AS "
    "[Parameter_id],[FirmUPara].[user_constant],[FirmUPara].[category_name_id],[FirmUPara].[parameter_name_"
    "id],[FirmUPara].[nibble_data_id],[FirmUPara].[dec_data_id],[FirmUPara].[decdata_num],[FirmUPara].["
    "nonvolatile_address],[FirmUPara].[volatile_address],[FirmUPara].[size],[FirmUPara].[max],[FirmUPara].["
    "min],[FirmUPara].[max_check],[FirmUPara].[min_check],[FirmUPara].[initial_value],[FirmUPara].[unit_str_"
    "id],[FirmUPara].[edit_type],[FirmUPara].[disp_type],[FirmUPara].[user_level],[FirmUPara].[control_mode],"
    "[FirmUPara].[access_level],[FirmUPara].[sv_control_type],[FirmUPara].[effective_timing],[FirmUPara].["
    "fixed_id],[FirmUPara].[parameter_help] FROM [FirmUPara] WHERE ([change_type] = 2 AND [firm_id] <= 6 AND "
    "[model_id] = 17 AND [option_id] = 65533 AND NOT EXISTS (SELECT * FROM [CmodUPara] WHERE ([cmodUPara_id] "
    "= [FirmUPara].[FirmUPara_id] AND [change_type] = 2 AND (([cmod_id] = 101 AND [model_id] = 17 AND "
    "[option_id] = 65533) OR ([cmod_id] = 202 AND [model_id] = 18 AND [option_id] = 3)))))",
    "INSERT INTO [ax_u] SELECT [FirmUPara].[FirmUPara_id] AS "
    "[Parameter_id],[FirmUPara].[user_constant],[FirmUPara].[category_name_id],[FirmUPara].[parameter_name_"
    "id],[FirmUPara].[nibble_data_id],[FirmUPara].[dec_data_id],[FirmUPara].[decdata_num],[FirmUPara].["
    "nonvolatile_address],[FirmUPara].[volatile_address],[FirmUPara].[size],[FirmUPara].[max],[FirmUPara].["
    "min],[FirmUPara].[max_check],[FirmUPara].[min_check],[FirmUPara].[initial_value],[FirmUPara].[unit_str_"
    "id],[FirmUPara].[edit_type],[FirmUPara].[disp_type],[FirmUPara].[user_level],[FirmUPara].[control_mode],"
    "[FirmUPara].[access_level],[FirmUPara].[sv_control_type],[FirmUPara].[effective_timing],[FirmUPara].["
    "fixed_id],[FirmUPara].[parameter_help] FROM [FirmUPara] WHERE ([change_type] = 2 AND [firm_id] <= 6 AND "
    "[model_id] = 17 AND [option_id] = 65533 AND NOT EXISTS (SELECT * FROM [CmodUPara] WHERE ([cmodUPara_id] "
    "= [FirmUPara].[FirmUPara_id] AND [change_type] = 2 AND ([cmod_id] = 101 AND [model_id] = 17 AND "
    "[option_id] = 65533))))",
    "INSERT INTO [ax_u] SELECT [CmodUPara].[cmodUPara_id] AS "
    "[Parameter_id],[CmodUPara].[user_constant],[CmodUPara].[category_name_id],[CmodUPara].[parameter_name_"
    "id],[CmodUPara].[nibble_data_id],[CmodUPara].[dec_data_id],[CmodUPara].[decdata_num],[CmodUPara].["
    "nonvolatile_address],[CmodUPara].[volatile_address],[CmodUPara].[size],[CmodUPara].[max],[CmodUPara].["
    "min],[CmodUPara].[max_check],[CmodUPara].[min_check],[CmodUPara].[initial_value],[CmodUPara].[unit_str_"
    "id],[CmodUPara].[edit_type],[CmodUPara].[disp_type],[CmodUPara].[user_level],[CmodUPara].[control_mode],"
    "[CmodUPara].[access_level],[CmodUPara].[sv_control_type],[CmodUPara].[effective_timing],[CmodUPara].["
    "fixed_id],[CmodUPara].[parameter_help] FROM [CmodUPara] WHERE ([change_type] = 2 AND [cmod_id] = 101 "
    "AND [model_id] = 17 AND [option_id] = 65533 AND [model_type] = 1)",
    "DELETE * FROM [ax_u] WHERE [user_constant] = ANY (SELECT [user_constant] FROM [FirmUPara] WHERE "
    "([FirmUPara].[change_type] = 3 AND [FirmUPara].[firm_id] <= 6 AND [FirmUPara].[model_id] = 17 AND "
    "[FirmUPara].[option_id] = 65533))",
    "DELETE * FROM [ax_u] WHERE sv_control_type = 7 OR sv_control_type = 8",
    "UPDATE [ax_u] INNER JOIN [paracategory] ON [ax_u].[category_name_id] = "
    "[paracategory].[category_name_id] SET [ax_u].[category_name] = [paracategory].[category_name] WHERE "
    "([paracategory].[country_id] = 0)",
    "UPDATE [ax_u] INNER JOIN [paraname] ON [ax_u].[parameter_name_id] = [paraname].[name_id] SET "
    "[ax_u].[parameter_name] = [paraname].[parameter_name] WHERE ([paraname].[country_id] = 0)",
    "UPDATE [ax_u] INNER JOIN [unit] ON [ax_u].[unit_str_id] = [unit].[unit_str_id] SET [ax_u].[unit] = "
    "[unit].[unit], [ax_u].[unit_multiplier] = [unit].[unit_multiplier],[ax_u].[unit_name] = "
    "[unit].[unit_name] WHERE ([unit].[country_id] = 0 OR [unit].[country_id] = 100)",
    "UPDATE [ax_u] INNER JOIN [powerrating] ON [ax_u].[user_constant] = [powerrating].[user_constant] SET "
    "[ax_u].[max] = [powerrating].[max], [ax_u].[min] = [powerrating].[min], [ax_u].[initial_value] = "
    "[powerrating].[initial_value], [ax_u].[max_check] = [powerrating].[max_check], [ax_u].[min_check] = "
    "[powerrating].[min_check] WHERE ([powerrating].[powerrating_id] = 1 AND [powerrating].[model_id] = 17)",
    "ALTER TABLE [ax_u] ADD COLUMN [category_id] LONG",
    "UPDATE [ax_u] INNER JOIN [paracategory] ON [ax_u].[category_name_id] = "
    "[paracategory].[category_name_id] SET [ax_u].[category_id] = [paracategory].[category_id]",
    "ALTER TABLE [ax_u] DROP COLUMN [category_name_id]",
    "ALTER TABLE [ax_u] DROP COLUMN [parameter_name_id]",
    "ALTER TABLE [ax_u] DROP COLUMN [unit_str_id]",
    "SELECT * INTO [ax_uf] FROM [ax_u] ORDER BY [Parameter_id]",
    "UPDATE [ax_m] INNER JOIN [monbit] ON [ax_m].[off_content_id] = [monbit].[onoff_content_id] SET "
    "[ax_m].[off_content] = [monbit].[onoff_content] WHERE ([monbit].[country_id] = 0)",
    "UPDATE [ax_m] INNER JOIN [unit] ON [ax_m].[unit_str_id] = [unit].[unit_str_id] SET [ax_m].[unit] = "
    "[unit].[unit], [ax_m].[unit_multiplier] = [unit].[unit_multiplier],[ax_m].[unit_name] = "
    "[unit].[unit_name] WHERE ([unit].[country_id] = 0 OR [unit].[country_id] = 100)",
    "UPDATE [ax_at] INNER JOIN [unit] ON [ax_at].[unit_str_id] = [unit].[unit_str_id] SET [ax_at].[unit] = "
    "[unit].[unit], [ax_at].[unit_multiplier] = [unit].[unit_multiplier],[ax_at].[unit_name] = "
    "[unit].[unit_name] WHERE ([unit].[country_id] = 0 OR [unit].[country_id] = 100)",
    "DELETE * FROM [ax_m] WHERE [monitor_id] = ANY (SELECT [monitor_id] FROM [FirmMon] WHERE "
    "([FirmMon].[change_type] = 3 AND [FirmMon].[firm_id] <= 6 AND [FirmMon].[model_id] = 17))",
    "DELETE * FROM [ax_m] WHERE [monitor_id] = ANY (SELECT [monitor_id] FROM [CmodMon] WHERE "
    "([CmodMon].[change_type] = 3 AND [CmodMon].[Cmod_id] = 101 AND [CmodMon].[model_id] = 17))",
    "UPDATE [ax_m] INNER JOIN [moncategory] ON [ax_m].[category_name_id] = [moncategory].[category_name_id] "
    "SET [ax_m].[category_name] = [moncategory].[category_name] WHERE ([moncategory].[country_id] = 0)",
    "UPDATE [ax_m] INNER JOIN [monname] ON [ax_m].[monitor_name_id] = [monname].[mon_name_id] SET "
    "[ax_m].[monitor_name] = [monname].[monitor_name] WHERE ([monname].[country_id] = 0)",
    "UPDATE [ax_m] INNER JOIN [monbit] ON [ax_m].[on_content_id] = [monbit].[onoff_content_id] SET "
    "[ax_m].[on_content] = [monbit].[onoff_content] WHERE ([monbit].[country_id] = 0)",
    "DELETE * FROM [ax_al] WHERE [alarm_code] = ANY (SELECT [alarm_code] FROM [CmodDispAlarm] WHERE "
    "([CmodDispAlarm].[change_type] = 3 AND [CmodDispAlarm].[cmod_id] = 101 AND [CmodDispAlarm].[model_id] = "
    "17))",
    "UPDATE [ax_al] INNER JOIN [FirmDispAlarm] ON [ax_al].[alarm_code] = [FirmDispAlarm].[alarm_code] SET "
    "[ax_al].[alarm_display] = [FirmDispAlarm].[alarm_display],[ax_al].[indexer_alarm_code] = "
    "[FirmDispAlarm].[indexer_alarm_code],[ax_al].[alarm_level] = [FirmDispAlarm].[alarm_level], "
    "[ax_al].[alarm_meaning_id] = [FirmDispAlarm].[alarm_meaning_id],[ax_al].[alarm_type] = "
    "[FirmDispAlarm].[alarm_type], [ax_al].[alarm_category_id] = "
    "[FirmDispAlarm].[alarm_category_id],[ax_al].[alarm_name_id] = [FirmDispAlarm].[alarm_name_id], "
    "[ax_al].[alo] = [FirmDispAlarm].[alo],[ax_al].[fixed_id] = [FirmDispAlarm].[fixed_id], "
    "[ax_al].[help_path] = [FirmDispAlarm].[help_path] WHERE ([FirmDispAlarm].[change_type] = 1 AND "
    "[FirmDispAlarm].[firm_id] = 0 AND [FirmDispAlarm].[model_id] = 17)",
    "UPDATE [ax_al] INNER JOIN [alarmname] ON [ax_al].[alarm_name_id] = [alarmname].[alarm_name_id] SET "
    "[ax_al].[alarm_name] = [alarmname].[alarm_name] WHERE ([alarmname].[country_id] = 0)",
    "SELECT * INTO [ax_alf] FROM [ax_al] ORDER BY [alarm_display]",
    "UPDATE [ax_at] INNER JOIN [analogtracename] ON [ax_at].[target_name_id] = "
    "[analogtracename].[target_name_id] SET [ax_at].[target_name] = [analogtracename].[target_name] WHERE "
    "([analogtracename].[country_id] = 0)",
    "SELECT * INTO [ax_atf] FROM [ax_at] ORDER BY [analog_id]",
    "SELECT * INTO [ax_itf] FROM [ax_it] ORDER BY [io_id]",
    "UPDATE [ax_io] INNER JOIN [FirmIo] ON [ax_io].[Parameter_id] = [FirmIo].[Parameter_id] SET "
    "[ax_io].[io_code] = [FirmIo].[io_code],[ax_io].[address] = [FirmIo].[address], [ax_io].[digit] = "
    "[FirmIo].[digit],[ax_io].[value] = [FirmIo].[value], [ax_io].[logical_name] = [FirmIo].[logical_name], "
    "[ax_io].[physical_name] = [FirmIo].[physical_name],[ax_io].[positive_logic] = "
    "[FirmIo].[positive_logic], [ax_io].[reverse] = [FirmIo].[reverse],[ax_io].[mode_select] = "
    "[FirmIo].[mode_select],[ax_io].[input_mode_select] = [FirmIo].[input_mode_select], "
    "[ax_io].[reverse_address] = [FirmIo].[reverse_address] WHERE ([FirmIo].[change_type] = 1 AND "
    "[FirmIo].[firm_id] <= 6 AND [FirmIo].[model_id] = 17)",
    "INSERT INTO [ax_io] SELECT "
    "[FirmIo].[Parameter_id],[FirmIo].[io_code],[FirmIo].[address],[FirmIo].[digit],[FirmIo].[value],[FirmIo]"
    ".[logical_name],[FirmIo].[physical_name], "
    "[FirmIo].[positive_logic],[FirmIo].[reverse],[FirmIo].[mode_select],[FirmIo].[input_mode_select],["
    "FirmIo].[reverse_address] FROM [FirmIo] WHERE ([change_type] = 2 AND [firm_id] <= 6 AND [model_id] = "
    "17)",
    "DELETE * FROM [ax_io] WHERE [Parameter_id] = ANY (SELECT [Parameter_id] FROM [FirmIo] WHERE "
    "([FirmIo].[change_type] = 3 AND [FirmIo].[firm_id] <= 6 AND [FirmIo].[model_id] = 17))",
    "UPDATE [ax_fix] INNER JOIN [firmfixedio] ON [ax_fix].[servo_id] = [firmfixedio].[servo_id] AND "
    "[ax_fix].[option_id] = [firmfixedio].[option_id] AND [ax_fix].[inout] = [firmfixedio].[inout] AND "
    "[ax_fix].[bit_position] = [firmfixedio].[bit_position] SET [ax_fix].[logical_name] = "
    "[firmfixedio].[logical_name], [ax_fix].[physical_name] = [firmfixedio].[physical_name], "
    "[ax_fix].[positive_logic] = [firmfixedio].[positive_logic], [ax_fix].[reverse] = "
    "[firmfixedio].[reverse] WHERE ([firmfixedio].[change_type] = 1 AND [firmfixedio].[firm_id] <= 6 AND "
    "[firmfixedio].[inout] = 1)",
    "INSERT INTO [ax_fix] SELECT "
    "[firmfixedio].[servo_id],[firmfixedio].[option_id],[firmfixedio].[inout],[firmfixedio].[bit_position],["
    "firmfixedio].[logical_name],[firmfixedio].[physical_name],[firmfixedio].[positive_logic],[firmfixedio].["
    "reverse] FROM [firmfixedio] WHERE ([servo_id] = 17 AND [option_id] = 65533 AND [change_type] = 2 AND "
    "[firm_id] <= 6 AND [inout] = 1) ",
    "DELETE [ax_fix].* FROM [ax_fix] INNER JOIN [firmfixedio] ON [ax_fix].[servo_id] = "
    "[firmfixedio].[servo_id] AND [ax_fix].[option_id] = [firmfixedio].[option_id] AND [ax_fix].[inout] = "
    "[firmfixedio].[inout] AND [ax_fix].[bit_position] = [firmfixedio].[bit_position] WHERE "
    "([firmfixedio].[change_type] = 3 AND [firmfixedio].[firm_id] <= 6) ",
    "DELETE [ax_fix].* FROM [ax_fix] INNER JOIN [cmodfixedio] ON [ax_fix].[servo_id] = "
    "[cmodfixedio].[servo_id] AND [ax_fix].[option_id] = [cmodfixedio].[option_id] AND [ax_fix].[inout] = "
    "[cmodfixedio].[inout] AND [ax_fix].[bit_position] = [cmodfixedio].[bit_position] WHERE "
    "([cmodfixedio].[change_type] = 3 AND [cmodfixedio].[cmod_id] = 101) ",
    "SELECT * FROM [ax_uf] WHERE parameter_id = 512",
    "SELECT * FROM [tablemanager] WHERE [axis_num] = 1",
    "SELECT * FROM [tablemanager] WHERE axis_num = 1",
    "SELECT * FROM [ax_uf]",
    "UPDATE [tablemanager]  SET [dispalarm_table] = \"ax_alf\" WHERE [axis_num] = 1",
    "UPDATE [mdbname] SET [mdb_status] = \"Open\" WHERE [id] = 1",
    "UPDATE [MonitorID] INNER JOIN [monname] ON [MonitorID].[monitor_name_id] = [monname].[mon_name_id] SET "
    "[MonitorID].[monitor_name] = [monname].[monitor_name] WHERE ([monname].[country_id] = 0)",
    "SELECT [mdb_version], [mdb_status] FROM [mdbname] IN '' [;DATABASE=C:\\data\\IdeInfo (1.mdb;PWD=mivmiv] "
    "WHERE [id] = 1",
    "SELECT [mdb_version] FROM [mdbname] IN '' [;DATABASE=C:\\data\\IdeInfo.mdb;PWD=mivmiv] WHERE [id] = 1",
    "UPDATE [mdbname] SET [mdbname] = \"IdeInfo.mdb\", [mdb_status] = \"Close\" WHERE [id] = 1",
    "SELECT * FROM [mdbname] WHERE [id] = 1",
    "SELECT COUNT (*) AS [Record] FROM [tablemanager] WHERE [axis_num] = 1",
    "UPDATE [tablemanager]  SET [userparameter_table] = \"ax_uf\" WHERE [axis_num] = 1",
    "INSERT INTO  [tablemanager] ([axis_num],[userparameter_table]) VALUES (1,\"ax_uf\")",
    "SELECT COUNT (*) AS [Record] FROM [tablemanager] WHERE [userparameter_table] = \"ax_uf\"",
    "UPDATE [tablemanager] SET [tablemanager].[servo_id] = 17,[tablemanager].[sFirm_version] = "
    "1,[tablemanager].[sCmod_version] = 1,[tablemanager].[prate] = 1,[tablemanager].[option_id] = "
    "65533,[tablemanager].[oFirm_version] = 1,[tablemanager].[oCmod_version] = 1,[tablemanager].[motor_id] = "
    "301,[tablemanager].[eFirm_id] = 1 WHERE([tablemanager].[axis_num] = 1)",
    "UPDATE [ModelEFencodor] INNER JOIN [Firmencodor] ON ([ModelEFencodor].[motor_id] = "
    "[Firmencodor].[motor_id]) AND ([ModelEFencodor].[encodor_id] = [Firmencodor].[encodor_id]) SET "
    "[ModelEFencodor].[encodor_ability] = [Firmencodor].[encodor_ability],[ModelEFencodor].[encodor_type] = "
    "[Firmencodor].[encodor_type],[ModelEFencodor].[encodor_help] = [Firmencodor].[encodor_help] WHERE "
    "([FirmEncodor].[change_type] = 1 AND [FirmEncodor].[firm_id] <= 6 AND [FirmEncodor].[motor_id] = 301)",
    "INSERT INTO [ModelEFencodor] SELECT "
    "[Firmencodor].[encodor_id],[Firmencodor].[motor_id],[Firmencodor].[encodor_ability], "
    "[Firmencodor].[encodor_type],[Firmencodor].[encodor_help] FROM [Firmencodor] WHERE ([change_type] = 2 "
    "AND [firm_id] <= 6 AND [motor_id] = 301) ",
    "DELETE * FROM [ModelEFencodor] WHERE ([encodor_id] = ANY (SELECT [encodor_id] FROM [Firmencodor] WHERE "
    "([Firmencodor].[change_type] = 3 AND [Firmencodor].[firm_id] <= 6 AND [Firmencodor].[motor_id] = 301))) "
    "AND ([motor_id] = 301)",
    "SELECT * FROM [ModelEFencodor] WHERE ([encodor_id] = 1 AND [motor_id] = 301)",
    "DROP TABLE [ModelEFencodor]",
    "SELECT * FROM [encodor] WHERE ([encodor_id] = 1 AND [motor_id] = 301)",
    "UPDATE [tablemanager] SET [encodor_ability] = 1,[encodor_type] = \"Serial 20 bit\" WHERE([axis_num] = "
    "1)",
    "SELECT [ide_servo_id],[modify_flag_bitmask],[modify_flag],[modify_threshold_bitmask],[modify_threshold] "
    "FROM [model_subspecies] WHERE [servo_id] = 17 ORDER BY [modify_threshold] DESC",
    "SELECT [ide_servo_id],[modify_flag_bitmask],[modify_flag],[modify_threshold_bitmask],[modify_threshold] "
    "FROM [tavro2_model_subspecies] WHERE [servo_id] = 17 ORDER BY [modify_threshold] DESC",
    "SELECT * FROM [tablemanager] WHERE (userparameter_table = \"ax_uf\" AND axis_num <> 1)",
    "DELETE * FROM [tablemanager] WHERE axis_num = 1",
    "DELETE * FROM [ax_list] WHERE [category_id] = ANY (SELECT [category_id] FROM [firmparacategorylist] "
    "WHERE ([firmparacategorylist].[change_type] = 3 AND [firmparacategorylist].[firm_id] <= 6 AND "
    "[firmparacategorylist].[servo_id] = 17 AND [firmparacategorylist].[option_id] = 65533))",
    "DELETE [ax_mg].* FROM [ax_mg] INNER JOIN [firmMeaningMonGrp] ON [ax_mg].[servo_id] = "
    "[firmMeaningMonGrp].[servo_id] WHERE ([firmMeaningMonGrp].[change_type] = 3 AND "
    "[firmMeaningMonGrp].[firm_id] <= 6 AND [firmMeaningMonGrp].[servo_id] = 17 AND "
    "[firmMeaningMonGrp].[option_id] = 65533)",
    "SELECT COUNT (*) AS [Record] FROM [FirmUPara] WHERE [model_id] = 17 AND [option_id] = 65533",
    "SELECT * FROM [FirmUPara] WHERE [model_id] = 17 AND [option_id] = 65533 ORDER BY [firm_id]",
    "SELECT COUNT (*) AS [Record] FROM [FirmUPara] WHERE [model_id] = 17 AND [option_id] = 65533 ",
    "SELECT * FROM [FirmUPara] WHERE [model_id] = 17 AND [option_id] = 65533 ORDER BY [firm_id]",
    "SELECT * FROM [ax_uf] ORDER BY [Parameter_id]",
    "SELECT DISTINCT [cmod_id], [model_type] FROM [CmodUPara] WHERE ([model_id] = 17 AND [model_type] = 1 "
    "AND [option_id] = 65533) ORDER BY [cmod_id]",
    "SELECT DISTINCT [cmod_id] FROM [CmodUpara] WHERE [model_id] = 17 AND [option_id] = 65533 AND "
    "[model_type] = 1 ORDER BY [cmod_id]",
    "SELECT DISTINCT [cmod_id] FROM [CmodUpara] WHERE [option_id] = 65533  AND [option_id] = 65533 AND "
    "[model_type] = 1 ORDER BY [cmod_id]",
    "SELECT * FROM [FirmUpara] WHERE ([model_id] = 17 AND ([firm_id] > 1 AND [firm_id] <= 6))",
    "SELECT * FROM [FirmUpara] WHERE ([model_id] = 17 AND [option_id] = 65533 AND ([firm_id] > 1 AND "
    "[firm_id] <= 6))",
    "SELECT [nibble_table] FROM [tablemanager] WHERE axis_num = 1",
    "SELECT * FROM [ax_u_nibble] WHERE [nibble_data_id]= 1 ",
    "SELECT * FROM [ax_u_nibble] WHERE [nibble_data_id]= 1 ORDER BY [pos]",
    "SELECT * FROM [ax_u_nibble] ORDER BY [nibble_data_id], [pos]",
    "SELECT * FROM [nibble_ex_content_query] WHERE [content_id]= 1 ORDER BY [content_value]",
    "SELECT [name_str] FROM [nibble_ex_name] WHERE [country_id] = 0 AND [name_id] = 1",
    "SELECT * FROM [nibble_ex_name] WHERE ([fixed_id] = 1 AND [country_id] = 0)",
    "SELECT * FROM [nibble_ex_content] WHERE [content_id]= 1 ",
    "SELECT DISTINCT [category_id] FROM [ax_uf]",
    "SELECT DISTINCT [category_id], [category_name] FROM [ax_uf] ORDER BY [category_id]",
    "SELECT *  FROM [paracategory] WHERE [category_id] > 40000",
    "SELECT * FROM [ax_mi] WHERE func_id = 1",
    "SELECT [userparameter_table] FROM [tablemanager] WHERE axis_num = 1",
    "SELECT [Parameter_id] FROM [ax_uf] where fixed_id = 1",
    "SELECT * FROM [ax_list]  WHERE [category_id] = 1 ORDER BY [order]",
    "SELECT [parameter_id] FROM [ax_uf] where [fixed_id] = 1",
    "SELECT * FROM [ax_uf] WHERE [category_id] = 1",
    "SELECT * FROM [ax_m] WHERE category_name_id = 1",
    "SELECT * FROM [ax_m] WHERE category_name_id = 1 ORDER BY [monitor_id]",
    "SELECT * FROM [ax_m] WHERE monitor_id = 1",
    "SELECT * FROM [ax_m] ORDER BY [monitor_id]",
    "SELECT * FROM [MonitorID] WHERE category_name_id = 1 AND display_type < 100",
    "SELECT * FROM [MonitorID] WHERE category_name_id = 1  AND display_type < 100 ORDER BY display_order",
    "SELECT * FROM [ax_grp] WHERE [grp_id] = 1",
    "SELECT func_id FROM [ax_grp] WHERE [grp_id] = 1  ORDER BY 1",
    "SELECT func_id, monitor_id, value FROM [ax_mi] LEFT JOIN [ax_m] ON [ax_mi].fixed_id = [ax_m].fixed_id "
    "ORDER BY 1",
    "SELECT [model_name] FROM [model] WHERE [model_id] = \"17\"",
    "SELECT [model_name] FROM [model] WHERE [model_id] = \"17_5\"",
    "SELECT COUNT (*) AS [Record] FROM [tablemanager] WHERE [monitor_table] = \"ax_m\"",
    "SELECT COUNT (*) AS [Record] FROM [FirmMon] WHERE [model_id] = 17",
    "SELECT * FROM [FirmMon] WHERE [model_id] = 17 ORDER BY [firm_id]",
    "UPDATE [tablemanager]  SET [monitor_table] = \"ax_m\", [io_table] = \"ax_io\" WHERE [axis_num] = 1",
    "INSERT INTO  [tablemanager] ([axis_num],[monitor_table],[io_table]) VALUES (1,\"ax_m\",\"ax_io\")",
    "SELECT * FROM [ax_alf] WHERE [alarm_code] = 1",
    "SELECT * FROM [ax_alf] WHERE [indexer_alarm_code] = 1",
    "SELECT * FROM [ax_alf] WHERE [alarm_name_id] = 1",
    "SELECT * FROM [ax_alf] WHERE [fixed_id] = 10",
    "SELECT * FROM [ax_alf] WHERE [fixed_id] =10",
    "SELECT * FROM [ax_alf] WHERE [fixed_id] =11",
    "SELECT * FROM [ax_alf] WHERE [fixed_id] =12",
    "SELECT DISTINCT [fixed_id] FROM [ax_alf] WHERE ([fixed_id] >10 AND [fixed_id] < 100)",
    "SELECT * FROM [ax_alf] WHERE [fixed_id] = 250",
    "SELECT [dispalarm_table] FROM [tablemanager] WHERE [axis_num] = 1",
    "SELECT [monitor_table] FROM [tablemanager] WHERE [axis_num] = 1",
    "SELECT COUNT (*) AS [Record] FROM [tablemanager] WHERE [dispalarm_table] = \"ax_alf\"",
    "SELECT COUNT (*) AS [Record] FROM [FirmDispAlarm] WHERE [model_id] = 17",
    "SELECT * FROM [FirmDispAlarm] WHERE [model_id] = 17 ORDER BY [firm_id]",
    "INSERT INTO  [tablemanager] ([axis_num],[dispalarm_table]) VALUES (2,\"ax_alf\")",
    "SELECT * FROM [tempAlarm_diag] WHERE [alarm_code] = 1",
    "SELECT alarm_diag.*, ax_m.monitor_id AS [ID_1], ax_m_1.monitor_id AS [ID_2], ax_m_2.monitor_id AS "
    "[ID_3], ax_m_3.monitor_id AS [ID_4], ax_m_4.monitor_id AS [ID_5], ax_m_5.monitor_id AS [ID_6], "
    "ax_m_6.monitor_id AS [ID_7], ax_m_7.monitor_id AS [ID_8], ax_m_8.monitor_id AS [ID_9], "
    "ax_m_9.monitor_id AS [ID_10], FunctionStrings.string AS [STR_1], FunctionStrings_1.string AS [STR_2], "
    "FunctionStrings_2.string AS [STR_3] FROM ((((((((((((alarm_diag LEFT JOIN FunctionStrings ON "
    "alarm_diag.confirm = FunctionStrings.string_id) LEFT JOIN FunctionStrings AS FunctionStrings_1 ON "
    "alarm_diag.factor = FunctionStrings_1.string_id) LEFT JOIN FunctionStrings AS FunctionStrings_2 ON "
    "alarm_diag.plan = FunctionStrings_2.string_id) LEFT JOIN ax_m ON alarm_diag.fixed_id_1 = ax_m.fixed_id) "
    "LEFT JOIN ax_m AS ax_m_1 ON alarm_diag.fixed_id_2 = ax_m_1.fixed_id) LEFT JOIN ax_m AS ax_m_2 ON "
    "alarm_diag.fixed_id_3 = ax_m_2.fixed_id) LEFT JOIN ax_m AS ax_m_3 ON alarm_diag.fixed_id_4 = "
    "ax_m_3.fixed_id) LEFT JOIN ax_m AS ax_m_4 ON alarm_diag.fixed_id_5 = ax_m_4.fixed_id) LEFT JOIN ax_m AS "
    "ax_m_5 ON alarm_diag.fixed_id_6 = ax_m_5.fixed_id) LEFT JOIN ax_m AS ax_m_6 ON alarm_diag.fixed_id_7 = "
    "ax_m_6.fixed_id) LEFT JOIN ax_m AS ax_m_7 ON alarm_diag.fixed_id_8 = ax_m_7.fixed_id) LEFT JOIN ax_m AS "
    "ax_m_8 ON alarm_diag.fixed_id_9 = ax_m_8.fixed_id) LEFT JOIN ax_m AS ax_m_9 ON alarm_diag.fixed_id_10 = "
    "ax_m_9.fixed_id WHERE [alarm_code] = 1 ORDER BY [priority]",
    "SELECT * FROM [ax_atf] WHERE (display_flag = 1) ORDER BY [order]",
    "SELECT * FROM [ax_atf] WHERE [target_name_id] = 1",
    "SELECT * FROM [ax_atf] ORDER BY [order] DESC",
    "SELECT * FROM [AnalogTraceInfo] ORDER BY [target_name_id] DESC",
    "SELECT * FROM [IOTraceInfo] ORDER BY [io_id] DESC",
    "SELECT [analogtrace_table] FROM [tablemanager] WHERE [axis_num] = 1",
    "SELECT * FROM [analogtrace] WHERE spec_version <= 1 ORDER BY spec_version DESC",
    "SELECT * FROM [AnalogTraceInfo] WHERE [target_name_id] = 1",
    "SELECT * FROM [Tavro2Model] WHERE [servo_id] = 17",
    "SELECT * FROM [IOTraceInfo] WHERE [io_id] = 1",
    "SELECT * FROM [ax_itf] ORDER BY [order]",
    "SELECT [iotrace_table] FROM [tablemanager] WHERE [axis_num] = 1",
    "SELECT COUNT (*) AS [Record] FROM [FirmIo] WHERE [model_id] = 17",
    "SELECT * FROM [FirmIo] WHERE [model_id] = 17 ORDER BY [firm_id]",
    "SELECT DISTINCT [address] FROM [ax_io] WHERE [io_code] = 1 ORDER BY [address] ",
    "SELECT DISTINCT [address] FROM [ax_io] WHERE ([io_code] = 1 AND [mode_select] = 0) ORDER BY [address] ",
    "SELECT * FROM [ax_io] WHERE ([io_code] = 1 AND [mode_select] = 1 AND [digit] = 1 AND [value] = 1) ",
    "SELECT * FROM [ax_io] WHERE ([io_code] = 1 AND [address] = 1 AND [digit] = 1 AND [value] = 1) ",
    "SELECT * FROM [ax_io] WHERE ([io_code] = 1 AND [mode_select] = 1)",
    "SELECT * FROM [PELK_Io] WHERE [pelkvalue] = 1 ",
    "SELECT * FROM [ax_uf] WHERE (fixed_id >= 1 AND fixed_id <= 1)",
    "SELECT * FROM [ax_fix] ORDER BY [servo_id], [option_id], [bit_position]",
    "SELECT * FROM [model] WHERE (servo_id = 17 AND option_id = 65533 AND off_flag = 1)",
    "SELECT * FROM [model] WHERE (servo_id = 17 AND option_id = 65533)",
    "SELECT DISTINCT [servo_type] FROM [model] WHERE [off_flag] = 1 AND [servo_type] <> 0",
    "SELECT DISTINCT [servo_id] FROM [model] WHERE [off_flag] = 1 AND [servo_type] = 0",
    "SELECT DISTINCT [servo_type] FROM [model] WHERE [Linear_flag] = 0 AND [option_id] = 65533",
    "SELECT DISTINCT [servo_type] FROM [model] WHERE [Linear_flag] = 1 AND [option_id] = 65533",
    "SELECT DISTINCT [option_id] FROM [model] WHERE ([option_id] < 65533 AND [off_flag] = 1)",
    "SELECT DISTINCT [option_id] FROM [model] WHERE [option_id] < 65533",
    "SELECT DISTINCT [disp_id], [servo_id], [option_id] FROM [model] WHERE [off_flag] = 1 AND [servo_type] "
    "<> 0",
    "SELECT DISTINCT [disp_id], [servo_id], [option_id] FROM [model] WHERE [linear_flag] = 0 AND [option_id] "
    "= 65533",
    "SELECT DISTINCT [disp_id], [servo_id], [option_id] FROM [model] WHERE [linear_flag] = 1 AND [option_id] "
    "= 65533",
    "SELECT DISTINCT [disp_id], [servo_id], [option_id] FROM [model] WHERE ([option_id] < 65533 AND "
    "[off_flag] = 1)",
    "SELECT DISTINCT [disp_id], [servo_id], [option_id] FROM [model] WHERE [option_id] < 65533",
    "SELECT DISTINCT [disp_id], [servo_id], [option_id] FROM [model]",
    "SELECT * FROM [model] WHERE [servo_id]= 17 AND [option_id] <> 65533 AND [off_flag] = 1 AND [servo_type] "
    "= 0",
    "SELECT * FROM [model] WHERE [wizard_flag] = 1",
    "SELECT * FROM [model] WHERE [wizard_flag] = 1 ORDER BY [servo_id],[option_id]",
    "SELECT * FROM wizhelp WHERE [id] = 1",
    "SELECT COUNT (*) AS [Record] FROM [motor] WHERE [disp_flag] = 1 AND [sv_control_type] = 1",
    "SELECT COUNT (*) AS [Record] FROM [motor] WHERE [disp_flag] = 1",
    "SELECT * FROM [motor] WHERE [disp_flag] = 1 AND [sv_control_type] = 1 ORDER BY [motor_id]",
    "SELECT * FROM [motor] WHERE [disp_flag] = 1 ORDER BY [motor_id]",
    "SELECT * FROM [motor] WHERE [motor_id] = 301",
    "SELECT * FROM [motor_help] WHERE [model_id] = 17",
    "SELECT [voltage_symbol] FROM [motorvoltagesymbol] WHERE [voltage_symbol_id] = 1",
    "SELECT DISTINCT [power_id] FROM [motorspec] WHERE [motor_id] = 301",
    "SELECT DISTINCT power_id, power_name FROM [motorspec] WHERE [motor_id] = 301 ORDER BY [power_id]",
    "SELECT * FROM [motorspec] WHERE (motor_id = 301 AND power_id = 1)",
    "SELECT * FROM [motorspec] WHERE [motor_id] = 301 AND [power_id] = 1",
    "SELECT DISTINCT [voltage] FROM [motorspec] WHERE [motor_id] = 301 AND [magnet_id] = 1",
    "SELECT DISTINCT [motorspec].voltage, [motorvoltagesymbol].voltage_string FROM [motorspec] LEFT JOIN "
    "[motorvoltagesymbol] ON [motorspec].[voltage] = [motorvoltagesymbol].[voltage_symbol_id] WHERE "
    "[motorspec].[motor_id] = 301 AND [motorspec].[power_id] = 1 ",
    "SELECT DISTINCT magnet_id FROM [motorspec] WHERE [motor_id] = 301",
    "SELECT * FROM [motorspec] WHERE [motor_id] = 301 AND [magnet_id] = 1",
    "SELECT DISTINCT magnet_id AS [ID], magnet_name AS [NAME] FROM [motorspec] WHERE [motor_id] = 301 ORDER "
    "BY [magnet_id]",
    "SELECT coil_id AS [ID], coil_name AS [NAME] FROM [motorspec] WHERE [motor_id] = 301 AND [magnet_id] = 1 "
    "ORDER BY [coil_id]",
    "SELECT ext_size_id AS [ID], ext_size_name AS [NAME] FROM [motorspec] WHERE [motor_id] = 301 AND "
    "[torque_id] = 1 ORDER BY [ext_size_id]",
    "SELECT * FROM [optioninfo] WHERE [motor_id] = 301",
    "SELECT * FROM [optioninfo] INNER JOIN [FunctionStrings] ON [optioninfo].[name_id] = "
    "[FunctionStrings].[string_id] WHERE [motor_id] = 301 ORDER BY [option_id]",
    "SELECT * FROM [pginfo] WHERE [motor_id] = 301",
    "SELECT * FROM [pginfo] INNER JOIN [FunctionStrings] ON [pginfo].[name_id] = "
    "[FunctionStrings].[string_id] WHERE [motor_id] = 301 ORDER BY [pg_id]",
    "UPDATE [motor_specstring] INNER JOIN [FunctionStrings] ON [motor_specstring].[name_id] = "
    "[FunctionStrings].[string_id] SET [motor_specstring].[name_string] = [FunctionStrings].[string] ",
    "SELECT * FROM [MotorScaleInfo] WHERE [id] = 1",
    "SELECT DISTINCT [power_id] FROM [servovoltage] WHERE [model_id] = 17 AND [option_id] = 65533",
    "SELECT * FROM [PowerRateSymbol] WHERE [symbol_id] = 1",
    "SELECT * FROM [servovoltage] WHERE [model_id] = 17 AND [option_id] = 65533 AND [power_id] = 1",
    "SELECT * FROM [voltagesymbol] WHERE [voltage_symbol_id] = 1",
    "SELECT * FROM [servovoltage] WHERE [model_id] = 17 AND [option_id] = 65533 AND [power_id] = 1 AND "
    "[voltage] = 1",
    "SELECT * FROM [encoder_typename]",
    "SELECT * FROM [encoder_typename] WHERE [country_id] = 0 ORDER BY [typecode]",
    "SELECT * FROM [encoder_typename] WHERE ([country_id] = 0 AND [typecode] = 1)",
    "SELECT * FROM [tavrosizeID] WHERE [type] = 1 AND [size_id] = 1",
    "SELECT * FROM [help] WHERE ( [model_id] = 17 AND [help_id] = 1)",
    "SELECT * FROM [help] WHERE ([model_id] = 17 AND [id] = 1 AND [help_id] = 2)",
    "SELECT * FROM [help] WHERE ( [model_id] = 17 AND [help_id] = 3)",
    "SELECT * FROM [help] WHERE ([model_id] = 17 AND [id] = 1 AND [help_id] = 4)",
    "SELECT * FROM [help] WHERE ( [model_id] = 17 AND [help_id] = 5)",
    "SELECT * FROM [help] WHERE ( [model_id] = 17 AND [id] = 1 AND [help_id] = 6)",
    "SELECT * FROM [help] WHERE ( [model_id] = 17 AND [help_id] = 1 AND  [id] = 1)",
    "SELECT * FROM [refpulsestring] WHERE ([pulse_id] <= 1 AND [country_id] = 0)",
    "SELECT * FROM [refpulsestring] WHERE ([logic_id] <= 1 AND [country_id] = 0)",
    "SELECT * FROM [refpulsestring] WHERE ([multi_id] <= 1 AND [country_id] = 0)",
    "DROP TABLE [ax_u]",
    "DROP TABLE [ax_uf]",
    "DROP TABLE [ax_m]",
    "DROP TABLE [ax_io]",
    "DROP TABLE [ax_al]",
    "DROP TABLE [ax_alf]",
    "DROP TABLE [ax_fix] ",
    "DROP TABLE [tempAlarm_diag] ",
};

void BindValue(sqlite3_stmt* statement, int index, const jetfile::Value& value) {
    if (const auto* integer = std::get_if<std::int64_t>(&value)) {
        sqlite3_bind_int64(statement, index, *integer);
    } else if (const auto* real = std::get_if<double>(&value)) {
        sqlite3_bind_double(statement, index, *real);
    } else if (const auto* text = std::get_if<std::string>(&value)) {
        sqlite3_bind_text(statement, index, text->data(), static_cast<int>(text->size()), SQLITE_TRANSIENT);
    } else {
        sqlite3_bind_null(statement, index);
    }
}

void CopyRows(const jetfile::Reader& reader, const jet::Table& table, MemoryDatabase& database) {
    std::string sql = "INSERT INTO \"" + table.name + "\" VALUES (?";
    for (std::size_t i = 1; i < table.columns.size(); ++i)
        sql += ",?";
    sqlite3_stmt* insert = nullptr;
    ASSERT_EQ(sqlite3_prepare_v2(database.Connection(), (sql + ")").c_str(), -1, &insert, nullptr),
              SQLITE_OK);
    reader.ReadRows(table.name, [&](jetfile::Row&& row) {
        for (std::size_t i = 0; i < row.size(); ++i)
            BindValue(insert, static_cast<int>(i + 1), row[i]);
        EXPECT_EQ(sqlite3_step(insert), SQLITE_DONE) << table.name;
        return sqlite3_reset(insert) == SQLITE_OK;
    });
    sqlite3_finalize(insert);
}

void LoadSample(MemoryDatabase& database) {
    const jetfile::Reader reader(KALO_SAMPLE_DIR "/IdeInfo.mdb", "mivmiv");
    for (const jet::Table& table : reader.Tables()) {
        database.CreateTable(table);
        CopyRows(reader, table, database);
    }
    for (const jetfile::StoredQuery& query : reader.Queries())
        database.AddQuery(query.name, query.sql);
}

TEST(JetsqlStatements, AWholeSessionRuns) {
    MemoryDatabase database;
    LoadSample(database);
    for (const char* statement : kSession)
        EXPECT_EQ(database.ErrorOf(statement), 0) << statement;
}

// What registers an axis that no builder has given a row.
TEST(JetsqlStatements, ElevenNamesForTenValuesAreRefused) {
    MemoryDatabase database;
    LoadSample(database);
    EXPECT_EQ(database.ErrorOf("INSERT INTO [tablemanager]([axis_num],[servo_id],[sFirm_version],"
                               "[sCmod_version],[prate],[option_id],[oFirm_version],[oCmod_version],"
                               "[motor_id],[eFirm_id],[original_servo_id]) "
                               "VALUES(1,17,1,1,1,65533,1,1,301,1)"),
              3346);
    EXPECT_TRUE(database.Rows("SELECT * FROM [tablemanager]").empty());
}

}  // namespace
