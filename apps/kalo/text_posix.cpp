#include "text.h"

namespace cli {

std::string Utf8FromSystem(std::string_view text) {
    return std::string(text);
}

std::string SystemFromUtf8(std::string_view text) {
    return std::string(text);
}

}  // namespace cli
