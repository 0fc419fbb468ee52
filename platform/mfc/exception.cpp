#include <algorithm>
#include <cstring>

#include "afx.h"

namespace {

const char* CauseText(int cause) {
    switch (cause) {
        case CFileException::none:
            return "No error occurred.";
        case CFileException::fileNotFound:
            return "The file was not found.";
        case CFileException::badPath:
            return "The path contains an invalid part.";
        case CFileException::tooManyOpenFiles:
            return "Too many files are open.";
        case CFileException::accessDenied:
            return "Access to the file was denied.";
        case CFileException::invalidFile:
            return "The file handle is invalid.";
        default:
            return "A file error occurred.";
    }
}

}  // namespace

BOOL CException::GetErrorMessage(LPTSTR error, UINT maxError, UINT* helpContext) {
    if (helpContext) *helpContext = 0;
    if (error && maxError > 0) *error = '\0';
    return FALSE;
}

CFileException::CFileException(int cause, LONG osError, LPCTSTR fileName)
    : m_cause(cause), m_lOsError(osError), m_strFileName(fileName) {}

BOOL CFileException::GetErrorMessage(LPTSTR error, UINT maxError, UINT* helpContext) {
    if (!error || maxError == 0) return FALSE;
    if (helpContext) *helpContext = 0;
    const char* const text = CauseText(m_cause);
    const std::size_t length = std::min<std::size_t>(std::strlen(text), maxError - 1);
    std::memcpy(error, text, length);
    error[length] = '\0';
    return TRUE;
}
