#include <gtest/gtest.h>

#include "jetsql/collation.h"
#include "jetsql/ddl.h"
#include "jetsql/functions.h"
#include "support/memory_database.h"

namespace {

struct TypeCase {
    const char* words;
    jet::Type type;
    int size;
};

constexpr TypeCase kTypes[] = {
    {"LONG", jet::Type::Long, 0},
    {"Integer", jet::Type::Long, 0},
    {"SMALLINT", jet::Type::Integer, 0},
    {"BYTE", jet::Type::Byte, 0},
    {"YESNO", jet::Type::Boolean, 0},
    {"REAL", jet::Type::Single, 0},
    {"float", jet::Type::Double, 0},
    {"MONEY", jet::Type::Currency, 0},
    {"DATETIME", jet::Type::DateTime, 0},
    {"TEXT(50)", jet::Type::Text, 50},
    {"VARCHAR (7)", jet::Type::Text, 7},
    {"CHAR", jet::Type::Text, 255},
    {"TEXT", jet::Type::Memo, 0},
    {"MEMO", jet::Type::Memo, 0},
    {"OLEOBJECT", jet::Type::LongBinary, 0},
    {"BINARY(16)", jet::Type::Binary, 16},
    {"GUID", jet::Type::Guid, 0},
    {"COUNTER", jet::Type::Long, 0},
    {"DECIMAL(12, 3)", jet::Type::Decimal, 0},
};

// A type's words, through the parser, SQLite's declaration and back.
TEST(JetsqlDefinition, TypesSurvive) {
    for (const TypeCase& test : kTypes) {
        MemoryDatabase database;
        database.Run("CREATE TABLE t ([the column] " + std::string(test.words) + ")");
        const jet::Column& column = database.FindTable("t")->columns.at(0);
        EXPECT_EQ(column.type, test.type) << test.words;
        EXPECT_EQ(column.size, test.size) << test.words;
        const char* declared = nullptr;
        sqlite3_table_column_metadata(database.Connection(), "main", "t", "the column", &declared, nullptr,
                                      nullptr, nullptr, nullptr);
        const jet::Column back = jetsql::ColumnFromDeclaration("the column", declared);
        EXPECT_EQ(back.type, column.type) << declared;
        EXPECT_EQ(back.size, column.size) << declared;
        EXPECT_EQ(back.counter, column.counter) << declared;
        EXPECT_EQ(back.precision, column.precision) << declared;
        EXPECT_EQ(back.scale, column.scale) << declared;
    }
}

// A value of another kind must not change its kind on the way into a column.
TEST(JetsqlDefinition, AffinityLeavesValuesAlone) {
    MemoryDatabase database;
    database.RunAll({"CREATE TABLE t (m MEMO, g GUID, t TEXT(9), l LONG, d DOUBLE)",
                     "INSERT INTO t (m, t, l, d) VALUES (\"9\", \"007\", 3, 4)"});
    EXPECT_EQ(database.Rows("SELECT m & \"\", t, l, d FROM t"), std::vector<std::string>{"9|007|3|4.0"});
}

TEST(JetsqlDefinition, ColumnsComeAndGo) {
    MemoryDatabase database;
    database.RunAll(
        {"CREATE TABLE [odd \"name] ([a 1] LONG, [order] TEXT(5) NOT NULL, CONSTRAINT pk PRIMARY KEY ([a "
         "1]))",
         "INSERT INTO [odd \"name] VALUES (1, \"x\")", "ALTER TABLE [odd \"name] ADD COLUMN [flag] BIT",
         "ALTER TABLE [odd \"name] ADD [n] LONG", "ALTER TABLE [odd \"name] DROP COLUMN [order]"});
    EXPECT_EQ(database.Rows("SELECT * FROM [odd \"name] WHERE flag = FALSE"),
              std::vector<std::string>{"1|0|-"});
    EXPECT_EQ(database.ErrorOf("INSERT INTO [odd \"name] ([a 1]) VALUES (1)"), 3022);
    database.RunAll({"DROP INDEX pk ON [odd \"name]", "INSERT INTO [odd \"name] ([a 1]) VALUES (1)",
                     "CREATE UNIQUE INDEX two ON [odd \"name] ([n] DESC, [flag])", "DROP TABLE [odd \"name] ",
                     "CREATE TABLE [ODD \"NAME] (a LONG)"});
    EXPECT_EQ(database.ErrorOf("DROP TABLE [odd \"Name];"), 0);
}

TEST(JetsqlDefinition, ColumnsNamedLikeRowNumbersHideNothing) {
    MemoryDatabase database;
    database.RunAll({"CREATE TABLE t (rowid LONG, oid TEXT(3))", "CREATE TABLE s (rowid LONG, v TEXT(3))",
                     "INSERT INTO t VALUES (9, \"a\")", "INSERT INTO t VALUES (8, \"b\")",
                     "INSERT INTO s VALUES (9, \"y\")", "INSERT INTO s VALUES (9, \"x\")",
                     "UPDATE t INNER JOIN s ON t.rowid = s.rowid SET t.oid = s.v"});
    EXPECT_EQ(database.Rows("SELECT * FROM t"), (std::vector<std::string>{"9|x", "8|b"}));
    EXPECT_EQ(database.Run("DELETE t.* FROM t INNER JOIN s ON t.rowid = s.rowid"), 1);
}

TEST(JetsqlDefinition, CollationFoldsCaseAndDropsTrailingBlanks) {
    const std::pair<const char*, const char*> equal[] = {{"abc", "ABC  "},
                                                         {"", "   "},
                                                         {"\xC3\x84", "\xC3\xA4 "},
                                                         {"\xD0\x96", "\xD0\xB6"},
                                                         {"\xEF\xBC\xA1", "\xEF\xBD\x81"}};
    for (const auto& [a, b] : equal)
        EXPECT_EQ(jetsql::CompareTexts(a, b), 0) << a << " " << b;
    const std::pair<const char*, const char*> ascending[] = {{"", "a"},
                                                             {" a", "a"},
                                                             {"a", "B"},
                                                             {"A_", "Aa"},
                                                             {"ab", "abc"},
                                                             {"z", "\xC3\xA4"},
                                                             {"\xE3\x81\x82", "\xE3\x81\x84"},
                                                             {"a\xFF", "a\xFF\xFF"}};
    for (const auto& [a, b] : ascending) {
        EXPECT_LT(jetsql::CompareTexts(a, b), 0) << a << " " << b;
        EXPECT_GT(jetsql::CompareTexts(b, a), 0) << a << " " << b;
    }
}

TEST(JetsqlDefinition, FunctionErrorsKeepTheirNumber) {
    EXPECT_EQ(jetsql::ErrorFromMessage("jet:3163:too long")->Number(), 3163);
    for (const char* message : {"no such table: jet:3163:", "jet:", "jet:x:y", "jet:31", ""}) {
        EXPECT_FALSE(jetsql::ErrorFromMessage(message)) << message;
    }
    EXPECT_FALSE(jetsql::ErrorFromMessage(nullptr));
}

}  // namespace
