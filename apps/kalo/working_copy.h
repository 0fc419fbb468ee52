#pragma once

#include <filesystem>
#include <string>

namespace cli {

// A copy of a database file in a directory of its own, which goes with the object, and when a signal ends the
// program. What the engine keeps beside a file that is open elsewhere is copied along.
class WorkingCopy {
  public:
    // Throws Failure where the file is missing or cannot be copied.
    explicit WorkingCopy(const std::string& file);
    ~WorkingCopy();
    WorkingCopy(const WorkingCopy&) = delete;
    WorkingCopy& operator=(const WorkingCopy&) = delete;

    const std::filesystem::path& Path() const { return copy_; }

  private:
    void CopyFile(const std::filesystem::path& original, const std::string& shownName);

    std::filesystem::path copy_;
};

}  // namespace cli
