#include <filesystem>

#include "afx.h"
#include "system/file_path.h"
#include "system/open_files.h"
#include "system/sidecar_files.h"

namespace fs = std::filesystem;

namespace {

constexpr BYTE kReadOnlyAttribute = 0x01;
constexpr BYTE kDirectoryAttribute = 0x10;

bool IsReadOnly(const fs::file_status& status) {
    return (status.permissions() & fs::perms::owner_write) == fs::perms::none;
}

BYTE Attributes(const fs::file_status& status) {
    BYTE attributes = 0;
    if (IsReadOnly(status)) attributes |= kReadOnlyAttribute;
    if (fs::is_directory(status)) attributes |= kDirectoryAttribute;
    return attributes;
}

int CauseOf(const std::error_code& error) {
    if (error == std::errc::no_such_file_or_directory) return CFileException::fileNotFound;
    if (error == std::errc::not_a_directory || error == std::errc::filename_too_long)
        return CFileException::badPath;
    if (error == std::errc::permission_denied || error == std::errc::operation_not_permitted ||
        error == std::errc::read_only_file_system)
        return CFileException::accessDenied;
    if (error == std::errc::text_file_busy) return CFileException::sharingViolation;
    return CFileException::genericException;
}

std::error_code WhyNotRemovable(const fs::path& path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (fs::is_directory(status)) return std::make_error_code(std::errc::permission_denied);
    if (!fs::exists(status)) return error;
    if (IsReadOnly(status)) return std::make_error_code(std::errc::permission_denied);
    return fileio::IsInUse(path) ? std::make_error_code(std::errc::text_file_busy) : std::error_code();
}

// What lies beside a missing file goes too.
std::error_code RemoveFile(const fs::path& path) {
    std::error_code error = WhyNotRemovable(path);
    if (!error || error == std::errc::no_such_file_or_directory) {
        const std::error_code sidecarError = fileio::RemoveSidecarFiles(path);
        if (!error) error = sidecarError;
    }
    if (!error && !fs::remove(path, error) && !error)
        error = std::make_error_code(std::errc::no_such_file_or_directory);
    return error;
}

}  // namespace

BOOL CFile::GetStatus(LPCTSTR fileName, CFileStatus& status) {
    const fs::path path = fileio::FilePath(fileName);
    std::error_code error;
    const fs::file_status found = fs::status(path, error);
    if (error || !fs::exists(found)) return FALSE;
    const std::uintmax_t size = fs::is_regular_file(found) ? fs::file_size(path, error) : 0;
    if (error) return FALSE;
    status.m_size = size;
    status.m_attribute = Attributes(found);
    status.m_szFullName = fileio::NarrowPath(fs::absolute(path, error)).c_str();
    return TRUE;
}

void CFile::Remove(LPCTSTR fileName) {
    if (const std::error_code error = RemoveFile(fileio::FilePath(fileName)))
        throw new CFileException(CauseOf(error), error.value(), fileName);
}
