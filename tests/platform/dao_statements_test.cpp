// Statements as a host of DAO runs them: numbers of errors, open recordsets beside changes, what is kept of a
// statement while tables change, also by others.

#include <cstring>
#include <ctime>

#include "dao/seam.h"
#include "mfc/narrow.h"
#include "support/dao_fixture.h"

namespace {

using support::DaoErrorOf;
using support::TextOf;
using Texts = std::vector<std::string>;

class DaoStatementsTest : public support::DaoTest {};

TEST_F(DaoStatementsTest, ErrorsHaveTheirNumbers) {
    MakeNumbers(3);
    struct Case {
        const char* statement;
        int executed;
        int opened;
    };
    constexpr int kTableList = 3141;
    const Case cases[] = {
        {"SELECT * FROM [numbers]", 3065, 0},
        {"SELECT * FROM [missing]", 3078, 3078},
        {"SELECT [nothing] FROM [numbers]", 3061, 3061},
        {"SELECT * FROM [numbers] WHERE [id] = \"1\"", 3464, 3464},
        {"SELECT * FROM [numbers] WHERE [id] = ", 3075, 3075},
        {"SELECT * INTO [copy] FROM [numbers]", 0, 3219},
        {"SELECT * INTO [digits] FROM [numbers]", 3010, 3010},
        {"INSERT INTO [missing] ([a]) VALUES (1)", 3192, kTableList},
        {"INSERT INTO [numbers] ([a]) VALUES (1)", 3127, kTableList},
        {"INSERT INTO [numbers] ([id],[name]) VALUES (1)", 3346, kTableList},
        {"UPDATE [missing] SET [a] = 1", 3078, kTableList},
        {"DROP TABLE [missing]", 3376, kTableList},
        {"ALTER TABLE [numbers] ADD COLUMN [id] LONG", 3380, kTableList},
        {"ALTER TABLE [numbers] DROP COLUMN [gone]", 3381, kTableList},
        {"CREATE UNIQUE INDEX [one] ON [digits] ([d])", 0, kTableList},
        {"INSERT INTO [digits] ([d]) VALUES (3)", 3022, kTableList},
        {"ALTER TABLE [digits] DROP COLUMN [d]", 3280, kTableList},
        {"", 3129, kTableList},
        {"numbers", 3129, kTableList},
        {" SELECT * FROM [numbers]", 3065, kTableList},
    };
    for (const Case& each : cases) {
        EXPECT_EQ(ErrorOfOpen(each.statement), each.opened) << each.statement;
        EXPECT_EQ(ErrorOfRun(each.statement), each.executed) << each.statement;
    }
    EXPECT_EQ(daoengine::seam::OpenRecordsets() + daoengine::seam::OpenQueries(), 0);
}

TEST_F(DaoStatementsTest, SyntaxIsCheckedWhenAQueryIsMadeAndNamesWhenItRuns) {
    const auto errorOfCreate = [&](const char* sql) {
        return DaoErrorOf([&] {
            CDaoQueryDef query(&database);
            query.Create(nullptr, sql);
        });
    };
    EXPECT_EQ(errorOfCreate("DELETE * FROM [missing] WHERE [id] = "), 3075);
    EXPECT_EQ(errorOfCreate("DELETE * FROM [missing] WHERE [id] = \"a\"b\""), 3075);
    EXPECT_EQ(errorOfCreate("DELETE * FROM [missing] WHERE [id] = 1"), 0);
    EXPECT_EQ(ErrorOfRun("DELETE * FROM [missing] WHERE [id] = 1"), 3078);
}

TEST_F(DaoStatementsTest, RowsAffectedAreThoseOfTheLastRun) {
    MakeNumbers(20);
    EXPECT_EQ(Run("SELECT * INTO [copy] FROM [numbers] WHERE [id] < 15"), 15);
    EXPECT_EQ(Run("UPDATE [copy] SET [name] = \"x\" WHERE [id] < 4"), 4);
    EXPECT_EQ(Run("INSERT INTO [copy] SELECT [name], [id] FROM [numbers] WHERE [id] >= 15"), 5);
    EXPECT_EQ(Run("DELETE * FROM [copy] WHERE [name] = \"X \""), 4);
    EXPECT_EQ(Run("DELETE * FROM [copy]"), 16);
    EXPECT_EQ(Run("DROP TABLE [copy]"), 0);
    database.Execute("DELETE * FROM [numbers] WHERE [id] = 1");
    EXPECT_EQ(database.GetRecordsAffected(), 1);
}

TEST_F(DaoStatementsTest, FailedStatementLeavesNothing) {
    MakeNumbers(5);
    Run("SELECT * INTO [narrow] FROM [numbers]");
    Run("CREATE UNIQUE INDEX [one] ON [narrow] ([id])");
    const Texts before = Rows("SELECT * FROM [narrow]");
    EXPECT_EQ(ErrorOfRun("INSERT INTO [narrow] SELECT ([id] + 9) MOD 10 AS [id] FROM [numbers]"), 3022);
    EXPECT_EQ(ErrorOfRun("UPDATE [narrow] SET [id] = 3000000000 * [id]"), 3349);
    EXPECT_EQ(Rows("SELECT * FROM [narrow]"), before);
    EXPECT_EQ(ErrorOfRun("SELECT [id] * 1000000000 AS [big] INTO [broken] FROM [numbers]"), 3349);
    EXPECT_EQ(ErrorOfOpen("SELECT * FROM [broken]"), 3078) << "no table without its rows";
}

TEST_F(DaoStatementsTest, OpenRecordsetsKeepTheirRowsBesideChanges) {
    MakeNumbers(200);
    Run({"SELECT * INTO [other] FROM [numbers]", "SELECT * INTO [doomed] FROM [digits]"});
    CDaoRecordset rows(&database);
    rows.Open(dbOpenDynaset, "SELECT * FROM [numbers]");
    rows.Move(10);
    Run({"DROP TABLE [doomed]", "ALTER TABLE [other] ADD COLUMN [more] LONG",
         "DELETE * FROM [numbers] WHERE [id] > 20", "UPDATE [numbers] SET [name] = \"changed\""});
    COleVariant value;
    rows.GetFieldValue("name", value);
    EXPECT_EQ(TextOf(value), "n10");
    rows.MoveLast();
    rows.GetFieldValue("name", value);
    EXPECT_EQ(TextOf(value), "n199");
    EXPECT_EQ(rows.GetRecordCount(), 200);
    EXPECT_EQ(Rows("SELECT COUNT (*) AS [n] FROM [numbers]"), Texts{"21"});
}

TEST_F(DaoStatementsTest, DesignOfATableThatIsReadStaysAsItIs) {
    MakeNumbers(3);
    const char* const kRead[] = {
        "SELECT * FROM [Numbers]", "SELECT * FROM [numbers] WHERE [id] = 1",
        "SELECT * FROM [numbers] WHERE [id] = 99",
        "SELECT * FROM [digits] INNER JOIN [numbers] ON [digits].[d] = [numbers].[id]"};
    for (const char* select : kRead)
        for (int opening = 0; opening < 4; ++opening) {
            CDaoRecordset rows(&database);
            rows.Open(dbOpenDynaset, select);
            EXPECT_EQ(ErrorOfRun("DROP TABLE [numbers]"), 3211) << select;
            EXPECT_EQ(ErrorOfRun("ALTER TABLE [NUMBERS] ADD COLUMN [x] LONG"), 3211) << select;
            EXPECT_EQ(ErrorOfRun("ALTER TABLE [numbers] DROP COLUMN [name]"), 3211) << select;
        }
    Run({"ALTER TABLE [numbers] DROP COLUMN [name]", "DROP TABLE [numbers]"});
}

TEST_F(DaoStatementsTest, StatementsFollowTheTablesTheyName) {
    const std::string select = "SELECT * FROM [t] WHERE [a] = 1";
    for (int round = 0; round < 3; ++round) {
        Run({"CREATE TABLE [t] ([a] LONG, [b] TEXT(9))", "INSERT INTO [t] ([a],[b]) VALUES (1,\"one\")"});
        for (int reading = 0; reading < 4; ++reading)
            EXPECT_EQ(Rows(select), Texts{"1|one"});
        Run("ALTER TABLE [t] ADD COLUMN [c] SHORT");
        for (int reading = 0; reading < 4; ++reading)
            EXPECT_EQ(Rows(select), Texts{"1|one|-"});
        Run("ALTER TABLE [t] DROP COLUMN [b]");
        for (int reading = 0; reading < 4; ++reading)
            EXPECT_EQ(Rows(select), Texts{"1|-"});
        EXPECT_EQ(ErrorOfRun("UPDATE [t] SET [b] = \"x\""), 3061);
        Run("DROP TABLE [t]");
        EXPECT_EQ(ErrorOfOpen(select), 3078);
        Run({"CREATE TABLE [t] ([a] TEXT(5))", "INSERT INTO [t] ([a]) VALUES (\"1\")"});
        EXPECT_EQ(ErrorOfOpen(select), 3464) << "a number against what is a text now";
        Run("DROP TABLE [t]");
    }
}

// Every answer must be that of the moment, whoever changed the table, and however often it was asked before.
TEST_F(DaoStatementsTest, LookupsSeeEveryChange) {
    MakeNumbers(3000);
    Run("SELECT * INTO [other] FROM [numbers]");
    CDaoDatabase second;
    second.Open(Path().c_str());
    const auto check = [&](const char* when) {
        for (int reading = 0; reading < 4; ++reading) {
            const Texts plain = Rows(second, "SELECT * FROM [numbers] WHERE [id] + 0 = 1234");
            ASSERT_EQ(Rows("SELECT * FROM [numbers] WHERE [id] = 1234"), plain) << when;
            ASSERT_EQ(Rows("SELECT [name] FROM [numbers] WHERE [name] = \"N1234 \" AND [id] > 3").size(),
                      plain.size())
                << when;
        }
    };
    const auto runOn = [](CDaoDatabase& on, const char* sql) { on.Execute(sql); };
    check("at first");
    EXPECT_EQ(Rows("SELECT * FROM [numbers] WHERE [id] = 1234"), Texts{"1234|n1234"});
    for (CDaoDatabase* writer : {&database, &second}) {
        const char* const kChanges[] = {
            "UPDATE [numbers] SET [id] = -5 WHERE [id] = 1234",
            "UPDATE [numbers] SET [id] = 1234 WHERE [id] = -5",
            "INSERT INTO [numbers] ([id],[name]) VALUES (1234,\"n1234\")",
            "UPDATE [other] SET [name] = \"else\"",
            "DELETE * FROM [numbers] WHERE [id] = 1234",
            "INSERT INTO [numbers] ([id],[name]) VALUES (1234,\"n1234\")",
        };
        for (const char* change : kChanges) {
            runOn(*writer, change);
            check(change);
        }
    }
    runOn(second, "ALTER TABLE [numbers] ADD COLUMN [extra] LONG");
    check("after a change of design");
    runOn(second, "DROP TABLE [numbers]");
    EXPECT_EQ(ErrorOfOpen("SELECT * FROM [numbers] WHERE [id] = 1234"), 3078);
    runOn(second, "SELECT [name] AS [id], [id] AS [name] INTO [numbers] FROM [other]");
    EXPECT_EQ(ErrorOfOpen("SELECT * FROM [numbers] WHERE [id] = 1234"), 3464);
    EXPECT_EQ(Rows("SELECT * FROM [numbers] WHERE [name] = 1234"), Texts{"else|1234"});
}

// That the rows are stored in order is remembered for as long as nobody writes them.
TEST_F(DaoStatementsTest, RepeatedReadingsOfAWholeTableSeeEveryChange) {
    constexpr int kRows = 2000;
    MakeNumbers(kRows);
    CDaoDatabase second;
    second.Open(Path().c_str());
    std::size_t rows = kRows;
    for (int round = 0; round < 8; ++round)
        for (CDaoDatabase* writer : {&database, &second}) {
            writer->Execute("INSERT INTO [numbers] ([id],[name]) VALUES (-1,\"new\")");
            ++rows;
            for (int reading = 0; reading < round % 4 + 1; ++reading) {
                EXPECT_EQ(Rows("SELECT * FROM [numbers]").size(), rows);
                EXPECT_EQ(Rows("SELECT * FROM [numbers] ORDER BY [id]").front(), "-1|new");
            }
        }
}

TEST_F(DaoStatementsTest, RowsComeInOrderHoweverTheyAreStored) {
    Run("CREATE TABLE [t] ([n] DOUBLE, [i] LONG, [s] TEXT(9))");
    const auto check = [this](const char* order, const Texts& expected) {
        for (int reading = 0; reading < 2; ++reading)
            EXPECT_EQ(Rows(std::string("SELECT [i] FROM [t] ORDER BY ") + order), expected) << order;
    };
    Run({"INSERT INTO [t] VALUES (1,1,\"a\")", "INSERT INTO [t] VALUES (1.5,2,\"B\")",
         "INSERT INTO [t] VALUES (1.5,3,\"c\")", "INSERT INTO [t] VALUES (2,4,\"D\")"});
    for (const char* ascending : {"[i]", "[n]", "[n], [i]", "[s]", "[n]*[n], [i]", "5 - [i] DESC"})
        check(ascending, {"1", "2", "3", "4"});
    for (const char* descending :
         {"[i] DESC", "[n] DESC, [i] DESC", "[s] DESC", "5 - [i]", "[n] DESC, [s] DESC"})
        check(descending, {"4", "3", "2", "1"});
    check("[n] DESC, [i]", {"4", "2", "3", "1"});
    check("[n], [i] DESC", {"1", "3", "2", "4"});
    check("[n] DESC", {"4", "2", "3", "1"});
    Run("INSERT INTO [t] VALUES (NULL,5,NULL)");
    check("[n]", {"5", "1", "2", "3", "4"});
    check("[n] DESC, [i]", {"4", "2", "3", "1", "5"});
    check("[i]", {"1", "2", "3", "4", "5"});
    Run("UPDATE [t] SET [i] = 0 WHERE [i] = 3");
    check("[i]", {"0", "1", "2", "4", "5"});
    check("[i] DESC", {"5", "4", "2", "1", "0"});
    EXPECT_EQ(Rows("SELECT [i]+10 AS [j], \"x\" FROM [t] ORDER BY 7 - [i]"),
              (Texts{"15|x", "14|x", "12|x", "11|x", "10|x"}));
    CDaoRecordset back(&database);
    back.Open(dbOpenDynaset, "SELECT [i] FROM [t] ORDER BY [i] DESC");
    COleVariant field;
    back.MoveLast();
    Run("INSERT INTO [t] VALUES (9,9,\"late\")");
    for (const LONG expected : {0, 1, 2, 4, 5}) {
        back.GetFieldValue("i", field);
        EXPECT_EQ(V_I4(&field), expected);
        back.MovePrev();
    }
    EXPECT_TRUE(back.IsBOF());
    back.Close();
    Run("DELETE * FROM [t]");
    check("[i]", {});
}

// A recordset that is still being read shows the file as it was; what others are asked beside it must not be
// kept.
TEST_F(DaoStatementsTest, WhatIsReadBesideAnOlderReadingIsNotKept) {
    MakeNumbers(3000);
    const char* const kWhole = "SELECT [id] FROM [numbers] ORDER BY [id]";
    const char* const kOne = "SELECT [id] FROM [numbers] WHERE [id] = 7";
    CDaoDatabase second;
    second.Open(Path().c_str());
    CDaoRecordset older(&database);
    older.Open(dbOpenDynaset, "SELECT * FROM [numbers]");
    older.MoveNext();
    second.Execute("DELETE * FROM [numbers] WHERE [id] = 7");
    second.Execute("SELECT * INTO [made] FROM [numbers]");
    for (int reading = 0; reading < 4; ++reading) {
        EXPECT_EQ(Rows(kWhole).size(), 3000U);
        EXPECT_EQ(Rows(kOne).size(), 1U);
        EXPECT_EQ(ErrorOfOpen("SELECT * FROM [made]"), 3078);
    }
    older.Close();
    EXPECT_EQ(Rows(kWhole).size(), 2999U);
    EXPECT_EQ(Rows(kOne).size(), 0U);
    EXPECT_EQ(Rows("SELECT * FROM [made]").size(), 2999U);
}

// Names may be in memory that the caller writes again, or literals; asked for in one order or another.
TEST_F(DaoStatementsTest, FieldsAreFoundByWhatTheNameSaysNow) {
    Run({"CREATE TABLE [t] ([one] LONG, [two] LONG)", "INSERT INTO [t] VALUES (1,2)"});
    CDaoRecordset rows(&database);
    rows.Open(dbOpenDynaset, "SELECT * FROM [t]");
    const auto value = [&rows](const char* name) {
        COleVariant field;
        rows.GetFieldValue(name, field);
        return V_I4(&field);
    };
    char name[] = "one";
    for (int round = 0; round < 4; ++round) {
        EXPECT_EQ(value(std::strcpy(name, "one")), 1);
        EXPECT_EQ(value("two"), 2);
        EXPECT_EQ(value(std::strcpy(name, "TWO")), 2);
        EXPECT_EQ(value(std::strcpy(name, round % 2 == 0 ? "Two" : "oNe")), round % 2 == 0 ? 2 : 1);
        EXPECT_EQ(value("one"), 1);
        std::strcpy(name, "six");
        for (const char* unknown :
             {static_cast<const char*>(name), "six", "", static_cast<const char*>(nullptr)})
            EXPECT_EQ(DaoErrorOf([&] { value(unknown); }), 3265);
    }
}

TEST_F(DaoStatementsTest, ATableMadeAnewIsWrittenAsItIsNow) {
    for (const char* made :
         {"CREATE TABLE [t] ([a] LONG, [b] TEXT(3))", "CREATE TABLE [t] ([a] LONG, [b] TEXT(3))",
          "CREATE TABLE [t] ([b] TEXT(9), [a] LONG)", "SELECT 1 AS [a], \"\" AS [b] INTO [t]",
          "CREATE TABLE [t] ([a] LONG, [b] TEXT(3), [c] LONG)"}) {
        Run(made);
        const bool narrow = std::string(made).find("TEXT(3)") != std::string::npos;
        Run({"DELETE * FROM [t]", "INSERT INTO [t] ([a],[b]) VALUES (1,\"one\")"});
        EXPECT_EQ(ErrorOfRun("UPDATE [t] SET [b] = \"longer\" WHERE [a] = 1"), narrow ? 3163 : 0) << made;
        EXPECT_EQ(Rows("SELECT [b], [a] FROM [t]"), Texts{narrow ? "one|1" : "longer|1"}) << made;
        Run("DROP TABLE [t]");
        EXPECT_EQ(ErrorOfRun("DELETE * FROM [t]"), 3078);
    }
}

TEST_F(DaoStatementsTest, LookupsGiveTheRowsOfAPlainReading) {
    Run({"CREATE TABLE [t] ([n] DOUBLE, [s] TEXT(20), [rowid] LONG, [order] LONG)"});
    const char* const kValues[] = {"0,\"Straße\",9,1",   "1.5,\"STRASSE\",8,2", "1.5,\"Äpfel\",7,3",
                                   "-1,\"äPFEL  \",6,4", "3,\"\",5,5",          "NULL,NULL,4,6",
                                   "0,\"äpfel\",3,7",    "1.5,\"a\",2,8"};
    for (const char* values : kValues)
        Run(NarrowFromUtf8("INSERT INTO [t] ([n],[s],[rowid],[order]) VALUES (" + std::string(values) + ")"));
    struct Case {
        const char* where;
        Texts orders;
    };
    const Case cases[] = {
        {"[n] = 1.5", {"2", "3", "8"}},
        {"[n] = 0", {"1", "7"}},
        {"[n] = -0.0", {"1", "7"}},
        {"[n] = 2", {}},
        {"[s] = \"ÄPFEL\"", {"3", "4", "7"}},
        {"[s] = \"\"", {"5"}},
        {"[s] = \" \"", {"5"}},
        {"[rowid] = 7", {"3"}},
        {"[n] = 1.5 AND [s] = \"A\"", {"8"}},
        {"3 = [n]", {"5"}},
        {"[n] = 1.5 OR [n] = 0", {"1", "2", "3", "7", "8"}},
    };
    for (const Case& each : cases)
        for (int reading = 0; reading < 4; ++reading)
            EXPECT_EQ(Rows(NarrowFromUtf8("SELECT [order] FROM [t] WHERE " + std::string(each.where))),
                      each.orders)
                << each.where << ", reading " << reading;
}

TEST_F(DaoStatementsTest, ManyShapesAndManyLiteralsStayRight) {
    MakeNumbers(40);
    for (int round = 0; round < 2; ++round)
        for (int shape = 0; shape < 600; ++shape) {
            const std::string alias = "c" + std::to_string(shape);
            const std::string id = std::to_string(shape % 40);
            EXPECT_EQ(Rows("SELECT [name] AS [" + alias + "] FROM [numbers] WHERE [id] = " + id),
                      Texts{"n" + id});
        }
}

TEST_F(DaoStatementsTest, RunawayStatementsEnd) {
    MakeNumbers(42);
    Run("SELECT 1 AS [k], [id] INTO [same] FROM [numbers]");
    std::string from = "[same] AS [s0]";
    for (int join = 1; join <= 12; ++join) {
        const std::string alias = "[s" + std::to_string(join) + "]";
        from = "(" + from + " LEFT JOIN [same] AS " + alias + " ON [s0].[k] = " + alias + ".[k])";
    }
    const std::clock_t start = std::clock();
    const int counted = DaoErrorOf([&] {
        CDaoRecordset rows(&database);
        rows.Open(dbOpenDynaset, ("SELECT [s0].[id] FROM " + from).c_str());
        rows.MoveLast();
    });
    EXPECT_EQ(counted, 3035);
    EXPECT_EQ(ErrorOfOpen("SELECT [s0].* FROM " + from + " ORDER BY [s12].[id]"), 3035);
    EXPECT_LT(std::clock() - start, 20 * CLOCKS_PER_SEC);
    EXPECT_EQ(Rows("SELECT COUNT (*) AS [n] FROM [same]"), Texts{"42"}) << "the next statement runs";
}

TEST_F(DaoStatementsTest, ExternalTablesAreReadAlone) {
    MakeNumbers(6);
    const std::string other = support::CopySample(directory, "IdeInfo.mdb", "other.mdb");
    const std::string before = support::ReadFile(other);
    const std::string from = " FROM [mdbname] IN '' [;DATABASE=" + other + ";PWD=mivmiv]";
    EXPECT_EQ(Rows("SELECT [mdb_version]" + from + " WHERE [mdb_status] = \"Close\""), Texts{"1.4.0"});
    EXPECT_EQ(Run("SELECT [mdb_version] INTO [versions]" + from), 1);
    EXPECT_EQ(Run("INSERT INTO [versions] SELECT [mdb_version]" + from), 1);
    EXPECT_EQ(Rows("SELECT * FROM [versions]"), (Texts{"1.4.0", "1.4.0"}));
    EXPECT_EQ(ErrorOfOpen("SELECT * FROM [nothere] IN '' [;DATABASE=" + other + ";PWD=mivmiv]"), 3078);
    EXPECT_EQ(ErrorOfOpen("SELECT * FROM [mdbname] IN '' [;DATABASE=" + other + ";PWD=x]"), 3031);
    EXPECT_EQ(ErrorOfOpen("SELECT * FROM [mdbname] IN '' [;DATABASE=" + other + "x;PWD=mivmiv]"), 3024);
    EXPECT_EQ(ErrorOfOpen("SELECT * FROM [mdbname] IN '' [;PWD=mivmiv]"), 3321);
    EXPECT_EQ(ErrorOfOpen("SELECT * FROM [mdbname] IN '' [Other;DATABASE=" + other + "]"), 3170);
    EXPECT_EQ(support::ReadFile(other), before);
}

TEST_F(DaoStatementsTest, AnUnconvertedFileServesExternalReadingsAndCounts) {
    const std::string path = support::CopySample(directory, "IdeInfo.mdb", "sample.mdb");
    const std::string before = support::ReadFile(path);
    CDaoDatabase sample;
    sample.Open(path.c_str(), FALSE, FALSE, ";PWD=mivmiv");
    EXPECT_EQ(Rows(sample, "SELECT [mdb_status] FROM [mdbname] IN '' [;DATABASE=" + path + ";PWD=mivmiv]"),
              Texts{"Close"});
    EXPECT_EQ(sample.GetTableDefCount(), 109);
    EXPECT_EQ(support::ReadFile(path), before);
    EXPECT_EQ(Rows(sample, "SELECT COUNT (*) AS [n] FROM [nibble_ex_content_query]"), Texts{"175"});
    EXPECT_NE(support::ReadFile(path), before);
    CDaoRecordset rows(&sample);
    rows.Open(dbOpenDynaset, "SELECT * FROM [nibble_ex_content_query]");
    EXPECT_EQ(DaoErrorOf([&] { sample.Execute("DROP TABLE [nibble_ex_content]"); }), 3211)
        << "read through a query";
    rows.Close();
    EXPECT_EQ(sample.GetTableDefCount(), 109);
}

TEST_F(DaoStatementsTest, WritersMeetWithoutLoss) {
    MakeNumbers(50);
    CDaoDatabase second;
    second.Open(Path().c_str());
    CDaoRecordset rows(&database);
    rows.Open(dbOpenDynaset, "SELECT * FROM [numbers]");
    second.Execute("UPDATE [digits] SET [d] = 77");
    Run("DELETE * FROM [digits] WHERE [d] <> 77");
    EXPECT_EQ(database.GetRecordsAffected(), 0);
    EXPECT_EQ(Rows("SELECT COUNT (*) AS [n] FROM [digits]"), Texts{"10"});
    rows.MoveLast();
    EXPECT_EQ(rows.GetRecordCount(), 50);
}

}  // namespace
