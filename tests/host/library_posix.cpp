#include <dlfcn.h>
#include <iconv.h>

#include <cstdio>
#include <cstdlib>

#include "host/library.h"

namespace {

// The code page that a Windows host would report in, from the environment; empty: texts stay as they are.
iconv_t OpenConverter() {
    const char* codePage = std::getenv("TOUR_CODE_PAGE");
    return codePage == nullptr ? nullptr : iconv_open(codePage, "UTF-8");
}

bool ContinuesCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

}  // namespace

host::Library::Library(const std::string& path) : handle_(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL)) {
    if (handle_ != nullptr) return;
    std::fprintf(stderr, "cannot load %s: %s\n", path.c_str(), dlerror());
    std::exit(2);
}

host::Library::~Library() {
    dlclose(handle_);
}

void* host::Library::Address(const char* name) const {
    return dlsym(handle_, name);
}

void host::WriteBytesUnchanged() {}

std::string host::ReportedText(const std::string& text) {
    static const iconv_t converter = OpenConverter();
    if (converter == nullptr) return text;
    std::string converted(text.size() * 2 + 1, '\0');
    char* from = const_cast<char*>(text.data());
    char* to = converted.data();
    std::size_t left = text.size();
    std::size_t room = converted.size();
    while (iconv(converter, &from, &left, &to, &room) == static_cast<std::size_t>(-1) && left > 0) {
        *to++ = '?';
        --room;
        do {
            ++from;
            --left;
        } while (left > 0 && ContinuesCharacter(*from));
    }
    converted.resize(static_cast<std::size_t>(to - converted.data()));
    return converted;
}
