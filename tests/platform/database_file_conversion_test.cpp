// What a conversion makes of a Jet file, and what of it is on the disk afterwards.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>

#include "dao/conversion.h"
#include "dao/conversion_steps.h"
#include "dao/database_file.h"
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
using support::DumpDatabase;
using support::ErrorNumberOf;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

// The rows of a statement, values separated by bars.
std::vector<std::string> Query(sqlite3* engine, const std::string& sql) {
    std::vector<std::string> rows;
    const auto collect = [](void* target, int count, char** values, char**) {
        std::string row;
        for (int i = 0; i < count; ++i)
            row += (i > 0 ? "|" : "") + std::string(values[i] ? values[i] : "Null");
        static_cast<std::vector<std::string>*>(target)->push_back(row);
        return 0;
    };
    char* message = nullptr;
    EXPECT_EQ(sqlite3_exec(engine, sql.c_str(), collect, &rows, &message), SQLITE_OK) << message;
    sqlite3_free(message);
    return rows;
}

std::vector<std::string> NamesIn(const fs::path& folder) {
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder))
        names.push_back(entry.path().filename().string());
    return names;
}

class Conversion : public testing::Test {
  protected:
    ~Conversion() override { daoengine::SetConversionObserver({}); }

    std::unique_ptr<DatabaseFile> Open(const std::string& connect = "") {
        return DatabaseFile::Open(path_, false, false, connect);
    }
    int ErrorOfConverting(std::chrono::milliseconds patience = daoengine::kConversionPatience) {
        return ErrorNumberOf([&] { daoengine::ConvertFile(path_, "", patience); });
    }

    support::TemporaryDirectory directory_;
    std::string path_ = directory_.File("f.mdb");
};

TEST_F(Conversion, KeepsEveryTypeSizeAndValueOfBothFormats) {
    for (const FileKind kind : {FileKind::Jet3, FileKind::Jet4}) {
        support::WriteFile(path_, support::JetFileOfAllTypes(kind));
        const auto before = DumpDatabase(path_);
        const auto file = Open();
        sqlite3* const engine = file->Engine();
        EXPECT_EQ(DumpDatabase(path_), before);
        EXPECT_THAT(Query(engine,
                          "SELECT typeof(\"yes no\"), \"yes no\", byte, \"integer\", long, currency,"
                          " typeof(text), text, length(binary), typeof(guid), memo FROM types"),
                    ElementsAre("integer|-1|255|-32768|-2147483648|1.2345|text|007|3|text|it's 'so' \"here\"",
                                "integer|0|0|7|65535|-0.0001|text||1|text|1e5",
                                "integer|0|Null|Null|Null|Null|null|Null|Null|null|Null"));
    }
}

TEST_F(Conversion, SampleComesThroughWhole) {
    for (const char* const sample : {"IdeInfo.mdb", "IdeInfoJ.mdb"}) {
        support::CopySample(directory_, sample, "f.mdb");
        const auto before = DumpDatabase(path_, support::kSamplePassword);
        ASSERT_EQ(before.size(), 109U);
        const auto file = Open(";PWD=" + support::kSamplePassword);
        EXPECT_FALSE(file->Converted());
        EXPECT_EQ(file->CountTables(), 109);
        EXPECT_FALSE(file->Converted());
        sqlite3* const engine = file->Engine();
        EXPECT_TRUE(file->Converted());
        EXPECT_EQ(file->CountTables(), 109);
        EXPECT_EQ(DumpDatabase(path_, support::kSamplePassword), before);
        EXPECT_THAT(Query(engine, "SELECT name, sql LIKE 'SELECT%', problem FROM \"~jet_queries\""),
                    UnorderedElementsAre("AnalogTraceInfoQuery|1|", "nibble_ex_content_query|1|"));
        EXPECT_LT(fs::file_size(path_), 2 * fs::file_size(path_ + ".jet"));
    }
}

TEST_F(Conversion, IndexesStayAndSoDoTheirRules) {
    support::WriteFile(path_, support::SmallJetFile(FileKind::Jet4, "x"));
    const auto file = Open();
    sqlite3* const engine = file->Engine();
    EXPECT_THAT(Query(engine, "SELECT \"unique\" FROM pragma_index_list('parameters')"), ElementsAre("1"));
    EXPECT_EQ(sqlite3_exec(engine, "INSERT INTO parameters VALUES (7, 'twice')", nullptr, nullptr, nullptr),
              SQLITE_CONSTRAINT);
}

TEST_F(Conversion, OriginalStaysBesideInPlaceOfAnOlderOne) {
    const std::string first = support::SmallJetFile(FileKind::Jet4, "first");
    const std::string second = support::SmallJetFile(FileKind::Jet3, "second");
    for (const std::string& original : {first, second}) {
        support::WriteFile(path_, original);
        support::WriteFile(path_ + ".converting", "left behind by a crash");
        support::WriteFile(path_ + ".jet.new", "left behind by a crash");
        ASSERT_EQ(ErrorOfConverting(), 0);
        EXPECT_EQ(support::ReadFile(path_ + ".jet"), original);
        EXPECT_THAT(NamesIn(directory_.Path()), UnorderedElementsAre("f.mdb", "f.mdb.jet"));
    }
    EXPECT_THAT(DumpDatabase(path_)["parameters"], testing::HasSubstr("\"second299\""));
    EXPECT_EQ(ErrorOfConverting(), 0);  // nothing left to do
    EXPECT_EQ(support::ReadFile(path_ + ".jet"), second);
}

TEST_F(Conversion, JournalsOfAnEarlierFileAreRemoved) {
    support::WriteFile(path_, support::SmallJetFile(FileKind::Jet4, "x"));
    for (const char* const suffix : {"-wal", "-shm", "-journal"})
        support::WriteFile(path_ + suffix, "of an earlier file");
    const auto before = DumpDatabase(path_);
    Open()->Engine();
    EXPECT_EQ(DumpDatabase(path_), before);
    EXPECT_THAT(NamesIn(directory_.Path()), UnorderedElementsAre("f.mdb", "f.mdb.jet"));
}

TEST_F(Conversion, WhatFailsLeavesTheFileAndNothingElse) {
    const std::string original = support::SmallJetFile(FileKind::Jet4, "x");
    support::WriteFile(path_, original);
    fs::create_directories(path_ + ".jet/occupied");
    EXPECT_EQ(ErrorOfConverting(), 3051);
    EXPECT_EQ(support::ReadFile(path_), original);
    fs::remove_all(path_ + ".jet");
    // Damaged where only the copying of rows sees it: the rows' pages vanish.
    support::WriteFile(path_, original.substr(0, original.size() - 4096));
    EXPECT_NE(ErrorOfConverting(), 0);
    EXPECT_EQ(support::ReadFile(path_).size(), original.size() - 4096);
    EXPECT_THAT(NamesIn(directory_.Path()), ElementsAre("f.mdb"));
}

TEST_F(Conversion, AFileRenewedMeanwhileIsNotReplaced) {
    support::WriteFile(path_, support::SmallJetFile(FileKind::Jet4, "former"));
    const std::string renewed = support::SmallJetFile(FileKind::Jet4, "renewed");
    daoengine::SetConversionObserver([&](ConversionStep step) {
        if (step != ConversionStep::Written) return;
        support::WriteFile(directory_.File("renewed.mdb"), renewed);
        fs::rename(directory_.File("renewed.mdb"), path_);
    });
    EXPECT_EQ(ErrorOfConverting(), 3045);
    EXPECT_EQ(support::ReadFile(path_), renewed);
    EXPECT_THAT(NamesIn(directory_.Path()), ElementsAre("f.mdb"));
}

TEST_F(Conversion, TwoObjectsOfOneProcessMayMeet) {
    support::WriteFile(path_, support::SmallJetFile(FileKind::Jet4, "x"));
    const auto first = Open(), second = Open();
    EXPECT_EQ(Query(first->Engine(), "SELECT count(*) FROM parameters"), std::vector<std::string>{"300"});
    EXPECT_EQ(second->CountTables(), 3);
    Query(first->Engine(), "DELETE FROM parameters WHERE id > 9");
    EXPECT_EQ(Query(second->Engine(), "SELECT count(*) FROM parameters"), std::vector<std::string>{"10"});
}

TEST_F(Conversion, ReadOnlyOpeningLeavesTheFileAsItIs) {
    const std::string original = support::SmallJetFile(FileKind::Jet3, "x");
    support::WriteFile(path_, original);
    {
        const auto file = DatabaseFile::Open(path_, false, true, "");
        EXPECT_EQ(Query(file->Engine(), "SELECT count(*) FROM texts"), std::vector<std::string>{"40"});
        EXPECT_EQ(file->CountTables(), 3);
        EXPECT_EQ(sqlite3_exec(file->Engine(), "DELETE FROM texts", nullptr, nullptr, nullptr),
                  SQLITE_READONLY);
    }
    EXPECT_EQ(support::ReadFile(path_), original);
    EXPECT_THAT(NamesIn(directory_.Path()), ElementsAre("f.mdb"));
}

}  // namespace
