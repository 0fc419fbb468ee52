#include "digits_view.h"

#include <fmt/format.h>
#include <kalodata/digits.h>

#include "axis.h"
#include "text.h"

namespace cli {
namespace {

// A getter's answer for a digit without values.
constexpr KaloStatus kNoValue = 0x2BFF11EF;

struct DigitMeaning {
    KaloDigit digit;
    std::vector<KaloDigitValue> values;
};

std::vector<KaloDigitValue> ReadValues(const KaloDigit& digit, std::uint16_t language) {
    std::vector<KaloDigitValue> values(digit.value_count);
    if (values.empty()) return values;
    const KaloStatus status =
        KaloGetNibbleInfoElem(kAxis, digit.content_id, digit.value_count, language, values.data());
    if (status == kNoValue) return {};
    Check("KaloGetNibbleInfoElem", status);
    return values;
}

std::vector<DigitMeaning> ReadDigits(const KaloUserParameter& parameter, std::uint16_t language) {
    const std::int32_t id = parameter.nibble_data_id;
    if (id == 0) return {};
    const auto digits = ReadList<KaloDigit, std::uint16_t>(
        "KaloGetNibbleInfoNum", [id](std::uint16_t* count) { return KaloGetNibbleInfoNum(kAxis, id, count); },
        "KaloGetNibbleInfoBase",
        [id, language](std::uint16_t count, KaloDigit* records) {
            return KaloGetNibbleInfoBase(kAxis, id, count, language, records);
        });
    std::vector<DigitMeaning> meanings;
    for (const KaloDigit& digit : digits)
        meanings.push_back({digit, ReadValues(digit, language)});
    return meanings;
}

std::string ForPeople(const KaloUserParameter& parameter, const std::vector<DigitMeaning>& digits) {
    std::string text =
        fmt::format("{}  {}\n", FieldText(parameter.user_constant), FieldText(parameter.parameter_name));
    for (const auto& [digit, values] : digits) {
        text += fmt::format("    digit {}  {}\n", std::uint16_t{digit.pos}, FieldText(digit.name));
        for (const KaloDigitValue& value : values) {
            const char* mark = value.content_value == digit.initial_value ? "*" : " ";
            text += fmt::format("      {} {:X}  {}\n", mark, std::uint16_t{value.content_value},
                                FieldText(value.name));
        }
    }
    return text;
}

void AddRows(const KaloUserParameter& parameter, const std::vector<DigitMeaning>& digits, Table& table) {
    for (const auto& [digit, values] : digits)
        for (const KaloDigitValue& value : values)
            table.rows.push_back({FieldText(parameter.user_constant), parameter.parameter_id,
                                  FieldText(parameter.parameter_name), digit.pos, digit.size,
                                  FieldText(digit.name), digit.initial_value, value.content_value,
                                  FieldText(value.name)});
}

}  // namespace

void PrintDigits(const std::vector<KaloUserParameter>& parameters, std::uint16_t language, Format format) {
    std::string text;
    Table table{{{"number"},
                 {"parameter_id", Shown::Hex},
                 {"parameter"},
                 {"digit"},
                 {"size"},
                 {"name"},
                 {"initial"},
                 {"value"},
                 {"meaning"}},
                {}};
    for (const KaloUserParameter& parameter : parameters) {
        const std::vector<DigitMeaning> digits = ReadDigits(parameter, language);
        if (digits.empty()) continue;
        text += ForPeople(parameter, digits);
        AddRows(parameter, digits, table);
    }
    if (format == Format::Table)
        PrintText(text);
    else
        Print(table, format);
}

}  // namespace cli
