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

// Puts a key together. What stands in the statement as it does in the key is copied in one piece.
class KeyWriter {
  public:
    explicit KeyWriter(std::string& key) : key_(key) {}

    void Add(const Token& token) {
        const char* start = token.text.data();
        if (from_ == nullptr || !Continues(start)) {
            Flush();
            AddBlank(token);
            from_ = start;
        }
        to_ = start + token.text.size();
    }

    void AddMark(const Token& token) {
        Flush();
        AddBlank(token);
        key_ += MarkOf(token.kind);
    }

    void Flush() {
        if (from_ != nullptr) key_.append(from_, to_);
        from_ = nullptr;
    }

  private:
    bool Continues(const char* start) const { return start == to_ || (start == to_ + 1 && *to_ == ' '); }

    void AddBlank(const Token& token) {
        if (token.spaced && !key_.empty()) key_ += ' ';
    }

    std::string& key_;
    const char* from_ = nullptr;  // the piece that is not copied yet
    const char* to_ = nullptr;
};

}  // namespace

Shape ShapeOf(std::string_view statement) {
    Shape shape;
    shape.key.reserve(statement.size() + 1);
    KeyWriter writer(shape.key);
    Lexer lexer(statement);
    for (;;) {
        const Token token = lexer.Next();
        if (token.kind == TokenKind::End) break;
        if (token.kind == TokenKind::Bad) return BrokenShape(statement);
        if (token.literal == kInPlace) {
            writer.Add(token);
            continue;
        }
        writer.AddMark(token);
        if (shape.literals.empty()) shape.literals.reserve(8);
        shape.literals.push_back(ValueOf(token));
    }
    writer.Flush();
    return shape;
}

}  // namespace jetsql
