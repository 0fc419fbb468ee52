#include "host/tour.h"

namespace host {
namespace {

constexpr std::size_t kNameSize = 256;
constexpr std::uint16_t kMostValues = 64;
constexpr std::int32_t kFunctions = 40;
constexpr std::int32_t kAdditionalGroups = 40000;

using Name = Single<TextOutput<kNameSize>>;

void ShowDigitsOf(Report& report, const Axis& axis, std::uint16_t country, const KaloDigit& digit) {
    Single<std::uint16_t> count;
    KALO(KaloGetNibbleInfoNum)(axis.number, digit.nibble_data_id, count.Data());
    Array<KaloDigit> digits(count.Value());
    KALO(KaloGetNibbleInfoBase)(axis.number, digit.nibble_data_id, count.Value(), country, digits.Data());
    digits.Show(report);
    Array<KaloDigitValue> values(kMostValues);
    KALO(KaloGetNibbleInfo)(axis.number, digit.nibble_data_id, kMostValues, country, values.Data());
    values.Show(report);
}

void ShowSwitches(Report& report, const Axis& axis) {
    for (std::int32_t function = 0; function <= kFunctions; ++function) {
        Single<KaloDigitSwitch> on;
        KALO(KaloGetNibbleSwitchInfo)(std::int32_t{axis.number}, function, on.Data());
        on.Show(report);
    }
}

void ShowMembers(Report& report, const Axis& axis, std::int32_t group) {
    Single<std::uint16_t> count(0);
    KALO(KaloGetAddGroupPrmNum)(std::int32_t{axis.number}, group, count.Data());
    Array<std::int32_t> members(count.Value());
    KALO(KaloGetAddGroupPrmList)(std::int32_t{axis.number}, group, members.Data());
    members.Show(report);
}

}  // namespace

void TourDigits(Report& report, const Axis& axis, std::uint16_t country) {
    Single<std::uint16_t> count;
    if (KALO(KaloGetAllNibbleInfoNum)(std::int32_t{axis.number}, count.Data()) != 0) return;
    Array<KaloDigit> digits(count.Value());
    KALO(KaloGetAllNibbleInfoBase)
    (static_cast<std::uint32_t>(axis.number), count.Value(), country, digits.Data());
    digits.Show(report);
    for (std::size_t index = 0; index < digits.Count(); ++index) {
        const KaloDigit& digit = digits[index];
        if (digit.pos == 0) ShowDigitsOf(report, axis, country, digit);
        Array<KaloDigitValue> values(digit.value_count);
        KALO(KaloGetNibbleInfoElem)
        (static_cast<std::uint32_t>(axis.number), digit.content_id, digit.value_count, country,
         values.Data());
        values.Show(report);
    }
    ShowSwitches(report, axis);
}

void TourDigitNames(Report& report) {
    for (std::uint16_t country = 0; country <= 3; ++country) {
        for (std::uint16_t id = 0; id <= 140; ++id) {
            Name name;
            KALO(KaloGetNibbleParamName)(id, country, reinterpret_cast<std::uint8_t*>(name.Data()->text));
            name.Show(report);
        }
    }
}

void TourGroups(Report& report, const Axis& axis) {
    Single<std::uint16_t> count;
    if (KALO(KaloGetAllGroupNum)(std::int32_t{axis.number}, count.Data()) != 0) return;
    Array<KaloGroup> groups(count.Value());
    KALO(KaloGetAllGroupInfo)(std::int32_t{axis.number}, count.Value(), groups.Data());
    groups.Show(report);
    for (std::size_t index = 0; index < groups.Count(); ++index) {
        if (groups[index].category_id >= kAdditionalGroups)
            ShowMembers(report, axis, groups[index].category_id);
    }
}

}  // namespace host
