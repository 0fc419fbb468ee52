#include "jetfile/table_definition.h"

#include <algorithm>
#include <optional>
#include <set>

#include "jetfile/index_definition.h"
#include "jetfile/text.h"

namespace jetfile {
namespace {

constexpr std::uint8_t kDefinitionPageType = 2;
constexpr std::size_t kNextPageAt = 4;
constexpr std::size_t kContinuationAt = 8;
constexpr std::size_t kMaxDefinitionSize = 1024 * 1024;
constexpr std::size_t kMaxColumns = 255;
constexpr std::uint8_t kFixedFlag = 0x01;
constexpr std::uint8_t kCounterFlag = 0x04;

// A definition too long for its page continues on others; this is the whole of it.
Blob ReadDefinitionBytes(const DatabaseFile& file, std::uint32_t firstPage, ReadBudget& budget) {
    Blob whole;
    std::uint32_t number = firstPage;
    do {
        const Page page = file.pages.Get(number);
        if (page.bytes.U8(0) != kDefinitionPageType)
            ThrowDamaged("a table definition on a page of another kind");
        const ByteView piece = page.bytes.From(whole.empty() ? 0 : kContinuationAt);
        budget.Spend(piece.Size());
        whole.insert(whole.end(), piece.begin(), piece.end());
        if (whole.size() > kMaxDefinitionSize) ThrowDamaged("a table definition without an end");
        number = page.bytes.U32(kNextPageAt);
    } while (number != 0);
    return whole;
}

std::optional<jet::Type> TypeOf(std::uint8_t stored) {
    switch (stored) {
        case 1:
            return jet::Type::Boolean;
        case 2:
            return jet::Type::Byte;
        case 3:
            return jet::Type::Integer;
        case 4:
            return jet::Type::Long;
        case 5:
            return jet::Type::Currency;
        case 6:
            return jet::Type::Single;
        case 7:
            return jet::Type::Double;
        case 8:
            return jet::Type::DateTime;
        case 9:
            return jet::Type::Binary;
        case 10:
            return jet::Type::Text;
        case 11:
            return jet::Type::LongBinary;
        case 12:
            return jet::Type::Memo;
        case 15:
            return jet::Type::Guid;
        case 16:
            return jet::Type::Decimal;
        default:
            return std::nullopt;
    }
}

void DescribeSize(const Layout& layout, ByteView entry, StoredColumn& stored) {
    jet::Column& column = stored.column;
    if (column.type == jet::Type::Text)
        column.size = static_cast<int>(stored.length / layout.bytesPerCharacter);
    if (column.type == jet::Type::Binary) column.size = stored.length;
    if (column.type == jet::Type::Decimal) {
        column.precision = entry.U8(layout.precisionAt);
        column.scale = entry.U8(layout.precisionAt + 1);
    }
}

StoredColumn ReadColumnEntry(const DatabaseFile& file, ByteView entry) {
    const Layout& layout = file.layout;
    const std::uint8_t flags = entry.U8(layout.columnFlagsAt);
    const std::optional<jet::Type> type = TypeOf(entry.U8(0));
    StoredColumn stored;
    stored.readable = type.has_value();
    stored.column.type = type.value_or(jet::Type::Binary);
    stored.column.counter = (flags & kCounterFlag) != 0 && type == jet::Type::Long;
    stored.fixed = (flags & kFixedFlag) != 0;
    stored.number = entry.U16(layout.columnNumberAt);
    stored.variableIndex = entry.U16(layout.variableIndexAt);
    stored.fixedOffset = entry.U16(layout.fixedOffsetAt);
    stored.length = entry.U16(layout.columnLengthAt);
    const std::uint16_t codePage = layout.codePageAt != 0 ? entry.U16(layout.codePageAt) : 0;
    stored.codePage = codePage != 0 ? codePage : file.header.codePage;
    DescribeSize(layout, entry, stored);
    return stored;
}

std::string ReadName(const DatabaseFile& file, ByteCursor& cursor) {
    const std::size_t length = file.header.kind == FileKind::Jet3 ? cursor.U8() : cursor.U16();
    return file.DecodeName(cursor.Take(length));
}

std::vector<StoredColumn> ReadColumns(const DatabaseFile& file, std::size_t count, ByteCursor& cursor) {
    if (count > kMaxColumns) ThrowDamaged("a table with too many columns");
    std::vector<StoredColumn> columns;
    for (std::size_t i = 0; i < count; ++i) {
        columns.push_back(ReadColumnEntry(file, cursor.Take(file.layout.columnEntrySize)));
    }
    std::set<std::string> names;
    std::set<std::uint16_t> numbers;
    for (StoredColumn& stored : columns) {
        stored.column.name = ReadName(file, cursor);
        const bool fresh =
            names.insert(FoldedName(stored.column.name)).second && numbers.insert(stored.number).second;
        if (!fresh || stored.column.name.empty()) ThrowDamaged("a table with two columns in one");
    }
    return columns;
}

std::vector<std::string> ReadNames(const DatabaseFile& file, std::size_t count, ByteCursor& cursor) {
    std::vector<std::string> names;
    for (std::size_t i = 0; i < count; ++i)
        names.push_back(ReadName(file, cursor));
    return names;
}

}  // namespace

std::size_t TableDefinition::ColumnIndex(const std::string& name) const {
    const auto found = std::find_if(columns.begin(), columns.end(), [&](const StoredColumn& stored) {
        return SameName(stored.column.name, name);
    });
    if (found == columns.end()) ThrowDamaged("a system table without the column '" + name + "'");
    return static_cast<std::size_t>(found - columns.begin());
}

TableDefinition ReadTableDefinition(const DatabaseFile& file, std::uint32_t page, ReadBudget& budget) {
    const Layout& layout = file.layout;
    const Blob bytes = ReadDefinitionBytes(file, page, budget);
    const ByteView whole(bytes.data(), bytes.size());
    const std::size_t realIndexes = whole.U32(layout.realIndexCountAt);
    const std::size_t logicalIndexes = whole.U32(layout.logicalIndexCountAt);
    if (realIndexes > bytes.size() || logicalIndexes > bytes.size())
        ThrowDamaged("a table with too many indexes");

    TableDefinition table;
    table.page = page;
    table.ownedPages = whole.U32(layout.ownedPagesAt);
    table.hasVariableColumns = whole.U16(layout.variableColumnCountAt) != 0;
    ByteCursor cursor(whole.From(layout.realIndexHeadsAt));
    cursor.Take(realIndexes * layout.realIndexHeadSize);
    table.columns = ReadColumns(file, whole.U16(layout.columnCountAt), cursor);

    const ByteView real = cursor.Take(realIndexes * layout.realIndexSize);
    const ByteView logical = cursor.Take(logicalIndexes * layout.logicalIndexSize);
    const std::vector<std::string> names = ReadNames(file, logicalIndexes, cursor);
    table.indexes = ReadIndexes(layout, {real, logical, names}, table.columns);
    std::erase_if(table.columns, [](const StoredColumn& stored) { return !stored.readable; });
    return table;
}

}  // namespace jetfile
