#include "session/session_state.h"

#include "session/query_frame.h"
#include "session/side_connection.h"

namespace kalo {
namespace {

constexpr DWORD kPathSize = 4096;

}  // namespace

SessionState& Session() {
    static SessionState session;
    return session;
}

void ResetSession() {
    SetDatabase(nullptr);
    ForgetSideConnection();
    Session() = SessionState();
}

Status StampStatus(const char* column, const char* value) {
    enum : Status { kNoValue = 0x2BFF1039, kFailed = 0x2BFF103A };
    if (value == nullptr) return kNoValue;
    return Run(DaoCode(kFailed), Sql("UPDATE [mdbname] SET [%s] = \"%s\" WHERE [id] = 1", column, value));
}

CString HostDirectory() {
    char program[kPathSize] = {};
    char path[kPathSize] = {};
    GetModuleFileNameA(nullptr, program, kPathSize - 1);
    // The system knows where the name begins: in some code pages a character ends in the byte of a separator.
    char* name = nullptr;
    GetFullPathNameA(program, kPathSize, path, &name);
    return name == nullptr ? CString() : CString(path, static_cast<int>(name - path));
}

}  // namespace kalo
