#include <cstring>
#include <filesystem>
#include <string>

#include "windows.h"

namespace fs = std::filesystem;

DWORD GetFullPathNameA(LPCSTR fileName, DWORD size, LPSTR buffer, LPSTR* filePart) {
    if (fileName == nullptr || *fileName == '\0') return 0;
    std::error_code error;
    const std::string path = fs::absolute(fileName, error).lexically_normal().string();
    if (error) return 0;
    if (path.size() >= size) return static_cast<DWORD>(path.size() + 1);
    std::memcpy(buffer, path.c_str(), path.size() + 1);
    const std::size_t name = path.rfind('/') + 1;
    if (filePart != nullptr) *filePart = name < path.size() ? buffer + name : nullptr;
    return static_cast<DWORD>(path.size());
}
