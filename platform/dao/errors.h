#pragma once

#include <string>

struct sqlite3;

// DAO's error numbers as this engine raises them, and the one place where the embedded engine's codes become
// them.
namespace daoengine {

// The standard text of a number; empty where the engine has none.
std::string TextOf(int number);

// Throws jet::Error with the number's standard text, or with `detail` in its place.
[[noreturn]] void Throw(int number);
[[noreturn]] void Throw(int number, const std::string& detail);

// What a statement was doing when it failed: a lock met on rows is 3218, one met on a table's design 3211.
enum class Work { Rows, Design };

// Throws the jet::Error for the last failure of a connection; `code` is what the failing call returned.
[[noreturn]] void ThrowEngineError(sqlite3* engine, int code, Work work);

}  // namespace daoengine
