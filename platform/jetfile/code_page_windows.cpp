#include <windows.h>

#include <vector>

#include "jetfile/code_page.h"
#include "jetfile/text.h"

namespace jetfile {
namespace {

// False when the code page does not know all of the bytes.
bool AppendKnown(UINT codePage, const char* bytes, int size, std::string& utf8) {
    std::vector<wchar_t> wide(static_cast<std::size_t>(size));
    const int count = MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, bytes, size, wide.data(), size);
    const auto* units = reinterpret_cast<const std::uint8_t*>(wide.data());
    AppendUtf16({units, static_cast<std::size_t>(count) * sizeof(wchar_t)}, utf8);
    return count > 0;
}

// Character by character, with a replacement for each that the code page does not know.
void AppendPiecewise(UINT codePage, const char* bytes, int size, std::string& utf8) {
    while (size > 0) {
        const int length = size > 1 && IsDBCSLeadByteEx(codePage, static_cast<BYTE>(*bytes)) ? 2 : 1;
        const bool known = AppendKnown(codePage, bytes, length, utf8);
        if (!known) AppendUtf8(kReplacementCharacter, utf8);
        const int step = known ? length : 1;
        bytes += step;
        size -= step;
    }
}

}  // namespace

void AppendCodePageText(std::uint16_t codePage, ByteView text, std::string& utf8) {
    if (!IsValidCodePage(codePage)) ThrowDamaged("text in an unknown code page");
    if (text.Size() == 0) return;
    const char* bytes = reinterpret_cast<const char*>(text.Data());
    const int size = static_cast<int>(text.Size());
    if (!AppendKnown(codePage, bytes, size, utf8)) AppendPiecewise(codePage, bytes, size, utf8);
}

}  // namespace jetfile
