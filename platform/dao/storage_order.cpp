#include "dao/storage_order.h"

#include <sqlite3.h>

#include <algorithm>
#include <compare>
#include <numeric>
#include <utility>

#include "dao/limits.h"
#include "dao/row_block.h"

namespace daoengine {
namespace {

using Kind = FieldView::Kind;

// Null comes before all numbers. Other values, and numbers of two kinds, are not compared.
std::partial_ordering Compare(const FieldView& left, const FieldView& right) {
    if (left.kind == Kind::Null || right.kind == Kind::Null)
        return left.kind == right.kind   ? std::partial_ordering::equivalent
               : left.kind == Kind::Null ? std::partial_ordering::less
                                         : std::partial_ordering::greater;
    if (left.kind != right.kind) return std::partial_ordering::unordered;
    if (left.kind == Kind::Integer) return left.integer <=> right.integer;
    if (left.kind == Kind::Real) return left.real <=> right.real;
    return std::partial_ordering::unordered;
}

// The keys of a table's rows, each key ascending or descending.
class Keys {
  public:
    explicit Keys(const std::vector<bool>& descending)
        : descending_(descending), kinds_(descending.size(), Kind::Null) {}

    // Whether the rows of a statement, the keys in its first columns, come in order.
    bool AreInOrder(Statement& rows);
    // The numbers of the rows, in the column after the keys, in order; null when they cannot be sorted here.
    std::shared_ptr<const jetsql::RowList> Sort(Statement& rows);

  private:
    std::partial_ordering CompareRows(const FieldView* left, const FieldView* right) const;
    bool Add(sqlite3_stmt* row);

    const std::vector<bool>& descending_;
    std::vector<Kind> kinds_;      // of the numbers in each key
    std::vector<FieldView> keys_;  // row by row
    jetsql::RowList numbers_;
};

std::partial_ordering Keys::CompareRows(const FieldView* left, const FieldView* right) const {
    for (std::size_t key = 0; key < descending_.size(); ++key) {
        const std::partial_ordering order =
            descending_[key] ? Compare(right[key], left[key]) : Compare(left[key], right[key]);
        if (std::is_neq(order)) return order;
    }
    return std::partial_ordering::equivalent;
}

bool Keys::AreInOrder(Statement& rows) {
    const std::size_t count = descending_.size();
    std::vector<FieldView> now(count);
    std::vector<FieldView> before;
    RunMeter::Account account;
    while (rows.Step(account)) {
        for (std::size_t key = 0; key < count; ++key) {
            now[key] = FieldOf(rows.Handle(), static_cast<int>(key));
            if (now[key].kind > Kind::Real) return false;
        }
        if (before.empty())
            before = now;
        else if (!std::is_lteq(CompareRows(before.data(), now.data())))
            return false;
        before.swap(now);
    }
    return true;
}

bool Keys::Add(sqlite3_stmt* row) {
    int column = 0;
    for (Kind& kind : kinds_) {
        const FieldView field = FieldOf(row, column++);
        if (kind == Kind::Null) kind = field.kind;
        if (field.kind > Kind::Real || (field.kind != Kind::Null && field.kind != kind)) return false;
        keys_.push_back(field);
    }
    numbers_.push_back(sqlite3_column_int64(row, column));
    return keys_.size() <= limits::kSortedKeys;
}

std::shared_ptr<const jetsql::RowList> Keys::Sort(Statement& rows) {
    RunMeter::Account account;
    while (rows.Step(account))
        if (!Add(rows.Handle())) return nullptr;
    std::vector<std::size_t> places(numbers_.size());
    std::iota(places.begin(), places.end(), 0);
    std::sort(places.begin(), places.end(), [this](std::size_t left, std::size_t right) {
        const std::size_t count = descending_.size();
        const std::partial_ordering order = CompareRows(&keys_[left * count], &keys_[right * count]);
        return std::is_eq(order) ? left < right : std::is_lt(order);
    });
    auto sorted = std::make_shared<jetsql::RowList>();
    sorted->reserve(places.size());
    for (const std::size_t place : places)
        sorted->push_back(numbers_[place]);
    return sorted;
}

}  // namespace

StorageOrder::Answer StorageOrder::Find(Engine& engine, const jetsql::StoredOrder& asked,
                                        const std::vector<jetsql::Literal>& literals, const Stamp& now) {
    if (seen_ == now && literals_ == literals) return answer_;
    seen_.reset();
    Answer answer = Look(engine, asked, literals);
    answer_ = {};
    if (answer.rows && answer.rows->size() > limits::kKeptRowNumbers) return answer;
    answer_ = answer;
    literals_ = literals;
    seen_ = now;
    return answer;
}

StorageOrder::Answer StorageOrder::Look(Engine& engine, const jetsql::StoredOrder& asked,
                                        const std::vector<jetsql::Literal>& literals) {
    Statement rows = keyReaders_.Take(engine, asked.sqlKeys);
    rows.Bind(literals);
    Keys keys(asked.descending);
    Answer answer;
    answer.asStored = keys.AreInOrder(rows);
    if (!answer.asStored) {
        rows.Reset();
        answer.rows = keys.Sort(rows);
    }
    keyReaders_.Return(std::move(rows));
    return answer;
}

}  // namespace daoengine
