#include "dao/table_definition.h"

#include <sqlite3.h>

#include "jetsql/ddl.h"
#include "jetsql/names.h"

namespace daoengine {
namespace {

std::string TextOfColumn(Statement& statement, int column) {
    const auto* const text = reinterpret_cast<const char*>(sqlite3_column_text(statement.Handle(), column));
    return text
               ? std::string(text, static_cast<std::size_t>(sqlite3_column_bytes(statement.Handle(), column)))
               : std::string();
}

}  // namespace

std::vector<std::string> UserTableNames(Engine& engine) {
    const std::string sql = std::string("SELECT name FROM sqlite_schema WHERE ") + kUserTableFilter;
    Statement statement(engine, sql + " ORDER BY rowid", Work::Rows);
    std::vector<std::string> names;
    while (statement.Step())
        names.push_back(TextOfColumn(statement, 0));
    return names;
}

jet::Table ReadColumns(Engine& engine, const std::string& stored) {
    jet::Table table;
    table.name = stored;
    Statement statement(engine, "PRAGMA main.table_info(" + jetsql::Quoted(stored) + ")", Work::Rows);
    while (statement.Step())
        table.columns.push_back(
            jetsql::ColumnFromDeclaration(TextOfColumn(statement, 1), TextOfColumn(statement, 2)));
    return table;
}

std::optional<jet::Table> ReadTableDefinition(Engine& engine, std::string_view name) {
    for (const std::string& stored : UserTableNames(engine))
        if (jetsql::SameName(stored, name)) return ReadColumns(engine, stored);
    return std::nullopt;
}

}  // namespace daoengine
