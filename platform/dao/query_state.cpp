#include "dao/query_state.h"

#include <utility>

#include "dao/execute.h"
#include "dao/seam.h"
#include "dao/session.h"

namespace daoengine {

void QueryState::Create(Session& session, std::string sql) {
    session.CheckSyntax(sql);
    session.Enlist(*this);
    session_ = &session;
    sql_ = std::move(sql);
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
    rowsAffected_ = ExecuteAction(*session_, sql_);
}

}  // namespace daoengine
