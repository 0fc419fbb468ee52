#include "host/tour.h"

namespace host {
namespace {

using Help = Single<TextOutput<KALO_HELP_SIZE>>;

constexpr std::uint16_t kAnyModel = 65535;
constexpr std::int32_t kItems = 12;

void ShowItem(Report& report, const Axis& axis, std::int32_t item) {
    Help inertia;
    KALO(KaloGetInertiaHelp)(axis.number, item, inertia.Data()->text);
    inertia.Show(report);
    Help common;
    KALO(KaloGetCommonHelp)(static_cast<std::uint16_t>(axis.number), item, common.Data()->text);
    common.Show(report);
    Help anyModel;
    KALO(KaloGetCommonHelp)(kAnyModel, item, anyModel.Data()->text);
    anyModel.Show(report);
    Help tuning;
    KALO(KaloGetGaintuningHelp)(axis.number, static_cast<std::uint16_t>(item), tuning.Data()->text);
    tuning.Show(report);
    for (std::uint32_t kind = 0; kind <= 22; ++kind) {
        Help guideline;
        KALO(KaloGetGuidelineHelp)(axis.number, kind, item, guideline.Data()->text);
        guideline.Show(report);
    }
}

}  // namespace

void TourHelp(Report& report, const Axis& axis) {
    Help autotuning;
    KALO(KaloGetAutotuningHelp)(axis.number, autotuning.Data()->text);
    autotuning.Show(report);
    Help nct;
    KALO(KaloGetNctHelp)(axis.number, nct.Data()->text);
    nct.Show(report);
    Help mechana;
    KALO(KaloGetMechanaHelp)(axis.number, mechana.Data()->text);
    mechana.Show(report);
    for (std::int32_t item = 0; item <= kItems; ++item)
        ShowItem(report, axis, item);
    // Items with a NULL and with a text of 127 characters.
    ShowItem(report, axis, 99);
    ShowItem(report, axis, 100);
}

void TourReferencePulses(Report& report) {
    // 3 is no language of the sample.
    for (std::uint16_t country = 0; country <= 3; ++country) {
        Single<std::uint16_t> count(0);
        KALO(KaloGetRefPulseStringNum)(country, count.Data());
        Array<KaloRefPulseString> pulses(count.Value());
        KALO(KaloGetRefPulseString)(country, pulses.Data());
        pulses.Show(report);
        KALO(KaloGetRefLogicStringNum)(country, count.Data());
        Array<KaloRefLogicString> logics(count.Value());
        KALO(KaloGetRefLogicString)(country, logics.Data());
        logics.Show(report);
        KALO(KaloGetRefMultiStringNum)(country, count.Data());
        Array<KaloRefMultiString> multis(count.Value());
        KALO(KaloGetRefMultiString)(country, multis.Data());
        multis.Show(report);
    }
}

}  // namespace host
