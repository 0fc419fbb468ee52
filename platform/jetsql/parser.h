#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "jetsql/ast.h"

namespace jetsql {

// A statement's tree, and the number of literals lifted out of its text.
struct ParsedStatement {
    Statement tree;
    std::size_t literals = 0;
};

// Parses a statement of the dialect.
ParsedStatement Parse(std::string_view statement);

// Recursive descent over one statement. Nesting is bounded, so that neither this program's stack nor SQLite's
// parser runs out (3360).
class Parser {
  public:
    enum class Literals { Lifted, InPlace };

    Parser(std::string_view text, Literals literals);

    Statement ParseStatement();

    // The text of a stored query: a SELECT and nothing else.
    SelectPtr ParseQuery();

    // The literals lifted out of the text.
    std::size_t LiteralCount() const;

  private:
    class Nesting;

    // Tokens
    const Token& Peek(std::size_t ahead = 0) const;
    Token Take();
    bool Is(Keyword keyword) const { return Peek().keyword == keyword; }
    bool Is(Symbol symbol) const { return Peek().symbol == symbol; }
    bool Accept(Keyword keyword);
    bool Accept(Symbol symbol);
    void Expect(Keyword keyword);
    void Expect(Symbol symbol);
    bool IsName() const;
    bool IsWord(std::string_view word) const;
    std::string ParseName();
    LiteralValue LiteralOf(const Token& token) const;
    [[noreturn]] void FailHere() const;
    void ParseEnd();

    // Queries
    SelectPtr ParseSelect();
    void ParseSelectOptions(Select& select);
    SelectColumn ParseSelectColumn();
    void ParseFrom(Select& select);
    void ParseExternal(Select& select);
    void ParseGrouping(Select& select);
    void ParseOrderBy(Select& select);
    OrderItem ParseOrderItem();
    std::vector<SourcePtr> ParseSources();
    SourcePtr ParseSource();
    SourcePtr ParseSourceItem();
    SourcePtr ParseNamedSource();
    void ParseAlias(Source& source, bool required);
    bool ParseJoinKind(JoinKind& kind);

    // Actions
    Statement ParseInsert();
    void ParseValues(Insert& insert);
    Statement ParseUpdate();
    Assignment ParseAssignment();
    Statement ParseDelete();
    std::string ParseDeleteTarget();
    ExpressionPtr ParseWhere();

    // Definitions
    Statement ParseCreate();
    Statement ParseCreateTable();
    void ParseTableElement(jet::Table& table);
    void ParseColumnConstraints(jet::Table& table);
    void ParseConstraint(jet::Table& table, std::string name, const std::string& column);
    std::vector<jet::IndexColumn> ParseIndexColumns();
    Statement ParseCreateIndex(bool unique);
    void ParseIndexOptions(jet::Index& index);
    Statement ParseAlter();
    Statement ParseDrop();
    jet::Column ParseColumnDefinition();
    int ParseSize();

    // Expressions
    ExpressionPtr ParseExpression();
    ExpressionPtr ParseChain(ExpressionKind kind, Keyword keyword, ExpressionPtr (Parser::*operand)());
    ExpressionPtr ParseAnd();
    ExpressionPtr ParseNot();
    ExpressionPtr ParseComparison();
    ExpressionPtr ParsePredicate(ExpressionPtr left);
    ExpressionPtr ParseIn(ExpressionPtr left);
    ExpressionPtr ParseBetween(ExpressionPtr left);
    ExpressionPtr ParseIsNull(ExpressionPtr left);
    ExpressionPtr ParseCompare(ExpressionPtr left, Operator op);
    ExpressionPtr ParseConcat();
    ExpressionPtr ParseBinary(int level);
    ExpressionPtr ParseUnary();
    ExpressionPtr ParsePrimary();
    ExpressionPtr ParseParenthesis();
    ExpressionPtr ParseCall();
    ExpressionPtr ParseColumn();
    SelectPtr ParseSubquery();

    std::vector<Token> tokens_;
    std::size_t at_ = 0;
    Literals literals_;
    int place_;  // the number of a syntax error in the clause at hand
    int nesting_ = 0;
};

// Counts a level of nesting while it lives.
class Parser::Nesting {
  public:
    Nesting(Parser& parser, int weight);
    ~Nesting() { parser_.nesting_ -= weight_; }
    Nesting(const Nesting&) = delete;
    Nesting& operator=(const Nesting&) = delete;

  private:
    Parser& parser_;
    int weight_;
};

}  // namespace jetsql
