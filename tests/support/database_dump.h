#pragma once

#include <map>
#include <string>

#include "jetfile/reader.h"

namespace support {

// All tables of a database file by name, each as text: its columns with types and sizes, then its rows. The
// same for a Jet file and for what a conversion makes of it. Opens nothing for writing.
std::map<std::string, std::string> DumpDatabase(const std::string& path, const std::string& password = "");

}  // namespace support
