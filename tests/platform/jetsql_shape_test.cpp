#include <gtest/gtest.h>

#include "support/memory_database.h"

namespace {

using jetsql::Literal;
using jetsql::ShapeOf;

struct PairCase {
    const char* first;
    const char* second;
    bool same;
};

constexpr PairCase kPairs[] = {
    {"SELECT * FROM [t] WHERE a = 1", "SELECT * FROM [t] WHERE a = 25", true},
    {"SELECT * FROM [t] WHERE a = 1", "SELECT * FROM [t]   WHERE\ta = 25  ", true},
    {"SELECT * FROM [t] WHERE a = 1", "SELECT * FROM [t] WHERE a = -25", true},
    {"SELECT * FROM [t] WHERE a = 1", "SELECT * FROM [t] WHERE a = - 25", true},
    {"SELECT * FROM [t] WHERE a = 1", "SELECT * FROM [t] WHERE a = 1.5", false},
    {"SELECT * FROM [t] WHERE a = 1", "SELECT * FROM [t] WHERE a = 3000000000", false},
    {"SELECT * FROM [t] WHERE a = 1", "SELECT * FROM [t] WHERE a = \"1\"", false},
    {"SELECT * FROM [t] WHERE a = 1", "SELECT * FROM [t] WHERE b = 1", false},
    {"SELECT * FROM [t] WHERE a = \"x\"", "SELECT * FROM [t] WHERE a = 'it''s'", true},
    {"SELECT a FROM t ORDER BY 1", "SELECT a FROM t ORDER BY 2", false},
    {"SELECT TOP 1 a FROM t", "SELECT TOP 2 a FROM t", false},
    {"SELECT a FROM t WHERE b = (SELECT MAX(c) FROM u) AND d = 1",
     "SELECT a FROM t WHERE b = (SELECT MAX(c) FROM u) AND d = 2", true},
    {"SELECT a FROM t WHERE b IN (SELECT TOP 1 c FROM u ORDER BY 1) AND d = 1",
     "SELECT a FROM t WHERE b IN (SELECT TOP 1 c FROM u ORDER BY 1) AND d = 2", true},
    {"SELECT a FROM t IN '' [;DATABASE=x]", "SELECT a FROM t IN '' [;DATABASE=y]", false},
    {"SELECT a FROM t IN 'x'", "SELECT a FROM t IN 'y'", false},
    {"SELECT a FROM t WHERE b IN (1, 2)", "SELECT a FROM t WHERE b IN (3, 4)", true},
    {"CREATE TABLE t (a TEXT(10))", "CREATE TABLE t (a TEXT(20))", false},
    {"SELECT a -1 FROM t", "SELECT a -2 FROM t", true},
    {"SELECT a FROM 1t", "SELECT a FROM 2t", false},
    {"SELECT a FROM t WHERE b = \"open", "SELECT a FROM t WHERE b = \"close", false},
};

TEST(JetsqlShape, ShapesAreEqualWhenOnlyLiteralsDiffer) {
    for (const PairCase& pair : kPairs) {
        EXPECT_EQ(ShapeOf(pair.first).key == ShapeOf(pair.second).key, pair.same) << pair.first << "\n"
                                                                                  << pair.second;
    }
    const std::string forged = "SELECT * FROM [t] WHERE a = \x01";  // what a literal leaves in a key
    EXPECT_NE(ShapeOf(forged).key, ShapeOf("SELECT * FROM [t] WHERE a = 1").key);
}

TEST(JetsqlShape, LiteralsComeInOrderWithTheirValues) {
    const auto literals =
        ShapeOf(
            "SELECT -1, a -2, 'q''q', \"w\"\"'\", .5, 1e2, - 7, #1/1/1900#, -2147483648, 2147483648 "
            "FROM [t 5] WHERE 3t.b5 = 6 ORDER BY 1, \"x\"")
            .literals;
    const std::vector<Literal> expected = {std::int64_t{-1},
                                           std::int64_t{2},
                                           "q'q",
                                           "w\"'",
                                           0.5,
                                           100.0,
                                           std::int64_t{-7},
                                           2.0,
                                           std::int64_t{-2147483648LL},
                                           2147483648.0,
                                           std::int64_t{6}};
    EXPECT_EQ(literals, expected);
}

// A translation made for one statement serves every statement of its shape.
TEST(JetsqlShape, OneTranslationServesAllLiterals) {
    MemoryDatabase database;
    database.RunAll({"CREATE TABLE t (a LONG, s TEXT(9))", "INSERT INTO t VALUES (1, \"x\")",
                     "INSERT INTO t VALUES (-5, \"y\")"});
    const std::pair<const char*, const char*> pairs[] = {
        {"SELECT a FROM t WHERE a = 1 AND s = \"X\"", "SELECT a FROM t WHERE a = -5 AND s = \"y \""},
        {"SELECT a - 1 FROM t WHERE 2 > a", "SELECT a - 7 FROM t WHERE -2 > a"},
        {"SELECT TOP 1 a FROM t WHERE a < 5 ORDER BY 1", "SELECT TOP 1 a FROM t WHERE a < -1 ORDER BY 1"},
    };
    for (const auto& [first, second] : pairs) {
        EXPECT_EQ(ShapeOf(first).key, ShapeOf(second).key);
        EXPECT_EQ(jetsql::Translate(first, database).sql, jetsql::Translate(second, database).sql);
    }
    EXPECT_EQ(database.Rows(pairs[1].second), std::vector<std::string>{"-12"});
}

TEST(JetsqlShape, EqualityLookups) {
    MemoryDatabase database;
    database.RunAll({"CREATE TABLE t ([Id] LONG, s TEXT(9), d DOUBLE)", "CREATE TABLE u (x LONG)",
                     "INSERT INTO t VALUES (4, \"x\", 1)", "INSERT INTO t VALUES (4, \"y\", 2)"});
    const std::pair<const char*, std::vector<std::string>> cases[] = {
        {"SELECT * FROM t WHERE id = 4", {"Id0"}},
        {"SELECT * FROM [t] WHERE (d > 0 AND (\"x\" = s AND [t].[id] = 4))", {"s1", "Id2"}},
        {"SELECT * FROM t WHERE id = 4 OR s = \"x\"", {}},
        {"SELECT * FROM t WHERE NOT id = 4", {}},
        {"SELECT * FROM t WHERE id <> 4", {}},
        {"SELECT * FROM t WHERE id = 4 ORDER BY s", {"Id0"}},
        {"SELECT DISTINCT s FROM t WHERE id = 4", {"Id0"}},
        {"SELECT COUNT(*) FROM t WHERE id = 4", {}},
        {"SELECT * FROM t, u WHERE id = 4", {}},
    };
    for (const auto& [statement, expected] : cases) {
        std::vector<std::string> found;
        for (const auto& lookup : jetsql::Translate(statement, database).lookups) {
            found.push_back(lookup.column + std::to_string(lookup.literal));
        }
        EXPECT_EQ(found, expected) << statement;
    }
    const auto lookup =
        jetsql::Translate("SELECT s FROM t WHERE id = 4 AND s = \"y\"", database).lookups.at(0);
    sqlite3_stmt* byRow = nullptr;
    ASSERT_EQ(sqlite3_prepare_v2(database.Connection(), lookup.sqlByRow.c_str(), -1, &byRow, nullptr),
              SQLITE_OK)
        << lookup.sqlByRow;
    sqlite3_bind_int(byRow, 1, 4);
    sqlite3_bind_text(byRow, 2, "Y", -1, SQLITE_STATIC);
    for (const int row : {1, 2}) {
        sqlite3_bind_int(byRow, 3, row);
        EXPECT_EQ(sqlite3_step(byRow), row == 2 ? SQLITE_ROW : SQLITE_DONE);
        sqlite3_reset(byRow);
    }
    sqlite3_finalize(byRow);
}

}  // namespace
