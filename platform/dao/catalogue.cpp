#include "dao/catalogue.h"

#include <optional>
#include <utility>

#include "dao/row_block.h"
#include "dao/session.h"
#include "dao/table_definition.h"
#include "jetsql/ddl.h"
#include "jetsql/names.h"

namespace daoengine {
namespace {

// Tables of the engine's own have names that no statement reaches.
bool IsHidden(std::string_view name) {
    constexpr std::string_view kOwn = "sqlite_";
    return name.starts_with('~') || jetsql::SameName(name.substr(0, kOwn.size()), kOwn);
}

std::string TextAt(Statement& statement, int column) {
    const FieldView field = FieldOf(statement.Handle(), column);
    return field.kind == FieldView::Kind::Text ? std::string(field.bytes) : std::string();
}

jet::Index ReadIndex(Engine& engine, const std::string& sqlName) {
    jet::Index index;
    Statement columns(engine, "PRAGMA main.index_xinfo(" + jetsql::Quoted(sqlName) + ")", Work::Rows);
    while (columns.Step()) {
        const bool isKey = FieldOf(columns.Handle(), 5).integer != 0;
        if (isKey) index.columns.push_back({TextAt(columns, 2), FieldOf(columns.Handle(), 3).integer != 0});
    }
    return index;
}

void ReadIndexes(Engine& engine, jet::Table& table) {
    const std::string prefix = jetsql::IndexName(table.name, "");
    Statement list(engine, "PRAGMA main.index_list(" + jetsql::Quoted(table.name) + ")", Work::Rows);
    while (list.Step()) {
        const std::string sqlName = TextAt(list, 1);
        jet::Index index = ReadIndex(engine, sqlName);
        index.name = sqlName.starts_with(prefix) ? sqlName.substr(prefix.size()) : sqlName;
        index.unique = FieldOf(list.Handle(), 2).integer != 0;
        table.indexes.push_back(std::move(index));
    }
}

std::string StoredName(Engine& engine, const std::string& key) {
    for (const std::string& name : UserTableNames(engine))
        if (jetsql::FoldedName(name) == key) return name;
    return {};
}

}  // namespace

std::shared_ptr<const jet::Table> EngineCatalogue::FindDesign(std::string_view name) {
    if (IsHidden(name)) return nullptr;
    Entry* const entry = FindEntry(jetsql::FoldedName(name));
    if (entry == nullptr) return nullptr;
    if (!entry->design) {
        Engine& engine = session_.OwnEngine();
        jet::Table table = ReadColumns(engine, entry->name);
        ReadIndexes(engine, table);
        entry->design = std::make_shared<const jet::Table>(std::move(table));
    }
    return entry->design;
}

EngineCatalogue::Entry* EngineCatalogue::FindEntry(const std::string& key) {
    if (!namesRead_) ReadNames();
    const auto found = tables_.find(key);
    if (found == tables_.end()) return nullptr;
    Entry& entry = found->second;
    if (entry.name.empty()) entry.name = StoredName(session_.OwnEngine(), key);
    if (!entry.name.empty()) return &entry;
    tables_.erase(found);
    return nullptr;
}

void EngineCatalogue::ReadNames() {
    for (const std::string& name : UserTableNames(session_.OwnEngine()))
        tables_.try_emplace(jetsql::FoldedName(name), Entry{name, nullptr});
    namesRead_ = true;
}

const std::string* EngineCatalogue::FindQuery(std::string_view name) {
    if (!queriesRead_) ReadQueries();
    const auto found = queries_.find(jetsql::FoldedName(name));
    if (found == queries_.end()) return nullptr;
    if (found->second.sql.empty()) Throw(3075, "The stored query cannot be used: " + found->second.problem);
    return &found->second.sql;
}

void EngineCatalogue::ReadQueries() {
    Engine& engine = session_.OwnEngine();
    queriesRead_ = true;
    if (engine.Number("SELECT count(*) FROM main.sqlite_schema WHERE name = '~jet_queries'") == 0) return;
    Statement statement(engine, "SELECT name, sql, problem FROM \"~jet_queries\"", Work::Rows);
    while (statement.Step())
        queries_[jetsql::FoldedName(TextAt(statement, 0))] = {TextAt(statement, 1), TextAt(statement, 2)};
}

jetsql::Catalogue::ExternalTable EngineCatalogue::FindExternalTable(std::string_view name,
                                                                    std::string_view path,
                                                                    std::string_view connect) {
    if (externals_ == nullptr) Throw(3219);
    return externals_->Read(name, path, connect);
}

// The columns become what a later reading of their declarations would give.
void EngineCatalogue::NoteMade(const jet::Table& table) {
    jet::Table design;
    design.name = table.name;
    for (const jet::Column& column : table.columns)
        design.columns.push_back(jetsql::ColumnFromDeclaration(column.name, jetsql::DeclaredType(column)));
    if (namesRead_)
        tables_[jetsql::FoldedName(table.name)] = {table.name,
                                                   std::make_shared<const jet::Table>(std::move(design))};
}

void EngineCatalogue::NoteTable(const std::string& name) {
    if (namesRead_) tables_[jetsql::FoldedName(name)] = {name, nullptr};
}

void EngineCatalogue::NoteDropped(const std::string& name) {
    tables_.erase(jetsql::FoldedName(name));
}

void EngineCatalogue::Forget(std::string_view table) {
    if (namesRead_) tables_[jetsql::FoldedName(table)] = {};
}

void EngineCatalogue::Clear() {
    tables_.clear();
    namesRead_ = false;
    queries_.clear();
    queriesRead_ = false;
}

}  // namespace daoengine
