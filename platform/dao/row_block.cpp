#include "dao/row_block.h"

namespace daoengine {

void RowBlock::Append(sqlite3_stmt* statement) {
    for (int column = 0; column < columns_; ++column) {
        const FieldView field = FieldOf(statement, column);
        Cell cell{};
        cell.kind = field.kind;
        if (field.kind >= FieldView::Kind::Text) {
            cell.offset = bytes_.size();
            cell.length = static_cast<std::uint32_t>(field.bytes.size());
            bytes_ += field.bytes;
        } else if (field.kind == FieldView::Kind::Real) {
            cell.real = field.real;
        } else {
            cell.integer = field.integer;
        }
        cells_.push_back(cell);
    }
    ++rows_;
}

void RowBlock::Trim() {
    cells_.shrink_to_fit();
    bytes_.shrink_to_fit();
}

}  // namespace daoengine
