#include "dao/storage_order.h"

#include <compare>
#include <utility>

#include "dao/row_block.h"

namespace daoengine {
namespace {

std::partial_ordering Compare(const FieldView& left, const FieldView& right) {
    if (left.kind != right.kind) return std::partial_ordering::unordered;
    if (left.kind == FieldView::Kind::Integer) return left.integer <=> right.integer;
    if (left.kind == FieldView::Kind::Real) return left.real <=> right.real;
    return std::partial_ordering::unordered;
}

// Whether the row on which a statement stands may follow the one before; its keys take the place of that
// one's.
bool Follows(sqlite3_stmt* row, const std::vector<bool>& descending, std::vector<FieldView>& before) {
    bool decided = false;
    for (std::size_t key = 0; key < before.size(); ++key) {
        const FieldView field = FieldOf(row, static_cast<int>(key));
        const std::partial_ordering order = Compare(std::exchange(before[key], field), field);
        if (order == std::partial_ordering::unordered) return false;
        if (decided || order == 0) continue;
        if ((order > 0) != descending[key]) return false;
        decided = true;
    }
    return true;
}

}  // namespace

bool StorageOrder::IsTheOneOf(Engine& engine, const jetsql::StoredOrder& asked,
                              const std::vector<jetsql::Literal>& literals, const Stamp& now) {
    if (seen_ == now && literals_ == literals) return same_;
    seen_.reset();
    same_ = Look(engine, asked, literals);
    literals_ = literals;
    seen_ = now;
    return same_;
}

bool StorageOrder::Look(Engine& engine, const jetsql::StoredOrder& asked,
                        const std::vector<jetsql::Literal>& literals) {
    Statement keys = keyReaders_.Take(engine, asked.sqlKeys);
    keys.Bind(literals);
    RunMeter::Account account;
    std::vector<FieldView> before;
    bool same = true;
    while (same && keys.Step(account)) {
        if (before.empty())
            for (std::size_t key = 0; key < asked.descending.size(); ++key)
                before.push_back(FieldOf(keys.Handle(), static_cast<int>(key)));
        same = Follows(keys.Handle(), asked.descending, before);
    }
    keyReaders_.Return(std::move(keys));
    return same;
}

}  // namespace daoengine
