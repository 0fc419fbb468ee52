#include "host/report.h"

#include <algorithm>
#include <cinttypes>
#include <cstdio>
#include <cstdlib>

namespace host {

void* Report::Visit(const char* name) {
    void* address = library_.Address(name);
    if (address == nullptr) {
        std::fprintf(stderr, "the library lacks %s\n", name);
        std::exit(2);
    }
    visited_.insert(name);
    return address;
}

void Report::Called(const char* name, const std::vector<std::int64_t>& arguments, KaloStatus status) {
    std::printf("%s", name);
    for (const std::int64_t argument : arguments)
        std::printf(" %" PRId64, argument);
    std::printf(": 0x%08" PRIX32 "\n", status);
}

void Report::Number(const char* name, std::int64_t value) {
    std::printf("  %s %" PRId64 "\n", name, value);
}

void Report::Bits(const char* name, float value) {
    std::uint32_t bits;
    std::memcpy(&bits, &value, sizeof bits);
    std::printf("  %s %08" PRIX32 "\n", name, bits);
}

void Report::Text(const char* name, const char* text, std::size_t size) {
    const bool unset =
        std::all_of(text, text + size, [](char byte) { return static_cast<unsigned char>(byte) == kUnset; });
    const std::string content(text, strnlen(text, size));
    std::printf("  %s %s\n", name, unset ? "(unset)" : ("\"" + ReportedText(content) + "\"").c_str());
}

void Report::Fault(const std::string& what) {
    std::printf("FAULT: %s\n", what.c_str());
    failed_ = true;
}

}  // namespace host
