#pragma once

#include <filesystem>

namespace fileio {

// Marks a file as open in this process's database engine for as long as the mark lives. Where closing a file
// drops every lock that the process holds on it, nothing but the engine may open such a file.
class OpenFileMark {
  public:
    explicit OpenFileMark(const std::filesystem::path& path);
    ~OpenFileMark();
    OpenFileMark(const OpenFileMark&) = delete;
    OpenFileMark& operator=(const OpenFileMark&) = delete;

  private:
    std::filesystem::path path_;
};

// Whether this process's engine has the file open.
bool IsOpenHere(const std::filesystem::path& path);

// Whether the engine has the file open, in this process or in another one.
bool IsInUse(const std::filesystem::path& path);

}  // namespace fileio
