#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "session/query_frame.h"

// How the catalogue's functions read the rows of one statement. The caller has made sure that the database is
// open.
namespace kalo {

// What a function answers when its statement gives no value.
struct RowCodes {
    Status noRow;   // the statement has no row
    Status isNull;  // the field that must not be NULL is NULL; kOk: a NULL leaves the output as it was
    OnDaoError onDaoError;
};

// DAO's "no current record": the answer of a function that has no code of its own for a missing row.
constexpr Status NoCurrentRecord(Status base) {
    return base + 3021;
}

// One text of the first row, cut to `size` bytes and terminated.
Status ReadText(const RowCodes& codes, const CString& statement, const char* column, char* text,
                std::size_t size);

// One number of the row at `index`, counted from 0. An index past the end fails inside DAO.
Status ReadNumberAt(const RowCodes& codes, const CString& statement, std::uint16_t index, const char* column,
                    std::uint32_t* number);

// Runs `read` on the row at `index`; its status is the answer.
template <class Read>
Status ReadRowAt(Status noRow, const OnDaoError& onDaoError, const CString& statement, std::uint16_t index,
                 Read&& read) {
    return Locked(onDaoError, [&]() -> Status {
        Rows rows(statement);
        if (rows.Empty()) return noRow;
        rows.Seek(index);
        return read(rows);
    });
}

// Runs `read` on the first row; its status is the answer.
template <class Read>
Status ReadRow(Status noRow, const OnDaoError& onDaoError, const CString& statement, Read&& read) {
    return ReadRowAt(noRow, onDaoError, statement, 0, read);
}

// Fills the caller's array, which holds `capacity` records, from the rows in their order. Each record is
// zeroed before `read` fills it from its row. A row for which `read` has another status than 0 ends the list
// with that status; the records before it stay filled.
template <class Record, class Read>
Status ReadRows(Status noRow, const OnDaoError& onDaoError, const CString& statement, std::uint16_t capacity,
                Record* records, Read&& read) {
    return Locked(onDaoError, [&]() -> Status {
        Rows rows(statement);
        if (rows.Empty()) return noRow;
        rows.First();
        for (std::uint16_t i = 0; i < capacity && !rows.AtEnd(); ++i, rows.Next()) {
            Record record{};
            const Status status = read(rows, record);
            if (status != kOk) return status;
            records[i] = record;
        }
        return kOk;
    });
}

// The same, where names or joins can make more rows than the matching count getter counts: no more records
// are written than `counted` has rows.
template <class Record, class Read>
Status ReadCountedRows(Status noRow, const OnDaoError& onDaoError, const CString& statement,
                       const CString& counted, std::uint16_t capacity, Record* records, Read&& read) {
    std::uint16_t count = 0;
    const Status status = CountRows(onDaoError, counted, &count);
    if (status != kOk) return status;
    return ReadRows(noRow, onDaoError, statement, std::min(capacity, count), records,
                    std::forward<Read>(read));
}

}  // namespace kalo
