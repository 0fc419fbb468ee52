#include "support/dao_fixture.h"

#include "dao/create_database.h"
#include "dao/seam.h"

namespace support {
namespace {

std::string CurrentRow(CDaoRecordset& rows) {
    std::string text;
    for (int column = 0; column < rows.GetFieldCount(); ++column) {
        COleVariant value;
        rows.GetFieldValue(column, value);
        if (column > 0) text += '|';
        text += TextOf(value);
    }
    return text;
}

std::string NumberText(double number) {
    CString text;
    text.Format("%g", number);
    return static_cast<LPCTSTR>(text);
}

}  // namespace

int DaoErrorOf(const std::function<void()>& work) {
    try {
        work();
        return 0;
    } catch (CDaoException* exception) {
        const int number = exception->m_pErrorInfo->m_lErrorCode;
        exception->Delete();
        return number;
    }
}

std::string TextOf(const COleVariant& value) {
    switch (value.vt) {
        case VT_NULL:
            return "-";
        case VT_BSTR:
            return {V_BSTRT(&value), SysStringByteLen(value.bstrVal)};
        case VT_UI1:
            return std::to_string(value.bVal);
        case VT_I2:
            return std::to_string(value.iVal);
        case VT_I4:
            return std::to_string(value.lVal);
        case VT_BOOL:
            return std::to_string(value.boolVal);
        case VT_R4:
            return NumberText(value.fltVal);
        case VT_R8:
        case VT_DATE:
            return NumberText(value.dblVal);
        case VT_CY:
            return NumberText(static_cast<double>(value.cyVal.int64) / 10000);
        default:
            return "?" + std::to_string(value.vt);
    }
}

DaoTest::DaoTest() {
    daoengine::CreateDatabaseFile(Path(), "");
    database.Open(Path().c_str());
}

DaoTest::~DaoTest() {
    daoengine::seam::Disarm();
}

long DaoTest::Run(std::initializer_list<const char*> statements) {
    long rows = 0;
    for (const char* statement : statements) {
        CDaoQueryDef query(&database);
        const int number = DaoErrorOf([&] {
            query.Create(nullptr, statement);
            query.Execute(dbSQLPassThrough);
        });
        EXPECT_EQ(number, 0) << statement;
        rows = query.GetRecordsAffected();
    }
    return rows;
}

int DaoTest::ErrorOfRun(const std::string& statement) {
    return DaoErrorOf([&] {
        CDaoQueryDef query(&database);
        query.Create(nullptr, statement.c_str());
        query.Execute(dbSQLPassThrough);
    });
}

int DaoTest::ErrorOfOpen(const std::string& select) {
    return DaoErrorOf([&] {
        CDaoRecordset rows(&database);
        rows.Open(dbOpenDynaset, select.c_str());
    });
}

std::vector<std::string> DaoTest::Rows(CDaoDatabase& database, const std::string& select) {
    std::vector<std::string> texts;
    CDaoRecordset rows(&database);
    for (rows.Open(dbOpenDynaset, select.c_str()); !rows.IsEOF(); rows.MoveNext())
        texts.push_back(CurrentRow(rows));
    return texts;
}

void DaoTest::MakeNumbers(int rows) {
    Run({"CREATE TABLE [digits] ([d] LONG)", "CREATE TABLE [numbers] ([id] LONG, [name] TEXT(20))"});
    for (int digit = 0; digit < 10; ++digit)
        Run("INSERT INTO [digits] ([d]) VALUES (" + std::to_string(digit) + ")");
    std::string from = "[digits] AS [a]";
    std::string id = "[a].[d]";
    int made = 10;
    for (char alias = 'b'; made < rows; ++alias, made *= 10) {
        from += std::string(", [digits] AS [") + alias + "]";
        id += " + " + std::to_string(made) + " * [" + alias + "].[d]";
    }
    Run("INSERT INTO [numbers] SELECT " + id + " AS [id], \"n\" & (" + id + ") AS [name] FROM " + from +
        " WHERE " + id + " < " + std::to_string(rows) + " ORDER BY 1");
}

}  // namespace support
