#include <gmock/gmock.h>

#include "library/monitor_tables.h"
#include "support/library_fixture.h"

namespace {

using namespace support;
using namespace monitor_tables;

class AlarmBuildTest : public LibraryTest {
  protected:
    AlarmBuildTest() {
        UseDatabase(kRegistry);
        Execute({Create("M_DispAl", std::string(kAlarmColumns) + ", [alarm_name] TEXT(49)"),
                 CreateDeltas("FirmDispAlarm", "firm_id", kAlarmColumns),
                 CreateDeltas("CmodDispAlarm", "cmod_id", kAlarmColumns),
                 "CREATE TABLE [alarmname] ([alarm_name_id] LONG, [country_id] SHORT, [alarm_name] TEXT(49))",
                 "INSERT INTO [alarmname] VALUES (1,2,'normal')"});
        for (const char* row : {"1,30,10", "2,20,10", "3,10,10"})
            Execute({Insert("M_DispAl", "", row)});
        Execute({"UPDATE [M_DispAl] SET [alarm_name_id] = 1", "SELECT * INTO [MO_DispAl] FROM [M_DispAl]"});
        const std::string firmware = "[model_id],[firm_id],[change_type],";
        const std::string customSpec = "[model_id],[cmod_id],[change_type],";
        // The step for the option's base version looks under its firmware version, 6; that under its id, 3,
        // comes with the unit's own firmware step, and not at all for a unit with firmware 0.
        for (const char* row : {"7,2,1,1,30,12", "7,2,2,4,5,14", "7,3,3,2,0,0", "6,0,1,3,40,66",
                                "3,0,1,2,50,33", "3,5,2,5,1,55", "3,9,2,9,1,99"}) {
            Execute({Insert("FirmDispAlarm", firmware, row)});
        }
        for (const char* row : {"7,100,1,3,10,13", "3,200,3,4,0,0", "7,65535,3,1,0,0"}) {
            Execute({Insert("CmodDispAlarm", customSpec, row)});
        }
        // A modify copies every column: without this the changed alarms would lose their names.
        Execute({"UPDATE [FirmDispAlarm] SET [alarm_name_id] = 1",
                 "UPDATE [CmodDispAlarm] SET [alarm_name_id] = 1"});
    }

    static std::string Insert(const std::string& table, const std::string& columns, const std::string& row) {
        return "INSERT INTO [" + table + "] (" + columns +
               "[alarm_code],[alarm_display],[alarm_level]) VALUES (" + row + ")";
    }

    // The alarms in the order in which they are stored.
    std::string Alarms(const std::string& table) {
        return Dump("SELECT [alarm_code],[alarm_level] FROM [" + table + "]");
    }
};

TEST_F(AlarmBuildTest, MergesAmplifierAndOptionAndStoresInDisplayOrder) {
    const struct {
        std::int32_t firmware, customSpec, option, optionFirmware, optionCustomSpec;
        const char* table;
        const char* alarms;  // code and level
    } cases[] = {
        {0, 65535, KALO_NO_OPTION, 6, 200, "M_0_65535_4_DispAl", "3|10\n2|10\n1|10\n"},
        {2, 0, KALO_NO_OPTION, 0, 0, "M_2_0_4_DispAl", "4|14\n3|10\n2|10\n1|12\n"},
        {8, 100, KALO_NO_OPTION, 0, 0, "M_8_100_4_DispAl", "4|14\n3|13\n1|12\n"},
        {2, 0, 3, 6, 200, "MO_2_0_4_6_200_DispAl", "5|55\n1|12\n3|66\n2|33\n"},
        {1, 0, 3, 0, 0, "MO_1_0_4_0_0_DispAl", "3|10\n2|10\n1|10\n"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.table);
        ASSERT_EQ(KaloAlarmCreate(2, 7, c.firmware, c.customSpec, 4, c.option, c.optionFirmware,
                                  c.optionCustomSpec, 1),
                  0u);
        EXPECT_EQ(Alarms(c.table), c.alarms);
        EXPECT_EQ(Dump("SELECT [dispalarm_table] FROM [tablemanager]"), c.table + std::string("\n"));
    }
    EXPECT_FALSE(TableExists("MO_1_0_4_0_0_TempDispAl"));
    EXPECT_FALSE(TableExists("MO_2_0_4_6_200_DispAl")) << "nobody uses it any more";
    EXPECT_EQ(Dump("SELECT DISTINCT [alarm_name] FROM [MO_1_0_4_0_0_DispAl]"), "normal\n");
}

TEST_F(AlarmBuildTest, RefusesAndReusesAsTheTablesSay) {
    const auto create = [](std::uint16_t country, std::int32_t servo, std::int16_t axis) {
        return KaloAlarmCreate(country, servo, 2, 0, 4, KALO_NO_OPTION, 0, 0, axis);
    };
    EXPECT_EQ(create(1, 7, 1), 0x2A00000Cu);
    EXPECT_FALSE(TableExists("M_2_0_4_DispAl"));
    EXPECT_FALSE(TableExists("M_2_0_4_TempDispAl"));
    EXPECT_EQ(create(2, 8, 1), 0x2BFF06E1u);
    EXPECT_EQ(Dump("SELECT * FROM [tablemanager]"), "");
    EXPECT_EQ(create(2, 0x109, 1), 0u) << "the variant is model 7";
    Execute({"UPDATE [M_2_0_4_DispAl] SET [alarm_level] = 77"});
    EXPECT_EQ(create(1, 7, 2), 0u) << "in any language";
    EXPECT_EQ(Dump("SELECT DISTINCT [alarm_level] FROM [M_2_0_4_DispAl]"), "77\n");
}

TEST_F(AlarmBuildTest, EveryFailingStatementHasItsCode) {
    Execute({"INSERT INTO [tablemanager] ([axis_num],[dispalarm_table]) VALUES (1,'Old')",
             "CREATE TABLE [Old] ([a] LONG)"});
    SaveDatabase();
    std::vector<FaultRegion> regions;
    for (const std::uint32_t base : {0x27, 0x28, 0x29, 0x2A, 0x2B, 0x2C, 0x2D, 0x2E, 0x2F, 0x30, 0x31, 0x32,
                                     0x34, 0x35, 0x36, 0x37, 0x38}) {
        regions.push_back(Base(0x2B000000 | base << 16));
    }
    ExpectFaults({.call = [] { return KaloAlarmCreate(2, 7, 2, 100, 4, 3, 6, 200, 1); },
                  .regions = regions,
                  .swallowsSome = true,  // what an earlier build may have left
                  .prepare = [this] { RestoreDatabase(); }});
    UseClosedDatabase();
    EXPECT_EQ(KaloAlarmCreate(2, 7, 2, 0, 4, 3, 6, 0, 1), 0x2A00000Bu);
}

}  // namespace
