#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace daoengine {

// A value of one column of one row, as the engine stores it: what its kind says. The bytes belong to the row.
struct FieldView {
    enum class Kind : std::uint8_t { Null, Integer, Real, Text, Blob };

    FieldView() : integer(0) {}

    Kind kind = Kind::Null;
    union {
        std::int64_t integer;
        double real;
        std::string_view bytes;  // of a text or blob
    };
};

// A column of the row on which a statement stands.
inline FieldView FieldOf(sqlite3_stmt* statement, int column) {
    sqlite3_value* value = sqlite3_column_value(statement, column);
    FieldView field;
    switch (sqlite3_value_type(value)) {
        case SQLITE_INTEGER:
            field.kind = FieldView::Kind::Integer;
            field.integer = sqlite3_value_int64(value);
            break;
        case SQLITE_FLOAT:
            field.kind = FieldView::Kind::Real;
            field.real = sqlite3_value_double(value);
            break;
        case SQLITE_TEXT:
            field.kind = FieldView::Kind::Text;
            field.bytes = {reinterpret_cast<const char*>(sqlite3_value_text(value)),
                           static_cast<std::size_t>(sqlite3_value_bytes(value))};
            break;
        case SQLITE_BLOB:
            field.kind = FieldView::Kind::Blob;
            field.bytes = {static_cast<const char*>(sqlite3_value_blob(value)),
                           static_cast<std::size_t>(sqlite3_value_bytes(value))};
            break;
        default:
            break;
    }
    return field;
}

// Rows kept in memory, all values of one block in two pieces of storage.
class RowBlock {
  public:
    explicit RowBlock(int columns) : columns_(columns) {}

    // Copies the row on which a statement stands.
    void Append(sqlite3_stmt* statement);
    // Gives back what was reserved for more rows.
    void Trim();

    std::int64_t Rows() const { return rows_; }
    std::size_t Bytes() const { return cells_.size() * sizeof(Cell) + bytes_.size(); }
    FieldView At(std::int64_t row, int column) const {
        const Cell& cell = cells_[static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_) +
                                  static_cast<std::size_t>(column)];
        FieldView field;
        field.kind = cell.kind;
        if (cell.kind >= FieldView::Kind::Text)
            field.bytes = {bytes_.data() + cell.offset, cell.length};
        else if (cell.kind == FieldView::Kind::Real)
            field.real = cell.real;
        else
            field.integer = cell.integer;
        return field;
    }

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
