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

// The tables and stored queries of a session's database, read when they are first named and kept.
class EngineCatalogue final : public jetsql::Catalogue {
  public:
    explicit EngineCatalogue(Session& session) : session_(session) {}

    const jet::Table* FindTable(std::string_view name) override;
    const std::string* FindQuery(std::string_view name) override;
    ExternalTable FindExternalTable(std::string_view name, std::string_view path,
                                    std::string_view connect) override;

    // Forgets one table, or everything, after the design changed.
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

    void ReadQueries();

    Session& session_;
    std::unordered_map<std::string, std::unique_ptr<jet::Table>> tables_;
    std::unordered_map<std::string, Query> queries_;
    bool queriesRead_ = false;
    ExternalTables* externals_ = nullptr;
};

}  // namespace daoengine
