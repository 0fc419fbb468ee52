#include <sqlite3.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>

#include "dao/bookkeeping.h"
#include "dao/connection.h"
#include "dao/database_file.h"
#include "dao/errors.h"
#include "dao/file_kind.h"
#include "dao/row_block.h"
#include "dao/table_definition.h"
#include "jetsql/names.h"
#include "system/file_path.h"
#include "system/open_files.h"

namespace fs = std::filesystem;

namespace daoengine {
namespace {

using RowVisitor = std::function<void(const jetfile::Row&)>;

constexpr int kTableNotFound = 3078;

jet::Table ReadJetTable(const fs::path& path, const std::string& password, const std::string& name,
                        const RowVisitor& visit) {
    const jetfile::Reader reader(fileio::NarrowPath(path), password);
    for (const jet::Table& table : reader.Tables()) {
        if (!jetsql::SameName(table.name, name)) continue;
        reader.ReadRows(table.name, [&](jetfile::Row&& row) {
            visit(row);
            return true;
        });
        return table;
    }
    Throw(kTableNotFound);
}

std::string DecimalDigits(double value, int scale) {
    char digits[400];
    const int length = std::snprintf(digits, sizeof digits, "%.*f", std::clamp(scale, 0, 28), value);
    return {digits, static_cast<std::size_t>(length)};
}

jetfile::Value NumberOf(double value, const jet::Column& column) {
    if (column.type == jet::Type::Currency) return std::int64_t{std::llround(value * jet::kCurrencyUnit)};
    if (column.type == jet::Type::Decimal) return DecimalDigits(value, column.scale);
    return value;
}

// A stored value in the form in which the reader of Jet files gives values of the column's type.
jetfile::Value ValueOf(const FieldView& field, const jet::Column& column) {
    switch (field.kind) {
        case FieldView::Kind::Integer:
            if (column.type == jet::Type::Decimal)
                return DecimalDigits(static_cast<double>(field.integer), column.scale);
            return field.integer;
        case FieldView::Kind::Real:
            return NumberOf(field.real, column);
        case FieldView::Kind::Text:
            return std::string(field.bytes);
        case FieldView::Kind::Blob:
            return jetfile::Blob(field.bytes.begin(), field.bytes.end());
        default:
            return std::monostate();
    }
}

jet::Table ReadEngineTable(const fs::path& path, const std::string& password, const std::string& name,
                           const RowVisitor& visit) {
    const fileio::OpenFileMark mark(path);
    Engine engine(OpenConnection(path, Access::ReadOnly).release(), Engine::Ownership::Owned);
    CheckBookkeeping(engine, password);
    const std::optional<jet::Table> table = ReadTableDefinition(engine, name);
    if (!table) Throw(kTableNotFound);
    Statement statement(engine, "SELECT * FROM " + jetsql::Quoted(table->name) + " ORDER BY rowid",
                        Work::Rows);
    jetfile::Row row(table->columns.size());
    while (statement.Step()) {
        for (std::size_t i = 0; i < row.size(); ++i)
            row[i] = ValueOf(FieldOf(statement.Handle(), static_cast<int>(i)), table->columns[i]);
        visit(row);
    }
    return *table;
}

}  // namespace

jet::Table ReadExternalTable(const std::string& path, const std::string& password, const std::string& table,
                             const RowVisitor& visit) {
    const fs::path file = fileio::FilePath(path);
    return KindOf(file) == FileKind::Engine ? ReadEngineTable(file, password, table, visit)
                                            : ReadJetTable(file, password, table, visit);
}

}  // namespace daoengine
