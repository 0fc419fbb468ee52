#include "system/file_path.h"

#include <algorithm>

std::filesystem::path fileio::FilePath(std::string_view narrow) {
    std::string path(narrow);
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}
