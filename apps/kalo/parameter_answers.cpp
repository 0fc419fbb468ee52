#include "parameter_answers.h"

#include <kalodata/digits.h>
#include <kalodata/parameters.h>

#include "axis.h"
#include "parameter_rows.h"
#include "text.h"

namespace cli {

Table FixedName(std::uint16_t fixedId, std::uint16_t language) {
    char name[sizeof KaloDigit::name] = {};
    Check("KaloGetNibbleParamName",
          KaloGetNibbleParamName(fixedId, language, reinterpret_cast<std::uint8_t*>(name)));
    return {{{"fixed_id"}, {"name"}}, {{fixedId, FieldText(name)}}};
}

Table FunctionSwitch(std::int32_t function) {
    KaloDigitSwitch found{};
    Check("KaloGetNibbleSwitchInfo", KaloGetNibbleSwitchInfo(kAxis, function, &found));
    const KaloUserParameter parameter = ReadParameter(found.parameter_id);
    return {{{"func_id"},
             {"fixed_id"},
             {"number"},
             {"parameter_id", Shown::Hex},
             {"parameter"},
             {"digit"},
             {"value", Shown::Hex}},
            {{function, found.fixed_id, FieldText(parameter.user_constant), found.parameter_id,
              FieldText(parameter.parameter_name), found.digit, found.value}}};
}

Table VersionComparison(const VersionPairs& versions) {
    const auto& [a, b] = versions.firmware;
    const auto& [optionA, optionB] = versions.optionFirmware;
    std::uint16_t changed = 0;
    Check("KaloGetUparaChangeInfo", KaloGetUparaChangeInfo(kAxis, a, b, optionA, optionB, &changed));
    return {{{"firmware_a"}, {"firmware_b"}, {"option_firmware_a"}, {"option_firmware_b"}, {"changed"}},
            {{a, b, optionA, optionB, changed != 0}}};
}

}  // namespace cli
