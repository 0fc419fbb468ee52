#include <kalodata/alarms.h>

#include "monitor_alarm/axis_tables.h"

using namespace kalo;

namespace {

static_assert(sizeof(KaloAlarm) == 262);
static_assert(offsetof(KaloAlarm, alarm_name) == 4 && offsetof(KaloAlarm, alo) == 132);
static_assert(offsetof(KaloAlarm, help_reference) == 134);
static_assert(sizeof(KaloIndexerAlarm) == 190);
static_assert(offsetof(KaloIndexerAlarm, alarm_code) == 4 && offsetof(KaloIndexerAlarm, alo) == 8);
static_assert(offsetof(KaloIndexerAlarm, alarm_name) == 10 &&
              offsetof(KaloIndexerAlarm, help_reference) == 60);
static_assert(offsetof(KaloIndexerAlarm, alarm_level) == 188);

constexpr char kUnknownName[] = "UNKNOWN";
constexpr char kUnknownHelp[] = "ampunit.chm::/no_info.htm";

// The help reference of an unknown alarm is emptied by its first byte; the rest of the text stays behind it.
void SetUnknown(KaloAlarm& alarm, std::int32_t code) {
    alarm.alarm_code = static_cast<std::uint32_t>(code);
    std::memcpy(alarm.alarm_name, kUnknownName, sizeof(kUnknownName));
    alarm.alo = 0;
    std::memcpy(alarm.help_reference, kUnknownHelp, sizeof(kUnknownHelp));
    alarm.help_reference[0] = '\0';
}

void ReadAlarm(Rows& rows, KaloAlarm& alarm, std::int32_t code) {
    const void* end = &alarm + 1;
    alarm.alarm_code = static_cast<std::uint32_t>(code);
    rows.TextWhole("alarm_name", alarm.alarm_name, end);
    rows.TextWhole("help_path", alarm.help_reference, end);
    alarm.alo = rows.NumberOr("alo", alarm.alo);
}

void SetUnknown(KaloIndexerAlarm& alarm, std::uint32_t indexerCode) {
    alarm.indexer_alarm_code = indexerCode;
    alarm.alarm_code = indexerCode & 0xFF;
    alarm.alo = 0;
    std::memcpy(alarm.alarm_name, kUnknownName, sizeof(kUnknownName));
    std::memcpy(alarm.help_reference, kUnknownHelp, sizeof(kUnknownHelp));
    alarm.alarm_level = 1;
}

void ReadAlarm(Rows& rows, KaloIndexerAlarm& alarm) {
    const void* end = &alarm + 1;
    alarm.indexer_alarm_code = rows.NumberOr("indexer_alarm_code", alarm.indexer_alarm_code);
    alarm.alarm_code = rows.NumberOr("alarm_code", alarm.alarm_code);
    alarm.alo = rows.NumberOr("alo", alarm.alo);
    rows.TextWhole("alarm_name", alarm.alarm_name, end);
    rows.TextWhole("help_path", alarm.help_reference, end);
    alarm.alarm_level = rows.NumberOr("alarm_level", alarm.alarm_level);
}

}  // namespace

KaloStatus KALO_CALL KaloGetAlarmInfo(std::int16_t axis_num, std::int32_t alarm_code, KaloAlarm* alarm) {
    constexpr Status kNotOpen = 0x2A000008;
    if (!DatabaseIsOpen()) return kNotOpen;
    CString table;
    const Status status = FindTable(AlarmTable(0x2BFF0713, DaoBase(0x2B250000)), axis_num, table);
    if (status != kOk) return status;
    return Locked(DaoBase(0x2B260000), [&] {
        Rows rows(Sql("SELECT * FROM [%s] WHERE [alarm_code] = %ld", table, alarm_code));
        if (rows.Empty()) {
            SetUnknown(*alarm, alarm_code);
        } else {
            ReadAlarm(rows, *alarm, alarm_code);
        }
        return kOk;
    });
}

KaloStatus KALO_CALL KaloGetIdxAlarmInfo(std::int16_t axis_num, std::uint32_t indexer_alarm_code,
                                         KaloIndexerAlarm* alarm) {
    constexpr Status kNotOpen = 0x2BFF057D;
    if (!DatabaseIsOpen()) return kNotOpen;
    CString table;
    const Status status = FindTable(AlarmTable(0x2BFF06DF, DaoCode(0x2BFF057A)), axis_num, table);
    if (status != kOk) return status;
    return Locked(DaoCode(0x2BFF057C), [&] {
        Rows rows(Sql("SELECT * FROM [%s] WHERE [indexer_alarm_code] = %d", table, indexer_alarm_code));
        if (rows.Empty()) {
            SetUnknown(*alarm, indexer_alarm_code);
        } else {
            ReadAlarm(rows, *alarm);
        }
        return kOk;
    });
}
