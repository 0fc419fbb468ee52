#include "working_copy.h"

#include <fmt/format.h>

#include <mutex>

#include "failure.h"
#include "system.h"

namespace cli {
namespace {

namespace fs = std::filesystem;

constexpr int kRemovals = 10;

std::mutex g_mutex;
fs::path g_directory;  // empty while there is none

// Also called beside the thread that works in the directory, which may make one more file meanwhile.
void RemoveDirectory() {
    const std::scoped_lock lock(g_mutex);
    std::error_code error;
    for (int removal = 0; removal < kRemovals && !g_directory.empty(); ++removal) {
        fs::remove_all(g_directory, error);
        if (!error) break;
    }
}

fs::path MakeDirectory() {
    OnInterruption(RemoveDirectory);
    const std::scoped_lock lock(g_mutex);
    g_directory = MakePrivateDirectory();
    return g_directory;
}

}  // namespace

WorkingCopy::WorkingCopy(const std::string& file) {
    const fs::path original = PathFromSystem(file);
    std::error_code error;
    const fs::file_status status = fs::status(original, error);
    if (!fs::exists(status)) throw Failure(fmt::format("{}: the file does not exist (DAO error 3024)", file));
    if (fs::is_directory(status))
        throw Failure(fmt::format("{}: a directory, not a database (DAO error 3343)", file));
    copy_ = MakeDirectory() / "copy.mdb";
    try {
        CopyFile(original, file);
    } catch (...) {
        RemoveDirectory();
        throw;
    }
}

WorkingCopy::~WorkingCopy() {
    RemoveDirectory();
}

void WorkingCopy::CopyFile(const fs::path& original, const std::string& shownName) {
    std::error_code error;
    fs::copy_file(original, copy_, error);
    if (error)
        throw Failure(
            fmt::format("{}: the file cannot be copied: {} (DAO error 3051)", shownName, error.message()));
    fs::permissions(copy_, fs::perms::owner_read | fs::perms::owner_write, error);
    fs::path log = original;
    log += "-wal";
    fs::path logCopy = copy_;
    logCopy += "-wal";
    if (fs::exists(log, error)) fs::copy_file(log, logCopy, error);
    if (error)
        throw Failure(
            fmt::format("{}-wal: the log beside the file cannot be copied: {}", shownName, error.message()));
}

}  // namespace cli
