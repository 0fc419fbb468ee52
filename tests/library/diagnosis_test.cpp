#include <gmock/gmock.h>

#include <memory>

#include "library/monitor_tables.h"
#include "support/library_fixture.h"

namespace {

using namespace support;
using namespace monitor_tables;

constexpr std::uint32_t kAlarm = 0xA100;

// Axis 1 has the monitor table T.
class DiagnosisTest : public LibraryTest {
  protected:
    DiagnosisTest() {
        UseDatabase(kRegistry);
        std::string columns =
            "[alarm_code] LONG, [type] LONG, [priority] SHORT, [confirm] LONG, [factor] LONG, "
            "[plan] LONG";
        for (const char* name : {"fixed_id", "condition", "value"}) {
            for (int i = 1; i <= 10; ++i)
                columns += ", [" + std::string(name) + "_" + std::to_string(i) + "] LONG";
        }
        Execute({Create("alarm_diag", columns),
                 "CREATE TABLE [FunctionStrings] ([string_id] LONG, [string] MEMO)",
                 "INSERT INTO [FunctionStrings] VALUES (1,'how')",
                 "INSERT INTO [FunctionStrings] VALUES (2,'what')",
                 "INSERT INTO [FunctionStrings] VALUES (3,'do')",
                 Create("T", "[monitor_id] LONG, [fixed_id] SHORT"), "INSERT INTO [T] VALUES (501,51)",
                 "INSERT INTO [T] VALUES (502,52)",
                 "INSERT INTO [tablemanager] ([axis_num],[monitor_table]) VALUES (1,'T')",
                 "INSERT INTO [tablemanager] ([axis_num]) VALUES (2)"});
    }

    // A diagnosis of the alarm: named columns and their values.
    void Add(const std::string& columns, const std::string& values) {
        Execute({"INSERT INTO [alarm_diag] ([alarm_code]," + columns + ") VALUES (41216," + values + ")"});
    }

    static std::uint16_t Count(std::uint32_t mask) {
        std::uint16_t count = 99;
        EXPECT_EQ(KaloGetAlarmDiagDataNum(1, kAlarm, mask, &count), 0u);
        EXPECT_FALSE(TableExists("tempAlarm_diag"));
        return count;
    }

    static KaloStatus Read(std::int32_t mask, KaloAlarmDiagnosis* diagnoses) {
        const KaloStatus status = KaloGetAlarmDiagData(1, kAlarm, mask, diagnoses);
        EXPECT_FALSE(TableExists("tempAlarm_diag"));
        return status;
    }
};

TEST_F(DiagnosisTest, TypesSelectAndPrioritiesOrder) {
    Add("[type],[priority],[confirm]", "4,2,1");
    Add("[type],[priority],[confirm]", "0,3,2");
    Add("[type],[priority],[confirm]", "6,1,3");
    Execute({"INSERT INTO [alarm_diag] ([alarm_code],[type]) VALUES (5,0)"});
    const struct {
        std::int32_t mask;
        std::vector<std::string> confirm;
    } cases[] = {{0, {"what"}}, {2, {"do", "what"}}, {4, {"do", "how", "what"}}, {0x10008, {"what"}}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.mask);
        ASSERT_EQ(Count(static_cast<std::uint32_t>(c.mask)), c.confirm.size());
        Guarded<KaloAlarmDiagnosis[3]> guarded;
        EXPECT_EQ(Read(c.mask, guarded.record), 0u);
        for (std::size_t i = 0; i < c.confirm.size(); ++i)
            EXPECT_EQ(guarded.record[i].confirm, c.confirm[i]);
        EXPECT_TRUE(guarded.GuardsIntact());
    }
    std::uint16_t count = 99;
    EXPECT_EQ(KaloGetAlarmDiagDataNum(1, 77, 0, &count), 0u);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(KaloGetAlarmDiagData(1, 77, 0, nullptr), 0u) << "nothing to write";
}

TEST_F(DiagnosisTest, TextsAndConditionsFillTheRecord) {
    Add("[type],[confirm],[factor],[plan],[fixed_id_1],[condition_1],[value_1],[fixed_id_2],[condition_2],["
        "value_2],"
        "[condition_3],[fixed_id_4],[condition_4],[value_4],[fixed_id_5],[condition_5]",
        "0,1,2,99,52,3,-4,77,5,6,NULL,51,7,8,51,65535");
    Guarded<KaloAlarmDiagnosis> guarded;
    const KaloAlarmDiagnosis& diagnosis = guarded.record;
    ASSERT_EQ(Read(0, &guarded.record), 0u);
    EXPECT_STREQ(diagnosis.confirm, "how");
    EXPECT_STREQ(diagnosis.factor, "what");
    EXPECT_STREQ(diagnosis.plan, "");
    const std::uint32_t expected[10][3] = {
        {502, 3, 0xFFFFFFFC}, {65535, 5, 6}, {65535, 65535, 0}, {501, 7, 8}};
    EXPECT_EQ(diagnosis.condition_count, 4) << "an open condition counts, 65535 ends the list";
    for (int i = 0; i < 10; ++i) {
        SCOPED_TRACE(i);
        const KaloAlarmCondition entry = diagnosis.conditions[i];
        EXPECT_EQ(entry.monitor_id, i < 4 ? expected[i][0] : KALO_NONE);
        EXPECT_EQ(entry.condition, i < 4 ? expected[i][1] : KALO_NONE);
        EXPECT_EQ(entry.value, i < 4 ? expected[i][2] : 0);
    }
    EXPECT_TRUE(guarded.GuardsIntact());
}

TEST_F(DiagnosisTest, LongTextsRunOnAndEndWithTheLastRecord) {
    Execute({"INSERT INTO [FunctionStrings] VALUES (9,'" + std::string(3000, 't') + "')"});
    Add("[type],[priority],[plan]", "0,1,9");
    Add("[type],[priority],[plan]", "0,2,9");
    Guarded<KaloAlarmDiagnosis[2]> guarded;
    ASSERT_EQ(Read(0, guarded.record), 0u);
    EXPECT_EQ(std::string(guarded.record[0].plan, 512), std::string(512, 't'));
    EXPECT_EQ(guarded.record[1].plan, std::string(511, 't'));
    EXPECT_TRUE(guarded.GuardsIntact());
}

TEST_F(DiagnosisTest, RepeatedMonitorsMultiplyRowsWithinTheCount) {
    Add("[type],[priority],[confirm],[fixed_id_1],[condition_1]", "0,1,1,51,1");
    Add("[type],[priority],[confirm],[fixed_id_1],[condition_1]", "0,2,2,52,1");
    Execute({"INSERT INTO [T] VALUES (601,51)"});
    ASSERT_EQ(Count(0), 2);
    Guarded<KaloAlarmDiagnosis[2]> guarded;
    EXPECT_EQ(Read(0, guarded.record), 0u);
    EXPECT_EQ(guarded.record[0].conditions[0].monitor_id, 501u);
    EXPECT_EQ(guarded.record[1].conditions[0].monitor_id, 601u);
    EXPECT_STREQ(guarded.record[1].confirm, "how") << "the second diagnosis finds no room";
    EXPECT_TRUE(guarded.GuardsIntact());
}

// Ten unused fixed ids of 0 meet every monitor without a role: 42 to the power of 10 rows.
TEST_F(DiagnosisTest, UnusedFixedIdsOfZeroComeBackWithinTheCount) {
    for (int i = 0; i < 42; ++i)
        Execute({"INSERT INTO [T] VALUES (" + std::to_string(i) + ",0)"});
    Add("[type],[confirm],[fixed_id_1],[fixed_id_2],[fixed_id_3],[fixed_id_4],[fixed_id_5],[fixed_id_6],["
        "fixed_id_7],"
        "[fixed_id_8],[fixed_id_9],[fixed_id_10],[condition_1]",
        "0,1,0,0,0,0,0,0,0,0,0,0,65535");
    ASSERT_EQ(Count(0), 1);
    Guarded<KaloAlarmDiagnosis> guarded;
    const KaloStatus status = Read(0, &guarded.record);
    EXPECT_TRUE(status == 0 || status == 0x2BFF239C) << std::hex << status;
    if (status == 0) {
        EXPECT_STREQ(guarded.record.confirm, "how");
    } else {
        EXPECT_TRUE(guarded.Untouched());
    }
    EXPECT_TRUE(guarded.GuardsIntact());
}

TEST_F(DiagnosisTest, ADiagnosisWithoutTypeStopsBoth) {
    Add("[type],[priority],[confirm]", "0,1,1");
    Add("[priority]", "2");
    Add("[type],[priority],[confirm]", "0,3,3");
    std::uint16_t count = 99;
    EXPECT_EQ(KaloGetAlarmDiagDataNum(1, kAlarm, 0, &count), 0x2BFF237Eu);
    EXPECT_EQ(count, 1);
    Guarded<KaloAlarmDiagnosis> guarded;
    EXPECT_EQ(Read(0, &guarded.record), 0x2BFF239Eu);
    EXPECT_STREQ(guarded.record.confirm, "how");
    Execute({"UPDATE [alarm_diag] SET [priority] = 9 WHERE [priority] = 2"});
    EXPECT_EQ(Read(0, &guarded.record), 0x2BFF239Eu) << "also when the records are full before it";
    EXPECT_TRUE(guarded.GuardsIntact());
}

TEST_F(DiagnosisTest, EveryFailingStatementHasItsCodeAndLeavesNoTable) {
    Add("[type],[confirm],[fixed_id_1],[condition_1]", "0,1,51,1");
    std::uint16_t count = 0;
    KaloAlarmDiagnosis diagnoses[2];
    const auto number = [&](std::int16_t axis) { return KaloGetAlarmDiagDataNum(axis, kAlarm, 0, &count); };
    const auto data = [&](std::int16_t axis) { return KaloGetAlarmDiagData(axis, kAlarm, 0, diagnoses); };
    const auto clean = [this] {
        if (TableExists("tempAlarm_diag")) Execute({"DROP TABLE [tempAlarm_diag]"});
    };
    ExpectFaults({.call = [&] { return number(1); },
                  .regions = {Code(0x2BFF25A1), Code(0x2BFF25A2), Filling(Code(0x2BFF237C)),
                              Filling(Leaving(Code(0x2BFF2377)))},
                  .prepare = clean,
                  .output = {BytesOf(count)}});
    ExpectFaults({.call = [&] { return data(1); },
                  .regions = {Code(0x2BFF25A1), Code(0x2BFF25A2), Code(0x2BFF2389), Code(0x2BFF237C),
                              Filling(Code(0x2BFF239C)), Filling(Leaving(Code(0x2BFF2397)))},
                  .prepare = clean,
                  .output = {BytesOf(diagnoses)},
                  .behind = {BytesOf(diagnoses[1])}});
    EXPECT_EQ(number(9), 0x2BFF25A0u);
    EXPECT_EQ(data(9), 0x2BFF25A0u);
    EXPECT_EQ(number(2), 0u) << "counting needs no monitor table";
    EXPECT_EQ(data(2), 0x2BFF238Au);
    EXPECT_FALSE(TableExists("tempAlarm_diag"));
    Execute({"DROP TABLE [FunctionStrings]"});
    EXPECT_EQ(data(1), 0x2BFF239Cu);
    UseClosedDatabase();
    EXPECT_EQ(number(1), 0x2BFF237Bu);
    EXPECT_EQ(data(1), 0x2BFF237Bu);
}

}  // namespace
