// Database files between processes: killed, concurrent and unprivileged ones.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <thread>

#include "afx.h"
#include "dao/conversion.h"
#include "dao/conversion_steps.h"
#include "dao/database_file.h"
#include "shellapi.h"
#include "support/child_process_posix.h"
#include "support/database_dump.h"
#include "support/error_number.h"
#include "support/jet_files.h"
#include "support/jet_reading.h"
#include "support/temporary_directory.h"

namespace fs = std::filesystem;

namespace {

using daoengine::ConversionStep;
using daoengine::DatabaseFile;
using jetfile::FileKind;
using support::ChildProcess;
using support::DumpDatabase;
using support::ErrorNumberOf;
using support::RunInChild;

using Dump = std::map<std::string, std::string>;

constexpr int kKilled = -SIGKILL;

class Processes : public testing::Test {
  protected:
    ~Processes() override { daoengine::SetConversionObserver({}); }

    int RunSql(const char* sql) {
        const auto file = DatabaseFile::Open(path_, false, false, "");
        return sqlite3_exec(file->Engine(), sql, nullptr, nullptr, nullptr);
    }
    void WriteJetFile(const std::string& edition) {
        support::WriteFile(path_, support::SmallJetFile(FileKind::Jet4, edition));
    }
    void WriteConverted(const std::string& path, const std::string& edition) {
        support::WriteFile(path, support::SmallJetFile(FileKind::Jet4, edition));
        DatabaseFile::Open(path, false, false, "")->Engine();
    }
    // A process that dies after committed changes, so that these are in the journal only.
    void LeaveJournalBehind() {
        const int end = RunInChild([&] {
            const auto file = DatabaseFile::Open(path_, false, false, "");
            const char* const changes =
                "DELETE FROM parameters WHERE id >= 5; UPDATE parameters SET name = 'stale'";
            return sqlite3_exec(file->Engine(), changes, nullptr, nullptr, nullptr) == SQLITE_OK
                       ? raise(SIGKILL)
                       : 1;
        });
        ASSERT_EQ(end, kKilled);
        ASSERT_GT(fs::file_size(path_ + "-wal"), 0U);
    }
    int CopyByShell(const std::string& from) {
        const std::string source = from + '\0', target = path_ + '\0';
        SHFILEOPSTRUCTA operation = {};
        operation.wFunc = FO_COPY;
        operation.pFrom = source.c_str();
        operation.pTo = target.c_str();
        return SHFileOperationA(&operation);
    }

    support::TemporaryDirectory directory_;
    std::string path_ = directory_.File("f.mdb");
};

// --- Killed
// ------------------------------------------------------------------------------------------------------

// Converts in a child that kills itself at the nth step. Returns how it ended.
int ConvertAndDieAt(const std::string& path, int nth) {
    return RunInChild([&] {
        int steps = 0;
        daoengine::SetConversionObserver([&](ConversionStep) {
            if (++steps == nth) raise(SIGKILL);
        });
        return ErrorNumberOf([&] { daoengine::ConvertFile(path, ""); }) == 0 ? 0 : 1;
    });
}

TEST_F(Processes, KilledAtAnyStepAConversionLeavesTheOldFileOrTheNewOne) {
    const std::string original = support::SmallJetFile(FileKind::Jet4, "original");
    WriteJetFile("original");
    const Dump expected = DumpDatabase(path_);
    int step = 1, oldOnes = 0, newOnes = 0;
    for (int end = kKilled; end == kKilled; ++step) {
        support::WriteFile(path_, original);
        support::WriteFile(path_ + ".jet", "an older original");
        support::WriteFile(path_ + "-wal", "of an earlier file");
        end = ConvertAndDieAt(path_, step);
        ASSERT_TRUE(end == kKilled || end == 0) << step;
        const bool old = support::ReadFile(path_) == original;
        ++(old ? oldOnes : newOnes);
        EXPECT_EQ(DumpDatabase(path_), expected) << step;
        EXPECT_TRUE(old || support::ReadFile(path_ + ".jet") == original) << step;
        EXPECT_EQ(ErrorNumberOf([&] { daoengine::ConvertFile(path_, ""); }), 0) << step;
        EXPECT_EQ(DumpDatabase(path_), expected) << step;
        EXPECT_EQ(std::distance(fs::directory_iterator(directory_.Path()), {}), 2) << step;
    }
    EXPECT_GE(oldOnes, 8);
    EXPECT_GE(newOnes, 3);
}

TEST_F(Processes, KilledAtAnyTimeASampleStaysWhole) {
    const std::string connect = ";PWD=" + support::kSamplePassword;
    support::CopySample(directory_, "IdeInfo.mdb", "f.mdb");
    const Dump expected = DumpDatabase(path_, support::kSamplePassword);
    for (const int milliseconds : {10, 40, 80}) {
        support::CopySample(directory_, "IdeInfo.mdb", "f.mdb");
        ChildProcess child([&] {
            DatabaseFile::Open(path_, false, false, connect)->Engine();
            return 0;
        });
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
        child.Kill();
        child.Wait();
        DatabaseFile::Open(path_, false, false, connect)->Engine();
        EXPECT_EQ(DumpDatabase(path_, support::kSamplePassword), expected) << milliseconds;
        EXPECT_EQ(std::distance(fs::directory_iterator(directory_.Path()), {}), 2);
    }
}

// --- Journals
// ----------------------------------------------------------------------------------------------------

TEST_F(Processes, JournalOfAKilledProcessBelongsToItsFile) {
    WriteConverted(path_, "x");
    LeaveJournalBehind();
    EXPECT_THAT(DumpDatabase(path_)["parameters"], testing::HasSubstr("4|\"stale\"|\n"));
}

TEST_F(Processes, JournalOfAKilledProcessIsNeverAppliedToARenewedFile) {
    const std::string shipped = directory_.File("shipped.mdb");
    for (const bool jet : {false, true}) {
        if (jet)
            support::WriteFile(shipped, support::SmallJetFile(FileKind::Jet3, "shipped"));
        else
            WriteConverted(shipped, "shipped");
        const Dump expected = DumpDatabase(shipped);
        const std::vector<std::function<void()>> renewals = {
            [&] { EXPECT_EQ(CopyByShell(shipped), 0); },
            [&] {
                CFile::Remove(path_.c_str());
                fs::copy_file(shipped, path_);
            },
            [&] {
                fs::remove(path_);
                EXPECT_EQ(CopyByShell(shipped), 0);
            },
        };
        for (const auto& renew : renewals) {
            WriteConverted(path_, "former");
            LeaveJournalBehind();
            renew();
            DatabaseFile::Open(path_, false, false, "")->Engine();
            EXPECT_EQ(DumpDatabase(path_), expected);
        }
    }
}

TEST_F(Processes, JetFileThatSomebodyPutInThePlaceIsConvertedWithoutTheJournal) {
    WriteConverted(path_, "former");
    LeaveJournalBehind();
    WriteJetFile("fresh");
    const Dump expected = DumpDatabase(path_);
    DatabaseFile::Open(path_, false, false, "")->Engine();
    EXPECT_EQ(DumpDatabase(path_), expected);
}

// --- Concurrent
// --------------------------------------------------------------------------------------------------

TEST_F(Processes, OneConvertsWhileTheOtherWaits) {
    WriteJetFile("x");
    const Dump expected = DumpDatabase(path_);
    int started[2], goOn[2];
    ASSERT_EQ(pipe(started) + pipe(goOn), 0);
    ChildProcess child([&] {
        daoengine::SetConversionObserver([&](ConversionStep step) {
            char byte = 0;
            if (step == ConversionStep::Started && write(started[1], "s", 1) == 1 &&
                read(goOn[0], &byte, 1) != 1)
                _exit(2);
        });
        return ErrorNumberOf([&] { daoengine::ConvertFile(path_, ""); }) == 0 ? 0 : 1;
    });
    char byte = 0;
    ASSERT_EQ(read(started[0], &byte, 1), 1);
    EXPECT_EQ(ErrorNumberOf([&] { daoengine::ConvertFile(path_, "", std::chrono::milliseconds(50)); }), 3045);
    const auto file = DatabaseFile::Open(path_, false, false, "");
    EXPECT_EQ(file->CountTables(), 3);
    ASSERT_EQ(write(goOn[1], "g", 1), 1);
    file->Engine();
    EXPECT_EQ(child.Wait(), 0);
    EXPECT_EQ(DumpDatabase(path_), expected);
    for (const int end : {started[0], started[1], goOn[0], goOn[1]})
        close(end);
}

// Whether any other process has the engine's lock on the file.
bool IsLockedByOthers(const std::string& path) {
    struct flock lock = {};
    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    const int file = open(path.c_str(), O_RDWR);
    return fcntl(file, F_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
}

// The cause of the exception that CFile::Remove throws; `none` when it throws none.
int CauseOfRemoving(const std::string& path) {
    try {
        CFile::Remove(path.c_str());
        return CFileException::none;
    } catch (CFileException* exception) {
        const int cause = exception->m_cause;
        exception->Delete();
        return cause;
    }
}

TEST_F(Processes, LooksAtAnOpenFileKeepItsLocks) {
    WriteConverted(path_, "x");
    {
        const auto file = DatabaseFile::Open(path_, false, false, "");
        DatabaseFile::Open(path_, false, false, "");
        daoengine::ReadExternalTable(path_, "", "texts", [](const jetfile::Row&) {});
        EXPECT_EQ(RunInChild([&] { return IsLockedByOthers(path_) ? 1 : 0; }), 1);
        EXPECT_EQ(CauseOfRemoving(path_), CFileException::sharingViolation);
        EXPECT_NE(CopyByShell(path_ + ".jet"), 0);
        EXPECT_EQ(RunInChild([&] { return IsLockedByOthers(path_) ? 1 : 0; }), 1);
    }
    EXPECT_EQ(RunInChild([&] { return IsLockedByOthers(path_) ? 1 : 0; }), 0);
}

TEST_F(Processes, FileOpenInAnotherProcessIsNeitherRemovedNorRenewed) {
    WriteConverted(path_, "x");
    int opened[2];
    ASSERT_EQ(pipe(opened), 0);
    ChildProcess child([&] {
        const auto file = DatabaseFile::Open(path_, false, false, "");
        return write(opened[1], "o", 1) == 1 ? pause() : 1;
    });
    char byte = 0;
    ASSERT_EQ(read(opened[0], &byte, 1), 1);
    EXPECT_EQ(CauseOfRemoving(path_), CFileException::sharingViolation);
    EXPECT_EQ(CopyByShell(path_ + ".jet"), 0x10000);
    EXPECT_EQ(RunSql("DELETE FROM texts"), SQLITE_OK);
    child.Kill();
    child.Wait();
    EXPECT_EQ(CauseOfRemoving(path_), CFileException::none);
    EXPECT_FALSE(fs::exists(path_));
    close(opened[0]);
    close(opened[1]);
}

TEST_F(Processes, ConversionKeepsPermissionsAndFollowsLinks) {
    const std::string real = directory_.File("real.mdb");
    support::WriteFile(real, support::SmallJetFile(FileKind::Jet4, "x"));
    fs::permissions(real, fs::perms::owner_read | fs::perms::owner_write);
    fs::create_symlink(real, path_);
    DatabaseFile::Open(path_, false, false, "")->Engine();
    EXPECT_TRUE(fs::is_symlink(path_));
    EXPECT_EQ(fs::status(real).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_TRUE(fs::exists(real + ".jet"));
}

// --- Without the right or the room to write
// ----------------------------------------------------------------------

// Becomes a user who owns nothing, for whom permissions count.
void DropPrivileges() {
    constexpr uid_t kNobody = 65534;
    if (geteuid() == 0 && setresuid(kNobody, kNobody, kNobody) != 0) _exit(3);
}

TEST_F(Processes, WhereNothingCanBeWrittenAJetFileIsReadButNotConverted) {
    WriteJetFile("x");
    fs::permissions(directory_.Path(), fs::perms(0555));
    EXPECT_EQ(RunInChild([&] {
                  DropPrivileges();
                  const auto file = DatabaseFile::Open(path_, false, false, "");
                  EXPECT_EQ(file->CountTables(), 3);
                  EXPECT_EQ(ErrorNumberOf([&] { file->Engine(); }), 3051);
                  EXPECT_EQ(DatabaseFile::Open(path_, false, true, "")->CountTables(), 3);
                  return testing::Test::HasFailure() ? 1 : 0;
              }),
              0);
    fs::permissions(directory_.Path(), fs::perms(0755));
    EXPECT_EQ(support::ReadFile(path_), support::SmallJetFile(FileKind::Jet4, "x"));
}

TEST_F(Processes, WhereNothingCanBeWrittenAConvertedFileIsReadOnly) {
    WriteConverted(path_, "x");
    const std::string before = support::ReadFile(path_);
    fs::permissions(directory_.Path(), fs::perms(0555));
    EXPECT_EQ(RunInChild([&] {
                  DropPrivileges();
                  EXPECT_EQ(ErrorNumberOf([&] { DatabaseFile::Open(path_, false, false, ""); }), 3051);
                  EXPECT_EQ(DatabaseFile::Open(path_, false, true, "")->CountTables(), 3);
                  EXPECT_EQ(DumpDatabase(path_).size(), 3U);
                  return testing::Test::HasFailure() ? 1 : 0;
              }),
              0);
    fs::permissions(directory_.Path(), fs::perms(0755));
    EXPECT_EQ(support::ReadFile(path_), before);
}

TEST_F(Processes, FileThatMayNotBeReadSaysSo) {
    WriteJetFile("x");
    fs::permissions(path_, fs::perms::none);
    EXPECT_EQ(RunInChild([&] {
                  DropPrivileges();
                  return ErrorNumberOf([&] { DatabaseFile::Open(path_, false, false, ""); }) == 3051 ? 0 : 1;
              }),
              0);
}

TEST_F(Processes, WithoutRoomTheFileStaysAsItIs) {
    WriteJetFile("x");
    EXPECT_EQ(RunInChild([&] {
                  const rlimit limit{20000, 20000};
                  std::signal(SIGXFSZ, SIG_IGN);
                  setrlimit(RLIMIT_FSIZE, &limit);
                  return ErrorNumberOf([&] { daoengine::ConvertFile(path_, ""); }) == 0 ? 1 : 0;
              }),
              0);
    EXPECT_EQ(support::ReadFile(path_), support::SmallJetFile(FileKind::Jet4, "x"));
    EXPECT_EQ(std::distance(fs::directory_iterator(directory_.Path()), {}), 1);
}

}  // namespace
