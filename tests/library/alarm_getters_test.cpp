#include <gmock/gmock.h>

#include "library/monitor_tables.h"
#include "support/library_fixture.h"

namespace {

using namespace support;
using namespace monitor_tables;

// Axis 1 has the alarm table A and the monitor table T.
class AlarmGettersTest : public LibraryTest {
  protected:
    AlarmGettersTest() {
        UseDatabase(kRegistry);
        Execute({Create("A", std::string(kAlarmColumns) + ", [alarm_name] TEXT(255)"),
                 Create("T", "[monitor_id] LONG, [fixed_id] SHORT"),
                 "INSERT INTO [tablemanager] ([axis_num],[dispalarm_table],[monitor_table]) VALUES (1,' A "
                 "',' T ')"});
    }

    void AddAlarm(const std::string& columns, const std::string& values) {
        Execute({"INSERT INTO [A] (" + columns + ") VALUES (" + values + ")"});
    }
    void SetMonitors(std::initializer_list<const char*> rows) {
        Execute({"DELETE * FROM [T]"});
        for (const char* row : rows)
            Execute({"INSERT INTO [T] VALUES (" + std::string(row) + ")"});
    }
};

TEST_F(AlarmGettersTest, AnAlarmIsFoundByEitherCode) {
    AddAlarm("[alarm_code],[indexer_alarm_code],[alarm_name],[alo],[help_path],[alarm_level]",
             "41984,304128,'Overheat',3,'a.htm#1',2");
    Guarded<KaloAlarm> alarm;
    EXPECT_EQ(KaloGetAlarmInfo(1, 41984, &alarm.record), 0u);
    EXPECT_EQ(alarm.record.alarm_code, 41984u);
    EXPECT_STREQ(alarm.record.alarm_name, "Overheat");
    EXPECT_EQ(alarm.record.alo, 3);
    EXPECT_STREQ(alarm.record.help_reference, "a.htm#1");
    Guarded<KaloIndexerAlarm> indexer;
    EXPECT_EQ(KaloGetIdxAlarmInfo(1, 304128, &indexer.record), 0u);
    EXPECT_EQ(indexer.record.indexer_alarm_code, 304128u);
    EXPECT_EQ(indexer.record.alarm_code, 41984u);
    EXPECT_EQ(indexer.record.alo, 3);
    EXPECT_STREQ(indexer.record.alarm_name, "Overheat");
    EXPECT_STREQ(indexer.record.help_reference, "a.htm#1");
    EXPECT_EQ(indexer.record.alarm_level, 2);
}

TEST_F(AlarmGettersTest, AnUnknownAlarmHasDefaults) {
    Guarded<KaloAlarm> alarm;
    EXPECT_EQ(KaloGetAlarmInfo(1, -5, &alarm.record), 0u);
    EXPECT_EQ(alarm.record.alarm_code, 0xFFFFFFFBu);
    EXPECT_STREQ(alarm.record.alarm_name, "UNKNOWN");
    EXPECT_EQ(alarm.record.alo, 0);
    EXPECT_STREQ(alarm.record.help_reference, "");
    EXPECT_STREQ(alarm.record.help_reference + 1, "mpunit.chm::/no_info.htm");
    Guarded<KaloIndexerAlarm> indexer;
    EXPECT_EQ(KaloGetIdxAlarmInfo(1, 0x12345, &indexer.record), 0u);
    EXPECT_EQ(indexer.record.indexer_alarm_code, 0x12345u);
    EXPECT_EQ(indexer.record.alarm_code, 0x45u);
    EXPECT_EQ(indexer.record.alo, 0);
    EXPECT_STREQ(indexer.record.alarm_name, "UNKNOWN");
    EXPECT_STREQ(indexer.record.help_reference, "ampunit.chm::/no_info.htm");
    EXPECT_EQ(indexer.record.alarm_level, 1);
}

TEST_F(AlarmGettersTest, MissingValuesLeaveTheRecordAndLongTextsEndWithIt) {
    AddAlarm("[alarm_code],[indexer_alarm_code]", "1,2");
    Guarded<KaloAlarm> alarm;
    EXPECT_EQ(KaloGetAlarmInfo(1, 1, &alarm.record), 0u);
    EXPECT_EQ(alarm.record.alarm_code, 1u);
    EXPECT_EQ(alarm.record.alo, 0xEEEE);
    EXPECT_EQ(static_cast<unsigned char>(alarm.record.alarm_name[0]), 0xEE);
    Guarded<KaloIndexerAlarm> indexer;
    EXPECT_EQ(KaloGetIdxAlarmInfo(1, 2, &indexer.record), 0u);
    EXPECT_EQ(indexer.record.alarm_code, 1u);
    EXPECT_EQ(indexer.record.alarm_level, 0xEEEE);

    const std::string text(255, 'x');
    AddAlarm("[alarm_code],[indexer_alarm_code],[alarm_name],[help_path]",
             "3,4,'" + text + "','" + text + "'");
    EXPECT_EQ(KaloGetAlarmInfo(1, 3, &alarm.record), 0u);
    EXPECT_EQ(std::string(alarm.record.help_reference), std::string(127, 'x'))
        << "cut at the end of the record";
    EXPECT_EQ(alarm.record.alo, 0x7878) << "the name runs into it";
    EXPECT_TRUE(alarm.GuardsIntact());
    EXPECT_EQ(KaloGetIdxAlarmInfo(1, 4, &indexer.record), 0u);
    EXPECT_EQ(indexer.record.alarm_level, 0x0078) << "the help reference ends with the record";
    EXPECT_TRUE(indexer.GuardsIntact());
}

TEST_F(AlarmGettersTest, RolesAreFoundByTheirFixedIds) {
    AddAlarm("[alarm_code],[alarm_name_id],[fixed_id]", "5,2,10");
    AddAlarm("[alarm_code],[alarm_name_id],[fixed_id]", "6,1,0");
    SetMonitors(
        {"250,9", "100,10", "111,11", "112,12", "113,11", "125,25", "199,99", "200,100", "90000,250"});
    const struct {
        KaloStatus(KALO_CALL* call)(std::int16_t, std::uint32_t*);
        std::uint32_t id;
        KaloStatus none;
    } cases[] = {{KaloGetAlarmNormalId, 6, 0x2BFF0072},
                 {KaloGetAppModuleAlarmId, 5, 0x2BFF08AE},
                 {KaloGetAlarmId, 100, 0x2BFF0079},
                 {KaloGetAlarmTBId, 111, 0x2BFF007E},
                 {KaloGetErrorId, 90000, 0x2BFF0079}};
    for (const auto& c : cases) {
        std::uint32_t id = 0;
        EXPECT_EQ(c.call(1, &id), 0u);
        EXPECT_EQ(id, c.id);
    }
    std::uint16_t depth = 0;
    EXPECT_EQ(KaloGetAlarmTBNum(1, &depth), 0u);
    EXPECT_EQ(depth, 4) << "11, 12, 25 and 99";
    SetMonitors({});
    Execute({"DELETE * FROM [A]"});
    for (const auto& c : cases) {
        std::uint32_t id = 1;
        EXPECT_EQ(c.call(1, &id), c.none);
        EXPECT_EQ(id, 1u);
    }
    EXPECT_EQ(KaloGetAlarmTBNum(1, &depth), 0x2BFF0075u);
    EXPECT_EQ(depth, 0);
}

TEST_F(AlarmGettersTest, TheTraceBackOffsetIsADistance) {
    std::uint16_t offset = 99;
    const auto status = [&](std::initializer_list<const char*> monitors) {
        SetMonitors(monitors);
        return KaloGetAlarmTBOffset(1, &offset);
    };
    EXPECT_EQ(status({"7,12"}), 0x2BFF0082u);
    EXPECT_EQ(status({"7,11"}), 0x2BFF0084u);
    EXPECT_EQ(status({"7,11", "7,12"}), 0x2BFF0086u);
    EXPECT_EQ(offset, 99);
    EXPECT_EQ(status({"7,11", "10,12"}), 0u);
    EXPECT_EQ(offset, 3);
    EXPECT_EQ(status({"20,11", "11,12"}), 0u);
    EXPECT_EQ(offset, 9);
}

}  // namespace
