#pragma once

#include "session/query_frame.h"

namespace kalo {

struct TrimCodes {
    Status emptyTable;
    OnDaoError onWalk;
    OnDaoError onDelete;
};

// Deletes the rows of a working table whose sv_control_type shares no bit with the mask, in one statement.
Status TrimByControlType(const CString& table, std::uint16_t mask, const TrimCodes& codes);

}  // namespace kalo
