#include "jetsql/select_printer.h"

#include <algorithm>

#include "jetsql/errors.h"
#include "jetsql/from_printer.h"
#include "jetsql/names.h"

namespace jetsql {
namespace {

using Clause = ExpressionPrinter::Clause;

bool HasColumn(const Expression& expression) {
    if (expression.kind == ExpressionKind::Column || expression.kind == ExpressionKind::Aggregate ||
        expression.select) {
        return true;
    }
    return std::any_of(expression.operands.begin(), expression.operands.end(),
                       [](const ExpressionPtr& operand) { return HasColumn(*operand); });
}

std::string ItemSql(const Operand& operand) {
    return operand.type.OfFamily() == Family::Text ? ExpressionPrinter::Collated(operand) : operand.sql;
}

class SelectPrinter {
  public:
    SelectPrinter(Binding& binding, const Select& select, const Scope* outer)
        : binding_(binding), select_(select), scope_(outer) {}

    SelectText Print();

  private:
    void PrintGroupBy(std::string& tail);
    void PrintItems();
    void AddStar(const SelectColumn& column);
    void AddSource(const BoundSource& source);
    void AddItem(const SelectColumn& column);
    bool HasAggregates() const;
    void CheckGrouped(const Expression& expression) const;
    void PrintOrder();
    void AddKey(const OrderItem& item);
    OrderKey KeyOf(const OrderItem& item);
    std::string AliasedItem(const Expression& expression) const;
    void AddTieBreaks();
    void AddKey(const OrderKey& key);
    Operand Value(const Expression& expression, Clause clause);

    Binding& binding_;
    const Select& select_;
    Scope scope_;
    SelectText text_;
    std::vector<const BoundColumn*> groupColumns_;
    std::vector<OrderKey> groupKeys_;
};

Operand SelectPrinter::Value(const Expression& expression, Clause clause) {
    return ExpressionPrinter(binding_, scope_, clause).Value(expression);
}

bool SelectPrinter::HasAggregates() const {
    if (select_.having && HasAggregate(*select_.having)) return true;
    for (const OrderItem& item : select_.orderBy) {
        if (HasAggregate(*item.expression)) return true;
    }
    return std::any_of(select_.columns.begin(), select_.columns.end(), [](const SelectColumn& column) {
        return column.expression && HasAggregate(*column.expression);
    });
}

SelectText SelectPrinter::Print() {
    const FromText from = PrintFrom(binding_, scope_, select_.from, select_.external);
    if (select_.where) {
        text_.where = ExpressionPrinter(binding_, scope_, Clause::Where).Condition(*select_.where);
    }
    text_.tail = select_.from.empty() ? "" : " FROM " + from.sql;
    text_.tail += WhereClause(from.conditions, text_.where);
    text_.distinct = select_.distinct;
    text_.grouped = !select_.groupBy.empty() || select_.having || HasAggregates();
    text_.top = select_.top;
    text_.singleRow = (text_.grouped && select_.groupBy.empty()) || select_.from.empty() || select_.top == 1;
    if (scope_.Size() == 1 && !text_.grouped && !text_.distinct) {
        text_.rowid = scope_.At(0).rowid;
        if (!text_.rowid.empty()) text_.rowSource = scope_.At(0).from;
    }
    PrintGroupBy(text_.tail);
    PrintItems();
    PrintOrder();
    return std::move(text_);
}

void SelectPrinter::PrintGroupBy(std::string& tail) {
    for (const ExpressionPtr& expression : select_.groupBy) {
        const Operand operand = Value(*expression, Clause::GroupBy);
        if (expression->kind == ExpressionKind::Column) {
            groupColumns_.push_back(scope_.Find(expression->table, expression->name).column);
        }
        // A bare number would be a position to SQLite.
        const std::string sql = HasColumn(*expression) ? ItemSql(operand) : "NULL";
        tail += (expression == select_.groupBy.front() ? " GROUP BY " : ", ") + sql;
        if (HasColumn(*expression)) groupKeys_.push_back({sql, false});
    }
    if (!select_.having) return;
    CheckGrouped(*select_.having);
    if (select_.groupBy.empty() && !HasAggregates()) tail += " GROUP BY NULL";
    tail += " HAVING " + ExpressionPrinter(binding_, scope_, Clause::Having).Condition(*select_.having);
}

// Outside of aggregates only what the rows are grouped by has one value per group.
void SelectPrinter::CheckGrouped(const Expression& expression) const {
    if (!text_.grouped || expression.kind == ExpressionKind::Aggregate) return;
    if (expression.kind == ExpressionKind::Column) {
        const Scope::Match match = scope_.Find(expression.table, expression.name);
        const bool free = match.column == nullptr || match.outer;
        if (!free &&
            std::find(groupColumns_.begin(), groupColumns_.end(), match.column) == groupColumns_.end()) {
            Fail(kNotGrouped, "The field '" + expression.name + "' is not part of an aggregate function.");
        }
    }
    for (const ExpressionPtr& operand : expression.operands)
        CheckGrouped(*operand);
}

void SelectPrinter::PrintItems() {
    for (const SelectColumn& column : select_.columns) {
        if (column.expression) {
            AddItem(column);
        } else {
            AddStar(column);
        }
        if (text_.items.size() > kMostFields) Fail(kTooManyFields, "Too many fields defined.");
    }
}

void SelectPrinter::AddStar(const SelectColumn& column) {
    if (text_.grouped) Fail(kGroupedStar, "Cannot group on fields selected with '*'.");
    if (select_.from.empty()) Fail(kNoInputTable, "The query needs an input table.");
    if (!column.table.empty()) {
        const BoundSource* source = scope_.FindSource(column.table);
        if (source == nullptr) return binding_.Unknown(column.table, "*");
        return AddSource(*source);
    }
    for (std::size_t i = 0; i < scope_.Size(); ++i)
        AddSource(scope_.At(i));
}

void SelectPrinter::AddSource(const BoundSource& source) {
    for (const BoundColumn& column : source.columns) {
        SelectItem item;
        item.sql = column.sql;
        item.name = column.name;
        item.table = source.name;
        item.type = column.type;
        item.counter = column.counter;
        item.nullable = source.nullable;
        text_.items.push_back(std::move(item));
    }
}

void SelectPrinter::AddItem(const SelectColumn& column) {
    const Expression& expression = *column.expression;
    CheckGrouped(expression);
    const Operand operand = Value(expression, Clause::Output);
    SelectItem item;
    item.sql = ItemSql(operand);
    item.type = operand.type;
    item.nullable = operand.nullable;
    item.constant = !HasColumn(expression);
    item.named = !column.alias.empty();
    if (expression.kind == ExpressionKind::Column) {
        const Scope::Match match = scope_.Find(expression.table, expression.name);
        item.name = match.column != nullptr ? match.column->name : expression.name;
        item.table = match.source != nullptr ? match.source->name : "";
        item.counter = match.column != nullptr && match.column->counter;
    }
    if (item.named) item.name = column.alias;
    text_.items.push_back(std::move(item));
}

void SelectPrinter::PrintOrder() {
    for (const OrderItem& item : select_.orderBy)
        AddKey(item);
    text_.ownKeys = text_.order.size();
    AddTieBreaks();
}

void SelectPrinter::AddKey(const OrderKey& key) {
    const bool known = std::any_of(text_.order.begin(), text_.order.end(),
                                   [&](const OrderKey& other) { return other.sql == key.sql; });
    if (!known) text_.order.push_back(key);
}

// A constant orders nothing, and a bare number would be a position to SQLite.
void SelectPrinter::AddKey(const OrderItem& item) {
    if (item.position) {
        const std::int64_t position = *item.position;
        if (position < 1 || position > static_cast<std::int64_t>(text_.items.size())) {
            Fail(kOrderBySyntax, "ORDER BY names an output position that does not exist.");
        }
        const SelectItem& output = text_.items[static_cast<std::size_t>(position - 1)];
        if (!output.constant) AddKey(OrderKey{output.sql, item.descending});
    } else if (HasColumn(*item.expression)) {
        AddKey(KeyOf(item));
    }
}

// The output with an alias that no column here is named like.
std::string SelectPrinter::AliasedItem(const Expression& expression) const {
    if (expression.kind != ExpressionKind::Column || !expression.table.empty()) return {};
    const Scope::Match match = scope_.Find({}, expression.name);
    if (match.column != nullptr && !match.outer) return {};
    for (const SelectItem& item : text_.items) {
        if (item.named && SameName(item.name, expression.name)) return item.constant ? "NULL" : item.sql;
    }
    return {};
}

OrderKey SelectPrinter::KeyOf(const OrderItem& item) {
    std::string sql = AliasedItem(*item.expression);
    if (sql.empty()) {
        CheckGrouped(*item.expression);
        sql = ItemSql(Value(*item.expression, Clause::OrderBy));
    }
    const bool selected = std::any_of(text_.items.begin(), text_.items.end(),
                                      [&](const SelectItem& output) { return output.sql == sql; });
    if (text_.distinct && !selected && sql != "NULL") {
        Fail(kOrderByNotSelected, "ORDER BY clause conflicts with DISTINCT.");
    }
    return {std::move(sql), item.descending};
}

// Rows that tie come in storage order; those of DISTINCT by their outputs, groups by what they are grouped
// by.
void SelectPrinter::AddTieBreaks() {
    if (text_.distinct) {
        for (const SelectItem& item : text_.items) {
            if (!item.constant) AddKey(OrderKey{item.sql, false});
        }
    } else if (text_.grouped) {
        for (const OrderKey& key : groupKeys_)
            AddKey(key);
    } else {
        for (std::size_t i = 0; i < scope_.Size(); ++i) {
            for (const OrderKey& key : scope_.At(i).storageOrder)
                AddKey(key);
        }
    }
}

}  // namespace

SelectText PrintSelect(Binding& binding, const Select& select, const Scope* outer) {
    return SelectPrinter(binding, select, outer).Print();
}

}  // namespace jetsql
