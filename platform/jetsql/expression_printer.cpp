#include "jetsql/expression_printer.h"

#include <array>
#include <cstdio>

#include "jetsql/errors.h"
#include "jetsql/names.h"
#include "jetsql/select_printer.h"

namespace jetsql {
namespace {

constexpr std::size_t kFlatChain = 32;

const char* SignOf(Operator op) {
    switch (op) {
        case Operator::Equal:
            return " = ";
        case Operator::NotEqual:
            return " <> ";
        case Operator::Less:
            return " < ";
        case Operator::LessEqual:
            return " <= ";
        case Operator::Greater:
            return " > ";
        case Operator::GreaterEqual:
            return " >= ";
        case Operator::Add:
            return " + ";
        case Operator::Subtract:
            return " - ";
        case Operator::Multiply:
            return " * ";
        case Operator::Divide:
        case Operator::IntegerDivide:
            return " / ";
        case Operator::Modulo:
            return " % ";
        case Operator::None:
            break;
    }
    return " ";
}

Operand Atom(std::string sql, ValueType type) {
    Operand operand;
    operand.sql = std::move(sql);
    operand.type = type;
    return operand;
}

Operand ConditionOf(std::string sql, Tightness tightness) {
    Operand operand;
    operand.sql = std::move(sql);
    operand.type = Known(jet::Type::Integer);
    operand.tightness = tightness;
    operand.condition = true;
    return operand;
}

std::string RealText(double value) {
    std::array<char, 40> buffer{};
    std::snprintf(buffer.data(), buffer.size(), "%.17g", value);
    std::string text = buffer.data();
    if (text.find_first_of(".eE") == std::string::npos) text += ".0";
    return text;
}

std::string InPlaceText(const Literal& value) {
    if (const auto* integer = std::get_if<std::int64_t>(&value)) return std::to_string(*integer);
    if (const auto* real = std::get_if<double>(&value)) return RealText(*real);
    return QuotedText(std::get<std::string>(value));
}

jet::Type LiteralType(TokenKind kind) {
    switch (kind) {
        case TokenKind::Integer:
            return jet::Type::Long;
        case TokenKind::Date:
            return jet::Type::DateTime;
        case TokenKind::Text:
            return jet::Type::Memo;
        default:
            return jet::Type::Double;
    }
}

// A long chain as a balanced tree of parentheses, whose depth SQLite bounds.
std::string Balanced(const std::vector<std::string>& operands, std::size_t first, std::size_t last,
                     const char* word) {
    if (last - first <= kFlatChain) {
        std::string sql = operands[first];
        for (std::size_t i = first + 1; i < last; ++i)
            sql += word + operands[i];
        return sql;
    }
    const std::size_t middle = first + (last - first) / 2;
    return '(' + Balanced(operands, first, middle, word) + ')' + word + '(' +
           Balanced(operands, middle, last, word) + ')';
}

}  // namespace

std::string ExpressionPrinter::Wrapped(const Operand& operand, Tightness around) {
    return operand.tightness < around ? '(' + operand.sql + ')' : operand.sql;
}

std::string ExpressionPrinter::Collated(const Operand& operand) {
    if (operand.column || operand.type.OfFamily() != Family::Text)
        return Wrapped(operand, Tightness::Arithmetic);
    return Wrapped(operand, Tightness::Atom) + " COLLATE JET";
}

Operand ExpressionPrinter::Value(const Expression& expression) {
    Operand operand = Print(expression);
    if (!operand.condition) return operand;
    Operand value = Atom("-(" + operand.sql + ')', operand.type);
    value.tightness = Tightness::Arithmetic;
    return value;
}

std::string ExpressionPrinter::Condition(const Expression& expression) {
    const Operand operand = Print(expression);
    if (operand.type.OfFamily() == Family::Text || operand.type.OfFamily() == Family::Binary) FailMismatch();
    return operand.sql;
}

void ExpressionPrinter::FailMismatch() const {
    if (clause_ == Clause::On) Fail(kJoinMismatch, "Type mismatch in JOIN expression.");
    Fail(kCriteriaMismatch, "Data type mismatch in criteria expression.");
}

void ExpressionPrinter::CheckComparable(const Operand& left, const Operand& right) const {
    const bool constants = left.constant && right.constant;  // of different types, they are just unequal
    if (!constants && !Comparable(left.type, right.type)) FailMismatch();
}

Operand ExpressionPrinter::Print(const Expression& expression) {
    switch (expression.kind) {
        case ExpressionKind::Constant:
            return PrintLiteral(expression.literal);
        case ExpressionKind::Null:
            return Atom("NULL", {});
        case ExpressionKind::True:
            return Atom("-1", Known(jet::Type::Boolean));
        case ExpressionKind::False:
            return Atom("0", Known(jet::Type::Boolean));
        case ExpressionKind::Column:
            return PrintColumn(expression);
        case ExpressionKind::Negate:
            return PrintNegate(expression);
        case ExpressionKind::Not:
            return PrintNot(expression);
        case ExpressionKind::And:
        case ExpressionKind::Or:
            return PrintChain(expression);
        case ExpressionKind::Compare:
            return PrintCompare(expression);
        case ExpressionKind::Arithmetic:
            return PrintArithmetic(expression);
        case ExpressionKind::Concat:
            return PrintConcat(expression);
        case ExpressionKind::Between:
            return PrintBetween(expression);
        case ExpressionKind::InList:
            return PrintInList(expression);
        case ExpressionKind::InSelect:
            return PrintInSelect(expression);
        case ExpressionKind::Exists:
            return PrintExists(expression);
        case ExpressionKind::IsNull:
            return PrintIsNull(expression);
        case ExpressionKind::Like:
            return PrintLike(expression);
        case ExpressionKind::Aggregate:
            return PrintAggregate(expression);
        case ExpressionKind::SelectValue:
            return PrintSelectValue(expression);
    }
    Fail(kExpressionSyntax, "Syntax error in query expression.");
}

Operand ExpressionPrinter::PrintLiteral(const LiteralValue& literal) {
    std::string sql =
        literal.ordinal == kInPlace ? InPlaceText(literal.value) : '?' + std::to_string(literal.ordinal + 1);
    Operand operand = Atom(std::move(sql), Known(LiteralType(literal.kind)));
    operand.constant = true;
    if (literal.ordinal == kInPlace && literal.kind != TokenKind::Text)
        operand.tightness = Tightness::Arithmetic;
    return operand;
}

Operand ExpressionPrinter::PrintColumn(const Expression& expression) {
    const Scope::Match match = scope_.Find(expression.table, expression.name);
    if (match.column == nullptr) {
        binding_.Unknown(expression.table, expression.name);
        return Atom("NULL", {});
    }
    Operand operand = Atom(match.column->sql, match.column->type);
    operand.column = true;
    (match.outer ? outerColumn_ : innerColumn_) = true;
    operand.nullable = match.source->nullable;
    return operand;
}

// Arithmetic takes no texts.
void ExpressionPrinter::CheckNumber(const Operand& operand) const {
    const Family family = operand.type.OfFamily();
    if (family == Family::Text || family == Family::Binary) FailMismatch();
}

Operand ExpressionPrinter::PrintNegate(const Expression& expression) {
    const Operand operand = Value(*expression.operands[0]);
    CheckNumber(operand);
    std::string sql = "- " + Wrapped(operand, Tightness::Atom);
    if (operand.type.known && IsIntegerType(operand.type.type)) {
        return Atom("jet_long(" + sql + ')', Known(jet::Type::Long));
    }
    Operand negated = Atom(std::move(sql), operand.type);
    negated.tightness = Tightness::Arithmetic;
    return negated;
}

Operand ExpressionPrinter::PrintNot(const Expression& expression) {
    return ConditionOf("NOT (" + Condition(*expression.operands[0]) + ')', Tightness::Not);
}

Operand ExpressionPrinter::PrintChain(const Expression& expression) {
    const bool isAnd = expression.kind == ExpressionKind::And;
    const Tightness tightness = isAnd ? Tightness::And : Tightness::Or;
    std::vector<std::string> operands;
    operands.reserve(expression.operands.size());
    for (const ExpressionPtr& operand : expression.operands) {
        Operand printed = Print(*operand);
        if (printed.type.OfFamily() == Family::Text || printed.type.OfFamily() == Family::Binary)
            FailMismatch();
        operands.push_back(Wrapped(printed, tightness));
    }
    return ConditionOf(Balanced(operands, 0, operands.size(), isAnd ? " AND " : " OR "), tightness);
}

Operand ExpressionPrinter::PrintCompare(const Expression& expression) {
    const Operand left = Value(*expression.operands[0]);
    const Operand right = Value(*expression.operands[1]);
    CheckComparable(left, right);
    const bool collated = left.type.OfFamily() == Family::Text && !left.column && !right.column;
    const std::string first = collated ? Collated(left) : Wrapped(left, Tightness::Arithmetic);
    return ConditionOf(first + SignOf(expression.op) + Wrapped(right, Tightness::Arithmetic),
                       Tightness::Comparison);
}

Operand ExpressionPrinter::PrintArithmetic(const Expression& expression) {
    const Operand left = Value(*expression.operands[0]);
    const Operand right = Value(*expression.operands[1]);
    const bool texts = left.type.OfFamily() == Family::Text && right.type.OfFamily() == Family::Text;
    if (expression.op == Operator::Add && texts) {
        std::string sql = Wrapped(left, Tightness::Atom) + " || " + Wrapped(right, Tightness::Atom);
        return Atom('(' + sql + ')', Known(jet::Type::Memo));
    }
    CheckNumber(left);
    CheckNumber(right);
    if (expression.op == Operator::Divide || expression.op == Operator::IntegerDivide ||
        expression.op == Operator::Modulo) {
        return PrintDivision(expression, left, right);
    }
    const jet::Type type = left.type.known && right.type.known
                               ? ArithmeticType(left.type.type, right.type.type)
                               : jet::Type::Double;
    std::string sql =
        Wrapped(left, Tightness::Atom) + SignOf(expression.op) + Wrapped(right, Tightness::Atom);
    if (type == jet::Type::Long) return Atom("jet_long(" + sql + ')', Known(type));
    Operand result = Atom(std::move(sql), Known(type));
    result.tightness = Tightness::Arithmetic;
    return result;
}

// `/` always gives a Double; `\` and MOD round their operands to whole numbers first.
Operand ExpressionPrinter::PrintDivision(const Expression& expression, const Operand& left,
                                         const Operand& right) {
    Operand result;
    result.tightness = Tightness::Arithmetic;
    if (expression.op == Operator::Divide) {
        result.sql = "CAST(" + left.sql + " AS REAL) / " + Wrapped(right, Tightness::Atom);
        result.type = Known(jet::Type::Double);
        return result;
    }
    result.sql = "jet_long(" + left.sql + ')' + SignOf(expression.op) + "jet_long(" + right.sql + ')';
    result.type = Known(jet::Type::Long);
    return result;
}

std::string AsText(const Operand& operand) {
    if (!operand.type.known) return operand.sql;
    switch (operand.type.type) {
        case jet::Type::Text:
        case jet::Type::Memo:
        case jet::Type::Guid:
            return operand.sql;
        case jet::Type::DateTime:
            return "jet_text_date(" + operand.sql + ')';
        case jet::Type::Single:
            return "jet_text_single(" + operand.sql + ')';
        default:
            return "jet_text(" + operand.sql + ')';
    }
}

Operand ExpressionPrinter::PrintConcat(const Expression& expression) {
    const Operand left = Value(*expression.operands[0]);
    const Operand right = Value(*expression.operands[1]);
    return Atom("jet_concat(" + AsText(left) + ", " + AsText(right) + ')', Known(jet::Type::Memo));
}

Operand ExpressionPrinter::PrintBetween(const Expression& expression) {
    const Operand value = Value(*expression.operands[0]);
    const Operand low = Value(*expression.operands[1]);
    const Operand high = Value(*expression.operands[2]);
    CheckComparable(value, low);
    CheckComparable(value, high);
    std::string sql = Collated(value) + (expression.negated ? " NOT BETWEEN " : " BETWEEN ");
    sql += Wrapped(low, Tightness::Atom) + " AND " + Wrapped(high, Tightness::Atom);
    return ConditionOf(std::move(sql), Tightness::Comparison);
}

Operand ExpressionPrinter::PrintInList(const Expression& expression) {
    const Operand value = Value(*expression.operands[0]);
    std::string sql = Collated(value) + (expression.negated ? " NOT IN (" : " IN (");
    for (std::size_t i = 1; i < expression.operands.size(); ++i) {
        const Operand item = Value(*expression.operands[i]);
        CheckComparable(value, item);
        sql += (i > 1 ? ", " : "") + item.sql;
    }
    return ConditionOf(sql + ')', Tightness::Comparison);
}

Operand ExpressionPrinter::PrintInSelect(const Expression& expression) {
    const Operand value = Value(*expression.operands[0]);
    const SelectText select = PrintSelect(binding_, *expression.select, &scope_);
    if (select.items.size() != 1) Fail(kSubqueryColumns, "The sub-query must give one field.");
    if (!Comparable(value.type, select.items[0].type)) FailMismatch();
    std::string sql =
        Collated(value) + (expression.negated ? " NOT IN (" : " IN (") + select.Unordered() + ')';
    return ConditionOf(std::move(sql), Tightness::Comparison);
}

Operand ExpressionPrinter::PrintExists(const Expression& expression) {
    const SelectText select = PrintSelect(binding_, *expression.select, &scope_);
    return ConditionOf("EXISTS (" + select.Unordered() + ')', Tightness::Atom);
}

Operand ExpressionPrinter::PrintIsNull(const Expression& expression) {
    const Operand value = Value(*expression.operands[0]);
    return ConditionOf(
        Wrapped(value, Tightness::Arithmetic) + (expression.negated ? " IS NOT NULL" : " IS NULL"),
        Tightness::Comparison);
}

Operand ExpressionPrinter::PrintLike(const Expression& expression) {
    const Operand value = Value(*expression.operands[0]);
    const Operand pattern = Value(*expression.operands[1]);
    if (pattern.type.OfFamily() == Family::Number) FailMismatch();
    std::string sql = "jet_like(" + AsText(value) + ", " + pattern.sql + ')';
    if (!expression.negated) return ConditionOf(std::move(sql), Tightness::Atom);
    return ConditionOf("NOT " + sql, Tightness::Not);
}

Operand ExpressionPrinter::PrintAggregate(const Expression& expression) {
    static constexpr const char* kNames[] = {"COUNT(", "MIN(", "MAX(", "SUM(", "AVG("};
    if (clause_ != Clause::Output && clause_ != Clause::Having && clause_ != Clause::OrderBy) {
        Fail(kAggregateInWhere, "An aggregate function cannot stand here.");
    }
    if (insideAggregate_) Fail(kNestedAggregate, "An aggregate function cannot hold another one.");
    const std::string name = kNames[static_cast<int>(expression.function)];
    if (expression.operands.empty()) return Atom("COUNT(*)", Known(jet::Type::Long));
    insideAggregate_ = true;
    innerColumn_ = outerColumn_ = false;
    const bool numeric =
        expression.function == AggregateFunction::Sum || expression.function == AggregateFunction::Avg;
    const Operand operand = Value(*expression.operands[0]);
    insideAggregate_ = false;
    // SQLite would count such an aggregate among those of the query around this one.
    if (outerColumn_ && !innerColumn_)
        Fail(kAggregateInWhere, "An aggregate function cannot look at outer fields alone.");
    if (numeric) CheckNumber(operand);
    if (expression.function == AggregateFunction::Count)
        return Atom(name + operand.sql + ')', Known(jet::Type::Long));
    const bool same = !numeric || (operand.type.known && operand.type.type == jet::Type::Currency);
    return Atom(name + Collated(operand) + ')', same ? operand.type : Known(jet::Type::Double));
}

// One value: only a sub-select that gives one row at most whatever the tables hold.
Operand ExpressionPrinter::PrintSelectValue(const Expression& expression) {
    const SelectText select = PrintSelect(binding_, *expression.select, &scope_);
    if (select.items.size() != 1) Fail(kSubqueryColumns, "The sub-query must give one field.");
    if (!select.singleRow) Fail(kSubqueryRows, "At most one record can be returned by this sub-query.");
    return Atom('(' + select.Unordered() + ')', select.items[0].type);
}

bool HasAggregate(const Expression& expression) {
    if (expression.kind == ExpressionKind::Aggregate) return true;
    for (const ExpressionPtr& operand : expression.operands) {
        if (HasAggregate(*operand)) return true;
    }
    return false;
}

}  // namespace jetsql
