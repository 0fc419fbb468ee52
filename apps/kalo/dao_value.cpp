#include "dao_value.h"

#include <fmt/format.h>

#include <chrono>
#include <cmath>
#include <cstring>

#include "text.h"

namespace cli {
namespace {

constexpr int kCurrencyDigits = 4;
constexpr int kSecondsPerDay = 86400;

// A whole number with its last digits behind the point.
std::string WithPoint(std::uint64_t number, int digits, bool negative) {
    std::string text = fmt::format("{:0{}}", number, digits + 1);
    if (digits > 0) text.insert(text.size() - static_cast<std::size_t>(digits), 1, '.');
    return negative ? "-" + text : text;
}

std::string Currency(const CY& value) {
    const bool negative = value.int64 < 0;
    const auto number = static_cast<std::uint64_t>(value.int64);
    return WithPoint(negative ? 0 - number : number, kCurrencyDigits, negative);
}

Cell Decimal(const DECIMAL& value) {
    const bool negative = value.sign != 0;
    if (value.Hi32 == 0) return WithPoint(value.Lo64, value.scale, negative);
    const double number =
        (std::ldexp(value.Hi32, 64) + static_cast<double>(value.Lo64)) / std::pow(10, value.scale);
    return negative ? -number : number;
}

// Days since 1899-12-30; the fraction is the time of day, also behind a negative number of days.
std::string Date(double date) {
    double day = 0;
    const double fraction = std::abs(std::modf(date, &day));
    if (std::abs(day) > 1e7) return fmt::format("{}", date);
    auto seconds = static_cast<int>(std::lround(fraction * kSecondsPerDay));
    const std::chrono::sys_days start = std::chrono::year(1899) / 12 / 30;
    const std::chrono::year_month_day when(
        start + std::chrono::days(static_cast<int>(day) + seconds / kSecondsPerDay));
    seconds %= kSecondsPerDay;
    return fmt::format("{:04}-{:02}-{:02} {:02}:{:02}:{:02}", static_cast<int>(when.year()),
                       static_cast<unsigned>(when.month()), static_cast<unsigned>(when.day()), seconds / 3600,
                       seconds / 60 % 60, seconds % 60);
}

std::string HexDigits(const SAFEARRAY& array) {
    std::string text;
    const auto* bytes = static_cast<const unsigned char*>(array.pvData);
    for (ULONG at = 0; at < array.rgsabound[0].cElements; ++at)
        text += fmt::format("{:02X}", bytes[at]);
    return text;
}

}  // namespace

Cell CellOf(const COleVariant& value) {
    switch (value.vt) {
        case VT_UI1:
            return value.bVal;
        case VT_I2:
            return value.iVal;
        case VT_I4:
            return value.lVal;
        case VT_R4:
            return value.fltVal;
        case VT_R8:
            return value.dblVal;
        case VT_BOOL:
            return value.boolVal != 0;
        case VT_CY:
            return Currency(value.cyVal);
        case VT_DECIMAL:
            return Decimal(value.decVal);
        case VT_DATE:
            return Date(value.date);
        case VT_BSTR:
            return Utf8FromSystem(V_BSTRT(&value));
        case VT_ARRAY | VT_UI1:
            return HexDigits(*value.parray);
        default:
            return {};
    }
}

}  // namespace cli
