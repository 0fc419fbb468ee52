#pragma once

#include <memory>

#include "afx.h"
#include "afxdisp.h"

// MFC's DAO classes over the embedded engine, with DAO's documented behaviour and error numbers.

#define AFX_DAO_USE_DEFAULT_TYPE (-1)

enum RecordsetTypeEnum { dbOpenTable = 1, dbOpenDynaset = 2, dbOpenSnapshot = 4 };
enum RecordsetOptionEnum { dbSQLPassThrough = 64, dbFailOnError = 128 };

enum : long { AFX_MOVE_NEXT = 1, AFX_MOVE_PREVIOUS = -1 };

namespace daoengine {
class DatabaseState;
class RecordsetState;
class QueryState;
}  // namespace daoengine

class CDaoWorkspace;

struct CDaoErrorInfo {
    LONG m_lErrorCode = 0;
    CString m_strSource;
    CString m_strDescription;
    CString m_strHelpFile;
    LONG m_lHelpContext = 0;
};

// What CDaoDatabase tells of one of its tables.
struct CDaoTableDefInfo {
    CString m_strName;
};

// What a failing DAO call throws, by pointer.
class CDaoException : public CException {
  public:
    CDaoException();
    ~CDaoException() override;
    BOOL GetErrorMessage(LPTSTR error, UINT maxError, UINT* helpContext = nullptr) override;
    short GetErrorCount() const { return m_pErrorInfo ? 1 : 0; }

    SCODE m_scode = 0;
    int m_nAfxDaoError = 0;
    CDaoErrorInfo* m_pErrorInfo = nullptr;
};

class CDaoDatabase : public CObject {
  public:
    explicit CDaoDatabase(CDaoWorkspace* workspace = nullptr);
    // Closes the database if it is open.
    ~CDaoDatabase() override;
    CDaoDatabase(const CDaoDatabase&) = delete;
    CDaoDatabase& operator=(const CDaoDatabase&) = delete;

    // Opens a database file. `connect` is ";PWD=…". Throws CDaoException* and stays closed on failure.
    virtual void Open(LPCTSTR name, BOOL exclusive = FALSE, BOOL readOnly = FALSE, LPCTSTR connect = _T(""));
    // Closes what was opened on this object, then the database. Never throws; safe to call twice.
    virtual void Close();
    BOOL IsOpen() const;
    // Number of base tables, counted at the time of the call.
    short GetTableDefCount();
    // The base table at an index, in the order in which they were made; throws 3265 past the last one.
    void GetTableDefInfo(int index, CDaoTableDefInfo& info);
    void Execute(LPCTSTR sql, int options = dbFailOnError);
    long GetRecordsAffected();

    daoengine::DatabaseState& State() { return *state_; }

  private:
    std::unique_ptr<daoengine::DatabaseState> state_;
};

class CDaoQueryDef : public CObject {
  public:
    explicit CDaoQueryDef(CDaoDatabase* database);
    ~CDaoQueryDef() override;
    CDaoQueryDef(const CDaoQueryDef&) = delete;
    CDaoQueryDef& operator=(const CDaoQueryDef&) = delete;

    // Makes a temporary definition (no name). A syntax error is raised here, a missing object by Execute.
    virtual void Create(LPCTSTR name = nullptr, LPCTSTR sql = nullptr);
    virtual void Execute(int options = dbFailOnError);
    virtual void Close();
    BOOL IsOpen() const;
    // Rows that the last Execute wrote, changed or deleted; 0 before.
    long GetRecordsAffected();

  private:
    CDaoDatabase* database_;
    std::unique_ptr<daoengine::QueryState> state_;
};

class CDaoRecordset : public CObject {
  public:
    explicit CDaoRecordset(CDaoDatabase* database = nullptr);
    ~CDaoRecordset() override;
    CDaoRecordset(const CDaoRecordset&) = delete;
    CDaoRecordset& operator=(const CDaoRecordset&) = delete;

    // Opens on a SELECT and stands on its first row.
    virtual void Open(int openType = AFX_DAO_USE_DEFAULT_TYPE, LPCTSTR sql = nullptr, int options = 0);
    virtual void Close();
    BOOL IsOpen() const;
    BOOL IsBOF() const;
    BOOL IsEOF() const;

    void MoveFirst();
    void MoveLast();
    void MoveNext();
    void MovePrev();
    virtual void Move(long rows);

    // Rows visited so far; all of them after MoveLast.
    long GetRecordCount();
    // Clears the variant, then fills it with the current row's column (by name, without case; or by
    // position).
    virtual void GetFieldValue(LPCTSTR name, COleVariant& value);
    virtual void GetFieldValue(int index, COleVariant& value);

    // Number and name of the columns.
    short GetFieldCount();
    CString GetFieldName(int index);

  private:
    CDaoDatabase* database_;
    std::unique_ptr<daoengine::RecordsetState> state_;
};
