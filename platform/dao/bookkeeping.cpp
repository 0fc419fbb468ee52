#include "dao/bookkeeping.h"

#include <sqlite3.h>

#include "dao/errors.h"

namespace daoengine {
namespace {

constexpr int kWrongPassword = 3031;
constexpr int kUnknownFormat = 3343;
constexpr const char* kFormatVersion = "1";

void BindTexts(Statement& statement, const std::vector<std::string>& texts) {
    std::vector<jetsql::Literal> literals(texts.begin(), texts.end());
    statement.Reset();
    statement.Bind(literals);
    statement.Step();
    statement.Reset();
}

void WriteQueries(Engine& engine, const std::vector<jetfile::StoredQuery>& queries) {
    Statement insert(engine, "INSERT INTO \"~jet_queries\" (name, sql, problem) VALUES (?1, ?2, ?3)",
                     Work::Rows);
    for (const jetfile::StoredQuery& query : queries)
        BindTexts(insert, {query.name, query.sql, query.problem});
}

bool HasProperties(Engine& engine) {
    return engine.Number(
               "SELECT count(*) FROM sqlite_schema WHERE type = 'table' AND name = '~jet_properties'") > 0;
}

std::string Property(Engine& engine, const char* name) {
    Statement statement(engine, "SELECT value FROM \"~jet_properties\" WHERE name = ?1", Work::Rows);
    const std::vector<jetsql::Literal> parameters{std::string(name)};
    statement.Bind(parameters);
    if (!statement.Step()) return {};
    const auto* const text = reinterpret_cast<const char*>(sqlite3_column_text(statement.Handle(), 0));
    return text ? text : std::string();
}

}  // namespace

void WriteBookkeeping(Engine& engine, const std::string& password,
                      const std::vector<jetfile::StoredQuery>& queries) {
    engine.Run("CREATE TABLE \"~jet_properties\" (name TEXT NOT NULL, value TEXT NOT NULL)");
    engine.Run(
        "CREATE TABLE \"~jet_queries\" (name TEXT NOT NULL, sql TEXT NOT NULL, problem TEXT NOT NULL)");
    Statement insert(engine, "INSERT INTO \"~jet_properties\" (name, value) VALUES (?1, ?2)", Work::Rows);
    BindTexts(insert, {"format", kFormatVersion});
    BindTexts(insert, {"password", password});
    WriteQueries(engine, queries);
}

void CheckBookkeeping(Engine& engine, const std::string& password) {
    if (!HasProperties(engine)) return;
    if (Property(engine, "format") != kFormatVersion)
        Throw(kUnknownFormat, "Unrecognized database format: the file was made by a later version.");
    const std::string required = Property(engine, "password");
    if (!required.empty() && required != password) Throw(kWrongPassword, "Not a valid password.");
}

}  // namespace daoengine
