#pragma once

#include "session/query_frame.h"

namespace kalo {

// Name of the table that describes a drive's I/O trace signals without an axis: the one that Tavro2Model
// names for the servo id, IOTraceInfo where it has no row. A row without a name gives `noName`, or
// IOTraceInfo where `noName` is 0.
Status FindIoTraceInfoTable(std::uint32_t servoId, Status noName, const OnDaoError& onError, CString& table);

}  // namespace kalo
