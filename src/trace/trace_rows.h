#pragma once

#include "session/query_frame.h"

// What the analog and the I/O trace getters share: which rows of a trace table are offered for a kind of
// trace and supported by a drive, and walking over them.
namespace kalo {

// A getter over an axis's trace table: its statements and what it answers in each case.
struct TraceGetter {
    const char* axisStatement = "SELECT * FROM [tablemanager] WHERE axis_num = %d";
    const char* column;     // analogtrace_table or iotrace_table
    const char* statement;  // with the table as %s and, where it has them, numbers
    Status notOpen;
    Status noAxis;
    Status noTable;
    Status lookupFailed;
    OnDaoError onReadError;
    Status empty = kOk;  // no row at all; 0 where that is no failure and the getter goes on
};

// Runs `read` on the rows of the getter's statement.
template <class Read>
Status OverTraceTable(const TraceGetter& getter, std::int32_t axis,
                      std::initializer_list<std::int32_t> numbers, Read read) {
    if (!DatabaseIsOpen()) return getter.notOpen;
    CString table;
    const Status found = FindTable(
        {getter.axisStatement, getter.column, getter.noAxis, getter.noTable, DaoCode(getter.lookupFailed)},
        axis, table);
    if (found != kOk) return found;
    return Locked(getter.onReadError, [&]() -> Status {
        Rows rows(SqlOnTable(getter.statement, table, numbers));
        if (getter.empty != kOk && rows.Empty()) return getter.empty;
        return read(rows);
    });
}

// True when the row is offered for trace kind `kind`: bit kind - 1 of its `target` is set. Kinds outside 1 to
// 32 are offered no row.
bool IsOfTraceKind(Rows& rows, std::uint32_t kind);

// The words in which a drive tells what it can record.
struct SupportBitmap {
    const std::uint16_t* words;
    std::uint16_t wordCount;

    // True when the drive supports the row: bit `bitindex` of word `index` is set.
    bool Supports(Rows& rows) const;
};

// The same as a condition to count and list by.
inline auto OfTraceKind(std::uint32_t kind) {
    return [kind](Rows& rows) { return IsOfTraceKind(rows, kind); };
}
inline auto SupportedOfTraceKind(const SupportBitmap& bitmap, std::uint32_t kind) {
    return [bitmap, kind](Rows& rows) { return bitmap.Supports(rows) && IsOfTraceKind(rows, kind); };
}

// Number of rows for which `offered` holds, cut to 16 bits.
template <class Offered>
std::uint16_t CountOffered(Rows& rows, Offered offered) {
    std::uint16_t count = 0;
    if (rows.Empty()) return count;
    for (rows.First(); !rows.AtEnd(); rows.Next()) {
        if (offered(rows)) ++count;
    }
    return count;
}

// Hands the offered rows to `write` with their positions, as many as CountOffered reports: the caller sized
// the array with that number.
template <class Offered, class Write>
void ListOffered(Rows& rows, Offered offered, Write write) {
    const std::uint16_t count = CountOffered(rows, offered);
    if (count == 0) return;
    std::uint16_t position = 0;
    for (rows.First(); position < count && !rows.AtEnd(); rows.Next()) {
        if (offered(rows)) write(position++);
    }
}

// Goes to the offered row at a 0-based position. False when there are fewer.
template <class Offered>
bool SeekOffered(Rows& rows, std::uint16_t position, Offered offered) {
    if (rows.Empty()) return false;
    for (rows.First(); !rows.AtEnd(); rows.Next()) {
        if (offered(rows) && position-- == 0) return true;
    }
    return false;
}

}  // namespace kalo
