#pragma once

#include <afxdao.h>

#include "session/status.h"

// A second connection, which inspects and stamps a database file while no session is open on it. It stays
// outside the session's lock.
namespace kalo {

// Opens the side connection on a file; one that is still open is closed first.
Status OpenSideConnection(const char* path);
Status CloseSideConnection();
// Sets the object to null without closing it.
void ForgetSideConnection();

struct FileVersion {
    CString version;  // "UNKNOWN" where the file has none
    CString status;
};

// Reads the version and the status of the database file at `path`, and the version alone of a shipped file.
Status ReadFileVersion(const char* path, FileVersion& file);
Status ReadShippedVersion(const char* path, CString& version);

// Names the file that the connection is open on and stamps its status.
Status StampFile(const char* name, const char* column, const char* value);

}  // namespace kalo
