#pragma once

#include <filesystem>
#include <string>

namespace support {

// A directory of its own for one test, removed with all that it holds.
class TemporaryDirectory {
  public:
    TemporaryDirectory();
    ~TemporaryDirectory();
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

    const std::filesystem::path& Path() const { return path_; }
    // Path of a file in it, as the platform's functions take it.
    std::string File(const std::string& name) const { return (path_ / name).string(); }

  private:
    std::filesystem::path path_;
};

// Contents of a file, byte by byte. A missing one is empty.
std::string ReadFile(const std::filesystem::path& path);
void WriteFile(const std::filesystem::path& path, const std::string& contents);

// Copies a file over another, which may be missing.
void CopyOver(const std::filesystem::path& from, const std::filesystem::path& to);

// A copy of a sample database (IdeInfo.mdb, IdeInfoJ.mdb) under a name in `directory`; returns its path.
std::string CopySample(const TemporaryDirectory& directory, const std::string& sample,
                       const std::string& name);

}  // namespace support
