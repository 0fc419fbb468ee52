#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <thread>

#include "host_program.h"
#include "mbstring.h"
#include "shellapi.h"
#include "support/temporary_directory.h"
#include "windows.h"

namespace fs = std::filesystem;
using namespace std::chrono_literals;

namespace {

// How long another thread is waited for that must get in, and one that must not.
constexpr std::chrono::milliseconds kUntilIn = 10s, kStillOut = 100ms;

// Whether another thread gets into the section before `patience` is over.
bool OthersMayEnter(CRITICAL_SECTION& section, std::chrono::milliseconds patience) {
    std::atomic<bool> entered{false};
    std::thread other([&] {
        EnterCriticalSection(&section);
        entered = true;
        LeaveCriticalSection(&section);
    });
    for (auto waited = 0ms; waited < patience && !entered; waited += 2ms)
        std::this_thread::sleep_for(2ms);
    const bool during = entered;
    for (int depth = 0; !entered && depth < 3; ++depth)
        LeaveCriticalSection(&section);
    other.join();
    return during;
}

TEST(CriticalSection, IsRecursiveAndKeepsOthersOut) {
    CRITICAL_SECTION section;
    InitializeCriticalSection(&section);
    EXPECT_TRUE(OthersMayEnter(section, kUntilIn));
    for (int depth = 0; depth < 3; ++depth)
        EnterCriticalSection(&section);
    LeaveCriticalSection(&section);
    LeaveCriticalSection(&section);
    EXPECT_FALSE(OthersMayEnter(section, kStillOut));
    EXPECT_TRUE(OthersMayEnter(section, kUntilIn));
    DeleteCriticalSection(&section);
}

TEST(CriticalSection, MisuseIsHarmless) {
    CRITICAL_SECTION section;
    InitializeCriticalSection(&section);
    LeaveCriticalSection(&section);
    EnterCriticalSection(&section);
    std::thread([&] { LeaveCriticalSection(&section); }).join();
    EXPECT_FALSE(OthersMayEnter(section, kStillOut));
    EnterCriticalSection(&section);
    DeleteCriticalSection(&section);
    LeaveCriticalSection(&section);
    DeleteCriticalSection(&section);
    InitializeCriticalSection(&section);
    EXPECT_TRUE(OthersMayEnter(section, kUntilIn));
    DeleteCriticalSection(&section);
}

TEST(ModuleFileName, IsTheExecutableOrWhatATestSets) {
    char name[MAX_PATH];
    const DWORD length = GetModuleFileNameA(nullptr, name, sizeof name);
    EXPECT_EQ(std::string(name, length), fs::canonical("/proc/self/exe").string());
    SetHostProgramPath("/opt/host/host.exe");
    EXPECT_EQ(GetModuleFileNameA(nullptr, name, sizeof name), 18U);
    EXPECT_STREQ(name, "/opt/host/host.exe");
    char narrow[9];
    std::memset(narrow, 'x', sizeof narrow);
    EXPECT_EQ(GetModuleFileNameA(nullptr, narrow, 8), 8U);
    EXPECT_EQ(std::string(narrow, 9), std::string("/opt/ho\0x", 9));
    SetHostProgramPath("");
    EXPECT_EQ(GetModuleFileNameA(nullptr, name, sizeof name), length);
}

TEST(GetFullPathName, TellsWhereTheNameBegins) {
    char path[64] = {};
    char* name = nullptr;
    EXPECT_EQ(GetFullPathNameA("/opt/./ソ\\host/../ソフト/a\\b.mdb", sizeof path, path, &name), 22U);
    EXPECT_STREQ(path, "/opt/ソフト/a\\b.mdb");
    EXPECT_STREQ(name, "a\\b.mdb");
    EXPECT_EQ(GetFullPathNameA("/opt/", sizeof path, path, &name), 5U);
    EXPECT_EQ(name, nullptr);
    name = path;
    EXPECT_EQ(GetFullPathNameA("/opt/b", 6, path, &name), 7U);
    EXPECT_EQ(GetFullPathNameA("", sizeof path, path, &name), 0U);
    EXPECT_STREQ(path, "/opt/") << "a call without an answer writes nothing";
    EXPECT_EQ(name, path);
}

TEST(MultibyteCopy, NeverSplitsACharacter) {
    struct Case {
        const char* text;
        std::size_t count;
        std::string copied;  // the rest is zeros
    };
    const Case cases[] = {
        {"abc", 5, "abc"},
        {"abc", 2, "ab"},
        {"abc", 0, ""},
        {"aé表😀", 10, "aé表😀"},
        {"aé表😀", 9, "aé表"},
        {"aé表😀", 5, "aé"},
        {"aé表😀", 2, "a"},
        {"", 3, ""},
        {"a\xE8\xA1", 8, "a\xE8\xA1"},  // cut off by its own end
        {"\x80\xFFz", 2, "\x80\xFF"},   // no start of a character
    };
    for (const Case& test : cases) {
        std::string buffer(16, '#');
        std::string expected = test.copied;
        expected.resize(test.count);
        expected.resize(16, '#');
        auto* const target = reinterpret_cast<unsigned char*>(buffer.data());
        EXPECT_EQ(_mbsnbcpy(target, reinterpret_cast<const unsigned char*>(test.text), test.count), target);
        EXPECT_EQ(buffer, expected) << test.text << " in " << test.count;
    }
}

class ShellCopy : public testing::Test {
  protected:
    int Copy(const std::string& from, const std::string& to) {
        const std::string source = from + '\0', target = to + '\0';
        SHFILEOPSTRUCTA operation = {};
        operation.wFunc = FO_COPY;
        operation.pFrom = source.c_str();
        operation.pTo = target.c_str();
        operation.fFlags = FOF_SILENT | FOF_NOCONFIRMATION;
        return SHFileOperationA(&operation);
    }

    support::TemporaryDirectory directory_;
    std::string source_ = directory_.File("shipped.mdb");
    std::string target_ = directory_.File("copy.mdb");
};

TEST_F(ShellCopy, OverwritesAndRemovesWhatBelongedToTheFormerFile) {
    support::WriteFile(source_, "new");
    support::WriteFile(target_, "former and longer");
    for (const char* const suffix : {"-wal", "-shm", "-journal"})
        support::WriteFile(target_ + suffix, "of the former");
    std::string windows = target_;
    std::replace(windows.begin(), windows.end(), '/', '\\');
    EXPECT_EQ(Copy(source_, windows), 0);
    EXPECT_EQ(support::ReadFile(target_), "new");
    EXPECT_EQ(std::distance(fs::directory_iterator(directory_.Path()), {}), 2);
}

TEST_F(ShellCopy, FollowsALinkToTheTarget) {
    support::WriteFile(source_, "new");
    support::WriteFile(directory_.File("real.mdb"), "former");
    fs::create_symlink("real.mdb", target_);
    EXPECT_EQ(Copy(source_, target_), 0);
    EXPECT_TRUE(fs::is_symlink(target_));
    EXPECT_EQ(support::ReadFile(directory_.File("real.mdb")), "new");
}

TEST_F(ShellCopy, FailuresLeaveTheTargetAlone) {
    support::WriteFile(source_, "new");
    support::WriteFile(target_, "former");
    support::WriteFile(target_ + "-wal", "of the former");
    EXPECT_EQ(Copy(directory_.File("missing.mdb"), target_), 0x402);
    EXPECT_EQ(Copy(directory_.Path().string(), target_), 0x402);
    EXPECT_EQ(Copy(target_, target_), 0x71);
    EXPECT_EQ(Copy(source_, directory_.Path().string()), 0x80);
    EXPECT_EQ(Copy(source_, directory_.File("none/copy.mdb")), 0x7C);
    EXPECT_EQ(Copy(source_, target_ + "/copy.mdb"), 0x7C);
    EXPECT_NE(Copy(source_, directory_.File(std::string(300, 'n'))), 0);
    EXPECT_EQ(support::ReadFile(target_), "former");
    EXPECT_EQ(support::ReadFile(target_ + "-wal"), "of the former");
    EXPECT_EQ(std::distance(fs::directory_iterator(directory_.Path()), {}), 3);
}

}  // namespace
