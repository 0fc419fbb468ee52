#include <algorithm>
#include <cstring>
#include <filesystem>
#include <mutex>
#include <string>

#include "host_program.h"
#include "windows.h"

namespace {

struct HostProgram {
    std::mutex mutex;
    std::string path;
};

HostProgram& Host() {
    static HostProgram& host = *new HostProgram;
    return host;
}

std::string HostProgramPath() {
    const std::lock_guard lock(Host().mutex);
    if (!Host().path.empty()) return Host().path;
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).string();
}

}  // namespace

void SetHostProgramPath(const std::string& path) {
    const std::lock_guard lock(Host().mutex);
    Host().path = path;
}

DWORD GetModuleFileNameA(HMODULE /*module*/, LPSTR fileName, DWORD size) {
    if (size == 0) return 0;
    const std::string path = HostProgramPath();
    if (path.size() >= size) {
        std::memcpy(fileName, path.data(), size - 1);
        fileName[size - 1] = '\0';
        return size;
    }
    std::memcpy(fileName, path.c_str(), path.size() + 1);
    return static_cast<DWORD>(path.size());
}
