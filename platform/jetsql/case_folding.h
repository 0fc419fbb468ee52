#pragma once

#include <string>
#include <string_view>

// Comparison of UTF-8 texts without case, by Unicode's simple case folding.
namespace jetsql {

// Negative, zero or positive, in the order of the folded code points. Bytes that are no UTF-8 stand for
// themselves.
int CompareFolded(std::string_view a, std::string_view b);

// The text with every code point folded.
std::string FoldCase(std::string_view text);

// Takes the first code point off `text`; bytes that are no UTF-8 come one by one.
char32_t TakeCodePoint(std::string_view& text);

// One code point folded.
char32_t FoldCodePoint(char32_t c);

}  // namespace jetsql
