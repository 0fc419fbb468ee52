#pragma once

#include <afxdao.h>
#include <gtest/gtest.h>
#include <kalodata/kalodata.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <functional>
#include <initializer_list>
#include <span>
#include <string>
#include <vector>

#include "support/temporary_directory.h"

namespace support {

// A record between guard bytes, all filled with one value before the call.
template <class Record>
class Guarded {
  public:
    explicit Guarded(unsigned char fill = 0xEE) : fill_(fill) {
        before_.fill(kGuard);
        after_.fill(kGuard);
        std::memset(static_cast<void*>(&record), fill, sizeof(Record));
    }

    bool GuardsIntact() const {
        const auto intact = [](const auto& guard) {
            return std::all_of(guard.begin(), guard.end(),
                               [](unsigned char value) { return value == kGuard; });
        };
        return intact(before_) && intact(after_);
    }
    bool Untouched() const {
        const auto* const bytes = reinterpret_cast<const unsigned char*>(&record);
        return std::all_of(bytes, bytes + sizeof(Record),
                           [this](unsigned char value) { return value == fill_; });
    }

  private:
    static constexpr unsigned char kGuard = 0xA5;
    unsigned char fill_;
    std::array<unsigned char, 64> before_;

  public:
    Record record;

  private:
    std::array<unsigned char, 64> after_;
};

// An object of the caller's as bytes.
template <class Object>
std::span<std::byte> BytesOf(Object& object) {
    return std::as_writable_bytes(std::span(&object, 1));
}

// What one locked stretch of a function answers when the engine fails in it.
struct FaultRegion {
    KaloStatus base;
    bool addsNumber = true;   // the engine's error number is added
    bool leavesLock = false;  // the lock is left
    bool fills = false;       // the output may be filled, in part or whole

    friend bool operator==(const FaultRegion&, const FaultRegion&) = default;
};

inline FaultRegion Code(KaloStatus code) {
    return {.base = code, .addsNumber = false};
}
inline FaultRegion Base(KaloStatus base) {
    return {.base = base};
}
inline FaultRegion Leaving(FaultRegion region) {
    region.leavesLock = true;
    return region;
}
inline FaultRegion Filling(FaultRegion region) {
    region.fills = true;
    return region;
}

// Parts of the caller's memory.
using Memory = std::vector<std::span<std::byte>>;

// A function whose every engine call is made to fail, one after another.
struct FaultCase {
    std::function<KaloStatus()> call;
    std::vector<FaultRegion> regions;    // in the order in which the call reaches them
    bool swallowsSome = false;           // some failures are not reported: the call may succeed all the same
    bool onceOnly = false;               // do not let the later calls fail too
    std::function<void()> prepare = {};  // before each call; nothing by default
    std::function<void()> check = {};    // after each call; nothing by default
    // The caller's memory, overwritten before each call. A failed call leaves it as it was: the output unless
    // the region fills it, and what lies behind the output.
    Memory output = {};
    Memory behind = {};
};

// The library on a database in a directory of its own. Every test starts with a freshly loaded library
// without a database, and none is left behind.
class LibraryTest : public testing::Test {
  protected:
    LibraryTest();
    ~LibraryTest() override;

    // --- Databases ---

    // Makes the working file from statements and opens it, without the tables of a session.
    void UseDatabase(std::span<const char* const> statements);
    void UseDatabase(std::initializer_list<const char*> statements);
    void UseDatabase(const std::vector<std::string>& statements);
    // Puts a sample (IdeInfo.mdb, IdeInfoJ.mdb) where the shipped file is looked for.
    void ShipSample(const std::string& sample = "IdeInfo.mdb");
    // The whole start of a session on a sample: KaloSetFileName, KaloCopy, KaloOpen.
    void OpenSession(std::uint16_t country = 0, const std::string& sample = "IdeInfo.mdb");

    // Opens the working file as it is, as a session's connection; closes it again and deletes the object.
    void Connect();
    void Disconnect();
    // A database object that holds no open database, as after a failed open.
    void UseClosedDatabase();

    // Keeps a copy of the working file, and goes back to it (the connection is closed and opened again).
    void SaveDatabase();
    void RestoreDatabase();

    std::string WorkingFile() const { return directory_.File("working.mdb"); }
    std::string ShippedFile(const std::string& name = "IdeInfo.mdb") const { return (host_ / name).string(); }
    const TemporaryDirectory& Directory() const { return directory_; }

    // --- Statements on the open database ---

    // Runs action statements; a failing one fails the test.
    static void Execute(std::initializer_list<std::string> statements);
    // The rows of a SELECT: "a|b\n" each, NULL as "-". A failing one fails the test.
    static std::string Dump(const std::string& select);
    // The number that a statement fails with, 0 when it runs.
    static int DaoErrorOf(const std::string& statement);
    static bool TableExists(const std::string& table);

    // --- The lock and the engine ---

    // Whether another thread could enter the library's lock.
    static bool LockIsFree();
    // Leaves the lock until it is free; returns how often it was held.
    static int ReleaseLock();
    // Unloads the library and loads it again.
    static void ReloadLibrary();

    // Fails the 1st, 2nd, 3rd … engine call of a function, once and ever after, until it completes. Checks
    // that every status is that of a region, in order, that the lock is as the region says, that nothing
    // stays open and that the caller's memory is left alone where it must be.
    void ExpectFaults(const FaultCase& fault);

  private:
    void FailEveryCall(const FaultCase& fault, bool everAfter);

    TemporaryDirectory directory_;
    std::filesystem::path host_;
};

}  // namespace support
