#include <windows.h>

#include <system_error>

#include "system/renewal_lock_attempt.h"

namespace {

// What tells a file from another one that takes its name.
struct FileIdentity {
    DWORD volume = 0;
    DWORD high = 0;
    DWORD low = 0;
    bool operator==(const FileIdentity&) const = default;
};

FileIdentity IdentityOf(const std::filesystem::path& path) {
    constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const HANDLE file = CreateFileW(path.c_str(), 0, kShareAll, nullptr, OPEN_EXISTING, 0, nullptr);
    BY_HANDLE_FILE_INFORMATION information = {};
    if (file != INVALID_HANDLE_VALUE) {
        GetFileInformationByHandle(file, &information);
        CloseHandle(file);
    }
    return {information.dwVolumeSerialNumber, information.nFileIndexHigh, information.nFileIndexLow};
}

// A file beside the locked one that only one process can have open, and that vanishes with its handle. The
// locked file itself must stay closed, or it could not be replaced.
class ExclusiveFile : public fileio::RenewalLock {
  public:
    explicit ExclusiveFile(const std::filesystem::path& path)
        : path_(path),
          handle_(CreateFileW((path.wstring() + L".lock").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                              FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr)),
          error_(handle_ == INVALID_HANDLE_VALUE ? GetLastError() : ERROR_SUCCESS),
          locked_(IdentityOf(path)) {}
    ~ExclusiveFile() override {
        if (handle_ != INVALID_HANDLE_VALUE) CloseHandle(handle_);
    }

    DWORD Error() const { return error_; }
    bool IsCurrent() const override { return IdentityOf(path_) == locked_; }

  private:
    std::filesystem::path path_;
    HANDLE handle_;
    DWORD error_;
    FileIdentity locked_;
};

}  // namespace

std::unique_ptr<fileio::RenewalLock> fileio::TryRenewalLock(const std::filesystem::path& path) {
    auto lock = std::make_unique<ExclusiveFile>(path);
    if (lock->Error() == ERROR_SUCCESS) return lock;
    if (lock->Error() == ERROR_SHARING_VIOLATION) return nullptr;
    throw std::system_error(static_cast<int>(lock->Error()), std::system_category(), path.string());
}
