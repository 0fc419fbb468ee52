#pragma once

#include <cstdint>
#include <string>

#include "jetfile/bytes.h"

namespace jetfile {

constexpr std::uint16_t kWesternEurope = 1252;

// Appends text of a Windows code page to `utf8`. A byte sequence that the code page does not know becomes
// U+FFFD (in kWesternEurope the character of the same number, as Windows does it). Throws 3049 for a code
// page that the system does not know.
void AppendCodePageText(std::uint16_t codePage, ByteView text, std::string& utf8);

}  // namespace jetfile
