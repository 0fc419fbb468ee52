#include "dao/row_block.h"

#include <sqlite3.h>

namespace daoengine {

FieldView FieldOf(sqlite3_stmt* statement, int column) {
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
        case SQLITE_TEXT: {
            const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
            field.kind = FieldView::Kind::Text;
            field.bytes = {text, static_cast<std::size_t>(sqlite3_value_bytes(value))};
            break;
        }
        case SQLITE_BLOB: {
            const auto* bytes = static_cast<const char*>(sqlite3_value_blob(value));
            field.kind = FieldView::Kind::Blob;
            field.bytes = {bytes, static_cast<std::size_t>(sqlite3_value_bytes(value))};
            break;
        }
        default:
            break;
    }
    return field;
}

void RowBlock::Append(sqlite3_stmt* statement) {
    for (int column = 0; column < columns_; ++column) {
        const FieldView field = FieldOf(statement, column);
        Cell cell{};
        cell.kind = field.kind;
        if (field.kind == FieldView::Kind::Real) {
            cell.real = field.real;
        } else if (field.kind == FieldView::Kind::Integer) {
            cell.integer = field.integer;
        } else {
            cell.offset = bytes_.size();
            cell.length = static_cast<std::uint32_t>(field.bytes.size());
            bytes_ += field.bytes;
        }
        cells_.push_back(cell);
    }
    ++rows_;
}

FieldView RowBlock::At(std::int64_t row, int column) const {
    const Cell& cell = cells_[static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_) +
                              static_cast<std::size_t>(column)];
    FieldView field;
    field.kind = cell.kind;
    if (cell.kind == FieldView::Kind::Real)
        field.real = cell.real;
    else if (cell.kind == FieldView::Kind::Integer)
        field.integer = cell.integer;
    else
        field.bytes = std::string_view(bytes_).substr(static_cast<std::size_t>(cell.offset), cell.length);
    return field;
}

}  // namespace daoengine
