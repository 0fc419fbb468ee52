#include "jetfile/index_definition.h"

#include <algorithm>

namespace jetfile {
namespace {

constexpr std::size_t kMaxIndexColumns = 10;
constexpr std::uint16_t kNoColumn = 0xFFFF;
constexpr std::uint8_t kAscending = 1;
constexpr std::uint8_t kUniqueFlag = 0x01;
constexpr std::uint8_t kIgnoreNullsFlag = 0x02;
constexpr std::uint8_t kRequiredFlag = 0x08;
constexpr std::uint8_t kPrimaryKind = 1;
constexpr std::uint8_t kForeignKind = 2;

std::vector<jet::IndexColumn> ReadIndexColumns(ByteView entries, const std::vector<StoredColumn>& columns) {
    std::vector<jet::IndexColumn> keys;
    for (std::size_t i = 0; i < kMaxIndexColumns; ++i) {
        const std::uint16_t number = entries.U16(3 * i);
        if (number == kNoColumn) continue;
        const auto column = std::find_if(columns.begin(), columns.end(),
                                         [&](const StoredColumn& stored) { return stored.number == number; });
        if (column == columns.end()) ThrowDamaged("an index over a column that its table does not have");
        keys.push_back({column->column.name, entries.U8(3 * i + 2) != kAscending});
    }
    return keys;
}

}  // namespace

std::vector<jet::Index> ReadIndexes(const Layout& layout, const IndexLists& lists,
                                    const std::vector<StoredColumn>& columns) {
    std::vector<jet::Index> indexes;
    for (std::size_t i = 0; i < lists.logicalNames.size(); ++i) {
        const ByteView logical = lists.logical.Sub(i * layout.logicalIndexSize, layout.logicalIndexSize);
        const std::uint8_t kind = logical.U8(layout.logicalKindAt);
        if (kind == kForeignKind) continue;
        const std::size_t realNumber = logical.U32(layout.logicalRealIndexAt);
        if (realNumber >= lists.real.Size() / layout.realIndexSize)
            ThrowDamaged("a name for a missing index");
        const ByteView real = lists.real.Sub(realNumber * layout.realIndexSize, layout.realIndexSize);
        const std::uint8_t flags = real.U8(layout.realIndexFlagsAt);
        indexes.push_back({.name = lists.logicalNames[i],
                           .columns = ReadIndexColumns(real.From(layout.realIndexColumnsAt), columns),
                           .unique = (flags & kUniqueFlag) != 0,
                           .primary = kind == kPrimaryKind,
                           .ignoreNulls = (flags & kIgnoreNullsFlag) != 0,
                           .required = (flags & kRequiredFlag) != 0});
    }
    return indexes;
}

}  // namespace jetfile
