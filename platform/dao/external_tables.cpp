#include "dao/external_tables.h"

#include <utility>

#include "dao/connect_string.h"
#include "dao/connection.h"
#include "dao/database_file.h"
#include "dao/table_writer.h"
#include "jetsql/ddl.h"
#include "jetsql/names.h"
#include "mfc/narrow.h"

namespace daoengine {
namespace {

constexpr int kNoDatabase = 3321;

// The names that the copies have, in the order in which a statement names their tables.
std::string CopyName(std::size_t number) {
    return "external" + std::to_string(number);
}

std::string SqlName(const std::string& name) {
    return "temp." + jetsql::Quoted(name);
}

std::string CreateSql(const jet::Table& definition) {
    constexpr std::string_view kCreate = "CREATE ";
    return "CREATE TEMP " + jetsql::CreateTableSql(definition).substr(kCreate.size());
}

// Reads a table into a new temporary one. Its definition comes after its rows.
jet::Table Copy(Engine& engine, const std::string& path, const std::string& password,
                const std::string& table, const std::string& copyName) {
    std::vector<jetfile::Row> rows;
    jet::Table definition =
        ReadExternalTable(path, password, table, [&](const jetfile::Row& row) { rows.push_back(row); });
    definition.indexes.clear();
    jet::Table copy = definition;
    copy.name = copyName;
    engine.Run(CreateSql(copy));
    Savepoint savepoint(engine);
    TableWriter writer(engine, copy, SqlName(copyName));
    for (const jetfile::Row& row : rows)
        writer.Insert(row);
    savepoint.Release();
    return definition;
}

}  // namespace

jetsql::Catalogue::ExternalTable ExternalTables::Read(std::string_view table, std::string_view path,
                                                      std::string_view connect) {
    const ConnectOptions options = ParseConnect(connect);
    auto source = std::make_unique<Source>();
    source->path = NarrowFromUtf8(path.empty() ? options.database : std::string(path));
    if (source->path.empty()) Throw(kNoDatabase, "No database is named in the IN clause.");
    source->password = options.password;
    source->name = table;
    if (!engine_)
        engine_ = std::make_shared<Engine>(CreatePrivateDatabase().release(), Engine::Ownership::Owned);
    const std::string copyName = CopyName(tables_.size());
    source->definition = Copy(*engine_, source->path, source->password, source->name, copyName);
    tables_.push_back(std::move(source));
    return {&tables_.back()->definition, SqlName(copyName)};
}

std::shared_ptr<Engine> ExternalTables::Take() {
    return std::exchange(engine_, nullptr);
}

void ExternalTables::CopyInto(Engine& engine) const {
    DropFrom(engine);
    for (std::size_t number = 0; number < tables_.size(); ++number) {
        const Source& source = *tables_[number];
        Copy(engine, source.path, source.password, source.name, CopyName(number));
    }
}

void ExternalTables::DropFrom(Engine& engine) {
    for (std::size_t number = 0;
         engine.Number("SELECT count(*) FROM temp.sqlite_schema WHERE name = '" + CopyName(number) + "'") > 0;
         ++number)
        engine.Run("DROP TABLE " + SqlName(CopyName(number)));
}

}  // namespace daoengine
