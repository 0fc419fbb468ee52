#include <windows.h>

#include "text.h"

namespace cli {
namespace {

std::wstring Wide(UINT codePage, std::string_view text) {
    const int length = static_cast<int>(text.size());
    std::wstring wide(
        static_cast<std::size_t>(MultiByteToWideChar(codePage, 0, text.data(), length, nullptr, 0)), 0);
    MultiByteToWideChar(codePage, 0, text.data(), length, wide.data(), static_cast<int>(wide.size()));
    return wide;
}

std::string Narrow(UINT codePage, const std::wstring& wide) {
    const int length = static_cast<int>(wide.size());
    const int size = WideCharToMultiByte(codePage, 0, wide.data(), length, nullptr, 0, nullptr, nullptr);
    std::string text(static_cast<std::size_t>(size), 0);
    WideCharToMultiByte(codePage, 0, wide.data(), length, text.data(), size, nullptr, nullptr);
    return text;
}

}  // namespace

std::string Utf8FromSystem(std::string_view text) {
    return Narrow(CP_UTF8, Wide(CP_ACP, text));
}

std::string SystemFromUtf8(std::string_view text) {
    return Narrow(CP_ACP, Wide(CP_UTF8, text));
}

}  // namespace cli
