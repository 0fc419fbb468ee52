#pragma once

#include "merge/builder.h"

// The working I/O table, which is built with the monitor table of the same combination.
namespace kalo {

// Builds `table` from the model's base table and its deltas.
Status BuildIoTable(const CString& table, const CString& modelName, const DeltaIdentity& identity);

}  // namespace kalo
