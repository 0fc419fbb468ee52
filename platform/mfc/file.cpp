#include <filesystem>

#include "afx.h"
#include "system/file_path.h"
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
    return CFileException::genericException;
}

[[noreturn]] void ThrowFileException(const std::error_code& error, LPCTSTR fileName) {
    throw new CFileException(CauseOf(error), error.value(), fileName);
}

void RequireRemovable(const fs::path& path, LPCTSTR fileName) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (!fs::exists(status)) {
        ThrowFileException(error ? error : std::make_error_code(std::errc::no_such_file_or_directory),
                           fileName);
    }
    if (fs::is_directory(status) || IsReadOnly(status))
        ThrowFileException(std::make_error_code(std::errc::permission_denied), fileName);
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
    const fs::path path = fileio::FilePath(fileName);
    RequireRemovable(path, fileName);
    if (const std::error_code error = fileio::RemoveSidecarFiles(path)) ThrowFileException(error, fileName);
    std::error_code error;
    fs::remove(path, error);
    if (error) ThrowFileException(error, fileName);
}
