#pragma once

#include <concepts>
#include <cstdint>
#include <iterator>
#include <string>
#include <variant>
#include <vector>

// An answer: named columns and rows of values, before it is written in one of the output formats.
namespace cli {

class Cell {
  public:
    Cell() = default;
    Cell(bool value) : value_(value) {}
    Cell(std::integral auto value) : value_(static_cast<std::int64_t>(value)) {}
    Cell(float value);
    Cell(double value) : value_(value) {}
    Cell(std::string value) : value_(std::move(value)) {}
    Cell(const char* value) : value_(std::string(value)) {}

    using Value = std::variant<std::monostate, bool, std::int64_t, double, std::string>;
    const Value& Get() const { return value_; }
    bool IsNumber() const { return value_.index() == 2 || value_.index() == 3; }
    // Empty for no value.
    std::string Text() const;
    // An integer in hexadecimal, anything else as Text.
    std::string HexText() const;

  private:
    Value value_;
};

enum class Shown : std::uint8_t {
    Always,
    Detail,  // not in a table for people
    Hex,     // always; a number in hexadecimal but in JSON
};

struct Column {
    std::string name;
    Shown shown = Shown::Always;
};

struct Table {
    std::vector<Column> columns;
    std::vector<std::vector<Cell>> rows;
};

// How a field of a record is shown.
template <class Record>
struct Field {
    const char* name;
    Shown shown;
    Cell (*value)(const Record&);
};

template <class Record, std::size_t N>
Table TableOf(const Field<Record> (&fields)[N], const std::vector<Record>& records) {
    Table table;
    for (const Field<Record>& field : fields)
        table.columns.push_back({field.name, field.shown});
    for (const Record& record : records) {
        std::vector<Cell>& row = table.rows.emplace_back();
        for (const Field<Record>& field : fields)
            row.push_back(field.value(record));
    }
    return table;
}

}  // namespace cli
