#include "jetsql/case_folding.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "jetsql/case_folding_table.h"

namespace jetsql {
namespace {

constexpr char32_t kStrayByte = 0x110000;  // bytes that are no UTF-8 sort after everything else

constexpr std::array<unsigned char, 128> kAsciiFold = [] {
    std::array<unsigned char, 128> fold{};
    for (unsigned char c = 0; c < 128; ++c)
        fold[c] = c >= 'A' && c <= 'Z' ? static_cast<unsigned char>(c + 32) : c;
    return fold;
}();

// Bytes of the sequence that a lead byte begins, 0 for a byte that begins none.
std::size_t SequenceLength(unsigned char lead) {
    if (lead < 0x80) return 1;
    if (lead >= 0xC2 && lead < 0xE0) return 2;
    if (lead >= 0xE0 && lead < 0xF0) return 3;
    return lead >= 0xF0 && lead < 0xF5 ? 4 : 0;
}

void AppendUtf8(std::string& text, char32_t c) {
    if (c >= kStrayByte) {
        text += static_cast<char>(c - kStrayByte);
    } else if (c < 0x80) {
        text += static_cast<char>(c);
    } else if (c < 0x800) {
        text += static_cast<char>(0xC0 | c >> 6);
        text += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        if (c >= 0x10000) text += static_cast<char>(0xF0 | c >> 18);
        text += static_cast<char>(c >= 0x10000 ? 0x80 | (c >> 12 & 0x3F) : 0xE0 | c >> 12);
        text += static_cast<char>(0x80 | (c >> 6 & 0x3F));
        text += static_cast<char>(0x80 | (c & 0x3F));
    }
}

}  // namespace

char32_t TakeCodePoint(std::string_view& text) {
    const auto lead = static_cast<unsigned char>(text.front());
    const std::size_t length = SequenceLength(lead);
    char32_t c = length <= 1 ? lead : lead & (0x7Fu >> length);
    bool valid = length != 0 && length <= text.size();
    for (std::size_t i = 1; valid && i < length; ++i) {
        const auto next = static_cast<unsigned char>(text[i]);
        valid = (next & 0xC0u) == 0x80u;
        c = c << 6 | (next & 0x3Fu);
    }
    text.remove_prefix(valid ? length : 1);
    return valid ? c : kStrayByte + lead;
}

char32_t FoldCodePoint(char32_t c) {
    if (c < 0x80) return kAsciiFold[c];
    const auto run = std::lower_bound(std::begin(kFoldingRuns), std::end(kFoldingRuns), c,
                                      [](const FoldingRun& r, char32_t value) { return r.last < value; });
    if (run == std::end(kFoldingRuns) || c < run->first || (c - run->first) % run->step != 0) return c;
    return static_cast<char32_t>(static_cast<std::int32_t>(c) + run->delta);
}

int CompareFolded(std::string_view a, std::string_view b) {
    const std::size_t shared = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < shared; ++i) {
        const auto x = static_cast<unsigned char>(a[i]);
        const auto y = static_cast<unsigned char>(b[i]);
        if ((x | y) < 0x80) {
            if (x == y || kAsciiFold[x] == kAsciiFold[y]) continue;
            return kAsciiFold[x] < kAsciiFold[y] ? -1 : 1;
        }
        a.remove_prefix(i);
        b.remove_prefix(i);
        while (!a.empty() && !b.empty()) {
            const char32_t c = FoldCodePoint(TakeCodePoint(a));
            const char32_t d = FoldCodePoint(TakeCodePoint(b));
            if (c != d) return c < d ? -1 : 1;
        }
        break;
    }
    return a.size() == b.size() ? 0 : a.size() < b.size() ? -1 : 1;
}

std::string FoldCase(std::string_view text) {
    std::string folded;
    folded.reserve(text.size());
    while (!text.empty())
        AppendUtf8(folded, FoldCodePoint(TakeCodePoint(text)));
    return folded;
}

}  // namespace jetsql
