#pragma once

#include <cstdint>
#include <string>

#include "jetfile/byte_source.h"

namespace jetfile {

// What page 0 says about the file.
struct Header {
    FileKind kind = FileKind::Other;
    std::uint16_t codePage = 0;  // of names and texts of a Jet 3 file
    bool encoded = false;        // pages are encrypted
    std::string password;        // UTF-8; empty when the file has none
};

// What the signature and the version byte say.
FileKind ProbeSource(ByteSource& source);

// Reads and unmasks the header. A source that is no Jet 3 or Jet 4 file gives FileKind::Other.
Header ReadHeader(ByteSource& source);

// Throws 3343 for a file that cannot be read, 3031 when the file has another password.
void CheckAccess(const Header& header, const std::string& password);

}  // namespace jetfile
