// Stored queries, rebuilt from their rows.
#include <gtest/gtest.h>

#include "jet/error.h"
#include "jetfile/query_text.h"

namespace {

using jetfile::QueryRow;
using Rows = std::vector<QueryRow>;

QueryRow Part(int attribute, const std::string& name1, const std::string& name2,
              const std::string& expression, int flag = 0) {
    return {.attribute = attribute,
            .order = {},
            .name1 = name1,
            .name2 = name2,
            .expression = expression,
            .flag = flag};
}

QueryRow Options(int flag, const std::string& count = "") {
    return Part(3, count, "", "", flag);
}

QueryRow Table(const std::string& name, const std::string& alias = "") {
    return Part(5, name, alias, "");
}

QueryRow Column(const std::string& expression, const std::string& alias = "") {
    return Part(6, alias, "", expression);
}

QueryRow Join(const std::string& left, const std::string& right, const std::string& condition, int kind) {
    return Part(7, left, right, condition, kind);
}

TEST(JetQuery, SelectsOfEveryShape) {
    struct Case {
        Rows rows;
        const char* text;
    };
    for (const Case& c : std::vector<Case>{
             {{Options(1), Table("t")}, "SELECT * FROM [t];"},
             {{Options(1), Table("t"), Column("a")}, "SELECT a, * FROM [t];"},
             {{Part(1, "", "", "", 1), Options(2 | 4), Table("my table", "x"), Column("x.a", "b c"),
               Column("d")},
              "SELECT DISTINCT x.a AS [b c], d FROM [my table] AS [x] WITH OWNERACCESS OPTION;"},
             {{Options(8 | 0x10 | 0x20, "5"), Table("t"), Column("a")},
              "SELECT DISTINCTROW TOP 5 PERCENT a FROM [t];"},
             {{Part(2, "User Name", "", "", 10), Part(2, "n", "", "", 4), Table("t"), Column("a"),
               Part(8, "", "", "a=[n]")},
              "PARAMETERS [User Name] Text, [n] Long; SELECT a FROM [t] WHERE a=[n];"},
             {{Part(4, "c:\\x.mdb", "", ";PWD=y"), Table("t"), Column("a")},
              "SELECT a FROM [t] IN 'c:\\x.mdb' [;PWD=y];"},
             {{Part(5, "", "s", "SELECT 1 FROM q;\r\n"), Table("t"), Column("a")},
              "SELECT a FROM (SELECT 1 FROM q) AS [s], [t];"},
             {{Table("t"), Column("a"), Column("Count(b)", "n"), Part(9, "", "", "a"), Part(9, "", "", "c"),
               Part(10, "", "", "Count(b)>1"), Part(11, "", "", "a"), Part(11, "D", "", "c")},
              "SELECT a, Count(b) AS [n] FROM [t] GROUP BY a, c HAVING Count(b)>1 ORDER BY a, c DESC;"},
         }) {
        EXPECT_EQ(jetfile::SelectText(0, c.rows), c.text);
    }
}

TEST(JetQuery, JoinsNestInTheirOrder) {
    const auto from = [](Rows rows) {
        rows.push_back(Column("x"));
        const std::string text = jetfile::SelectText(0, rows);
        return text.substr(14, text.size() - 15);
    };
    EXPECT_EQ(from({Table("a"), Table("b"), Table("c"), Join("A", "b", "p", 2)}),
              "[a] LEFT JOIN [b] ON p, [c]");
    // A second condition between the same two tables, also when another join came between.
    EXPECT_EQ(from({Table("a"), Table("b"), Table("c"), Join("a", "b", "p", 1), Join("b", "c", "q", 3),
                    Join("a", "b", "r", 1)}),
              "([a] INNER JOIN [b] ON (p) AND (r)) RIGHT JOIN [c] ON q");
    EXPECT_EQ(from({Table("a"), Table("b"), Table("c"), Table("d", "e"), Join("a", "b", "p", 1),
                    Join("c", "e", "q", 1), Join("b", "e", "r", 1)}),
              "([a] INNER JOIN [b] ON p) INNER JOIN ([c] INNER JOIN [d] AS [e] ON q) ON r");
}

TEST(JetQuery, WhatIsNoSelectSaysSo) {
    struct Case {
        std::uint32_t flags;
        Rows rows;
        int error;
    };
    const Rows sound = {Table("t"), Column("a")};
    Rows tooMany(1000, Table("t"));
    tooMany.push_back(Column("a"));
    for (const Case& c : std::vector<Case>{
             {0x10, sound, 3064},
             {0x50, sound, 3064},
             {0x80, sound, 3064},
             {0xF0, sound, 3064},
             {0, {Part(1, "new", "", "", 2), Table("t"), Column("a")}, 3064},
             {0, {}, 3049},
             {0, {Table(""), Column("a")}, 3049},
             {0, {Table("a"), Column("x"), Join("a", "zzz", "p", 1)}, 3049},
             {0, {Table("a"), Column("x"), Join("a", "a", "p", 1)}, 3049},
             {0, {Table("a"), Table("b"), Column("x"), Join("a", "b", "p", 4)}, 3049},
             {0, {Table("a"), Table("b"), Column("x"), Join("a", "b", "p", 1), Join("a", "b", "q", 2)}, 3049},
             {0, {Part(2, "p", "", "", 99), Table("t"), Column("a")}, 3049},
             {0, tooMany, 3049},
         }) {
        try {
            ADD_FAILURE() << jetfile::SelectText(c.flags, c.rows);
        } catch (const jet::Error& error) {
            EXPECT_EQ(error.Number(), c.error) << error.what();
        }
    }
}

}  // namespace
