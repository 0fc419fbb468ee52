#pragma once

#include "jetfile/database_file.h"
#include "jetfile/reader.h"

namespace jetfile {

// Assembles a memo or OLE value from its field in the row: the field's own rest, a piece on another page, or
// a chain of pieces. What is read from other pages is charged to `budget`.
Blob ReadLongValue(const DatabaseFile& file, ByteView field, ReadBudget& budget);

}  // namespace jetfile
