#include <windows.h>

#include <shellapi.h>

#include <string>

#include "system/file_path.h"
#include "system/sidecar_files.h"

#undef SHFileOperationA

namespace {

// The shell's answer when a target cannot be written.
constexpr int kTargetFailed = 0x10000;

}  // namespace

int CopyDatabaseFiles(SHFILEOPSTRUCTA* operation) {
    // A copy that cannot start leaves the target as it is, with all that belongs to it.
    const bool sourceExists = GetFileAttributesA(operation->pFrom) != INVALID_FILE_ATTRIBUTES;
    for (LPCSTR target = operation->pTo; sourceExists && *target; target += std::string(target).size() + 1)
        if (fileio::RemoveSidecarFiles(fileio::FilePath(target))) return kTargetFailed;
    return SHFileOperationA(operation);
}
