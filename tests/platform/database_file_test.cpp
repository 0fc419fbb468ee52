// Opening, sharing, reading and closing database files of either kind.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>

#include "dao/connect_string.h"
#include "dao/database_file.h"
#include "support/database_dump.h"
#include "support/error_number.h"
#include "support/jet_files.h"
#include "support/jet_reading.h"
#include "support/temporary_directory.h"

namespace fs = std::filesystem;

namespace {

using daoengine::DatabaseFile;
using jetfile::FileKind;
using support::ErrorNumberOf;

int RunSql(sqlite3* engine, const char* sql) {
    return sqlite3_exec(engine, sql, nullptr, nullptr, nullptr);
}

class DatabaseFileTest : public testing::Test {
  protected:
    DatabaseFileTest() {
        support::WriteFile(jet_, support::SmallJetFile(FileKind::Jet4, "x"));
        support::WriteFile(converted_, support::SmallJetFile(FileKind::Jet4, "x"));
        Open(converted_)->Engine();
        fs::remove(converted_ + ".jet");
    }

    std::unique_ptr<DatabaseFile> Open(const std::string& path, bool exclusive = false,
                                       bool readOnly = false) {
        return DatabaseFile::Open(path, exclusive, readOnly, "");
    }
    int ErrorOfOpening(const std::string& path, const std::string& connect = "", bool exclusive = false) {
        return ErrorNumberOf([&] { DatabaseFile::Open(path, exclusive, false, connect); });
    }
    int ErrorOfReading(const std::string& path, const std::string& table, const std::string& password = "") {
        return ErrorNumberOf(
            [&] { daoengine::ReadExternalTable(path, password, table, [](const auto&) {}); });
    }

    support::TemporaryDirectory directory_;
    std::string jet_ = directory_.File("jet.mdb");
    std::string converted_ = directory_.File("converted.mdb");
};

TEST_F(DatabaseFileTest, WhatCannotBeOpenedSaysWhy) {
    const std::string text = directory_.File("text.mdb"), empty = directory_.File("empty.mdb");
    support::WriteFile(text, "neither kind of database, but long enough to have a header");
    support::WriteFile(empty, "");
    struct Case {
        std::string path, connect;
        int error;
    };
    const Case cases[] = {
        {directory_.File("missing.mdb"), "", 3024},
        {"", "", 3024},
        {directory_.File("none/missing.mdb"), "", 3044},
        {jet_ + "/missing.mdb", "", 3044},
        {directory_.Path().string(), "", 3051},
        {text, "", 3343},
        {empty, "", 3343},
        {jet_, "ODBC;DSN=x", 3170},
        {jet_, ";PWD=any", 0},  // has no password
        {converted_, ";PWD=any", 0},
    };
    for (const Case& test : cases) {
        EXPECT_EQ(ErrorOfOpening(test.path, test.connect), test.error) << test.path << ' ' << test.connect;
        if (test.connect.empty()) {
            EXPECT_EQ(ErrorOfReading(test.path, "parameters"), test.error) << test.path;
        }
    }
}

TEST_F(DatabaseFileTest, PasswordGuardsBothKinds) {
    const std::string path = support::CopySample(directory_, "IdeInfo.mdb", "f.mdb");
    for (int round = 0; round < 2; ++round) {
        for (const char* const wrong : {"", ";PWD=", ";PWD=MIVMIV", ";PWD=mivmiv ", ";PWD=mivmi"})
            EXPECT_EQ(ErrorOfOpening(path, wrong), 3031) << wrong;
        EXPECT_EQ(ErrorOfReading(path, "mdbname", "Mivmiv"), 3031);
        EXPECT_EQ(ErrorOfReading(path, "mdbname", "mivmiv"), 0);
        DatabaseFile::Open(path, false, false, ";DATABASE=ignored;pwd=mivmiv")->Engine();
    }
}

TEST(ConnectString, PartsAreFoundInAnyOrder) {
    const daoengine::ConnectOptions options =
        daoengine::ParseConnect(";Pwd=a=b;LANG=x;database=C:\\a b\\表.mdb");
    EXPECT_EQ(options.password, "a=b");
    EXPECT_EQ(options.database, "C:\\a b\\表.mdb");
    EXPECT_EQ(daoengine::ParseConnect(";;PWD").password, "");
    EXPECT_EQ(ErrorNumberOf([] { daoengine::ParseConnect("PWD=x"); }), 3170);
}

TEST_F(DatabaseFileTest, PathsMayBeWrittenAsOnWindows) {
    std::string path = jet_;
    std::replace(path.begin(), path.end(), '/', '\\');
    EXPECT_EQ(ErrorOfOpening(path), 0);
    EXPECT_EQ(ErrorOfReading(path, "PARAMETERS"), 0);
}

TEST_F(DatabaseFileTest, SharedOpeningsSeeEachOther) {
    const auto writer = Open(converted_), reader = Open(converted_, false, true);
    ASSERT_EQ(RunSql(writer->Engine(), "CREATE TABLE fresh (id LONG INTEGER)"), SQLITE_OK);
    EXPECT_EQ(reader->CountTables(), 4);
    EXPECT_EQ(RunSql(reader->Engine(), "INSERT INTO fresh VALUES (1)"), SQLITE_READONLY);
    EXPECT_EQ(ErrorOfReading(converted_, "Fresh"), 0);
    ASSERT_EQ(RunSql(writer->Engine(), "DROP TABLE fresh"), SQLITE_OK);
    EXPECT_EQ(reader->CountTables(), 3);
}

TEST_F(DatabaseFileTest, ExclusiveOpeningKeepsOthersOutAndIsKeptOut) {
    for (const std::string& path : {converted_, jet_}) {
        auto holder = Open(path, true);
        EXPECT_EQ(RunSql(holder->Engine(), "DELETE FROM texts"), SQLITE_OK);
        EXPECT_EQ(ErrorOfOpening(path), 3045);
        EXPECT_EQ(ErrorOfReading(path, "texts"), 3045);
        holder.reset();
        holder = Open(path);
        EXPECT_EQ(ErrorOfOpening(path, "", true), 3045);
        holder.reset();
        EXPECT_EQ(ErrorOfOpening(path, "", true), 0);
    }
}

TEST_F(DatabaseFileTest, ClosingGivesFreedPagesBackAndLeavesOneFile) {
    const auto before = fs::file_size(converted_);
    for (int session = 0; session < 2; ++session) {
        const auto file = Open(converted_);
        ASSERT_EQ(RunSql(file->Engine(),
                         "CREATE TABLE big (data MEMO TEXT);"
                         "WITH n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 2000)"
                         "INSERT INTO big SELECT hex(randomblob(1000)) FROM n;"
                         "DROP TABLE big"),
                  SQLITE_OK);
    }
    EXPECT_LE(fs::file_size(converted_), before + 2 * 4096);
    EXPECT_FALSE(fs::exists(converted_ + "-wal") || fs::exists(converted_ + "-shm"));
}

TEST_F(DatabaseFileTest, ExternalReadingChangesNothing) {
    for (const std::string& path : {jet_, converted_}) {
        const std::string before = support::ReadFile(path);
        int rows = 0;
        const jet::Table table =
            daoengine::ReadExternalTable(path, "", "Parameters", [&](const jetfile::Row& row) {
                EXPECT_EQ(row, (jetfile::Row{std::int64_t{rows}, "x" + std::to_string(rows)}));
                ++rows;
            });
        EXPECT_EQ(rows, 300);
        EXPECT_EQ(table.name, "parameters");
        ASSERT_EQ(table.columns.size(), 2U);
        EXPECT_EQ(table.columns[1].size, 40);
        EXPECT_EQ(ErrorOfReading(path, "missing"), 3078);
        EXPECT_EQ(ErrorOfReading(path, "~jet_properties"), 3078);
        EXPECT_EQ(ErrorOfReading(path, "sqlite_schema"), 3078);
        EXPECT_EQ(support::ReadFile(path), before);
    }
    EXPECT_EQ(std::distance(fs::directory_iterator(directory_.Path()), {}), 2);
}

TEST_F(DatabaseFileTest, DatabaseOfALaterFormatIsRefused) {
    ASSERT_EQ(RunSql(Open(converted_)->Engine(),
                     "UPDATE \"~jet_properties\" SET value = '2' WHERE name = 'format'"),
              SQLITE_OK);
    EXPECT_EQ(ErrorOfOpening(converted_), 3343);
}

// --- Damage
// ------------------------------------------------------------------------------------------------------

// Opens a file, converts it if need be and reads all of it.
int ErrorOfUsing(const std::string& path) {
    return ErrorNumberOf([&] {
        DatabaseFile::Open(path, false, false, "")->Engine();
        support::DumpDatabase(path);
    });
}

TEST_F(DatabaseFileTest, DamageIsAnErrorAndLeavesNothingHalfDone) {
    std::uint32_t random = 12345;
    const auto next = [&random] { return random = random * 1664525 + 1013904223; };
    int failures = 0;
    for (const std::string& path : {jet_, converted_}) {
        const std::string whole = support::ReadFile(path);
        for (int round = 0; round < 80; ++round) {
            std::string damaged = whole;
            for (int patch = 0; patch < 1 + round % 8; ++patch)
                damaged[(next() >> 8) % (round % 3 == 0 ? 4096 : damaged.size())] =
                    static_cast<char>(next() >> 16);
            if (round % 10 == 0) damaged.resize((next() >> 8) % damaged.size());
            support::WriteFile(path, damaged);
            if (ErrorOfUsing(path) != 0) ++failures;
            EXPECT_FALSE(fs::exists(path + ".converting")) << round;
            for (const char* const suffix : {".jet", "-wal", "-shm", "-journal"})
                fs::remove(path + suffix);
        }
    }
    EXPECT_GT(failures, 10);
}

TEST_F(DatabaseFileTest, DamagedHeadersHaveTheirNumbers) {
    std::string engineFile = support::ReadFile(converted_);
    engineFile.replace(16, 2, "\x12\x34");  // an impossible page size
    support::WriteFile(converted_, engineFile);
    EXPECT_EQ(ErrorOfOpening(converted_), 3343);
    std::string jetFile = support::ReadFile(jet_);
    jetFile[0x14] = 5;  // a later version
    support::WriteFile(jet_, jetFile);
    EXPECT_EQ(ErrorOfOpening(jet_), 3343);
}

}  // namespace
