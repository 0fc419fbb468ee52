#include <algorithm>

#include "jetsql/names.h"
#include "jetsql/row_list.h"
#include "jetsql/select_printer.h"

namespace jetsql {
namespace {

constexpr int kFirstExpressionNumber = 1000;

bool IsShared(const std::vector<SelectItem>& items, std::size_t index) {
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (i != index && SameName(items[i].name, items[index].name)) return true;
    }
    return false;
}

std::string Columns(char letter, std::size_t count) {
    std::string sql;
    for (std::size_t i = 1; i <= count; ++i)
        sql += (i > 1 ? ", " : "") + (letter + std::to_string(i));
    return sql;
}

}  // namespace

std::vector<std::string> OutputNames(const std::vector<SelectItem>& items, char separator) {
    std::vector<std::string> names;
    int expressions = kFirstExpressionNumber;
    for (std::size_t i = 0; i < items.size(); ++i) {
        const SelectItem& item = items[i];
        if (item.name.empty()) {
            names.push_back("Expr" + std::to_string(expressions++));
        } else {
            const bool qualified = !item.named && !item.table.empty() && IsShared(items, i);
            names.push_back(qualified ? item.table + separator + item.name : item.name);
        }
    }
    return names;
}

std::string OrderClause(const std::vector<OrderKey>& order) {
    std::string sql;
    for (const OrderKey& key : order) {
        sql += (sql.empty() ? " ORDER BY " : ", ") + key.sql + (key.descending ? " DESC" : "");
    }
    return sql;
}

std::string SelectText::Plain() const {
    std::string sql = distinct ? "SELECT DISTINCT " : "SELECT ";
    for (std::size_t i = 0; i < items.size(); ++i)
        sql += (i > 0 ? ", " : "") + items[i].sql;
    return sql + tail;
}

// The rows with outputs c1, c2 … and order keys k1, k2 …, TOP left aside.
std::string SelectText::Source() const {
    std::string sql = distinct ? "SELECT DISTINCT " : "SELECT ";
    for (std::size_t i = 0; i < items.size(); ++i) {
        sql += (i > 0 ? ", " : "") + items[i].sql + " AS c" + std::to_string(i + 1);
    }
    for (std::size_t i = 0; i < order.size(); ++i)
        sql += ", " + order[i].sql + " AS k" + std::to_string(i + 1);
    return sql + tail;
}

// TOP by an ORDER BY keeps the rows that tie with the last one.
std::string SelectText::Ranked(bool keys) const {
    std::vector<OrderKey> ranking;
    for (std::size_t i = 0; i < ownKeys; ++i)
        ranking.push_back({"k" + std::to_string(i + 1), order[i].descending});
    std::string sql = "SELECT " + Columns('c', items.size());
    if (keys && !order.empty()) sql += ", " + Columns('k', order.size());
    return sql + " FROM (SELECT *, rank() OVER (" + OrderClause(ranking).substr(1) + ") AS place FROM (" +
           Source() + ")) WHERE place <= " + std::to_string(*top);
}

// Sorts row numbers and reads the rows by them: no second copy of a wide table. (The bound keeps SQLite from
// leaving out the inner order.)
std::string SelectText::SortedByRow() const {
    SelectText rows = *this;
    rows.items.assign(1, SelectItem());
    rows.items[0].sql = rowid + " AS r";
    return ByRow('(' + rows.Plain() + OrderClause(order) + " LIMIT -1)", "r");
}

// The rows of the table in the order in which a source gives their numbers.
std::string SelectText::ByRow(const std::string& source, const std::string& number) const {
    SelectText whole = *this;
    whole.tail = " FROM " + source + " AS q CROSS JOIN " + rowSource + " ON " + rowid + " = q." + number;
    return whole.Plain();
}

std::string SelectText::Ordered() const {
    if (SortsByRow()) return SortedByRow();
    if (!top) return Plain() + OrderClause(order);
    if (ownKeys == 0) return Plain() + OrderClause(order) + " LIMIT " + std::to_string(*top);
    std::vector<OrderKey> keys;
    for (std::size_t i = 0; i < order.size(); ++i)
        keys.push_back({"k" + std::to_string(i + 1), order[i].descending});
    return Ranked(false) + OrderClause(keys);
}

std::optional<StoredOrder> SelectText::InStoredOrder(int parameter) const {
    if (!SortsByRow() || !where.empty()) return std::nullopt;
    const std::string storageOrder = " ORDER BY " + rowid;
    StoredOrder stored;
    SelectText keys = *this;
    keys.items.clear();
    for (std::size_t i = 0; i < ownKeys; ++i) {
        keys.items.emplace_back().sql = order[i].sql;
        stored.descending.push_back(order[i].descending);
    }
    keys.items.emplace_back().sql = rowid;
    stored.sql = Plain() + storageOrder;
    stored.sqlByList = ByRow(kRowList + ("(?" + std::to_string(parameter) + ')'), "number");
    stored.sqlKeys = keys.Plain() + storageOrder;
    return stored;
}

std::string SelectText::Unordered() const {
    if (!top) return Plain();
    return ownKeys > 0 ? Ranked(false) : Ordered();
}

std::string SelectText::Derived() const {
    if (!top) return Source();
    if (ownKeys > 0) return Ranked(true);
    return Source() + OrderClause(order) + " LIMIT " + std::to_string(*top);
}

}  // namespace jetsql
