#include "session/side_connection.h"

#include <new>

#include "session/query_frame.h"
#include "session/session_state.h"

namespace kalo {
namespace {

CDaoDatabase* g_side = nullptr;

constexpr const char* kUnknownVersion = "UNKNOWN";

void DeleteSide() {
    delete g_side;
    g_side = nullptr;
}

// The version in the current row of a query.
CString VersionOf(Rows& rows) {
    CString version;
    return rows.Text("mdb_version", version) ? version : CString(kUnknownVersion);
}

}  // namespace

Status OpenSideConnection(const char* path) {
    enum : Status { kNoPath = 0x2BFF1041, kFailed = 0x2BFF103D };
    if (path == nullptr) return kNoPath;
    const Status status = Unlocked(DaoCode(kFailed), [path]() -> Status {
        DeleteSide();
        g_side = new (std::nothrow) CDaoDatabase;
        if (g_side == nullptr) return kFailed;
        g_side->Open(path, FALSE, FALSE, kConnect);
        return kOk;
    });
    if (status != kOk) DeleteSide();
    return status;
}

Status CloseSideConnection() {
    enum : Status { kFailed = 0x2BFF103F };
    if (g_side == nullptr) return kOk;
    const Status status = Unlocked(DaoCode(kFailed), [] {
        g_side->Close();
        return kOk;
    });
    DeleteSide();
    return status;
}

void ForgetSideConnection() {
    g_side = nullptr;
}

Status ReadFileVersion(const char* path, FileVersion& file) {
    enum : Status { kNoRow = 0x2BFF103B, kFailed = 0x2BFF103C };
    return Unlocked(DaoCode(kFailed), [&]() -> Status {
        Rows rows(*g_side,
                  Sql("SELECT [%s], [%s] FROM [mdbname] IN '' [;DATABASE=%s;PWD=mivmiv] WHERE [id] = 1",
                      "mdb_version", "mdb_status", path));
        if (rows.Empty()) return kNoRow;
        rows.First();
        file.version = VersionOf(rows);
        rows.Text("mdb_status", file.status);
        return kOk;
    });
}

Status ReadShippedVersion(const char* path, CString& version) {
    enum : Status { kNoRow = 0x2BFF1037, kFailed = 0x2BFF1038 };
    return Unlocked(DaoCode(kFailed), [&]() -> Status {
        Rows rows(
            *g_side,
            Sql("SELECT [mdb_version] FROM [mdbname] IN '' [;DATABASE=%s;PWD=mivmiv] WHERE [id] = 1", path));
        if (rows.Empty()) return kNoRow;
        rows.First();
        version = VersionOf(rows);
        return kOk;
    });
}

Status StampFile(const char* name, const char* column, const char* value) {
    enum : Status { kFailed = 0x2BFF103E };
    return Unlocked(DaoCode(kFailed), [&] {
        ExecuteOn(*g_side, Sql("UPDATE [mdbname] SET [mdbname] = \"%s\", [%s] = \"%s\" WHERE [id] = 1", name,
                               column, value));
        return kOk;
    });
}

}  // namespace kalo
