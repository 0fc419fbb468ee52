#include <gtest/gtest.h>

#include "support/memory_database.h"

namespace {

struct ErrorCase {
    int number;
    const char* statement;
};

// What is refused, by DAO's number for it.
constexpr ErrorCase kRefused[] = {
    // missing things
    {3078, "SELECT * FROM nothing"},
    {3078, "UPDATE nothing SET a = 1"},
    {3078, "DELETE * FROM nothing"},
    {3078, "INSERT INTO t SELECT * FROM nothing"},
    {3192, "INSERT INTO nothing (a) VALUES (1)"},
    {3061, "SELECT nix FROM t"},
    {3061, "SELECT t.nix FROM t"},
    {3061, "SELECT u.a FROM t"},
    {3061, "SELECT * FROM t WHERE n = nix"},
    {3061, "SELECT * FROM t ORDER BY nix"},
    {3061, "SELECT * FROM t WHERE n IN (SELECT nix FROM u)"},
    {3061, "SELECT * FROM t INNER JOIN u ON t.n = u.nix"},
    {3061, "UPDATE t SET nix = 1"},
    {3061, "UPDATE t SET n = nix"},
    {3061, "DELETE * FROM t WHERE nix = 1"},
    {3127, "INSERT INTO t (nix) VALUES (1)"},
    {3127, "INSERT INTO t SELECT n AS nix FROM u"},
    {3063, "INSERT INTO t (n, N) VALUES (1, 2)"},
    {3063, "INSERT INTO t SELECT n, k AS n FROM u"},
    {3063, "UPDATE t SET n = 1, t.n = 2"},
    {3346, "INSERT INTO t (n, s) VALUES (1)"},
    {3346, "INSERT INTO t VALUES (1)"},
    {3346, "INSERT INTO t (n) SELECT n, k FROM u"},
    {3079, "SELECT n FROM t, u"},
    {3079, "SELECT * FROM t INNER JOIN u ON n = k"},
    {3081, "SELECT * FROM t, t"},
    {3376, "DROP TABLE nothing"},
    {3376, "ALTER TABLE nothing ADD COLUMN a LONG"},
    {3380, "ALTER TABLE t ADD COLUMN N LONG"},
    {3381, "ALTER TABLE t DROP COLUMN nix"},
    {3280, "ALTER TABLE u DROP COLUMN k"},
    {3010, "SELECT * INTO u FROM t"},
    {3010, "CREATE TABLE T (a LONG)"},
    {3610, "SELECT * INTO [t] FROM [T]"},
    {3191, "CREATE TABLE x (a LONG, A SHORT)"},
    {3284, "CREATE INDEX ik ON u (n)"},
    {3372, "DROP INDEX nothing ON u"},
    {3409, "CREATE INDEX i2 ON u (nix)"},
    {3125, "CREATE TABLE sqlite_x (a LONG)"},
    // types
    {3464, "SELECT * FROM t WHERE n = \"5\""},
    {3464, "SELECT * FROM t WHERE \"5\" = n"},
    {3464, "SELECT * FROM t WHERE s = 12"},
    {3464, "SELECT * FROM t WHERE s IN (1, 2)"},
    {3464, "SELECT * FROM t WHERE n BETWEEN \"a\" AND \"b\""},
    {3464, "SELECT * FROM t WHERE n = ANY (SELECT w FROM u)"},
    {3464, "SELECT * FROM t WHERE s"},
    {3464, "SELECT s * 2 FROM t"},
    {3464, "DELETE * FROM t WHERE n = s"},
    {3615, "SELECT * FROM t INNER JOIN u ON t.n = u.w"},
    {3615, "UPDATE t INNER JOIN u ON t.s = u.k SET t.n = 1"},
    // queries that make no sense
    {3093, "SELECT DISTINCT s FROM t ORDER BY n"},
    {3096, "SELECT * FROM t WHERE COUNT(*) = 1"},
    {3096, "SELECT * FROM t WHERE EXISTS (SELECT MAX(t.n) FROM u)"},
    {3095, "SELECT MAX(COUNT(*)) FROM t"},
    {3122, "SELECT n FROM t ORDER BY COUNT(*)"},
    {3122, "SELECT n, COUNT(*) FROM t"},
    {3123, "SELECT *, COUNT(*) FROM t"},
    {3306, "SELECT * FROM t WHERE n = ANY (SELECT * FROM u)"},
    {3354, "SELECT * FROM t WHERE n = (SELECT k FROM u)"},
    {3138, "SELECT n FROM t ORDER BY 2"},
    {3085, "SELECT Sin(n) FROM t"},
    {3067, "SELECT *"},
    {3073, "UPDATE q SET n = 1"},
    {3073, "UPDATE t INNER JOIN u ON t.n = u.n SET t.n = 1, u.n = 2"},
    {3073, "DELETE * FROM q"},
    {3128, "DELETE FROM t INNER JOIN u ON t.n = u.n"},
    {3128, "DELETE * FROM t, u"},
    {3128, "DELETE x.* FROM t"},
    {3296, "SELECT * FROM t LEFT JOIN (u INNER JOIN u AS v ON u.n = v.n) ON t.n = u.n"},
    {3319, "SELECT n FROM t UNION SELECT n FROM u"},
    // syntax, by its place
    {3129, ""},
    {3129, "EXEC x"},
    {3129, "PRAGMA user_version"},
    {3129, "ATTACH 'x' AS y"},
    {3141, "SELECT FROM t"},
    {3141, "SELECT n, FROM t"},
    {3141, "SELECT TOP x n FROM t"},
    {3075, "SELECT n + FROM t"},
    {3075, "SELECT * FROM t WHERE"},
    {3075, "SELECT * FROM t WHERE n ="},
    {3075, "SELECT * FROM t WHERE (n = 1"},
    {3075, "SELECT * FROM t WHERE n = 1 n"},
    {3075, "SELECT * FROM t WHERE s = \"open"},
    {3075, "SELECT * FROM t WHERE s = \"say \"no\"\""},
    {3075, "SELECT * FROM t WHERE n = #nonsense#"},
    {3075, "SELECT * FROM t WHERE n = 1 < 2"},
    {3075, "SELECT * FROM t WHERE n IS 1"},
    {3075, "SELECT * FROM t WHERE n > ANY (SELECT k FROM u)"},
    {3075, "SELECT * FROM t WHERE n = ?"},
    {3142, "SELECT * FROM t WHERE n = 1; DROP TABLE t --"},
    {3126, "SELECT * FROM [t"},
    {3126, "SELECT [ n ] FROM t"},
    {3126, "SELECT [a.b] FROM t"},
    {3131, "SELECT n FROM"},
    {3131, "SELECT n FROM WHERE n = 1"},
    {3131, "SELECT n FROM a-b"},
    {3131, "SELECT n FROM t IN t"},
    {3135, "SELECT n FROM t INNER u ON t.n = u.n"},
    {3135, "SELECT n FROM t INNER JOIN u"},
    {3075, "SELECT t.n FROM t INNER JOIN u ON t.n = u.n INNER JOIN u AS v ON t.n = v.n"},
    {3138, "SELECT n FROM t ORDER n"},
    {3138, "SELECT n FROM t ORDER BY"},
    {3142, "SELECT n FROM t; SELECT n FROM t"},
    {3134, "INSERT t (n) VALUES (1)"},
    {3134, "INSERT INTO t (n) VALUES (1"},
    {3134, "INSERT INTO t (n) VALUES ()"},
    {3134, "INSERT INTO t (order) VALUES (1)"},
    {3144, "UPDATE t n = 1"},
    {3144, "UPDATE t SET n"},
    {3144, "UPDATE t SET n = WHERE n = 1"},
    {3290, "CREATE TABLE x"},
    {3290, "CREATE VIEW x AS SELECT * FROM t"},
    {3291, "CREATE UNIQUE x ON t (n)"},
    {3292, "CREATE TABLE x (a NONSENSE)"},
    {3292, "ALTER TABLE t ADD COLUMN a TEXT(999)"},
    {3293, "ALTER TABLE t RENAME TO x"},
    {3295, "DROP VIEW x"},
};

TEST(JetsqlError, EveryRefusalHasDaosNumber) {
    MemoryDatabase database;
    database.RunAll({"CREATE TABLE t (n LONG, s TEXT(10), b BIT)",
                     "CREATE TABLE u (n LONG, k SHORT, w TEXT(5))", "CREATE INDEX ik ON u (k)"});
    database.AddQuery("q", "SELECT * FROM t");
    for (const ErrorCase& refused : kRefused)
        EXPECT_EQ(database.ErrorOf(refused.statement), refused.number) << refused.statement;
}

TEST(JetsqlError, UnknownNamesAreCountedOnce) {
    MemoryDatabase database;
    database.Run("CREATE TABLE t (n LONG)");
    try {
        database.Run("SELECT nix FROM t WHERE NIX = 1 AND other > 2 AND t.nix = 3");
        FAIL();
    } catch (const std::exception& error) {
        EXPECT_NE(std::string(error.what()).find("Expected 3"), std::string::npos) << error.what();
    }
}

}  // namespace
