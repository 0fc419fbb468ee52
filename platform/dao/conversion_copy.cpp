#include <sqlite3.h>

#include <algorithm>

#include "dao/bookkeeping.h"
#include "dao/conversion.h"
#include "dao/conversion_steps.h"
#include "dao/errors.h"
#include "jet/error.h"
#include "jetsql/ddl.h"
#include "jetsql/names.h"

namespace daoengine {
namespace {

constexpr int kDuplicateKey = 3022;
constexpr double kCurrencyUnit = 10000.0;

// Binds one value of a row as the engine stores values of the column's type. The bytes belong to the row.
struct ValueBinder {
    sqlite3_stmt* statement;
    int parameter;
    jet::Type type;

    int operator()(std::monostate) const { return sqlite3_bind_null(statement, parameter); }
    int operator()(std::int64_t value) const {
        if (type != jet::Type::Currency) return sqlite3_bind_int64(statement, parameter, value);
        return sqlite3_bind_double(statement, parameter, static_cast<double>(value) / kCurrencyUnit);
    }
    int operator()(double value) const { return sqlite3_bind_double(statement, parameter, value); }
    int operator()(const std::string& value) const {
        return sqlite3_bind_text64(statement, parameter, value.data(), value.size(), SQLITE_STATIC,
                                   SQLITE_UTF8);
    }
    int operator()(const jetfile::Blob& value) const {
        // An empty blob is not Null.
        if (value.empty()) return sqlite3_bind_zeroblob(statement, parameter, 0);
        return sqlite3_bind_blob64(statement, parameter, value.data(), value.size(), SQLITE_STATIC);
    }
};

std::string InsertSql(const jet::Table& table) {
    std::string sql = "INSERT INTO " + jetsql::Quoted(table.name) + " VALUES (?";
    for (std::size_t i = 1; i < table.columns.size(); ++i)
        sql += ", ?";
    return sql + ")";
}

void InsertRow(Engine& engine, Statement& insert, const jet::Table& table, const jetfile::Row& row) {
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        const ValueBinder binder{insert.Handle(), static_cast<int>(i) + 1, table.columns[i].type};
        const int result = i < row.size() ? std::visit(binder, row[i]) : binder(std::monostate());
        if (result != SQLITE_OK) ThrowEngineError(engine.Handle(), result, Work::Rows);
    }
    insert.Step();
    insert.Reset();
}

void CopyRows(const jetfile::Reader& reader, const jet::Table& table, Engine& target) {
    Statement insert(target, InsertSql(table), Work::Rows);
    reader.ReadRows(table.name, [&](jetfile::Row&& row) {
        InsertRow(target, insert, table, row);
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
