#include <vector>

#include "merge/builder.h"

namespace kalo {
namespace {

CString StoredName(const CString& table) {
    return table.IsEmpty() ? CString("NULL") : Sql("%c%s%c", kQuote, table, kQuote);
}

// UPDATE [tablemanager]  SET [a] = "x", [b] = "y" WHERE [axis_num] = n
CString UpdateStatement(std::int32_t axis, std::span<const RegisteredTable> tables) {
    CString assignments;
    for (const RegisteredTable& entry : tables) {
        if (!assignments.IsEmpty()) assignments += ", ";
        assignments += Sql("[%s] = %s", entry.column, StoredName(entry.table));
    }
    return Sql("UPDATE [tablemanager]  SET %s WHERE [axis_num] = %d", assignments, axis);
}

// INSERT INTO  [tablemanager] ([axis_num],[a],[b]) VALUES (n,"x","y")
CString InsertStatement(std::int32_t axis, std::span<const RegisteredTable> tables) {
    CString columns;
    CString values;
    for (const RegisteredTable& entry : tables) {
        columns += Sql(",[%s]", entry.column);
        values += Sql(",%s", StoredName(entry.table));
    }
    return Sql("INSERT INTO  [tablemanager] ([axis_num]%s) VALUES (%d%s)", columns, axis, values);
}

// The names that the axis's row holds; empty where NULL.
Status ReadPrevious(std::int32_t axis, std::span<const RegisteredTable> tables,
                    const RegistrationCodes& codes, std::vector<CString>& previous) {
    return Locked(codes.onLookup, [&] {
        Rows rows(Sql("SELECT * FROM [tablemanager] WHERE [axis_num] = %d", axis));
        if (rows.Empty()) return codes.noAxis;
        rows.First();
        for (const RegisteredTable& entry : tables)
            rows.Text(entry.column, previous.emplace_back());
        return kOk;
    });
}

// Drops the axis's previous tables unless they are still in use.
Status DropPrevious(std::int32_t axis, std::span<const RegisteredTable> tables,
                    const RegistrationCodes& codes) {
    std::vector<CString> previous;
    Status status = ReadPrevious(axis, tables, codes, previous);
    if (status != kOk || previous.front().IsEmpty()) return status;
    std::int32_t users = 0;
    status = ReadRecordCount(codes.onLookup,
                             Sql("SELECT COUNT (*) AS [Record] FROM [tablemanager] WHERE [%s] = %c%s%c",
                                 tables.front().column, kQuote, previous.front(), kQuote),
                             codes.noUsers, users);
    if (users != 1 || previous.front() == tables.front().table) return status;
    for (const CString& table : previous) {
        if (status == kOk && !table.IsEmpty()) status = Run(codes.onDrop, Sql("DROP TABLE [%s]", table));
    }
    return status;
}

}  // namespace

Status RegisterTables(std::int32_t axis, std::span<const RegisteredTable> tables,
                      const RegistrationCodes& codes) {
    std::int32_t axisRows = 0;
    Status status = ReadRecordCount(
        codes.onLookup, Sql("SELECT COUNT (*) AS [Record] FROM [tablemanager] WHERE [axis_num] = %d", axis),
        codes.noCount, axisRows);
    if (status != kOk) return status;
    if (axisRows == 0) return Run(codes.onWrite, InsertStatement(axis, tables));
    status = DropPrevious(axis, tables, codes);
    if (status != kOk) return status;
    return Run(codes.onWrite, UpdateStatement(axis, tables));
}

}  // namespace kalo
