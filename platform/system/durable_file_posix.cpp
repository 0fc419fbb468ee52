#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "system/durable_file.h"

namespace fs = std::filesystem;

namespace {

[[noreturn]] void ThrowError(const fs::path& path) {
    throw std::system_error(errno, std::generic_category(), path.string());
}

void Flush(const fs::path& path, int flags) {
    const int file = open(path.c_str(), flags | O_CLOEXEC);
    if (file < 0) ThrowError(path);
    const bool flushed = fsync(file) == 0;
    const int error = errno;
    close(file);
    // Some file systems cannot flush a folder, and need not.
    if (flushed || (error == EINVAL && (flags & O_DIRECTORY))) return;
    errno = error;
    ThrowError(path);
}

fs::path FolderOf(const fs::path& path) {
    const fs::path folder = path.parent_path();
    return folder.empty() ? "." : folder;
}

}  // namespace

void fileio::FlushFile(const fs::path& path) {
    Flush(path, O_RDWR);
}

void fileio::FlushFolderOf(const fs::path& path) {
    Flush(FolderOf(path), O_RDONLY | O_DIRECTORY);
}

void fileio::RenameOver(const fs::path& from, const fs::path& to) {
    fs::rename(from, to);
}

void fileio::CopyOwnership(const fs::path& from, const fs::path& to) {
    struct stat status;
    if (stat(from.c_str(), &status) != 0) ThrowError(from);
    // Only a privileged process may give a file away; for others the owner is right already.
    if (chown(to.c_str(), status.st_uid, status.st_gid) != 0) errno = 0;
    if (chmod(to.c_str(), status.st_mode & 07777) != 0) ThrowError(to);
}

bool fileio::IsWritable(const fs::path& path) {
    return access(path.c_str(), W_OK) == 0 && access(FolderOf(path).c_str(), W_OK | X_OK) == 0;
}
