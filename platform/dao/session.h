#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "dao/catalogue.h"
#include "dao/database_file.h"
#include "dao/engine.h"
#include "dao/lookup_indexes.h"
#include "dao/shape_cache.h"
#include "dao/statement_cache.h"
#include "dao/table_state.h"
#include "jetsql/translator.h"

namespace daoengine {

class RecordsetState;
class QueryState;

// A statement's text (UTF-8), which outlives it, with its shape, and its tree where the shape was new.
struct Draft {
    std::string_view sql;
    std::shared_ptr<const jetsql::Shape> shape;
    std::shared_ptr<const jetsql::ParsedStatement> parsed;
};

// A statement ready to run: its shape's translation, its own literals, and the engine on which it runs when
// that is not the session's.
struct Request {
    std::shared_ptr<const jetsql::Shape> shape;
    std::shared_ptr<CachedStatement> statement;
    std::shared_ptr<Engine> external;
    bool readsExternal = false;
};

// What belongs to one open database: its file, its engine, and all that is kept to run statements fast.
class Session {
  public:
    explicit Session(std::unique_ptr<DatabaseFile> file);
    // Closes what was opened on it.
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    int CountTables() { return file_->CountTables(); }

    // The engine; a Jet file is converted for it.
    Engine& OwnEngine();

    // Reads a statement; throws when no database could run it, whatever tables it has.
    Draft Read(std::string_view sql);

    // Translates a statement, or finds it translated.
    Request Prepare(Draft draft);

    // Whether another process has changed the design of the database since it was last asked. What was
    // translated before is forgotten then.
    bool DesignChanged();

    // The moment of reading, for what is kept of a statement's rows.
    Stamp StampOf(const CachedStatement& statement);

    // Enclose an own statement that writes a table, or changes its design.
    void WriteBegins();
    void WriteEnded(std::string_view table, Work work);

    TableRegister& Tables() { return tables_; }
    LookupIndexes& Lookups() { return lookups_; }
    EngineCatalogue& Catalogue() { return catalogue_; }

    void Enlist(RecordsetState& recordset) { recordsets_.push_back(&recordset); }
    void Delist(RecordsetState& recordset);
    void Enlist(QueryState& query) { queries_.push_back(&query); }
    void Delist(QueryState& query);
    const std::vector<RecordsetState*>& OpenRecordsets() const { return recordsets_; }

  private:
    std::shared_ptr<CachedStatement> FindTranslated(const std::string& key);
    bool HasSameDesigns(const CachedStatement& statement);
    std::shared_ptr<CachedStatement> Translate(const Draft& draft);
    std::shared_ptr<CachedStatement> MakeStatement(jetsql::Translation translation);
    void KeepUsableLookups(CachedStatement& statement);
    void NameRows(CachedStatement& statement);
    std::int64_t ReadDesignVersion();

    std::unique_ptr<DatabaseFile> file_;
    std::optional<Engine> engine_;
    TableRegister tables_;
    EngineCatalogue catalogue_;
    ShapeCache shapes_;
    StatementCache statements_;
    StatementPool versionReaders_;
    LookupIndexes lookups_;
    std::int64_t designVersion_ = 0;
    std::uint64_t designEpoch_ = 0;
    std::vector<RecordsetState*> recordsets_;
    std::vector<QueryState*> queries_;
};

// Tells the session of a write to a table, however it ends.
class WriteScope {
  public:
    WriteScope(Session& session, const std::string& table, Work work)
        : session_(session), table_(table), work_(work) {
        session_.WriteBegins();
    }
    ~WriteScope() { session_.WriteEnded(table_, work_); }
    WriteScope(const WriteScope&) = delete;
    WriteScope& operator=(const WriteScope&) = delete;

  private:
    Session& session_;
    const std::string& table_;
    Work work_;
};

}  // namespace daoengine
