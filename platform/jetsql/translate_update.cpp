#include <algorithm>
#include <set>

#include "jetsql/errors.h"
#include "jetsql/from_printer.h"
#include "jetsql/names.h"
#include "jetsql/select_printer.h"
#include "jetsql/statement_printers.h"
#include "jetsql/store.h"

namespace jetsql {
namespace {

using Clause = ExpressionPrinter::Clause;

class UpdatePrinter {
  public:
    UpdatePrinter(Binding& binding, const Update& update)
        : binding_(binding), update_(update), scope_(nullptr) {}

    void Print();

  private:
    struct NewValue {
        std::string column;  // the table's spelling
        std::string sql;     // the value as it is stored
    };

    void PrintAssignments();
    const BoundColumn* FindTarget(const Expression& target);
    std::string OverOneTable() const;
    std::string OverJoin() const;
    std::string LastMatches() const;
    std::string RankedMatches() const;
    std::string MatchedRows(const BoundSource& joined) const;
    const BoundSource* OnlyJoinedTable() const;
    bool ReadsOldValues() const;
    std::vector<OrderKey> MatchOrder() const;

    Binding& binding_;
    const Update& update_;
    Scope scope_;
    FromText from_;
    std::string where_;
    const BoundSource* target_ = nullptr;
    std::vector<NewValue> values_;
};

void UpdatePrinter::Print() {
    from_ = PrintFrom(binding_, scope_, update_.from, std::nullopt);
    PrintAssignments();
    if (update_.where) where_ = ExpressionPrinter(binding_, scope_, Clause::Where).Condition(*update_.where);
    where_ = WhereClause(from_.conditions, where_);
    binding_.RefuseUnknown();
    binding_.result.kind = StatementKind::Update;
    binding_.result.target = target_->table->name;
    binding_.result.sql = scope_.Size() == 1 ? OverOneTable() : OverJoin();
}

// The column that an assignment sets; all must belong to one table of this database.
const BoundColumn* UpdatePrinter::FindTarget(const Expression& target) {
    const Scope::Match match = scope_.Find(target.table, target.name);
    if (match.column == nullptr) {
        binding_.Unknown(target.table, target.name);
        return nullptr;
    }
    if (target_ == nullptr) target_ = match.source;
    if (target_ != match.source || target_->table == nullptr) {
        Fail(kNotUpdatable, "Operation must use an updatable query.");
    }
    return match.column;
}

void UpdatePrinter::PrintAssignments() {
    ExpressionPrinter printer(binding_, scope_, Clause::Values);
    std::set<std::string> names;
    for (const Assignment& assignment : update_.assignments) {
        const BoundColumn* column = FindTarget(*assignment.target);
        const Operand value = printer.Value(*assignment.value);
        if (column == nullptr) continue;
        if (!names.insert(column->name).second) {
            Fail(kDuplicateDestination, "Duplicate output destination '" + column->name + "'.");
        }
        values_.push_back({column->name, Stored(value, column->type)});
    }
}

std::string UpdatePrinter::OverOneTable() const {
    std::string sql = "UPDATE " + target_->from + " SET ";
    for (std::size_t i = 0; i < values_.size(); ++i) {
        sql += (i > 0 ? ", " : "") + Quoted(values_[i].column) + " = " + values_[i].sql;
    }
    return sql + where_;
}

// The order in which the matches of one target row are applied.
std::vector<OrderKey> UpdatePrinter::MatchOrder() const {
    std::vector<OrderKey> order;
    for (std::size_t i = 0; i < scope_.Size(); ++i) {
        const BoundSource& source = scope_.At(i);
        if (&source == target_) continue;
        order.insert(order.end(), source.storageOrder.begin(), source.storageOrder.end());
    }
    return order;
}

// The target rows with the last match of each. Only row numbers are grouped; the values are read by them
// afterwards, so that what SQLite sorts and indexes on the way stays narrow.
std::string UpdatePrinter::LastMatches() const {
    const BoundSource* joined = OnlyJoinedTable();
    if (joined == nullptr) return RankedMatches();
    std::string sql = "SELECT q.r AS r";
    for (std::size_t i = 0; i < values_.size(); ++i)
        sql += ", " + values_[i].sql + " AS v" + std::to_string(i + 1);
    sql += " FROM (SELECT " + target_->rowid + " AS r, max(" + joined->rowid + ") AS n FROM " +
           MatchedRows(*joined) + " GROUP BY " + target_->rowid + ") AS q";
    if (ReadsOldValues()) sql += " JOIN " + target_->from + " ON " + target_->rowid + " = q.r";
    return sql + (joined->nullable ? " LEFT JOIN " : " JOIN ") + joined->from + " ON " + joined->rowid +
           " = q.n";
}

// The pairs of target row and joined row, with FROM's and WHERE's conditions. An inner join reads the joined
// table once, as it is stored, and finds the target rows by their keys, for which SQLite makes an index of
// its own: left to itself it may read the joined table for every target row, by an index on some column of a
// filter.
std::string UpdatePrinter::MatchedRows(const BoundSource& joined) const {
    if (update_.from.size() != 1 || update_.from[0]->join != JoinKind::Inner) return from_.sql + where_;
    const std::string where =
        where_.empty() ? "" : " AND (" + where_.substr(std::string_view(" WHERE ").size()) + ')';
    return joined.from + (joined.table != nullptr ? " NOT INDEXED" : "") + " CROSS JOIN " + target_->from +
           " WHERE (" + from_.on + ')' + where;
}

// The table that the target is joined to, when it is one table alone.
const BoundSource* UpdatePrinter::OnlyJoinedTable() const {
    if (scope_.Size() != 2) return nullptr;
    const BoundSource& joined = scope_.At(&scope_.At(0) == target_ ? 1 : 0);
    return joined.rowid.empty() ? nullptr : &joined;
}

bool UpdatePrinter::ReadsOldValues() const {
    const std::string qualifier = target_->alias + '.';
    return std::any_of(values_.begin(), values_.end(),
                       [&](const NewValue& value) { return value.sql.find(qualifier) != std::string::npos; });
}

std::string UpdatePrinter::RankedMatches() const {
    std::vector<OrderKey> order = MatchOrder();
    for (OrderKey& key : order)
        key.descending = !key.descending;
    std::string sql = "SELECT * FROM (SELECT " + target_->rowid + " AS r";
    for (std::size_t i = 0; i < values_.size(); ++i)
        sql += ", " + values_[i].sql + " AS v" + std::to_string(i + 1);
    return sql + ", row_number() OVER (PARTITION BY " + target_->rowid + OrderClause(order) +
           ") AS place FROM " + from_.sql + where_ + ") WHERE place = 1";
}

std::string UpdatePrinter::OverJoin() const {
    std::string sql = "UPDATE " + Quoted(target_->table->name) + " AS w SET ";
    for (std::size_t i = 0; i < values_.size(); ++i) {
        sql += (i > 0 ? ", " : "") + Quoted(values_[i].column) + " = m.v" + std::to_string(i + 1);
    }
    return sql + " FROM (" + LastMatches() + ") AS m WHERE w." + RowidName(*target_->table) + " = m.r";
}

}  // namespace

void TranslateUpdate(Binding& binding, const Update& update) {
    UpdatePrinter(binding, update).Print();
}

}  // namespace jetsql
