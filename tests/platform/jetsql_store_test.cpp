#include <gtest/gtest.h>

#include "support/memory_database.h"

namespace {

struct StoreCase {
    const char* column;
    const char* value;
    const char* stored;  // or the error's number
};

constexpr StoreCase kStored[] = {
    {"by", "255", "255"},
    {"by", "256", "3349"},
    {"by", "-1", "3349"},
    {"sh", "-32768", "-32768"},
    {"sh", "32768", "3349"},
    {"sh", "2.5", "2"},
    {"sh", "3.5", "4"},
    {"sh", "-2.5", "-2"},
    {"sh", "\" 12 \"", "12"},
    {"sh", "\"12x\"", "3421"},
    {"sh", "\"\"", "3421"},
    {"lo", "2147483647", "2147483647"},
    {"lo", "2147483648", "3349"},
    {"lo", "-2147483648", "-2147483648"},
    {"lo", "1E3", "1000"},
    {"lo", "TRUE", "-1"},
    {"bo", "7", "-1"},
    {"bo", "0", "0"},
    {"bo", "NULL", "0"},
    {"bo", "\"true\"", "-1"},
    {"bo", "lo = 1", "0"},
    {"si", "16777217", "16777216.0"},
    {"si", "1e39", "3349"},
    {"cu", "1.23456", "1.2346"},
    {"cu", "0.00005", "0.0"},
    {"cu", "1e15", "3349"},
    {"do", "\"1.5\"", "1.5"},
    {"da", "#12/30/1899#", "0.0"},
    {"da", "\"2000-02-29\"", "36585.0"},
    {"da", "\"2001-02-29\"", "3421"},
    {"da", "#12/29/1899 6:00 AM#", "-1.25"},
    {"da", "1e9", "3349"},
    {"te", "\"12345\"", "12345"},
    {"te", "\"123456\"", "3163"},
    {"te", "\"\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4\"", "\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4"},
    {"te", "\"123\xF0\x9F\x94\xA9\"", "123\xF0\x9F\x94\xA9"},
    {"te", "\"1234\xF0\x9F\x94\xA9\"", "3163"},
    {"te", "1.5", "1.5"},
    {"te", "123456", "3163"},
    {"me", "#1/2/2000#", "1/2/2000"},
    {"gu", "\"{0123abcd-0000-1111-2222-0123456789AB}\"", "{0123abcd-0000-1111-2222-0123456789AB}"},
    {"gu", "\"0123abcd\"", "3421"},
    {"bi", "\"x\"", "3421"},
    {"de", "1.256", "1.26"},
};

std::string Outcome(MemoryDatabase& database, const std::string& statement, const std::string& column) {
    const int error = database.ErrorOf(statement);
    if (error != 0) return std::to_string(error);
    return database.Rows("SELECT [" + column + "] FROM t").back();
}

class JetsqlStore : public testing::Test {
  protected:
    JetsqlStore() {
        database_.Run(
            "CREATE TABLE t ([by] BYTE, sh SHORT, lo LONG, bo BIT, si SINGLE, cu CURRENCY, [do] DOUBLE, "
            "da DATETIME, te TEXT(5), me MEMO, gu GUID, bi BINARY(4), de DECIMAL(10,2))");
    }

    MemoryDatabase database_;
};

TEST_F(JetsqlStore, LiteralsConvertToTheColumn) {
    for (const StoreCase& test : kStored) {
        const std::string column = test.column, value = test.value;
        if (column != "bo" || value != "lo = 1") {
            EXPECT_EQ(Outcome(database_, "INSERT INTO t ([" + column + "]) VALUES (" + value + ")", column),
                      test.stored)
                << column << " = " << value;
        }
        database_.RunAll({"DELETE FROM t", "INSERT INTO t (lo) VALUES (5)"});
        EXPECT_EQ(Outcome(database_, "UPDATE t SET [" + column + "] = " + value, column), test.stored)
            << column << " = " << value;
        database_.Run("DELETE FROM t");
    }
}

TEST_F(JetsqlStore, ColumnsConvertToOtherColumns) {
    database_.Run(
        "INSERT INTO t (sh, si, [do], da, te, me, lo) VALUES (300, 0.1, 2.5, #1/1/2000 1:00 PM#, \"12\", "
        "\"long text\", 70000)");
    const StoreCase cases[] = {
        {"by", "sh", "3349"},    {"lo", "[do]", "2"},
        {"te", "si", "0.1"},     {"te", "sh", "300"},
        {"sh", "te", "12"},      {"te", "me", "3163"},
        {"sh", "me", "3421"},    {"me", "da", "1/1/2000 1:00:00 PM"},
        {"si", "lo", "70000.0"}, {"sh", "lo", "3349"},
        {"cu", "[do]", "2.5"},   {"bo", "[do]", "-1"},
        {"me", "bo", "0"},
    };
    for (const StoreCase& test : cases) {
        const std::string column = test.column, value = test.value;
        database_.RunAll({"SELECT * INTO kept FROM t"});
        EXPECT_EQ(Outcome(database_, "UPDATE t SET [" + column + "] = " + value, column), test.stored)
            << column << " = " << value;
        database_.RunAll({"DELETE FROM t", "INSERT INTO t SELECT * FROM kept", "DROP TABLE kept"});
    }
}

TEST_F(JetsqlStore, EqualTypesNeedNoConversion) {
    database_.Run(
        "CREATE TABLE s ([by] BYTE, sh SHORT, lo LONG, bo BIT, si SINGLE, cu CURRENCY, [do] DOUBLE, da "
        "DATETIME, "
        "te TEXT(5), me MEMO, gu GUID, bi BINARY(4))");
    for (const char* statement :
         {"INSERT INTO t SELECT * FROM s",
          "UPDATE t INNER JOIN s ON t.lo = s.lo SET t.te = s.te, t.sh = s.[by], "
          "t.lo = s.sh, t.[do] = s.lo, t.me = s.te, t.bo = s.bo, t.da = s.da, t.si = s.si"}) {
        const std::string sql = jetsql::Translate(statement, database_).sql;
        EXPECT_EQ(sql.find("jet_"), std::string::npos) << sql;
    }
}

TEST_F(JetsqlStore, AFailingStatementStoresNothing) {
    database_.RunAll({"INSERT INTO t (lo) VALUES (1)", "INSERT INTO t (lo) VALUES (300)"});
    EXPECT_EQ(database_.ErrorOf("UPDATE t SET [by] = lo"), 3349);
    EXPECT_EQ(database_.ErrorOf("INSERT INTO t ([by]) SELECT lo FROM t"), 3349);
    EXPECT_EQ(database_.Rows("SELECT [by], lo FROM t"), (std::vector<std::string>{"-|1", "-|300"}));
}

}  // namespace
