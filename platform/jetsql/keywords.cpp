#include "jetsql/keywords.h"

#include <cstring>

namespace jetsql {
namespace {

// Up to eight letters in one integer, upper case. Letters alone become letters, so no other word collides.
constexpr std::uint64_t Pack(std::string_view word) {
    std::uint64_t packed = 0;
    for (char c : word)
        packed = packed << 8 | (static_cast<unsigned char>(c) & 0xDFu);
    return packed;
}

bool SameLetters(std::string_view word, std::string_view upper) {
    for (std::size_t i = 0; i < upper.size(); ++i) {
        if ((static_cast<unsigned char>(word[i]) & 0xDFu) != static_cast<unsigned char>(upper[i]))
            return false;
    }
    return true;
}

Keyword LongKeywordOf(std::string_view word) {
    if (word.size() == 11 && SameLetters(word, "DISTINCTROW")) return Keyword::DistinctRow;
    if (word.size() == 10 && SameLetters(word, "CONSTRAINT")) return Keyword::Constraint;
    return Keyword::None;
}

}  // namespace

Keyword KeywordOf(std::string_view word) {
    if (word.size() > 8) return LongKeywordOf(word);
    switch (Pack(word)) {
        case Pack("ADD"):
            return Keyword::Add;
        case Pack("ALL"):
            return Keyword::All;
        case Pack("ALTER"):
            return Keyword::Alter;
        case Pack("AND"):
            return Keyword::And;
        case Pack("ANY"):
            return Keyword::Any;
        case Pack("AS"):
            return Keyword::As;
        case Pack("ASC"):
            return Keyword::Asc;
        case Pack("BETWEEN"):
            return Keyword::Between;
        case Pack("BY"):
            return Keyword::By;
        case Pack("COLUMN"):
            return Keyword::Column;
        case Pack("CREATE"):
            return Keyword::Create;
        case Pack("DELETE"):
            return Keyword::Delete;
        case Pack("DESC"):
            return Keyword::Desc;
        case Pack("DISTINCT"):
            return Keyword::Distinct;
        case Pack("DROP"):
            return Keyword::Drop;
        case Pack("EQV"):
            return Keyword::Eqv;
        case Pack("EXISTS"):
            return Keyword::Exists;
        case Pack("FALSE"):
            return Keyword::False;
        case Pack("FROM"):
            return Keyword::From;
        case Pack("GROUP"):
            return Keyword::Group;
        case Pack("HAVING"):
            return Keyword::Having;
        case Pack("IMP"):
            return Keyword::Imp;
        case Pack("IN"):
            return Keyword::In;
        case Pack("INDEX"):
            return Keyword::Index;
        case Pack("INNER"):
            return Keyword::Inner;
        case Pack("INSERT"):
            return Keyword::Insert;
        case Pack("INTO"):
            return Keyword::Into;
        case Pack("IS"):
            return Keyword::Is;
        case Pack("JOIN"):
            return Keyword::Join;
        case Pack("KEY"):
            return Keyword::Key;
        case Pack("LEFT"):
            return Keyword::Left;
        case Pack("LIKE"):
            return Keyword::Like;
        case Pack("MOD"):
            return Keyword::Mod;
        case Pack("NOT"):
            return Keyword::Not;
        case Pack("NULL"):
            return Keyword::Null;
        case Pack("ON"):
            return Keyword::On;
        case Pack("OR"):
            return Keyword::Or;
        case Pack("ORDER"):
            return Keyword::Order;
        case Pack("OUTER"):
            return Keyword::Outer;
        case Pack("PRIMARY"):
            return Keyword::Primary;
        case Pack("RIGHT"):
            return Keyword::Right;
        case Pack("SELECT"):
            return Keyword::Select;
        case Pack("SET"):
            return Keyword::Set;
        case Pack("SOME"):
            return Keyword::Some;
        case Pack("TABLE"):
            return Keyword::Table;
        case Pack("TOP"):
            return Keyword::Top;
        case Pack("TRUE"):
            return Keyword::True;
        case Pack("UNION"):
            return Keyword::Union;
        case Pack("UNIQUE"):
            return Keyword::Unique;
        case Pack("UPDATE"):
            return Keyword::Update;
        case Pack("VALUES"):
            return Keyword::Values;
        case Pack("WHERE"):
            return Keyword::Where;
        case Pack("WITH"):
            return Keyword::With;
        case Pack("XOR"):
            return Keyword::Xor;
        default:
            return Keyword::None;
    }
}

bool ExpectsOperand(Keyword keyword) {
    switch (keyword) {
        case Keyword::All:
        case Keyword::And:
        case Keyword::Any:
        case Keyword::Between:
        case Keyword::By:
        case Keyword::Distinct:
        case Keyword::DistinctRow:
        case Keyword::Eqv:
        case Keyword::Having:
        case Keyword::Imp:
        case Keyword::In:
        case Keyword::Like:
        case Keyword::Mod:
        case Keyword::Not:
        case Keyword::On:
        case Keyword::Or:
        case Keyword::Select:
        case Keyword::Set:
        case Keyword::Some:
        case Keyword::Top:
        case Keyword::Values:
        case Keyword::Where:
        case Keyword::Xor:
            return true;
        default:
            return false;
    }
}

}  // namespace jetsql
