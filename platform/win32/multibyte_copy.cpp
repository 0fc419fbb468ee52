#include <cstring>

#include "mbstring.h"

namespace {

// Whether a sequence of UTF-8 may begin at a byte: the others continue one.
bool BeginsSequence(unsigned char byte) {
    return (byte & 0xC0) != 0x80;
}

// How many of the first `count` bytes belong to sequences that are whole; bytes that continue none count for
// themselves.
std::size_t WholeSequences(const unsigned char* text, std::size_t count) {
    constexpr std::size_t kLongest = 4;
    for (std::size_t back = 1; back <= count && back < kLongest; ++back) {
        const unsigned char first = text[count - back];
        if (!BeginsSequence(first)) continue;
        const std::size_t announced = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : first >= 0xC0 ? 2 : 1;
        const bool cut = announced > back && !BeginsSequence(text[count]);
        return cut ? count - back : count;
    }
    return count;
}

}  // namespace

unsigned char* _mbsnbcpy(unsigned char* destination, const unsigned char* source, std::size_t count) {
    std::size_t copied = strnlen(reinterpret_cast<const char*>(source), count);
    if (copied == count && source[count] != 0) copied = WholeSequences(source, count);
    std::memcpy(destination, source, copied);
    std::memset(destination + copied, 0, count - copied);
    return destination;
}
