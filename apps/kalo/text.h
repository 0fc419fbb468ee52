#pragma once

#include <cstring>
#include <string>
#include <string_view>

// The library's texts are in the system's code page; the program writes UTF-8 everywhere.
namespace cli {

std::string Utf8FromSystem(std::string_view text);
std::string SystemFromUtf8(std::string_view text);

// The text in an array of a record, which ends with the array where nothing terminates it.
template <std::size_t N>
std::string FieldText(const char (&field)[N]) {
    const void* end = std::memchr(field, '\0', N);
    const std::size_t length =
        end == nullptr ? N : static_cast<std::size_t>(static_cast<const char*>(end) - field);
    return Utf8FromSystem(std::string_view(field, length));
}

// Equal but for the case of the letters A to Z.
bool SameText(std::string_view a, std::string_view b);

// Columns that a UTF-8 text takes on a terminal: East Asian signs take two, combining signs none.
int DisplayWidth(std::string_view text);

}  // namespace cli
