#pragma once

#include <kalodata/kalodata.h>

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "plain_builders.h"
#include "plain_database.h"

namespace bench {

// Ends the program when a function of the library fails.
void Check(KaloStatus status, const char* what);

// A directory of its own, removed with all that it holds.
class Directory {
  public:
    Directory();
    ~Directory();
    Directory(const Directory&) = delete;
    Directory& operator=(const Directory&) = delete;

    std::filesystem::path File(const std::string& name) const { return path_ / name; }

  private:
    std::filesystem::path path_;
};

// The sample database, opened by the library, and beside it a plain SQLite file with the same contents.
class Stage {
  public:
    using Prepare = std::function<void(const PlainDatabase& workingFile)>;

    // `prepare` may call the library, whose session is open, and add to its file, before that is copied.
    explicit Stage(const Prepare& prepare = {});
    ~Stage();
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    const PlainDatabase& Plain() const { return *plain_; }
    // Ends and begins both sessions, which forget what they kept.
    void Reopen();
    // Writes a row of either file as another program would: nothing that either side keeps of it holds any
    // more.
    void ChangeByOthers() const;
    // What differs between the library's tables of an axis and those of the plain file; empty when nothing
    // does.
    std::string Differences(int axis) const;
    // Counts up whenever a table of the library's file is made or dropped.
    std::int64_t DesignVersion() const;

  private:
    std::filesystem::path WorkingFile() const { return directory_.File("working.mdb"); }
    std::filesystem::path PlainFile() const { return directory_.File("plain.db"); }

    Directory directory_;
    std::optional<PlainDatabase> plain_;
};

// Axis 1 of the sample's tour: everything that a combination can have.
inline constexpr Drive kDrive = {0, 18, 5, 202, 4, 3, 3, 202};
inline constexpr int kSpecVersion = 2;
inline constexpr int kControlType = 1;

void BuildParameters(const Drive& drive, int axis);
void BuildMonitors(const Drive& drive, int axis);
void BuildAlarms(const Drive& drive, int axis);
void BuildAnalogTrace(const Drive& drive, int axis);
void BuildIoTrace(const Drive& drive, int axis);

}  // namespace bench
