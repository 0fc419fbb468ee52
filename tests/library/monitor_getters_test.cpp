#include <gmock/gmock.h>

#include "library/monitor_tables.h"
#include "support/library_fixture.h"

namespace {

using namespace support;
using namespace monitor_tables;

// Axis 1 has the monitor table T.
class MonitorGettersTest : public LibraryTest {
  protected:
    MonitorGettersTest() {
        UseDatabase(kRegistry);
        Execute({Create("T", std::string(kMonitorColumns) + kMonitorTexts),
                 "INSERT INTO [tablemanager] ([axis_num],[monitor_table]) VALUES (1,'  T ')"});
    }

    void AddMonitor(const std::string& columns, const std::string& values) {
        Execute({"INSERT INTO [T] (" + columns + ") VALUES (" + values + ")"});
    }
};

std::string Quoted(const std::string& text) {
    return "'" + text + "'";
}

TEST_F(MonitorGettersTest, FillsEveryFieldOfARecord) {
    AddMonitor(
        "[monitor_id],[category_name_id],[category_name],[monitor_name],[display_type],[on_content],"
        "[off_content],[size],[unit],[unit_multiplier],[unit_name],[bit_position],[address],[access_level],"
        "[sv_control_type],[fixed_id],[parameter_help]",
        "70000,4,'Status','Geschwindigkeit "
        "Ω',260,'on','off',2,'rpm',0.25,'turns',15,-2,200,-1,321,'a.htm#b'");
    Guarded<KaloMonitor> guarded;
    const KaloMonitor& monitor = guarded.record;
    ASSERT_EQ(KaloGetMonitorInfo(1, 70000, &guarded.record), 0u);
    EXPECT_EQ(monitor.monitor_id, 70000u);
    EXPECT_EQ(monitor.category_name_id, 4);
    EXPECT_STREQ(monitor.category_name, "Status");
    EXPECT_STREQ(monitor.monitor_name, "Geschwindigkeit Ω");
    EXPECT_EQ(monitor.display_type, 260);
    EXPECT_STREQ(monitor.on_text, "on");
    EXPECT_STREQ(monitor.off_text, "off");
    EXPECT_EQ(monitor.size, 2);
    EXPECT_STREQ(monitor.unit, "rpm");
    EXPECT_EQ(monitor.unit_multiplier, 0.25F);
    EXPECT_STREQ(monitor.unit_name, "turns");
    EXPECT_EQ(monitor.bit_position, 15);
    EXPECT_EQ(monitor.address, -2);
    EXPECT_EQ(monitor.access_level, 200);
    EXPECT_EQ(monitor.control_type_mask, 0xFFFF);
    EXPECT_EQ(monitor.fixed_id, 321);
    EXPECT_STREQ(monitor.help_reference, "a.htm#b");
    EXPECT_TRUE(guarded.GuardsIntact());
}

TEST_F(MonitorGettersTest, CutsTextsAndLeavesLongBitTextsUnterminated) {
    const std::string bits(140, 'b');
    AddMonitor(
        "[monitor_id],[category_name],[monitor_name],[on_content],[off_content],[unit],[unit_name],"
        "[parameter_help]",
        "1," + Quoted(std::string(127, 'c') + "cut") + "," + Quoted(std::string(126, 'm') + "Ω") + "," +
            Quoted(bits) + "," + Quoted(bits) + "," + Quoted(std::string(60, 'u')) + "," +
            Quoted(std::string(48, 'n') + "é") + "," + Quoted(std::string(127, 'h')));
    Guarded<KaloMonitor> guarded;
    const KaloMonitor& monitor = guarded.record;
    ASSERT_EQ(KaloGetMonitorInfo(1, 1, &guarded.record), 0u);
    EXPECT_EQ(monitor.category_name, std::string(127, 'c'));
    EXPECT_EQ(monitor.monitor_name, std::string(126, 'm')) << "no half character";
    EXPECT_EQ(std::string(monitor.on_text, 256), std::string(256, 'b')) << "both arrays are full";
    EXPECT_EQ(monitor.unit, std::string(49, 'u'));
    EXPECT_EQ(monitor.unit_name, std::string(48, 'n'));
    EXPECT_EQ(monitor.help_reference, std::string(127, 'h')) << "copied over the misplaced terminator";
    EXPECT_TRUE(guarded.GuardsIntact());
}

TEST_F(MonitorGettersTest, MissingValuesAreZero) {
    AddMonitor("[monitor_id]", "5");
    KaloMonitor expected = {};
    expected.monitor_id = 5;
    Guarded<KaloMonitor> guarded;
    ASSERT_EQ(KaloGetMonitorInfo(1, 5, &guarded.record), 0u);
    EXPECT_EQ(std::memcmp(&guarded.record, &expected, sizeof expected), 0);
}

TEST_F(MonitorGettersTest, AllMonitorsComeByIdWithinTheCallersArray) {
    Guarded<KaloMonitor[3]> guarded;
    EXPECT_EQ(KaloGetAllMonitorInfo(1, 3, guarded.record), 0x2A00002Bu);
    EXPECT_TRUE(guarded.Untouched());
    for (const char* id : {"30", "10", "20"})
        AddMonitor("[monitor_id]", id);
    EXPECT_EQ(KaloGetAllMonitorInfo(1, 2, guarded.record), 0u);
    EXPECT_EQ(guarded.record[1].monitor_id, 20u);
    EXPECT_EQ(guarded.record[2].monitor_id, 0xEEEEEEEE) << "past the count";
    EXPECT_EQ(KaloGetAllMonitorInfo(1, 65535, guarded.record), 0u);
    EXPECT_EQ(guarded.record[2].monitor_id, 30u);
    EXPECT_TRUE(guarded.GuardsIntact());
}

TEST_F(MonitorGettersTest, CategoriesOneToFourCountAndIndexTheirMonitors) {
    for (const char* values : {"9,1", "7,1", "8,2", "6,5"})
        AddMonitor("[monitor_id],[category_name_id]", values);
    std::uint16_t count = 99;
    std::uint32_t id = 99;
    for (const std::uint16_t category : std::initializer_list<std::uint16_t>{0, 5, 65535}) {
        EXPECT_EQ(KaloGetMonitorNumber(42, category, &count), 0x2A00002Du) << "before the axis is looked up";
        EXPECT_EQ(KaloGetMonitorId(42, category, 0, &id), 0x2A000023u);
    }
    const std::uint16_t expected[] = {2, 1, 0, 0};
    for (std::uint16_t category = 1; category <= 4; ++category) {
        EXPECT_EQ(KaloGetMonitorNumber(1, category, &count), 0u);
        EXPECT_EQ(count, expected[category - 1]);
    }
    EXPECT_EQ(KaloGetMonitorId(1, 1, 0, &id), 0u);
    EXPECT_EQ(id, 7u);
    EXPECT_EQ(KaloGetMonitorId(1, 1, 1, &id), 0u);
    EXPECT_EQ(id, 9u);
    EXPECT_EQ(KaloGetMonitorId(1, 1, 2, &id), 0x2B590000u + 3021);
    ReleaseLock();
    EXPECT_EQ(KaloGetMonitorId(1, 3, 0, &id), 0x2A000026u);
    AddMonitor("[category_name_id]", "4");
    EXPECT_EQ(KaloGetMonitorId(1, 4, 0, &id), 0x2A000027u);
    EXPECT_EQ(id, 9u);
}

TEST_F(MonitorGettersTest, ListsHideTheMaintenanceMonitors) {
    Execute(
        {"CREATE TABLE [MonitorID] ([monitor_id] LONG, [monitor_name_id] LONG, [monitor_name] TEXT(255), "
         "[category_name_id] SHORT, [display_type] SHORT, [display_order] SHORT)",
         "INSERT INTO [MonitorID] VALUES (1,11,'second',1,99,2)",
         "INSERT INTO [MonitorID] VALUES (2,12,'hidden',1,100,1)",
         "INSERT INTO [MonitorID] VALUES (70000,13," + Quoted(std::string(200, 'f')) + ",1,0,1)",
         "INSERT INTO [MonitorID] VALUES (4,14,'hidden too',2,101,1)"});
    std::uint32_t count = 99;
    EXPECT_EQ(KaloGetMonitorListNumWithCategory(2, &count), 0u);
    EXPECT_EQ(count, 0u);
    EXPECT_EQ(KaloGetMonitorListNumWithCategory(1, &count), 0u);
    ASSERT_EQ(count, 2u);
    Guarded<KaloMonitorListElement[2]> guarded;
    const auto& elements = guarded.record;
    EXPECT_EQ(KaloGetMonitorListWithCategory(2, guarded.record), 0x2BFF1034u);
    EXPECT_TRUE(guarded.Untouched());
    ASSERT_EQ(KaloGetMonitorListWithCategory(1, guarded.record), 0u);
    EXPECT_EQ(elements[0].monitor_id, 70000u);
    EXPECT_EQ(elements[0].monitor_name, std::string(127, 'f'));
    EXPECT_STREQ(elements[1].monitor_name, "second");
    EXPECT_EQ(elements[1].monitor_name_id, 11);
    EXPECT_EQ(elements[1].display_type, 99);
    EXPECT_THAT(elements[1].reserved, testing::Each(0));
    EXPECT_TRUE(guarded.GuardsIntact());

    const auto list = [&] { return KaloGetMonitorListWithCategory(1, guarded.record); };
    ExpectFaults({.call = [&] { return KaloGetMonitorListNumWithCategory(1, &count); },
                  .regions = {Base(0x2C000000)},
                  .output = {BytesOf(count)}});
    ExpectFaults({.call = list, .regions = {Base(0x2C010000)}});
    Execute({"UPDATE [MonitorID] SET [monitor_id] = NULL WHERE [display_order] = 2"});
    EXPECT_EQ(list(), 0x2BFF1035u);
    UseClosedDatabase();
    EXPECT_EQ(list(), 0x2BFF1033u);
    EXPECT_EQ(KaloGetMonitorListNumWithCategory(1, &count), 0x2BFF1030u);
}

}  // namespace
