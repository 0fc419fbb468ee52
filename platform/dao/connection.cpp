#include "dao/connection.h"

#include <sqlite3.h>

#include <string>

#include "dao/errors.h"
#include "jet/error.h"
#include "jetsql/functions.h"
#include "system/durable_file.h"
#include "system/file_path.h"

namespace fs = std::filesystem;

namespace daoengine {
namespace {

constexpr int kInUse = 3045;
constexpr int kLockedRows = 3218;
constexpr int kLockedDesign = 3211;
constexpr int kCannotOpen = 3051;

// How long an opening waits for somebody who holds the file for a moment.
constexpr int kOpenPatienceMilliseconds = 1000;

// A database file is data: it may not make the engine run code, and its texts are never taken for names.
void Restrict(sqlite3* connection) {
    sqlite3_db_config(connection, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(connection, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    sqlite3_db_config(connection, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(connection, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(connection, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
    sqlite3_db_config(connection, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
}

Connection Connect(const std::string& name, int flags) {
    sqlite3* handle = nullptr;
    const int result = sqlite3_open_v2(name.c_str(), &handle, flags | SQLITE_OPEN_NOMUTEX, nullptr);
    Connection connection(handle);
    if (!handle) Throw(3035);
    if (result != SQLITE_OK) ThrowEngineError(handle, result, Work::Rows);
    sqlite3_busy_timeout(handle, kOpenPatienceMilliseconds);
    Restrict(handle);
    jetsql::RegisterFunctions(handle);
    RunScript(handle,
              "PRAGMA temp_store = MEMORY; PRAGMA mmap_size = 0; PRAGMA cell_size_check = ON; PRAGMA "
              "cache_size = -8000");
    return connection;
}

std::string UriOf(const fs::path& path) {
    const std::string absolute = fileio::Utf8Path(fs::absolute(path).generic_u8string());
    std::string uri = absolute.starts_with('/') ? "file://" : "file:///";
    for (const char character : absolute) {
        if (character == '%' || character == '?' || character == '#') {
            constexpr char kDigits[] = "0123456789ABCDEF";
            uri += {'%', kDigits[character / 16], kDigits[character % 16]};
        } else {
            uri += character;
        }
    }
    return uri;
}

bool HasLog(const fs::path& path) {
    fs::path log = path;
    log += "-wal";
    std::error_code missing;
    const auto size = fs::file_size(log, missing);
    return !missing && size > 0;
}

// Where nothing can be written, not even what readers share, nobody else can be writing either.
Connection ConnectReadOnly(const fs::path& path) {
    Connection connection =
        fileio::IsWritable(path) ? Connect(fileio::Utf8Path(path), SQLITE_OPEN_READWRITE)
        : HasLog(path)           ? Connect(fileio::Utf8Path(path), SQLITE_OPEN_READONLY)
                       : Connect(UriOf(path) + "?immutable=1", SQLITE_OPEN_READONLY | SQLITE_OPEN_URI);
    RunScript(connection.get(), "PRAGMA query_only = ON");
    return connection;
}

// A crash may lose the last statements, but never one without all after it: that is what the log gives.
constexpr const char* kShareScript = "PRAGMA journal_mode = WAL; PRAGMA synchronous = NORMAL";
constexpr const char* kExcludeScript =
    "PRAGMA locking_mode = EXCLUSIVE; PRAGMA journal_mode = DELETE; PRAGMA synchronous = FULL;"
    "BEGIN EXCLUSIVE; COMMIT";

Connection ConnectWritable(const fs::path& path, Access access) {
    if (!fileio::IsWritable(path)) Throw(kCannotOpen);
    Connection connection = Connect(fileio::Utf8Path(path), SQLITE_OPEN_READWRITE);
    RunScript(connection.get(), access == Access::Exclusive ? kExcludeScript : kShareScript);
    return connection;
}

}  // namespace

void ConnectionCloser::operator()(sqlite3* connection) const {
    sqlite3_close_v2(connection);
}

void RunScript(sqlite3* connection, const char* script) {
    const int result = sqlite3_exec(connection, script, nullptr, nullptr, nullptr);
    if (result != SQLITE_OK) ThrowEngineError(connection, result, Work::Rows);
}

Connection OpenConnection(const fs::path& path, Access access) {
    try {
        Connection connection =
            access == Access::ReadOnly ? ConnectReadOnly(path) : ConnectWritable(path, access);
        RunScript(connection.get(), "SELECT count(*) FROM sqlite_schema");
        return connection;
    } catch (const jet::Error& error) {
        if (error.Number() == kLockedRows || error.Number() == kLockedDesign)
            Throw(kInUse, "The file is already in use.");
        throw;
    }
}

Connection CreateDatabase(const fs::path& path) {
    Connection connection = Connect(fileio::Utf8Path(path), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    RunScript(connection.get(),
              "PRAGMA page_size = 4096; PRAGMA auto_vacuum = INCREMENTAL; PRAGMA locking_mode = EXCLUSIVE;"
              "PRAGMA journal_mode = MEMORY; PRAGMA synchronous = OFF; PRAGMA cache_size = -64000");
    return connection;
}

Connection CreatePrivateDatabase() {
    Connection connection = Connect({}, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    RunScript(connection.get(), "PRAGMA journal_mode = MEMORY; PRAGMA synchronous = OFF");
    return connection;
}

}  // namespace daoengine
