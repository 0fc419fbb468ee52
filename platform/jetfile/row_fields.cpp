#include "jetfile/row_fields.h"

namespace jetfile {
namespace {

constexpr std::size_t kJumpSize = 256;

std::size_t FixedSize(const StoredColumn& stored) {
    switch (stored.column.type) {
        case jet::Type::Byte:
            return 1;
        case jet::Type::Integer:
            return 2;
        case jet::Type::Long:
        case jet::Type::Single:
            return 4;
        case jet::Type::Currency:
        case jet::Type::Double:
        case jet::Type::DateTime:
            return 8;
        case jet::Type::Guid:
            return 16;
        case jet::Type::Decimal:
            return 17;
        default:
            return stored.length;
    }
}

}  // namespace

RowFields::RowFields(const Layout& layout, ByteView row, bool hasVariableColumns)
    : layout_(layout), row_(row) {
    columnCount_ = layout.rowHeadSize == 1 ? row.U8(0) : row.U16(0);
    const std::size_t maskSize = (columnCount_ + 7) / 8;
    if (row.Size() < layout.rowHeadSize + maskSize) ThrowDamaged("a row shorter than its null mask");
    const std::size_t maskAt = row.Size() - maskSize;
    mask_ = row.From(maskAt);
    if (!hasVariableColumns) return;
    if (layout.kind == FileKind::Jet3) {
        ReadNarrowOffsets(maskAt);
    } else {
        ReadWideOffsets(maskAt);
    }
}

void RowFields::ReadWideOffsets(std::size_t maskAt) {
    variableCount_ = row_.U16(maskAt - 2);
    if (variableCount_ >= offsets_.size() || maskAt < 4 + 2 * variableCount_) {
        ThrowDamaged("a row with too many variable fields");
    }
    for (std::size_t i = 0; i <= variableCount_; ++i)
        offsets_[i] = row_.U16(maskAt - 4 - 2 * i);
}

// Offsets of one byte reach no further than 255. A table of jumps before them names the fields from which on
// 256 more is to be added; its last entry may be a dummy.
void RowFields::ReadNarrowOffsets(std::size_t maskAt) {
    const std::size_t countAt = maskAt - 1;
    variableCount_ = row_.U8(countAt);
    std::size_t jumps = (row_.Size() - 1) / kJumpSize;
    if (countAt < jumps + variableCount_ + 2) ThrowDamaged("a row with too many variable fields");
    const std::size_t firstAt = countAt - 1 - jumps;
    if ((firstAt - variableCount_) / kJumpSize < jumps) --jumps;
    std::size_t used = 0;
    for (std::size_t i = 0; i <= variableCount_; ++i) {
        while (used < jumps && row_.U8(countAt - 1 - used) == i)
            ++used;
        offsets_[i] = static_cast<std::uint32_t>(row_.U8(firstAt - i) + used * kJumpSize);
    }
}

bool RowFields::Marked(const StoredColumn& column) const {
    return column.number < columnCount_ && (mask_.U8(column.number / 8) >> (column.number % 8) & 1) != 0;
}

ByteView RowFields::Fixed(const StoredColumn& column) const {
    return row_.Sub(layout_.rowHeadSize + column.fixedOffset, FixedSize(column));
}

std::optional<ByteView> RowFields::Bytes(const StoredColumn& column) const {
    if (!Marked(column)) return std::nullopt;
    if (column.fixed) return Fixed(column);
    if (column.variableIndex >= variableCount_) return std::nullopt;
    const std::uint32_t start = offsets_[column.variableIndex];
    const std::uint32_t end = offsets_[column.variableIndex + 1u];
    if (end < start) ThrowDamaged("variable fields of a row overlap");
    return row_.Sub(start, end - start);
}

}  // namespace jetfile
