#ifndef KALODATA_MONITORS_H
#define KALODATA_MONITORS_H

#include <kalodata/types.h>

/*
 * Monitors of an axis: the displayable quantities of its drive, as they stand for exactly its amplifier,
 * option unit, firmware and custom specifications. KaloMonCreate builds the axis's monitor table and I/O
 * table; the getters read them. The monitor lists by category need no axis, only an open session.
 *
 * Unless a function says otherwise, nothing is written to the caller's memory when it fails.
 */

#pragma pack(push, 1)

/* One monitor, 766 bytes. Texts are cut to their array on a character boundary and terminated in its last
 * byte. */
typedef struct KaloMonitor {
    uint32_t monitor_id;
    uint16_t category_name_id; /* any that the database has; only 1 to 4 can be counted and listed by axis */
    char category_name[128];
    char monitor_name[128];
    uint16_t display_type; /* how to show the value: number, hexadecimal, bit, ... */
    char on_text[128];     /* of a bit; a text of 128 bytes or more fills the array without a terminator,
                              unless a character would be cut */
    char off_text[128];    /* as on_text */
    uint16_t size;         /* of the value, in bytes */
    char unit[50];
    float unit_multiplier; /* factor from the drive's value to the unit; the 4 bytes of the column as they are
                            */
    char unit_name[50];
    uint16_t bit_position; /* of a bit within its word, from 0 */
    int32_t address;       /* in the drive's memory; a 16-bit value with its sign extended */
    uint16_t access_level;
    uint16_t control_type_mask; /* control modes under which the monitor exists, a bit for each */
    uint16_t fixed_id;          /* role that is the same in every drive; 0 = none */
    char help_reference[128];
} KaloMonitor;

/* One entry of a monitor list, 144 bytes. */
typedef struct KaloMonitorListElement {
    uint32_t monitor_id;
    uint16_t monitor_name_id;
    char monitor_name[128]; /* in the session's language; cut and terminated */
    uint16_t display_type;  /* always below 100 */
    uint8_t reserved[8];    /* zero */
} KaloMonitorListElement;

/* The value of a monitor by which a drive function is recognised, 12 bytes. */
typedef struct KaloMeaningMonitor {
    uint32_t func_id;
    uint32_t monitor_id; /* KALO_NONE when the axis has no such monitor */
    int32_t value;
} KaloMeaningMonitor;

#pragma pack(pop)

KALO_BEGIN_DECLARATIONS

/*
 * Builds the monitor table and the I/O table of a combination, or reuses those that an axis with the same
 * combination has, and registers them for the axis. The texts are those of the language of the first build:
 * table names carry no language. Tables that the axis had before are dropped when no other axis uses them.
 *
 *   country_id     language of the texts
 *   servo_id       amplifier model; replaced by its variant where the model table of variants says so
 *   sFirm_version  amplifier firmware; 0 = no firmware changes
 *   sCmod_version  custom specification of the amplifier; 0 or 65535 = standard product
 *   prate          power rating
 *   option_id      option unit, or KALO_NO_OPTION
 *   oFirm_version, oCmod_version  of the option unit
 *   axis_num       the axis; it needs no row yet
 *
 * 0x2A000075 not open; 0x2BFF0806 no such model, or no such combination of model and option unit;
 * 0x2BFF0807, 0x2BFF0808 the check for a registered monitor or I/O table gave no row;
 * 0x2BFF0809, 0x2BFF080A the changes of the monitors gave no count or no newest version; 0x2BFF080B,
 * 0x2BFF080C the same of the I/O rows; 0x2BFF080D to 0x2BFF080F the axis's row, its tables or their users
 * gave no row. 0x2A000076 no category name, 0x2A000077 no monitor name, 0x2A000078 no on or off text,
 * 0x2A000079 no unit in this language: the monitor table is dropped again. 0x2BA00000 to 0x2BAF0000 + DAO: a
 * statement failed; what was built until then stays.
 */
KALO_API KaloStatus KALO_CALL KaloMonCreate(int32_t country_id, int32_t servo_id, int32_t sFirm_version,
                                            int32_t sCmod_version, int32_t prate, int32_t option_id,
                                            int32_t oFirm_version, int32_t oCmod_version, int16_t axis_num);

/*
 * Deletes the monitors that do not apply to the control modes in use: those whose control type mask shares no
 * bit with `control_mask` (of which the low 16 bits count). Axes that share the table see the same. A mask
 * value whose clause is contained in the text of a clause before it (1 after 12) is not deleted by this call;
 * calling again deletes it.
 *
 * 0x2BFF1570 not open; 0x2BFF1C00 unknown axis; 0x2BFF1C01 no monitor table; 0x2BFF1C03 the table is empty;
 * 0x2BFF1C02, 0x2BFF1C04, 0x2BFF1C05 the look-up, the walk, the deletion failed.
 */
KALO_API KaloStatus KALO_CALL KaloMonUpdate(int32_t axis_num, int32_t control_mask);

/*
 * Number of monitors in a category (1 to 4); 0 for none. Monitors of other categories, such as maintenance,
 * are reached by KaloGetMonitorInfo and KaloGetAllMonitorInfo alone.
 * 0x2A00002C not open; 0x2A00002D other category; 0x2A00002E unknown axis; 0x2A00002F no monitor table;
 * 0x2B5C0000, 0x2B5D0000 + DAO.
 */
KALO_API KaloStatus KALO_CALL KaloGetMonitorNumber(int16_t axis_num, uint16_t category_name_id,
                                                   uint16_t* count);

/*
 * Id of the monitor at a 0-based index in a category (1 to 4), by ascending id.
 * 0x2A000022 not open; 0x2A000023 other category; 0x2A000024 unknown axis; 0x2A000025 no monitor table;
 * 0x2A000026 no monitor in the category; 0x2A000027 the id is NULL; 0x2B580000 + DAO;
 * 0x2B590000 + DAO, among others for an index past the last monitor.
 */
KALO_API KaloStatus KALO_CALL KaloGetMonitorId(int16_t axis_num, uint16_t category_name_id, uint16_t index,
                                               uint32_t* monitor_id);

/*
 * One monitor. A missing value leaves its field zero.
 * 0x2A000028 not open; 0x2A000029 unknown axis; 0x2A00002A no monitor table; 0x2A00002B no such monitor;
 * 0x2B5A0000, 0x2B5B0000 + DAO (the record may be filled in part).
 */
KALO_API KaloStatus KALO_CALL KaloGetMonitorInfo(int16_t axis_num, int32_t monitor_id, KaloMonitor* monitor);

/*
 * All monitors by ascending id, at most `count` of them.
 * Codes as KaloGetMonitorInfo; 0x2A00002B when the table is empty. After a DAO error the records before it
 * are filled.
 */
KALO_API KaloStatus KALO_CALL KaloGetAllMonitorInfo(int16_t axis_num, uint16_t count, KaloMonitor* monitors);

/*
 * Number of monitors that the list of a category shows, without an axis; 0 for none. Any category has a list.
 * 0x2BFF1030 not open; 0x2C000000 + DAO. (0x2BFF1031 is reserved for it and not returned.)
 */
KALO_API KaloStatus KALO_CALL KaloGetMonitorListNumWithCategory(uint16_t category_name_id, uint32_t* count);

/*
 * The list of a category in display order; `elements` has room for as many as
 * KaloGetMonitorListNumWithCategory says. 0x2BFF1033 not open; 0x2BFF1034 no monitor; 0x2BFF1035 a monitor
 * without id; 0x2C010000 + DAO. In the last two cases the elements before it are filled.
 */
KALO_API KaloStatus KALO_CALL KaloGetMonitorListWithCategory(uint16_t category_name_id,
                                                             KaloMonitorListElement* elements);

/*
 * Meaning monitors tie the functions of a drive to values of its monitors. The tables behind them are made
 * for the axis's registered model, option unit, versions and custom specifications within each call and are
 * gone after it, so that calls must not overlap.
 *
 * Codes, counted from each function's base: + 0 the base rows could not be copied; + 1 to + 3 a firmware
 * change and
 * + 4 to + 6 a change of the custom specification failed (modify, insert, delete); + 7 the temporary table
 * could not be dropped (the answer is written); + 8 unknown axis; + 9 its identity could not be read; + 11
 * not open; + 12 the rows could not be read (the elements before the error are written).
 */

/* Number of functions in a group; 0 for none. Base 0x2BFF21A0. */
KALO_API KaloStatus KALO_CALL KaloGetMeaningMonGrpNum(int32_t axis_num, int32_t grp_id, uint16_t* count);

/*
 * Ids of the functions in a group, ascending; the array has room for as many as KaloGetMeaningMonGrpNum says.
 * Base 0x2BFF21B0; + 14 a function without id, + 15 no function in the group.
 */
KALO_API KaloStatus KALO_CALL KaloGetMeaningMonGrp(int32_t axis_num, int32_t grp_id, uint16_t* func_ids);

/* Number of functions that monitors tell about; 0 for none. Base 0x2BFF21C0. */
KALO_API KaloStatus KALO_CALL KaloGetAllMeaningMonInfoNum(int32_t axis_num, uint16_t* count);

/*
 * Those functions by ascending id, each with the axis's monitor and the value that tells; the array has room
 * for as many as KaloGetAllMeaningMonInfoNum says. A function whose monitor exists twice comes twice, within
 * that number. Base 0x2BFF21D0; + 10 no monitor table, + 13 its name could not be read, + 15 no functions.
 */
KALO_API KaloStatus KALO_CALL KaloGetAllMeaningMonInfo(int32_t axis_num, KaloMeaningMonitor* monitors);

KALO_END_DECLARATIONS

#endif
