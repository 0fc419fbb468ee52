#include <fmt/format.h>
#include <kalodata/alarms.h>

#include <memory>
#include <optional>

#include "alarm_diagnosis.h"
#include "axis.h"
#include "commands.h"
#include "session.h"
#include "table.h"
#include "text.h"

namespace cli {
namespace {

// Alarm codes have 16 bits.
constexpr std::int32_t kLastCode = 0xFFFF;
constexpr char kUnknown[] = "UNKNOWN";

struct Options {
    CommonOptions common;
    Combination combination;
    std::optional<std::int32_t> code;
    std::optional<std::uint32_t> indexerCode;
    std::uint32_t typeMask = 0xFFFF;
    bool monitors = false;
};

constexpr Field<KaloAlarm> kFields[] = {
    {"code", Shown::Hex, [](const KaloAlarm& a) { return Cell(a.alarm_code); }},
    {"name", Shown::Always, [](const KaloAlarm& a) { return Cell(FieldText(a.alarm_name)); }},
    {"alo", Shown::Always, [](const KaloAlarm& a) { return Cell(a.alo); }},
    {"help", Shown::Always, [](const KaloAlarm& a) { return Cell(FieldText(a.help_reference)); }},
};

constexpr Field<KaloIndexerAlarm> kIndexerFields[] = {
    {"indexer_code", Shown::Hex, [](const KaloIndexerAlarm& a) { return Cell(a.indexer_alarm_code); }},
    {"code", Shown::Hex, [](const KaloIndexerAlarm& a) { return Cell(a.alarm_code); }},
    {"name", Shown::Always, [](const KaloIndexerAlarm& a) { return Cell(FieldText(a.alarm_name)); }},
    {"alo", Shown::Always, [](const KaloIndexerAlarm& a) { return Cell(a.alo); }},
    {"level", Shown::Always, [](const KaloIndexerAlarm& a) { return Cell(a.alarm_level); }},
    {"help", Shown::Always, [](const KaloIndexerAlarm& a) { return Cell(FieldText(a.help_reference)); }},
};

KaloAlarm ReadAlarm(std::int32_t code) {
    KaloAlarm alarm{};
    Check("KaloGetAlarmInfo", KaloGetAlarmInfo(kAxis, code, &alarm));
    return alarm;
}

// The library lists no alarms: it is asked for every code.
std::vector<KaloAlarm> ReadAll() {
    std::vector<KaloAlarm> alarms;
    for (std::int32_t code = 0; code <= kLastCode; ++code) {
        const KaloAlarm alarm = ReadAlarm(code);
        if (FieldText(alarm.alarm_name) != kUnknown) alarms.push_back(alarm);
    }
    return alarms;
}

KaloIndexerAlarm ReadIndexerAlarm(std::uint32_t code) {
    KaloIndexerAlarm alarm{};
    Check("KaloGetIdxAlarmInfo", KaloGetIdxAlarmInfo(kAxis, code, &alarm));
    return alarm;
}

// One number about the alarms as a row; a drive may be without.
template <class Number>
void AddNumberRow(Table& table, const char* what, const char* function,
                  KaloStatus KALO_CALL getter(std::int16_t, Number*)) {
    Number number = 0;
    const KaloStatus status = getter(kAxis, &number);
    table.rows.push_back(
        {what, status == 0 ? Cell(number) : Cell(), status == 0 ? "" : StatusWords(function, status)});
}

// Where a drive reports its alarms.
Table AlarmMonitors() {
    Table table{{{"what"}, {"number", Shown::Hex}, {"note"}}, {}};
    AddNumberRow(table, "alarm code without alarm", "KaloGetAlarmNormalId", KaloGetAlarmNormalId);
    AddNumberRow(table, "alarm code of application modules", "KaloGetAppModuleAlarmId",
                 KaloGetAppModuleAlarmId);
    AddNumberRow(table, "monitor of the alarm", "KaloGetAlarmId", KaloGetAlarmId);
    AddNumberRow(table, "monitor of the error", "KaloGetErrorId", KaloGetErrorId);
    AddNumberRow(table, "monitor of the newest traced alarm", "KaloGetAlarmTBId", KaloGetAlarmTBId);
    AddNumberRow(table, "distance between traced alarms", "KaloGetAlarmTBOffset", KaloGetAlarmTBOffset);
    AddNumberRow(table, "number of traced alarms", "KaloGetAlarmTBNum", KaloGetAlarmTBNum);
    return table;
}

void Show(const Options& options) {
    const Session session(options.common);
    const Format format = options.common.format;
    BuildAlarms(options.combination, options.common.language);
    BuildMonitors(options.combination, options.common.language);
    if (options.code) {
        Identify(options.combination);
        PrintDiagnoses(ReadAlarm(*options.code), options.typeMask, format);
    } else if (options.indexerCode) {
        Print(TableOf(kIndexerFields, std::vector{ReadIndexerAlarm(*options.indexerCode)}), format);
    } else {
        Print(options.monitors ? AlarmMonitors() : TableOf(kFields, ReadAll()), format);
    }
}

}  // namespace

void AddAlarmsCommand(CLI::App& app) {
    CLI::App* command =
        app.add_subcommand("alarms", "Alarms of an amplifier, and what to do about one of them");
    auto options = std::make_shared<Options>();
    AddCommon(*command, options->common);
    AddCombination(*command, options->combination)->required();
    AddNumber(*command, "--code", options->code, "One alarm and its diagnosis");
    AddNumber(*command, "--type", options->typeMask,
              "With --code: mask of the diagnoses' types (default: all)");
    AddNumber(*command, "--indexer-code", options->indexerCode, "One alarm by its indexer code");
    command->add_flag("--monitors", options->monitors, "Where the drive reports its alarms");
    command->final_callback([options] { Show(*options); });
}

}  // namespace cli
