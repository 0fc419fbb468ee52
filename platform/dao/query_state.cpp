#include "dao/query_state.h"

#include <utility>

#include "dao/execute.h"
#include "dao/seam.h"

namespace daoengine {

void QueryState::Create(Session& session, std::string sql) {
    sql_ = std::move(sql);
    draft_ = session.Read(sql_);
    session.Enlist(*this);
    session_ = &session;
    rowsAffected_ = 0;
    seam::openQueries.fetch_add(1, std::memory_order_relaxed);
}

void QueryState::Close() {
    if (session_ == nullptr) return;
    session_->Delist(*this);
    session_ = nullptr;
    seam::openQueries.fetch_sub(1, std::memory_order_relaxed);
}

void QueryState::Execute() {
    rowsAffected_ = ExecuteAction(*session_, draft_);
}

}  // namespace daoengine
