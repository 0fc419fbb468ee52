#pragma once

#include <chrono>
#include <filesystem>
#include <memory>

namespace fileio {

// The sole right to put a new file in the place of an existing one, against every other process. It ends with
// the object, and with the process.
class RenewalLock {
  public:
    // Waits up to `patience` for its present holder; nullptr when that one keeps it. Throws std::system_error
    // when the file cannot be opened.
    static std::unique_ptr<RenewalLock> Acquire(const std::filesystem::path& path,
                                                std::chrono::milliseconds patience);
    virtual ~RenewalLock() = default;

    // Whether the path still leads to the file that was locked.
    virtual bool IsCurrent() const = 0;
};

}  // namespace fileio
