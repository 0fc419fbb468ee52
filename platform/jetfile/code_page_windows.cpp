#include <windows.h>

#include <vector>

#include "jetfile/code_page.h"
#include "jetfile/text.h"

namespace jetfile {

void AppendCodePageText(std::uint16_t codePage, ByteView text, std::string& utf8) {
    if (text.Size() == 0) return;
    const char* bytes = reinterpret_cast<const char*>(text.Data());
    const int size = static_cast<int>(text.Size());
    std::vector<wchar_t> wide(text.Size());
    const int count = MultiByteToWideChar(codePage, 0, bytes, size, wide.data(), size);
    if (count <= 0) ThrowDamaged("text in an unknown code page");
    const auto* units = reinterpret_cast<const std::uint8_t*>(wide.data());
    AppendUtf16({units, static_cast<std::size_t>(count) * sizeof(wchar_t)}, utf8);
}

}  // namespace jetfile
