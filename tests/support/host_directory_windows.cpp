#include <windows.h>

#include "support/host_directory.h"

namespace support {

// Windows always tells where the running program is; the tests of one directory run one after another.
std::filesystem::path SetHostDirectory(const std::filesystem::path& /*wanted*/) {
    char path[MAX_PATH] = {};
    GetModuleFileNameA(nullptr, path, MAX_PATH - 1);
    return std::filesystem::path(path).parent_path();
}

void ResetHostDirectory() {}

}  // namespace support
