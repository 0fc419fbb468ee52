#include "host/tour.h"

namespace host {
namespace {

constexpr std::int16_t kMostCustomSpecs = 8;

void ShowChanges(Report& report, const Axis& axis) {
    for (std::uint32_t from = 0; from <= 7; ++from) {
        for (std::uint32_t to = 0; to <= 7; ++to) {
            Single<std::uint16_t> changed;
            KALO(KaloGetUparaChangeInfo)(axis.number, from, to, 0u, 0u, changed.Data());
            changed.Show(report);
            KALO(KaloGetUparaChangeInfo)(axis.number, 1u, 1u, from, to, changed.Data());
            changed.Show(report);
        }
    }
}

void ShowCustomSpecs(Report& report, std::uint32_t model, std::uint32_t option) {
    Single<KaloCustomSpecSummary> summary;
    KALO(KaloGetUserCmodNum)(model, option, summary.Data());
    summary.Show(report);
    for (std::uint16_t which = 0; which <= 3; ++which) {
        Array<std::uint32_t> ids(kMostCustomSpecs);
        const auto signedModel = static_cast<std::int32_t>(model);
        KALO(KaloGetUserCmodId)(signedModel, option, which, kMostCustomSpecs, ids.Data());
        ids.Show(report);
    }
}

}  // namespace

void TourParameters(Report& report, const Axis& axis) {
    Single<std::uint16_t> count;
    if (KALO(KaloGetUParaNum)(axis.number, count.Data()) != 0) return;
    count.Show(report);
    for (std::uint16_t index = 0; index <= count.Value(); ++index) {
        Single<std::uint32_t> id;
        if (KALO(KaloGetUParaId)(axis.number, static_cast<std::int16_t>(index), id.Data()) != 0) continue;
        Single<KaloUserParameter> parameter;
        KALO(KaloGetUParaInfo)(axis.number, static_cast<std::int32_t>(id.Value()), parameter.Data());
        parameter.Show(report);
    }
    Array<KaloUserParameter> parameters(count.Value());
    KALO(KaloGetAllUParaInfo)(axis.number, static_cast<std::int16_t>(count.Value()), parameters.Data());
    parameters.Show(report);
    ShowChanges(report, axis);
}

void TourCustomSpecs(Report& report) {
    for (const std::uint32_t model : {3u, 5u, 17u, 18u, 19u, 34u}) {
        for (const std::uint32_t option : {3u, 5u, std::uint32_t{KALO_NO_OPTION}}) {
            ShowCustomSpecs(report, model, option);
        }
    }
}

}  // namespace host
