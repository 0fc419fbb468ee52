#include <set>

#include "jetsql/errors.h"
#include "jetsql/names.h"
#include "jetsql/select_printer.h"
#include "jetsql/statement_printers.h"

namespace jetsql {
namespace {

constexpr int kNewTextSize = 255;

// The equality lookups of a SELECT over one table, found among the conditions that WHERE joins by AND.
class LookupFinder {
  public:
    LookupFinder(const Binding& binding, const Select& select, const SelectText& text,
                 const jet::Table& table)
        : binding_(binding), source_(*select.from[0]), text_(text), table_(table) {}

    void Find(const Expression& condition, std::vector<EqualityLookup>& lookups) const;

  private:
    void Add(const Expression& column, const Expression& literal, std::vector<EqualityLookup>& lookups) const;
    std::string SqlByRow() const;

    const Binding& binding_;
    const Source& source_;
    const SelectText& text_;
    const jet::Table& table_;
};

void LookupFinder::Find(const Expression& condition, std::vector<EqualityLookup>& lookups) const {
    if (condition.kind == ExpressionKind::And) {
        for (const ExpressionPtr& operand : condition.operands)
            Find(*operand, lookups);
    } else if (condition.kind == ExpressionKind::Compare && condition.op == Operator::Equal) {
        Add(*condition.operands[0], *condition.operands[1], lookups);
        Add(*condition.operands[1], *condition.operands[0], lookups);
    }
}

void LookupFinder::Add(const Expression& column, const Expression& literal,
                       std::vector<EqualityLookup>& lookups) const {
    if (column.kind != ExpressionKind::Column || literal.kind != ExpressionKind::Constant) return;
    if (literal.literal.ordinal == kInPlace) return;
    for (const jet::Column& known : table_.columns) {
        if (!SameName(known.name, column.name)) continue;
        lookups.push_back({known.name, static_cast<std::size_t>(literal.literal.ordinal), SqlByRow()});
    }
}

std::string LookupFinder::SqlByRow() const {
    SelectText one = text_;
    one.tail = " FROM " + Quoted(table_.name) + " AS t1 WHERE (" + text_.where + ") AND t1." +
               RowidName(table_) + " = ?" + std::to_string(binding_.literals + 1);
    return one.Plain();
}

bool AllowsLookup(const Select& select, const SelectText& text) {
    const bool oneTable = select.from.size() == 1 && !select.from[0]->IsJoin() && !select.from[0]->select;
    const bool plain = !text.grouped && !text.top && !select.external;
    return oneTable && plain && select.where;
}

void FindLookups(Binding& binding, const Select& select, const SelectText& text) {
    if (!AllowsLookup(select, text)) return;
    const jet::Table* table = binding.catalogue.FindTable(select.from[0]->name);
    if (table == nullptr) return;
    LookupFinder(binding, select, text, *table).Find(*select.where, binding.result.lookups);
}

OutputColumn OutputOf(const SelectItem& item, std::string name) {
    OutputColumn column;
    column.name = std::move(name);
    column.type = item.type.type;
    column.size = item.type.size;
    column.scale = item.type.scale;
    if (item.type.known) return column;
    column.type = jet::Type::Text;  // of a Null
    column.size = kNewTextSize;
    return column;
}

jet::Column NewColumn(const OutputColumn& output, bool counter) {
    jet::Column column;
    column.name = output.name;
    column.type = output.type;
    column.size = output.size;
    column.scale = output.scale;
    column.precision = output.type == jet::Type::Decimal ? 28 : 0;
    column.counter = counter;
    return column;
}

// The table that SELECT … INTO makes: the outputs' types and sizes, no index.
void DefineNewTable(Binding& binding, const Select& select, const SelectText& text) {
    CheckNewTableName(select.into);
    const jet::Table* existing = binding.catalogue.FindTable(select.into);
    Translation& result = binding.result;
    if (existing != nullptr) {
        for (const std::string& name : result.tables) {
            if (SameName(name, existing->name)) {
                Fail(kSameSourceAndTarget, "The same table is source and destination of a make-table query.");
            }
        }
        Fail(kTableExists, "Table '" + existing->name + "' already exists.");
    }
    const bool single = select.from.size() == 1 && !select.from[0]->IsJoin();
    std::set<std::string> names;
    for (std::size_t i = 0; i < result.columns.size(); ++i) {
        const OutputColumn& column = result.columns[i];
        if (!names.insert(FoldedName(column.name)).second) {
            Fail(kDuplicateField, "The field '" + column.name + "' is defined more than once.");
        }
        result.definition.columns.push_back(NewColumn(column, single && text.items[i].counter));
    }
    result.definition.name = result.target = select.into;
    result.cacheable = false;
}

}  // namespace

void TranslateSelect(Binding& binding, const Select& select) {
    Translation& result = binding.result;
    const bool into = !select.into.empty();
    const SelectText text = PrintSelect(binding, select, nullptr);
    const std::vector<std::string> names = OutputNames(text.items, into ? '_' : '.');
    for (std::size_t i = 0; i < names.size(); ++i)
        result.columns.push_back(OutputOf(text.items[i], names[i]));
    result.kind = into ? StatementKind::SelectInto : StatementKind::Select;
    result.ordered = !select.orderBy.empty() || select.distinct;
    result.sql = text.Ordered();
    if (into) {
        DefineNewTable(binding, select, text);
    } else {
        FindLookups(binding, select, text);
        result.storedOrder = text.InStoredOrder(static_cast<int>(binding.literals) + 1);
    }
}

}  // namespace jetsql
