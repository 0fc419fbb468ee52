#pragma once

#include <cstddef>
#include <cstring>
#include <type_traits>

#include "session/database.h"
#include "session/status.h"

// The frame that every exported function is written in: closed check, axis row, table name, statement,
// fields, status. Functions state their own SQL, fields and codes; how they run stands here once.
namespace kalo {

// --- Statements ---

// Texts stand between double quotes, which go into a statement through %c.
constexpr char kQuote = '"';

namespace detail {
template <class Integer, class = std::enable_if_t<std::is_integral_v<Integer>>>
int FormatArgument(Integer value) {
    return static_cast<int>(value);
}
inline const char* FormatArgument(const char* text) {
    return text;
}
inline const char* FormatArgument(const CString& text) {
    return text;
}
}  // namespace detail

// Fills a statement's %s, %d, %ld, %u, %hu and %c.
template <class... Arguments>
CString Sql(const char* statement, const Arguments&... arguments) {
    CString text;
    text.Format(statement, detail::FormatArgument(arguments)...);
    return text;
}

// Fills a statement in which every %s is the same table, and its numbers in order.
CString SqlOnTable(const char* statement, const CString& table,
                   std::initializer_list<std::int32_t> numbers = {});

// --- Locked stretches ---

// The status for a caught exception; deletes it.
Status CaughtStatus(CDaoException* exception, const OnDaoError& onError);

// Runs `body` inside the lock and returns its status. A CDaoException becomes `onError`'s status; the lock is
// then left only if `onError` says so. Any other exception passes.
template <class Body>
Status Locked(const OnDaoError& onError, Body&& body) {
    EnterLock();
    Status status = kOk;
    try {
        status = body();
    } catch (CDaoException* exception) {
        status = CaughtStatus(exception, onError);
        if (onError.LeavesLock()) LeaveLock();
        return status;
    }
    LeaveLock();
    return status;
}

// The same without entering the lock.
template <class Body>
Status Unlocked(const OnDaoError& onError, Body&& body) {
    try {
        return body();
    } catch (CDaoException* exception) {
        return CaughtStatus(exception, onError);
    }
}

// Closes an open recordset; a CDaoException thrown by the close is deleted and not reported.
void CloseQuietly(CDaoRecordset& recordset);

// --- Inside a locked stretch (all of these throw CDaoException*) ---

// Executes an action statement or DDL through an unnamed query definition, failing on the first error.
// Returns the number of rows affected.
long Execute(const CString& statement);
long ExecuteOn(CDaoDatabase& database, const CString& statement);

// The rows of a SELECT, opened as a dynaset and standing on the first row.
class Rows {
  public:
    explicit Rows(const CString& statement);
    Rows(CDaoDatabase& database, const CString& statement);
    Rows(const Rows&) = delete;
    Rows& operator=(const Rows&) = delete;
    ~Rows() { CloseQuietly(recordset_); }

    bool Empty() { return recordset_.IsBOF() && recordset_.IsEOF(); }
    bool AtEnd() { return recordset_.IsEOF(); }
    void First() { recordset_.MoveFirst(); }
    void Last() { recordset_.MoveLast(); }
    void Next() { recordset_.MoveNext(); }
    // Moves to the 0-based row `index`, unchecked: past the end the next field read fails inside DAO.
    void Seek(long index);
    // Number of rows; moves to the last one.
    long Count();

    // Reads a field of the current row. False when it is NULL.
    bool Read(const char* column) {
        // A field narrower than 32 bits need not write the others, which Value and Number read too.
        value_.Clear();
        AfxVariantInit(&value_);
        recordset_.GetFieldValue(column, value_);
        return V_VT(&value_) != VT_NULL;
    }

    // The field's 32-bit value as it stands in the variant (0 when NULL).
    std::int32_t Value(const char* column);

    // Narrows the field's 32-bit value into `field`; a NULL leaves `field` as it was and returns false.
    template <class Integer, class = std::enable_if_t<std::is_integral_v<Integer>>>
    bool Number(const char* column, Integer& field) {
        if (!Read(column)) return false;
        field = static_cast<Integer>(V_I4(&value_));
        return true;
    }
    // The field as a 32-bit float.
    bool Number(const char* column, float& field);
    // The field as a number of the type of `otherwise`, which a NULL gives. For packed records, whose fields
    // a reference must not bind to: record.size = rows.NumberOr("size", record.size).
    template <class NumberType>
    NumberType NumberOr(const char* column, NumberType otherwise) {
        Number(column, otherwise);
        return otherwise;
    }

    // Copies a text, cut to `size` bytes on a character boundary, with a zero in the last byte at the latest
    // and zeros behind the text; a NULL leaves `field` as it was and returns false.
    bool Text(const char* column, char* field, std::size_t size);
    template <std::size_t Size>
    bool Text(const char* column, char (&field)[Size]) {
        return Text(column, field, Size);
    }

    // Copies at most `size` bytes of a text, cut on a character boundary, with zeros behind a shorter one. A
    // text that fills the field stays without terminator.
    bool TextUnterminated(const char* column, char* field, std::size_t size);

    // Copies a text whole, terminator included, however long: it may run past its field into what follows,
    // but never past `end`, the end of the caller's buffer (it is then cut and terminated before `end`).
    bool TextWhole(const char* column, char* field, const void* end);

    // The text as a string; empty and false when NULL.
    bool Text(const char* column, CString& text);

  private:
    CDaoRecordset recordset_;
    COleVariant value_;
};

// --- Whole steps ---

// One action statement as a locked stretch of its own. `affected`, where given, receives the number of rows.
Status Run(const OnDaoError& onError, const CString& statement, long* affected = nullptr);

// Number of rows of a SELECT, cut to 16 bits; 0 when empty. `count` is written on success only.
Status CountRows(const OnDaoError& onError, const CString& statement, std::uint16_t* count);

// Reads the column Record of a count query; `noRow` when it has no row. `count` is written on success only.
Status ReadRecordCount(const OnDaoError& onError, const CString& statement, Status noRow,
                       std::int32_t& count);

// How a function finds the working table of its kind in the axis's row.
struct TableLookup {
    const char* statement;  // with one %d for the axis number
    const char* column;     // the column that names the table
    Status noAxis;          // the axis has no row
    Status noTable;         // the name is NULL
    OnDaoError onError;
};

// Reads the name of an axis's working table as it is stored.
Status FindTableAsStored(const TableLookup& lookup, std::int32_t axis, CString& table);

// The same, with white space trimmed at both ends (outside the lock).
Status FindTable(const TableLookup& lookup, std::int32_t axis, CString& table);

// An axis's identity as its row holds it.
struct AxisIdentity {
    std::uint32_t servoId = 0;
    std::uint32_t optionId = 0;
    std::uint32_t servoFirmware = 0;
    std::uint32_t servoCustomSpec = 0;
    std::uint32_t optionFirmware = 0;
    std::uint32_t optionCustomSpec = 0;
};

// Reads the identity of an axis: codeBase + 8 when the axis has no row, codeBase + 9 on a DAO error. Leaves
// the lock in every case.
Status ReadAxisIdentity(std::int32_t axis, Status codeBase, AxisIdentity& identity);

// The same for functions that have codes of their own for both cases; a DAO error leaves the lock if
// `onError` says so.
Status ReadAxisIdentity(std::int32_t axis, Status noAxis, const OnDaoError& onError, AxisIdentity& identity);

// Drops a working table: codeBase + 7 on a DAO error. Leaves the lock in every case.
Status DropWorkTable(const CString& table, Status codeBase);

// Builds a short-lived table under a fixed name, uses it and drops it (`dropFailed` on a DAO error), whatever
// the status of the other two: a table that a killed process left goes with the first call that it makes
// fail.
template <class Build, class Use>
Status WithScratchTable(const CString& table, Status dropFailed, Build&& build, Use&& use) {
    Status status = build();
    if (status == kOk) status = use();
    const Status dropped = Run(DaoCode(dropFailed).AndLeaveLock(), Sql("DROP TABLE [%s] ", table));
    return status != kOk ? status : dropped;
}

// Drops a table that an earlier, failed call may have left, so that it does not stand in the way of the next
// one. Reports nothing; leaves the lock.
void DropLeftover(const CString& table);

}  // namespace kalo
