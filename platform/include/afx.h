#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

// MFC's general classes, as far as this library uses them, with MFC's documented behaviour. Strings are
// narrow: in the ANSI code page on Windows, in UTF-8 everywhere else.

#define _T(text) text

class CObject {
  public:
    virtual ~CObject() = default;
};

// A growing string of bytes. Case and white space are those of ASCII.
class CString {
  public:
    CString() = default;
    CString(LPCTSTR text);
    CString(LPCTSTR text, int length);

    CString& operator=(LPCTSTR text);
    CString& operator+=(LPCTSTR text);
    CString& operator+=(char character);
    operator LPCTSTR() const { return text_.c_str(); }

    int GetLength() const { return static_cast<int>(text_.size()); }
    BOOL IsEmpty() const { return text_.empty(); }
    void Empty() { text_.clear(); }
    char operator[](int index) const { return text_[static_cast<std::size_t>(index)]; }

    // Replaces the content, printf style. `l` means 32 bits, as on Windows.
    void Format(LPCTSTR format, ...);

    void TrimLeft();
    void TrimRight();
    void MakeLower();
    // Position of the first occurrence, or -1.
    int Find(LPCTSTR text) const;
    CString Left(int count) const;
    CString Mid(int first) const;
    CString Mid(int first, int count) const;
    CString Right(int count) const;

  private:
    std::string text_;
};

CString operator+(const CString& left, const CString& right);
CString operator+(const CString& left, LPCTSTR right);
CString operator+(LPCTSTR left, const CString& right);
bool operator==(const CString& left, const CString& right);
bool operator==(const CString& left, LPCTSTR right);
bool operator!=(const CString& left, LPCTSTR right);

// Exceptions are thrown by pointer and freed by Delete().
class CException : public CObject {
  public:
    void Delete() { delete this; }
    // Copies the message, cut and terminated; FALSE where there is none.
    virtual BOOL GetErrorMessage(LPTSTR error, UINT maxError, UINT* helpContext = nullptr);
};

class CFileException : public CException {
  public:
    enum Cause {
        none,
        genericException,
        fileNotFound,
        badPath,
        tooManyOpenFiles,
        accessDenied,
        invalidFile,
        removeCurrentDir,
        directoryFull,
        badSeek,
        hardIO,
        sharingViolation,
        lockViolation,
        diskFull,
        endOfFile
    };
    explicit CFileException(int cause = none, LONG osError = -1, LPCTSTR fileName = nullptr);
    BOOL GetErrorMessage(LPTSTR error, UINT maxError, UINT* helpContext = nullptr) override;

    int m_cause;
    LONG m_lOsError;
    CString m_strFileName;
};

struct CFileStatus {
    ULONGLONG m_size = 0;
    BYTE m_attribute = 0;
    CString m_szFullName;
};

class CFile {
  public:
    // FALSE when the file is missing; does not open it.
    static BOOL GetStatus(LPCTSTR fileName, CFileStatus& status);
    // Deletes the file, and first what the database engine keeps beside it. Throws CFileException* on
    // failure: the file is missing, read-only, a folder, or open in a database engine.
    static void Remove(LPCTSTR fileName);
};

int AfxMessageBox(LPCTSTR text, UINT type = MB_OK, UINT helpId = 0);

// Registration as an extension module of the host's framework.
struct AFX_EXTENSION_MODULE {
    BOOL bInitialized = FALSE;
    HINSTANCE hModule = nullptr;
};

BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HINSTANCE module);
void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state);

// Made by new, once for a module; AfxTermExtensionModule deletes it.
class CDynLinkLibrary : public CObject {
  public:
    explicit CDynLinkLibrary(AFX_EXTENSION_MODULE& state);
};
