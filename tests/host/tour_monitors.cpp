#include "host/tour.h"

namespace host {
namespace {

constexpr std::uint16_t kCategories[] = {0, 1, 2, 3, 4, 5};
constexpr std::int32_t kAlarmGroups[] = {0xA100, 0xA200, 0xA300, 0xA400, 0xA500,
                                         0xA600, 0xA700, 0xA800, 0xA900, 0xC100};
// Indexer alarms carry the drive's code in their lower half.
constexpr std::uint32_t kIndexerAlarms = 0x40000;
constexpr std::int32_t kAllTypes = -1;

std::uint32_t TourCategory(Report& report, const Axis& axis, std::uint16_t category) {
    Single<std::uint16_t> count;
    if (KALO(KaloGetMonitorNumber)(axis.number, category, count.Data()) != 0) return 0;
    count.Show(report);
    for (std::uint16_t index = 0; index <= count.Value(); ++index) {
        Single<std::uint32_t> id;
        if (KALO(KaloGetMonitorId)(axis.number, category, index, id.Data()) != 0) continue;
        Single<KaloMonitor> monitor;
        KALO(KaloGetMonitorInfo)(axis.number, static_cast<std::int32_t>(id.Value()), monitor.Data());
        monitor.Show(report);
    }
    return count.Value();
}

void TourFunctions(Report& report, const Axis& axis) {
    for (std::int32_t group = 0; group <= 20; ++group) {
        Single<std::uint16_t> count;
        if (KALO(KaloGetMeaningMonGrpNum)(axis.number, group, count.Data()) != 0) continue;
        Array<std::uint16_t> functions(count.Value());
        KALO(KaloGetMeaningMonGrp)(axis.number, group, functions.Data());
        functions.Show(report);
    }
    Single<std::uint16_t> count;
    if (KALO(KaloGetAllMeaningMonInfoNum)(axis.number, count.Data()) != 0) return;
    Array<KaloMeaningMonitor> monitors(count.Value());
    KALO(KaloGetAllMeaningMonInfo)(axis.number, monitors.Data());
    monitors.Show(report);
}

void TourAlarm(Report& report, const Axis& axis, std::int32_t code) {
    Single<KaloAlarm> alarm;
    KALO(KaloGetAlarmInfo)(axis.number, code, alarm.Data());
    alarm.Show(report);
    const auto unsignedCode = static_cast<std::uint32_t>(code);
    Single<KaloIndexerAlarm> indexerAlarm;
    KALO(KaloGetIdxAlarmInfo)(axis.number, kIndexerAlarms | unsignedCode, indexerAlarm.Data());
    indexerAlarm.Show(report);
    Single<std::uint16_t> count;
    if (KALO(KaloGetAlarmDiagDataNum)(axis.number, unsignedCode, static_cast<std::uint32_t>(kAllTypes),
                                      count.Data()) != 0)
        return;
    Array<KaloAlarmDiagnosis> diagnoses(count.Value());
    KALO(KaloGetAlarmDiagData)(axis.number, unsignedCode, kAllTypes, diagnoses.Data());
    diagnoses.Show(report);
}

}  // namespace

void TourMonitors(Report& report, const Axis& axis) {
    std::uint32_t total = 0;
    for (const std::uint16_t category : kCategories)
        total += TourCategory(report, axis, category);
    Array<KaloMonitor> monitors(total);
    KALO(KaloGetAllMonitorInfo)(axis.number, static_cast<std::uint16_t>(total), monitors.Data());
    monitors.Show(report);
    TourFunctions(report, axis);
}

void TourMonitorLists(Report& report) {
    for (const std::uint16_t category : kCategories) {
        Single<std::uint32_t> count;
        if (KALO(KaloGetMonitorListNumWithCategory)(category, count.Data()) != 0) continue;
        Array<KaloMonitorListElement> elements(count.Value());
        KALO(KaloGetMonitorListWithCategory)(category, elements.Data());
        elements.Show(report);
    }
}

void TourAlarms(Report& report, const Axis& axis) {
    Single<std::uint32_t> id;
    KALO(KaloGetAlarmNormalId)(axis.number, id.Data());
    id.Show(report);
    KALO(KaloGetAppModuleAlarmId)(axis.number, id.Data());
    id.Show(report);
    KALO(KaloGetAlarmId)(axis.number, id.Data());
    id.Show(report);
    KALO(KaloGetAlarmTBId)(axis.number, id.Data());
    id.Show(report);
    KALO(KaloGetErrorId)(axis.number, id.Data());
    id.Show(report);
    Single<std::uint16_t> number;
    KALO(KaloGetAlarmTBOffset)(axis.number, number.Data());
    number.Show(report);
    KALO(KaloGetAlarmTBNum)(axis.number, number.Data());
    number.Show(report);
    TourAlarm(report, axis, 0);
    for (const std::int32_t group : kAlarmGroups) {
        for (std::int32_t item = 0; item <= 0x20; ++item)
            TourAlarm(report, axis, group + item);
    }
}

}  // namespace host
