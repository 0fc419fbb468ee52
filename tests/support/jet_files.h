#pragma once

#include <string>

#include "jetfile/reader.h"

namespace support {

// Contents of a small Jet file: a table of parameters with a unique key, one without rows, one of long texts,
// each row telling which `edition` of the file it is from.
std::string SmallJetFile(jetfile::FileKind kind, const std::string& edition);

// Contents of a Jet file with one table "types" that has a column of every type, two rows of values and one
// of Nulls.
std::string JetFileOfAllTypes(jetfile::FileKind kind);

}  // namespace support
