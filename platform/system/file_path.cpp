#include "system/file_path.h"

#include "mfc/narrow.h"

std::string fileio::Utf8Path(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return std::string(text.begin(), text.end());
}

std::string fileio::NarrowPath(const std::filesystem::path& path) {
    return NarrowFromUtf8(Utf8Path(path));
}
