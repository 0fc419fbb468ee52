#include "digits_view.h"

#include <fmt/format.h>
#include <kalodata/digits.h>

#include <algorithm>
#include <map>

#include "axis.h"
#include "text.h"

namespace cli {
namespace {

// A getter's answer for a digit without values.
constexpr KaloStatus kNoValue = 0x2BFF11EF;
// No name's id.
constexpr std::int32_t kNoName = INT32_MIN;

using Parameters = std::vector<KaloUserParameter>;

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

std::vector<KaloDigit> ReadDigitsOf(std::int32_t id, std::uint16_t language) {
    return ReadList<KaloDigit, std::uint16_t>(
        "KaloGetNibbleInfoNum", [id](std::uint16_t* count) { return KaloGetNibbleInfoNum(kAxis, id, count); },
        "KaloGetNibbleInfoBase",
        [id, language](std::uint16_t count, KaloDigit* records) {
            return KaloGetNibbleInfoBase(kAxis, id, count, language, records);
        });
}

std::vector<KaloDigit> ReadAllDigits(std::uint16_t language) {
    return ReadList<KaloDigit, std::uint16_t>(
        "KaloGetAllNibbleInfoNum", [](std::uint16_t* count) { return KaloGetAllNibbleInfoNum(kAxis, count); },
        "KaloGetAllNibbleInfoBase",
        [language](std::uint16_t count, KaloDigit* records) {
            return KaloGetAllNibbleInfoBase(kAxis, count, language, records);
        });
}

// Digits in the order of positions, by the id that ties them to their parameters.
using DigitsById = std::map<std::int32_t, std::vector<KaloDigit>>;

// The digits of one parameter are asked for alone, those of several from the list of all the axis's digits.
DigitsById ReadDigits(const Parameters& parameters, std::uint16_t language) {
    DigitsById digits;
    const auto hasDigits = [](const KaloUserParameter& parameter) { return parameter.nibble_data_id != 0; };
    if (std::ranges::none_of(parameters, hasDigits)) return digits;
    const std::int32_t first = parameters.front().nibble_data_id;
    for (const KaloDigit& digit :
         parameters.size() == 1 ? ReadDigitsOf(first, language) : ReadAllDigits(language))
        digits[digit.nibble_data_id].push_back(digit);
    return digits;
}

// The digits of a parameter; none for one that is not tied to any.
const std::vector<KaloDigit>& DigitsOf(const KaloUserParameter& parameter, const DigitsById& digits) {
    static const std::vector<KaloDigit> kNone;
    const auto found = digits.find(parameter.nibble_data_id);
    return parameter.nibble_data_id == 0 || found == digits.end() ? kNone : found->second;
}

std::vector<DigitMeaning> ReadMeanings(const std::vector<KaloDigit>& digits, std::uint16_t language) {
    std::vector<DigitMeaning> meanings;
    meanings.reserve(digits.size());
    for (const KaloDigit& digit : digits)
        meanings.push_back({digit, ReadValues(digit, language)});
    return meanings;
}

// All values of a parameter at once. A value without a name is not listed, which leaves the array's end as it
// was.
std::vector<KaloDigitValue> ReadValuesOf(const KaloUserParameter& parameter,
                                         const std::vector<KaloDigit>& digits, std::uint16_t language) {
    std::size_t count = 0;
    for (const KaloDigit& digit : digits)
        count += digit.value_count;
    KaloDigitValue unlisted{};
    unlisted.content_name_id = kNoName;
    std::vector<KaloDigitValue> values(std::min<std::size_t>(count, UINT16_MAX), unlisted);
    Check("KaloGetNibbleInfo",
          KaloGetNibbleInfo(kAxis, parameter.nibble_data_id, static_cast<std::uint16_t>(values.size()),
                            language, values.data()));
    std::erase_if(values, [](const KaloDigitValue& value) { return value.content_name_id == kNoName; });
    return values;
}

// The digit of each value: the values stand digit after digit, as many as each one's count says. Unknown
// where one of them is not listed.
std::vector<Cell> PositionsOf(const std::vector<KaloDigitValue>& values,
                              const std::vector<KaloDigit>& digits) {
    std::vector<Cell> positions;
    for (const KaloDigit& digit : digits)
        positions.insert(positions.end(), digit.value_count, Cell(digit.pos));
    return positions.size() == values.size() ? positions : std::vector<Cell>(values.size());
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

void PrintDigits(const Parameters& parameters, std::uint16_t language, Format format) {
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
    const DigitsById all = ReadDigits(parameters, language);
    for (const KaloUserParameter& parameter : parameters) {
        const std::vector<DigitMeaning> digits = ReadMeanings(DigitsOf(parameter, all), language);
        if (digits.empty()) continue;
        text += ForPeople(parameter, digits);
        AddRows(parameter, digits, table);
    }
    if (format == Format::Table)
        PrintText(text);
    else
        Print(table, format);
}

Table DigitValueTable(const Parameters& parameters, std::uint16_t language) {
    Table table{{{"number"},
                 {"parameter_id", Shown::Hex},
                 {"parameter"},
                 {"digit"},
                 {"value", Shown::Hex},
                 {"meaning"},
                 {"name_id", Shown::Detail},
                 {"access_level", Shown::Detail},
                 {"message_type"},
                 {"message_id"}},
                {}};
    const DigitsById all = ReadDigits(parameters, language);
    for (const KaloUserParameter& parameter : parameters) {
        const std::vector<KaloDigit>& digits = DigitsOf(parameter, all);
        if (digits.empty()) continue;
        const std::vector<KaloDigitValue> values = ReadValuesOf(parameter, digits, language);
        const std::vector<Cell> positions = PositionsOf(values, digits);
        for (std::size_t i = 0; i < values.size(); ++i)
            table.rows.push_back({FieldText(parameter.user_constant), parameter.parameter_id,
                                  FieldText(parameter.parameter_name), positions[i], values[i].content_value,
                                  FieldText(values[i].name), values[i].content_name_id,
                                  values[i].access_level, values[i].message_type, values[i].message_id});
    }
    return table;
}

}  // namespace cli
