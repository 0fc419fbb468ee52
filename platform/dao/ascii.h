#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>

namespace daoengine {

// Whether a text is the same in every encoding that this system meets.
inline bool IsAscii(std::string_view text) {
    constexpr std::uint64_t kHighBits = 0x8080808080808080U;
    const char* at = text.data();
    std::size_t left = text.size();
    std::uint64_t all = 0;
    for (; left >= sizeof all; at += sizeof all, left -= sizeof all) {
        std::uint64_t word;
        std::memcpy(&word, at, sizeof word);
        all |= word;
    }
    for (; left > 0; ++at, --left)
        all |= static_cast<unsigned char>(*at);
    return (all & kHighBits) == 0;
}

}  // namespace daoengine
