#include <windows.h>

#include <algorithm>
#include <string>

#include "support/host_directory.h"

namespace {

using GetModuleFileNameFunction = DWORD(WINAPI*)(HMODULE module, LPSTR path, DWORD size);

std::string hostProgram;

GetModuleFileNameFunction SystemsOwn() {
    const FARPROC address = GetProcAddress(GetModuleHandleA("kernel32.dll"), "GetModuleFileNameA");
    return reinterpret_cast<GetModuleFileNameFunction>(reinterpret_cast<void*>(address));
}

DWORD WINAPI HostProgramOrOwn(HMODULE module, LPSTR path, DWORD size) {
    if (module != nullptr || hostProgram.empty()) return SystemsOwn()(module, path, size);
    const auto length = std::min<std::size_t>(hostProgram.size(), size);
    std::copy_n(hostProgram.c_str(), std::min<std::size_t>(length + 1, size), path);
    return static_cast<DWORD>(length);
}

}  // namespace

// The import through which this program, and the library in it, calls GetModuleFileNameA: a definition of its
// own takes the place of the one that the import library has.
extern "C" {
extern const GetModuleFileNameFunction importedGetModuleFileName asm("__imp__GetModuleFileNameA@12");
const GetModuleFileNameFunction importedGetModuleFileName = HostProgramOrOwn;
}

namespace support {

std::filesystem::path SetHostDirectory(const std::filesystem::path& wanted) {
    hostProgram = (wanted / "host.exe").string();
    return wanted;
}

void ResetHostDirectory() {
    hostProgram.clear();
}

}  // namespace support
