#include "dao/recordset_state.h"

#include <algorithm>

#include "dao/seam.h"
#include "dao/select.h"
#include "dao/session.h"

namespace daoengine {

void RecordsetState::Open(Session& session, std::string_view sql) {
    OpenSelect(session, sql, cursor_);
    session.Enlist(*this);
    session_ = &session;
    seam::openRecordsets.fetch_add(1, std::memory_order_relaxed);
    place_ = Place::Nowhere;
    visited_ = 0;
    if (cursor_.Exists(0)) StandOn(0);
}

void RecordsetState::Close() {
    if (session_ == nullptr) return;
    session_->Delist(*this);
    session_ = nullptr;
    cursor_.Close();
    seam::openRecordsets.fetch_sub(1, std::memory_order_relaxed);
}

void RecordsetState::StandOn(std::int64_t row) {
    place_ = Place::OnRow;
    row_ = row;
    visited_ = std::max(visited_, row + 1);
}

void RecordsetState::MoveFirst() {
    if (place_ == Place::Nowhere) Throw(3021);
    StandOn(0);
}

void RecordsetState::MoveLast() {
    if (place_ == Place::Nowhere) Throw(3021);
    StandOn(cursor_.Count() - 1);
}

void RecordsetState::Move(std::int64_t rows) {
    if (rows > 0)
        MoveForward(rows);
    else if (rows < 0)
        MoveBack(rows);
    else if (place_ != Place::OnRow)
        Throw(3021);
}

void RecordsetState::MoveForward(std::int64_t rows) {
    if (place_ == Place::After || place_ == Place::Nowhere) Throw(3021);
    const std::int64_t target = (place_ == Place::Before ? -1 : row_) + rows;
    if (cursor_.Exists(target)) {
        StandOn(target);
    } else {
        visited_ = cursor_.Count();
        place_ = Place::After;
    }
}

void RecordsetState::MoveBack(std::int64_t rows) {
    if (place_ == Place::Before || place_ == Place::Nowhere) Throw(3021);
    const std::int64_t target = (place_ == Place::After ? cursor_.Count() : row_) + rows;
    if (target < 0) {
        place_ = Place::Before;
        return;
    }
    // A statement runs one way only: the rows are fetched once rather than run again for each step back.
    if (cursor_.Running()) cursor_.Store();
    StandOn(target);
}

int RecordsetState::ColumnOf(int index) const {
    if (index < 0 || index >= ColumnCount()) Throw(3265);
    return index;
}

int RecordsetState::ColumnCount() const {
    return static_cast<int>(cursor_.Shape().translation.columns.size());
}

}  // namespace daoengine
