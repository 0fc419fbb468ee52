#include <windows.h>

#include <system_error>

#include "system/renewal_lock_attempt.h"

namespace {

// A file beside the locked one that only one process can have open, and that vanishes with its handle. The
// locked file itself must stay closed, or it could not be replaced.
class ExclusiveFile : public fileio::RenewalLock {
  public:
    explicit ExclusiveFile(const std::filesystem::path& path)
        : handle_(CreateFileW((path.wstring() + L".lock").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                              FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr)),
          error_(handle_ == INVALID_HANDLE_VALUE ? GetLastError() : ERROR_SUCCESS) {}
    ~ExclusiveFile() override {
        if (handle_ != INVALID_HANDLE_VALUE) CloseHandle(handle_);
    }

    DWORD Error() const { return error_; }
    bool IsCurrent() const override { return true; }

  private:
    HANDLE handle_;
    DWORD error_;
};

}  // namespace

std::unique_ptr<fileio::RenewalLock> fileio::TryRenewalLock(const std::filesystem::path& path) {
    auto lock = std::make_unique<ExclusiveFile>(path);
    if (lock->Error() == ERROR_SUCCESS) return lock;
    if (lock->Error() == ERROR_SHARING_VIOLATION) return nullptr;
    throw std::system_error(static_cast<int>(lock->Error()), std::system_category(), path.string());
}
