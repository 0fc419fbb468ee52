#include "dao/conversion.h"

#include "dao/bookkeeping.h"
#include "dao/conversion_steps.h"
#include "dao/table_writer.h"
#include "jet/error.h"
#include "jetsql/ddl.h"
#include "jetsql/names.h"

namespace daoengine {
namespace {

constexpr int kDuplicateKey = 3022;

void CopyRows(const jetfile::Reader& reader, const jet::Table& table, Engine& target) {
    TableWriter writer(target, table, jetsql::Quoted(table.name));
    reader.ReadRows(table.name, [&](const jetfile::Row& row) {
        writer.Insert(row);
        return true;
    });
}

// An index is there for speed and for keys. One whose keys the engine finds equal where Jet told them apart
// is no reason to refuse the file.
void CopyIndex(const jet::Table& table, jet::Index index, Engine& target) {
    try {
        target.Run(jetsql::CreateIndexSql(table.name, index), Work::Design);
    } catch (const jet::Error& error) {
        if (!index.unique || error.Number() != kDuplicateKey) throw;
        index.unique = false;
        target.Run(jetsql::CreateIndexSql(table.name, index), Work::Design);
    }
}

void CopyTable(const jetfile::Reader& reader, const jet::Table& table, Engine& target) {
    target.Run(jetsql::CreateTableSql(table), Work::Design);
    CopyRows(reader, table, target);
    for (const jet::Index& index : table.indexes)
        CopyIndex(table, index, target);
    PassStep(ConversionStep::TableCopied);
}

}  // namespace

std::vector<const jet::Table*> TablesToConvert(const jetfile::Reader& reader) {
    std::vector<const jet::Table*> tables;
    for (const jet::Table& table : reader.Tables())
        if (!table.columns.empty()) tables.push_back(&table);
    return tables;
}

void CopyDatabase(const jetfile::Reader& reader, const std::string& password, Engine& target) {
    target.Run("BEGIN");
    WriteBookkeeping(target, password, reader.Queries());
    for (const jet::Table* const table : TablesToConvert(reader))
        CopyTable(reader, *table, target);
    target.Run("COMMIT");
}

}  // namespace daoengine
