#include "dao/session.h"

#include <sqlite3.h>

#include <algorithm>
#include <utility>

#include "dao/limits.h"
#include "dao/query_state.h"
#include "dao/recordset_state.h"
#include "jetsql/parser.h"
#include "jetsql/scope.h"

namespace daoengine {
namespace {

// The one moved last is mostly the first to go.
template <typename Object>
void RemoveLast(std::vector<Object*>& objects, Object& object) {
    const auto found = std::find(objects.rbegin(), objects.rend(), &object);
    if (found != objects.rend()) objects.erase(std::next(found).base());
}

// Definition statements name tables that come and go with them.
bool IsKept(const jetsql::Translation& translation) {
    switch (translation.kind) {
        case jetsql::StatementKind::Select:
        case jetsql::StatementKind::Insert:
        case jetsql::StatementKind::Update:
        case jetsql::StatementKind::Delete:
            return translation.cacheable;
        default:
            return false;
    }
}

// Whether equal values of a type are stored and compared as equal numbers or texts.
bool ComparesAsStored(jet::Type type) {
    return type != jet::Type::Single && type != jet::Type::Decimal && type != jet::Type::Binary &&
           type != jet::Type::LongBinary;
}

}  // namespace

Session::Session(std::unique_ptr<DatabaseFile> file)
    : file_(std::move(file)), catalogue_(*this), statements_(limits::kCachedStatements) {}

Session::~Session() {
    while (!recordsets_.empty())
        recordsets_.back()->Close();
    while (!queries_.empty())
        queries_.back()->Close();
}

void Session::Delist(RecordsetState& recordset) {
    RemoveLast(recordsets_, recordset);
}

void Session::Delist(QueryState& query) {
    RemoveLast(queries_, query);
}

Engine& Session::OwnEngine() {
    if (!engine_) {
        engine_.emplace(file_->Engine(), Engine::Ownership::Borrowed);
        designVersion_ = ReadDesignVersion();
        designEpoch_ = engine_->Watch().Epoch();
    }
    return *engine_;
}

std::int64_t Session::ReadDesignVersion() {
    Statement reader = versionReaders_.Take(*engine_, "PRAGMA main.schema_version");
    const std::int64_t version = reader.Step() ? sqlite3_column_int64(reader.Handle(), 0) : 0;
    versionReaders_.Return(std::move(reader));
    return version;
}

bool Session::DesignChanged() {
    if (!engine_) return false;
    const std::uint64_t epoch = engine_->Watch().Epoch();
    if (engine_->Watch().Usable()) {
        if (epoch == designEpoch_) return false;
        designEpoch_ = epoch;
    }
    if (std::exchange(designVersion_, ReadDesignVersion()) == designVersion_) return false;
    catalogue_.Clear();
    statements_.Clear();
    return true;
}

Stamp Session::StampOf(const CachedStatement& statement) {
    return {OwnEngine().Watch().Epoch(), statement.Writes()};
}

void Session::WriteBegins() {
    engine_->Watch().OwnWriteBegins();
}

void Session::WriteEnded(std::string_view table, Work work) {
    TableState& state = tables_.Of(table);
    ++state.writes;
    engine_->Watch().OwnWriteEnded();
    if (work == Work::Rows) return;
    statements_.Doubt(state);
    try {
        catalogue_.Forget(table);
        if (engine_->Watch().Epoch() == designEpoch_) designVersion_ = ReadDesignVersion();
    } catch (...) {
        designEpoch_ = 0;  // the next statement reads everything anew
    }
}

Draft Session::Read(std::string_view sql) {
    Draft draft{sql, shapes_.Find(sql), nullptr};
    if (!statements_.Find(draft.shape->key))
        draft.parsed = std::make_shared<const jetsql::ParsedStatement>(jetsql::Parse(sql));
    return draft;
}

Request Session::Prepare(Draft draft) {
    DesignChanged();
    Request request;
    request.statement = FindTranslated(draft.shape->key);
    if (request.statement) {
        request.shape = std::move(draft.shape);
        return request;
    }
    ExternalTables externals;
    const EngineCatalogue::ExternalScope scope(catalogue_, externals);
    request.statement = Translate(draft);
    request.shape = std::move(draft.shape);
    const jetsql::Translation& translation = request.statement->translation;
    if (IsKept(translation)) statements_.Add(request.shape->key, request.statement);
    if (externals.Empty()) return request;
    request.readsExternal = true;
    if (translation.tables.empty() && translation.target.empty())
        request.external = externals.Take();
    else
        externals.CopyInto(OwnEngine());
    return request;
}

// A translation holds for a table that was made anew with the design that it had before.
std::shared_ptr<CachedStatement> Session::FindTranslated(const std::string& key) {
    auto statement = statements_.Find(key);
    if (!statement || !statement->doubted) return statement;
    if (!HasSameDesigns(*statement)) {
        statements_.Drop(key);
        return nullptr;
    }
    statement->doubted = false;
    NameRows(*statement);
    return statement;
}

bool Session::HasSameDesigns(const CachedStatement& statement) {
    for (std::size_t each = 0; each < statement.tables.size(); ++each) {
        const auto design = catalogue_.FindDesign(statement.tables[each]->name);
        if (!design || !statement.designs[each] || *design != *statement.designs[each]) return false;
    }
    return true;
}

std::shared_ptr<CachedStatement> Session::Translate(const Draft& draft) {
    // What was known when the statement was read may have been forgotten since.
    return MakeStatement(draft.parsed ? jetsql::Translate(*draft.parsed, catalogue_)
                                      : jetsql::Translate(draft.sql, catalogue_));
}

std::shared_ptr<CachedStatement> Session::MakeStatement(jetsql::Translation translation) {
    auto statement = std::make_shared<CachedStatement>();
    statement->translation = std::move(translation);
    for (const std::string& table : statement->translation.tables)
        statement->tables.push_back(&tables_.Of(table));
    const std::string& target = statement->translation.target;
    if (!target.empty() && !statement->Reads(tables_.Of(target)))
        statement->tables.push_back(&tables_.Of(target));
    for (const TableState* table : statement->tables)
        statement->designs.push_back(catalogue_.FindDesign(table->name));
    KeepUsableLookups(*statement);
    return statement;
}

void Session::KeepUsableLookups(CachedStatement& statement) {
    std::vector<jetsql::EqualityLookup>& lookups = statement.translation.lookups;
    const jet::Table* table =
        statement.tables.size() == 1 ? catalogue_.FindTable(statement.tables[0]->name) : nullptr;
    const auto unusable = [table](const jetsql::EqualityLookup& lookup) {
        if (table == nullptr) return true;
        const auto column = std::find_if(table->columns.begin(), table->columns.end(),
                                         [&](const jet::Column& each) { return each.name == lookup.column; });
        return column == table->columns.end() || !ComparesAsStored(column->type);
    };
    lookups.erase(std::remove_if(lookups.begin(), lookups.end(), unusable), lookups.end());
    statement.byRow.resize(lookups.size());
    NameRows(statement);
}

// Notes the name that row numbers go by in the table of the look-ups: columns may take the usual ones.
void Session::NameRows(CachedStatement& statement) {
    if (statement.translation.lookups.empty()) return;
    TableState& table = *statement.tables[0];
    table.rowNumber = jetsql::RowidName(*catalogue_.FindTable(table.name));
}

}  // namespace daoengine
