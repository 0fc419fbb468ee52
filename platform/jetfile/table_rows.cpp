#include "jetfile/table_rows.h"

#include "jetfile/field_value.h"
#include "jetfile/usage_map.h"

namespace jetfile {

TableRows::TableRows(const DatabaseFile& file, const TableDefinition& table,
                     const std::vector<StoredColumn>& columns)
    : file_(file), table_(table), columns_(columns), budget_(file.pages.FileSize()) {}

void TableRows::ForEach(const Visit& visit) {
    for (const std::uint32_t number : MappedPages(file_, table_.ownedPages)) {
        if (!DataPage::IsDataPage(file_, number)) continue;
        const DataPage page(file_, number);
        if (page.Owner() == table_.page && !VisitPage(page, visit)) return;
    }
}

// A moved row is met at the slot that points to it; its own slot counts as deleted.
bool TableRows::VisitPage(const DataPage& page, const Visit& visit) {
    for (std::size_t i = 0; i < page.RowCount(); ++i) {
        const StoredRow row = page.Row(i);
        if (row.deleted) continue;
        if (!visit(row.moved ? DecodeMoved(row.bytes) : Decode(row.bytes))) return false;
    }
    return true;
}

Row TableRows::DecodeMoved(ByteView pointer) {
    const RowPointer at(pointer.U32(0));
    const DataPage page(file_, at.page);
    if (page.Owner() != table_.page) ThrowDamaged("a row moved to a page of another table");
    const ByteView bytes = page.Row(at.row).bytes;
    budget_.Spend(bytes.Size());
    return Decode(bytes);
}

Row TableRows::Decode(ByteView bytes) {
    const RowFields fields(file_.layout, bytes, table_.hasVariableColumns);
    Row row;
    row.reserve(columns_.size());
    for (const StoredColumn& column : columns_)
        row.push_back(Field(column, fields));
    return row;
}

Value TableRows::Field(const StoredColumn& column, const RowFields& fields) {
    if (column.column.type == jet::Type::Boolean) return std::int64_t{fields.Marked(column) ? -1 : 0};
    const std::optional<ByteView> bytes = fields.Bytes(column);
    if (!bytes) return std::monostate{};
    return DecodeField(file_, column, *bytes, budget_);
}

}  // namespace jetfile
