#include "dao/row_block.h"

namespace daoengine {

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
