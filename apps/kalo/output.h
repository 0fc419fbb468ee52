#pragma once

#include <string>

#include "table.h"

namespace cli {

enum class Format { Table, Csv, Json };

// Writes an answer to standard output: aligned by display width for people, CSV by RFC 4180, or a JSON array
// of objects.
void Print(const Table& table, Format format);

// Writes UTF-8 text to standard output. A reader that has gone away is no failure.
void PrintText(const std::string& text);

}  // namespace cli
