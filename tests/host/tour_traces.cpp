#include <iterator>

#include "host/tour.h"

namespace host {
namespace {

constexpr std::uint16_t kSupport[] = {0xFFFF, 0x0FFF, 0x5555, 0xFFFF};
constexpr std::uint16_t kSupportWords = std::size(kSupport);
constexpr std::uint16_t kSettings = 3;
// 0 and 4 offer nothing.
constexpr std::uint32_t kKinds[] = {0, 1, 2, 3, 4};
constexpr std::int32_t kUnknownId = 0xFFF0;

void DescribeTarget(Report& report, const Axis& axis, std::int32_t id) {
    Single<KaloAnalogTrace> target;
    KALO(KaloGetAnalogtraceInfo)(axis.number, id, target.Data());
    target.Show(report);
}

void DescribeSignal(Report& report, const Axis& axis, std::int32_t id) {
    Single<KaloIoTrace> signal;
    KALO(KaloGetIotraceInfo)(axis.number, id, signal.Data());
    signal.Show(report);
}

void ListTargets(Report& report, const Axis& axis, std::uint32_t kind) {
    Array<std::uint16_t> counts(2);
    if (KALO(KaloGetAnalogtraceNum)(axis.number, kind, kSupportWords, kSupport, counts.Data()) != 0) return;
    counts.Show(report);
    Array<std::uint32_t> ids(counts[0]);
    KALO(KaloGetAnalogtraceIDList)(axis.number, kind, kSupportWords, kSupport, ids.Data());
    ids.Show(report);

    Single<std::uint16_t> places(0);
    if (KALO(KaloGetAnalogtraceMapNum)(axis.number, kind, places.Data()) != 0) return;
    Array<KaloTraceMap> map(places.Value());
    KALO(KaloGetAnalogtraceMap)(axis.number, kind, map.Data());
    map.Show(report);
    for (std::uint16_t flag = 0; flag <= 1; ++flag) {
        for (std::uint16_t position = 0; position <= places.Value(); ++position) {
            Single<std::uint32_t> id;
            KALO(KaloGetAnalogtraceInfoId)(axis.number, kind, position, flag, id.Data());
            id.Show(report);
        }
    }
    for (std::size_t index = 0; index < map.Count(); ++index) {
        DescribeTarget(report, axis, static_cast<std::int32_t>(map[index].id));
    }
}

void ListSignals(Report& report, const Axis& axis, std::uint32_t kind) {
    Single<std::uint16_t> count;
    if (KALO(KaloGetIotraceNum)(axis.number, kind, kSupportWords, kSupport, count.Data()) != 0) return;
    Array<std::uint32_t> ids(count.Value());
    KALO(KaloGetIotraceIDList)(axis.number, kind, kSupportWords, kSupport, ids.Data());
    ids.Show(report);

    Single<std::uint16_t> places(0);
    if (KALO(KaloGetIOtraceMapNum)(axis.number, kind, places.Data()) != 0) return;
    Array<KaloTraceMap> map(places.Value());
    KALO(KaloGetIOtraceMap)(axis.number, kind, map.Data());
    map.Show(report);
    for (std::uint16_t position = 0; position <= places.Value(); ++position) {
        Single<std::uint32_t> id;
        KALO(KaloGetIotraceInfoId)(axis.number, kind, position, id.Data());
        id.Show(report);
    }
    for (std::size_t index = 0; index < map.Count(); ++index) {
        DescribeSignal(report, axis, static_cast<std::int32_t>(map[index].id));
    }
}

}  // namespace

void TourAnalogTrace(Report& report, const Axis& axis) {
    for (const std::uint32_t kind : kKinds)
        ListTargets(report, axis, kind);
    DescribeTarget(report, axis, kUnknownId);
}

void TourIoTrace(Report& report, const Axis& axis) {
    for (const std::uint32_t kind : kKinds)
        ListSignals(report, axis, kind);
    DescribeSignal(report, axis, kUnknownId);
    Array<KaloNoAnalogTrace> noTarget(kSettings);
    Array<KaloNoIoTrace> noSignal(kSettings);
    KALO(KaloGetTraceNoSettingValue)(axis.number, kSettings, noTarget.Data(), noSignal.Data());
    noTarget.Show(report);
    noSignal.Show(report);
}

void TourTraceIds(Report& report, const Axis& axis) {
    const auto servo = static_cast<std::uint32_t>(axis.servo);
    for (std::uint16_t id = 0; id <= 80; ++id) {
        Single<KaloAnalogTrace> target;
        KALO(KaloGetAnalogtraceOfflineInfo)(0u, std::int32_t{id}, target.Data());
        target.Show(report);
        Single<KaloIoTrace> signal;
        KALO(KaloGetIotraceOfflineInfo)(servo, std::int32_t{id}, signal.Data(), 0u, 0u);
        signal.Show(report);
        Single<std::uint32_t> converted;
        KALO(KaloConvertTraceID)
        (static_cast<std::uint32_t>(axis.number), std::uint16_t{1}, std::uint32_t{id}, 0u, std::uint16_t{0},
         converted.Data());
        converted.Show(report);
        KALO(KaloConvertTraceID)
        (static_cast<std::uint32_t>(axis.number), std::uint16_t{2}, servo, 0u, id, converted.Data());
        converted.Show(report);
        Single<std::uint16_t> different;
        KALO(KaloCheckTraceID)(std::uint16_t{1}, std::uint32_t{id}, 0u, 0u, 1u, 0u, 0u, different.Data());
        different.Show(report);
        KALO(KaloCheckTraceID)(std::uint16_t{2}, servo, 0u, std::uint32_t{id}, 34u, 0u, 1u, different.Data());
        different.Show(report);
    }
    Array<KaloNoAnalogTrace> noTarget(kSettings);
    Array<KaloNoIoTrace> noSignal(kSettings);
    KALO(KaloGetTraceOfflineNoSettingValue)(0u, kSettings, noTarget.Data(), noSignal.Data());
    noTarget.Show(report);
    noSignal.Show(report);
}

}  // namespace host
