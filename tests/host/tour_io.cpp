#include "host/tour.h"

namespace host {
namespace {

constexpr std::int16_t kInputs = 1;
constexpr std::int16_t kOutputs = 2;
constexpr std::size_t kDigits = 4;
constexpr std::size_t kPelkSignals = 7;

void TourWord(Report& report, const Axis& axis, std::int16_t direction, std::int32_t address) {
    for (std::int32_t digit = 0; digit <= 0xF; ++digit) {
        Single<std::uint16_t> inputMode;
        Array<KaloIoSignal> signals(kDigits);
        const std::int32_t word = digit * 0x1111;
        KALO(KaloGetIOInfo)
        (axis.number, direction, address, word, word ^ 0x1111, inputMode.Data(), signals.Data());
        inputMode.Show(report);
        signals.Show(report);
    }
}

void TourDirection(Report& report, const Axis& axis, std::int16_t direction) {
    Single<std::int32_t> selection;
    KALO(KaloGetIOSelectAddress)(axis.number, direction, selection.Data());
    selection.Show(report);
    Single<std::uint16_t> count;
    if (KALO(KaloGetIONum)(axis.number, direction, count.Data()) != 0) return;
    for (std::uint16_t index = 0; index <= count.Value(); ++index) {
        Single<std::int32_t> address;
        const auto position = static_cast<std::int16_t>(index);
        if (KALO(KaloGetIOAddress)(axis.number, direction, position, address.Data()) != 0) continue;
        TourWord(report, axis, direction, address.Value());
    }
}

void TourPelk(Report& report) {
    for (std::int16_t selector = 0; selector <= 5; ++selector) {
        Single<std::uint32_t> count;
        KALO(KaloGetPELKIOInfoNum)(selector, count.Data());
        count.Show(report);
        Array<KaloIoSignal> signals(kPelkSignals);
        KALO(KaloGetPELKIOInfo)(selector, signals.Data());
        signals.Show(report);
    }
}

void TourAllocation(Report& report, const Axis& axis) {
    Single<std::uint16_t> count;
    if (KALO(KaloGetInputSignalPrmIDNum)(axis.number, count.Data()) == 0) {
        Array<std::int32_t> ids(count.Value());
        KALO(KaloGetInputSignalPrmID)(axis.number, ids.Data());
        ids.Show(report);
    }
    if (KALO(KaloGetOutputSignalPrmIDNum)(axis.number, count.Data()) == 0) {
        Array<std::int32_t> ids(count.Value());
        KALO(KaloGetOutputSignalPrmID)(axis.number, ids.Data());
        ids.Show(report);
    }
}

}  // namespace

void TourIo(Report& report, const Axis& axis) {
    TourDirection(report, axis, kInputs);
    TourDirection(report, axis, kOutputs);
    TourAllocation(report, axis);
    TourPelk(report);
}

void TourFixedIo(Report& report, const Axis& axis) {
    for (const std::int16_t direction : {kInputs, kOutputs}) {
        Single<std::uint16_t> count;
        if (KALO(KaloGetFixedIONum)(axis.number, std::int32_t{direction}, count.Data()) != 0) continue;
        Array<KaloIoSignal> signals(count.Value());
        KALO(KaloGetFixedIOInfo)(axis.number, std::int32_t{direction}, signals.Data());
        signals.Show(report);
    }
}

}  // namespace host
