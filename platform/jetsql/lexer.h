#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "jetsql/translator.h"

// Tokens of the dialect, and the rule by which literals are lifted out of a statement.
namespace jetsql {

enum class TokenKind : std::uint8_t { End, Word, Bracketed, Integer, Real, Date, Text, Symbol, Bad };

// The words that have a meaning of their own. A bare name may not be one of them, except after a separator.
enum class Keyword : std::uint8_t {
    None,
    Add,
    All,
    Alter,
    And,
    Any,
    As,
    Asc,
    Between,
    By,
    Column,
    Constraint,
    Create,
    Delete,
    Desc,
    Distinct,
    DistinctRow,
    Drop,
    Eqv,
    Exists,
    False,
    From,
    Group,
    Having,
    Imp,
    In,
    Index,
    Inner,
    Insert,
    Into,
    Is,
    Join,
    Key,
    Left,
    Like,
    Mod,
    Not,
    Null,
    On,
    Or,
    Order,
    Outer,
    Primary,
    Right,
    Select,
    Set,
    Some,
    Table,
    Top,
    True,
    Union,
    Unique,
    Update,
    Values,
    Where,
    With,
    Xor,
};

enum class Symbol : std::uint8_t {
    None,
    Open,
    Close,
    Comma,
    Dot,
    Bang,
    Star,
    Plus,
    Minus,
    Slash,
    Backslash,
    Ampersand,
    Equal,
    Less,
    Greater,
    LessEqual,
    GreaterEqual,
    NotEqual,
    Semicolon,
};

constexpr int kInPlace = -1;  // ordinal of a literal that stays in the text

struct Token {
    TokenKind kind = TokenKind::End;
    Keyword keyword = Keyword::None;
    Symbol symbol = Symbol::None;
    bool spaced = false;       // white space stands before it
    int literal = kInPlace;    // ordinal among the lifted literals
    int error = 0;             // Bad: the number to fail with
    std::int64_t integer = 0;  // Integer
    double real = 0;           // Real and Date
    std::string_view text;     // the characters as written, with quotes or brackets
};

// The characters of a Text token with the doubled quotes made single.
std::string TextOf(const Token& token);

// The value of a literal token.
Literal ValueOf(const Token& token);

// Cuts a statement into tokens, one at a time, and numbers the literals that are lifted: all but those of a
// definition statement, of an ORDER BY, a TOP count and the texts of an IN clause.
class Lexer {
  public:
    explicit Lexer(std::string_view text) : text_(text), at_(text.data()), end_(at_ + text.size()) {}

    Token Next();

  private:
    void SkipBlanks();
    void ReadWord(Token& token);
    void ReadBracketed(Token& token);
    void ReadText(Token& token);
    void ReadDate(Token& token);
    void ReadSymbol(Token& token);
    bool ReadNumber(Token& token, const char* digits, bool negative);
    bool StartsNumber(const char* at) const;
    bool TryNumber(Token& token);
    void Finish(Token& token, const char* start);
    void TrackOrderBy(const Token& token);
    bool IsLifted(const Token& token) const;

    std::string_view text_;
    const char* at_;
    const char* end_;
    int literals_ = 0;
    int depth_ = 0;
    int orderByDepth_ = -1;  // parentheses open where the current ORDER BY stands, -1 outside of one
    bool first_ = true;
    bool definition_ = false;    // CREATE, ALTER, DROP
    bool afterOperand_ = false;  // a minus sign here is an operator, not the sign of a number
    bool afterSeparator_ = false;
    bool afterInText_ = false;
    Keyword previous_ = Keyword::None;
};

}  // namespace jetsql
