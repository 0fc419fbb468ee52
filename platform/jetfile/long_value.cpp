#include "jetfile/long_value.h"

#include <algorithm>

#include "jetfile/data_page.h"

namespace jetfile {
namespace {

constexpr std::size_t kHeadSize = 12;
constexpr std::uint32_t kLengthMask = 0x3FFFFFFF;
constexpr std::uint32_t kInlineBit = 0x80000000;
constexpr std::uint32_t kSinglePieceBit = 0x40000000;

void AppendUpTo(std::size_t length, ByteView piece, Blob& value) {
    const std::size_t count = std::min(length - value.size(), piece.Size());
    value.insert(value.end(), piece.begin(), piece.begin() + count);
}

// The piece stays valid as long as `page` lives.
ByteView Piece(const DataPage& page, std::uint32_t row, ReadBudget& budget) {
    if (page.Owner() != kLongValueOwner) ThrowDamaged("a long value on a page of another kind");
    const ByteView piece = page.Row(row).bytes;
    budget.Spend(piece.Size() + 1);
    return piece;
}

void AppendChain(const DatabaseFile& file, std::uint32_t pointer, std::size_t length, ReadBudget& budget,
                 Blob& value) {
    while (value.size() < length && pointer != 0) {
        const RowPointer at(pointer);
        const DataPage page(file, at.page);
        const ByteView piece = Piece(page, at.row, budget);
        AppendUpTo(length, piece.From(4), value);
        pointer = piece.U32(0);
    }
}

}  // namespace

Blob ReadLongValue(const DatabaseFile& file, ByteView field, ReadBudget& budget) {
    Blob value;
    if (field.Size() == 0) return value;
    const std::uint32_t head = field.U32(0);
    const std::size_t length = head & kLengthMask;
    const std::uint32_t pointer = field.Sub(0, kHeadSize).U32(4);
    if ((head & kInlineBit) != 0) {
        AppendUpTo(length, field.From(kHeadSize), value);
    } else if (length > 0 && (head & kSinglePieceBit) != 0) {
        const DataPage page(file, RowPointer(pointer).page);
        AppendUpTo(length, Piece(page, RowPointer(pointer).row, budget), value);
    } else {
        AppendChain(file, pointer, length, budget, value);
    }
    if (value.size() != length) ThrowDamaged("a long value ends too early");
    return value;
}

}  // namespace jetfile
