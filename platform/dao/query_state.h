#pragma once

#include <cstdint>
#include <string>

#include "dao/session.h"

namespace daoengine {

// A temporary query definition: a statement's text, and what its last run did. It stays usable, as a closed
// one, after its database closed.
class QueryState {
  public:
    QueryState() = default;
    ~QueryState() { Close(); }
    QueryState(const QueryState&) = delete;
    QueryState& operator=(const QueryState&) = delete;

    // Takes a statement (UTF-8). Throws for its syntax; what its names stand for is looked at by Execute.
    void Create(Session& session, std::string sql);
    void Close();
    bool IsOpen() const { return session_ != nullptr; }

    void Execute();
    std::int64_t RowsAffected() const { return rowsAffected_; }

  private:
    Session* session_ = nullptr;
    std::string sql_;
    Draft draft_;
    std::int64_t rowsAffected_ = 0;
};

}  // namespace daoengine
