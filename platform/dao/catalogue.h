#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "dao/external_tables.h"
#include "jet/schema.h"
#include "jetsql/translator.h"

namespace daoengine {

class Session;

// The tables and stored queries of a session's database, read when they are first named and kept. Which
// tables there are is read once; the session's own changes are noted.
class EngineCatalogue final : public jetsql::Catalogue {
  public:
    explicit EngineCatalogue(Session& session) : session_(session) {}

    const jet::Table* FindTable(std::string_view name) override { return FindDesign(name).get(); }
    // The same, to be kept beyond the next change.
    std::shared_ptr<const jet::Table> FindDesign(std::string_view name);
    const std::string* FindQuery(std::string_view name) override;
    ExternalTable FindExternalTable(std::string_view name, std::string_view path,
                                    std::string_view connect) override;

    // Notes that a table was made without indexes, was made or altered in another way, or dropped.
    void NoteMade(const jet::Table& table);
    void NoteTable(const std::string& name);
    void NoteDropped(const std::string& name);
    // Forgets what is known of one table, or everything, when the design may have changed.
    void Forget(std::string_view table);
    void Clear();

    // While it lives, the external tables of the statement being translated gather in one place.
    class ExternalScope {
      public:
        ExternalScope(EngineCatalogue& catalogue, ExternalTables& tables) : catalogue_(catalogue) {
            catalogue_.externals_ = &tables;
        }
        ~ExternalScope() { catalogue_.externals_ = nullptr; }
        ExternalScope(const ExternalScope&) = delete;
        ExternalScope& operator=(const ExternalScope&) = delete;

      private:
        EngineCatalogue& catalogue_;
    };

  private:
    struct Query {
        std::string sql;
        std::string problem;
    };

    // A table, whose design is read when it is first asked for.
    struct Entry {
        std::string name;  // as it is stored; empty when it has to be looked up anew
        std::shared_ptr<const jet::Table> design;
    };

    Entry* FindEntry(const std::string& key);
    void ReadNames();
    void ReadQueries();

    Session& session_;
    std::unordered_map<std::string, Entry> tables_;  // all that there are, by folded name
    bool namesRead_ = false;
    std::unordered_map<std::string, Query> queries_;
    bool queriesRead_ = false;
    ExternalTables* externals_ = nullptr;
};

}  // namespace daoengine
