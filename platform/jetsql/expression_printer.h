#pragma once

#include <string>

#include "jetsql/scope.h"

namespace jetsql {

// SQLite's operators from the loosest to the tightest, to know where parentheses are due.
enum class Tightness { Or, And, Not, Comparison, Arithmetic, Atom };

// An expression as SQLite's text, and what is known of its value.
struct Operand {
    std::string sql;
    ValueType type;
    Tightness tightness = Tightness::Atom;
    bool condition = false;  // SQLite's 1 and 0 for true and false, where Jet has -1 and 0
    bool column = false;     // carries the collation of its declaration
    bool constant = false;   // a literal
    bool nullable = false;   // a column of an outer-joined source
};

// Prints the expressions of one clause.
class ExpressionPrinter {
  public:
    enum class Clause { Output, Where, On, GroupBy, Having, OrderBy, Values };

    ExpressionPrinter(Binding& binding, const Scope& scope, Clause clause)
        : binding_(binding), scope_(scope), clause_(clause) {}

    // As a value: conditions come as -1 and 0.
    Operand Value(const Expression& expression);

    // As a truth value for WHERE, ON and HAVING.
    std::string Condition(const Expression& expression);

    // A text value with the collation that comparing and sorting it needs.
    static std::string Collated(const Operand& operand);

    // Enclosed in parentheses where the operator around it is tighter.
    static std::string Wrapped(const Operand& operand, Tightness around);

  private:
    Operand Print(const Expression& expression);
    Operand PrintLiteral(const LiteralValue& literal);
    Operand PrintColumn(const Expression& expression);
    Operand PrintNegate(const Expression& expression);
    Operand PrintNot(const Expression& expression);
    Operand PrintChain(const Expression& expression);
    Operand PrintCompare(const Expression& expression);
    Operand PrintArithmetic(const Expression& expression);
    Operand PrintDivision(const Expression& expression, const Operand& left, const Operand& right);
    Operand PrintConcat(const Expression& expression);
    Operand PrintBetween(const Expression& expression);
    Operand PrintInList(const Expression& expression);
    Operand PrintInSelect(const Expression& expression);
    Operand PrintExists(const Expression& expression);
    Operand PrintIsNull(const Expression& expression);
    Operand PrintLike(const Expression& expression);
    Operand PrintAggregate(const Expression& expression);
    Operand PrintSelectValue(const Expression& expression);

    void CheckNumber(const Operand& operand) const;
    void CheckComparable(const Operand& left, const Operand& right) const;
    [[noreturn]] void FailMismatch() const;

    Binding& binding_;
    const Scope& scope_;
    Clause clause_;
    bool insideAggregate_ = false;
    bool innerColumn_ = false;  // seen inside the aggregate at hand
    bool outerColumn_ = false;
};

// Whether an expression holds an aggregate of its own SELECT.
bool HasAggregate(const Expression& expression);

// A value as text, the way Jet writes it.
std::string AsText(const Operand& operand);

}  // namespace jetsql
