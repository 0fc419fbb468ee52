#pragma once

// A small device catalogue, with one row for every way in which a value can be missing.
inline constexpr const char* kCatalogueDatabase[] = {
    "CREATE TABLE [model] ([servo_id] LONG, [option_id] LONG, [disp_id] LONG, [servo_type] LONG, "
    "[off_flag] LONG, [Linear_flag] LONG, [wizard_flag] LONG, [servo_name_string] TEXT(60), "
    "[option_name_string] TEXT(60), [on_servo_name_string] TEXT(60), [on_option_name_string] TEXT(60))",
    "INSERT INTO [model] VALUES (34,65533,10,2,1,1,1,'Off 34',NULL,'On 34',NULL)",
    "INSERT INTO [model] VALUES (17,65533,30,1,1,0,1,'Off 17',NULL,'On 17',NULL)",
    "INSERT INTO [model] VALUES (17,5,20,0,1,0,0,'Off 17','Off option 5','On 17','On option 5')",
    "INSERT INTO [model] VALUES (17,3,40,0,0,0,0,'Off 17','Off option 3','On 17','On option 3')",
    "INSERT INTO [model] VALUES (19,65533,50,0,1,0,0,'A name of more than thirty "
    "bytes',NULL,'1234567890123456789012345678é',NULL)",
    "INSERT INTO [model] ([servo_id],[option_id],[disp_id]) VALUES (99,NULL,60)",
    "CREATE TABLE [wizhelp] ([id] LONG, [helppath_string] TEXT(200))",
    "INSERT INTO [wizhelp] VALUES (1,'wizard.htm#1')",

    "CREATE TABLE [motor] ([motor_id] LONG, [motor_name] TEXT(60), [create_type] SHORT, [disp_flag] SHORT, "
    "[sv_control_type] SHORT)",
    "INSERT INTO [motor] VALUES (302,'Motor 302',2,1,0)",
    "INSERT INTO [motor] VALUES (301,'Motor 301',1,1,0)",
    "INSERT INTO [motor] VALUES (401,'Motor 401',4,1,1)",
    "INSERT INTO [motor] VALUES (306,'Hidden',1,0,0)",
    "INSERT INTO [motor] VALUES (NULL,'Nameless',1,1,9)",
    "CREATE TABLE [motor_help] ([model_id] LONG, [motor_help] TEXT(200))",
    "INSERT INTO [motor_help] VALUES (17,'motor.htm#17')",
    "CREATE TABLE [motorspec] ([motor_id] LONG, [power_id] LONG, [power_name] TEXT(60), [voltage] LONG, "
    "[magnet_id] LONG, [magnet_name] TEXT(60), [coil_id] LONG, [coil_name] TEXT(60), [torque_id] LONG, "
    "[torque_name] TEXT(60), [ext_size_id] LONG, [ext_size_name] TEXT(60))",
    "INSERT INTO [motorspec] VALUES (401,4,'400 W',2,2,'M2',1,'C1',8,'T8',6,'S6')",
    "INSERT INTO [motorspec] VALUES (401,4,'400 W',2,2,'M2',3,'C3',8,'T8',5,'S5')",
    "INSERT INTO [motorspec] VALUES (401,3,'200 W',1,1,'M1',1,'C1',7,'T7',5,'S5')",
    "INSERT INTO [motorspec] VALUES (401,4,'400 W',9,1,'M1',2,'C2',7,'T7',6,'S6')",
    "INSERT INTO [motorspec] ([motor_id]) VALUES (499)",
    "INSERT INTO [motorspec] VALUES (402,1,'50 W',5,1,'M1',1,'C1',1,'T1',1,'S1')",
    "INSERT INTO [motorspec] VALUES (402,1,'50 watts',5,1,'Magnet 1',1,'C1',1,'Torque 1',1,'S1')",
    "CREATE TABLE [motorvoltagesymbol] ([voltage_symbol_id] LONG, [voltage_symbol] TEXT(60), "
    "[voltage_string] TEXT(60))",
    "INSERT INTO [motorvoltagesymbol] VALUES (1,'L','100 V')",
    "INSERT INTO [motorvoltagesymbol] VALUES (2,'M','200 V')",
    "INSERT INTO [motorvoltagesymbol] VALUES (5,'D','48 V')",
    "INSERT INTO [motorvoltagesymbol] VALUES (5,'D','50 V')",
    "CREATE TABLE [motor_specstring] ([name_id] LONG, [name_string] TEXT(60), [unit_str_id] SHORT, [unit] "
    "TEXT(49), [unit_multiplier] SINGLE)",
    "INSERT INTO [motor_specstring] ([name_id],[unit_str_id]) VALUES (71,4)",
    "CREATE TABLE [unit] ([unit_str_id] SHORT, [unit] TEXT(49), [unit_multiplier] SINGLE)",
    "INSERT INTO [unit] VALUES (4,'W',0.5)",
    "CREATE TABLE [FunctionStrings] ([string_id] LONG, [string] MEMO)",
    "INSERT INTO [FunctionStrings] VALUES (71,'Rated power')",
    "INSERT INTO [FunctionStrings] VALUES (72,'Brake')",
    "INSERT INTO [FunctionStrings] VALUES (74,'Twice')",
    "INSERT INTO [FunctionStrings] VALUES (74,'Twice again')",
    "CREATE TABLE [optioninfo] ([motor_id] LONG, [option_id] LONG, [name_id] LONG, [break] SHORT, "
    "[oilseal] SHORT)",
    "INSERT INTO [optioninfo] VALUES (301,2,72,1,NULL)",
    "INSERT INTO [optioninfo] VALUES (301,1,71,0,1)",
    "INSERT INTO [optioninfo] VALUES (301,3,79,1,1)",
    "INSERT INTO [optioninfo] VALUES (302,NULL,71,0,0)",
    "INSERT INTO [optioninfo] VALUES (402,1,74,0,0)",
    "CREATE TABLE [pginfo] ([motor_id] LONG, [pg_id] LONG, [name_id] LONG, [resolution] LONG, [type] "
    "SHORT, [sign] SHORT)",
    "INSERT INTO [pginfo] VALUES (301,2,72,70000,1,-1)",
    "INSERT INTO [pginfo] VALUES (301,1,71,20,3,0)",
    "INSERT INTO [pginfo] VALUES (302,NULL,71,20,0,0)",
    "INSERT INTO [pginfo] VALUES (402,1,74,20,0,0)",
    "CREATE TABLE [MotorScaleInfo] ([id] LONG, [start_adr] LONG, [byte_size] LONG, [sum_adr] LONG, "
    "[protect_adr] LONG, [protect_bit] SHORT, [protect_val] LONG, [model_adr] LONG, [model_size] SHORT)",
    "INSERT INTO [MotorScaleInfo] VALUES (1,65535,2,3,4,5,6,7,8)",
    "INSERT INTO [MotorScaleInfo] VALUES (2,9,9,9,9,9,9,9,9)",

    "CREATE TABLE [servovoltage] ([model_id] LONG, [option_id] LONG, [power_id] LONG, [voltage] LONG, "
    "[voltage_str] TEXT(60), [current] LONG, [max_current] LONG)",
    "INSERT INTO [servovoltage] VALUES (17,65533,6,2,'200 V',11600,28000)",
    "INSERT INTO [servovoltage] VALUES (17,65533,6,1,'100 V',5800,NULL)",
    "INSERT INTO [servovoltage] VALUES (17,65533,2,1,'100 V',NULL,3)",
    "INSERT INTO [servovoltage] VALUES (19,65533,NULL,NULL,NULL,NULL,NULL)",
    "INSERT INTO [servovoltage] VALUES (19,5,1,NULL,NULL,NULL,NULL)",
    "CREATE TABLE [PowerRateSymbol] ([symbol_id] LONG, [prate_symbol] TEXT(60))",
    "INSERT INTO [PowerRateSymbol] VALUES (1,'50 W')",
    "INSERT INTO [PowerRateSymbol] VALUES (2,NULL)",
    "CREATE TABLE [voltagesymbol] ([voltage_symbol_id] LONG, [voltage_symbol] TEXT(60))",
    "INSERT INTO [voltagesymbol] VALUES (1,'L (100 V)')",

    "CREATE TABLE [encoder_typename] ([country_id] SHORT, [typecode] SHORT, [typename] TEXT(60))",
    "INSERT INTO [encoder_typename] VALUES (0,21,'Ring')",
    "INSERT INTO [encoder_typename] VALUES (0,2,'Absolute')",
    "INSERT INTO [encoder_typename] VALUES (1,2,'アブソリュート')",
    "INSERT INTO [encoder_typename] VALUES (7,NULL,NULL)",
    "INSERT INTO [encoder_typename] VALUES (7,3,NULL)",
    "CREATE TABLE [tavrosizeID] ([type] SHORT, [size_id] LONG, [win_id] LONG, [win_subid] LONG)",
    "INSERT INTO [tavrosizeID] VALUES (1,2,101,7)",
    "INSERT INTO [tavrosizeID] VALUES (1,3,NULL,7)",
    "INSERT INTO [tavrosizeID] VALUES (1,4,101,NULL)",
    "CREATE TABLE [encodor] ([encodor_id] LONG, [motor_id] LONG, [encodor_ability] LONG, [encodor_type] "
    "TEXT(20), [encodor_help] TEXT(100))",
    "INSERT INTO [encodor] VALUES (1,301,20,'INC20',NULL)",
    "INSERT INTO [encodor] VALUES (2,301,22,'ABS22',NULL)",
    "INSERT INTO [encodor] VALUES (2,302,22,'OTHER',NULL)",
    "INSERT INTO [encodor] VALUES (12,301,NULL,NULL,NULL)",
    "CREATE TABLE [Firmencodor] ([encodor_id] LONG, [motor_id] LONG, [encodor_ability] LONG, "
    "[encodor_type] TEXT(20), [encodor_help] TEXT(100), [change_type] BYTE, [firm_id] LONG)",
    "INSERT INTO [Firmencodor] VALUES (2,301,23,'ABS23',NULL,1,2)",
    "INSERT INTO [Firmencodor] VALUES (3,301,24,'ABS24MT',NULL,2,3)",
    "INSERT INTO [Firmencodor] VALUES (1,301,NULL,NULL,NULL,3,4)",
    "CREATE TABLE [tablemanager] ([axis_num] SHORT, [servo_id] LONG, [motor_id] LONG, [encodor_ability] "
    "LONG, [encodor_type] TEXT(20), [eFirm_id] LONG)",
    "INSERT INTO [tablemanager] VALUES (1,17,301,22,'ABS22',3)",
    "INSERT INTO [tablemanager] VALUES (2,34,302,0,'*',65535)",
    "INSERT INTO [tablemanager] VALUES (3,17,777,0,'*',65535)",
};
