#include "trace/io_trace_info.h"

namespace kalo {

Status FindIoTraceInfoTable(std::uint32_t servoId, Status noName, const OnDaoError& onError, CString& table) {
    table = "IOTraceInfo";
    return Locked(onError, [&]() -> Status {
        Rows rows(Sql("SELECT * FROM [%s] WHERE [servo_id] = %ld", "Tavro2Model", servoId));
        if (rows.Empty()) return kOk;
        CString named;
        if (!rows.Text("table_name", named)) return noName;
        table = named;
        table.TrimLeft();
        table.TrimRight();
        return kOk;
    });
}

}  // namespace kalo
