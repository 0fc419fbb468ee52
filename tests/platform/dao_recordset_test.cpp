// Recordsets as a host of DAO sees them: navigation, types, names, and how they read.

#include <sqlite3.h>

#include <climits>

#include "dao/seam.h"
#include "support/dao_fixture.h"

namespace {

using support::DaoErrorOf;
using support::TextOf;

class DaoRecordsetTest : public support::DaoTest {
  protected:
    static std::string Field(CDaoRecordset& rows, LPCTSTR name) {
        COleVariant value;
        rows.GetFieldValue(name, value);
        return TextOf(value);
    }
};

constexpr int kNoCurrentRecord = 3021;

struct Move {
    const char* name;
    std::function<void(CDaoRecordset&)> run;
};

const std::vector<Move>& Moves() {
    static const std::vector<Move> moves{
        {"first", [](CDaoRecordset& rows) { rows.MoveFirst(); }},
        {"last", [](CDaoRecordset& rows) { rows.MoveLast(); }},
        {"prev", [](CDaoRecordset& rows) { rows.MovePrev(); }},
        {"back", [](CDaoRecordset& rows) { rows.Move(-2); }},
        {"stay", [](CDaoRecordset& rows) { rows.Move(0); }},
        {"next", [](CDaoRecordset& rows) { rows.MoveNext(); }},
        {"on", [](CDaoRecordset& rows) { rows.Move(2); }},
    };
    return moves;
}

// Where a recordset of three rows stands after a move, or the error: "B" and "E" for the ends, else the row.
std::string PlaceAfter(CDaoRecordset& rows, const Move& move) {
    const int number = DaoErrorOf([&] { move.run(rows); });
    if (number != 0) return std::to_string(number);
    if (rows.IsBOF()) return "B";
    if (rows.IsEOF()) return "E";
    COleVariant value;
    rows.GetFieldValue("id", value);
    return TextOf(value);
}

TEST_F(DaoRecordsetTest, MovesAreAllowedByState) {
    MakeNumbers(3);
    struct State {
        const char* name;
        const char* select;
        std::vector<long> way;
        std::vector<std::string> after;  // one per move of Moves()
    };
    const std::string all = "SELECT * FROM [numbers]";
    const State states[] = {
        {"BOF", all.c_str(), {-1}, {"0", "2", "3021", "3021", "3021", "0", "1"}},
        {"EOF", all.c_str(), {3}, {"0", "2", "2", "1", "3021", "3021", "3021"}},
        {"first row", all.c_str(), {}, {"0", "2", "B", "B", "0", "1", "2"}},
        {"last row", all.c_str(), {LONG_MAX}, {"0", "2", "1", "0", "2", "E", "E"}},
        {"last row after first", all.c_str(), {LONG_MAX, LONG_MIN, 2}, {"0", "2", "1", "0", "2", "E", "E"}},
        {"empty",
         "SELECT * FROM [numbers] WHERE [id] = 7",
         {},
         {"3021", "3021", "3021", "3021", "3021", "3021", "3021"}},
    };
    for (const State& state : states)
        for (std::size_t move = 0; move < Moves().size(); ++move) {
            CDaoRecordset rows(&database);
            rows.Open(dbOpenDynaset, state.select);
            for (const long step : state.way)
                rows.Move(step);
            EXPECT_EQ(PlaceAfter(rows, Moves()[move]), state.after[move])
                << state.name << ", " << Moves()[move].name;
        }
}

TEST_F(DaoRecordsetTest, EndsAreNoRows) {
    MakeNumbers(2);
    CDaoRecordset rows(&database);
    rows.Open(dbOpenDynaset, "SELECT * FROM [numbers] WHERE [id] > 5");
    EXPECT_TRUE(rows.IsBOF() && rows.IsEOF());
    EXPECT_EQ(rows.GetRecordCount(), 0);
    EXPECT_EQ(DaoErrorOf([&] { Field(rows, "id"); }), kNoCurrentRecord);
    rows.Close();
    rows.Open(dbOpenDynaset, "SELECT * FROM [numbers]");
    rows.MoveFirst();
    rows.Move(9);
    EXPECT_TRUE(rows.IsEOF() && !rows.IsBOF());
    EXPECT_EQ(DaoErrorOf([&] { Field(rows, "id"); }), kNoCurrentRecord);
    rows.Move(-9);
    EXPECT_TRUE(rows.IsBOF() && !rows.IsEOF());
    EXPECT_EQ(DaoErrorOf([&] { Field(rows, "id"); }), kNoCurrentRecord);
}

TEST_F(DaoRecordsetTest, CountGrowsWithTheRowsVisited) {
    MakeNumbers(50);
    CDaoRecordset rows(&database);
    rows.Open(dbOpenDynaset, "SELECT * FROM [numbers] ORDER BY [id] DESC");
    EXPECT_EQ(rows.GetRecordCount(), 1);
    rows.Move(4);
    EXPECT_EQ(rows.GetRecordCount(), 5);
    rows.MoveFirst();
    EXPECT_EQ(rows.GetRecordCount(), 5);
    rows.MoveLast();
    EXPECT_EQ(rows.GetRecordCount(), 50);
    EXPECT_EQ(Field(rows, "id"), "0");
    rows.MoveFirst();
    EXPECT_EQ(Field(rows, "name"), "n49");
}

TEST_F(DaoRecordsetTest, ValuesComeAsTheVariantTypeOfTheirColumn) {
    Run(
        {"CREATE TABLE [t] ([bit] BIT, [byte] BYTE, [short] SHORT, [long] LONG, [money] CURRENCY, [single] "
         "SINGLE, "
         "[double] DOUBLE, [date] DATETIME, [text] TEXT(20), [memo] MEMO, [number] COUNTER)",
         "INSERT INTO [t] "
         "([bit],[byte],[short],[long],[money],[single],[double],[date],[text],[memo],[number]) VALUES "
         "(True,200,-1,65535,12.5,0.1,0.25,#1/2/1900#,\"\",\"memo\",7)",
         "INSERT INTO [t] ([long]) VALUES (1)"});
    struct Case {
        const char* column;
        VARTYPE type;
        const char* text;
        LONG low;  // the low 32 bits, as a reader of numbers takes them from any type
    };
    const Case cases[] = {
        {"bit", VT_BOOL, "-1", 0xFFFF},   {"byte", VT_UI1, "200", 200},
        {"short", VT_I2, "-1", 0xFFFF},   {"long", VT_I4, "65535", 65535},
        {"money", VT_CY, "12.5", 125000}, {"single", VT_R4, "0.1", 0x3DCCCCCD},
        {"double", VT_R8, "0.25", 0},     {"date", VT_DATE, "3", 0},
        {"number", VT_I4, "7", 7},
    };
    CDaoRecordset rows(&database);
    rows.Open(dbOpenDynaset, "SELECT * FROM [t]");
    COleVariant value;
    for (const Case& each : cases) {
        value.Clear();
        value.llVal = -1;
        rows.GetFieldValue(each.column, value);
        EXPECT_EQ(value.vt, each.type) << each.column;
        EXPECT_EQ(TextOf(value), each.text) << each.column;
        EXPECT_EQ(value.lVal, each.low) << each.column;
    }
    EXPECT_EQ(Field(rows, "TEXT"), "");
    EXPECT_EQ(Field(rows, "memo"), "memo");
    rows.MoveNext();
    rows.GetFieldValue("text", value);
    EXPECT_EQ(value.vt, VT_NULL);
    EXPECT_EQ(value.llVal, 0);
    EXPECT_EQ(Field(rows, "bit"), "0") << "Yes/No is never Null";
    rows.Close();
    rows.Open(dbOpenDynaset, "SELECT COUNT (*) AS [Record] FROM [t]");
    rows.GetFieldValue("Record", value);
    EXPECT_EQ(value.vt, VT_I4);
}

TEST_F(DaoRecordsetTest, ColumnsAreFoundByNameWithoutCaseAndByPosition) {
    MakeNumbers(3);
    CDaoRecordset rows(&database);
    rows.Open(dbOpenDynaset, "SELECT [id] AS [Number], [name] FROM [numbers]");
    EXPECT_EQ(rows.GetFieldCount(), 2);
    EXPECT_STREQ(rows.GetFieldName(0), "Number");
    char name[] = "NUMBER";
    EXPECT_EQ(Field(rows, name), "0");
    std::copy_n("name\0", 5, name);
    EXPECT_EQ(Field(rows, name), "n0") << "the same address, another name";
    COleVariant value;
    for (const char* unknown : {"id", "", "nam", "names"})
        EXPECT_EQ(DaoErrorOf([&] { rows.GetFieldValue(unknown, value); }), 3265) << unknown;
    EXPECT_EQ(DaoErrorOf([&] { rows.GetFieldValue(2, value); }), 3265);
    EXPECT_EQ(DaoErrorOf([&] { rows.GetFieldValue(-1, value); }), 3265);
    EXPECT_EQ(value.vt, VT_EMPTY) << "cleared before it fails";
}

TEST_F(DaoRecordsetTest, ClosedObjectsSayThatTheyAreNotSet) {
    constexpr int kNotSet = 3420;
    MakeNumbers(2);
    CDaoRecordset rows(&database);
    COleVariant value;
    const std::function<void()> calls[] = {
        [&] { rows.IsBOF(); },          [&] { rows.IsEOF(); }, [&] { rows.MoveFirst(); },
        [&] { rows.GetRecordCount(); }, [&] { rows.Move(0); }, [&] { rows.GetFieldValue("id", value); },
        [&] { rows.GetFieldCount(); },
    };
    for (const auto& call : calls)
        EXPECT_EQ(DaoErrorOf(call), kNotSet);
    rows.Open(dbOpenDynaset, "SELECT * FROM [numbers]");
    CDaoQueryDef query(&database);
    query.Create(nullptr, "DELETE * FROM [numbers]");
    database.Close();
    database.Close();
    EXPECT_FALSE(rows.IsOpen() || query.IsOpen() || database.IsOpen());
    for (const auto& call : calls)
        EXPECT_EQ(DaoErrorOf(call), kNotSet);
    EXPECT_EQ(DaoErrorOf([&] { query.Execute(); }), kNotSet);
    EXPECT_EQ(DaoErrorOf([&] { query.Create(nullptr, "DELETE * FROM [numbers]"); }), kNotSet);
    EXPECT_EQ(DaoErrorOf([&] { database.GetTableDefCount(); }), kNotSet);
    EXPECT_EQ(ErrorOfOpen("SELECT * FROM [numbers]"), 3024);
    rows.Close();
    EXPECT_EQ(daoengine::seam::OpenRecordsets() + daoengine::seam::OpenQueries(), 0);
}

TEST_F(DaoRecordsetTest, LargeTableIsReadWithoutACopy) {
    constexpr int kRows = 100'000;
    MakeNumbers(kRows);
    sqlite3_memory_highwater(1);
    const auto before = sqlite3_memory_used();
    CDaoRecordset rows(&database);
    rows.Open(dbOpenDynaset, "SELECT * FROM [numbers]");
    rows.MoveLast();
    EXPECT_EQ(rows.GetRecordCount(), kRows);
    long sum = 0;
    COleVariant value;
    for (rows.MoveFirst(); !rows.IsEOF(); rows.MoveNext()) {
        rows.GetFieldValue("id", value);
        sum += value.lVal % 7;
    }
    EXPECT_EQ(sum, 299995);
    EXPECT_LT(sqlite3_memory_highwater(0) - before, 12 * 1024 * 1024);
}

}  // namespace
