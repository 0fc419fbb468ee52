#include <gtest/gtest.h>

#include <map>
#include <random>

#include "support/memory_database.h"

namespace {

using Rows = std::vector<std::string>;

class JetsqlAction : public testing::Test {
  protected:
    JetsqlAction() {
        database_.RunAll({
            "CREATE TABLE w (id LONG, [value] LONG, name TEXT(10))",
            "CREATE TABLE d ([key] LONG, name TEXT(10), [value] LONG, kind BYTE)",
            "INSERT INTO w VALUES (1, 10, \"one\")",
            "INSERT INTO w VALUES (2, 20, \"two\")",
            "INSERT INTO w VALUES (2, 21, \"two again\")",
            "INSERT INTO w VALUES (3, 30, \"three\")",
            "INSERT INTO d VALUES (2, \"a\", 200, 1)",
            "INSERT INTO d VALUES (3, \"b\", 300, 2)",
            "INSERT INTO d VALUES (2, \"c\", 150, 1)",
            "INSERT INTO d VALUES (9, \"e\", 900, 1)",
        });
    }

    Rows W() { return database_.Rows("SELECT * FROM w"); }

    MemoryDatabase database_;
};

TEST_F(JetsqlAction, TheLastStoredMatchWins) {
    EXPECT_EQ(
        database_.Run("UPDATE [w] INNER JOIN [d] ON ([w].[id] = [d]![key]) SET [w].[value] = [d].[value], "
                      "[w].[name] = [d].[name] WHERE ([d].[kind] = 1)"),
        2);
    EXPECT_EQ(W(), (Rows{"1|10|one", "2|150|c", "2|150|c", "3|30|three"}));
}

TEST_F(JetsqlAction, NewValuesComeFromOldRows) {
    database_.Run(
        "UPDATE d INNER JOIN w ON w.id = d.[key] SET w.[value] = w.[value] + d.[value], w.name = w.[value] & "
        "d.name");
    EXPECT_EQ(W(), (Rows{"1|10|one", "2|170|20c", "2|171|21c", "3|330|30b"}));
}

TEST_F(JetsqlAction, OuterAndSeveralJoins) {
    EXPECT_EQ(database_.Run("UPDATE w LEFT JOIN d ON w.id = d.[key] SET w.name = d.name"), 4);
    EXPECT_EQ(W(), (Rows{"1|10|-", "2|20|c", "2|21|c", "3|30|b"}));
    EXPECT_EQ(database_.Run("UPDATE (w INNER JOIN d ON w.id = d.[key]) INNER JOIN d AS e ON d.kind = e.kind "
                            "SET w.[value] = d.[value] + e.[value]"),
              3);
    EXPECT_EQ(W(), (Rows{"1|10|-", "2|1050|c", "2|1050|c", "3|600|b"}));
    EXPECT_EQ(database_.Run("UPDATE w, d SET w.[value] = 0 WHERE w.id = d.[key] AND kind = 2"), 1);
}

TEST_F(JetsqlAction, TableAndColumnMayShareTheirName) {
    database_.RunAll({"CREATE TABLE same (id LONG, same TEXT(10))", "INSERT INTO same VALUES (1, \"a\")",
                      "UPDATE [same] SET [same] = \"b\", [same].[id] = -2 WHERE [id] = 1"});
    EXPECT_EQ(database_.Rows("SELECT * FROM same"), Rows{"-2|b"});
}

TEST_F(JetsqlAction, InsertSelectMatchesByName) {
    EXPECT_EQ(
        database_.Run(
            "INSERT INTO w SELECT d.[value], d.name, [key] AS [ID] FROM d WHERE kind = 1 AND NOT EXISTS "
            "(SELECT * FROM w WHERE (id = d.[key] AND [value] = 21))"),
        1);
    EXPECT_EQ(W().back(), "9|900|e");
    EXPECT_EQ(database_.Run("INSERT INTO w ([value], id) SELECT [key], kind FROM d ORDER BY name DESC"), 4);
    EXPECT_EQ(W().back(), "1|2|-");
    EXPECT_EQ(database_.Run("INSERT INTO w SELECT * FROM w WHERE id = 3"), 1);
}

TEST_F(JetsqlAction, DeleteInItsThreeForms) {
    EXPECT_EQ(database_.Run("DELETE w.* FROM w INNER JOIN d ON w.id = d.[key] WHERE d.kind = 1"), 2);
    EXPECT_EQ(W(), (Rows{"1|10|one", "3|30|three"}));
    EXPECT_EQ(database_.Run("DELETE * FROM w WHERE id = ANY (SELECT [key] FROM d WHERE (d.kind = 2))"), 1);
    EXPECT_EQ(database_.Run("DELETE FROM d WHERE name = \"A\" OR kind = 2"), 2);
    EXPECT_EQ(database_.Run("DELETE FROM d"), 2);
}

TEST_F(JetsqlAction, CountersCountOn) {
    database_.RunAll({"CREATE TABLE c (n COUNTER, name TEXT(10))", "INSERT INTO c (name) VALUES (\"x\")",
                      "INSERT INTO c (name, n) VALUES (\"y\", 7)",
                      "INSERT INTO c (name) SELECT name FROM d ORDER BY name"});
    EXPECT_EQ(database_.Rows("SELECT n, name FROM c"), (Rows{"1|x", "7|y", "8|a", "9|b", "10|c", "11|e"}));
}

TEST_F(JetsqlAction, SelectIntoKeepsTypesAndOrder) {
    database_.Run("CREATE UNIQUE INDEX i ON d (name)");
    EXPECT_EQ(database_.Run("SELECT name, kind, [value] + 1 AS more, [key] INTO n FROM d ORDER BY name DESC"),
              4);
    EXPECT_EQ(database_.Rows("SELECT * FROM n"), (Rows{"e|1|901|9", "c|1|151|2", "b|2|301|3", "a|1|201|2"}));
    const jet::Table& table = *database_.FindTable("n");
    EXPECT_TRUE(table.indexes.empty());
    EXPECT_EQ(table.columns[0].size, 10);
    EXPECT_EQ(table.columns[1].type, jet::Type::Byte);
    EXPECT_EQ(table.columns[2].type, jet::Type::Long);
    EXPECT_EQ(database_.Run(
                  "SELECT a.*, b.* INTO both FROM d AS a, d AS b WHERE a.name = \"e\" AND b.name = \"a\""),
              1);
    EXPECT_EQ(database_.Rows("SELECT a_name, b_name FROM both"), Rows{"e|a"});
    EXPECT_EQ(database_.Run("SELECT * INTO none FROM d WHERE name = \"zzz\""), 0);
    EXPECT_EQ(database_.ErrorOf("SELECT * FROM none"), 0);
}

// Against a plain loop over the matches, on random tables: joins on two columns, matches in any number.
TEST_F(JetsqlAction, RandomJoinedUpdatesEqualALoop) {
    std::mt19937 random(7);
    const auto pick = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    for (int round = 0; round < 20; ++round) {
        MemoryDatabase database;
        database.RunAll({"CREATE TABLE t (a LONG, b SHORT, v LONG)",
                         "CREATE TABLE s (a LONG, b SHORT, v LONG, kind BYTE)"});
        struct Row {
            int a, b, v, kind;
        };
        std::vector<Row> target, source;
        for (int i = 0; i < 40; ++i) {
            target.push_back({pick(8), pick(3), i, 0});
            const Row& row = target.back();
            database.Run("INSERT INTO t VALUES (" + std::to_string(row.a) + "," + std::to_string(row.b) +
                         "," + std::to_string(row.v) + ")");
        }
        for (int i = 0; i < 30; ++i) {
            source.push_back({pick(8), pick(3), 1000 + pick(500), pick(3)});
            const Row& row = source.back();
            database.Run("INSERT INTO s VALUES (" + std::to_string(row.a) + "," + std::to_string(row.b) +
                         "," + std::to_string(row.v) + "," + std::to_string(row.kind) + ")");
        }
        int touched = 0;
        Rows expected;
        for (Row& row : target) {
            const int old = row.v;
            for (const Row& match : source) {
                if (match.a == row.a && match.b == row.b && match.kind != 1) row.v = match.v;
            }
            touched += row.v != old;
            expected.push_back(std::to_string(row.v));
        }
        if (round % 2 == 1) database.Run("CREATE INDEX i ON s (v DESC, a)");
        EXPECT_EQ(
            database.Run("UPDATE t INNER JOIN s ON t.a = s.a AND t.b = s.b SET t.v = s.v WHERE s.kind <> 1"),
            touched);
        EXPECT_EQ(database.Rows("SELECT v FROM t"), expected);
    }
}

TEST_F(JetsqlAction, JoinedUpdatesAndDeletesSearchByAnIndex) {
    for (const char* statement :
         {"UPDATE w INNER JOIN d ON w.id = d.[key] SET w.[value] = d.[value] WHERE d.kind = 1",
          "DELETE w.* FROM w INNER JOIN d ON w.id = d.[key]"}) {
        EXPECT_NE(database_.PlanOf(statement).find("AUTOMATIC"), std::string::npos)
            << database_.PlanOf(statement);
    }
}

}  // namespace
