#include "jetsql/lexer.h"
#include "jetsql/translator.h"

namespace jetsql {
namespace {

// Stands for a literal in a key, by its kind. No statement holds these characters outside quotes and
// brackets.
char MarkOf(TokenKind kind) {
    return static_cast<char>(static_cast<int>(kind) - static_cast<int>(TokenKind::Integer) + 1);
}

// A statement that cannot be cut into tokens is a shape of its own, which no good statement shares.
Shape BrokenShape(std::string_view statement) {
    Shape shape;
    shape.key.assign(1, '\0');
    shape.key += statement;
    return shape;
}

}  // namespace

Shape ShapeOf(std::string_view statement) {
    Shape shape;
    shape.key.reserve(statement.size() + 1);
    Lexer lexer(statement);
    for (Token token = lexer.Next(); token.kind != TokenKind::End; token = lexer.Next()) {
        if (token.kind == TokenKind::Bad) return BrokenShape(statement);
        if (token.spaced && !shape.key.empty()) shape.key += ' ';
        if (token.literal == kInPlace) {
            shape.key += token.text;
            continue;
        }
        shape.key += MarkOf(token.kind);
        if (shape.literals.empty()) shape.literals.reserve(8);
        shape.literals.push_back(ValueOf(token));
    }
    return shape;
}

}  // namespace jetsql
