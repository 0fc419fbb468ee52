#include "plain_database.h"

#include <cstdlib>
#include <iostream>
#include <vector>

namespace bench {
namespace {

[[noreturn]] void Give(sqlite3* database, const std::string& sql) {
    std::cerr << sqlite3_errmsg(database) << ": " << sql << '\n';
    std::exit(EXIT_FAILURE);
}

int CompareWithoutCase(void*, int lengthA, const void* a, int lengthB, const void* b) {
    const int order = sqlite3_strnicmp(static_cast<const char*>(a), static_cast<const char*>(b),
                                       std::min(lengthA, lengthB));
    return order != 0 ? order : lengthA - lengthB;
}

struct Table {
    std::string name;
    std::string columns;
};

std::vector<Table> TablesOf(const PlainDatabase& database) {
    std::vector<Table> tables;
    Query names = database.Prepare(
        "SELECT name FROM source.sqlite_schema WHERE type = 'table' AND name NOT LIKE 'sqlite%'");
    while (names.Step()) {
        Table table{std::string(names.Text(0)), {}};
        Query columns = database.Prepare("PRAGMA source.table_info([" + table.name + "])");
        while (columns.Step()) {
            table.columns += table.columns.empty() ? "[" : ", [";
            table.columns += std::string(columns.Text(1)) + "] " + std::string(columns.Text(2));
        }
        tables.push_back(table);
    }
    return tables;
}

void Erase(std::string& text, std::string_view part) {
    for (auto at = text.find(part); at != std::string::npos; at = text.find(part))
        text.erase(at, part.size());
}

void CopyIndexes(const PlainDatabase& database) {
    std::vector<std::string> statements;
    Query indexes =
        database.Prepare("SELECT sql FROM source.sqlite_schema WHERE type = 'index' AND sql IS NOT NULL");
    while (indexes.Step())
        statements.emplace_back(indexes.Text(0));
    for (std::string& sql : statements) {
        Erase(sql, " COLLATE JET");
        database.Run(sql);
    }
}

}  // namespace

Query::Query(sqlite3* database, const std::string& sql) {
    sqlite3_stmt* statement = nullptr;
    const int code = sqlite3_prepare_v3(database, sql.data(), static_cast<int>(sql.size()),
                                        SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    handle_.reset(statement);
    if (code != SQLITE_OK) Give(database, sql);
}

bool Query::Step() {
    const int code = sqlite3_step(handle_.get());
    if (code == SQLITE_ROW) return true;
    if (code != SQLITE_DONE) Give(sqlite3_db_handle(handle_.get()), sqlite3_sql(handle_.get()));
    return false;
}

std::string_view Query::Text(int column) const {
    const auto* const text = reinterpret_cast<const char*>(sqlite3_column_text(handle_.get(), column));
    if (text == nullptr) return {};
    return {text, static_cast<std::size_t>(sqlite3_column_bytes(handle_.get(), column))};
}

PlainDatabase::PlainDatabase(const std::filesystem::path& file) {
    sqlite3* database = nullptr;
    const int code = sqlite3_open_v2(
        file.c_str(), &database, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX, nullptr);
    handle_.reset(database);
    if (code != SQLITE_OK) Give(database, file);
    // The library's files order texts by a collation of this name.
    sqlite3_create_collation(database, "JET", SQLITE_UTF8, nullptr, CompareWithoutCase);
    Run("PRAGMA journal_mode = WAL; PRAGMA synchronous = NORMAL; PRAGMA temp_store = MEMORY; "
        "PRAGMA cache_size = -8000");
}

void PlainDatabase::Run(const std::string& sql) const {
    if (sqlite3_exec(handle_.get(), sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
        Give(handle_.get(), sql);
}

std::int64_t PlainDatabase::Number(const std::string& sql) const {
    Query query = Prepare(sql);
    return query.Step() ? query.Number(0) : 0;
}

void MakePlainCopy(const std::filesystem::path& source, const std::filesystem::path& target) {
    const PlainDatabase database(target);
    database.Run("ATTACH '" + source.string() + "' AS source; BEGIN");
    for (const Table& table : TablesOf(database)) {
        database.Run("CREATE TABLE [" + table.name + "] (" + table.columns + "); INSERT INTO main.[" +
                     table.name + "] SELECT * FROM source.[" + table.name + "]");
    }
    CopyIndexes(database);
    database.Run("COMMIT; DETACH source; PRAGMA wal_checkpoint(TRUNCATE)");
}

}  // namespace bench
