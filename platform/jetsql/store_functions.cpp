#include <cmath>
#include <cstdint>
#include <limits>

#include "jet/schema.h"
#include "jetsql/dates.h"
#include "jetsql/errors.h"
#include "jetsql/function_values.h"
#include "jetsql/names.h"

// Conversions of values on their way into columns of another type.
namespace jetsql {
namespace {

constexpr double kCurrencyLimit = 922337203685477.5807;
constexpr double kFirstDate = -657434;
constexpr double kLastDate = 2958466;

void FailOverflow(sqlite3_context* context) {
    FailFunction(context, kNumericOverflow, "Numeric field overflow.");
}

void FailConversion(sqlite3_context* context) {
    FailFunction(context, kConversion, "Data type conversion error.");
}

template <typename Integer>
void StoreInteger(sqlite3_context* context, int, sqlite3_value** values) {
    if (IsNull(values[0])) return;
    using Limits = std::numeric_limits<Integer>;
    if (sqlite3_value_type(values[0]) == SQLITE_INTEGER) {
        const std::int64_t value = sqlite3_value_int64(values[0]);
        if (value < Limits::min() || value > Limits::max()) return FailOverflow(context);
        return sqlite3_result_value(context, values[0]);
    }
    const auto number = NumberArgument(context, values[0]);
    if (!number) return;
    const double rounded = RoundHalfEven(*number);
    if (!(rounded >= Limits::min() && rounded <= Limits::max())) return FailOverflow(context);
    sqlite3_result_int64(context, static_cast<std::int64_t>(rounded));
}

void StoreBit(sqlite3_context* context, int, sqlite3_value** values) {
    if (IsNull(values[0])) return sqlite3_result_int(context, 0);
    if (sqlite3_value_type(values[0]) == SQLITE_TEXT) {
        const std::string_view text = TextArgument(values[0]);
        if (SameName(text, "True") || SameName(text, "Yes") || SameName(text, "On"))
            return sqlite3_result_int(context, -1);
        if (SameName(text, "False") || SameName(text, "No") || SameName(text, "Off"))
            return sqlite3_result_int(context, 0);
    }
    const auto number = NumberArgument(context, values[0]);
    if (number) sqlite3_result_int(context, *number != 0 ? -1 : 0);
}

void StoreSingle(sqlite3_context* context, int, sqlite3_value** values) {
    if (IsNull(values[0])) return;
    const auto number = NumberArgument(context, values[0]);
    if (!number) return;
    if (!(std::fabs(*number) <= std::numeric_limits<float>::max())) return FailOverflow(context);
    sqlite3_result_double(context, static_cast<float>(*number));
}

void StoreDouble(sqlite3_context* context, int, sqlite3_value** values) {
    if (IsNull(values[0])) return;
    const auto number = NumberArgument(context, values[0]);
    if (number) sqlite3_result_double(context, *number);
}

void StoreCurrency(sqlite3_context* context, int, sqlite3_value** values) {
    if (IsNull(values[0])) return;
    const auto number = NumberArgument(context, values[0]);
    if (!number) return;
    if (!(std::fabs(*number) <= kCurrencyLimit)) return FailOverflow(context);
    sqlite3_result_double(context, RoundHalfEven(*number * jet::kCurrencyUnit) / jet::kCurrencyUnit);
}

void StoreDecimal(sqlite3_context* context, int, sqlite3_value** values) {
    if (IsNull(values[0])) return;
    const auto number = NumberArgument(context, values[0]);
    if (!number) return;
    const double scale = std::pow(10.0, sqlite3_value_int(values[1]));
    const double scaled = *number * scale;
    sqlite3_result_double(context, std::fabs(scaled) < 1e15 ? RoundHalfEven(scaled) / scale : *number);
}

void StoreDate(sqlite3_context* context, int, sqlite3_value** values) {
    if (IsNull(values[0])) return;
    std::optional<double> date;
    if (sqlite3_value_type(values[0]) == SQLITE_TEXT) date = ParseDate(TextArgument(values[0]));
    if (!date) date = NumberArgument(context, values[0]);
    if (!date) return;
    if (!(*date >= kFirstDate && *date < kLastDate)) return FailOverflow(context);
    sqlite3_result_double(context, *date);
}

// The UTF-16 units of a text in UTF-8, which a column's size counts.
std::size_t UnitCount(std::string_view text) {
    std::size_t count = 0;
    for (char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        count += (byte & 0xC0u) != 0x80u;
        count += byte >= 0xF0u;
    }
    return count;
}

void StoreText(sqlite3_context* context, int, sqlite3_value** values) {
    if (IsNull(values[0])) return;
    const std::string_view text = TextArgument(values[0]);
    const int size = sqlite3_value_int(values[1]);
    if (size > 0 && text.size() > static_cast<std::size_t>(size) &&
        UnitCount(text) > static_cast<std::size_t>(size)) {
        return FailFunction(context, kTextTooLong, "The field is too small to accept the amount of data.");
    }
    sqlite3_result_value(context, values[0]);
}

bool IsGuid(std::string_view text) {
    static constexpr std::string_view kForm = "{xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx}";
    if (text.size() != kForm.size()) return false;
    for (std::size_t i = 0; i < kForm.size(); ++i) {
        const char c = text[i];
        const bool hex = (c >= '0' && c <= '9') || ((c | 0x20) >= 'a' && (c | 0x20) <= 'f');
        if (kForm[i] == 'x' ? !hex : c != kForm[i]) return false;
    }
    return true;
}

void StoreGuid(sqlite3_context* context, int, sqlite3_value** values) {
    if (IsNull(values[0])) return;
    if (sqlite3_value_type(values[0]) != SQLITE_TEXT || !IsGuid(TextArgument(values[0])))
        return FailConversion(context);
    sqlite3_result_value(context, values[0]);
}

void StoreBinary(sqlite3_context* context, int, sqlite3_value** values) {
    if (IsNull(values[0])) return;
    if (sqlite3_value_type(values[0]) != SQLITE_BLOB) return FailConversion(context);
    const int size = sqlite3_value_int(values[1]);
    if (size > 0 && sqlite3_value_bytes(values[0]) > size) {
        return FailFunction(context, kTextTooLong, "The field is too small to accept the amount of data.");
    }
    sqlite3_result_value(context, values[0]);
}

}  // namespace

void RegisterStoreFunctions(sqlite3* connection) {
    static constexpr FunctionEntry kFunctions[] = {
        {"jet_long", 1, StoreInteger<std::int32_t>},
        {"jet_store_long", 1, StoreInteger<std::int32_t>},
        {"jet_store_short", 1, StoreInteger<std::int16_t>},
        {"jet_store_byte", 1, StoreInteger<std::uint8_t>},
        {"jet_store_bit", 1, StoreBit},
        {"jet_store_single", 1, StoreSingle},
        {"jet_store_double", 1, StoreDouble},
        {"jet_store_currency", 1, StoreCurrency},
        {"jet_store_decimal", 2, StoreDecimal},
        {"jet_store_date", 1, StoreDate},
        {"jet_store_text", 2, StoreText},
        {"jet_store_guid", 1, StoreGuid},
        {"jet_store_binary", 2, StoreBinary},
    };
    for (const FunctionEntry& entry : kFunctions)
        Register(connection, entry);
}

}  // namespace jetsql
