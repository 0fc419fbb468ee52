#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "dao/change_watch.h"
#include "dao/errors.h"
#include "dao/run_meter.h"
#include "jetsql/row_list.h"
#include "jetsql/translator.h"

struct sqlite3;
struct sqlite3_stmt;

namespace daoengine {

class Engine;

// A prepared statement of one engine connection. Failures are jet::Error.
class Statement {
  public:
    Statement() = default;
    Statement(Engine& engine, const std::string& sql, Work work);
    ~Statement();
    Statement(Statement&& other) noexcept;
    Statement& operator=(Statement&& other) noexcept;

    explicit operator bool() const { return handle_ != nullptr; }
    sqlite3_stmt* Handle() const { return handle_; }

    // Binds literal i as parameter i + 1. The texts must outlive the run.
    void Bind(const std::vector<jetsql::Literal>& literals);
    void Bind(std::size_t parameter, std::int64_t value);
    // The list must outlive the run.
    void Bind(std::size_t parameter, const jetsql::RowList& rows);

    // Advances to the next row; false after the last one. What it costs is charged to `account`.
    bool Step(RunMeter::Account& account);
    bool Step();

    // Ends the run; harmless when none is under way.
    void Reset();

  private:
    Engine* engine_ = nullptr;
    sqlite3_stmt* handle_ = nullptr;
    Work work_ = Work::Rows;
};

// Statements prepared from one text and not running, ready to be taken.
class StatementPool {
  public:
    // One of the idle statements, or a new one.
    Statement Take(Engine& engine, const std::string& sql);
    void Return(Statement&& statement);

  private:
    std::vector<Statement> idle_;
};

// A connection of the embedded engine, with what every one of them needs set up.
class Engine {
  public:
    enum class Ownership { Borrowed, Owned };

    Engine(sqlite3* handle, Ownership ownership);
    ~Engine();
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

    sqlite3* Handle() const { return handle_; }
    RunMeter& Meter() { return meter_; }
    ChangeWatch& Watch() { return watch_; }
    StatementPool& SnapshotReaders() { return snapshotReaders_; }

    // Begins and ends a savepoint that is not nested in another.
    void BeginSavepoint();
    void ReleaseSavepoint();

    // Runs a statement that gives no rows.
    void Run(const std::string& sql, Work work = Work::Rows);
    // The first column of the first row.
    std::int64_t Number(const std::string& sql);

  private:
    sqlite3* handle_;
    Ownership ownership_;
    RunMeter meter_;
    ChangeWatch watch_;
    StatementPool snapshotReaders_;
    StatementPool savepointBeginners_;
    StatementPool savepointReleasers_;
};

// Several statements that take effect together or not at all.
class Savepoint {
  public:
    explicit Savepoint(Engine& engine);
    // Undoes everything, unless Release was reached.
    ~Savepoint();
    Savepoint(const Savepoint&) = delete;
    Savepoint& operator=(const Savepoint&) = delete;

    void Release();

  private:
    Engine& engine_;
    bool released_ = false;
};

}  // namespace daoengine
