#include <gmock/gmock.h>

#include "library/monitor_tables.h"
#include "support/library_fixture.h"

namespace {

using namespace support;
using namespace monitor_tables;

KaloMonitor monitors[2];
KaloAlarm alarms[2];
KaloIndexerAlarm indexerAlarms[2];
KaloIoSignal signals[5];
std::uint32_t id;
std::int32_t address;
std::uint16_t number;
const Memory kOutput = {BytesOf(monitors), BytesOf(alarms),  BytesOf(indexerAlarms), BytesOf(signals),
                        BytesOf(id),       BytesOf(address), BytesOf(number)};
const Memory kBehind = {BytesOf(monitors[1]), BytesOf(alarms[1]), BytesOf(indexerAlarms[1]),
                        BytesOf(signals[4])};

// A getter that looks up one working table of the axis and reads it.
struct Getter {
    struct {
        KaloStatus notOpen, noAxis, noTable;
    } codes;
    std::vector<FaultRegion> regions;
    std::function<KaloStatus(std::int16_t axis)> call;
};

const Getter kGetters[] = {
    {{0x2A00002C, 0x2A00002E, 0x2A00002F},
     {Base(0x2B5C0000), Base(0x2B5D0000)},
     [](auto axis) { return KaloGetMonitorNumber(axis, 1, &number); }},
    {{0x2A000022, 0x2A000024, 0x2A000025},
     {Base(0x2B580000), Base(0x2B590000)},
     [](auto axis) { return KaloGetMonitorId(axis, 1, 0, &id); }},
    {{0x2A000028, 0x2A000029, 0x2A00002A},
     {Base(0x2B5A0000), Filling(Base(0x2B5B0000))},
     [](auto axis) { return KaloGetMonitorInfo(axis, 1, monitors); }},
    {{0x2A000028, 0x2A000029, 0x2A00002A},
     {Base(0x2B5A0000), Filling(Base(0x2B5B0000))},
     [](auto axis) { return KaloGetAllMonitorInfo(axis, 1, monitors); }},
    {{0x2A000008, 0x2BFF0713, 0x2BFF0713},
     {Base(0x2B250000), Filling(Base(0x2B260000))},
     [](auto axis) { return KaloGetAlarmInfo(axis, 1, alarms); }},
    {{0x2BFF057D, 0x2BFF06DF, 0x2BFF06DF},
     {Code(0x2BFF057A), Filling(Code(0x2BFF057C))},
     [](auto axis) { return KaloGetIdxAlarmInfo(axis, 1, indexerAlarms); }},
    {{0x2BFF0070, 0x2BFF06DB, 0x2BFF06DB},
     {Code(0x2BFF0071), Code(0x2BFF0073)},
     [](auto axis) { return KaloGetAlarmNormalId(axis, &id); }},
    {{0x2BFF08AB, 0x2BFF08AC, 0x2BFF08AC},
     {Code(0x2BFF08AD), Code(0x2BFF08AF)},
     [](auto axis) { return KaloGetAppModuleAlarmId(axis, &id); }},
    {{0x2BFF0070, 0x2BFF06DC, 0x2BFF06DC},
     {Code(0x2BFF0078), Code(0x2BFF007A)},
     [](auto axis) { return KaloGetAlarmId(axis, &id); }},
    {{0x2BFF007C, 0x2BFF06DD, 0x2BFF06DD},
     {Code(0x2BFF007D), Code(0x2BFF007F)},
     [](auto axis) { return KaloGetAlarmTBId(axis, &id); }},
    {{0x2BFF0080, 0x2BFF06DE, 0x2BFF06DE},
     {Code(0x2BFF0081), Code(0x2BFF0083), Code(0x2BFF0085)},
     [](auto axis) { return KaloGetAlarmTBOffset(axis, &number); }},
    {{0x2BFF0074, 0x2BFF0077, 0x2BFF0077},
     {Base(0x2BF10000), Code(0x2BFF0076)},
     [](auto axis) { return KaloGetAlarmTBNum(axis, &number); }},
    {{0x2BFF0070, 0x2BFF0992, 0x2BFF0992},
     {Code(0x2BFF0993), Code(0x2BFF007A)},
     [](auto axis) { return KaloGetErrorId(axis, &id); }},
    {{0x2A00002C, 0x2A00002E, 0x2A00002F},
     {Base(0x2BC10000), Base(0x2BC20000)},
     [](auto axis) { return KaloGetIONum(axis, 1, &number); }},
    {{0x2A00002C, 0x2A00002E, 0x2A00002F},
     {Base(0x2BC10000), Base(0x2BC50000)},
     [](auto axis) { return KaloGetIOAddress(axis, 1, 0, &address); }},
    {{0x2A00002C, 0x2BC70000, 0x2A00002F},
     {Base(0x2BC80000), Filling(Base(0x2BCA0000)), Filling(Base(0x2BCB0000))},
     [](auto axis) { return KaloGetIOInfo(axis, 1, 5, 0, 0, &number, signals); }},
    {{0x2A00002C, 0x2BC70000, 0x2A00002F},
     {Base(0x2BCF0000), Base(0x2BD00000)},
     [](auto axis) { return KaloGetIOSelectAddress(axis, 1, &address); }},
};

class AxisGettersCodesTest : public LibraryTest {
  protected:
    AxisGettersCodesTest() {
        UseDatabase(kRegistry);
        Execute(
            {Create("T", std::string(kMonitorColumns) + kMonitorTexts), Create("I", kIoColumns),
             Create("A", std::string(kAlarmColumns) + ", [alarm_name] TEXT(49)"),
             "INSERT INTO [tablemanager] ([axis_num],[monitor_table],[io_table],[dispalarm_table]) VALUES "
             "(1,'T','I','A')",
             "INSERT INTO [tablemanager] ([axis_num]) VALUES (-2)",
             "INSERT INTO [A] ([alarm_code],[indexer_alarm_code],[alarm_name_id],[fixed_id]) VALUES "
             "(1,1,1,10)",
             "INSERT INTO [I] ([io_code],[address],[mode_select],[digit],[value],[input_mode_select]) VALUES "
             "(1,5,1,0,0,1)"});
        const char* const fixedIds[] = {"10", "11", "12", "250"};
        for (int i = 0; i < 4; ++i) {
            Execute({"INSERT INTO [T] ([monitor_id],[category_name_id],[fixed_id]) VALUES (" +
                     std::to_string(i + 1) + ",1," + fixedIds[i] + ")"});
        }
    }
};

TEST_F(AxisGettersCodesTest, UnknownAxesMissingTablesAndClosedDatabasesAreTold) {
    for (const Getter& getter : kGetters) {
        SCOPED_TRACE(&getter - kGetters);
        EXPECT_EQ(getter.call(1), 0u);
        EXPECT_EQ(getter.call(99), getter.codes.noAxis);
        EXPECT_EQ(getter.call(-2), getter.codes.noTable);
        EXPECT_TRUE(LockIsFree());
    }
    for (const char* table : {"T", "I", "A"})
        Execute({"DROP TABLE [" + std::string(table) + "]"});
    for (const Getter& getter : kGetters) {
        SCOPED_TRACE(&getter - kGetters);
        const FaultRegion& read = getter.regions[1];
        EXPECT_EQ(getter.call(1), read.base + (read.addsNumber ? 3078 : 0));
        EXPECT_EQ(ReleaseLock(), 1);
    }
    UseClosedDatabase();
    for (const Getter& getter : kGetters)
        EXPECT_EQ(getter.call(1), getter.codes.notOpen);
}

TEST_F(AxisGettersCodesTest, EveryFailingEngineCallHasItsCode) {
    for (const Getter& getter : kGetters) {
        SCOPED_TRACE(&getter - kGetters);
        ExpectFaults({.call = [&getter] { return getter.call(1); },
                      .regions = getter.regions,
                      .output = kOutput,
                      .behind = kBehind});
    }
}

}  // namespace
