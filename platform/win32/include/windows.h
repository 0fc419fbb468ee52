#pragma once

#include <cstddef>
#include <cstdint>

// The Win32 names that this library uses, for systems that are not Windows, with Win32's documented
// behaviour.

#define WINAPI
#define CALLBACK
#define APIENTRY

using BOOL = int;
using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using UINT = std::uint32_t;
using LONG = std::int32_t;
using ULONG = std::uint32_t;
using LONGLONG = std::int64_t;
using ULONGLONG = std::uint64_t;
using SCODE = std::int32_t;
using HRESULT = std::int32_t;
using LPVOID = void*;
using LPSTR = char*;
using LPCSTR = const char*;
using LPTSTR = char*;
using LPCTSTR = const char*;
using HINSTANCE = void*;
using HMODULE = void*;
using HWND = void*;
using TCHAR = char;

constexpr BOOL FALSE = 0;
constexpr BOOL TRUE = 1;
constexpr int MAX_PATH = 260;
constexpr HRESULT S_OK = 0;
constexpr HRESULT E_UNEXPECTED = static_cast<HRESULT>(0x8000FFFF);
constexpr HRESULT E_INVALIDARG = static_cast<HRESULT>(0x80070057);
constexpr HRESULT DISP_E_BADINDEX = static_cast<HRESULT>(0x8002000B);

constexpr UINT MB_OK = 0;
constexpr int IDOK = 1;

// Writes the text to the error stream and answers IDOK.
int MessageBoxA(HWND owner, LPCSTR text, LPCSTR caption, UINT type);

constexpr DWORD DLL_PROCESS_DETACH = 0;
constexpr DWORD DLL_PROCESS_ATTACH = 1;
constexpr DWORD DLL_THREAD_ATTACH = 2;
constexpr DWORD DLL_THREAD_DETACH = 3;

// A recursive lock. Leaving one that is not held and deleting one that is held do nothing harmful.
struct CRITICAL_SECTION {
    void* mutex;
};

void InitializeCriticalSection(CRITICAL_SECTION* section);
void DeleteCriticalSection(CRITICAL_SECTION* section);
void EnterCriticalSection(CRITICAL_SECTION* section);
BOOL TryEnterCriticalSection(CRITICAL_SECTION* section);
void LeaveCriticalSection(CRITICAL_SECTION* section);

// Path of the host program's executable for a null module. Returns its length; cut to the buffer when longer.
DWORD GetModuleFileNameA(HMODULE module, LPSTR fileName, DWORD size);

// The absolute path of a file, which need not exist, without "." and "..". `filePart` receives where its last
// component begins in `buffer`, null for a directory. Returns the length; 0 for no path; the size that is
// needed, with the terminator, when the buffer is too small (`buffer` and `filePart` then stay as they were).
DWORD GetFullPathNameA(LPCSTR fileName, DWORD size, LPSTR buffer, LPSTR* filePart);

// --- Variants
// ------------------------------------------------------------------------------------------------

using VARTYPE = WORD;
using VARIANT_BOOL = std::int16_t;
using DATE = double;
using BSTR = char*;  // bytes with a length in front and a terminator behind

enum VARENUM : VARTYPE {
    VT_EMPTY = 0,
    VT_NULL = 1,
    VT_I2 = 2,
    VT_I4 = 3,
    VT_R4 = 4,
    VT_R8 = 5,
    VT_CY = 6,
    VT_DATE = 7,
    VT_BSTR = 8,
    VT_BOOL = 11,
    VT_DECIMAL = 14,
    VT_UI1 = 17,
    VT_ARRAY = 0x2000,
};

union CY {
    struct {
        std::uint32_t Lo;
        std::int32_t Hi;
    };
    std::int64_t int64;
};

struct SAFEARRAYBOUND {
    ULONG cElements;
    LONG lLbound;
};

// An array of one dimension.
struct SAFEARRAY {
    WORD cDims;
    WORD fFeatures;
    ULONG cbElements;
    ULONG cLocks;
    void* pvData;
    SAFEARRAYBOUND rgsabound[1];
};

struct DECIMAL {
    WORD wReserved;
    BYTE scale;
    BYTE sign;  // 0x80: negative
    ULONG Hi32;
    ULONGLONG Lo64;
};

struct VARIANT {
    union {
        struct {
            VARTYPE vt;
            WORD wReserved1;
            WORD wReserved2;
            WORD wReserved3;
            union {
                BYTE bVal;
                std::int16_t iVal;
                LONG lVal;
                LONGLONG llVal;
                float fltVal;
                double dblVal;
                VARIANT_BOOL boolVal;
                CY cyVal;
                DATE date;
                BSTR bstrVal;
                SAFEARRAY* parray;
            };
        };
        DECIMAL decVal;  // covers vt, which is VT_DECIMAL then
    };
};

#define V_VT(variant) ((variant)->vt)
#define V_UI1(variant) ((variant)->bVal)
#define V_I2(variant) ((variant)->iVal)
#define V_I4(variant) ((variant)->lVal)
#define V_R4(variant) ((variant)->fltVal)
#define V_R8(variant) ((variant)->dblVal)
#define V_BOOL(variant) ((variant)->boolVal)
#define V_CY(variant) ((variant)->cyVal)
#define V_DATE(variant) ((variant)->date)
#define V_BSTR(variant) ((variant)->bstrVal)
#define V_ARRAY(variant) ((variant)->parray)

BSTR SysAllocStringByteLen(LPCSTR bytes, UINT length);
void SysFreeString(BSTR text);
UINT SysStringByteLen(BSTR text);
// Frees what the variant holds and makes it VT_EMPTY.
HRESULT VariantClear(VARIANT* variant);

// Arrays of fixed-size elements, as columns of bytes come.
SAFEARRAY* SafeArrayCreateVector(VARTYPE type, LONG lowerBound, ULONG count);
HRESULT SafeArrayDestroy(SAFEARRAY* array);
HRESULT SafeArrayAccessData(SAFEARRAY* array, void** data);
HRESULT SafeArrayUnaccessData(SAFEARRAY* array);
HRESULT SafeArrayGetLBound(SAFEARRAY* array, UINT dimension, LONG* bound);
HRESULT SafeArrayGetUBound(SAFEARRAY* array, UINT dimension, LONG* bound);
