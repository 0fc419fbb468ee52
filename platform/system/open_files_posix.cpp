#include <fcntl.h>
#include <unistd.h>

#include "system/open_files.h"

namespace {

// The bytes on which the engine holds a read lock for as long as it has a file open.
constexpr off_t kSharedLockStart = 0x40000000 + 2;
constexpr off_t kSharedLockLength = 510;

bool IsLockedElsewhere(int file) {
    struct flock lock = {};
    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    lock.l_start = kSharedLockStart;
    lock.l_len = kSharedLockLength;
    return fcntl(file, F_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
}

}  // namespace

bool fileio::IsInUse(const std::filesystem::path& path) {
    if (IsOpenHere(path)) return true;
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) return false;
    const bool locked = IsLockedElsewhere(file);
    close(file);
    return locked;
}
