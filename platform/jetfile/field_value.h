#pragma once

#include "jetfile/bytes.h"
#include "jetfile/database_file.h"
#include "jetfile/reader.h"
#include "jetfile/table_definition.h"

namespace jetfile {

// The value of a field that is not Null and not Yes/No, from its bytes in the row. Long values are charged to
// `budget`.
Value DecodeField(const DatabaseFile& file, const StoredColumn& column, ByteView bytes, ReadBudget& budget);

}  // namespace jetfile
