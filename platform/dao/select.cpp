#include "dao/select.h"

#include <utility>

#include "dao/limits.h"
#include "dao/session.h"
#include "jet/error.h"

namespace daoengine {
namespace {

// Finds the rows that can match by the index of one of the columns that the statement compares: the fewest
// that any of them leaves. False when no index serves.
bool FindCandidates(Session& session, const Request& request, const Stamp& stamp,
                    std::vector<std::int64_t>& rows, std::size_t& lookup) {
    const auto& lookups = request.statement->translation.lookups;
    std::vector<std::int64_t> found;
    bool any = false;
    for (std::size_t each = 0; each < lookups.size(); ++each) {
        TableState& table = *request.statement->tables[0];
        const auto index =
            session.Lookups().Find(session.OwnEngine(), session.Tables(), table, lookups[each].column, stamp);
        if (!index) continue;
        if (!index->FindRows(request.shape->literals[lookups[each].literal], limits::kLookupRows, found)) {
            session.Lookups().GiveUp(table, lookups[each].column);
        } else if (!any || found.size() < rows.size()) {
            rows.swap(found);
            lookup = each;
            any = true;
        }
    }
    return any;
}

std::shared_ptr<const RowBlock> ReadCandidates(Session& session, const Request& request,
                                               const std::vector<std::int64_t>& rows, std::size_t lookup) {
    CachedStatement& shape = *request.statement;
    auto block = std::make_shared<RowBlock>(static_cast<int>(shape.translation.columns.size()));
    if (rows.empty()) return block;
    Statement statement =
        shape.byRow[lookup].Take(session.OwnEngine(), shape.translation.lookups[lookup].sqlByRow);
    statement.Bind(request.shape->literals);
    for (const std::int64_t row : rows) {
        statement.Bind(request.shape->literals.size() + 1, row);
        if (statement.Step()) block->Append(statement.Handle());
        statement.Reset();
    }
    shape.byRow[lookup].Return(std::move(statement));
    return block;
}

// Opens on rows found by an index, as they were at the moment of the stamp; false when that cannot be done.
bool OpenByLookup(Session& session, const Request& request, const Stamp& stamp, Cursor& cursor) {
    if (request.statement->translation.lookups.empty()) return false;
    std::vector<std::int64_t> rows;
    std::size_t lookup = 0;
    if (!FindCandidates(session, request, stamp, rows, lookup)) return false;
    if (rows.size() > 1 && request.statement->translation.ordered) return false;
    if (rows.size() == 1) {
        cursor.OpenOnRow(session.OwnEngine(), request.statement, request.shape, lookup, rows.front());
        cursor.Exists(0);
    } else {
        cursor.OpenStored(request.statement, ReadCandidates(session, request, rows, lookup));
    }
    if (session.StampOf(*request.statement) == stamp) return true;
    cursor.Close();
    return false;
}

// Opens on the rows of a whole table in an order that is known, as they were at the moment of the stamp;
// false when it is not.
bool OpenInOrder(Session& session, const Request& request, const Stamp& stamp, Cursor& cursor) {
    CachedStatement& statement = *request.statement;
    const auto& asked = statement.translation.storedOrder;
    if (!asked) return false;
    Engine& engine = session.OwnEngine();
    const auto order = statement.storageOrder.Find(engine, *asked, request.shape->literals, stamp);
    if (order.asStored)
        cursor.OpenAsStored(engine, request.statement, request.shape);
    else if (order.rows)
        cursor.OpenOnList(engine, request.statement, request.shape, order.rows);
    else
        return false;
    cursor.Exists(0);
    if (session.StampOf(statement) == stamp) return true;
    cursor.Close();
    return false;
}

void KeepResult(Session& session, const Request& request, const Stamp& stamp, Cursor& cursor) {
    auto rows = cursor.StoreSmall(limits::kKeptResultBytes);
    if (session.StampOf(*request.statement) == stamp)
        request.statement->results.Keep(request.shape->literals, stamp, std::move(rows));
}

// Opens on the session's own tables. Says whether the rows are asked for often enough to be kept.
bool OpenOwn(Session& session, const Request& request, const Stamp& stamp, Cursor& cursor) {
    Engine& engine = session.OwnEngine();
    const bool watched = engine.Watch().Usable() && request.statement->translation.cacheable;
    KeptResults::Answer kept;
    if (watched) kept = request.statement->results.Find(request.shape->literals, stamp);
    if (kept.rows) {
        cursor.OpenStored(request.statement, std::move(kept.rows));
        return false;
    }
    if (watched && OpenByLookup(session, request, stamp, cursor)) return kept.worthKeeping;
    if (watched && OpenInOrder(session, request, stamp, cursor)) return kept.worthKeeping;
    cursor.OpenRunning(engine, request.statement, request.shape);
    cursor.Exists(0);
    return kept.worthKeeping;
}

void OpenExternal(const Request& request, Cursor& cursor) {
    cursor.Hold(request.external);
    cursor.OpenRunning(*request.external, request.statement, request.shape);
    cursor.Exists(0);
}

void Open(Session& session, const Request& request, Cursor& cursor) {
    if (request.external) {
        OpenExternal(request, cursor);
        return;
    }
    const Stamp stamp = session.StampOf(*request.statement);
    const bool keep = OpenOwn(session, request, stamp, cursor);
    if (keep && session.StampOf(*request.statement) == stamp) KeepResult(session, request, stamp, cursor);
}

// False when another process changed the design while the statement was being translated or started.
bool TryOpen(Session& session, std::string_view sql, Cursor& cursor) {
    const Request request = session.Prepare(session.Read(sql));
    if (request.statement->translation.kind != jetsql::StatementKind::Select) Throw(3219);
    try {
        Open(session, request, cursor);
        if (!session.DesignChanged()) return true;
    } catch (const jet::Error&) {
        cursor.Close();
        if (!session.DesignChanged()) throw;
    } catch (...) {
        cursor.Close();
        throw;
    }
    cursor.Close();
    return false;
}

}  // namespace

void OpenSelect(Session& session, std::string_view sql, Cursor& cursor) {
    constexpr int kAttempts = 3;
    for (int attempt = 0; attempt < kAttempts; ++attempt)
        if (TryOpen(session, sql, cursor)) return;
    Throw(3211);
}

}  // namespace daoengine
