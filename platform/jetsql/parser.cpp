#include "jetsql/parser.h"

#include "jetsql/errors.h"
#include "jetsql/names.h"

namespace jetsql {
namespace {

constexpr int kMaximumNesting = 80;  // SQLite's parser holds 100 open symbols
constexpr std::size_t kMaximumTokens = 100000;

// Words that mean something in definitions alone; columns may be named like them.
bool IsDefinitionWord(Keyword keyword) {
    switch (keyword) {
        case Keyword::Add:
        case Keyword::Column:
        case Keyword::Constraint:
        case Keyword::Index:
        case Keyword::Key:
        case Keyword::Primary:
        case Keyword::Unique:
        case Keyword::With:
            return true;
        default:
            return false;
    }
}

}  // namespace

Parser::Nesting::Nesting(Parser& parser, int weight) : parser_(parser), weight_(weight) {
    if (parser_.nesting_ + weight > kMaximumNesting) Fail(kTooComplex, "Query is too complex.");
    parser_.nesting_ += weight;
}

Parser::Parser(std::string_view text, Literals literals) : literals_(literals), place_(kNoVerb) {
    Lexer lexer(text);
    tokens_.reserve(text.size() / 4 + 2);
    do {
        tokens_.push_back(lexer.Next());
        const Token& token = tokens_.back();
        if (token.kind == TokenKind::Bad)
            Fail(token.error, "Syntax error at '" + std::string(token.text) + "'.");
        if (tokens_.size() > kMaximumTokens) Fail(kTooComplex, "Query is too complex.");
    } while (tokens_.back().kind != TokenKind::End);
}

std::size_t Parser::LiteralCount() const {
    std::size_t count = 0;
    for (const Token& token : tokens_)
        count += token.literal != kInPlace;
    return count;
}

const Token& Parser::Peek(std::size_t ahead) const {
    return at_ + ahead < tokens_.size() ? tokens_[at_ + ahead] : tokens_.back();
}

Token Parser::Take() {
    const Token token = Peek();
    if (at_ + 1 < tokens_.size()) ++at_;
    return token;
}

bool Parser::Accept(Keyword keyword) {
    if (!Is(keyword)) return false;
    Take();
    return true;
}

bool Parser::Accept(Symbol symbol) {
    if (!Is(symbol)) return false;
    Take();
    return true;
}

void Parser::Expect(Keyword keyword) {
    if (!Accept(keyword)) FailHere();
}

void Parser::Expect(Symbol symbol) {
    if (!Accept(symbol)) FailHere();
}

bool Parser::IsName() const {
    const Token& token = Peek();
    if (token.kind == TokenKind::Bracketed) return true;
    return token.kind == TokenKind::Word &&
           (token.keyword == Keyword::None || IsDefinitionWord(token.keyword));
}

// A word that means something in one place only and may be a name elsewhere.
bool Parser::IsWord(std::string_view word) const {
    return Peek().kind == TokenKind::Word && SameName(Peek().text, word);
}

std::string Parser::ParseName() {
    if (!IsName()) FailHere();
    const Token token = Take();
    std::string name(token.text);
    if (token.kind == TokenKind::Bracketed) name = name.substr(1, name.size() - 2);
    CheckName(name);
    return name;
}

LiteralValue Parser::LiteralOf(const Token& token) const {
    return {token.kind, literals_ == Literals::Lifted ? token.literal : kInPlace, ValueOf(token)};
}

void Parser::FailHere() const {
    const Token& token = Peek();
    if (token.kind == TokenKind::End) Fail(place_, "Syntax error: the statement ends too early.");
    Fail(place_, "Syntax error at '" + std::string(token.text) + "'.");
}

void Parser::ParseEnd() {
    const bool closed = Accept(Symbol::Semicolon);
    if (Peek().kind == TokenKind::End) return;
    if (closed) place_ = kTrailingCharacters;
    FailHere();
}

Statement Parser::ParseStatement() {
    Statement statement;
    switch (Peek().keyword) {
        case Keyword::Select:
            statement = ParseSelect();
            break;
        case Keyword::Insert:
            statement = ParseInsert();
            break;
        case Keyword::Update:
            statement = ParseUpdate();
            break;
        case Keyword::Delete:
            statement = ParseDelete();
            break;
        case Keyword::Create:
            statement = ParseCreate();
            break;
        case Keyword::Alter:
            statement = ParseAlter();
            break;
        case Keyword::Drop:
            statement = ParseDrop();
            break;
        default:
            FailHere();
    }
    ParseEnd();
    return statement;
}

ParsedStatement Parse(std::string_view statement) {
    Parser parser(statement, Parser::Literals::Lifted);
    ParsedStatement parsed;
    parsed.tree = parser.ParseStatement();
    parsed.literals = parser.LiteralCount();
    return parsed;
}

SelectPtr Parser::ParseQuery() {
    if (!Is(Keyword::Select)) FailHere();
    SelectPtr select = ParseSelect();
    if (!select->into.empty()) FailHere();
    ParseEnd();
    return select;
}

}  // namespace jetsql
