#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "dao/engine.h"
#include "dao/row_block.h"
#include "dao/statement_cache.h"
#include "jetsql/translator.h"

namespace daoengine {

// Keeps what a connection sees of the file as it is, while statements on it end and start again.
class Snapshot {
  public:
    explicit Snapshot(Engine& engine);
    ~Snapshot();
    Snapshot(const Snapshot&) = delete;
    Snapshot& operator=(const Snapshot&) = delete;

  private:
    Engine& engine_;
    Statement reader_;
};

// The rows of one opened SELECT, by position. It fetches a row when it is first asked for and keeps none,
// until it is told to store them.
class Cursor {
  public:
    Cursor() = default;
    ~Cursor() { Close(); }
    Cursor(const Cursor&) = delete;
    Cursor& operator=(const Cursor&) = delete;

    // Opens on rows that are in memory.
    void OpenStored(std::shared_ptr<CachedStatement> shape, std::shared_ptr<const RowBlock> rows);
    // Opens on a statement that the cursor binds and runs: the shape's own, or, with `row`, its lookup of one
    // row.
    void OpenRunning(Engine& engine, std::shared_ptr<CachedStatement> shape,
                     std::shared_ptr<const jetsql::Shape> asked);
    // The same on a table whose rows are stored in the order that the shape asks for, or, with `rows`, on its
    // rows in the order of that list.
    void OpenAsStored(Engine& engine, std::shared_ptr<CachedStatement> shape,
                      std::shared_ptr<const jetsql::Shape> asked);
    void OpenOnList(Engine& engine, std::shared_ptr<CachedStatement> shape,
                    std::shared_ptr<const jetsql::Shape> asked, std::shared_ptr<const jetsql::RowList> rows);
    void OpenOnRow(Engine& engine, std::shared_ptr<CachedStatement> shape,
                   std::shared_ptr<const jetsql::Shape> asked, std::size_t lookup, std::int64_t row);
    // Something that has to live as long as the rows.
    void Hold(std::shared_ptr<const void> owner) { owner_ = std::move(owner); }
    void Close();

    const CachedStatement& Shape() const { return *shape_; }
    FieldNames& Names() { return shape_->fields; }

    // Whether there is a row at a position; fetches up to it.
    bool Exists(std::int64_t row);
    // The number of rows; fetches up to the last one.
    std::int64_t Count();
    // The number of rows, after the last one has been met; else -1.
    std::int64_t KnownCount() const { return complete_ ? known_ : -1; }

    // A column of a row that exists.
    FieldView Field(std::int64_t row, int column) {
        if (rows_) [[unlikely]]
            return rows_->At(row, column);
        if (at_ != row) Seek(row);
        return FieldOf(statement_.Handle(), column);
    }

    bool Running() const { return static_cast<bool>(statement_); }
    // Fetches all rows into memory and ends the statement. 3035 when they are too many.
    void Store();
    // The same, unless the rows are larger than told: then the statement goes on, from the first row. Rows
    // that are in memory already stay there.
    std::shared_ptr<const RowBlock> StoreSmall(std::size_t bytes);

  private:
    void Start(Engine& engine, StatementPool& pool, const std::string& sql);
    bool Advance();
    void Rewind();
    void Seek(std::int64_t row);
    void BecomeStored(std::shared_ptr<const RowBlock> rows);
    void ReturnStatement();
    bool Collect(RowBlock& rows, std::size_t mostBytes);

    std::shared_ptr<const void> owner_;
    std::shared_ptr<CachedStatement> shape_;
    std::shared_ptr<const jetsql::Shape> asked_;  // the statement as asked, with its literals
    Engine* engine_ = nullptr;
    StatementPool* pool_ = nullptr;
    Statement statement_;
    RunMeter::Account account_;
    std::optional<Snapshot> snapshot_;
    std::shared_ptr<const RowBlock> rows_;
    std::int64_t at_ = -1;    // the row on which the statement stands
    std::int64_t known_ = 0;  // rows that are known to exist
    bool complete_ = false;   // and there are no more
};

}  // namespace daoengine
