#include "jetsql/like.h"

#include <string>
#include <vector>

#include "jetsql/case_folding.h"

namespace jetsql {
namespace {

using Characters = std::u32string;
using View = std::u32string_view;

Characters Folded(std::string_view text) {
    Characters characters;
    while (!text.empty())
        characters += FoldCodePoint(TakeCodePoint(text));
    return characters;
}

// Whether a list's inside (without brackets) holds a character.
bool ListHolds(View list, char32_t c) {
    const bool inverted = !list.empty() && list.front() == U'!';
    if (inverted) list.remove_prefix(1);
    bool held = false;
    for (std::size_t i = 0; i < list.size(); ++i) {
        if (i + 2 < list.size() && list[i + 1] == U'-') {
            held |= c >= list[i] && c <= list[i + 2];
            i += 2;
        } else {
            held |= c == list[i];
        }
    }
    return held != inverted;
}

// Matches one character against the pattern's first element and gives the element's length, 0 for no match.
std::size_t MatchOne(View pattern, char32_t c) {
    switch (pattern.front()) {
        case U'?':
            return 1;
        case U'#':
            return c >= U'0' && c <= U'9' ? 1 : 0;
        case U'[': {
            const std::size_t close = pattern.find(U']', 1);
            if (close == View::npos) return 0;
            return ListHolds(pattern.substr(1, close - 1), c) ? close + 1 : 0;
        }
        default:
            return pattern.front() == c ? 1 : 0;
    }
}

}  // namespace

// Goes back only to the last `*`, so the work is bounded by the product of the lengths.
bool MatchesPattern(std::string_view textBytes, std::string_view patternBytes) {
    const Characters text = Folded(textBytes);
    const Characters pattern = Folded(patternBytes);
    std::size_t t = 0, p = 0;
    std::size_t star = View::npos, starText = 0;
    while (t < text.size()) {
        if (p < pattern.size() && pattern[p] == U'*') {
            star = ++p;
            starText = t;
            continue;
        }
        const std::size_t length = p < pattern.size() ? MatchOne(View(pattern).substr(p), text[t]) : 0;
        if (length > 0) {
            p += length;
            ++t;
        } else if (star != View::npos) {
            p = star;
            t = ++starText;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == U'*')
        ++p;
    return p == pattern.size();
}

}  // namespace jetsql
