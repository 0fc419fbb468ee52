#ifndef KALODATA_PARAMETERS_H
#define KALODATA_PARAMETERS_H

#include <kalodata/types.h>

/*
 * User parameters: every setting of an axis's drive that a user can read or write, as it stands for the
 * axis's amplifier, option unit, firmware versions and custom specifications.
 *
 * KaloUparaCreate builds the axis's table, the getters read it. Axes with the same combination share one
 * table.
 */

#pragma pack(push, 1)

/* One user parameter, 504 bytes. A field is zero where the database knows nothing. */
typedef struct KaloUserParameter {
    int32_t parameter_id;
    char user_constant[20]; /* the number on the drive's panel, as "P2.00" */
    int32_t category_id;
    char category_name[128];
    char parameter_name[60];
    int32_t nibble_data_id; /* ties the parameter to its digits */
    int32_t dec_data_id;    /* ties the parameter to its list of values */
    int32_t decdata_num;    /* number of values in the list */
    uint32_t volatile_address;
    uint32_t nonvolatile_address;
    uint16_t size; /* in bytes */
    char unit[50];
    float unit_multiplier; /* value of one step in the unit */
    char unit_name[50];
    int32_t max; /* limits and initial value, in steps */
    int32_t min;
    uint16_t max_check; /* whether the limit is to be checked */
    uint16_t min_check;
    int32_t initial_value;
    uint16_t edit_type; /* how the value is edited */
    uint16_t disp_type; /* how the value is shown */
    uint16_t user_level;
    uint16_t access_level;
    uint16_t sv_control_type; /* mask of the control modes in which the parameter exists */
    uint16_t control_mode;
    uint16_t effective_timing; /* when a change takes effect */
    uint32_t fixed_id;         /* what the parameter means, the same for every model */
    char parameter_help[128];  /* help reference */
} KaloUserParameter;

/* The custom specifications of an amplifier model, 4 bytes. */
typedef struct KaloCustomSpecSummary {
    uint16_t count; /* how many there are */
    uint16_t kinds; /* 1 when there are any, else 0 */
} KaloCustomSpecSummary;

#pragma pack(pop)

KALO_BEGIN_DECLARATIONS

/*
 * Builds the user parameters of a combination, with their digits and value lists, or shares those of an axis
 * with the same combination, and names them in the axis's row. The names of the tables carry no language: the
 * first build decides. Tables that the axis had before are dropped unless another axis uses them. A
 * combination whose language has no names leaves no table behind; after another failure the next call begins
 * anew.
 *
 * country_id: language of the names.
 * servo_id: the amplifier model; replaced by its variant where the database says so.
 * servo_firmware, servo_custom_spec: its versions; custom specification 0 or KALO_NONE = standard product.
 * power_rating: the amplifier's power rating; 0 = keep the limits that do not depend on it.
 * option_id, option_firmware, option_custom_spec: the option unit; KALO_NO_OPTION = none.
 *
 * 0x2A000004        no open database
 * 0x2A000005        no category names in the language
 * 0x2A000006        no parameter names in the language
 * 0x2BFF0750        the model, or its combination with the option unit, is unknown
 * 0x2BFF0751        counting the axes with the same combination gave nothing
 * 0x2BFF0752        counting the changes by the amplifier's firmware gave nothing
 * 0x2BFF0753        the newest of these changes is gone
 * 0x2BFF0754        counting the changes by the option unit's firmware gave nothing
 * 0x2BFF0755        the newest of these changes is gone
 * 0x2BFF0757        the axis that has the combination is gone
 * 0x2BFF0758        counting the axis's rows gave nothing
 * 0x2BFF0759        the axis's row is gone
 * 0x2BFF075A        counting the users of the axis's previous table gave nothing
 * 0x2B030000 + DAO  identifying the model's variant failed
 * 0x2B040000 + DAO  reading the model's name failed
 * 0x2B050000 + DAO  counting the axes with the same combination failed
 * 0x2B060000 + DAO  reading the tables of such an axis failed
 * 0x2B070000 + DAO  copying the base table failed
 * 0x2B080000 + DAO  finding the newest amplifier firmware failed
 * 0x2B090000 + DAO  applying the amplifier's firmware failed
 * 0x2B0A0000 + DAO  applying the amplifier's custom specification failed
 * 0x2B0B0000 + DAO  applying the option unit's own changes failed
 * 0x2B0C0000 + DAO  finding the newest option firmware failed
 * 0x2B0D0000 + DAO  applying the option unit's firmware failed
 * 0x2B0E0000 + DAO  applying the option unit's custom specification failed
 * 0x2B0F0000 + DAO  making the digit table failed
 * 0x2B100000 + DAO  making the table of value lists failed
 * 0x2B110000 + DAO  naming the categories failed
 * 0x2B120000 + DAO  naming the parameters failed
 * 0x2B130000 + DAO  setting the units failed
 * 0x2B140000 + DAO  applying the power rating failed
 * 0x2B150000 + DAO  replacing the ids of names failed
 * 0x2B160000 + DAO  storing the finished table failed
 * 0x2B170000 + DAO  reading the registry of axes failed
 * 0x2B180000 + DAO  dropping a previous table failed
 * 0x2B190000 + DAO  writing the axis's row failed
 * 0x2B1A0000 + DAO  dropping the unfinished table failed
 */
KALO_API KaloStatus KALO_CALL KaloUparaCreate(int16_t country_id, int32_t servo_id, int32_t servo_firmware,
                                              int32_t servo_custom_spec, int32_t power_rating,
                                              int32_t option_id, int32_t option_firmware,
                                              int32_t option_custom_spec, int16_t axis_num);

/*
 * Removes the parameters that do not exist in the control modes in use, for all axes that share the table.
 *
 * control_type_mask: parameters whose sv_control_type shares no bit with it go; 0 removes all.
 *
 * Control types are collected as text, and one whose text is the beginning of another's that came before it
 * (1 after 12) may be passed over.
 *
 * 0x2BFF1570  no open database
 * 0x2BFF1571  the axis has no row
 * 0x2BFF1572  the axis has no parameter table
 * 0x2BFF1573  the table is empty
 * 0x2BFF1574  finding the axis's table failed in the database
 * 0x2BFF1575  walking the table failed
 * 0x2BFF1576  deleting failed
 */
KALO_API KaloStatus KALO_CALL KaloUparaUpdate(int16_t axis_num, uint16_t control_type_mask);

/*
 * Number of user parameters of an axis, cut to 16 bits.
 *
 * 0x2A000067        no open database
 * 0x2A000068        the axis has no row
 * 0x2A000069        the axis has no parameter table
 * 0x2B7D0000 + DAO  finding the axis's table failed
 * 0x2B7E0000 + DAO  counting failed
 */
KALO_API KaloStatus KALO_CALL KaloGetUParaNum(int16_t axis_num, uint16_t* count);

/*
 * The id of the user parameter at a 0-based position, in the order of ids. Nothing is written on failure.
 *
 * 0x2A00005F        no open database
 * 0x2A000060        the axis has no row
 * 0x2A000061        the axis has no parameter table
 * 0x2A000062        the table is empty
 * 0x2A000063        the id is NULL
 * 0x2B740000 + DAO  finding the axis's table failed
 * 0x2B750000 + DAO  reading failed; with 3021, index is past the last parameter
 */
KALO_API KaloStatus KALO_CALL KaloGetUParaId(int16_t axis_num, int16_t index, uint32_t* parameter_id);

/*
 * One user parameter by its id. The record is zeroed first, unless no database is open.
 *
 * 0x2A000064        no open database
 * 0x2A000065        the axis has no row
 * 0x2A000066        the axis has no parameter table
 * 0x2A000071        the axis has no such parameter
 * 0x2B790000 + DAO  finding the axis's table failed
 * 0x2B7A0000 + DAO  reading failed
 */
KALO_API KaloStatus KALO_CALL KaloGetUParaInfo(int16_t axis_num, int32_t parameter_id,
                                               KaloUserParameter* record);

/*
 * The user parameters in the order of their ids. All records are zeroed first, unless no database is open;
 * records beyond the last parameter stay zero.
 *
 * count: number of records that the caller's array holds.
 *
 * 0x2A000064        no open database
 * 0x2A000065        the axis has no row
 * 0x2A000066        the axis has no parameter table
 * 0x2A000071        the table is empty
 * 0x2B7B0000 + DAO  finding the axis's table failed
 * 0x2B7C0000 + DAO  reading failed
 */
KALO_API KaloStatus KALO_CALL KaloGetAllUParaInfo(int16_t axis_num, int16_t count,
                                                  KaloUserParameter* records);

/*
 * The numbers of the custom specifications that change user parameters, ascending.
 *
 * which: 1 = of the amplifier model, 2 = of the option unit. For 2 the database is asked for rows whose
 * option is both model_id and option_id: pass the option unit's id as both. count: number of ids that the
 * caller's array holds.
 *
 * 0x2A00006A        no open database
 * 0x2A00006B        there are none (nor for any other value of which)
 * 0x2A00006C        a number is NULL
 * 0x2B7F0000 + DAO  reading failed
 */
KALO_API KaloStatus KALO_CALL KaloGetUserCmodId(int32_t model_id, uint32_t option_id, uint16_t which,
                                                int16_t count, uint32_t* ids);

/*
 * How many custom specifications of an amplifier model change user parameters. Without any, the status is 0
 * and the record is zero. The record is zeroed before reading, and stays so or filled in part when that
 * fails.
 *
 * 0x2A00006D        no open database
 * 0x2A00006E        a number is NULL
 * 0x2B800000 + DAO  reading failed
 */
KALO_API KaloStatus KALO_CALL KaloGetUserCmodNum(uint32_t model_id, uint32_t option_id,
                                                 KaloCustomSpecSummary* summary);

/*
 * Whether the user parameters of an axis's amplifier differ between two firmware versions, or those of its
 * option unit between two of its own; in either order. The amplifier's and option unit's ids come from the
 * axis's row.
 *
 * changed: 1 when they differ, else 0.
 *
 * 0x2BFF011A  no open database
 * 0x2BFF011B  the axis has no row
 * 0x2BFF011C  the axis has no identity yet (KaloModelInfoCreate was not called)
 * 0x2BFF011D  the database failed
 *
 * Unless the database is closed, `changed` is written in each case: 0 where the failure came first.
 */
KALO_API KaloStatus KALO_CALL KaloGetUparaChangeInfo(int16_t axis_num, uint32_t version_a, uint32_t version_b,
                                                     uint32_t option_version_a, uint32_t option_version_b,
                                                     uint16_t* changed);

KALO_END_DECLARATIONS

#endif
