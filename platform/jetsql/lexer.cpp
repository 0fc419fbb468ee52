#include "jetsql/lexer.h"

#include <array>
#include <charconv>
#include <limits>

#include "jetsql/dates.h"
#include "jetsql/errors.h"
#include "jetsql/keywords.h"

namespace jetsql {
namespace {

enum class Class : std::uint8_t { Other, Blank, Letter, Digit, Point, Quote, Bracket, Hash, Minus, Symbol };

constexpr std::array<Class, 256> kClasses = [] {
    std::array<Class, 256> classes{};
    for (int c = 0; c < 256; ++c) {
        const bool letter = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' || c >= 0x80;
        if (letter) classes[c] = Class::Letter;
    }
    for (int c = '0'; c <= '9'; ++c)
        classes[c] = Class::Digit;
    for (char c : {' ', '\t', '\r', '\n', '\v', '\f'})
        classes[static_cast<unsigned char>(c)] = Class::Blank;
    for (char c : {'(', ')', ',', '!', '*', '+', '/', '\\', '&', '=', '<', '>', ';'}) {
        classes[static_cast<unsigned char>(c)] = Class::Symbol;
    }
    classes['.'] = Class::Point;
    classes['"'] = classes['\''] = Class::Quote;
    classes['['] = Class::Bracket;
    classes['#'] = Class::Hash;
    classes['-'] = Class::Minus;
    return classes;
}();

Class ClassOf(char c) {
    return kClasses[static_cast<unsigned char>(c)];
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

bool IsNamePart(char c) {
    return ClassOf(c) == Class::Letter || IsDigit(c);
}

const char* SkipDigits(const char* at, const char* end) {
    while (at < end && IsDigit(*at))
        ++at;
    return at;
}

// Past an exponent, or `at` when there is none.
const char* SkipExponent(const char* at, const char* end) {
    if (at == end || (*at | 0x20) != 'e') return at;
    const char* digits = at + 1;
    if (digits < end && (*digits == '+' || *digits == '-')) ++digits;
    const char* after = SkipDigits(digits, end);
    return after == digits ? at : after;
}

bool FitsLong(std::int64_t value) {
    return value >= std::numeric_limits<std::int32_t>::min() &&
           value <= std::numeric_limits<std::int32_t>::max();
}

bool IsLiteral(TokenKind kind) {
    return kind >= TokenKind::Integer && kind <= TokenKind::Text;
}

Symbol SingleSymbol(char c) {
    switch (c) {
        case '(':
            return Symbol::Open;
        case ')':
            return Symbol::Close;
        case ',':
            return Symbol::Comma;
        case '.':
            return Symbol::Dot;
        case '!':
            return Symbol::Bang;
        case '*':
            return Symbol::Star;
        case '+':
            return Symbol::Plus;
        case '-':
            return Symbol::Minus;
        case '/':
            return Symbol::Slash;
        case '\\':
            return Symbol::Backslash;
        case '&':
            return Symbol::Ampersand;
        case '=':
            return Symbol::Equal;
        case '<':
            return Symbol::Less;
        case '>':
            return Symbol::Greater;
        case ';':
            return Symbol::Semicolon;
        default:
            return Symbol::None;
    }
}

Symbol DoubleSymbol(char first, char second) {
    if (first == '<' && second == '=') return Symbol::LessEqual;
    if (first == '<' && second == '>') return Symbol::NotEqual;
    if (first == '>' && second == '=') return Symbol::GreaterEqual;
    return Symbol::None;
}

}  // namespace

std::string TextOf(const Token& token) {
    const char quote = token.text.front();
    const std::string_view inner = token.text.substr(1, token.text.size() - 2);
    if (inner.find(quote) == std::string_view::npos) return std::string(inner);
    std::string text;
    text.reserve(inner.size());
    for (std::size_t i = 0; i < inner.size(); ++i) {
        text += inner[i];
        if (inner[i] == quote) ++i;
    }
    return text;
}

Literal ValueOf(const Token& token) {
    if (token.kind == TokenKind::Text) return TextOf(token);
    if (token.kind == TokenKind::Integer) return token.integer;
    return token.real;
}

void Lexer::SkipBlanks() {
    while (at_ < end_ && ClassOf(*at_) == Class::Blank)
        ++at_;
}

void Lexer::ReadWord(Token& token) {
    const char* start = at_;
    while (at_ < end_ && IsNamePart(*at_))
        ++at_;
    token.kind = TokenKind::Word;
    if (!afterSeparator_) token.keyword = KeywordOf({start, static_cast<std::size_t>(at_ - start)});
}

void Lexer::ReadBracketed(Token& token) {
    while (at_ < end_ && *at_ != ']')
        ++at_;
    token.kind = at_ < end_ ? TokenKind::Bracketed : TokenKind::Bad;
    token.error = kBadBracketing;
    if (at_ < end_) ++at_;
}

void Lexer::ReadText(Token& token) {
    const char quote = *at_++;
    token.kind = TokenKind::Bad;
    token.error = kExpressionSyntax;
    for (; at_ < end_ && *at_ != '\0'; ++at_) {
        if (*at_ != quote) continue;
        if (at_ + 1 < end_ && at_[1] == quote) {
            ++at_;
            continue;
        }
        ++at_;
        token.kind = TokenKind::Text;
        return;
    }
}

void Lexer::ReadDate(Token& token) {
    const char* start = ++at_;
    while (at_ < end_ && *at_ != '#')
        ++at_;
    const auto date = ParseDate({start, static_cast<std::size_t>(at_ - start)});
    token.kind = date && at_ < end_ ? TokenKind::Date : TokenKind::Bad;
    token.error = kExpressionSyntax;
    token.real = date.value_or(0);
    if (at_ < end_) ++at_;
}

void Lexer::ReadSymbol(Token& token) {
    token.kind = TokenKind::Symbol;
    token.symbol = at_ + 1 < end_ ? DoubleSymbol(at_[0], at_[1]) : Symbol::None;
    at_ += token.symbol != Symbol::None ? 2 : 1;
    if (token.symbol == Symbol::None) token.symbol = SingleSymbol(at_[-1]);
    if (token.symbol == Symbol::Open) ++depth_;
    if (token.symbol == Symbol::Close) --depth_;
}

// Reads the number whose digits begin at `digits`; false when they begin a name instead (a name may start
// with a digit), the position unchanged.
bool Lexer::ReadNumber(Token& token, const char* digits, bool negative) {
    const char* after = SkipDigits(digits, end_);
    const bool whole = after == end_ || *after != '.';
    if (!whole) after = SkipDigits(after + 1, end_);
    const char* mantissa = after;
    after = SkipExponent(after, end_);
    if (after < end_ && IsNamePart(*after)) return false;
    at_ = after;
    if (whole && after == mantissa) {
        std::int64_t value = 0;
        const auto parsed = std::from_chars(digits, after, value);
        value = negative ? -value : value;
        if (parsed.ec == std::errc() && FitsLong(value)) {
            token.kind = TokenKind::Integer;
            token.integer = value;
            return true;
        }
    }
    const auto parsed = std::from_chars(digits, after, token.real);
    token.kind = parsed.ec == std::errc() ? TokenKind::Real : TokenKind::Bad;
    token.error = kNumericOverflow;
    if (negative) token.real = -token.real;
    return true;
}

bool Lexer::StartsNumber(const char* at) const {
    if (at == end_) return false;
    return IsDigit(*at) || (*at == '.' && at + 1 < end_ && IsDigit(at[1]));
}

// A number here, with its sign where an operand is due.
bool Lexer::TryNumber(Token& token) {
    if (*at_ != '-') return StartsNumber(at_) && ReadNumber(token, at_, false);
    if (afterOperand_ || definition_) return false;
    const char* digits = at_ + 1;
    while (digits < end_ && ClassOf(*digits) == Class::Blank)
        ++digits;
    return StartsNumber(digits) && ReadNumber(token, digits, true);
}

void Lexer::TrackOrderBy(const Token& token) {
    if (token.keyword == Keyword::By && previous_ == Keyword::Order && orderByDepth_ < 0)
        orderByDepth_ = depth_;
    if (depth_ < orderByDepth_) orderByDepth_ = -1;
}

bool Lexer::IsLifted(const Token& token) const {
    if (definition_ || orderByDepth_ >= 0) return false;
    if (token.kind == TokenKind::Text) return previous_ != Keyword::In && !afterInText_;
    return previous_ != Keyword::Top;
}

// What the next token's meaning depends on.
void Lexer::Finish(Token& token, const char* start) {
    token.text = {start, static_cast<std::size_t>(at_ - start)};
    const bool literal = IsLiteral(token.kind);
    if (literal && IsLifted(token)) token.literal = literals_++;
    if (first_) {
        definition_ = token.keyword == Keyword::Create || token.keyword == Keyword::Alter ||
                      token.keyword == Keyword::Drop;
        first_ = false;
    }
    TrackOrderBy(token);
    afterInText_ = token.kind == TokenKind::Text && (previous_ == Keyword::In || afterInText_);
    afterSeparator_ = token.symbol == Symbol::Dot || token.symbol == Symbol::Bang;
    afterOperand_ =
        token.kind == TokenKind::Symbol ? token.symbol == Symbol::Close : !ExpectsOperand(token.keyword);
    previous_ = token.keyword;
}

Token Lexer::Next() {
    Token token;
    const char* before = at_;
    SkipBlanks();
    token.spaced = at_ > before;
    if (at_ == end_) return token;
    const char* start = at_;
    switch (ClassOf(*at_)) {
        case Class::Letter:
            ReadWord(token);
            break;
        case Class::Digit:
            if (afterSeparator_ || !TryNumber(token)) ReadWord(token);
            break;
        case Class::Point:
            if (afterOperand_ || !TryNumber(token)) ReadSymbol(token);
            break;
        case Class::Minus:
            if (!TryNumber(token)) ReadSymbol(token);
            break;
        case Class::Quote:
            ReadText(token);
            break;
        case Class::Bracket:
            ReadBracketed(token);
            break;
        case Class::Hash:
            ReadDate(token);
            break;
        case Class::Symbol:
            ReadSymbol(token);
            break;
        default:
            token.kind = TokenKind::Bad;
            token.error = kExpressionSyntax;
            ++at_;
    }
    Finish(token, start);
    return token;
}

}  // namespace jetsql
