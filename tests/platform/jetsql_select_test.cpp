#include <gtest/gtest.h>

#include "support/memory_database.h"

namespace {

using Rows = std::vector<std::string>;

struct SelectCase {
    const char* statement;
    Rows rows;
};

class JetsqlSelect : public testing::Test {
  protected:
    JetsqlSelect() {
        database_.RunAll({
            "CREATE TABLE [Item] ([Id] LONG, [Name] TEXT(20), [size] SHORT, [order] BYTE, [fits] BIT, [note] "
            "MEMO)",
            "INSERT INTO Item VALUES (3, \"Bolt\", 10, 1, TRUE, \"long text\")",
            "INSERT INTO Item VALUES (1, \"nut \", 20, 2, FALSE, NULL)",
            "INSERT INTO Item VALUES (2, \"BOLT  \", 10, 3, TRUE, \"x\")",
            "INSERT INTO Item VALUES (4, NULL, NULL, 3, FALSE, \"\")",
            "CREATE TABLE [1stock] ([part_id] LONG, [place] TEXT(10), [count] LONG)",
            "INSERT INTO [1stock] VALUES (2, \"A\", 5)",
            "INSERT INTO [1stock] VALUES (1, \"B\", 7)",
            "INSERT INTO [1stock] VALUES (2, \"C\", 9)",
            "INSERT INTO [1stock] VALUES (9, \"D\", 1)",
        });
    }

    void Expect(std::initializer_list<SelectCase> cases) {
        for (const SelectCase& test : cases)
            EXPECT_EQ(database_.Rows(test.statement), test.rows) << test.statement;
    }

    MemoryDatabase database_;
};

TEST_F(JetsqlSelect, NamesQuotesAndBlanks) {
    Expect({
        {"SELECT [name] FROM [ITEM] WHERE [ID] =3", {"Bolt"}},
        {"select Item.[order],Item![size] from item where(item.id= 1 )  ", {"2|20"}},
        {"SELECT place FROM 1stock WHERE 1stock.count > 5;", {"B", "C"}},
        {"SELECT p.id FROM Item p WHERE p.name = 'bolt'", {"3", "2"}},
        {"SELECT id FROM Item WHERE name = \"say \"\"x\"\"\" OR name = 'it''s'", {}},
        {"SELECT id, size -1, size - -1, -size FROM Item WHERE id = 1", {"1|19|21|-20"}},
        {"SELECT COUNT (*) AS [Record] FROM [Item]", {"4"}},
        {"SELECT \"a!b[c]\" & 'SELECT' AS t FROM Item WHERE id = 1", {"a!b[c]SELECT"}},
    });
}

TEST_F(JetsqlSelect, RowsComeInStorageOrderAndTiesToo) {
    database_.Run("CREATE INDEX by_name ON Item (name, id)");
    database_.Run("CREATE UNIQUE INDEX by_id ON Item (id)");
    Expect({
        {"SELECT id FROM Item", {"3", "1", "2", "4"}},
        {"SELECT id FROM Item WHERE name >= \"a\"", {"3", "1", "2"}},
        {"SELECT id FROM Item ORDER BY size", {"4", "3", "2", "1"}},
        {"SELECT id FROM Item ORDER BY size DESC, 1", {"1", "2", "3", "4"}},
        {"SELECT id AS k FROM Item ORDER BY k DESC", {"4", "3", "2", "1"}},
        {"SELECT id AS [size] FROM Item ORDER BY [size]", {"4", "3", "2", "1"}},
        {"SELECT place, id FROM 1stock, Item WHERE part_id = id", {"A|2", "B|1", "C|2"}},
        {"SELECT id, place FROM Item LEFT JOIN 1stock ON id = part_id", {"3|-", "1|B", "2|A", "2|C", "4|-"}},
        {"SELECT id FROM Item WHERE id IN (1, 2, 3) ORDER BY 5 * 2, \"x\"", {"3", "1", "2"}},
    });
}

TEST_F(JetsqlSelect, DistinctSortsByItsColumns) {
    Expect({
        {"SELECT DISTINCT [name] FROM Item", {"-", "Bolt", "nut "}},
        {"SELECT DISTINCT size, [order] FROM Item", {"-|3", "10|1", "10|3", "20|2"}},
        {"SELECT DISTINCT size FROM Item ORDER BY size DESC", {"20", "10", "-"}},
        {"SELECT DISTINCT size AS s FROM Item ORDER BY s", {"-", "10", "20"}},
        {"SELECT COUNT(*) FROM (SELECT DISTINCT name FROM Item) AS names", {"3"}},
    });
}

TEST_F(JetsqlSelect, TextsCompareWithoutCaseAndTrailingBlanks) {
    Expect({
        {"SELECT id FROM Item WHERE \"NUT\" = name", {"1"}},
        {"SELECT id FROM Item WHERE name & \"\" = \"nUt\"", {"1"}},
        {"SELECT id FROM Item WHERE name <> \"bolt\"", {"1"}},
        {"SELECT id FROM Item WHERE name IN (\"NUT\", \"x\")", {"1"}},
        {"SELECT id FROM Item WHERE name BETWEEN \"C\" AND \"NUT\"", {"1"}},
        {"SELECT MAX(name), MIN(name & \"\") FROM Item WHERE id < 4", {"nut |Bolt"}},
        {"SELECT id FROM Item WHERE \"A\" = \"a \"", {"3", "1", "2", "4"}},
        {"SELECT a.id FROM Item a, Item b WHERE a.name = b.name AND b.id = 3", {"3", "2"}},
        {"SELECT name, COUNT(*) FROM Item GROUP BY name", {"-|1", "Bolt|2", "nut |1"}},
    });
}

TEST_F(JetsqlSelect, LikeKnowsJetsWildcards) {
    Expect({
        {"SELECT id FROM Item WHERE name LIKE \"b*\"", {"3", "2"}},
        {"SELECT id FROM Item WHERE name LIKE \"bolt\"", {"3"}},
        {"SELECT id FROM Item WHERE name NOT LIKE \"b*\"", {"1"}},
        {"SELECT id FROM Item WHERE name LIKE \"[a-c]?[!x]t\"", {"3"}},
        {"SELECT id FROM Item WHERE size LIKE \"1#\"", {"3", "2"}},
        {"SELECT id FROM Item WHERE name LIKE \"[a\"", {}},
        {"SELECT id FROM Item WHERE name LIKE \"%\"", {}},
    });
}

TEST_F(JetsqlSelect, SubqueriesBindInnerTablesFirst) {
    Expect({
        {"SELECT id FROM Item WHERE id = ANY (SELECT part_id FROM 1stock)", {"1", "2"}},
        {"SELECT id FROM Item WHERE id NOT IN (SELECT part_id FROM 1stock WHERE part_id < 9)", {"3", "4"}},
        {"SELECT id FROM Item WHERE id <> ALL (SELECT part_id FROM 1stock)", {"3", "4"}},
        {"SELECT id FROM Item WHERE NOT EXISTS (SELECT * FROM 1stock WHERE part_id = id)", {"3", "4"}},
        {"SELECT id FROM Item WHERE EXISTS (SELECT * FROM Item WHERE id = 77)", {}},
        {"SELECT id, (SELECT SUM([count]) FROM 1stock WHERE part_id = Item.id) FROM Item WHERE id < 3",
         {"1|7", "2|14"}},
        {"SELECT id FROM Item WHERE id = ANY (SELECT TOP 1 part_id FROM 1stock ORDER BY [count] DESC)",
         {"2"}},
    });
}

TEST_F(JetsqlSelect, JoinsNestInParentheses) {
    Expect({
        {"SELECT p.id, s.place, q.place FROM (Item AS p LEFT JOIN 1stock AS s ON p.id = s.part_id) "
         "LEFT JOIN 1stock AS q ON s.[count] = q.[count] WHERE p.id < 3",
         {"1|B|B", "2|A|A", "2|C|C"}},
        {"SELECT id, place FROM Item RIGHT JOIN 1stock ON id = part_id ORDER BY place",
         {"2|A", "1|B", "2|C", "-|D"}},
        {"SELECT a.id, c.place FROM Item a INNER JOIN (Item b INNER JOIN 1stock c ON b.id = c.part_id) "
         "ON a.size = b.size",
         {"3|A", "3|C", "1|B", "2|A", "2|C"}},
        {"SELECT a.id, c.place FROM Item a LEFT JOIN (Item b LEFT JOIN 1stock c ON b.id = c.part_id) "
         "ON a.id = b.id WHERE a.id < 4",
         {"3|-", "1|B", "2|A", "2|C"}},
        {"SELECT a.id, b.id FROM Item a, Item b INNER JOIN 1stock c ON b.id = c.part_id WHERE a.id = 4",
         {"4|1", "4|2", "4|2"}},
    });
}

TEST_F(JetsqlSelect, ConditionsAreMinusOneAsValues) {
    Expect({
        {"SELECT id = 3, NOT fits, fits AND size > 5 FROM Item WHERE id < 4",
         {"-1|0|-1", "0|-1|0", "0|0|-1"}},
        {"SELECT id FROM Item WHERE fits = TRUE", {"3", "2"}},
        {"SELECT id FROM Item WHERE fits = 1", {}},
        {"SELECT id FROM Item WHERE (size > 5) = -1 AND NOT fits", {"1"}},
        {"SELECT id FROM Item WHERE size IS NULL OR note IS NOT NULL AND note = \"X\"", {"2", "4"}},
        {"SELECT 1 = \"1\" FROM Item WHERE id = 1", {"0"}},
    });
}

TEST_F(JetsqlSelect, Arithmetic) {
    Expect({
        {"SELECT 7 / 2, 7 \\ 2, 7 MOD 3, -7 \\ 2, 2 + 3 * 4, (2 + 3) * 4", {"3.5|3|1|-3|14|20"}},
        {"SELECT 2.5 \\ 1, 3.5 \\ 1, 7 / 0", {"2|4|-"}},
        {"SELECT \"a\" & NULL & 1.5, \"a\" + \"b\", NULL & NULL", {"a1.5|ab|-"}},
        {"SELECT #12/31/1999# + 1 = #2000-01-01#, #1/2/2003 4:05:06 PM# & \"\"", {"-1|1/2/2003 4:05:06 PM"}},
        {"SELECT size, COUNT(*), AVG(id), SUM(size + 1) FROM Item GROUP BY size HAVING COUNT(*) > 1",
         {"10|2|2.5|22"}},
    });
}

TEST_F(JetsqlSelect, TopKeepsTies) {
    Expect({
        {"SELECT TOP 2 id FROM Item", {"3", "1"}},
        {"SELECT TOP 2 id FROM Item ORDER BY size", {"4", "3", "2"}},
        {"SELECT DISTINCT TOP 2 size FROM Item ORDER BY size DESC", {"20", "10"}},
        {"SELECT TOP 0 id FROM Item", {}},
    });
}

TEST_F(JetsqlSelect, StoredQueriesAreTables) {
    database_.AddQuery("big",
                       "SELECT Item.id, Item.name, 'it''s' AS [text] FROM [Item] WHERE Item.size >= 10 ");
    database_.AddQuery("Sorted", "SELECT id, name FROM big ORDER BY id DESC;");
    database_.AddQuery("endless", "SELECT * FROM endless2");
    database_.AddQuery("endless2", "SELECT * FROM endless");
    Expect({
        {"SELECT * FROM [Big]", {"3|Bolt|it's", "1|nut |it's", "2|BOLT  |it's"}},
        {"SELECT name FROM sorted WHERE id > 1 AND name = \"BOLT\"", {"Bolt", "BOLT  "}},
        {"SELECT q.id, place FROM sorted AS q INNER JOIN 1stock ON q.id = part_id", {"2|A", "2|C", "1|B"}},
        {"SELECT COUNT(*) FROM Sorted", {"3"}},
    });
    EXPECT_EQ(database_.ErrorOf("SELECT * FROM endless"), 3102);
}

TEST_F(JetsqlSelect, OutputNamesAndTypes) {
    const auto translation = jetsql::Translate(
        "SELECT a.*, b.[id], 1stock.count, [count] + 1, a.name AS [NAME] FROM Item a, Item b, 1stock WHERE "
        "a.id = 1",
        database_);
    std::vector<std::string> names;
    for (const jetsql::OutputColumn& column : translation.columns)
        names.push_back(column.name);
    EXPECT_EQ(names,
              (Rows{"a.Id", "a.Name", "size", "order", "fits", "note", "b.Id", "count", "Expr1000", "NAME"}));
    EXPECT_EQ(translation.columns[1].type, jet::Type::Text);
    EXPECT_EQ(translation.columns[1].size, 20);
    EXPECT_EQ(translation.columns[3].type, jet::Type::Byte);
    EXPECT_EQ(translation.tables, (Rows{"Item", "1stock"}));
}

TEST_F(JetsqlSelect, ExternalTablesAreAskedForByPathAndConnectString) {
    const std::string statement =
        "SELECT [place] FROM [1STOCK] IN '' [;DATABASE=C:\\a.b\\x!y.mdb;PWD=p q] WHERE [count] = 7";
    EXPECT_EQ(database_.Rows(statement), Rows{"B"});
    EXPECT_EQ(database_.externalConnect, ";DATABASE=C:\\a.b\\x!y.mdb;PWD=p q");
    EXPECT_EQ(database_.Rows("SELECT place FROM 1stock IN \"C:\\other.mdb\" WHERE [count] = 7"), Rows{"B"});
    EXPECT_EQ(database_.externalPath, "C:\\other.mdb");
    EXPECT_FALSE(jetsql::Translate(statement, database_).cacheable);
    EXPECT_TRUE(jetsql::Translate(statement, database_).tables.empty());
}

TEST_F(JetsqlSelect, LongConditionsStayWithinSqlitesLimits) {
    std::string statement = "SELECT id FROM Item WHERE id = 1";
    for (int i = 0; i < 3000; ++i)
        statement += " OR id = " + std::to_string(1000 + i);
    EXPECT_EQ(database_.Rows(statement), Rows{"1"});
    EXPECT_EQ(database_.ErrorOf("SELECT id FROM Item WHERE " + std::string(5000, '(') + "1" +
                                std::string(5000, ')')),
              3360);
    std::string sum = "SELECT 1";
    for (int i = 0; i < 5000; ++i)
        sum += "+1";
    EXPECT_EQ(database_.ErrorOf(sum), 3360);
}

}  // namespace
