#ifndef KALODATA_ALARMS_H
#define KALODATA_ALARMS_H

#include <kalodata/types.h>

/*
 * Alarms of an axis: every alarm that its amplifier and option unit can raise, the monitors that report
 * alarms, and what to check when one was raised.
 *
 * Unless a function says otherwise, nothing is written to the caller's memory when it fails.
 */

#pragma pack(push, 1)

/*
 * One alarm, 262 bytes. Texts are copied whole: the database keeps them within their arrays; a longer one
 * runs into the fields behind it, and ends with the record at the latest.
 */
typedef struct KaloAlarm {
    uint32_t alarm_code;
    char alarm_name[128];
    uint16_t alo; /* value of the alarm code output */
    char help_reference[128];
} KaloAlarm;

/* One alarm by its indexer code, 190 bytes. Texts as in KaloAlarm. */
typedef struct KaloIndexerAlarm {
    uint32_t indexer_alarm_code;
    uint32_t alarm_code;
    uint16_t alo;
    char alarm_name[50];
    char help_reference[128];
    uint16_t alarm_level;
} KaloIndexerAlarm;

/* What one monitor must show for a diagnosis to apply, 10 bytes. */
typedef struct KaloAlarmCondition {
    uint32_t monitor_id; /* of the axis; KALO_NONE when it has no such monitor */
    uint16_t condition;  /* how to compare; KALO_NONE when unused */
    uint32_t value;      /* what to compare with */
} KaloAlarmCondition;

/*
 * One diagnosis of an alarm, 1638 bytes. Texts are copied whole: one that is longer than its array runs into
 * what follows, also into the next record, and ends with the last record at the latest.
 */
typedef struct KaloAlarmDiagnosis {
    uint16_t condition_count; /* conditions filled, 0 to 10 */
    KaloAlarmCondition conditions[10];
    char factor[512];  /* what the cause may be */
    char confirm[512]; /* how to confirm it */
    char plan[512];    /* what to do about it */
} KaloAlarmDiagnosis;

#pragma pack(pop)

KALO_BEGIN_DECLARATIONS

/*
 * Builds the table of displayed alarms of a combination, or reuses that of an axis with the same combination,
 * and registers it for the axis. Arguments as KaloMonCreate, but `country_id` has 16 bits.
 *
 * 0x2A00000B not open; 0x2BFF06E1 no such model, or no such combination of model and option unit; 0x2BFF06E2
 * the check for a registered table gave no row; 0x2BFF06E3, 0x2BFF06E4 the changes of the amplifier gave no
 * count or no newest version; 0x2BFF06E5, 0x2BFF06E6 the same of the option unit; 0x2BFF06E7 to 0x2BFF06E9
 * the axis's row, its table or its users gave no row. 0x2A00000C no alarm name in this language: nothing is
 * left behind. 0x2B270000 to 0x2B380000 + DAO: a statement failed; what was built until then stays.
 */
KALO_API KaloStatus KALO_CALL KaloAlarmCreate(uint16_t country_id, int32_t servo_id, int32_t sFirm_version,
                                              int32_t sCmod_version, int32_t prate, int32_t option_id,
                                              int32_t oFirm_version, int32_t oCmod_version, int16_t axis_num);

/*
 * One alarm. A missing value leaves the caller's field as it was. An unknown code is no error: the record
 * then gets that code, the name "UNKNOWN", `alo` 0 and an empty help reference. 0x2A000008 not open;
 * 0x2BFF0713 unknown axis or no alarm table; 0x2B250000, 0x2B260000 + DAO (the record may be filled in part).
 */
KALO_API KaloStatus KALO_CALL KaloGetAlarmInfo(int16_t axis_num, int32_t alarm_code, KaloAlarm* alarm);

/*
 * One alarm by its indexer code. A missing value leaves the caller's field as it was. An unknown code is no
 * error: the record then gets that code, its low 8 bits as alarm code, `alo` 0, the name "UNKNOWN", the help
 * reference "ampunit.chm::/no_info.htm" and level 1. 0x2BFF057D not open; 0x2BFF06DF unknown axis or no alarm
 * table; 0x2BFF057A, 0x2BFF057C a DAO error in the look-up, in reading (the record may be filled in part).
 */
KALO_API KaloStatus KALO_CALL KaloGetIdxAlarmInfo(int16_t axis_num, uint32_t indexer_alarm_code,
                                                  KaloIndexerAlarm* alarm);

/*
 * Alarm code of the normal state (no alarm).
 * 0x2BFF0070 not open; 0x2BFF06DB unknown axis or no alarm table; 0x2BFF0072 no such alarm; 0x2BFF0071,
 * 0x2BFF0073 a DAO error in the look-up, in reading.
 */
KALO_API KaloStatus KALO_CALL KaloGetAlarmNormalId(int16_t axis_num, uint32_t* alarm_code);

/*
 * Alarm code of the alarm of an application module.
 * 0x2BFF08AB not open; 0x2BFF08AC unknown axis or no alarm table; 0x2BFF08AE no such alarm; 0x2BFF08AD,
 * 0x2BFF08AF a DAO error in the look-up, in reading.
 */
KALO_API KaloStatus KALO_CALL KaloGetAppModuleAlarmId(int16_t axis_num, uint32_t* alarm_code);

/*
 * Id of the monitor that shows the alarm.
 * 0x2BFF0070 not open; 0x2BFF06DC unknown axis or no monitor table; 0x2BFF0079 no such monitor; 0x2BFF0078,
 * 0x2BFF007A a DAO error in the look-up, in reading.
 */
KALO_API KaloStatus KALO_CALL KaloGetAlarmId(int16_t axis_num, uint32_t* monitor_id);

/*
 * Id of the monitor that shows the first entry of the alarm trace-back.
 * 0x2BFF007C not open; 0x2BFF06DD unknown axis or no monitor table; 0x2BFF007E no such monitor; 0x2BFF007D,
 * 0x2BFF007F a DAO error in the look-up, in reading.
 */
KALO_API KaloStatus KALO_CALL KaloGetAlarmTBId(int16_t axis_num, uint32_t* monitor_id);

/*
 * Distance between the monitor ids of the first two entries of the alarm trace-back.
 * 0x2BFF0080 not open; 0x2BFF06DE unknown axis or no monitor table; 0x2BFF0082 no first entry; 0x2BFF0084 no
 * second entry; 0x2BFF0086 both have the same id; 0x2BFF0081, 0x2BFF0083, 0x2BFF0085 a DAO error in the
 * look-up, in reading the first, the second entry.
 */
KALO_API KaloStatus KALO_CALL KaloGetAlarmTBOffset(int16_t axis_num, uint16_t* offset);

/*
 * Depth of the alarm trace-back: its number of entries.
 * 0x2BFF0074 not open; 0x2BFF0077 unknown axis or no monitor table; 0x2BFF0075 no entry (the depth is written
 * as 0); 0x2BF10000 + DAO in the look-up; 0x2BFF0076 a DAO error in counting.
 */
KALO_API KaloStatus KALO_CALL KaloGetAlarmTBNum(int16_t axis_num, uint16_t* count);

/*
 * Id of the monitor that shows the error.
 * 0x2BFF0070 not open; 0x2BFF0992 unknown axis or no monitor table; 0x2BFF0079 no such monitor; 0x2BFF0993,
 * 0x2BFF007A a DAO error in the look-up, in reading.
 */
KALO_API KaloStatus KALO_CALL KaloGetErrorId(int16_t axis_num, uint32_t* monitor_id);

/*
 * Number of diagnoses of an alarm that apply to a type mask (its low 16 bits count; a diagnosis of type 0
 * applies always). Makes a temporary table and drops it, so that calls for diagnoses must not overlap.
 * 0x2BFF237B not open; 0x2BFF25A0 unknown axis; 0x2BFF237E a diagnosis without type (the number before it is
 * written); 0x2BFF237C a DAO error in counting; 0x2BFF25A1, 0x2BFF25A2 a DAO error in reading the axis, in
 * making the temporary table; 0x2BFF2377 it could not be dropped (the number is written). After 0x2BFF237C
 * the number is that of the rows before the error.
 */
KALO_API KaloStatus KALO_CALL KaloGetAlarmDiagDataNum(int16_t axis_num, uint32_t alarm_code,
                                                      uint32_t type_mask, uint16_t* count);

/*
 * The diagnoses that apply, by priority; the array has room for as many as KaloGetAlarmDiagDataNum says for
 * the same alarm and mask. A diagnosis that names a monitor that exists twice comes twice, within that
 * number. 0x2BFF237B, 0x2BFF237C, 0x2BFF25A0 to 0x2BFF25A2 as there; 0x2BFF2388 unknown axis; 0x2BFF238A no
 * monitor table; 0x2BFF238B the database was closed meanwhile; 0x2BFF2389 a DAO error in the look-up;
 * 0x2BFF239C in reading; 0x2BFF239E a diagnosis without type; 0x2BFF2397 the temporary table could not be
 * dropped. After 0x2BFF239C and 0x2BFF239E the records before it are filled.
 */
KALO_API KaloStatus KALO_CALL KaloGetAlarmDiagData(int16_t axis_num, uint32_t alarm_code, int32_t type_mask,
                                                   KaloAlarmDiagnosis* diagnoses);

KALO_END_DECLARATIONS

#endif
