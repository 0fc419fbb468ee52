#pragma once

#include <cstdint>
#include <string>

#include "jetfile/bytes.h"

// Texts become UTF-8 here, whatever they are in the file.
namespace jetfile {

constexpr char32_t kReplacementCharacter = 0xFFFD;

// Appends one character; what is no character becomes U+FFFD.
void AppendUtf8(char32_t character, std::string& utf8);

// Appends UTF-16LE text; a surrogate without its partner becomes U+FFFD, an odd last byte is dropped.
void AppendUtf16(ByteView text, std::string& utf8);

// Text of a Jet 4 field: UTF-16LE, or compressed when it begins with the mark of compression.
std::string DecodeUnicodeField(ByteView text);

// Text of a Jet 3 field or name.
std::string DecodeCodePageField(std::uint16_t codePage, ByteView text);

// Names compare without case of the letters A to Z, whatever the locale.
bool SameName(const std::string& left, const std::string& right);

// The form of a name in which equal names are equal strings.
std::string FoldedName(const std::string& name);

}  // namespace jetfile
