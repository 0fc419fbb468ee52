#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace fileio {

// A path in the process's narrow encoding, as the file functions take it. Where `\` separates no folders, it
// is taken for `/`, so that paths written for Windows work.
std::filesystem::path FilePath(std::string_view narrow);

// The same path back in the narrow encoding.
std::string NarrowPath(const std::filesystem::path& path);

// The same path in UTF-8, as the engine takes it.
std::string Utf8Path(const std::filesystem::path& path);

}  // namespace fileio
