#include "text.h"

#include <algorithm>
#include <cstdint>
#include <span>

namespace cli {
namespace {

struct Range {
    char32_t first;
    char32_t last;
};

constexpr Range kWide[] = {
    {0x1100, 0x115F}, {0x2E80, 0x303E}, {0x3041, 0xA4CF}, {0xAC00, 0xD7A3},   {0xF900, 0xFAFF},
    {0xFE30, 0xFE6F}, {0xFF00, 0xFF60}, {0xFFE0, 0xFFE6}, {0x1F300, 0x1FAFF}, {0x20000, 0x3FFFD},
};
constexpr Range kNoWidth[] = {
    {0x0300, 0x036F}, {0x200B, 0x200F}, {0x20D0, 0x20FF},
    {0x3099, 0x309A}, {0xFE00, 0xFE0F}, {0xFE20, 0xFE2F},
};

bool Within(std::span<const Range> ranges, char32_t sign) {
    return std::ranges::any_of(
        ranges, [sign](const Range& range) { return sign >= range.first && sign <= range.last; });
}

// Length of the sign that a byte begins; 1 for a byte that begins none.
std::size_t SignLength(unsigned char lead) {
    if (lead >= 0xF0) return 4;
    if (lead >= 0xE0) return 3;
    return lead >= 0xC0 ? 2 : 1;
}

char32_t SignAt(std::string_view text, std::size_t at, std::size_t length) {
    const auto lead = static_cast<unsigned char>(text[at]);
    if (length == 1) return lead;
    char32_t sign = lead & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length && at + i < text.size(); ++i)
        sign = (sign << 6) | (static_cast<unsigned char>(text[at + i]) & 0x3FU);
    return sign;
}

char Lower(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

}  // namespace

bool SameText(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b, [](char x, char y) { return Lower(x) == Lower(y); });
}

int DisplayWidth(std::string_view text) {
    int width = 0;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = SignLength(static_cast<unsigned char>(text[at]));
        const char32_t sign = SignAt(text, at, length);
        // Zero-width marks stand within the wide ranges.
        if (!Within(kNoWidth, sign)) width += Within(kWide, sign) ? 2 : 1;
        at += length;
    }
    return width;
}

}  // namespace cli
