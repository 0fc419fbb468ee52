#include "dao/engine.h"

#include <sqlite3.h>

#include <utility>

#include "dao/limits.h"

namespace daoengine {
namespace {

constexpr std::size_t kIdlePerText = 4;

struct Binder {
    sqlite3_stmt* statement;
    int parameter;

    int operator()(std::int64_t value) const { return sqlite3_bind_int64(statement, parameter, value); }
    int operator()(double value) const { return sqlite3_bind_double(statement, parameter, value); }
    int operator()(const std::string& value) const {
        return sqlite3_bind_text64(statement, parameter, value.data(), value.size(), SQLITE_STATIC,
                                   SQLITE_UTF8);
    }
};

}  // namespace

Statement::Statement(Engine& engine, const std::string& sql, Work work) : engine_(&engine), work_(work) {
    const int code = sqlite3_prepare_v3(engine.Handle(), sql.data(), static_cast<int>(sql.size()),
                                        SQLITE_PREPARE_PERSISTENT, &handle_, nullptr);
    if (code != SQLITE_OK) ThrowEngineError(engine.Handle(), code, work);
}

Statement::~Statement() {
    sqlite3_finalize(handle_);
}

Statement::Statement(Statement&& other) noexcept
    : engine_(other.engine_), handle_(std::exchange(other.handle_, nullptr)), work_(other.work_) {}

Statement& Statement::operator=(Statement&& other) noexcept {
    std::swap(engine_, other.engine_);
    std::swap(handle_, other.handle_);
    std::swap(work_, other.work_);
    return *this;
}

void Statement::Bind(const std::vector<jetsql::Literal>& literals) {
    int parameter = 0;
    for (const jetsql::Literal& literal : literals) {
        const int code = std::visit(Binder{handle_, ++parameter}, literal);
        // A literal that the printed statement does not need has no parameter.
        if (code != SQLITE_OK && code != SQLITE_RANGE) ThrowEngineError(engine_->Handle(), code, work_);
    }
}

void Statement::Bind(std::size_t parameter, std::int64_t value) {
    const int code = sqlite3_bind_int64(handle_, static_cast<int>(parameter), value);
    if (code != SQLITE_OK) ThrowEngineError(engine_->Handle(), code, work_);
}

void Statement::Bind(std::size_t parameter, const jetsql::RowList& rows) {
    const int code = jetsql::BindRowList(handle_, static_cast<int>(parameter), rows);
    if (code != SQLITE_OK) ThrowEngineError(engine_->Handle(), code, work_);
}

bool Statement::Step(RunMeter::Account& account) {
    const RunMeter::Charge charge(engine_->Meter(), account);
    return Step();
}

bool Statement::Step() {
    const int code = sqlite3_step(handle_);
    if (code == SQLITE_ROW) return true;
    if (code == SQLITE_DONE) return false;
    ThrowEngineError(engine_->Handle(), code, work_);
}

void Statement::Reset() {
    sqlite3_reset(handle_);
}

Statement StatementPool::Take(Engine& engine, const std::string& sql) {
    if (idle_.empty()) return Statement(engine, sql, Work::Rows);
    Statement statement = std::move(idle_.back());
    idle_.pop_back();
    return statement;
}

void StatementPool::Return(Statement&& statement) {
    statement.Reset();
    if (idle_.size() < kIdlePerText) idle_.push_back(std::move(statement));
}

Engine::Engine(sqlite3* handle, Ownership ownership) : handle_(handle), ownership_(ownership) {
    sqlite3_busy_timeout(handle_, limits::kBusyMilliseconds);
    sqlite3_extended_result_codes(handle_, 0);
    meter_.Attach(handle_);
    Run("PRAGMA temp_store = MEMORY");
    const std::int64_t pageSize = Number("PRAGMA main.page_size");
    if (pageSize > 0) Number("PRAGMA main.max_page_count = " + std::to_string(limits::kFileBytes / pageSize));
    Number("PRAGMA main.schema_version");
    watch_.Attach(handle_);
}

Engine::~Engine() {
    sqlite3_progress_handler(handle_, 0, nullptr, nullptr);
    if (ownership_ == Ownership::Owned) sqlite3_close_v2(handle_);
}

void Engine::Run(const std::string& sql, Work work) {
    Statement statement(*this, sql, work);
    while (statement.Step()) {
    }
}

std::int64_t Engine::Number(const std::string& sql) {
    Statement statement(*this, sql, Work::Rows);
    return statement.Step() ? sqlite3_column_int64(statement.Handle(), 0) : 0;
}

namespace {

void RunPooled(Engine& engine, StatementPool& pool, const std::string& sql) {
    Statement statement = pool.Take(engine, sql);
    while (statement.Step()) {
    }
    pool.Return(std::move(statement));
}

}  // namespace

void Engine::BeginSavepoint() {
    RunPooled(*this, savepointBeginners_, "SAVEPOINT change");
}

void Engine::ReleaseSavepoint() {
    RunPooled(*this, savepointReleasers_, "RELEASE change");
}

Savepoint::Savepoint(Engine& engine) : engine_(engine) {
    engine_.BeginSavepoint();
}

Savepoint::~Savepoint() {
    if (released_) return;
    sqlite3_exec(engine_.Handle(), "ROLLBACK TO change; RELEASE change", nullptr, nullptr, nullptr);
}

void Savepoint::Release() {
    engine_.ReleaseSavepoint();
    released_ = true;
}

}  // namespace daoengine
