#include <windows.h>

#include <system_error>

#include "system/durable_file.h"

namespace fs = std::filesystem;

namespace {

[[noreturn]] void ThrowError(const fs::path& path) {
    throw std::system_error(static_cast<int>(GetLastError()), std::system_category(), path.string());
}

}  // namespace

void fileio::FlushFile(const fs::path& path) {
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) ThrowError(path);
    const bool flushed = FlushFileBuffers(file);
    CloseHandle(file);
    if (!flushed) ThrowError(path);
}

// Names are written through by RenameOver.
void fileio::FlushFolderOf(const fs::path& /*path*/) {}

void fileio::RenameOver(const fs::path& from, const fs::path& to) {
    if (!MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
        ThrowError(to);
}

// A new file inherits the rights of its folder.
void fileio::CopyOwnership(const fs::path& /*from*/, const fs::path& /*to*/) {}

bool fileio::IsWritable(const fs::path& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_READONLY);
}
