#pragma once

#include "windows.h"

using FILEOP_FLAGS = WORD;

constexpr UINT FO_COPY = 2;
constexpr FILEOP_FLAGS FOF_SILENT = 4;
constexpr FILEOP_FLAGS FOF_NOCONFIRMATION = 0x10;

// pFrom and pTo are lists of full paths; each path ends with a NUL and the list with one more.
struct SHFILEOPSTRUCTA {
    HWND hwnd;
    UINT wFunc;
    LPCSTR pFrom;
    LPCSTR pTo;
    FILEOP_FLAGS fFlags;
    BOOL fAnyOperationsAborted;
    LPVOID hNameMappings;
    LPCSTR lpszProgressTitle;
};

// Copies a file (FO_COPY), overwriting. Returns 0, or the shell's error value.
int SHFileOperationA(SHFILEOPSTRUCTA* operation);
