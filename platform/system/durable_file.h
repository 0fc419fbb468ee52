#pragma once

#include <filesystem>

// File operations that a power loss cannot undo or reorder. All throw std::system_error.
namespace fileio {

// Puts the contents of a file on the disk.
void FlushFile(const std::filesystem::path& path);

// Puts the names in the folder of `path` on the disk, where the system does not do so by itself.
void FlushFolderOf(const std::filesystem::path& path);

// Renames a file over another one, in one step.
void RenameOver(const std::filesystem::path& from, const std::filesystem::path& to);

// Gives a file's contents a second name, without copying them where the file system can, else in a durable
// copy. A former file of that name is replaced in one step.
void KeepUnderSecondName(const std::filesystem::path& path, const std::filesystem::path& secondName);

// Gives a file the owner and the permissions of another one, as far as the process may.
void CopyOwnership(const std::filesystem::path& from, const std::filesystem::path& to);

// Whether the process may write the file and its folder.
bool IsWritable(const std::filesystem::path& path);

}  // namespace fileio
