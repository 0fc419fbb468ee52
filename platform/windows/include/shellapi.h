#pragma once

#include <windows.h>

#include_next <shellapi.h>

// The shell knows nothing of what the database engine keeps beside a file, so a copy over a database file
// removes that first.
int CopyDatabaseFiles(SHFILEOPSTRUCTA* operation);

#undef SHFileOperationA
#define SHFileOperationA CopyDatabaseFiles
