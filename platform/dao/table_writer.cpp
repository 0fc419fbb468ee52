#include "dao/table_writer.h"

#include <sqlite3.h>

namespace daoengine {
namespace {

// Binds one value of a row. The bytes belong to the row.
struct ValueBinder {
    sqlite3_stmt* statement;
    int parameter;
    jet::Type type;

    int operator()(std::monostate) const { return sqlite3_bind_null(statement, parameter); }
    int operator()(std::int64_t value) const {
        if (type != jet::Type::Currency) return sqlite3_bind_int64(statement, parameter, value);
        return sqlite3_bind_double(statement, parameter, static_cast<double>(value) / jet::kCurrencyUnit);
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

std::string InsertSql(const jet::Table& table, const std::string& sqlName) {
    std::string sql = "INSERT INTO " + sqlName + " VALUES (?";
    for (std::size_t column = 1; column < table.columns.size(); ++column)
        sql += ", ?";
    return sql + ")";
}

}  // namespace

TableWriter::TableWriter(Engine& engine, const jet::Table& table, const std::string& sqlName)
    : engine_(engine), table_(table), insert_(engine, InsertSql(table, sqlName), Work::Rows) {}

void TableWriter::Insert(const jetfile::Row& row) {
    for (std::size_t column = 0; column < table_.columns.size(); ++column) {
        const ValueBinder binder{insert_.Handle(), static_cast<int>(column) + 1, table_.columns[column].type};
        const int code = column < row.size() ? std::visit(binder, row[column]) : binder(std::monostate());
        if (code != SQLITE_OK) ThrowEngineError(engine_.Handle(), code, Work::Rows);
    }
    insert_.Step();
    insert_.Reset();
}

}  // namespace daoengine
