#include "jetfile/text.h"

#include <algorithm>

#include "jetfile/code_page.h"

namespace jetfile {
namespace {

constexpr char32_t kHighSurrogate = 0xD800;
constexpr char32_t kLowSurrogate = 0xDC00;
constexpr char32_t kSurrogateEnd = 0xE000;

char Unit(char32_t lead, char32_t bits) {
    return static_cast<char>(lead | bits);
}

// Decodes UTF-16 units that may come in pieces.
class Utf16Decoder {
  public:
    explicit Utf16Decoder(std::string& utf8) : utf8_(utf8) {}
    ~Utf16Decoder() { FlushHigh(); }
    Utf16Decoder(const Utf16Decoder&) = delete;
    Utf16Decoder& operator=(const Utf16Decoder&) = delete;

    void Put(char32_t unit) {
        if (high_ != 0 && unit >= kLowSurrogate && unit < kSurrogateEnd) {
            AppendUtf8(0x10000 + ((high_ - kHighSurrogate) << 10) + (unit - kLowSurrogate), utf8_);
            high_ = 0;
            return;
        }
        FlushHigh();
        if (unit >= kHighSurrogate && unit < kLowSurrogate) {
            high_ = unit;
        } else {
            AppendUtf8(unit, utf8_);
        }
    }

  private:
    void FlushHigh() {
        if (high_ != 0) AppendUtf8(kReplacementCharacter, utf8_);
        high_ = 0;
    }

    std::string& utf8_;
    char32_t high_ = 0;
};

// Text after the mark of compression: bytes are characters below 0x100 until a zero byte, pairs of bytes from
// there to the next zero byte, and so on.
void AppendCompressed(ByteView text, std::string& utf8) {
    Utf16Decoder decoder(utf8);
    bool compressed = true;
    for (std::size_t at = 0; at < text.Size();) {
        const std::uint8_t byte = text.U8(at);
        if (byte == 0) {
            compressed = !compressed;
            ++at;
        } else if (compressed) {
            decoder.Put(byte);
            ++at;
        } else if (at + 1 < text.Size()) {
            decoder.Put(text.U16(at));
            at += 2;
        } else {
            break;
        }
    }
}

bool IsAscii(ByteView text) {
    return std::all_of(text.begin(), text.end(), [](std::uint8_t byte) { return byte < 0x80; });
}

char FoldedLetter(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

}  // namespace

void AppendUtf8(char32_t character, std::string& utf8) {
    const bool surrogate = character >= kHighSurrogate && character < kSurrogateEnd;
    const char32_t c = surrogate || character > 0x10FFFF ? kReplacementCharacter : character;
    if (c < 0x80) {
        utf8 += static_cast<char>(c);
    } else if (c < 0x800) {
        utf8 += {Unit(0xC0, c >> 6), Unit(0x80, c & 0x3F)};
    } else if (c < 0x10000) {
        utf8 += {Unit(0xE0, c >> 12), Unit(0x80, (c >> 6) & 0x3F), Unit(0x80, c & 0x3F)};
    } else {
        utf8 += {Unit(0xF0, c >> 18), Unit(0x80, (c >> 12) & 0x3F), Unit(0x80, (c >> 6) & 0x3F),
                 Unit(0x80, c & 0x3F)};
    }
}

void AppendUtf16(ByteView text, std::string& utf8) {
    Utf16Decoder decoder(utf8);
    for (std::size_t at = 0; at + 1 < text.Size(); at += 2)
        decoder.Put(text.U16(at));
}

std::string DecodeUnicodeField(ByteView text) {
    std::string utf8;
    utf8.reserve(text.Size());
    if (text.Size() >= 2 && text.U8(0) == 0xFF && text.U8(1) == 0xFE) {
        AppendCompressed(text.From(2), utf8);
    } else {
        AppendUtf16(text, utf8);
    }
    return utf8;
}

std::string DecodeCodePageField(std::uint16_t codePage, ByteView text) {
    if (IsAscii(text)) return {text.begin(), text.end()};
    std::string utf8;
    AppendCodePageText(codePage, text, utf8);
    return utf8;
}

bool SameName(const std::string& left, const std::string& right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char a, char b) { return FoldedLetter(a) == FoldedLetter(b); });
}

std::string FoldedName(const std::string& name) {
    std::string folded = name;
    std::transform(folded.begin(), folded.end(), folded.begin(), FoldedLetter);
    return folded;
}

}  // namespace jetfile
