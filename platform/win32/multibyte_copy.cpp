#include <cstring>

#include "mbstring.h"

namespace {

// Length of the UTF-8 sequence that starts at `at`; a byte that starts none counts for itself.
std::size_t SequenceLength(const unsigned char* at) {
    const std::size_t announced = *at >= 0xF0 ? 4 : *at >= 0xE0 ? 3 : *at >= 0xC0 ? 2 : 1;
    std::size_t length = 1;
    while (length < announced && (at[length] & 0xC0) == 0x80)
        ++length;
    return length;
}

}  // namespace

unsigned char* _mbsnbcpy(unsigned char* destination, const unsigned char* source, std::size_t count) {
    std::size_t copied = 0;
    while (source[copied]) {
        const std::size_t length = SequenceLength(source + copied);
        if (copied + length > count) break;
        std::memcpy(destination + copied, source + copied, length);
        copied += length;
    }
    std::memset(destination + copied, 0, count - copied);
    return destination;
}
