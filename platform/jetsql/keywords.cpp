#include "jetsql/keywords.h"

#include <algorithm>
#include <array>

namespace jetsql {
namespace {

struct Word {
    std::string_view text;
    Keyword keyword;
};

constexpr Word kLongWords[] = {{"CONSTRAINT", Keyword::Constraint}, {"DISTINCTROW", Keyword::DistinctRow}};

constexpr Word kWords[] = {
    {"ADD", Keyword::Add},       {"ALL", Keyword::All},
    {"ALTER", Keyword::Alter},   {"AND", Keyword::And},
    {"ANY", Keyword::Any},       {"AS", Keyword::As},
    {"ASC", Keyword::Asc},       {"BETWEEN", Keyword::Between},
    {"BY", Keyword::By},         {"COLUMN", Keyword::Column},
    {"CREATE", Keyword::Create}, {"DELETE", Keyword::Delete},
    {"DESC", Keyword::Desc},     {"DISTINCT", Keyword::Distinct},
    {"DROP", Keyword::Drop},     {"EQV", Keyword::Eqv},
    {"EXISTS", Keyword::Exists}, {"FALSE", Keyword::False},
    {"FROM", Keyword::From},     {"GROUP", Keyword::Group},
    {"HAVING", Keyword::Having}, {"IMP", Keyword::Imp},
    {"IN", Keyword::In},         {"INDEX", Keyword::Index},
    {"INNER", Keyword::Inner},   {"INSERT", Keyword::Insert},
    {"INTO", Keyword::Into},     {"IS", Keyword::Is},
    {"JOIN", Keyword::Join},     {"KEY", Keyword::Key},
    {"LEFT", Keyword::Left},     {"LIKE", Keyword::Like},
    {"MOD", Keyword::Mod},       {"NOT", Keyword::Not},
    {"NULL", Keyword::Null},     {"ON", Keyword::On},
    {"OR", Keyword::Or},         {"ORDER", Keyword::Order},
    {"OUTER", Keyword::Outer},   {"PRIMARY", Keyword::Primary},
    {"RIGHT", Keyword::Right},   {"SELECT", Keyword::Select},
    {"SET", Keyword::Set},       {"SOME", Keyword::Some},
    {"TABLE", Keyword::Table},   {"TOP", Keyword::Top},
    {"TRUE", Keyword::True},     {"UNION", Keyword::Union},
    {"UNIQUE", Keyword::Unique}, {"UPDATE", Keyword::Update},
    {"VALUES", Keyword::Values}, {"WHERE", Keyword::Where},
    {"WITH", Keyword::With},     {"XOR", Keyword::Xor},
};

constexpr std::size_t kPackedLetters = 8;

constexpr unsigned char UpperLetter(char c) {
    return static_cast<unsigned char>(c) & 0xDFu;
}

// Up to eight letters in one integer, upper case. Letters alone become letters, so no other word collides.
constexpr std::uint64_t Pack(std::string_view word) {
    std::uint64_t packed = 0;
    for (char c : word)
        packed = packed << 8 | UpperLetter(c);
    return packed;
}

struct PackedWord {
    std::uint64_t letters;
    Keyword keyword;
};

constexpr auto kPackedWords = [] {
    std::array<PackedWord, std::size(kWords)> packed{};
    for (std::size_t i = 0; i < packed.size(); ++i)
        packed[i] = {Pack(kWords[i].text), kWords[i].keyword};
    std::sort(packed.begin(), packed.end(),
              [](const auto& a, const auto& b) { return a.letters < b.letters; });
    return packed;
}();

bool SameLetters(std::string_view word, std::string_view upper) {
    return std::equal(word.begin(), word.end(), upper.begin(), upper.end(),
                      [](char a, char b) { return UpperLetter(a) == static_cast<unsigned char>(b); });
}

Keyword LongKeywordOf(std::string_view word) {
    for (const Word& known : kLongWords) {
        if (SameLetters(word, known.text)) return known.keyword;
    }
    return Keyword::None;
}

}  // namespace

Keyword KeywordOf(std::string_view word) {
    if (word.size() > kPackedLetters) return LongKeywordOf(word);
    const std::uint64_t letters = Pack(word);
    const auto found =
        std::lower_bound(kPackedWords.begin(), kPackedWords.end(), letters,
                         [](const PackedWord& known, std::uint64_t value) { return known.letters < value; });
    return found != kPackedWords.end() && found->letters == letters ? found->keyword : Keyword::None;
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
