#include <sqlite3.h>

#include "dao/execute.h"
#include "dao/limits.h"
#include "dao/recordset_state.h"
#include "dao/session.h"
#include "jetsql/ddl.h"
#include "jetsql/names.h"

namespace daoengine {
namespace {

using jetsql::StatementKind;

// A table whose rows a recordset shows cannot be dropped or altered, whether the rows are fetched already or
// not.
void RefuseWhileRead(Session& session, const std::string& table) {
    const TableState& state = session.Tables().Of(table);
    for (RecordsetState* recordset : session.OpenRecordsets())
        if (recordset->Rows().Shape().Reads(state)) Throw(3211);
}

void Create(Engine& engine, const jet::Table& table) {
    engine.Run(jetsql::CreateTableSql(table), Work::Design);
    for (const jet::Index& index : table.indexes)
        engine.Run(jetsql::CreateIndexSql(table.name, index), Work::Design);
}

std::int64_t CreateFilled(Engine& engine, const Request& request) {
    const jetsql::Translation& translation = request.statement->translation;
    Create(engine, translation.definition);
    Statement fill(engine,
                   "INSERT INTO " + jetsql::Quoted(translation.definition.name) + ' ' + translation.sql,
                   Work::Rows);
    fill.Bind(request.shape->literals);
    RunMeter::Account account{.mostSteps = limits::kActionSteps};
    while (fill.Step(account)) {
    }
    return sqlite3_changes64(engine.Handle());
}

std::int64_t Change(Engine& engine, const Request& request) {
    const jetsql::Translation& translation = request.statement->translation;
    const std::string& target = translation.target;
    switch (translation.kind) {
        case StatementKind::SelectInto:
            return CreateFilled(engine, request);
        case StatementKind::CreateTable:
            Create(engine, translation.definition);
            break;
        case StatementKind::DropTable:
            engine.Run(jetsql::DropTableSql(target), Work::Design);
            break;
        case StatementKind::AddColumn:
            engine.Run(jetsql::AddColumnSql(target, translation.definition.columns.front()), Work::Design);
            break;
        case StatementKind::DropColumn:
            engine.Run(jetsql::DropColumnSql(target, translation.dropped), Work::Design);
            break;
        case StatementKind::CreateIndex:
            engine.Run(jetsql::CreateIndexSql(target, translation.definition.indexes.front()), Work::Design);
            break;
        case StatementKind::DropIndex:
            engine.Run(jetsql::DropIndexSql(target, translation.dropped), Work::Design);
            break;
        default:
            Throw(3219);
    }
    return 0;
}

bool NeedsTableAlone(StatementKind kind) {
    return kind == StatementKind::DropTable || kind == StatementKind::AddColumn ||
           kind == StatementKind::DropColumn;
}

// Tells the catalogue what came of a statement that took effect.
void Note(EngineCatalogue& catalogue, const jetsql::Translation& translation) {
    if (translation.kind == StatementKind::DropTable)
        catalogue.NoteDropped(translation.target);
    else if (translation.kind == StatementKind::SelectInto)
        catalogue.NoteMade(translation.definition);
    else
        catalogue.NoteTable(translation.target);
}

std::int64_t ChangeTogether(Session& session, const Request& request) {
    Engine& engine = session.OwnEngine();
    const WriteScope scope(session, request.statement->translation.target, Work::Design);
    Savepoint savepoint(engine);
    const std::int64_t rows = Change(engine, request);
    savepoint.Release();
    return rows;
}

}  // namespace

std::int64_t ExecuteDesignChange(Session& session, const Request& request) {
    const jetsql::Translation& translation = request.statement->translation;
    if (NeedsTableAlone(translation.kind)) RefuseWhileRead(session, translation.target);
    StoreAllReaders(session);
    const std::int64_t rows = ChangeTogether(session, request);
    Note(session.Catalogue(), translation);
    return rows;
}

}  // namespace daoengine
