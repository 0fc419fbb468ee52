#include <algorithm>
#include <set>

#include "jetsql/errors.h"
#include "jetsql/names.h"
#include "jetsql/select_printer.h"
#include "jetsql/statement_printers.h"
#include "jetsql/store.h"

namespace jetsql {
namespace {

const jet::Column& ColumnNamed(const jet::Table& table, const std::string& name) {
    for (const jet::Column& column : table.columns) {
        if (SameName(column.name, name)) return column;
    }
    Fail(kUnknownTarget, "The INSERT INTO statement contains the unknown field name '" + name + "'.");
}

// The columns that are written, in the order of their values.
using Targets = std::vector<const jet::Column*>;

Targets TargetsNamed(const jet::Table& table, const std::vector<std::string>& names) {
    Targets targets;
    for (const std::string& name : names) {
        const jet::Column* column = &ColumnNamed(table, name);
        if (std::find(targets.begin(), targets.end(), column) != targets.end()) {
            Fail(kDuplicateDestination, "Duplicate output destination '" + name + "'.");
        }
        targets.push_back(column);
    }
    return targets;
}

Targets AllColumns(const jet::Table& table) {
    Targets targets;
    for (const jet::Column& column : table.columns)
        targets.push_back(&column);
    return targets;
}

void CheckCount(const Targets& targets, std::size_t values) {
    if (targets.size() == values) return;
    Fail(kValueCount, "Number of query values and destination fields are not the same.");
}

const jet::Column* UnnamedCounter(const jet::Table& table, const Targets& targets) {
    for (const jet::Column& column : table.columns) {
        if (column.counter && std::find(targets.begin(), targets.end(), &column) == targets.end())
            return &column;
    }
    return nullptr;
}

std::string ColumnList(const jet::Table& table, const Targets& targets, const jet::Column* counter) {
    std::string sql = "INSERT INTO " + Quoted(table.name) + " (";
    for (const jet::Column* column : targets)
        sql += (column == targets.front() ? "" : ", ") + Quoted(column->name);
    if (counter != nullptr) sql += ", " + Quoted(counter->name);
    return sql + ") ";
}

std::string LastCounter(const jet::Table& table, const jet::Column& counter) {
    return "(SELECT coalesce(max(" + Quoted(counter.name) + "), 0) FROM " + Quoted(table.name) + ')';
}

std::string InsertValues(Binding& binding, const Insert& insert, const jet::Table& table) {
    const Targets targets = insert.columns.empty() ? AllColumns(table) : TargetsNamed(table, insert.columns);
    CheckCount(targets, insert.values.size());
    const Scope scope(nullptr);
    ExpressionPrinter printer(binding, scope, ExpressionPrinter::Clause::Values);
    std::string values;
    for (std::size_t i = 0; i < targets.size(); ++i) {
        values += (i > 0 ? ", " : "") + Stored(printer.Value(*insert.values[i]), TypeOf(*targets[i]));
    }
    const jet::Column* counter = UnnamedCounter(table, targets);
    if (counter != nullptr) values += ", " + LastCounter(table, *counter) + " + 1";
    return ColumnList(table, targets, counter) + "VALUES (" + values + ')';
}

std::vector<std::string> NamesOf(const std::vector<SelectItem>& items) {
    std::vector<std::string> names;
    const std::vector<std::string> unnamed = OutputNames(items, '.');
    for (std::size_t i = 0; i < items.size(); ++i)
        names.push_back(items[i].name.empty() ? unnamed[i] : items[i].name);
    return names;
}

Operand OutputValue(const SelectItem& item, std::string sql) {
    Operand value;
    value.sql = std::move(sql);
    value.type = item.type;
    value.nullable = item.nullable;
    return value;
}

// The rows as they are stored, in the order in which the SELECT gives them. What counts or compares whole
// rows becomes a sub-select, so that conversions come after it.
std::string StoredRows(SelectText text, const Targets& targets, const std::string& counterBase) {
    if (text.distinct || text.grouped || text.top) {
        SelectText outer;
        outer.tail = " FROM (" + text.Derived() + ')';
        for (std::size_t i = 0; i < text.items.size(); ++i) {
            outer.items.push_back(text.items[i]);
            outer.items.back().sql = 'c' + std::to_string(i + 1);
        }
        for (std::size_t i = 0; i < text.order.size(); ++i) {
            outer.order.push_back({'k' + std::to_string(i + 1), text.order[i].descending});
        }
        text = std::move(outer);
    }
    for (std::size_t i = 0; i < text.items.size(); ++i) {
        text.items[i].sql = Stored(OutputValue(text.items[i], text.items[i].sql), TypeOf(*targets[i]));
    }
    if (!counterBase.empty()) {
        SelectItem number;
        number.sql = counterBase + " + row_number() OVER (" +
                     OrderClause(text.order).substr(text.order.empty() ? 0 : 1) + ')';
        text.items.push_back(std::move(number));
    }
    return text.Ordered();
}

std::string InsertSelect(Binding& binding, const Insert& insert, const jet::Table& table) {
    SelectText text = PrintSelect(binding, *insert.select, nullptr);
    binding.RefuseUnknown();
    const bool byName = insert.columns.empty();
    const Targets targets = TargetsNamed(table, byName ? NamesOf(text.items) : insert.columns);
    CheckCount(targets, text.items.size());
    const jet::Column* counter = UnnamedCounter(table, targets);
    const std::string base = counter != nullptr ? LastCounter(table, *counter) : std::string();
    return ColumnList(table, targets, counter) + StoredRows(std::move(text), targets, base);
}

}  // namespace

void TranslateInsert(Binding& binding, const Insert& insert) {
    const jet::Table* table = binding.catalogue.FindTable(insert.table);
    if (table == nullptr)
        Fail(kOutputTableNotFound, "Could not find the output table '" + insert.table + "'.");
    binding.Touch(*table);
    binding.result.kind = StatementKind::Insert;
    binding.result.target = table->name;
    binding.result.sql =
        insert.select ? InsertSelect(binding, insert, *table) : InsertValues(binding, insert, *table);
}

}  // namespace jetsql
