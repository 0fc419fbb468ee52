#include "dao/database_file.h"

#include <sqlite3.h>

#include <filesystem>

#include "dao/bookkeeping.h"
#include "dao/connect_string.h"
#include "dao/connection.h"
#include "dao/conversion.h"
#include "dao/errors.h"
#include "dao/file_kind.h"
#include "dao/table_definition.h"
#include "mfc/narrow.h"
#include "system/file_path.h"
#include "system/open_files.h"

namespace fs = std::filesystem;

namespace daoengine {
namespace {

// How long closing waits for others before it leaves freed pages to the next one.
constexpr int kClosePatienceMilliseconds = 200;

// Links are followed, so that a conversion replaces the file and not the link.
fs::path ResolvePath(const std::string& narrow) {
    const fs::path path = fileio::FilePath(narrow);
    std::error_code error;
    const fs::path resolved = fs::canonical(path, error);
    return error ? path : resolved;
}

Connection OpenChecked(const fs::path& path, Access access, const std::string& password) {
    Connection connection = OpenConnection(path, access);
    Engine engine(connection.get(), Engine::Ownership::Borrowed);
    CheckBookkeeping(engine, password);
    return connection;
}

int CountEngineTables(sqlite3* connection) {
    const std::string sql = std::string("SELECT count(*) FROM sqlite_schema WHERE ") + kUserTableFilter;
    sqlite3_stmt* statement = nullptr;
    int result = sqlite3_prepare_v2(connection, sql.c_str(), -1, &statement, nullptr);
    if (result == SQLITE_OK) result = sqlite3_step(statement);
    const int count = result == SQLITE_ROW ? sqlite3_column_int(statement, 0) : 0;
    sqlite3_finalize(statement);
    if (result != SQLITE_ROW) ThrowEngineError(connection, result, Work::Rows);
    return count;
}

}  // namespace

class DatabaseFile::Impl {
  public:
    Impl(const fs::path& path, Access access, const std::string& password)
        : path_(path), access_(access), password_(password) {
        if (KindOf(path_) == FileKind::Engine)
            Connect();
        else
            CheckJetFile();
    }

    ~Impl() {
        if (!connection_ || access_ == Access::ReadOnly) return;
        sqlite3_progress_handler(connection_.get(), 0, nullptr, nullptr);
        sqlite3_busy_timeout(connection_.get(), kClosePatienceMilliseconds);
        sqlite3_exec(connection_.get(), "PRAGMA incremental_vacuum", nullptr, nullptr, nullptr);
        sqlite3_exec(connection_.get(), "PRAGMA wal_checkpoint(TRUNCATE)", nullptr, nullptr, nullptr);
    }

    bool Converted() const { return connection_ != nullptr; }

    sqlite3* Engine() {
        if (!connection_) Convert();
        return connection_.get();
    }

    int CountTables() {
        if (!connection_ && KindOf(path_) == FileKind::Engine) Connect();  // another process has converted it
        if (connection_) return CountEngineTables(connection_.get());
        const jetfile::Reader reader(fileio::NarrowPath(path_), password_);
        return static_cast<int>(TablesToConvert(reader).size());
    }

  private:
    void Connect() {
        auto mark = std::make_unique<fileio::OpenFileMark>(path_);
        connection_ = OpenChecked(path_, access_, password_);
        mark_ = std::move(mark);
    }

    // An exclusive opening converts at once, because only the engine's own format can keep others out; by
    // then the reader must be gone, because Windows replaces no file that is open.
    void CheckJetFile() {
        static_cast<void>(jetfile::Reader(fileio::NarrowPath(path_), password_));
        if (access_ == Access::Exclusive) Convert();
    }

    void Convert() {
        const bool jet = KindOf(path_) == FileKind::Jet;
        if (jet && access_ == Access::ReadOnly) {
            CopyIntoPrivateDatabase();
            return;
        }
        if (jet) ConvertFile(path_, password_);
        Connect();
    }

    void CopyIntoPrivateDatabase() {
        const jetfile::Reader reader(fileio::NarrowPath(path_), password_);
        Connection copy = CreatePrivateDatabase();
        {
            daoengine::Engine engine(copy.get(), daoengine::Engine::Ownership::Borrowed);
            CopyDatabase(reader, password_, engine);
        }
        RunScript(copy.get(), "PRAGMA query_only = ON");
        connection_ = std::move(copy);
    }

    fs::path path_;
    Access access_;
    std::string password_;
    std::unique_ptr<fileio::OpenFileMark> mark_;
    Connection connection_;
};

std::unique_ptr<DatabaseFile> DatabaseFile::Open(const std::string& path, bool exclusive, bool readOnly,
                                                 const std::string& connect) {
    const ConnectOptions options = ParseConnect(Utf8FromNarrow(connect));
    const Access access = exclusive ? Access::Exclusive : readOnly ? Access::ReadOnly : Access::Shared;
    auto impl = std::make_unique<Impl>(ResolvePath(path), access, options.password);
    return std::unique_ptr<DatabaseFile>(new DatabaseFile(std::move(impl)));
}

DatabaseFile::DatabaseFile(std::unique_ptr<Impl> impl) : impl_(std::move(impl)) {}

DatabaseFile::~DatabaseFile() = default;

sqlite3* DatabaseFile::Engine() {
    return impl_->Engine();
}

bool DatabaseFile::Converted() const {
    return impl_->Converted();
}

int DatabaseFile::CountTables() {
    return impl_->CountTables();
}

}  // namespace daoengine
