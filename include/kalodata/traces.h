#ifndef KALODATA_TRACES_H
#define KALODATA_TRACES_H

#include <kalodata/types.h>

/*
 * What a drive can record in its data trace: analog targets (speeds, torques, positions) and digital signals.
 *
 * A trace kind k (1 to 32) offers the rows whose `target` mask has bit k - 1; any other kind offers none. A
 * drive tells which rows it supports by a bitmap of 16-bit words: a row is supported when bit `bitindex` (0
 * to 15) of word `index` is set. A row whose index is not below the word count, or whose bitindex is 16 or
 * more, is never offered.
 *
 * Table names carry no spec version, control type or language: axes with the same model, firmware and custom
 * specification share the first build until the last of them is deleted.
 */

#pragma pack(push, 1)

/* An analog trace target (130 bytes). Texts are copied whole: a database that holds longer ones than the
 * array lets them run on into the following fields, never past the record. */
typedef struct KaloAnalogTrace {
    uint32_t analog_id;      /* offline: 0 */
    uint32_t target_name_id; /* the requested id */
    char target_name[50];
    uint16_t display_flag; /* 1: shown in the list, 0: exists but is not listed; offline: 0 */
    char unit[30];
    uint32_t unit_multiplier; /* the four bytes of the column's value */
    char unit_name[20];
    uint16_t conversion_type; /* offline: 0 */
    uint32_t limit;
    uint32_t max_level;
    uint32_t min_level;
    uint16_t default_flag; /* offline: 0 */
} KaloAnalogTrace;

/* A digital trace signal (32 bytes). The name is copied whole, as above. */
typedef struct KaloIoTrace {
    uint32_t io_id; /* the requested id */
    char io_name[20];
    uint32_t value;        /* the bit that the signal stands for */
    uint16_t reverse;      /* 1: shown inverted */
    uint16_t default_flag; /* offline: 0 */
} KaloIoTrace;

/* Where the support bit of a target stands (12 bytes). */
typedef struct KaloTraceMap {
    uint32_t id;       /* target_name_id or io_id */
    uint32_t index;    /* word of the bitmap */
    uint16_t bitindex; /* bit of the word; analog: the low 8 bits of the column */
    uint16_t support;
} KaloTraceMap;

/* The entry that stands for "no target" in a trace setting (6 bytes each). */
typedef struct KaloNoAnalogTrace {
    uint32_t analog_id; /* offline: 0 */
    uint16_t target_name_id;
} KaloNoAnalogTrace;

typedef struct KaloNoIoTrace {
    uint32_t value;
    uint16_t io_id;
} KaloNoIoTrace;

#pragma pack(pop)

KALO_BEGIN_DECLARATIONS

/*
 * Builds the analog trace table of a combination, or finds it built, and registers it for the axis.
 *
 *   country_id        language of the names: 0 English, 1 Japanese, 2 German
 *   servo_id          amplifier model; a model variant is replaced as model_subspecies says
 *   sFirm_version     amplifier firmware; 0: base rows without firmware changes
 *   sCmod_version     amplifier custom specification; 0 or 65535: standard product
 *   option_id         option unit; 65533: none
 *   oFirm_version, oCmod_version   the same of the option unit
 *   axis_num          axis to register the table for
 *   spec_version      newest spec version wanted; the newest one not above it is taken
 *   reserved          not used
 *
 * Status: 0; 0x2A000009 database not open; 0x2BFF000A variant identification, 0x2BFF000B model name failed;
 * 0x2BFF06EA no such model or combination; 0x2BFF06EB reuse count without a row, 0x2BFF06EC failed;
 * 0x2BFF1261 no such spec version, 0x2BFF1262 its query failed; 0x2BFF1510 base rows could not be copied,
 * 0x2BFF1511 to 0x2BFF1516 a delta step failed (firmware modify, insert, delete; custom specification the
 * same); 0x2BFF000D no name in this language, 0x2BFF000C naming failed, 0x2BFF000E dropping the build table
 * failed; 0x2BFF0010 no unit in this language, 0x2BFF000F units failed, 0x2BFF0011 dropping failed;
 * 0x2BFF0012 final copy, 0x2BFF0013 dropping the build table failed; registration: 0x2BFF06EE count without a
 * row, 0x2BFF06EF the axis's row is gone, 0x2BFF06F1 user count of the previous table without a row,
 * 0x2BFF06ED one of these three failed, 0x2BFF06F3 dropping the previous table, 0x2BFF06F4 writing the row
 * failed.
 */
KALO_API KaloStatus KALO_CALL KaloAnalogtraceCreate(int32_t country_id, int32_t servo_id,
                                                    int32_t sFirm_version, int32_t sCmod_version,
                                                    int32_t option_id, int32_t oFirm_version,
                                                    int32_t oCmod_version, int16_t axis_num,
                                                    int16_t spec_version, int32_t reserved);

/*
 * Builds the I/O trace table of a combination, or finds it built, and registers it for the axis. Arguments as
 * above; rows for every control type (0) and for `control_type` are taken. There is no language: names are
 * not localised.
 *
 * Status: 0; 0x2A000009 database not open; 0x2BFF0768 variant identification, 0x2BFF0769 model name failed;
 * 0x2BFF076A no such model or combination; 0x2BFF076B reuse count without a row, 0x2BFF076C failed;
 * 0x2BFF1261 no such spec version, 0x2BFF1262 its query failed; 0x2BFF1520 base rows, 0x2BFF1521 to
 * 0x2BFF1526 delta steps; 0x2BFF0774 final copy, 0x2BFF0775 dropping the build table failed; registration:
 * 0x2BFF076E count without a row, 0x2BFF076F the axis's row is gone, 0x2BFF0771 user count of the previous
 * table without a row, 0x2BFF076D one of these three failed, 0x2BFF0772 dropping the previous table,
 * 0x2BFF0773 writing the row failed.
 */
KALO_API KaloStatus KALO_CALL KaloIotraceCreate(int32_t servo_id, int32_t sFirm_version,
                                                int32_t sCmod_version, int32_t option_id,
                                                int32_t oFirm_version, int32_t oCmod_version,
                                                int16_t axis_num, int16_t spec_version, int16_t control_type);

/*
 * Counts the supported rows of a trace kind: counts[0] those that are shown in the list (display flag 1),
 * counts[1] those that are not (0). An empty table gives 0, 0.
 *
 *   support      the drive's bitmap, `word_count` words
 *
 * Status: 0; 0x2BFF0018 database not open; 0x2BFF0019 unknown axis; 0x2BFF001A no table built; 0x2BFF001B
 * looking up the axis, 0x2BFF001C reading the table failed. `counts` is written on success only.
 */
KALO_API KaloStatus KALO_CALL KaloGetAnalogtraceNum(int16_t axis_num, uint32_t kind, uint16_t word_count,
                                                    const uint16_t* support, uint16_t counts[2]);

/*
 * Lists the target_name_id of the supported rows of a kind that are shown in the list, in display order:
 * counts[0] ids of KaloGetAnalogtraceNum.
 *
 * Status: 0; 0x2BFF122B database not open; 0x2BFF1228 unknown axis; 0x2BFF122A no table built; 0x2BFF122F the
 * table is empty; 0x2BFF1229 looking up the axis, 0x2BFF122C reading the table failed.
 */
KALO_API KaloStatus KALO_CALL KaloGetAnalogtraceIDList(int16_t axis_num, uint32_t kind, uint16_t word_count,
                                                       const uint16_t* support, uint32_t* target_name_ids);

/*
 * The target_name_id at a 0-based position among the rows of a display flag that a kind offers, in display
 * order; 0 where the row has none. A position past the end leaves `target_name_id` unchanged.
 *
 * Status: 0; 0x2BFF001D database not open; 0x2BFF001E unknown axis; 0x2BFF001F no table built; 0x2BFF0020
 * looking up the axis failed; 0x2BF90000 + DAO reading the table failed.
 */
KALO_API KaloStatus KALO_CALL KaloGetAnalogtraceInfoId(int16_t axis_num, uint32_t kind, uint16_t position,
                                                       uint16_t display_flag, uint32_t* target_name_id);

/*
 * Describes a target of the axis.
 *
 * Status: 0; 0x2BFF0022 database not open; 0x2BFF06F2 unknown axis or no table built; 0x2BFE0000 no such
 * target: the record is zeroed but for the requested id; 0x2BFF0021 looking up the axis, 0x2BFF06F5 reading
 * the table failed (the record is zeroed, or filled in part).
 */
KALO_API KaloStatus KALO_CALL KaloGetAnalogtraceInfo(int16_t axis_num, int32_t target_name_id,
                                                     KaloAnalogTrace* record);

/*
 * Describes a target without an axis. `reserved` is not used.
 *
 * Status: 0; 0x2BFF1400 database not open; 0x2BFF1413 no such target: the record is zeroed but for the
 * requested id; 0x2BFF1401 reading failed (the record is zeroed, or filled in part).
 */
KALO_API KaloStatus KALO_CALL KaloGetAnalogtraceOfflineInfo(uint32_t reserved, int32_t target_name_id,
                                                            KaloAnalogTrace* record);

/*
 * Adds the number of rows that a kind offers to `*count`, which is not cleared first.
 *
 * Status: 0; 0x2BFF153B database not open; 0x2BFF1538 unknown axis; 0x2BFF153A no table built; 0x2BFF153F the
 * table is empty; 0x2BFF1539 looking up the axis, 0x2BFF153C reading the table failed.
 */
KALO_API KaloStatus KALO_CALL KaloGetAnalogtraceMapNum(int16_t axis_num, uint32_t kind, uint16_t* count);

/*
 * Lists where the support bits of the rows that a kind offers stand, in display order: as many as
 * KaloGetAnalogtraceMapNum counts.
 *
 * Status: 0; 0x2BFF154B database not open; 0x2BFF1548 unknown axis; 0x2BFF154A no table built; 0x2BFF154F the
 * table is empty; 0x2BFF1549 looking up the axis, 0x2BFF154C reading the table failed.
 */
KALO_API KaloStatus KALO_CALL KaloGetAnalogtraceMap(int16_t axis_num, uint32_t kind, KaloTraceMap* elements);

/*
 * The settings that stand for "no target" on the axis: the last rows in display order of its analog and I/O
 * trace tables, repeated over arrays of `count` elements (0: nothing is written).
 *
 * Status: 0; 0x2BFF169B database not open; 0x2BFF1698 unknown axis; 0x2BFF169A a table is not built;
 * 0x2BFF169F a table is empty; 0x2BFF1699 looking up the axis, 0x2BFF169C reading a table failed.
 * The first element of `analog` is written before the I/O table is looked at.
 */
KALO_API KaloStatus KALO_CALL KaloGetTraceNoSettingValue(int32_t axis_num, uint16_t count,
                                                         KaloNoAnalogTrace* analog, KaloNoIoTrace* io);

/*
 * The same without an axis, from the last ids of the general tables. `reserved` is not used.
 *
 * Status: 0; 0x2BFF16AB database not open; 0x2BFF16AF a table is empty; 0x2BFF16AC reading failed.
 * The first element of `analog` is written before the I/O table is looked at.
 */
KALO_API KaloStatus KALO_CALL KaloGetTraceOfflineNoSettingValue(uint32_t reserved, uint16_t count,
                                                                KaloNoAnalogTrace* analog, KaloNoIoTrace* io);

/*
 * Do two trace ids belong to the same group? `*different` becomes 0 when they do, else 1 (also when one is
 * unknown). Kind 1 compares the analog ids a1 and b1 (low 16 bits each); any other kind the I/O ids a3 and b3
 * (low 16 bits each) of the drives with the servo ids a1 and b1. a2 and b2 are not used.
 *
 * Status: always 0. After a DAO error `*different` is 1 and the lock stays held.
 */
KALO_API KaloStatus KALO_CALL KaloCheckTraceID(uint16_t kind, uint32_t a1, uint32_t a2, uint32_t a3,
                                               uint32_t b1, uint32_t b2, uint32_t b3, uint16_t* different);

/*
 * Converts a trace id of the other drive generation into the axis's id. Kind 1: `x2` is an analog id. Any
 * other kind: `x2` is a servo id, `x4` an I/O id; `x3` is not used.
 *
 * Status: 0; analog ids: 0x2BFF16C8 database not open, 0x2BFF16CB unknown id, 0x2BFF16CC reading failed; I/O
 * ids: 0x2BFF16DB database not open, 0x2BFF16DC finding the drive's table failed, 0x2BFF16DD reading it
 * failed, 0x2BFF16DE the drive's table has no name, 0x2BFF16DF unknown id; else the status of
 * KaloGetAnalogtraceInfo or KaloGetIotraceInfo with the converted id. `converted` is written on success only.
 */
KALO_API KaloStatus KALO_CALL KaloConvertTraceID(uint32_t axis_num, uint16_t kind, uint32_t x2, uint32_t x3,
                                                 uint16_t x4, uint32_t* converted);

/*
 * Counts the supported I/O rows of a trace kind; an empty table gives 0.
 *
 * Status: 0; 0x2BF00000 database not open; 0x2BF10000 unknown axis; 0x2BF20000 no table built; 0x2BFF0776
 * looking up the axis, 0x2BFF0777 reading the table failed. `count` is written on success only.
 */
KALO_API KaloStatus KALO_CALL KaloGetIotraceNum(int16_t axis_num, uint32_t kind, uint16_t word_count,
                                                const uint16_t* support, uint16_t* count);

/*
 * Lists the io_id of the supported rows of a kind, in display order: as many as KaloGetIotraceNum counts.
 *
 * Status: 0; 0x2BFF1228 database not open; 0x2BFF123A unknown axis; 0x2BFF1238 no table built; 0x2BFF123F the
 * table is empty; 0x2BFF1239 looking up the axis, 0x2BFF123C reading the table failed.
 */
KALO_API KaloStatus KALO_CALL KaloGetIotraceIDList(int16_t axis_num, uint32_t kind, uint16_t word_count,
                                                   const uint16_t* support, uint32_t* io_ids);

/*
 * The io_id at a 0-based position among the rows that a kind offers, in display order; 0 where the row has
 * none. A position past the end leaves `io_id` unchanged.
 *
 * Status: 0; 0x2BF50000 database not open; 0x2BF60000 unknown axis; 0x2BF70000 no table built; 0x2BF90000 the
 * table is empty; 0x2BF90000 + DAO reading the table failed; 0x2BFF0778 looking up the axis failed.
 */
KALO_API KaloStatus KALO_CALL KaloGetIotraceInfoId(int16_t axis_num, uint32_t kind, uint16_t position,
                                                   uint32_t* io_id);

/*
 * Describes a signal of the axis.
 *
 * Status: 0; 0x2BFB0000 database not open; 0x2BFF077A unknown axis; 0x2BFF077B no table built; 0x2BFE0000 no
 * such signal: the record is zeroed but for the requested id; 0x2BFF077C looking up the axis, 0x2BFF077D
 * reading failed (the record is zeroed, or filled in part).
 */
KALO_API KaloStatus KALO_CALL KaloGetIotraceInfo(int16_t axis_num, int32_t io_id, KaloIoTrace* record);

/*
 * Describes a signal of a drive without an axis, from the table that Tavro2Model names for the servo id, or
 * from IOTraceInfo where it names none. The two trailing arguments are not used.
 *
 * Status: 0; 0x2BFF1410 database not open; 0x2BFF1413 no such signal: the record is zeroed but for the
 * requested id; 0x2BFF1411 finding the drive's table, 0x2BFF1412 reading it failed (the record is zeroed, or
 * filled in part).
 */
KALO_API KaloStatus KALO_CALL KaloGetIotraceOfflineInfo(uint32_t servo_id, int32_t io_id, KaloIoTrace* record,
                                                        uint32_t reserved1, uint32_t reserved2);

/*
 * Counts the rows that a kind offers.
 *
 * Status: 0; 0x2BFF155B database not open; 0x2BFF1558 unknown axis; 0x2BFF155A no table built; 0x2BFF155F the
 * table is empty; 0x2BFF1559 looking up the axis, 0x2BFF155C reading the table failed. `count` is written on
 * success only.
 */
KALO_API KaloStatus KALO_CALL KaloGetIOtraceMapNum(int16_t axis_num, uint32_t kind, uint16_t* count);

/*
 * Lists where the support bits of the rows that a kind offers stand, in display order: as many as
 * KaloGetIOtraceMapNum counts.
 *
 * Status: 0; 0x2BFF156B database not open; 0x2BFF1568 unknown axis; 0x2BFF156A no table built; 0x2BFF156F the
 * table is empty; 0x2BFF1569 looking up the axis, 0x2BFF156C reading the table failed.
 */
KALO_API KaloStatus KALO_CALL KaloGetIOtraceMap(int16_t axis_num, uint32_t kind, KaloTraceMap* elements);

KALO_END_DECLARATIONS

#endif
