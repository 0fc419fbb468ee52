#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <cstdio>
#include <cstdlib>

#include "host/library.h"

host::Library::Library(const std::string& path) : handle_(LoadLibraryA(path.c_str())) {
    if (handle_ != nullptr) return;
    std::fprintf(stderr, "cannot load %s: error %lu\n", path.c_str(), GetLastError());
    std::exit(2);
}

host::Library::~Library() {
    FreeLibrary(static_cast<HMODULE>(handle_));
}

void* host::Library::Address(const char* name) const {
    return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(handle_), name));
}

void host::WriteBytesUnchanged() {
    _setmode(_fileno(stdout), _O_BINARY);
}

std::string host::ReportedText(const std::string& text) {
    return text;
}
