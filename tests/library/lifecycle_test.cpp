#include <gmock/gmock.h>

#include <filesystem>

#include "support/library_fixture.h"

namespace {

namespace fs = std::filesystem;
using support::Base;
using support::BytesOf;
using support::Code;
using support::Leaving;

constexpr const char* kShippedTables[] = {
    "CREATE TABLE [mdbname] ([id] LONG, [mdbname] TEXT(50), [mdb_version] TEXT(20), [mdb_status] TEXT(20))",
    "INSERT INTO [mdbname] VALUES (1,'IdeInfo.mdb','1.0','Close')",
    "CREATE TABLE [tavrowinmodel] ([model_id] TEXT(20), [model_name] TEXT(20))",
    "INSERT INTO [tavrowinmodel] VALUES ('17','AMPA100')",
    "CREATE TABLE [tavroindexermodel] ([model_id] TEXT(20), [model_name] TEXT(20))",
    "INSERT INTO [tavroindexermodel] VALUES ('17','INDEXER')",
    "CREATE TABLE [tavrowinhelp] ([item] LONG)",
    "CREATE TABLE [tavroindexerhelp] ([item] LONG)",
    "CREATE TABLE [tavrowinwizhelp] ([id] LONG)",
    "CREATE TABLE [tavroindexerwizhelp] ([id] LONG)",
    "CREATE TABLE [tavrowinMonitorID] ([monitor_id] LONG, [monitor_name_id] LONG, [monitor_name] TEXT(50))",
    "INSERT INTO [tavrowinMonitorID] VALUES (1,71,NULL)",
    "CREATE TABLE [tavroindexerMonitorID] ([monitor_id] LONG, [monitor_name_id] LONG, [monitor_name] "
    "TEXT(50))",
    "CREATE TABLE [monname] ([mon_name_id] LONG, [country_id] LONG, [monitor_name] TEXT(50))",
    "INSERT INTO [monname] VALUES (71,0,'Speed')",
    "INSERT INTO [monname] VALUES (71,1,'Sokudo')",
};

class LifecycleTest : public support::LibraryTest {
  protected:
    // A small shipped file, and a working file that KaloCopy made of it.
    void ShipSmallFile() {
        UseDatabase(kShippedTables);
        Disconnect();
        fs::copy_file(WorkingFile(), ShippedFile());
        fs::remove(WorkingFile());
        ASSERT_EQ(KaloCopy(0), 0u);
    }

    // Changes the closed working file by one statement.
    void Alter(const std::string& statement) {
        Connect();
        Execute({statement});
        Disconnect();
    }

    // True when KaloCopy makes the working file anew: a mark in it is gone.
    bool CopyRenews() {
        Alter("UPDATE [monname] SET [monitor_name] = 'marked' WHERE [country_id] = 1");
        EXPECT_EQ(KaloCopy(0), 0u);
        Connect();
        const std::string name = Dump("SELECT [monitor_name] FROM [monname] WHERE [country_id] = 1");
        Disconnect();
        return name != "marked\n";
    }

    std::string StatusInFile() {
        Connect();
        const std::string status = Dump("SELECT [mdb_status] FROM [mdbname]");
        Disconnect();
        return status;
    }
};

TEST_F(LifecycleTest, OpensAndClosesASession) {
    ShipSmallFile();
    ASSERT_EQ(KaloOpen(1), 0u);
    EXPECT_EQ(Dump("SELECT [model_name] FROM [model]"), "AMPA100\n");
    EXPECT_EQ(Dump("SELECT [monitor_name] FROM [MonitorID]"), "Sokudo\n");
    EXPECT_EQ(Dump("SELECT [mdb_status] FROM [mdbname]"), "Open\n");
    char name[KALO_MDB_NAME_SIZE];
    EXPECT_EQ(KaloGetMdbName(name), 0u);
    EXPECT_STREQ(name, "IdeInfo.mdb");
    EXPECT_EQ(KaloClose(), 0u);
    EXPECT_EQ(KaloClose(), 0u);

    EXPECT_EQ(StatusInFile(), "Close\n");
    Connect();
    for (const char* table : {"model", "help", "wizhelp", "MonitorID"})
        EXPECT_FALSE(TableExists(table)) << table;
}

TEST_F(LifecycleTest, ModesChooseTheBaseTables) {
    ShipSmallFile();
    EXPECT_EQ(KaloModelTableSelect(2), 0u);
    EXPECT_EQ(KaloModelTableSelect(5), 0x2BFF06BAu);
    EXPECT_EQ(KaloModelTableSelect(0), 0x2BFF06BAu);
    ASSERT_EQ(KaloOpen(0), 0u);
    EXPECT_EQ(Dump("SELECT [model_name] FROM [model]"), "INDEXER\n") << "refused modes change nothing";
    KaloClose();
    for (const int mode : {1, 3, 4}) {
        EXPECT_EQ(KaloModelTableSelect(static_cast<std::uint16_t>(mode)), 0u);
        ASSERT_EQ(KaloOpen(0), 0u);
        EXPECT_EQ(Dump("SELECT [model_name] FROM [model]"), "AMPA100\n") << mode;
        KaloClose();
    }
}

TEST_F(LifecycleTest, ExtraTablesAtCloseAreAnError) {
    ShipSmallFile();
    ASSERT_EQ(KaloOpen(0), 0u);
    Execute({"CREATE TABLE [left_behind] ([a] LONG)"});
    EXPECT_EQ(KaloClose(), 0u);
    EXPECT_EQ(StatusInFile(), "Error\n");
    EXPECT_TRUE(CopyRenews());
    EXPECT_FALSE(CopyRenews());
}

TEST_F(LifecycleTest, KeepsAWorkingFileOnlyWhenItIsCleanAndOfTheShippedVersion) {
    ShipSmallFile();
    EXPECT_FALSE(CopyRenews());
    const char* const reasons[] = {
        "UPDATE [mdbname] SET [mdb_status] = 'Open'",
        "UPDATE [mdbname] SET [mdb_status] = 'Error'",
        "UPDATE [mdbname] SET [mdb_status] = NULL",
        "UPDATE [mdbname] SET [mdb_version] = '1.1'",
        "UPDATE [mdbname] SET [mdb_version] = NULL",
        "UPDATE [mdbname] SET [id] = 2",
        "DROP TABLE [mdbname]",
    };
    for (const char* reason : reasons) {
        Alter(reason);
        EXPECT_TRUE(CopyRenews()) << reason;
        EXPECT_EQ(StatusInFile(), "Close\n");
    }
}

TEST_F(LifecycleTest, RenewsAFileThatIsTooLargeMissingOrUnreadable) {
    ShipSmallFile();
    Connect();
    Execute({"CREATE TABLE [ballast] ([text] MEMO)"});
    const std::string kilobytes(4000, 'x');
    for (int i = 0; i < 100; ++i)
        Execute({"INSERT INTO [ballast] VALUES ('" + kilobytes + "')"});
    Disconnect();
    ASSERT_GT(fs::file_size(WorkingFile()), 2 * fs::file_size(ShippedFile()));
    EXPECT_TRUE(CopyRenews());

    support::WriteFile(WorkingFile(), "no database at all");
    EXPECT_EQ(KaloCopy(0), 0u);
    EXPECT_EQ(StatusInFile(), "Close\n");

    EXPECT_EQ(KaloRemove(), 0u);
    EXPECT_FALSE(fs::exists(WorkingFile()));
    EXPECT_EQ(KaloRemove(), 0u) << "nothing to remove";
    EXPECT_EQ(KaloCopy(0), 0u);
    EXPECT_EQ(StatusInFile(), "Close\n");
    EXPECT_TRUE(LockIsFree());
}

TEST_F(LifecycleTest, AMissingShippedFileCostsTheWorkingFile) {
    ShipSmallFile();
    fs::remove(ShippedFile());
    EXPECT_NE(KaloCopy(0), 0u);
    EXPECT_FALSE(fs::exists(WorkingFile()));
    EXPECT_EQ(KaloOpen(0), 0x2B010000u + 3024);
}

TEST_F(LifecycleTest, TheLanguageChoosesTheShippedFile) {
    ShipSmallFile();
    fs::rename(ShippedFile(), ShippedFile("IdeInfoJ.mdb"));
    ASSERT_EQ(KaloRemove(), 0u);
    EXPECT_EQ(KaloCopy(1), 0u);
    ASSERT_EQ(KaloOpen(0), 0u);
    char name[KALO_MDB_NAME_SIZE];
    EXPECT_EQ(KaloGetMdbName(name), 0u);
    EXPECT_STREQ(name, "IdeInfoJ.mdb");
}

TEST_F(LifecycleTest, AFailedOpenAnswersAsClosedUntilKaloClose) {
    support::WriteFile(WorkingFile(), "no database at all");
    EXPECT_EQ(KaloOpen(0), 0x2B010000u + 3343);
    EXPECT_EQ(ReleaseLock(), 1);
    std::uint16_t count = 7;
    EXPECT_EQ(KaloGetUParaNum(1, &count), 0x2A000067u);
    EXPECT_EQ(count, 7);
    char name[KALO_MDB_NAME_SIZE];
    EXPECT_EQ(KaloGetMdbName(name), 0x2BFF0124u);
    EXPECT_EQ(KaloClose(), 0u);
    EXPECT_EQ(KaloGetUParaNum(1, &count), 0x2A000067u) << "without any database object";
}

// A second open reopens the file under the same object and meets the first one's tables; the close then finds
// as many tables as it expects, and the file says "Close" although they are still there.
TEST_F(LifecycleTest, ASecondOpenLeavesTheSessionsTablesBehind) {
    ShipSmallFile();
    ASSERT_EQ(KaloOpen(0), 0u);
    EXPECT_EQ(KaloOpen(0), 0x2BFF06BDu);
    EXPECT_EQ(ReleaseLock(), 1);
    EXPECT_EQ(KaloClose(), 0u);
    EXPECT_EQ(StatusInFile(), "Close\n");
    EXPECT_EQ(KaloOpen(0), 0x2BFF06BDu);
    KaloClose();
    KaloRemove();
    EXPECT_EQ(KaloCopy(0), 0u);
    EXPECT_EQ(KaloOpen(0), 0u);
}

TEST_F(LifecycleTest, EachMissingBaseTableHasItsCode) {
    ShipSmallFile();
    const struct {
        const char* table;
        KaloStatus status;
    } cases[] = {{"tavrowinmodel", 0x2BFF06BD},
                 {"tavrowinhelp", 0x2BFF06BF},
                 {"tavrowinwizhelp", 0x2BFF06BC},
                 {"tavrowinMonitorID", 0x2BFF06BB},
                 {"monname", 0x2C020000 + 3078}};
    for (const auto& [table, status] : cases) {
        Alter(std::string("DROP TABLE [") + table + "]");
        EXPECT_EQ(KaloOpen(0), status) << table;
        EXPECT_EQ(ReleaseLock(), 1) << table;
        EXPECT_EQ(KaloClose(), 0u);
        KaloRemove();
        ASSERT_EQ(KaloCopy(0), 0u);
    }
}

TEST_F(LifecycleTest, AFileThatCannotBeStampedOpensAllTheSame) {
    ShipSmallFile();
    Alter("DROP TABLE [mdbname]");
    EXPECT_EQ(KaloOpen(0), 0u);
    EXPECT_EQ(ReleaseLock(), 1) << "the failed stamp keeps the lock";
    char name[KALO_MDB_NAME_SIZE];
    EXPECT_EQ(KaloGetMdbName(name), 0x2BFF0127u);
    Execute({"CREATE TABLE [mdbname] ([id] LONG, [mdbname] TEXT(50))"});
    ReleaseLock();
    EXPECT_EQ(KaloGetMdbName(name), 0x2BFF0125u);
    Execute({"INSERT INTO [mdbname] VALUES (1,NULL)"});
    EXPECT_EQ(KaloGetMdbName(name), 0x2BFF0126u);
    Execute({"UPDATE [mdbname] SET [mdbname] = 'A name of thirty-one characters'"});
    EXPECT_EQ(KaloGetMdbName(name), 0u);
    EXPECT_STREQ(name, "A name of thirty-one characte");
}

TEST_F(LifecycleTest, FailingEngineCalls) {
    ShipSmallFile();
    Connect();
    SaveDatabase();
    const auto prepare = [this] {
        RestoreDatabase();
        Disconnect();
    };
    const auto close = [] { EXPECT_EQ(KaloClose(), 0u); };
    // That the status cannot be stamped is not reported.
    ExpectFaults({.call = [] { return KaloOpen(0); },
                  .regions = {Base(0x2B010000), Leaving(Base(0x2C070000)), Code(0x2BFF06BD), Code(0x2BFF06BF),
                              Code(0x2BFF06BC), Code(0x2BFF06BB), Base(0x2C020000)},
                  .swallowsSome = true,
                  .onceOnly = true,
                  .prepare = prepare,
                  .check = close});
    // Neither is a table that cannot be dropped.
    ExpectFaults({.call = KaloClose,
                  .regions = {Leaving(Base(0x2B020000))},
                  .swallowsSome = true,
                  .onceOnly = true,
                  .prepare = [this] {
                      KaloClose();
                      RestoreDatabase();
                      Disconnect();
                      KaloOpen(0);
                  }});
    RestoreDatabase();
    char name[KALO_MDB_NAME_SIZE];
    ExpectFaults({.call = [&] { return KaloGetMdbName(name); },
                  .regions = {Code(0x2BFF0127)},
                  .output = {BytesOf(name)}});
}

// Whatever fails while the working file is looked at, it is made anew; a new copy that cannot be stamped is
// an error.
TEST_F(LifecycleTest, FailingEngineCallsOfACopy) {
    ShipSmallFile();
    ExpectFaults({.call = [] { return KaloCopy(0); },
                  .regions = {Leaving(Code(0x2BFF103D)), Leaving(Code(0x2BFF103E))},
                  .prepare = KaloRemove});
    ExpectFaults({.call = [] { return KaloCopy(0); }, .regions = {}, .swallowsSome = true, .onceOnly = true});
}

TEST_F(LifecycleTest, LoadingClearsTheSession) {
    ShipSmallFile();
    KaloModelTableSelect(2);
    ReloadLibrary();
    EXPECT_EQ(KaloOpen(0), 0x2B010000u + 3024) << "no file name any more";
    ReleaseLock();
    KaloClose();
    KaloSetFileName(nullptr, WorkingFile().c_str());
    ASSERT_EQ(KaloOpen(0), 0u);
    EXPECT_EQ(Dump("SELECT [model_name] FROM [model]"), "AMPA100\n");
}

}  // namespace
