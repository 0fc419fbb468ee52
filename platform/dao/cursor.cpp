#include "dao/cursor.h"

#include <limits>
#include <utility>

#include "dao/limits.h"

namespace daoengine {

namespace {

const std::string kReadSomething = "SELECT EXISTS (SELECT 1 FROM main.sqlite_schema)";

}  // namespace

Snapshot::Snapshot(Engine& engine)
    : engine_(engine), reader_(engine.SnapshotReaders().Take(engine, kReadSomething)) {
    reader_.Step();
}

Snapshot::~Snapshot() {
    engine_.SnapshotReaders().Return(std::move(reader_));
}

void Cursor::OpenStored(std::shared_ptr<CachedStatement> shape, std::shared_ptr<const RowBlock> rows) {
    shape_ = std::move(shape);
    BecomeStored(std::move(rows));
}

void Cursor::OpenRunning(Engine& engine, std::shared_ptr<CachedStatement> shape,
                         std::shared_ptr<const jetsql::Shape> asked) {
    shape_ = std::move(shape);
    asked_ = std::move(asked);
    Start(engine, shape_->main, shape_->translation.sql);
}

void Cursor::OpenAsStored(Engine& engine, std::shared_ptr<CachedStatement> shape,
                          std::shared_ptr<const jetsql::Shape> asked) {
    shape_ = std::move(shape);
    asked_ = std::move(asked);
    Start(engine, shape_->storageOrder.Readers(), shape_->translation.storedOrder->sql);
}

void Cursor::OpenOnList(Engine& engine, std::shared_ptr<CachedStatement> shape,
                        std::shared_ptr<const jetsql::Shape> asked,
                        std::shared_ptr<const jetsql::RowList> rows) {
    shape_ = std::move(shape);
    asked_ = std::move(asked);
    Start(engine, shape_->storageOrder.ListReaders(), shape_->translation.storedOrder->sqlByList);
    statement_.Bind(asked_->literals.size() + 1, *rows);
    Hold(std::move(rows));
}

void Cursor::OpenOnRow(Engine& engine, std::shared_ptr<CachedStatement> shape,
                       std::shared_ptr<const jetsql::Shape> asked, std::size_t lookup, std::int64_t row) {
    shape_ = std::move(shape);
    asked_ = std::move(asked);
    Start(engine, shape_->byRow[lookup], shape_->translation.lookups[lookup].sqlByRow);
    statement_.Bind(asked_->literals.size() + 1, row);
}

void Cursor::Start(Engine& engine, StatementPool& pool, const std::string& sql) {
    engine_ = &engine;
    pool_ = &pool;
    statement_ = pool.Take(engine, sql);
    statement_.Bind(asked_->literals);
    account_ = {};
    at_ = -1;
    known_ = 0;
    complete_ = false;
}

void Cursor::Close() {
    ReturnStatement();
    rows_.reset();
    shape_.reset();
    asked_.reset();
    owner_.reset();
    known_ = 0;
    complete_ = true;
}

void Cursor::ReturnStatement() {
    if (statement_) pool_->Return(std::move(statement_));
    statement_ = Statement();
    snapshot_.reset();
}

void Cursor::BecomeStored(std::shared_ptr<const RowBlock> rows) {
    ReturnStatement();
    rows_ = std::move(rows);
    known_ = rows_->Rows();
    complete_ = true;
}

bool Cursor::Advance() {
    const std::int64_t next = std::exchange(at_, -1) + 1;
    if (!statement_.Step(account_)) {
        complete_ = true;
        return false;
    }
    at_ = next;
    if (at_ >= known_) known_ = at_ + 1;
    return true;
}

void Cursor::Rewind() {
    // The file may be changed by others between two runs of the statement; both are to see the same rows.
    if (at_ >= 0 && !snapshot_) snapshot_.emplace(*engine_);
    statement_.Reset();
    at_ = -1;
}

bool Cursor::Exists(std::int64_t row) {
    while (row >= known_ && !complete_) {
        if (at_ + 1 < known_) Seek(known_ - 1);
        Advance();
    }
    return row < known_;
}

std::int64_t Cursor::Count() {
    if (!complete_ && known_ > 0 && !snapshot_) snapshot_.emplace(*engine_);
    Exists(std::numeric_limits<std::int64_t>::max());
    return known_;
}

void Cursor::Seek(std::int64_t row) {
    if (at_ > row || at_ < 0) Rewind();
    while (at_ < row)
        if (!Advance()) Throw(3167);
}

bool Cursor::Collect(RowBlock& rows, std::size_t mostBytes) {
    if (at_ != 0) {
        Rewind();
        if (!Advance()) return true;
    }
    do {
        rows.Append(statement_.Handle());
        if (rows.Bytes() > mostBytes) return false;
    } while (Advance());
    return true;
}

void Cursor::Store() {
    auto rows = std::make_shared<RowBlock>(static_cast<int>(shape_->translation.columns.size()));
    if (!Collect(*rows, limits::kStoredBytes)) Throw(3035);
    BecomeStored(std::move(rows));
}

std::shared_ptr<const RowBlock> Cursor::StoreSmall(std::size_t bytes) {
    if (rows_) return rows_->Bytes() <= bytes ? rows_ : nullptr;
    auto block = std::make_shared<RowBlock>(static_cast<int>(shape_->translation.columns.size()));
    if (!Collect(*block, bytes)) return nullptr;
    block->Trim();
    BecomeStored(block);
    return block;
}

}  // namespace daoengine
