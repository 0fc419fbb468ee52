#pragma once

#include <string>
#include <string_view>

// Between the process's narrow encoding (the ANSI code page on Windows, UTF-8 everywhere else) and the
// engine's UTF-8. What one of them cannot express becomes a replacement character.
std::string NarrowFromUtf8(std::string_view text);
std::string Utf8FromNarrow(std::string_view text);

// The same without a copy where the two agree; else the text is put into `storage`.
std::string_view NarrowFromUtf8(std::string_view text, std::string& storage);
std::string_view Utf8FromNarrow(std::string_view text, std::string& storage);
