#pragma once

#include <cstdarg>
#include <string>

namespace mfc {

// Formats printf style as Visual C++ does: `l` is 32 bits, `ll` and `I64` are 64. Takes d i u x X o c s, the
// floating conversions and %%, with flags, width and precision. Anything else is copied as it stands.
std::string FormatText(const char* format, va_list list);

}  // namespace mfc
