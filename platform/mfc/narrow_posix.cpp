#include "mfc/narrow.h"

// The narrow encoding is UTF-8 itself.

std::string NarrowFromUtf8(std::string_view text) {
    return std::string(text);
}

std::string Utf8FromNarrow(std::string_view text) {
    return std::string(text);
}

std::string_view NarrowFromUtf8(std::string_view text, std::string&) {
    return text;
}

std::string_view Utf8FromNarrow(std::string_view text, std::string&) {
    return text;
}
