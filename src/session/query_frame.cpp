#include "session/query_frame.h"

#include <mbstring.h>

#include <algorithm>

namespace kalo {
namespace {

constexpr int kFailOnError = 64;

}  // namespace

CString SqlOnTable(const char* statement, const CString& table, std::initializer_list<std::int32_t> numbers) {
    CString text;
    auto number = numbers.begin();
    while (const char* const hole = std::strchr(statement, '%')) {
        text += CString(statement, static_cast<int>(hole - statement));
        if (hole[1] == 's')
            text += table;
        else
            text += Sql("%d", *number++);
        statement = hole + (hole[1] == 'l' ? 3 : 2);
    }
    text += statement;
    return text;
}

Status CaughtStatus(CDaoException* exception, const OnDaoError& onError) {
    const std::int32_t number =
        exception->m_pErrorInfo != nullptr ? exception->m_pErrorInfo->m_lErrorCode : 0;
    exception->Delete();
    return onError.StatusOf(number);
}

void CloseQuietly(CDaoRecordset& recordset) {
    if (!recordset.IsOpen()) return;
    try {
        recordset.Close();
    } catch (CDaoException* exception) {
        exception->Delete();
    }
}

long Execute(const CString& statement) {
    return ExecuteOn(*Database(), statement);
}

long ExecuteOn(CDaoDatabase& database, const CString& statement) {
    CDaoQueryDef query(&database);
    query.Create(nullptr, statement);
    query.Execute(kFailOnError);
    return query.GetRecordsAffected();
}

Rows::Rows(const CString& statement) : Rows(*Database(), statement) {}

Rows::Rows(CDaoDatabase& database, const CString& statement) : recordset_(&database) {
    recordset_.Open(dbOpenDynaset, statement, 0);
}

void Rows::Seek(long index) {
    recordset_.MoveFirst();
    recordset_.Move(index);
}

long Rows::Count() {
    if (Empty()) return 0;
    recordset_.MoveFirst();
    recordset_.MoveLast();
    return recordset_.GetRecordCount();
}

std::int32_t Rows::Value(const char* column) {
    return Read(column) ? static_cast<std::int32_t>(V_I4(&value_)) : 0;
}

bool Rows::Number(const char* column, float& field) {
    if (!Read(column)) return false;
    switch (V_VT(&value_)) {
        case VT_R4:
            field = V_R4(&value_);
            break;
        case VT_R8:
            field = static_cast<float>(V_R8(&value_));
            break;
        default:
            field = static_cast<float>(V_I4(&value_));
            break;
    }
    return true;
}

bool Rows::Text(const char* column, char* field, std::size_t size) {
    if (!TextUnterminated(column, field, size - 1)) return false;
    field[size - 1] = '\0';
    return true;
}

bool Rows::TextUnterminated(const char* column, char* field, std::size_t size) {
    if (!Read(column)) return false;
    if (V_VT(&value_) != VT_BSTR) return false;
    _mbsnbcpy(reinterpret_cast<unsigned char*>(field),
              reinterpret_cast<const unsigned char*>(V_BSTRT(&value_)), size);
    return true;
}

bool Rows::TextWhole(const char* column, char* field, const void* end) {
    if (!Read(column)) return false;
    if (V_VT(&value_) != VT_BSTR) return false;
    const char* text = V_BSTRT(&value_);
    const std::size_t room = static_cast<std::size_t>(static_cast<const char*>(end) - field);
    const std::size_t length = std::strlen(text) + 1;
    if (length <= room) {
        std::memcpy(field, text, length);
        return true;
    }
    return Text(column, field, room);
}

bool Rows::Text(const char* column, CString& text) {
    text.Empty();
    if (!Read(column)) return false;
    if (V_VT(&value_) == VT_BSTR) text = V_BSTRT(&value_);
    return true;
}

Status Run(const OnDaoError& onError, const CString& statement, long* affected) {
    return Locked(onError, [&] {
        const long rows = Execute(statement);
        if (affected != nullptr) *affected = rows;
        return kOk;
    });
}

Status CountRows(const OnDaoError& onError, const CString& statement, std::uint16_t* count) {
    return Locked(onError, [&] {
        *count = static_cast<std::uint16_t>(Rows(statement).Count());
        return kOk;
    });
}

Status ReadRecordCount(const OnDaoError& onError, const CString& statement, Status noRow,
                       std::int32_t& count) {
    return Locked(onError, [&] {
        Rows rows(statement);
        if (rows.Empty()) return noRow;
        rows.First();
        count = rows.Value("Record");
        return kOk;
    });
}

Status FindTableAsStored(const TableLookup& lookup, std::int32_t axis, CString& table) {
    return Locked(lookup.onError, [&] {
        Rows rows(Sql(lookup.statement, axis));
        if (rows.Empty()) return lookup.noAxis;
        rows.First();
        return rows.Text(lookup.column, table) ? kOk : lookup.noTable;
    });
}

Status FindTable(const TableLookup& lookup, std::int32_t axis, CString& table) {
    const Status status = FindTableAsStored(lookup, axis, table);
    if (status != kOk) return status;
    table.TrimLeft();
    table.TrimRight();
    return kOk;
}

Status ReadAxisIdentity(std::int32_t axis, Status codeBase, AxisIdentity& identity) {
    return ReadAxisIdentity(axis, codeBase + 8, DaoCode(codeBase + 9).AndLeaveLock(), identity);
}

Status ReadAxisIdentity(std::int32_t axis, Status noAxis, const OnDaoError& onError, AxisIdentity& identity) {
    return Locked(onError, [&] {
        Rows rows(Sql("SELECT * FROM [tablemanager] WHERE [axis_num] = %d", axis));
        if (rows.Empty()) return noAxis;
        identity.servoId = static_cast<std::uint32_t>(rows.Value("servo_id"));
        identity.optionId = static_cast<std::uint32_t>(rows.Value("option_id"));
        identity.servoFirmware = static_cast<std::uint32_t>(rows.Value("sFirm_version"));
        identity.servoCustomSpec = static_cast<std::uint32_t>(rows.Value("sCmod_version"));
        identity.optionFirmware = static_cast<std::uint32_t>(rows.Value("oFirm_version"));
        identity.optionCustomSpec = static_cast<std::uint32_t>(rows.Value("oCmod_version"));
        return kOk;
    });
}

Status DropWorkTable(const CString& table, Status codeBase) {
    return Run(DaoCode(codeBase + 7).AndLeaveLock(), Sql("DROP TABLE [%s] ", table));
}

void DropLeftover(const CString& table) {
    DropWorkTable(table, kOk);
}

}  // namespace kalo
