#include <array>
#include <cstdio>
#include <string>

#include "jetsql/dates.h"
#include "jetsql/function_values.h"
#include "jetsql/like.h"

// Values as texts, and what is done with texts.
namespace jetsql {
namespace {

void RealResult(sqlite3_context* context, const char* format, double value) {
    std::array<char, 40> buffer{};
    std::snprintf(buffer.data(), buffer.size(), format, value);
    std::string text = buffer.data();
    for (char& c : text) {
        if (c == 'e') c = 'E';
    }
    TextResult(context, text);
}

void NumberAsText(sqlite3_context* context, int, sqlite3_value** values) {
    if (IsNull(values[0])) return;
    if (sqlite3_value_type(values[0]) != SQLITE_FLOAT) return TextResult(context, TextArgument(values[0]));
    RealResult(context, "%.15g", sqlite3_value_double(values[0]));
}

void SingleAsText(sqlite3_context* context, int, sqlite3_value** values) {
    if (!IsNull(values[0])) RealResult(context, "%.7g", sqlite3_value_double(values[0]));
}

void DateAsText(sqlite3_context* context, int, sqlite3_value** values) {
    if (!IsNull(values[0])) TextResult(context, FormatDate(sqlite3_value_double(values[0])));
}

// `&`: a Null counts as nothing, but two of them give Null.
void Concat(sqlite3_context* context, int, sqlite3_value** values) {
    if (IsNull(values[0]) && IsNull(values[1])) return;
    std::string text(TextArgument(values[0]));
    text += TextArgument(values[1]);
    TextResult(context, text);
}

void Like(sqlite3_context* context, int, sqlite3_value** values) {
    if (IsNull(values[0]) || IsNull(values[1])) return;
    sqlite3_result_int(context, MatchesPattern(TextArgument(values[0]), TextArgument(values[1])) ? 1 : 0);
}

}  // namespace

void RegisterTextFunctions(sqlite3* connection) {
    static constexpr FunctionEntry kFunctions[] = {
        {"jet_text", 1, NumberAsText},
        {"jet_text_single", 1, SingleAsText},
        {"jet_text_date", 1, DateAsText},
        {"jet_concat", 2, Concat},
        {"jet_like", 2, Like},
    };
    for (const FunctionEntry& entry : kFunctions)
        Register(connection, entry);
}

}  // namespace jetsql
