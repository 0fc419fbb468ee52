#include "alarm_diagnosis.h"

#include <fmt/format.h>
#include <kalodata/monitors.h>

#include <algorithm>

#include "axis.h"
#include "text.h"

namespace cli {
namespace {

std::vector<KaloAlarmDiagnosis> ReadDiagnoses(std::uint32_t code, std::uint32_t typeMask) {
    return ReadList<KaloAlarmDiagnosis, std::uint16_t>(
        "KaloGetAlarmDiagDataNum",
        [=](std::uint16_t* count) { return KaloGetAlarmDiagDataNum(kAxis, code, typeMask, count); },
        "KaloGetAlarmDiagData",
        [=](std::uint16_t, KaloAlarmDiagnosis* diagnoses) {
            return KaloGetAlarmDiagData(kAxis, code, static_cast<std::int32_t>(typeMask), diagnoses);
        });
}

std::string MonitorName(std::uint32_t id) {
    KaloMonitor monitor{};
    const KaloStatus status = KaloGetMonitorInfo(kAxis, static_cast<std::int32_t>(id), &monitor);
    return status == 0 ? FieldText(monitor.monitor_name) : std::string("?");
}

// "0x23 Motor speed (condition 2, value 100)", one for each monitor that the axis has.
std::vector<std::string> MonitorsToLookAt(const KaloAlarmDiagnosis& diagnosis) {
    std::vector<std::string> texts;
    const std::size_t count =
        std::min<std::size_t>(diagnosis.condition_count, std::size(diagnosis.conditions));
    for (std::size_t index = 0; index < count; ++index) {
        const KaloAlarmCondition condition = diagnosis.conditions[index];
        const std::uint32_t id = condition.monitor_id;
        if (id == KALO_NONE) continue;
        std::string text = fmt::format("0x{:X} {}", id, MonitorName(id));
        const std::uint16_t compare = condition.condition;
        if (compare != KALO_NONE)
            text += fmt::format(" (condition {}, value {})", compare, std::uint32_t{condition.value});
        texts.push_back(std::move(text));
    }
    return texts;
}

void AddLine(std::string& text, const char* what, const std::string& words) {
    if (!words.empty()) text += fmt::format("  {:<8} {}\n", what, words);
}

std::string ForPeople(const KaloAlarm& alarm, const std::vector<KaloAlarmDiagnosis>& diagnoses) {
    std::string text =
        fmt::format("0x{:X}  {}\n", std::uint32_t{alarm.alarm_code}, FieldText(alarm.alarm_name));
    int number = 0;
    for (const KaloAlarmDiagnosis& diagnosis : diagnoses) {
        text += fmt::format("\ndiagnosis {}\n", ++number);
        AddLine(text, "confirm", FieldText(diagnosis.confirm));
        AddLine(text, "factor", FieldText(diagnosis.factor));
        AddLine(text, "plan", FieldText(diagnosis.plan));
        const char* what = "monitors";
        for (const std::string& monitor : MonitorsToLookAt(diagnosis)) {
            AddLine(text, what, monitor);
            what = "";
        }
    }
    return text;
}

std::string Joined(const std::vector<std::string>& texts) {
    return fmt::format("{}", fmt::join(texts, "; "));
}

}  // namespace

void PrintDiagnoses(const KaloAlarm& alarm, std::uint32_t typeMask, Format format) {
    const std::vector<KaloAlarmDiagnosis> diagnoses = ReadDiagnoses(alarm.alarm_code, typeMask);
    if (format == Format::Table) return PrintText(ForPeople(alarm, diagnoses));
    Table table{{{"code", Shown::Hex}, {"name"}, {"confirm"}, {"factor"}, {"plan"}, {"monitors"}}, {}};
    for (const KaloAlarmDiagnosis& diagnosis : diagnoses)
        table.rows.push_back({alarm.alarm_code, FieldText(alarm.alarm_name), FieldText(diagnosis.confirm),
                              FieldText(diagnosis.factor), FieldText(diagnosis.plan),
                              Joined(MonitorsToLookAt(diagnosis))});
    Print(table, format);
}

}  // namespace cli
