#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "system/renewal_lock_attempt.h"

namespace {

// Locks the file itself, so that nothing is left behind.
class FileLock : public fileio::RenewalLock {
  public:
    explicit FileLock(const std::filesystem::path& path)
        : path_(path), file_(open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
        if (file_ < 0) throw std::system_error(errno, std::generic_category(), path.string());
    }
    ~FileLock() override { close(file_); }

    bool IsTaken() const { return flock(file_, LOCK_EX | LOCK_NB) == 0; }

    bool IsCurrent() const override {
        struct stat locked, present;
        return fstat(file_, &locked) == 0 && stat(path_.c_str(), &present) == 0 &&
               locked.st_dev == present.st_dev && locked.st_ino == present.st_ino;
    }

  private:
    std::filesystem::path path_;
    int file_;
};

}  // namespace

std::unique_ptr<fileio::RenewalLock> fileio::TryRenewalLock(const std::filesystem::path& path) {
    auto lock = std::make_unique<FileLock>(path);
    // The former holder may have renewed the file between the opening and the locking.
    if (!lock->IsTaken() || !lock->IsCurrent()) return nullptr;
    return lock;
}
