#include "support/memory_database.h"

#include <algorithm>
#include <stdexcept>

#include "jet/error.h"
#include "jetsql/ddl.h"
#include "jetsql/functions.h"
#include "jetsql/names.h"

namespace {

void Bind(sqlite3_stmt* statement, int index, const jetsql::Literal& literal) {
    if (const auto* integer = std::get_if<std::int64_t>(&literal)) {
        sqlite3_bind_int64(statement, index, *integer);
    } else if (const auto* real = std::get_if<double>(&literal)) {
        sqlite3_bind_double(statement, index, *real);
    } else {
        const std::string& text = std::get<std::string>(literal);
        sqlite3_bind_text(statement, index, text.c_str(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
    }
}

std::string RowOf(sqlite3_stmt* statement) {
    std::string row;
    for (int i = 0; i < sqlite3_column_count(statement); ++i) {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, i));
        row += (i > 0 ? "|" : "") + std::string(text == nullptr ? "-" : text);
    }
    return row;
}

}  // namespace

MemoryDatabase::MemoryDatabase() {
    sqlite3_open(":memory:", &connection_);
    sqlite3_db_config(connection_, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(connection_, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    jetsql::RegisterFunctions(connection_);
}

MemoryDatabase::~MemoryDatabase() {
    sqlite3_close(connection_);
}

void MemoryDatabase::AddQuery(const std::string& name, const std::string& sql) {
    queries_[jetsql::FoldedName(name)] = sql;
}

const jet::Table* MemoryDatabase::FindTable(std::string_view name) {
    const auto found = tables_.find(jetsql::FoldedName(name));
    return found == tables_.end() ? nullptr : &found->second;
}

const std::string* MemoryDatabase::FindQuery(std::string_view name) {
    const auto found = queries_.find(jetsql::FoldedName(name));
    return found == queries_.end() ? nullptr : &found->second;
}

MemoryDatabase::ExternalTable MemoryDatabase::FindExternalTable(std::string_view name, std::string_view path,
                                                                std::string_view connect) {
    externalPath = path;
    externalConnect = connect;
    const jet::Table* table = FindTable(name);
    if (table == nullptr) throw jet::Error(3078, "no such external table");
    return {table, "main." + jetsql::Quoted(table->name)};
}

void MemoryDatabase::FailNow() {
    const char* message = sqlite3_errmsg(connection_);
    if (const auto error = jetsql::ErrorFromMessage(message)) throw *error;
    if (sqlite3_errcode(connection_) == SQLITE_CONSTRAINT) throw jet::Error(3022, message);
    throw std::runtime_error(message);
}

MemoryDatabase::Prepared MemoryDatabase::Prepare(const std::string& sql,
                                                 const std::vector<jetsql::Literal>& literals) {
    sqlite3_stmt* raw = nullptr;
    const int status = sqlite3_prepare_v2(connection_, sql.c_str(), -1, &raw, nullptr);
    Prepared statement(raw);
    if (status != SQLITE_OK)
        throw std::runtime_error(std::string(sqlite3_errmsg(connection_)) + " in " + sql);
    if (sqlite3_bind_parameter_count(raw) > static_cast<int>(literals.size())) {
        throw std::runtime_error("parameters without a literal in " + sql);
    }
    for (std::size_t i = 0; i < literals.size(); ++i)
        Bind(raw, static_cast<int>(i + 1), literals[i]);
    return statement;
}

void MemoryDatabase::Finish(sqlite3_stmt* statement) {
    int status = SQLITE_ROW;
    while (status == SQLITE_ROW)
        status = sqlite3_step(statement);
    if (status != SQLITE_DONE) FailNow();
}

void MemoryDatabase::RunDirectly(const std::string& sql) {
    Finish(Prepare(sql, {}).get());
}

void MemoryDatabase::CreateTable(const jet::Table& table) {
    RunDirectly(jetsql::CreateTableSql(table));
    for (const jet::Index& index : table.indexes)
        RunDirectly(jetsql::CreateIndexSql(table.name, index));
    tables_[jetsql::FoldedName(table.name)] = table;
}

int MemoryDatabase::RunTranslated(const jetsql::Translation& translation,
                                  const std::vector<jetsql::Literal>& literals) {
    using Kind = jetsql::StatementKind;
    jet::Table& target = tables_[jetsql::FoldedName(translation.target)];
    std::string sql = translation.sql;
    switch (translation.kind) {
        case Kind::CreateTable:
            CreateTable(translation.definition);
            return 0;
        case Kind::DropTable:
            RunDirectly(jetsql::DropTableSql(translation.target));
            tables_.erase(jetsql::FoldedName(translation.target));
            return 0;
        case Kind::AddColumn:
            target.columns.push_back(translation.definition.columns.at(0));
            RunDirectly(jetsql::AddColumnSql(target.name, target.columns.back()));
            return 0;
        case Kind::DropColumn:
            std::erase_if(target.columns,
                          [&](const jet::Column& c) { return c.name == translation.dropped; });
            RunDirectly(jetsql::DropColumnSql(target.name, translation.dropped));
            return 0;
        case Kind::CreateIndex:
            target.indexes.push_back(translation.definition.indexes.at(0));
            RunDirectly(jetsql::CreateIndexSql(target.name, target.indexes.back()));
            return 0;
        case Kind::DropIndex:
            std::erase_if(target.indexes, [&](const jet::Index& i) { return i.name == translation.dropped; });
            RunDirectly(jetsql::DropIndexSql(target.name, translation.dropped));
            return 0;
        case Kind::SelectInto:
            CreateTable(translation.definition);
            sql = "INSERT INTO " + jetsql::Quoted(translation.target) + " " + sql;
            break;
        default:
            break;
    }
    Finish(Prepare(sql, literals).get());
    return sqlite3_changes(connection_);
}

int MemoryDatabase::Run(std::string_view statement) {
    const jetsql::Shape shape = jetsql::ShapeOf(statement);
    const jetsql::Translation translation = jetsql::Translate(statement, *this);
    if (translation.kind == jetsql::StatementKind::Select) {
        Finish(Prepare(translation.sql, shape.literals).get());
        return 0;
    }
    return RunTranslated(translation, shape.literals);
}

void MemoryDatabase::RunAll(std::initializer_list<std::string_view> statements) {
    for (std::string_view statement : statements)
        Run(statement);
}

std::vector<std::string> MemoryDatabase::Rows(std::string_view statement) {
    const jetsql::Shape shape = jetsql::ShapeOf(statement);
    const jetsql::Translation translation = jetsql::Translate(statement, *this);
    const Prepared prepared = Prepare(translation.sql, shape.literals);
    std::vector<std::string> rows;
    int status = SQLITE_ROW;
    while ((status = sqlite3_step(prepared.get())) == SQLITE_ROW)
        rows.push_back(RowOf(prepared.get()));
    if (status != SQLITE_DONE) FailNow();
    return rows;
}

int MemoryDatabase::ErrorOf(std::string_view statement) {
    try {
        Run(statement);
        return 0;
    } catch (const jet::Error& error) {
        return error.Number();
    }
}

std::string MemoryDatabase::PlanOf(std::string_view statement) {
    const jetsql::Translation translation = jetsql::Translate(statement, *this);
    const Prepared plan =
        Prepare("EXPLAIN QUERY PLAN " + translation.sql, jetsql::ShapeOf(statement).literals);
    std::string steps;
    while (sqlite3_step(plan.get()) == SQLITE_ROW) {
        steps += std::string(reinterpret_cast<const char*>(sqlite3_column_text(plan.get(), 3))) + '\n';
    }
    return steps;
}
