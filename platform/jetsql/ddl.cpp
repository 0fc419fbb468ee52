#include "jetsql/ddl.h"

#include <charconv>

#include "jetsql/names.h"

namespace jetsql {
namespace {

struct TypeForm {
    jet::Type type;
    std::string_view words;
};

constexpr TypeForm kTypeForms[] = {
    {jet::Type::Boolean, "BIT INTEGER"},
    {jet::Type::Byte, "BYTE INTEGER"},
    {jet::Type::Integer, "SHORT INTEGER"},
    {jet::Type::Long, "LONG INTEGER"},
    {jet::Type::Currency, "CURRENCY REAL"},
    {jet::Type::Single, "SINGLE REAL"},
    {jet::Type::Double, "DOUBLE REAL"},
    {jet::Type::DateTime, "DATETIME REAL"},
    {jet::Type::Binary, "BINARY BLOB"},
    {jet::Type::Text, "JETTEXT TEXT"},
    {jet::Type::LongBinary, "LONGBINARY BLOB"},
    {jet::Type::Memo, "MEMO TEXT"},
    {jet::Type::Guid, "GUID TEXT"},
    {jet::Type::Decimal, "DECIMAL NUMERIC"},
};

constexpr std::string_view kCounterWords = "COUNTER INTEGER";

bool IsText(jet::Type type) {
    return type == jet::Type::Text || type == jet::Type::Memo || type == jet::Type::Guid;
}

int ReadNumber(std::string_view& text) {
    int value = 0;
    const auto parsed = std::from_chars(text.data(), text.data() + text.size(), value);
    text.remove_prefix(static_cast<std::size_t>(parsed.ptr - text.data()));
    if (!text.empty()) text.remove_prefix(1);
    return value;
}

// The numbers in parentheses after the words of a declared type.
void ReadSizes(std::string_view sizes, jet::Column& column) {
    const int first = ReadNumber(sizes);
    if (column.type == jet::Type::Decimal) {
        column.precision = first;
        column.scale = ReadNumber(sizes);
    } else {
        column.size = first;
    }
}

bool Contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

jet::Type TypeByAffinity(const std::string& declared) {
    if (Contains(declared, "int")) return jet::Type::Long;
    if (Contains(declared, "char") || Contains(declared, "clob") || Contains(declared, "text"))
        return jet::Type::Memo;
    if (Contains(declared, "blob") || declared.empty()) return jet::Type::LongBinary;
    return jet::Type::Double;
}

std::string ColumnSql(const jet::Column& column) {
    std::string sql = Quoted(column.name) + ' ' + DeclaredType(column);
    if (IsText(column.type)) sql += " COLLATE JET";
    if (column.type == jet::Type::Boolean) sql += " DEFAULT 0";
    if (column.required) sql += " NOT NULL";
    return sql;
}

}  // namespace

std::string DeclaredType(const jet::Column& column) {
    if (column.counter && column.type == jet::Type::Long) return std::string(kCounterWords);
    std::string words;
    for (const TypeForm& form : kTypeForms) {
        if (form.type == column.type) words = form.words;
    }
    if (column.type == jet::Type::Decimal) {
        words += '(' + std::to_string(column.precision) + ',' + std::to_string(column.scale) + ')';
    } else if (column.size > 0 && (column.type == jet::Type::Text || column.type == jet::Type::Binary)) {
        words += '(' + std::to_string(column.size) + ')';
    }
    return words;
}

jet::Column ColumnFromDeclaration(std::string_view name, std::string_view declaredType) {
    jet::Column column;
    column.name = name;
    const std::size_t open = declaredType.find('(');
    const std::string_view words = declaredType.substr(0, open);
    if (SameName(words, kCounterWords)) {
        column.counter = true;
        return column;
    }
    for (const TypeForm& form : kTypeForms) {
        if (!SameName(words, form.words)) continue;
        column.type = form.type;
        if (open != std::string_view::npos) ReadSizes(declaredType.substr(open + 1), column);
        return column;
    }
    column.type = TypeByAffinity(FoldedName(declaredType));
    return column;
}

std::string CreateTableSql(const jet::Table& table) {
    std::string sql = "CREATE TABLE " + Quoted(table.name) + " (";
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        if (i > 0) sql += ", ";
        sql += ColumnSql(table.columns[i]);
    }
    return sql += ')';
}

std::string AddColumnSql(std::string_view table, const jet::Column& column) {
    return "ALTER TABLE " + Quoted(table) + " ADD COLUMN " + ColumnSql(column);
}

std::string DropColumnSql(std::string_view table, std::string_view column) {
    return "ALTER TABLE " + Quoted(table) + " DROP COLUMN " + Quoted(column);
}

std::string DropTableSql(std::string_view table) {
    return "DROP TABLE " + Quoted(table);
}

std::string IndexName(std::string_view table, std::string_view index) {
    return std::string(table) + '.' + std::string(index);
}

std::string CreateIndexSql(std::string_view table, const jet::Index& index) {
    std::string sql = index.unique ? "CREATE UNIQUE INDEX " : "CREATE INDEX ";
    sql += Quoted(IndexName(table, index.name)) + " ON " + Quoted(table) + " (";
    for (std::size_t i = 0; i < index.columns.size(); ++i) {
        if (i > 0) sql += ", ";
        sql += Quoted(index.columns[i].name);
        if (index.columns[i].descending) sql += " DESC";
    }
    return sql += ')';
}

std::string DropIndexSql(std::string_view table, std::string_view index) {
    return "DROP INDEX " + Quoted(IndexName(table, index));
}

}  // namespace jetsql
