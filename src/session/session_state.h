#pragma once

#include <afxdao.h>

#include <array>
#include <cstdint>

#include "session/status.h"

// What a session keeps between calls beside its connection and its lock.
namespace kalo {

constexpr const char* kConnect = ";PWD=mivmiv";

// Model table modes.
constexpr std::uint16_t kIndexerMode = 2;

struct SessionState {
    CString callerModule;
    CString fileName;            // full path of the working database file
    bool foreignCaller = false;  // the caller's module is not this library
    std::uint16_t modelTableMode = 0;
    std::array<std::uint16_t, 10> workTableExists{};  // by position in the session's list of working tables
    std::uint16_t tableCount = 0;                     // tables in the database right after opening
};

SessionState& Session();

// Everything as it is when the library is loaded, but for the lock; deletes no database object.
void ResetSession();

// Writes one of "Open", "Close" and "Error" into the status column of the file's own description.
Status StampStatus(const char* column, const char* value);

// The directory of the host program's executable, separator included.
CString HostDirectory();

}  // namespace kalo
