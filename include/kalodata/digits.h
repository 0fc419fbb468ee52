#ifndef KALODATA_DIGITS_H
#define KALODATA_DIGITS_H

#include <kalodata/types.h>

/*
 * What the hexadecimal digits of user parameters mean, which digit switches a drive function on, and how
 * parameters are grouped for display. The getters with an axis need the table that KaloUparaCreate builds.
 */

#pragma pack(push, 1)

/* One digit of a user parameter (278 bytes). */
typedef struct KaloDigit {
    int32_t nibble_data_id; /* ties the digit to the parameters with this id */
    uint16_t pos;           /* position, 0 = lowest */
    uint16_t size;          /* width in digits */
    uint16_t access_level;
    uint16_t initial_value;
    char name[256];       /* in the caller's language; empty where there is none */
    uint16_t value_count; /* number of values that the digit may take */
    int32_t content_id;   /* ties the digit to its values */
    uint8_t reserved[4];  /* never written */
} KaloDigit;

/* One value that a digit may take (270 bytes). */
typedef struct KaloDigitValue {
    uint16_t access_level;
    uint16_t content_value; /* the value */
    uint16_t message_type;
    int32_t content_name_id;
    char name[256]; /* in the caller's language; where it has none, as the database's own query gives it */
    int32_t message_id;
} KaloDigitValue;

/* The digit that switches a drive function on (12 bytes). */
typedef struct KaloDigitSwitch {
    uint32_t fixed_id;    /* of the user parameter */
    uint16_t digit;       /* position, 0 = lowest */
    uint16_t value;       /* of the digit when the function is on */
    int32_t parameter_id; /* of the axis's user parameter with that fixed id */
} KaloDigitSwitch;

/* A group of user parameters (132 bytes). */
typedef struct KaloGroup {
    int32_t category_id; /* above 40000: an additional group */
    char category_name[128];
} KaloGroup;

#pragma pack(pop)

KALO_BEGIN_DECLARATIONS

/*
 * Counts the digits of one parameter; 0 when it has none.
 *
 * Status: 0; 0x2BFF119B database not open; 0x2BFF1198 unknown axis; 0x2BFF119A no digit table; 0x2BFF1199
 * looking up the axis, 0x2BFF119C reading failed. `count` is written on success only.
 */
KALO_API KaloStatus KALO_CALL KaloGetNibbleInfoNum(int16_t axis_num, int32_t nibble_data_id, uint16_t* count);

/*
 * Counts all digits of the axis.
 *
 * Status: 0; 0x2BFF11AB database not open; 0x2BFF11A8 unknown axis; 0x2BFF11AA no digit table; 0x2BFF11A9
 * looking up the axis, 0x2BFF11AC reading failed. `count` is written on success only.
 */
KALO_API KaloStatus KALO_CALL KaloGetAllNibbleInfoNum(int32_t axis_num, uint16_t* count);

/*
 * Describes the digits of one parameter, by position. At most `count` records are written.
 *
 * Status: 0; 0x2BFF11BB database not open; 0x2BFF11B8 unknown axis; 0x2BFF11BA no digit table; 0x2BFF11BF no
 * digit; 0x2BFF11B9 looking up the axis, 0x2BFF11BC reading the digits, 0x2BFF11BD their names, 0x2BFF11BE
 * the number of their values failed.
 */
KALO_API KaloStatus KALO_CALL KaloGetNibbleInfoBase(int16_t axis_num, int32_t nibble_data_id, uint16_t count,
                                                    uint16_t country_id, KaloDigit* records);

/*
 * Describes all digits of the axis, by nibble_data_id and position. At most `count` records are written.
 *
 * Status: 0; 0x2BFF11CB database not open; 0x2BFF11C8 unknown axis; 0x2BFF11CA no digit table; 0x2BFF11CF no
 * digit; 0x2BFF11C9 looking up the axis, 0x2BFF11CC reading the digits, 0x2BFF11CD their names, 0x2BFF11CE
 * the number of their values failed.
 */
KALO_API KaloStatus KALO_CALL KaloGetAllNibbleInfoBase(uint32_t axis_num, uint16_t count, uint16_t country_id,
                                                       KaloDigit* records);

/*
 * Lists the values of all digits of one parameter: digit after digit by position, each digit's values
 * ascending, as many per digit as KaloDigit::value_count says where every value has a name. At most `count`
 * records are written.
 *
 * Status: 0; 0x2BFF11DB database not open; 0x2BFF11D8 unknown axis; 0x2BFF11DA no digit table; 0x2BFF11DF no
 * digit; 0x2BFF11D9 looking up the axis, 0x2BFF11DC reading the digits, 0x2BFF11DD their values, 0x2BFF11DE
 * the names failed.
 */
KALO_API KaloStatus KALO_CALL KaloGetNibbleInfo(int16_t axis_num, int32_t nibble_data_id, uint16_t count,
                                                uint16_t country_id, KaloDigitValue* values);

/*
 * Lists the values of one content id, ascending. The axis is not looked up. At most `count` records are
 * written.
 *
 * Status: 0; 0x2BFF11EB database not open; 0x2BFF11EF no value; 0x2BFF11ED reading the values, 0x2BFF11EE the
 * names failed.
 */
KALO_API KaloStatus KALO_CALL KaloGetNibbleInfoElem(uint32_t axis_num, int32_t content_id, uint16_t count,
                                                    uint16_t country_id, KaloDigitValue* values);

/*
 * Name of the parameter with a fixed id, in a language.
 *
 *   name   256 bytes, all of them written: cut and terminated, zeros behind the text; left as it was where
 * the name is NULL
 *
 * Status: 0; 0x2BFF11F0 database not open; 0x2BFF1200 no such name; 0x2BFF11F1 reading failed.
 */
KALO_API KaloStatus KALO_CALL KaloGetNibbleParamName(uint16_t fixed_id, uint16_t country_id, uint8_t* name);

/*
 * Which parameter digit switches a drive function on, for the drive of the axis. The record is written on
 * success only.
 *
 * Status: 0; 0x2BFF145B database not open; 0x2BFF1458 unknown axis, 0x2BFF1459 reading it failed; 0x2BFF1450
 * base rows, 0x2BFF1451 to 0x2BFF1456 a delta step failed; 0x2BFF148F no such function; 0x2BFF148A no user
 * parameter table; 0x2BFF148E the axis has no such parameter; 0x2BFF148C reading the function, 0x2BFF1489
 * looking up the user parameter table, 0x2BFF148D reading the parameter failed; 0x2BFF1487 dropping the
 * temporary table failed; 0x2BFF1488 the axis vanished between.
 */
KALO_API KaloStatus KALO_CALL KaloGetNibbleSwitchInfo(int32_t axis_num, int32_t func_id,
                                                      KaloDigitSwitch* record);

/*
 * Counts the groups of the axis: the categories of its user parameters and the additional groups of all
 * drives.
 *
 * Status: 0; 0x2BFF162B database not open; 0x2BFF1628 unknown axis; 0x2BFF162A no user parameter table;
 * 0x2BFF1629 looking up the axis, 0x2BFF162C counting the categories, 0x2BFF162D counting the additional
 * groups failed. `count` is written on success only.
 */
KALO_API KaloStatus KALO_CALL KaloGetAllGroupNum(int32_t axis_num, uint16_t* count);

/*
 * Lists the groups of the axis: its categories by id, then the additional groups by id. At most `count`
 * entries are written, and no more than KaloGetAllGroupNum counts.
 *
 * Status: 0; 0x2BFF163B database not open; 0x2BFF1638 unknown axis; 0x2BFF163A no user parameter table;
 * 0x2BFF1639 looking up the axis, 0x2BFF163C reading the categories, 0x2BFF163D reading the additional
 * groups, 0x2BFF163E counting the groups failed.
 */
KALO_API KaloStatus KALO_CALL KaloGetAllGroupInfo(int32_t axis_num, uint16_t count, KaloGroup* groups);

/*
 * Counts the parameters of an additional group, for the drive of the axis.
 *
 * Status: 0; 0x2BFF164A database not open; 0x2BFF164B unknown axis, 0x2BFF1649 reading it failed; 0x2BFF1640
 * base rows, 0x2BFF1641 to 0x2BFF1646 a delta step failed; 0x2BFF164C counting failed; 0x2BFF1647 dropping
 * the temporary table failed (`count` is written). Otherwise `count` is written on success only.
 */
KALO_API KaloStatus KALO_CALL KaloGetAddGroupPrmNum(int32_t axis_num, int32_t category_id, uint16_t* count);

/*
 * Lists the parameter ids of an additional group, in its order: as many as KaloGetAddGroupPrmNum counts. A
 * member that the axis has no parameter for is -1.
 *
 * Status: 0; 0x2BFF165B database not open; 0x2BFF1658 unknown axis, 0x2BFF1659 reading it failed; 0x2BFF1650
 * base rows, 0x2BFF1651 to 0x2BFF1656 a delta step failed; 0x2BFF165F no member; 0x2BFF165A no user parameter
 * table; 0x2BFF165C reading the members, 0x2BFF165D looking up the user parameter table, 0x2BFF165E reading a
 * parameter failed; 0x2BFF1657 dropping the temporary table failed.
 */
KALO_API KaloStatus KALO_CALL KaloGetAddGroupPrmList(int32_t axis_num, int32_t category_id,
                                                     int32_t* parameter_ids);

KALO_END_DECLARATIONS

#endif
