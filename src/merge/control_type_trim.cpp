#include "merge/control_type_trim.h"

namespace kalo {
namespace {

// Adds a control type to the statement, unless its clause stands there already as a piece of text: the clause
// for 1 is found in the one for 12, and rows of control type 1 then stay. The first one, which has no OR
// before it, may be added once more. The column holds signed 16 bits: a type with the highest bit set is
// negative in the statement.
void AddControlType(CString& statement, const CString& table, std::int16_t controlType) {
    if (statement.IsEmpty()) {
        statement = Sql("DELETE * FROM [%s] WHERE sv_control_type = %d", table, controlType);
        return;
    }
    const CString clause = Sql(" OR sv_control_type = %d", controlType);
    if (statement.Find(clause) < 0) statement += clause;
}

}  // namespace

Status TrimByControlType(const CString& table, std::uint16_t mask, const TrimCodes& codes) {
    CString statement;
    const Status status = Locked(codes.onWalk, [&] {
        Rows rows(Sql("SELECT * FROM [%s]", table));
        if (rows.Empty()) return codes.emptyTable;
        for (rows.First(); !rows.AtEnd(); rows.Next()) {
            const auto controlType = static_cast<std::int16_t>(rows.Value("sv_control_type"));
            if ((controlType & mask) == 0) AddControlType(statement, table, controlType);
        }
        return kOk;
    });
    if (status != kOk || statement.IsEmpty()) return status;
    return Run(codes.onDelete, statement);
}

}  // namespace kalo
