#include "mfc/narrow.h"

#include <windows.h>

#include <cstdint>
#include <cstring>

namespace {

std::wstring Widen(UINT codePage, std::string_view text) {
    const int size = static_cast<int>(text.size());
    std::wstring wide(
        static_cast<std::size_t>(MultiByteToWideChar(codePage, 0, text.data(), size, nullptr, 0)), L'\0');
    MultiByteToWideChar(codePage, 0, text.data(), size, wide.data(), static_cast<int>(wide.size()));
    return wide;
}

// A sign that the code page lacks becomes its replacement character, never one that looks alike (an ohm no
// letter O).
std::string Shorten(UINT codePage, const std::wstring& wide) {
    const DWORD flags = codePage == CP_UTF8 ? 0 : WC_NO_BEST_FIT_CHARS;
    const int size = static_cast<int>(wide.size());
    const int length = WideCharToMultiByte(codePage, flags, wide.data(), size, nullptr, 0, nullptr, nullptr);
    std::string text(static_cast<std::size_t>(length), '\0');
    WideCharToMultiByte(codePage, flags, wide.data(), size, text.data(), length, nullptr, nullptr);
    return text;
}

bool IsAscii(std::string_view text) {
    constexpr std::uint64_t kHighBits = 0x8080808080808080U;
    const char* at = text.data();
    std::size_t left = text.size();
    std::uint64_t all = 0;
    for (; left >= sizeof all; at += sizeof all, left -= sizeof all) {
        std::uint64_t word;
        std::memcpy(&word, at, sizeof word);
        all |= word;
    }
    for (; left > 0; ++at, --left)
        all |= static_cast<unsigned char>(*at);
    return (all & kHighBits) == 0;
}

}  // namespace

std::string NarrowFromUtf8(std::string_view text) {
    return IsAscii(text) ? std::string(text) : Shorten(CP_ACP, Widen(CP_UTF8, text));
}

std::string Utf8FromNarrow(std::string_view text) {
    return IsAscii(text) ? std::string(text) : Shorten(CP_UTF8, Widen(CP_ACP, text));
}

std::string_view NarrowFromUtf8(std::string_view text, std::string& storage) {
    return IsAscii(text) ? text : storage = NarrowFromUtf8(text);
}

std::string_view Utf8FromNarrow(std::string_view text, std::string& storage) {
    return IsAscii(text) ? text : storage = Utf8FromNarrow(text);
}
