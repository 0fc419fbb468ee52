#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

struct sqlite3_stmt;

namespace daoengine {

// A value of one column of one row, as the engine stores it. The bytes belong to the row.
struct FieldView {
    enum class Kind : std::uint8_t { Null, Integer, Real, Text, Blob };

    Kind kind = Kind::Null;
    std::int64_t integer = 0;
    double real = 0;
    std::string_view bytes;
};

// A column of the row on which a statement stands.
FieldView FieldOf(sqlite3_stmt* statement, int column);

// Rows kept in memory, all values of one block in two pieces of storage.
class RowBlock {
  public:
    explicit RowBlock(int columns) : columns_(columns) {}

    // Copies the row on which a statement stands.
    void Append(sqlite3_stmt* statement);

    std::int64_t Rows() const { return rows_; }
    std::size_t Bytes() const { return cells_.size() * sizeof(Cell) + bytes_.size(); }
    FieldView At(std::int64_t row, int column) const;

  private:
    struct Cell {
        union {
            std::int64_t integer;
            double real;
            std::uint64_t offset;
        };
        std::uint32_t length;
        FieldView::Kind kind;
    };

    int columns_;
    std::int64_t rows_ = 0;
    std::vector<Cell> cells_;
    std::string bytes_;
};

}  // namespace daoengine
