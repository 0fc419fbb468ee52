#pragma once

#include <sqlite3.h>

#include <optional>
#include <string_view>

// What the SQL functions share: their arguments, results and failures.
namespace jetsql {

bool IsNull(sqlite3_value* value);
std::string_view TextArgument(sqlite3_value* value);
void TextResult(sqlite3_context* context, std::string_view text);

// Makes the statement fail with a DAO number, which ErrorFromMessage reads back.
void FailFunction(sqlite3_context* context, int number, const char* text);

// A number out of a number or a text; fails the function (3421) and gives nothing when it is neither.
std::optional<double> NumberArgument(sqlite3_context* context, sqlite3_value* value);

// The nearest whole number, half to even.
double RoundHalfEven(double value);

using Function = void (*)(sqlite3_context*, int, sqlite3_value**);

struct FunctionEntry {
    const char* name;
    int arguments;
    Function function;
};

void RegisterStoreFunctions(sqlite3* connection);
void RegisterTextFunctions(sqlite3* connection);
void Register(sqlite3* connection, const FunctionEntry& entry);

}  // namespace jetsql
