#include "system/file_path.h"

#include "mfc/narrow.h"

std::filesystem::path fileio::FilePath(std::string_view narrow) {
    const std::string utf8 = Utf8FromNarrow(narrow);
    return std::u8string(utf8.begin(), utf8.end());
}
