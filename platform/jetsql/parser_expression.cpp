#include <algorithm>

#include "jetsql/errors.h"
#include "jetsql/names.h"
#include "jetsql/parser.h"

namespace jetsql {
namespace {

constexpr int kExpressionWeight = 3;  // symbols that SQLite's parser holds open for one nested operator
constexpr int kSubqueryWeight = 10;
constexpr std::size_t kLongestChain = 20000;
constexpr int kDeepestExpression = 100;
constexpr int kBinaryLevels = 4;

ExpressionPtr Make(ExpressionKind kind) {
    auto expression = std::make_unique<Expression>();
    expression->kind = kind;
    return expression;
}

void AddOperand(Expression& expression, ExpressionPtr operand) {
    expression.depth = std::max(expression.depth, operand->depth + 1);
    if (expression.depth > kDeepestExpression) Fail(kTooComplex, "Query is too complex.");
    expression.operands.push_back(std::move(operand));
}

ExpressionPtr MakeOver(ExpressionKind kind, ExpressionPtr first, ExpressionPtr second = nullptr) {
    auto expression = Make(kind);
    AddOperand(*expression, std::move(first));
    if (second) AddOperand(*expression, std::move(second));
    return expression;
}

Operator ComparisonOf(Symbol symbol) {
    switch (symbol) {
        case Symbol::Equal:
            return Operator::Equal;
        case Symbol::NotEqual:
            return Operator::NotEqual;
        case Symbol::Less:
            return Operator::Less;
        case Symbol::LessEqual:
            return Operator::LessEqual;
        case Symbol::Greater:
            return Operator::Greater;
        case Symbol::GreaterEqual:
            return Operator::GreaterEqual;
        default:
            return Operator::None;
    }
}

// The arithmetic operators from the loosest level to the tightest.
Operator BinaryOperatorOf(const Token& token, int level) {
    switch (level) {
        case 0:
            if (token.symbol == Symbol::Plus) return Operator::Add;
            return token.symbol == Symbol::Minus ? Operator::Subtract : Operator::None;
        case 1:
            return token.keyword == Keyword::Mod ? Operator::Modulo : Operator::None;
        case 2:
            return token.symbol == Symbol::Backslash ? Operator::IntegerDivide : Operator::None;
        default:
            if (token.symbol == Symbol::Star) return Operator::Multiply;
            return token.symbol == Symbol::Slash ? Operator::Divide : Operator::None;
    }
}

bool AggregateOf(std::string_view name, AggregateFunction& function) {
    static constexpr std::pair<std::string_view, AggregateFunction> kFunctions[] = {
        {"COUNT", AggregateFunction::Count}, {"MIN", AggregateFunction::Min}, {"MAX", AggregateFunction::Max},
        {"SUM", AggregateFunction::Sum},     {"AVG", AggregateFunction::Avg},
    };
    for (const auto& [known, value] : kFunctions) {
        if (!SameName(name, known)) continue;
        function = value;
        return true;
    }
    return false;
}

}  // namespace

ExpressionPtr Parser::ParseExpression() {
    const int place = place_;
    place_ = kExpressionSyntax;
    ExpressionPtr expression = ParseChain(ExpressionKind::Or, Keyword::Or, &Parser::ParseAnd);
    place_ = place;
    return expression;
}

// Operands joined by one keyword, kept side by side so that a long chain makes no deep tree.
ExpressionPtr Parser::ParseChain(ExpressionKind kind, Keyword keyword, ExpressionPtr (Parser::*operand)()) {
    ExpressionPtr first = (this->*operand)();
    if (!Is(keyword)) return first;
    ExpressionPtr chain = MakeOver(kind, std::move(first));
    while (Accept(keyword)) {
        AddOperand(*chain, (this->*operand)());
        if (chain->operands.size() > kLongestChain) Fail(kTooComplex, "Query is too complex.");
    }
    return chain;
}

ExpressionPtr Parser::ParseAnd() {
    return ParseChain(ExpressionKind::And, Keyword::And, &Parser::ParseNot);
}

ExpressionPtr Parser::ParseNot() {
    if (!Accept(Keyword::Not)) return ParseComparison();
    const Nesting nesting(*this, kExpressionWeight);
    return MakeOver(ExpressionKind::Not, ParseNot());
}

ExpressionPtr Parser::ParseComparison() {
    ExpressionPtr left = ParseConcat();
    const Operator op = ComparisonOf(Peek().symbol);
    if (op == Operator::None) return ParsePredicate(std::move(left));
    Take();
    return ParseCompare(std::move(left), op);
}

ExpressionPtr Parser::ParseCompare(ExpressionPtr left, Operator op) {
    ExpressionPtr compare;
    if (Is(Keyword::Any) || Is(Keyword::Some)) {
        if (op != Operator::Equal) FailHere();
        Take();
        compare = MakeOver(ExpressionKind::InSelect, std::move(left));
        compare->select = ParseSubquery();
    } else if (Is(Keyword::All)) {
        if (op != Operator::NotEqual) FailHere();
        Take();
        compare = MakeOver(ExpressionKind::InSelect, std::move(left));
        compare->negated = true;
        compare->select = ParseSubquery();
    } else {
        compare = MakeOver(ExpressionKind::Compare, std::move(left), ParseConcat());
        compare->op = op;
    }
    if (ComparisonOf(Peek().symbol) != Operator::None) FailHere();
    return compare;
}

// What may follow an operand instead of a comparison sign.
ExpressionPtr Parser::ParsePredicate(ExpressionPtr left) {
    if (Is(Keyword::Is)) return ParseIsNull(std::move(left));
    const bool negated = Accept(Keyword::Not);
    ExpressionPtr predicate;
    if (Accept(Keyword::In)) {
        predicate = ParseIn(std::move(left));
    } else if (Accept(Keyword::Between)) {
        predicate = ParseBetween(std::move(left));
    } else if (Accept(Keyword::Like)) {
        predicate = MakeOver(ExpressionKind::Like, std::move(left), ParseConcat());
    } else if (negated) {
        FailHere();
    } else {
        return left;
    }
    predicate->negated = negated;
    return predicate;
}

ExpressionPtr Parser::ParseIn(ExpressionPtr left) {
    if (Peek(1).keyword == Keyword::Select) {
        ExpressionPtr in = MakeOver(ExpressionKind::InSelect, std::move(left));
        in->select = ParseSubquery();
        return in;
    }
    ExpressionPtr in = MakeOver(ExpressionKind::InList, std::move(left));
    Expect(Symbol::Open);
    const Nesting nesting(*this, kExpressionWeight);
    do {
        AddOperand(*in, ParseExpression());
    } while (Accept(Symbol::Comma));
    Expect(Symbol::Close);
    return in;
}

ExpressionPtr Parser::ParseBetween(ExpressionPtr left) {
    ExpressionPtr between = MakeOver(ExpressionKind::Between, std::move(left), ParseConcat());
    Expect(Keyword::And);
    AddOperand(*between, ParseConcat());
    return between;
}

ExpressionPtr Parser::ParseIsNull(ExpressionPtr left) {
    Expect(Keyword::Is);
    ExpressionPtr test = MakeOver(ExpressionKind::IsNull, std::move(left));
    test->negated = Accept(Keyword::Not);
    Expect(Keyword::Null);
    return test;
}

ExpressionPtr Parser::ParseConcat() {
    ExpressionPtr left = ParseBinary(0);
    while (Accept(Symbol::Ampersand)) {
        left = MakeOver(ExpressionKind::Concat, std::move(left), ParseBinary(0));
    }
    return left;
}

ExpressionPtr Parser::ParseBinary(int level) {
    if (level == kBinaryLevels) return ParseUnary();
    ExpressionPtr left = ParseBinary(level + 1);
    for (;;) {
        const Operator op = BinaryOperatorOf(Peek(), level);
        if (op == Operator::None) return left;
        Take();
        left = MakeOver(ExpressionKind::Arithmetic, std::move(left), ParseBinary(level + 1));
        left->op = op;
    }
}

ExpressionPtr Parser::ParseUnary() {
    if (Accept(Symbol::Minus)) {
        const Nesting nesting(*this, kExpressionWeight);
        return MakeOver(ExpressionKind::Negate, ParseUnary());
    }
    if (Accept(Symbol::Plus)) {
        const Nesting nesting(*this, kExpressionWeight);
        return ParseUnary();
    }
    return ParsePrimary();
}

ExpressionPtr Parser::ParsePrimary() {
    const Token& token = Peek();
    if (token.kind >= TokenKind::Integer && token.kind <= TokenKind::Text) {
        ExpressionPtr literal = Make(ExpressionKind::Constant);
        literal->literal = LiteralOf(Take());
        return literal;
    }
    if (token.symbol == Symbol::Open) return ParseParenthesis();
    if (Accept(Keyword::Null)) return Make(ExpressionKind::Null);
    if (Accept(Keyword::True)) return Make(ExpressionKind::True);
    if (Accept(Keyword::False)) return Make(ExpressionKind::False);
    if (Accept(Keyword::Exists)) {
        ExpressionPtr exists = Make(ExpressionKind::Exists);
        exists->select = ParseSubquery();
        return exists;
    }
    if (!IsName()) FailHere();
    return token.kind == TokenKind::Word && Peek(1).symbol == Symbol::Open ? ParseCall() : ParseColumn();
}

ExpressionPtr Parser::ParseParenthesis() {
    if (Peek(1).keyword == Keyword::Select) {
        ExpressionPtr value = Make(ExpressionKind::SelectValue);
        value->select = ParseSubquery();
        return value;
    }
    const Nesting nesting(*this, kExpressionWeight);
    Expect(Symbol::Open);
    ExpressionPtr inner = ParseExpression();
    Expect(Symbol::Close);
    return inner;
}

SelectPtr Parser::ParseSubquery() {
    const Nesting nesting(*this, kSubqueryWeight);
    Expect(Symbol::Open);
    if (!Is(Keyword::Select)) FailHere();
    SelectPtr select = ParseSelect();
    if (!select->into.empty()) FailHere();
    Expect(Symbol::Close);
    return select;
}

ExpressionPtr Parser::ParseCall() {
    ExpressionPtr call = Make(ExpressionKind::Aggregate);
    const std::string name(Take().text);
    if (!AggregateOf(name, call->function)) Fail(kUndefinedFunction, "Undefined function '" + name + "'.");
    Expect(Symbol::Open);
    const Nesting nesting(*this, kExpressionWeight);
    if (call->function != AggregateFunction::Count || !Accept(Symbol::Star))
        AddOperand(*call, ParseExpression());
    Expect(Symbol::Close);
    return call;
}

ExpressionPtr Parser::ParseColumn() {
    ExpressionPtr column = Make(ExpressionKind::Column);
    column->name = ParseName();
    if (!Accept(Symbol::Dot) && !Accept(Symbol::Bang)) return column;
    column->table = std::move(column->name);
    column->name = ParseName();
    return column;
}

}  // namespace jetsql
