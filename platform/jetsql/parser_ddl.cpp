#include <limits>

#include "jetsql/errors.h"
#include "jetsql/names.h"
#include "jetsql/parser.h"
#include "jetsql/type_words.h"

namespace jetsql {

Statement Parser::ParseCreate() {
    Expect(Keyword::Create);
    if (Accept(Keyword::Table)) return ParseCreateTable();
    place_ = kCreateIndexSyntax;
    const bool unique = Accept(Keyword::Unique);
    if (!unique && !Is(Keyword::Index)) place_ = kCreateTableSyntax;
    Expect(Keyword::Index);
    return ParseCreateIndex(unique);
}

Statement Parser::ParseCreateTable() {
    place_ = kCreateTableSyntax;
    CreateTable create;
    create.table.name = ParseName();
    Expect(Symbol::Open);
    do {
        ParseTableElement(create.table);
    } while (Accept(Symbol::Comma));
    Expect(Symbol::Close);
    return create;
}

void Parser::ParseTableElement(jet::Table& table) {
    place_ = kCreateTableSyntax;
    if (Accept(Keyword::Constraint)) {
        ParseConstraint(table, ParseName(), {});
    } else if (Is(Keyword::Primary) || Is(Keyword::Unique)) {
        ParseConstraint(table, {}, {});
    } else {
        table.columns.push_back(ParseColumnDefinition());
        ParseColumnConstraints(table);
    }
}

void Parser::ParseColumnConstraints(jet::Table& table) {
    const std::string column = table.columns.back().name;
    for (;;) {
        if (Accept(Keyword::Constraint)) {
            ParseConstraint(table, ParseName(), column);
        } else if (Is(Keyword::Primary) || Is(Keyword::Unique)) {
            ParseConstraint(table, {}, column);
        } else if (Accept(Keyword::Not)) {
            Expect(Keyword::Null);
            table.columns.back().required = true;
        } else if (!Accept(Keyword::Null)) {
            return;
        }
    }
}

// A key of one column, written after it, or of the columns in parentheses.
void Parser::ParseConstraint(jet::Table& table, std::string name, const std::string& column) {
    jet::Index index;
    index.primary = Accept(Keyword::Primary);
    Expect(index.primary ? Keyword::Key : Keyword::Unique);
    index.unique = true;
    index.required = index.primary;
    if (column.empty()) {
        index.columns = ParseIndexColumns();
    } else {
        index.columns = {{column, false}};
    }
    index.name = !name.empty() ? std::move(name) : index.primary ? "PrimaryKey" : index.columns.front().name;
    table.indexes.push_back(std::move(index));
}

std::vector<jet::IndexColumn> Parser::ParseIndexColumns() {
    std::vector<jet::IndexColumn> columns;
    Expect(Symbol::Open);
    do {
        jet::IndexColumn column;
        column.name = ParseName();
        column.descending = Accept(Keyword::Desc);
        if (!column.descending) Accept(Keyword::Asc);
        columns.push_back(std::move(column));
    } while (Accept(Symbol::Comma));
    Expect(Symbol::Close);
    return columns;
}

Statement Parser::ParseCreateIndex(bool unique) {
    place_ = kCreateIndexSyntax;
    CreateIndex create;
    create.index.name = ParseName();
    create.index.unique = unique;
    Expect(Keyword::On);
    create.table = ParseName();
    create.index.columns = ParseIndexColumns();
    if (Accept(Keyword::With)) ParseIndexOptions(create.index);
    return create;
}

void Parser::ParseIndexOptions(jet::Index& index) {
    if (Accept(Keyword::Primary)) {
        index.primary = index.unique = index.required = true;
    } else if (IsWord("DISALLOW")) {
        Take();
        Expect(Keyword::Null);
        index.required = true;
    } else if (IsWord("IGNORE")) {
        Take();
        Expect(Keyword::Null);
        index.ignoreNulls = true;
    } else {
        FailHere();
    }
}

Statement Parser::ParseAlter() {
    place_ = kAlterTableSyntax;
    Expect(Keyword::Alter);
    Expect(Keyword::Table);
    std::string table = ParseName();
    const bool add = Accept(Keyword::Add);
    if (!add) Expect(Keyword::Drop);
    Accept(Keyword::Column);
    if (add) return AddColumn{std::move(table), ParseColumnDefinition()};
    return DropColumn{std::move(table), ParseName()};
}

Statement Parser::ParseDrop() {
    place_ = kDropSyntax;
    Expect(Keyword::Drop);
    if (Accept(Keyword::Table)) return DropTable{ParseName()};
    Expect(Keyword::Index);
    DropIndex drop;
    drop.index = ParseName();
    Expect(Keyword::On);
    drop.table = ParseName();
    return drop;
}

jet::Column Parser::ParseColumnDefinition() {
    jet::Column column;
    column.name = ParseName();
    place_ = kFieldDefinitionSyntax;
    const Token type = Take();
    if (type.kind != TokenKind::Word || !SetTypeByWord(type.text, column)) {
        Fail(place_, "Syntax error in field definition: '" + std::string(type.text) + "' is no type.");
    }
    if (!Accept(Symbol::Open)) return column;
    const int size = ParseSize();
    const int scale = Accept(Symbol::Comma) ? ParseSize() : 0;
    Expect(Symbol::Close);
    if (!SetTypeSize(column, size, scale)) Fail(place_, "Syntax error in field definition: size.");
    return column;
}

int Parser::ParseSize() {
    const Token size = Take();
    const bool fits = size.kind == TokenKind::Integer && size.integer >= 0;
    if (!fits || size.integer > std::numeric_limits<int>::max())
        Fail(place_, "Syntax error in field definition: size.");
    return static_cast<int>(size.integer);
}

}  // namespace jetsql
