#include "jetsql/errors.h"
#include "jetsql/names.h"
#include "jetsql/parser.h"

namespace jetsql {

Statement Parser::ParseInsert() {
    place_ = kInsertSyntax;
    Expect(Keyword::Insert);
    Expect(Keyword::Into);
    Insert insert;
    insert.table = ParseName();
    if (Is(Symbol::Open)) {
        Take();
        do {
            const ExpressionPtr column = ParseColumn();
            if (!column->table.empty() && !SameName(column->table, insert.table)) FailHere();
            insert.columns.push_back(column->name);
        } while (Accept(Symbol::Comma));
        Expect(Symbol::Close);
    }
    if (Is(Keyword::Select)) {
        insert.select = ParseSelect();
        if (!insert.select->into.empty()) FailHere();
    } else {
        ParseValues(insert);
    }
    return insert;
}

void Parser::ParseValues(Insert& insert) {
    Expect(Keyword::Values);
    Expect(Symbol::Open);
    do {
        if (Is(Symbol::Comma) || Is(Symbol::Close)) FailHere();
        insert.values.push_back(ParseExpression());
    } while (Accept(Symbol::Comma));
    Expect(Symbol::Close);
}

Statement Parser::ParseUpdate() {
    place_ = kUpdateSyntax;
    Expect(Keyword::Update);
    Update update;
    update.from = ParseSources();
    place_ = kUpdateSyntax;
    Expect(Keyword::Set);
    do {
        update.assignments.push_back(ParseAssignment());
    } while (Accept(Symbol::Comma));
    update.where = ParseWhere();
    return update;
}

Assignment Parser::ParseAssignment() {
    Assignment assignment;
    assignment.target = ParseColumn();
    Expect(Symbol::Equal);
    if (Is(Symbol::Comma) || Is(Keyword::Where) || Peek().kind == TokenKind::End) FailHere();
    assignment.value = ParseExpression();
    return assignment;
}

Statement Parser::ParseDelete() {
    place_ = kSelectSyntax;
    Expect(Keyword::Delete);
    Delete deletion;
    if (!Accept(Symbol::Star) && !Is(Keyword::From)) {
        do {
            deletion.targets.push_back(ParseDeleteTarget());
        } while (Accept(Symbol::Comma));
    }
    place_ = kFromSyntax;
    Expect(Keyword::From);
    deletion.from = ParseSources();
    deletion.where = ParseWhere();
    return deletion;
}

// `t.*`, or a column of `t`, which means the same.
std::string Parser::ParseDeleteTarget() {
    std::string table = ParseName();
    if (!Accept(Symbol::Dot) && !Accept(Symbol::Bang)) return {};
    if (!Accept(Symbol::Star)) ParseName();
    return table;
}

}  // namespace jetsql
