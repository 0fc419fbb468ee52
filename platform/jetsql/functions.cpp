#include "jetsql/functions.h"

#include <charconv>
#include <cmath>
#include <cstring>
#include <string>

#include "jetsql/collation.h"
#include "jetsql/errors.h"
#include "jetsql/function_values.h"
#include "jetsql/row_list.h"

namespace jetsql {
namespace {

constexpr char kErrorPrefix[] = "jet:";
constexpr int kOutOfMemory = 3001;

std::string_view Trimmed(std::string_view text) {
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return text;
}

}  // namespace

bool IsNull(sqlite3_value* value) {
    return sqlite3_value_type(value) == SQLITE_NULL;
}

std::string_view TextArgument(sqlite3_value* value) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return text == nullptr ? std::string_view()
                           : std::string_view(text, static_cast<std::size_t>(sqlite3_value_bytes(value)));
}

void TextResult(sqlite3_context* context, std::string_view text) {
    sqlite3_result_text64(context, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

void FailFunction(sqlite3_context* context, int number, const char* text) {
    const std::string message = kErrorPrefix + std::to_string(number) + ':' + text;
    sqlite3_result_error(context, message.c_str(), static_cast<int>(message.size()));
}

std::optional<double> NumberArgument(sqlite3_context* context, sqlite3_value* value) {
    const int type = sqlite3_value_type(value);
    if (type == SQLITE_INTEGER || type == SQLITE_FLOAT) return sqlite3_value_double(value);
    if (type == SQLITE_TEXT) {
        std::string_view text = Trimmed(TextArgument(value));
        if (!text.empty() && text.front() == '+') text.remove_prefix(1);
        double number = 0;
        const auto parsed = std::from_chars(text.data(), text.data() + text.size(), number);
        const bool whole = parsed.ptr == text.data() + text.size() && !text.empty();
        if (whole && parsed.ec == std::errc() && std::isfinite(number)) return number;
    }
    FailFunction(context, kConversion, "Data type conversion error.");
    return std::nullopt;
}

double RoundHalfEven(double value) {
    const double below = std::floor(value);
    const double rest = value - below;
    if (rest != 0.5) return std::round(value);
    return std::fmod(below, 2) == 0 ? below : below + 1;
}

void Register(sqlite3* connection, const FunctionEntry& entry) {
    const int flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
    const int status = sqlite3_create_function_v2(connection, entry.name, entry.arguments, flags, nullptr,
                                                  entry.function, nullptr, nullptr, nullptr);
    if (status != SQLITE_OK) Fail(kOutOfMemory, "Out of memory.");
}

void RegisterFunctions(sqlite3* connection) {
    if (RegisterCollation(connection) != SQLITE_OK || RegisterRowList(connection) != SQLITE_OK)
        Fail(kOutOfMemory, "Out of memory.");
    RegisterStoreFunctions(connection);
    RegisterTextFunctions(connection);
}

std::optional<jet::Error> ErrorFromMessage(const char* message) {
    constexpr std::size_t kPrefixLength = sizeof kErrorPrefix - 1;
    if (message == nullptr || std::strncmp(message, kErrorPrefix, kPrefixLength) != 0) return std::nullopt;
    const char* digits = message + kPrefixLength;
    int number = 0;
    const auto parsed = std::from_chars(digits, digits + std::strlen(digits), number);
    if (parsed.ec != std::errc() || *parsed.ptr != ':') return std::nullopt;
    return jet::Error(number, parsed.ptr + 1);
}

}  // namespace jetsql
