#pragma once

#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "jet/schema.h"
#include "jetsql/lexer.h"

// The tree that the parser makes of a statement: names as written, nothing looked up yet.
namespace jetsql {

struct Select;
struct Expression;
using ExpressionPtr = std::unique_ptr<Expression>;
using SelectPtr = std::unique_ptr<Select>;

enum class ExpressionKind {
    Constant,
    Null,
    True,
    False,
    Column,
    Negate,
    Not,
    And,
    Or,
    Compare,
    Arithmetic,
    Concat,
    Between,
    InList,
    InSelect,
    Exists,
    IsNull,
    Like,
    Aggregate,
    SelectValue,
};

enum class Operator {
    None,
    Equal,
    NotEqual,
    Less,
    LessEqual,
    Greater,
    GreaterEqual,
    Add,
    Subtract,
    Multiply,
    Divide,
    IntegerDivide,
    Modulo
};

enum class AggregateFunction { Count, Min, Max, Sum, Avg };

struct LiteralValue {
    TokenKind kind = TokenKind::Integer;
    int ordinal = kInPlace;  // parameter, or printed in place
    Literal value;
};

struct Expression {
    ExpressionKind kind = ExpressionKind::Null;
    Operator op = Operator::None;
    AggregateFunction function = AggregateFunction::Count;
    bool negated = false;  // NOT IN, NOT LIKE, NOT BETWEEN, IS NOT NULL
    int depth = 1;         // of the tree below
    LiteralValue literal;
    std::string table;                    // qualifier of a column, or empty
    std::string name;                     // of a column
    std::vector<ExpressionPtr> operands;  // COUNT(*) has none
    SelectPtr select;
};

struct SelectColumn {
    ExpressionPtr expression;  // none for a star
    std::string table;         // of `t.*`
    std::string alias;
};

enum class JoinKind { Inner, Left, Right };

// A table, a sub-select with a name, or a join of two sources.
struct Source;
using SourcePtr = std::unique_ptr<Source>;
struct Source {
    std::string name;
    std::string alias;
    SelectPtr select;
    JoinKind join = JoinKind::Inner;
    SourcePtr left, right;  // both set: a join
    ExpressionPtr on;

    bool IsJoin() const { return left != nullptr; }
};

struct OrderItem {
    ExpressionPtr expression;
    std::optional<std::int64_t> position;  // counted from 1
    bool descending = false;
};

// FROM … IN 'path' [connect]
struct ExternalDatabase {
    std::string path;
    std::string connect;
};

struct Select {
    bool distinct = false;
    std::optional<std::int64_t> top;
    std::vector<SelectColumn> columns;
    std::string into;
    std::vector<SourcePtr> from;
    std::optional<ExternalDatabase> external;
    ExpressionPtr where;
    std::vector<ExpressionPtr> groupBy;
    ExpressionPtr having;
    std::vector<OrderItem> orderBy;
};

struct Insert {
    std::string table;
    std::vector<std::string> columns;
    std::vector<ExpressionPtr> values;
    SelectPtr select;  // instead of the values
};

struct Assignment {
    ExpressionPtr target;  // a column
    ExpressionPtr value;
};

struct Update {
    std::vector<SourcePtr> from;
    std::vector<Assignment> assignments;
    ExpressionPtr where;
};

struct Delete {
    std::vector<std::string> targets;  // the tables named before FROM
    std::vector<SourcePtr> from;
    ExpressionPtr where;
};

struct CreateTable {
    jet::Table table;
};
struct AddColumn {
    std::string table;
    jet::Column column;
};
struct DropColumn {
    std::string table, column;
};
struct DropTable {
    std::string table;
};
struct CreateIndex {
    std::string table;
    jet::Index index;
};
struct DropIndex {
    std::string table, index;
};

using Statement = std::variant<SelectPtr, Insert, Update, Delete, CreateTable, AddColumn, DropColumn,
                               DropTable, CreateIndex, DropIndex>;

}  // namespace jetsql
