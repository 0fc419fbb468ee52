#include "jetsql/errors.h"
#include "jetsql/names.h"
#include "jetsql/parser.h"

namespace jetsql {
namespace {

constexpr int kSourceWeight = 4;

}  // namespace

SelectPtr Parser::ParseSelect() {
    const int place = place_;
    place_ = kSelectSyntax;
    Expect(Keyword::Select);
    auto select = std::make_unique<Select>();
    ParseSelectOptions(*select);
    do {
        select->columns.push_back(ParseSelectColumn());
    } while (Accept(Symbol::Comma));
    if (Accept(Keyword::Into)) select->into = ParseName();
    ParseFrom(*select);
    select->where = ParseWhere();
    ParseGrouping(*select);
    ParseOrderBy(*select);
    if (Is(Keyword::Union)) Fail(kUnionNotSupported, "Union queries are not supported.");
    if (Is(Symbol::Close)) place_ = place;
    return select;
}

void Parser::ParseSelectOptions(Select& select) {
    if (Accept(Keyword::Distinct) || Accept(Keyword::DistinctRow)) {
        select.distinct = tokens_[at_ - 1].keyword == Keyword::Distinct;
    } else {
        Accept(Keyword::All);
    }
    if (!Accept(Keyword::Top)) return;
    const Token count = Take();
    if (count.kind != TokenKind::Integer || count.integer < 0 || IsWord("PERCENT")) FailHere();
    select.top = count.integer;
}

SelectColumn Parser::ParseSelectColumn() {
    SelectColumn column;
    if (Accept(Symbol::Star)) return column;
    const bool qualified = Peek(1).symbol == Symbol::Dot || Peek(1).symbol == Symbol::Bang;
    if (IsName() && qualified && Peek(2).symbol == Symbol::Star) {
        column.table = ParseName();
        Take();
        Take();
        return column;
    }
    if (Is(Keyword::From) || Is(Symbol::Comma) || Peek().kind == TokenKind::End) FailHere();
    column.expression = ParseExpression();
    if (Accept(Keyword::As)) column.alias = ParseName();
    return column;
}

void Parser::ParseFrom(Select& select) {
    if (!Accept(Keyword::From)) return;
    select.from = ParseSources();
    ParseExternal(select);
}

// IN 'path' or IN '' [connect string]; the connect string's brackets hold no name.
void Parser::ParseExternal(Select& select) {
    if (!Accept(Keyword::In)) return;
    place_ = kFromSyntax;
    if (Peek().kind != TokenKind::Text) FailHere();
    ExternalDatabase external;
    external.path = TextOf(Take());
    if (Peek().kind == TokenKind::Bracketed) {
        const std::string_view connect = Take().text;
        external.connect = connect.substr(1, connect.size() - 2);
    } else if (Peek().kind == TokenKind::Text) {
        external.connect = TextOf(Take());
    }
    select.external = std::move(external);
}

ExpressionPtr Parser::ParseWhere() {
    if (!Accept(Keyword::Where)) return nullptr;
    place_ = kExpressionSyntax;
    return ParseExpression();
}

void Parser::ParseGrouping(Select& select) {
    if (Accept(Keyword::Group)) {
        place_ = kSelectSyntax;
        Expect(Keyword::By);
        do {
            select.groupBy.push_back(ParseExpression());
        } while (Accept(Symbol::Comma));
    }
    if (!Accept(Keyword::Having)) return;
    place_ = kExpressionSyntax;
    select.having = ParseExpression();
}

void Parser::ParseOrderBy(Select& select) {
    if (!Accept(Keyword::Order)) return;
    place_ = kOrderBySyntax;
    Expect(Keyword::By);
    do {
        select.orderBy.push_back(ParseOrderItem());
    } while (Accept(Symbol::Comma));
}

OrderItem Parser::ParseOrderItem() {
    OrderItem item;
    if (Peek().kind == TokenKind::End || Is(Symbol::Comma)) FailHere();
    item.expression = ParseExpression();
    const Expression& expression = *item.expression;
    if (expression.kind == ExpressionKind::Constant && expression.literal.kind == TokenKind::Integer) {
        item.position = std::get<std::int64_t>(expression.literal.value);
    }
    item.descending = Accept(Keyword::Desc);
    if (!item.descending) Accept(Keyword::Asc);
    return item;
}

std::vector<SourcePtr> Parser::ParseSources() {
    std::vector<SourcePtr> sources;
    do {
        place_ = kFromSyntax;
        sources.push_back(ParseSource());
    } while (Accept(Symbol::Comma));
    return sources;
}

bool Parser::ParseJoinKind(JoinKind& kind) {
    if (Accept(Keyword::Inner)) {
        kind = JoinKind::Inner;
    } else if (Accept(Keyword::Left)) {
        kind = JoinKind::Left;
        Accept(Keyword::Outer);
    } else if (Accept(Keyword::Right)) {
        kind = JoinKind::Right;
        Accept(Keyword::Outer);
    } else {
        return false;
    }
    place_ = kJoinSyntax;
    Expect(Keyword::Join);
    return true;
}

// One table or one join; a second join needs the first one in parentheses.
SourcePtr Parser::ParseSource() {
    SourcePtr left = ParseSourceItem();
    JoinKind kind = JoinKind::Inner;
    if (!ParseJoinKind(kind)) return left;
    auto join = std::make_unique<Source>();
    join->join = kind;
    join->left = std::move(left);
    join->right = ParseSourceItem();
    place_ = kJoinSyntax;
    Expect(Keyword::On);
    join->on = ParseExpression();
    if (Is(Keyword::Inner) || Is(Keyword::Left) || Is(Keyword::Right)) {
        Fail(kExpressionSyntax, "Syntax error (missing operator): a join of a join needs parentheses.");
    }
    return join;
}

SourcePtr Parser::ParseSourceItem() {
    if (!Is(Symbol::Open)) return ParseNamedSource();
    if (Peek(1).keyword == Keyword::Select) {
        auto source = std::make_unique<Source>();
        const int place = place_;
        source->select = ParseSubquery();
        place_ = place;
        ParseAlias(*source, true);
        return source;
    }
    const Nesting nesting(*this, kSourceWeight);
    Expect(Symbol::Open);
    SourcePtr inner = ParseSource();
    Expect(Symbol::Close);
    return inner;
}

SourcePtr Parser::ParseNamedSource() {
    auto source = std::make_unique<Source>();
    source->name = ParseName();
    ParseAlias(*source, false);
    return source;
}

void Parser::ParseAlias(Source& source, bool required) {
    if (Accept(Keyword::As) || required || IsName()) source.alias = ParseName();
}

}  // namespace jetsql
