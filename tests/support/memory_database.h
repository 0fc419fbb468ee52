#pragma once

#include <sqlite3.h>

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "jetsql/translator.h"

// A small database in memory that runs statements of the Jet dialect through the translator, as a plain
// engine does.
class MemoryDatabase : public jetsql::Catalogue {
  public:
    MemoryDatabase();
    ~MemoryDatabase() override;

    // Runs a statement and gives the number of rows it wrote. Throws jet::Error.
    int Run(std::string_view statement);

    // Runs several action statements in turn.
    void RunAll(std::initializer_list<std::string_view> statements);

    // The rows of a SELECT, fields separated by '|', Null as "-".
    std::vector<std::string> Rows(std::string_view statement);

    // The number that a statement fails with, 0 when it runs.
    int ErrorOf(std::string_view statement);

    void CreateTable(const jet::Table& table);

    void AddQuery(const std::string& name, const std::string& sql);

    const jet::Table* FindTable(std::string_view name) override;
    const std::string* FindQuery(std::string_view name) override;
    ExternalTable FindExternalTable(std::string_view name, std::string_view path,
                                    std::string_view connect) override;

    // What the last call of FindExternalTable asked for.
    std::string externalPath, externalConnect;

    // The steps of SQLite's plan for a statement.
    std::string PlanOf(std::string_view statement);

    sqlite3* Connection() { return connection_; }

  private:
    struct StatementDeleter {
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };
    using Prepared = std::unique_ptr<sqlite3_stmt, StatementDeleter>;

    Prepared Prepare(const std::string& sql, const std::vector<jetsql::Literal>& literals);
    void Finish(sqlite3_stmt* statement);
    void RunDirectly(const std::string& sql);
    int RunTranslated(const jetsql::Translation& translation, const std::vector<jetsql::Literal>& literals);
    [[noreturn]] void FailNow();

    sqlite3* connection_ = nullptr;
    std::map<std::string, jet::Table> tables_;  // by name in lower case
    std::map<std::string, std::string> queries_;
};
