#include <gmock/gmock.h>

#include "library/monitor_tables.h"
#include "support/library_fixture.h"

namespace {

using namespace support;
using namespace monitor_tables;

constexpr std::int32_t kNoOption = KALO_NO_OPTION;

class MonitorBuildTest : public LibraryTest {
  protected:
    MonitorBuildTest() {
        UseDatabase(kRegistry);
        MakeMonitors();
        MakeTexts();
        MakeIo();
    }

    void MakeMonitors() {
        const std::string columns =
            "([monitor_id],[category_name_id],[monitor_name_id],[on_content_id],"
            "[off_content_id],[unit_str_id],[size],[sv_control_type])";
        Execute({Create("M_Mon", std::string(kMonitorColumns) + kMonitorTexts),
                 CreateDeltas("FirmMon", "firm_id", kMonitorColumns),
                 CreateDeltas("CmodMon", "Cmod_id", kMonitorColumns),
                 "INSERT INTO [M_Mon] " + columns + " VALUES (1,1,11,1,2,5,1,1)",
                 "INSERT INTO [M_Mon] " + columns + " VALUES (2,1,11,1,2,5,1,1)",
                 "INSERT INTO [M_Mon] " + columns + " VALUES (3,2,11,1,2,5,1,1)",
                 "SELECT * INTO [MO_Mon] FROM [M_Mon]"});
        // model, version, change, monitor, size
        for (const char* row :
             {"7,2,1,1,22", "7,2,2,4,24", "7,3,3,3,0", "7,3,1,1,33", "3,1,2,5,15", "3,2,1,2,26"}) {
            Execute(
                {"INSERT INTO [FirmMon] ([model_id],[firm_id],[change_type],[monitor_id],[size]) VALUES (" +
                 std::string(row) + ")"});
        }
        for (const char* row :
             {"7,100,1,2,100", "7,100,2,6,106", "7,100,3,4,0", "3,200,3,1,0", "7,0,3,1,0"}) {
            Execute(
                {"INSERT INTO [CmodMon] ([model_id],[Cmod_id],[change_type],[monitor_id],[size]) VALUES (" +
                 std::string(row) + ")"});
        }
        // A modify copies every column: without these the changed monitors would lose their texts.
        for (const char* table : {"FirmMon", "CmodMon"}) {
            Execute({"UPDATE [" + std::string(table) +
                     "] SET [category_name_id] = 1, [monitor_name_id] = 11, [on_content_id] = 1, "
                     "[off_content_id] = 2, [unit_str_id] = 5"});
        }
    }

    void MakeTexts() {
        Execute(
            {"CREATE TABLE [moncategory] ([category_name_id] SHORT, [country_id] SHORT, [category_name] "
             "TEXT(127))",
             "CREATE TABLE [monname] ([mon_name_id] LONG, [country_id] SHORT, [monitor_name] TEXT(127))",
             "CREATE TABLE [monbit] ([onoff_content_id] SHORT, [country_id] SHORT, [onoff_content] "
             "TEXT(127))",
             "CREATE TABLE [unit] ([unit_str_id] SHORT, [country_id] SHORT, [unit] TEXT(49), "
             "[unit_multiplier] "
             "SINGLE, [unit_name] TEXT(49))",
             "INSERT INTO [moncategory] VALUES (1,2,'Status')", "INSERT INTO [monname] VALUES (11,2,'Speed')",
             "INSERT INTO [monbit] VALUES (1,2,'an')", "INSERT INTO [monbit] VALUES (2,2,'aus')",
             "INSERT INTO [unit] VALUES (5,100,'rpm',0.5,'turns')"});
    }

    void MakeIo() {
        Execute(
            {Create("M_Io", kIoColumns), CreateDeltas("FirmIo", "firm_id", kIoColumns),
             CreateDeltas("CmodIo", "cmod_id", kIoColumns),
             "INSERT INTO [M_Io] ([Parameter_id],[value]) VALUES (1,1)",
             "INSERT INTO [M_Io] ([Parameter_id],[value]) VALUES (2,2)", "SELECT * INTO [MO_Io] FROM [M_Io]",
             "INSERT INTO [FirmIo] ([model_id],[firm_id],[change_type],[Parameter_id],[value]) VALUES "
             "(7,2,1,1,12)",
             "INSERT INTO [CmodIo] ([model_id],[cmod_id],[change_type],[Parameter_id]) VALUES (7,100,3,2)",
             "INSERT INTO [FirmIo] ([model_id],[firm_id],[change_type],[Parameter_id],[value]) VALUES "
             "(3,1,2,3,3)"});
    }

    std::string Registered(const char* axis) {
        return Dump("SELECT [monitor_table],[io_table] FROM [tablemanager] WHERE [axis_num] = " +
                    std::string(axis));
    }
};

TEST_F(MonitorBuildTest, MergesBaseFirmwareAndCustomSpecificationOfAmplifierAndOption) {
    const struct {
        std::int32_t firmware, customSpec, option, optionFirmware, optionCustomSpec;
        const char* table;
        const char* monitors;  // id and size
        const char* io;        // id and value
    } cases[] = {
        {0, 0, kNoOption, 0, 0, "M_0_0_4", "1|1\n2|1\n3|1\n", "1|1\n2|2\n"},
        {2, 65535, kNoOption, 9, 200, "M_2_65535_4", "1|22\n2|1\n3|1\n4|24\n", "1|12\n2|2\n"},
        {3, 0, kNoOption, 0, 0, "M_3_0_4", "1|33\n2|1\n4|24\n", "1|12\n2|2\n"},
        {99, 100, kNoOption, 0, 0, "M_99_100_4", "1|33\n2|100\n6|106\n", "1|12\n"},
        {2, 100, 3, 1, 0, "MO_2_100_4_1_0", "1|22\n2|100\n3|1\n5|15\n6|106\n", "1|12\n3|3\n"},
        {1, 0, 3, 2, 200, "MO_1_0_4_2_200", "2|26\n3|1\n5|15\n", "1|1\n2|2\n3|3\n"},
    };
    for (const auto& c : cases) {
        const std::string table = c.table;
        SCOPED_TRACE(table);
        ASSERT_EQ(KaloMonCreate(2, 7, c.firmware, c.customSpec, 4, c.option, c.optionFirmware,
                                c.optionCustomSpec, 1),
                  0u);
        EXPECT_EQ(Registered("1"), table + "_Mon|" + table + "_Io\n");
        EXPECT_EQ(Dump("SELECT [monitor_id],[size] FROM [" + table + "_Mon] ORDER BY [monitor_id]"),
                  c.monitors);
        EXPECT_EQ(Dump("SELECT [Parameter_id],[value] FROM [" + table + "_Io] ORDER BY [Parameter_id]"),
                  c.io);
    }
}

TEST_F(MonitorBuildTest, ModelsAreReplacedByTheirVariant) {
    constexpr std::int32_t kVariant = 0x109;  // model 9 with flag bit 0
    EXPECT_EQ(KaloMonCreate(2, kVariant, 1, 0, 4, kNoOption, 0, 0, 1), 0u);
    EXPECT_EQ(Registered("1"), "M_1_0_4_Mon|M_1_0_4_Io\n");
    EXPECT_EQ(KaloMonCreate(2, 9, 0, 0, 4, kNoOption, 0, 0, 2), 0x2BFF0806u)
        << "model 9 itself has no tables";
    EXPECT_EQ(KaloMonCreate(2, 7, 0, 0, 4, 4, 0, 0, 2), 0x2BFF0806u) << "no such combination";
    EXPECT_EQ(Registered("2"), "");
}

TEST_F(MonitorBuildTest, TextsComeInTheLanguageAndALanguageWithoutTextsLeavesNoTable) {
    const struct {
        const char* remove;
        const char* restore;
        KaloStatus status;
    } cases[] = {
        {"DELETE * FROM [moncategory]", "INSERT INTO [moncategory] VALUES (1,2,'Status')", 0x2A000076},
        {"DELETE * FROM [monname]", "INSERT INTO [monname] VALUES (11,2,'Speed')", 0x2A000077},
        {"DELETE * FROM [monbit]", "INSERT INTO [monbit] VALUES (2,2,'aus')", 0x2A000078},
        {"DELETE * FROM [unit]", "INSERT INTO [unit] VALUES (5,2,'U/min',0.5,'turns')", 0x2A000079},
    };
    for (const auto& c : cases) {
        Execute({c.remove});
        EXPECT_EQ(KaloMonCreate(2, 7, 0, 0, 4, kNoOption, 0, 0, 1), c.status);
        EXPECT_FALSE(TableExists("M_0_0_4_Mon"));
        EXPECT_FALSE(TableExists("M_0_0_4_Io"));
        EXPECT_EQ(Registered("1"), "");
        Execute({c.restore});
    }
    EXPECT_EQ(KaloMonCreate(1, 7, 0, 0, 4, kNoOption, 0, 0, 1), 0x2A000076u) << "another language";
    EXPECT_EQ(KaloMonCreate(2, 7, 0, 0, 4, kNoOption, 0, 0, 1), 0u) << "an off text alone is enough";
    EXPECT_EQ(
        Dump("SELECT [category_name],[monitor_name],[on_content],[off_content],[unit],[unit_multiplier],"
             "[unit_name] FROM [M_0_0_4_Mon] WHERE [monitor_id] = 1"),
        "Status|Speed|-|aus|U/min|0.500000|turns\n");
}

TEST_F(MonitorBuildTest, AxesOfOneCombinationShareTablesUntilTheLastOneLeaves) {
    const auto create = [](std::int32_t firmware, std::int16_t axis) {
        return KaloMonCreate(2, 7, firmware, 0, 4, kNoOption, 0, 0, axis);
    };
    ASSERT_EQ(create(1, 1), 0u);
    Execute({"UPDATE [M_1_0_4_Mon] SET [size] = 77"});
    ASSERT_EQ(create(1, 2), 0u);
    ASSERT_EQ(create(1, 1), 0u) << "the same again";
    EXPECT_EQ(Dump("SELECT DISTINCT [size] FROM [M_1_0_4_Mon]"), "77\n") << "reused as it is";

    ASSERT_EQ(create(2, 1), 0u);
    EXPECT_TRUE(TableExists("M_1_0_4_Mon")) << "axis 2 still uses it";
    ASSERT_EQ(create(2, 2), 0u);
    EXPECT_FALSE(TableExists("M_1_0_4_Mon"));
    EXPECT_FALSE(TableExists("M_1_0_4_Io"));
    EXPECT_EQ(Registered("2"), "M_2_0_4_Mon|M_2_0_4_Io\n");
}

TEST_F(MonitorBuildTest, EveryFailingStatementHasItsCode) {
    Execute({"INSERT INTO [tablemanager] ([axis_num],[monitor_table],[io_table]) VALUES (1,'OldMon','OldIo')",
             "CREATE TABLE [OldMon] ([a] LONG)", "CREATE TABLE [OldIo] ([a] LONG)"});
    SaveDatabase();
    const auto base = [](std::uint32_t region) { return Base(0x2BA00000 + (region << 16)); };
    std::vector<FaultRegion> regions;
    for (const std::uint32_t region :
         {0, 1, 2, 3, 4, 5, 6, 4, 5, 6, 7, 9, 10, 11, 12, 10, 11, 12, 13, 14, 15}) {
        regions.push_back(base(region));
    }
    ExpectFaults({.call = [] { return KaloMonCreate(2, 7, 2, 100, 4, 3, 2, 200, 1); },
                  .regions = regions,
                  .swallowsSome = true,  // what an earlier build may have left
                  .prepare = [this] { RestoreDatabase(); }});

    Execute({"DROP TABLE [M_Io]"});
    EXPECT_EQ(KaloMonCreate(2, 7, 0, 0, 4, kNoOption, 0, 0, 2), 0x2BA90000u + 3078);
    EXPECT_TRUE(TableExists("M_0_0_4_Mon")) << "what was built stays";
    Execute({"SELECT * INTO [M_Io] FROM [MO_Io]"});
    EXPECT_EQ(KaloMonCreate(2, 7, 0, 0, 4, kNoOption, 0, 0, 2), 0u) << "and is in nobody's way";
    UseClosedDatabase();
    EXPECT_EQ(KaloMonCreate(2, 7, 0, 0, 4, kNoOption, 0, 0, 1), 0x2A000075u);
}

TEST_F(MonitorBuildTest, UpdateDeletesWhatNoControlModeUses) {
    const auto fill = [this](std::initializer_list<const char*> types) {
        Execute({"DELETE * FROM [M_Mon]"});
        for (const char* type : types) {
            Execute({"INSERT INTO [M_Mon] ([sv_control_type]) VALUES (" + std::string(type) + ")"});
        }
    };
    const auto left = [this] { return Dump("SELECT [sv_control_type] FROM [M_Mon]"); };
    Execute({"INSERT INTO [tablemanager] ([axis_num],[monitor_table]) VALUES (1,' M_Mon ')",
             "INSERT INTO [tablemanager] ([axis_num]) VALUES (2)"});

    fill({"1", "3", "2", "1", "0", "-32768"});
    EXPECT_EQ(KaloMonUpdate(1, 0x8003), 0u);
    EXPECT_EQ(left(), "1\n3\n2\n1\n-32768\n");
    EXPECT_EQ(KaloMonUpdate(1, 0x10002), 0u) << "only 16 bits of the mask count";
    EXPECT_EQ(left(), "3\n2\n");

    fill({"2", "12", "1", "1"});
    EXPECT_EQ(KaloMonUpdate(1, 0x40), 0u);
    EXPECT_EQ(left(), "1\n1\n") << "the clause for 1 is found in the one for 12";
    EXPECT_EQ(KaloMonUpdate(1, 0x40), 0u);
    EXPECT_EQ(KaloMonUpdate(1, 0x40), 0x2BFF1C03u);
    EXPECT_EQ(KaloMonUpdate(3, 1), 0x2BFF1C00u);
    EXPECT_EQ(KaloMonUpdate(2, 1), 0x2BFF1C01u);

    fill({"2"});
    SaveDatabase();
    ExpectFaults({.call = [] { return KaloMonUpdate(1, 0x40); },
                  .regions = {Code(0x2BFF1C02), Code(0x2BFF1C04), Code(0x2BFF1C05)},
                  .prepare = [this] { RestoreDatabase(); }});
    UseClosedDatabase();
    EXPECT_EQ(KaloMonUpdate(1, 1), 0x2BFF1570u);
}

}  // namespace
