#pragma once

#include <string_view>

namespace daoengine {

// Whether a text is the same in every encoding that this system meets.
inline bool IsAscii(std::string_view text) {
    unsigned char all = 0;
    for (const char character : text)
        all = static_cast<unsigned char>(all | static_cast<unsigned char>(character));
    return all < 0x80;
}

}  // namespace daoengine
