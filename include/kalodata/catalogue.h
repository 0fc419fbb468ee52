#ifndef KALODATA_CATALOGUE_H
#define KALODATA_CATALOGUE_H

#include <kalodata/types.h>

/*
 * The devices that the database knows, without any axis: amplifier models and option units, motors with their
 * powers, voltages and options, ratings of amplifiers, encoders.
 *
 * Indices count from 0; an index past the last row fails in the database engine (3021), and the function
 * answers its code for a failure. A 16-bit `count` beside an array of records is the number of records that
 * the array holds: at most so many are written, in the order of the rows, and never more than the matching
 * ...Num function counts. There may be fewer: the rest of the array stays as it was.
 *
 * A record is written whole: a missing value is 0 or an empty text in it. A single name or number that is
 * missing leaves the caller's memory as it was, unless the function has a code for it. When a function fails
 * nothing is written, but for the elements of an array that stand before the row that failed, and for the
 * first of two outputs when the second is missing or cannot be read.
 *
 * A code with "+ DAO" has the engine's error number added; "+ 3021" also says that there is no such row.
 */

/* Bytes of a single name, terminator included. */
#define KALO_NAME_SIZE 30

/* Bytes of a text in a record, terminator included. */
#define KALO_TEXT_SIZE 64

/* Bytes of a help reference, terminator included. */
#define KALO_HELP_SIZE 128

#pragma pack(push, 1)

/* One power of a motor, 68 bytes. */
typedef struct KaloMotorCapacity {
    uint32_t power_id;
    char power_name[KALO_TEXT_SIZE];
} KaloMotorCapacity;

/* One voltage of a motor, 68 bytes. */
typedef struct KaloMotorVoltage {
    uint32_t voltage; /* voltage symbol id */
    char voltage_string[KALO_TEXT_SIZE];
} KaloMotorVoltage;

/* One part or size of a linear or direct-drive motor, 68 bytes: a magnet, a coil, a torque or an outer size.
 */
typedef struct KaloMotorPart {
    uint32_t id;
    char name[KALO_TEXT_SIZE];
} KaloMotorPart;

/* One option of a motor, 72 bytes. */
typedef struct KaloOptionInfo {
    uint32_t option_id;
    char string[KALO_TEXT_SIZE]; /* what the option is */
    uint16_t brake;              /* with holding brake: 1 */
    uint16_t oilseal;            /* with oil seal: 1 */
} KaloOptionInfo;

/* One encoder that a motor can have, 76 bytes. */
typedef struct KaloPGInfo {
    uint32_t pg_id;
    char string[KALO_TEXT_SIZE]; /* what the encoder is */
    uint32_t resolution;         /* bits */
    uint16_t type;
    uint16_t sign;
} KaloPGInfo;

/* The motor of an axis with its encoder's values, 264 bytes. */
typedef struct KaloMotorInfo {
    char motor_name[KALO_TEXT_SIZE];
    char motor_help[KALO_HELP_SIZE]; /* help reference; empty when the amplifier model has none */
    uint32_t encodor_ability;
    char encodor_type[KALO_TEXT_SIZE]; /* "*" when unknown */
    uint32_t eFirm_id;                 /* encoder firmware; KALO_NONE for none */
} KaloMotorInfo;

/* Where a motor scale keeps what in its memory, 16 bytes. */
typedef struct KaloMotorScaleInfo {
    uint16_t start_adr;
    uint16_t byte_size;
    uint16_t sum_adr;
    uint16_t protect_adr;
    uint16_t protect_bit;
    uint16_t protect_val;
    uint16_t model_adr;
    uint16_t model_size;
} KaloMotorScaleInfo;

/* One voltage of an amplifier, 68 bytes. */
typedef struct KaloServoVoltage {
    uint32_t voltage; /* voltage symbol id */
    char voltage_str[KALO_TEXT_SIZE];
} KaloServoVoltage;

/* What an encoder can do, 68 bytes. */
typedef struct KaloEncodor {
    uint32_t encodor_ability;          /* 0 when unknown */
    char encodor_type[KALO_TEXT_SIZE]; /* "*" when unknown */
} KaloEncodor;

#pragma pack(pop)

KALO_BEGIN_DECLARATIONS

/* --- Amplifier models and option units
 * --------------------------------------------------------------------------- */

/*
 * The name under which a model stands in the off-line lists. `selector`: 1 the amplifier's, 2 the option
 * unit's (KALO_NO_OPTION as `option_id` for the amplifier alone). `name` has KALO_NAME_SIZE bytes. A
 * combination that is not known off-line is named "UNKNOWN(xxxxH)" and is no failure. 0x2A00001A not open;
 * 0x2A00001B another selector: all bytes of the name are cleared; 0x2B530000 + DAO.
 */
KALO_API KaloStatus KALO_CALL KaloGetModelOffName(uint16_t selector, uint32_t model_id, uint32_t option_id,
                                                  char* name);

/* The same for the name by which a connected drive is shown, of every model. Codes as KaloGetModelOffName. */
KALO_API KaloStatus KALO_CALL KaloGetModelOnName(uint16_t selector, uint32_t model_id, uint32_t option_id,
                                                 char* name);

/*
 * How many models of a kind there are. `kind`, `sub_kind`: 1, 0 amplifier types known off-line; 1, 1 models
 * known off-line that have no type; 2, 0 types of rotary amplifiers; 2, 1 of linear ones; 3, 0 option units
 * known off-line; 3, 1 all option units. 0x2A00001E not open; 0x2A00001F no such kind; 0x2B560000 + DAO.
 */
KALO_API KaloStatus KALO_CALL KaloGetModelNumber(uint16_t kind, uint16_t sub_kind, uint16_t* count);

/*
 * The model and option unit at an index of a list, in the order of display. `kind`, `sub_kind`: 0, 0
 * everything; 1, 0 amplifiers known off-line; 2, 0 rotary amplifiers; 2, 1 linear ones; 3, 0 combinations
 * with an option unit known off-line; 3, 1 all of those. 0x2A000057 not open; 0x2A000058 no such kind;
 * 0x2A000059 the list is empty; 0x2A00005A an id is missing; 0x2B760000 + DAO.
 */
KALO_API KaloStatus KALO_CALL KaloGetAmpUnitId(uint16_t kind, uint16_t sub_kind, uint16_t index,
                                               uint32_t* model_id, uint32_t* option_id);

/* How many option units a model can have. 0x2BFF06C0 not open, or the engine failed. */
KALO_API KaloStatus KALO_CALL KaloGetOptionUnitNum(uint32_t model_id, uint16_t* count);

/* The option unit at an index. 0x2BFF06C0 not open; 0x2BFF06C1 the model has none; 0x2BFF06C2 the engine
 * failed. */
KALO_API KaloStatus KALO_CALL KaloGetOptionUnitId(uint32_t model_id, uint16_t index, uint32_t* option_id);

/* How many models the selection wizard offers. 0x2BFF0599 not open; 0x2BFF059A the engine failed. */
KALO_API KaloStatus KALO_CALL KaloGetWizardServoNum(uint16_t* count);

/*
 * The models that the wizard offers, by model and option unit. `model_ids` has as many elements as
 * KaloGetWizardServoNum counts.
 * 0x2BFF059C not open; 0x2BFF059D the engine failed; 0x2BFF06DA the wizard offers none.
 */
KALO_API KaloStatus KALO_CALL KaloGetWizardServoId(uint32_t* model_ids);

/*
 * The help reference of a page of the wizard. `value` is not looked at. `help` has KALO_HELP_SIZE bytes.
 * 0x2BFF0320 not open; 0x2BFF0322 no such help; 0x2BFF0323 the engine failed.
 */
KALO_API KaloStatus KALO_CALL KaloGetWizHelp(uint32_t value, uint32_t help_id, char* help);

/* --- Motors
 * ------------------------------------------------------------------------------------------------------ */

/*
 * How many motors are shown. `control_type`: only those of one control type; 65535: all.
 * 0x2A000030 not open; 0x2B5E0000 + DAO.
 */
KALO_API KaloStatus KALO_CALL KaloGetMotorNumber(uint16_t control_type, uint16_t* count);

/*
 * The motor at an index of that list, by ascending id.
 * 0x2A000031 not open; 0x2A000032 the list is empty; 0x2A000073 the id is missing; 0x2B5F0000 + DAO.
 */
KALO_API KaloStatus KALO_CALL KaloGetMotorId(uint16_t control_type, uint16_t index, uint32_t* motor_id);

/*
 * A motor's name (KALO_NAME_SIZE bytes) and its create type.
 * 0x2A00003F not open; 0x2B670000 + DAO, + 3021.
 */
KALO_API KaloStatus KALO_CALL KaloGetMotorName(uint32_t motor_id, char* name, uint16_t* create_type);

/*
 * The motor of an axis, as the axis is registered.
 * 0x2A00003E not open; 0x2B650000 + DAO, + 3021: the axis; 0x2B660000 + DAO, + 3021: its motor.
 */
KALO_API KaloStatus KALO_CALL KaloGetMotorInfo(int16_t axis_num, KaloMotorInfo* info);

/*
 * The sign of a motor voltage (KALO_NAME_SIZE bytes).
 * 0x2A00003B not open; 0x2A00003D no such voltage; 0x2B640000 + DAO.
 */
KALO_API KaloStatus KALO_CALL KaloGetMotorVoltage(uint32_t voltage_symbol_id, char* symbol);

/*
 * The name of one of a motor's powers (KALO_NAME_SIZE bytes).
 * 0x2A000040 not open; 0x2B680000 + DAO; 0x2B690000 + 3021 the motor has no such power.
 */
KALO_API KaloStatus KALO_CALL KaloGetMotorPower(uint32_t motor_id, uint32_t power_id, char* power);

/*
 * How many powers a motor has. 0x2BFF0227 not open; 0x2BFF0232 the engine failed. (0x2BFF0231 is reserved for
 * it and not returned.)
 */
KALO_API KaloStatus KALO_CALL KaloGetMotorCapacityNum(uint32_t motor_id, uint16_t* count);

/*
 * A motor's powers, by ascending id.
 * 0x2BFF0239 not open; 0x2BFF0240 it has none; 0x2BFF0241 an id is missing; 0x2BFF0242 the engine failed.
 */
KALO_API KaloStatus KALO_CALL KaloGetMotorCapacityInfo(uint32_t motor_id, uint16_t count,
                                                       KaloMotorCapacity* capacities);

/*
 * How many voltages a motor has. `kind`: 1 at a power, 2 with a magnet; the id is that power's or magnet's.
 * At a power the rows of the motor's table are counted, which may be more than the list has. 0x2BFF0211 not
 * open; 0x2BFF0215 another kind; 0x2BFF0216 the engine failed.
 */
KALO_API KaloStatus KALO_CALL KaloGetMotorPowerVoltageNum(uint32_t motor_id, uint16_t kind,
                                                          uint32_t power_or_magnet_id, uint16_t* count);

/*
 * A motor's voltages, by ascending id.
 * 0x2BFF0223 not open; 0x2BFF0224 another kind; 0x2BFF0225 it has none; 0x2BFF0226 the engine failed.
 */
KALO_API KaloStatus KALO_CALL KaloGetMotorPowerVoltageInfo(uint32_t motor_id, uint16_t kind,
                                                           uint32_t power_or_magnet_id, uint16_t count,
                                                           KaloMotorVoltage* voltages);

/*
 * How many magnets (`kind` 1) or coils of a magnet (2) a linear motor has. The magnet id matters for kind 2
 * only. 0x2BFF1C6B not open; 0x2BFF1C6C the engine failed; 0x2BFF1C6D another kind.
 */
KALO_API KaloStatus KALO_CALL KaloGetMotorLinearInfoNum(uint32_t motor_id, uint16_t kind, uint32_t magnet_id,
                                                        uint16_t* count);

/*
 * These magnets or coils, by ascending id.
 * 0x2BFF1C7B not open; 0x2BFF1C7C the engine failed; 0x2BFF1C7D another kind; 0x2BFF1C7E an id is missing;
 * 0x2BFF1C7F there are none.
 */
KALO_API KaloStatus KALO_CALL KaloGetMotorLinearInfo(uint32_t motor_id, uint16_t kind, uint32_t magnet_id,
                                                     uint16_t count, KaloMotorPart* parts);

/*
 * How many torques (`kind` 1) or outer sizes at a torque (2) a direct-drive motor has. The torque id matters
 * for kind 2 only. 0x2BFF1CDB not open; 0x2BFF1CDC the engine failed; 0x2BFF1CDD another kind.
 */
KALO_API KaloStatus KALO_CALL KaloGetMotorDDInfoNum(uint32_t motor_id, uint16_t kind, uint32_t torque_id,
                                                    uint16_t* count);

/*
 * These torques or outer sizes, by ascending id.
 * 0x2BFF1CEB not open; 0x2BFF1CEC the engine failed; 0x2BFF1CED another kind; 0x2BFF1CEE an id is missing;
 * 0x2BFF1CEF there are none.
 */
KALO_API KaloStatus KALO_CALL KaloGetMotorDDInfo(uint32_t motor_id, uint16_t kind, uint32_t torque_id,
                                                 uint16_t count, KaloMotorPart* parts);

/* How many options a motor has. 0x2BFF0269 not open; 0x2BFF0270 the engine failed. */
KALO_API KaloStatus KALO_CALL KaloGetOptionInfoNum(uint32_t motor_id, uint16_t* count);

/*
 * A motor's options, by ascending id; those without a text are left out.
 * 0x2BFF0275 not open; 0x2BFF0276 it has none; 0x2BFF0277 an id is missing; 0x2BFF0278 the engine failed.
 */
KALO_API KaloStatus KALO_CALL KaloGetOptionInfo(uint32_t motor_id, uint16_t count, KaloOptionInfo* options);

/* How many encoders a motor can have. 0x2BFF0256 not open; 0x2BFF0257 the engine failed. */
KALO_API KaloStatus KALO_CALL KaloGetPGInfoNum(uint32_t motor_id, uint16_t* count);

/*
 * These encoders, by ascending id; those without a text are left out.
 * 0x2BFF0262 not open; 0x2BFF0263 there are none; 0x2BFF0264 an id is missing; 0x2BFF0265 the engine failed.
 */
KALO_API KaloStatus KALO_CALL KaloGetPGInfo(uint32_t motor_id, uint16_t count, KaloPGInfo* encoders);

/*
 * Fills the names and units of `motor_specstring`; of several units with one id, in whatever languages, the
 * last row's. The axis is not looked at. 0x2BFF0243 not open; 0x2BFF0244 the names could not be filled;
 * 0x2BFF0245 the units could not (the names are).
 */
KALO_API KaloStatus KALO_CALL KaloMotorSpecStringCreate(int16_t axis_num);

/*
 * Where a motor scale keeps what in its memory. There is one description, whatever the id.
 * 0x2BFF170E not open; 0x2BFF170F the engine failed, or the description is missing.
 */
KALO_API KaloStatus KALO_CALL KaloGetMotorScaleInfo(uint32_t id, KaloMotorScaleInfo* info);

/* --- Ratings of amplifiers
 * --------------------------------------------------------------------------------------- */

/* How many powers a model with an option unit has. 0x2A00004D not open; 0x2B720000 + DAO. */
KALO_API KaloStatus KALO_CALL KaloGetServoPowerNum(uint32_t model_id, uint32_t option_id, uint16_t* count);

/*
 * The power at an index, by ascending id.
 * 0x2A00004F not open; 0x2A000051 there are none; 0x2A000052 the id is missing; 0x2B730000 + DAO.
 */
KALO_API KaloStatus KALO_CALL KaloGetServoPowerId(uint32_t model_id, uint32_t option_id, uint16_t index,
                                                  uint32_t* power_id);

/*
 * The sign of an amplifier power (KALO_NAME_SIZE bytes).
 * 0x2A00005B not open; 0x2A00005C no such power; 0x2B770000 + DAO.
 */
KALO_API KaloStatus KALO_CALL KaloGetServoPower(uint32_t power_symbol_id, char* symbol);

/* How many voltages a model has at a power. 0x2BFF0197 not open; 0x2BFF0198 the engine failed. */
KALO_API KaloStatus KALO_CALL KaloGetServovoltageNum(uint32_t model_id, uint32_t option_id, uint32_t power_id,
                                                     uint16_t* count);

/*
 * These voltages, by ascending id.
 * 0x2BFF0203 not open; 0x2BFF0204 there are none; 0x2BFF0205 an id is missing; 0x2BFF0206 the engine failed.
 */
KALO_API KaloStatus KALO_CALL KaloGetServovoltageInfo(uint32_t model_id, uint32_t option_id,
                                                      uint32_t power_id, uint16_t count,
                                                      KaloServoVoltage* voltages);

/*
 * The sign of an amplifier voltage (KALO_NAME_SIZE bytes).
 * 0x2A00005D not open; 0x2A00005E no such voltage; 0x2B780000 + DAO.
 */
KALO_API KaloStatus KALO_CALL KaloGetServoVoltage(uint32_t voltage_symbol_id, char* symbol);

/*
 * The rated and the greatest current of a model at a power and a voltage, as the database has them.
 * 0x2BFF1CFB not open; 0x2BFF1CFC the engine failed; 0x2BFF1CFD, 0x2BFF1CFE the first, the second is missing;
 * 0x2BFF1CFF no such rating.
 */
KALO_API KaloStatus KALO_CALL KaloGetServoCurrentInfo(uint32_t model_id, uint32_t option_id,
                                                      uint32_t power_id, uint32_t voltage, uint32_t* current,
                                                      uint32_t* max_current);

/* --- Encoders and sizes
 * ------------------------------------------------------------------------------------------ */

/* How many names of encoder types there are, in all languages. 0x2BFF0279 not open; 0x2BFF0280 the engine
 * failed. */
KALO_API KaloStatus KALO_CALL KaloGetEncoderNum(uint16_t* count);

/*
 * The encoder type at an index of one language's types, by ascending code.
 * 0x2BFF0281 not open; 0x2BFF0282 the language has none; 0x2BFF0283 the code is missing; 0x2BFF0284 the
 * engine failed.
 */
KALO_API KaloStatus KALO_CALL KaloGetEncoderId(uint16_t country_id, uint16_t index, uint32_t* typecode);

/*
 * The name of an encoder type (KALO_NAME_SIZE bytes).
 * 0x2BFF0128 not open; 0x2BFF0129 no such type; 0x2BFF012A it has no name; 0x2BFF012B the engine failed.
 */
KALO_API KaloStatus KALO_CALL KaloGetEncoderString(uint16_t country_id, uint32_t typecode, char* name);

/*
 * What a size id of a type means: `win_id` and `win_subid`.
 * 0x2BFF1C8B not open; 0x2BFF1C8C the engine failed; 0x2BFF1C8D, 0x2BFF1C8E the first, the second is missing;
 * 0x2BFF1C8F no such size.
 */
KALO_API KaloStatus KALO_CALL KaloGetConvertID(uint16_t type, uint32_t size_id, uint32_t* win_id,
                                               uint32_t* win_subid);

/*
 * What an encoder of a motor can do with a firmware version (KALO_NONE: without firmware of its own). An
 * unknown encoder has ability 0 and type "*". 0x2A000074 not open; 0x2B900000 to 0x2B950000 + DAO: copying
 * the encoders, changing, adding and removing those of the firmware, reading, dropping the copy; 0x2B960000 +
 * DAO: reading without firmware.
 */
KALO_API KaloStatus KALO_CALL KaloGetEncodor(uint32_t motor_id, uint32_t encoder_id,
                                             uint32_t encoder_firmware, KaloEncodor* encodor);

KALO_END_DECLARATIONS

#endif
