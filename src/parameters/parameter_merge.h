#pragma once

#include "merge/builder.h"

namespace kalo {

// Makes a scratch table from all rows of a model's parameter table and applies the changes of the amplifier's
// firmware and custom specification and of the option unit. What an earlier, failed build left is dropped
// first; a failing step leaves the table as far as it was built.
//
// Unlike the generic merge, rows are matched by their own id and by sv_control_type, deleted by
// user_constant, the firmware bound is the newest version that the database knows, and a row that a custom
// specification inserts is not inserted by a firmware.
Status MergeParameters(const CString& scratch, const CString& modelName, const BuildIdentity& identity);

}  // namespace kalo
