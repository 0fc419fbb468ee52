#include "dao/execute.h"

#include <sqlite3.h>

#include <utility>

#include "dao/limits.h"
#include "dao/recordset_state.h"
#include "dao/session.h"
#include "jet/error.h"

namespace daoengine {
namespace {

// Runs once. Binding and running can both fail; the statement goes back to its pool only when it is whole.
std::int64_t RunOnce(Engine& engine, const Request& request) {
    CachedStatement& shape = *request.statement;
    Statement statement = shape.main.Take(engine, shape.translation.sql);
    statement.Bind(request.shape->literals);
    RunMeter::Account account{.mostSteps = limits::kActionSteps};
    while (statement.Step(account)) {
    }
    const std::int64_t rows = sqlite3_changes64(engine.Handle());
    shape.main.Return(std::move(statement));
    return rows;
}

// A recordset that reads an older state of the file keeps the connection from writing the newest.
bool ReadsAnOldState(Engine& engine) {
    return sqlite3_extended_errcode(engine.Handle()) == SQLITE_BUSY_SNAPSHOT;
}

std::int64_t RunAction(Session& session, const Request& request) {
    Engine& engine = session.OwnEngine();
    try {
        return RunOnce(engine, request);
    } catch (const jet::Error&) {
        if (!ReadsAnOldState(engine)) throw;
    }
    StoreAllReaders(session);
    return RunOnce(engine, request);
}

std::int64_t ChangeRows(Session& session, const Request& request) {
    const std::string& target = request.statement->translation.target;
    StoreReaders(session, target);
    session.OwnEngine();
    const WriteScope scope(session, target, Work::Rows);
    return RunAction(session, request);
}

// Drops the copies of external tables when the statement has run.
class ExternalCopies {
  public:
    explicit ExternalCopies(Engine& engine) : engine_(engine) {}
    ~ExternalCopies() {
        try {
            ExternalTables::DropFrom(engine_);
        } catch (const std::exception&) {
            // They stay until the next statement of the kind, or the end of the session.
        }
    }
    ExternalCopies(const ExternalCopies&) = delete;
    ExternalCopies& operator=(const ExternalCopies&) = delete;

  private:
    Engine& engine_;
};

std::int64_t Run(Session& session, const Request& request) {
    switch (request.statement->translation.kind) {
        case jetsql::StatementKind::Select:
            Throw(3065);
        case jetsql::StatementKind::Insert:
        case jetsql::StatementKind::Update:
        case jetsql::StatementKind::Delete:
            return ChangeRows(session, request);
        default:
            return ExecuteDesignChange(session, request);
    }
}

}  // namespace

void StoreReaders(Session& session, std::string_view table) {
    const TableState& state = session.Tables().Of(table);
    for (RecordsetState* recordset : session.OpenRecordsets())
        if (recordset->Rows().Running() && recordset->Rows().Shape().Reads(state)) recordset->Rows().Store();
}

void StoreAllReaders(Session& session) {
    for (RecordsetState* recordset : session.OpenRecordsets())
        if (recordset->Rows().Running()) recordset->Rows().Store();
}

std::int64_t ExecuteAction(Session& session, Draft draft) {
    const Request request = session.Prepare(std::move(draft));
    if (!request.readsExternal) return Run(session, request);
    StoreAllReaders(session);
    const ExternalCopies copies(session.OwnEngine());
    return Run(session, request);
}

}  // namespace daoengine
