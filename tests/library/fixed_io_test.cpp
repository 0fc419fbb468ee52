#include <gmock/gmock.h>

#include "library/monitor_tables.h"
#include "support/library_fixture.h"

namespace {

using namespace support;
using namespace monitor_tables;

// Axis 1: model 7 with option unit 3, firmware and custom specification; axis 2 the same unit as it was first
// made.
class FixedIoTest : public LibraryTest {
  protected:
    FixedIoTest() {
        UseDatabase(kRegistry);
        const std::string columns =
            "[servo_id] LONG, [option_id] LONG, [inout] SHORT, [bit_position] SHORT, [logical_name] "
            "TEXT(255), "
            "[physical_name] TEXT(255), [positive_logic] SHORT, [reverse] SHORT";
        Execute({Create("fixedio", columns),
                 Create("firmfixedio", columns + ", [change_type] BYTE, [firm_id] LONG"),
                 Create("cmodfixedio", columns + ", [change_type] BYTE, [cmod_id] LONG")});
        for (const char* row : {"7,3,1,2,'C','c',1,0", "7,3,1,0,'A','a',1,0", "7,3,1,1,'B','b',1,0",
                                "7,3,2,0,'OUT','o',1,0", "8,3,1,0,'Z','z',1,0"}) {
            Execute({"INSERT INTO [fixedio] VALUES (" + std::string(row) + ")"});
        }
        for (const char* row :
             {"7,3,1,0,'A2','a',0,1,1,2", "7,3,1,5,'F','f',1,0,2,1", "7,3,1,1,'','',0,0,3,2",
              "7,3,1,6,'late','f',1,0,2,9", "8,3,1,2,'X','x',0,0,1,1", "7,3,2,7,'O7','o',0,0,2,1"}) {
            Execute({"INSERT INTO [firmfixedio] VALUES (" + std::string(row) + ")"});
        }
        for (const char* row :
             {"7,3,1,5,'F2','f',1,0,1,100", "7,3,1,4,'E','e',1,0,2,100", "7,3,1,2,'','',0,0,3,100"}) {
            Execute({"INSERT INTO [cmodfixedio] VALUES (" + std::string(row) + ")"});
        }
        const std::string identity = "([axis_num],[servo_id],[option_id],[oFirm_version],[oCmod_version])";
        Execute({"INSERT INTO [tablemanager] " + identity + " VALUES (1,7,3,2,100)",
                 "INSERT INTO [tablemanager] " + identity + " VALUES (2,7,3,0,65535)"});
    }
};

TEST_F(FixedIoTest, TheOptionUnitsVersionsChangeTheSignals) {
    const struct {
        std::int16_t axis;
        std::int32_t direction;
        std::vector<std::string> names;  // with the polarities
    } cases[] = {{2, 1, {"A10", "B10", "C10"}},
                 {1, 1, {"A201", "E10", "F210"}},
                 {1, 2, {"OUT10", "O700"}},
                 {1, 3, {}}};
    for (const auto& c : cases) {
        std::uint16_t count = 99;
        EXPECT_EQ(KaloGetFixedIONum(c.axis, c.direction, &count), 0u);
        ASSERT_EQ(count, c.names.size());
        EXPECT_FALSE(TableExists("tempFixedIo"));
        Guarded<KaloIoSignal[4]> guarded;
        EXPECT_EQ(KaloGetFixedIOInfo(c.axis, c.direction, guarded.record), count == 0 ? 0x2BFF0866u : 0u);
        EXPECT_FALSE(TableExists("tempFixedIo"));
        for (std::size_t i = 0; i < c.names.size(); ++i) {
            const KaloIoSignal& signal = guarded.record[i];
            EXPECT_EQ(
                signal.logical_name + std::to_string(signal.positive_logic) + std::to_string(signal.reverse),
                c.names[i]);
        }
        EXPECT_EQ(guarded.record[count].reverse, 0xEEEE);
    }
}

TEST_F(FixedIoTest, MissingValuesLeaveTheRecordAndLongNamesEndWithTheLast) {
    Execute(
        {"UPDATE [fixedio] SET [logical_name] = NULL, [positive_logic] = NULL WHERE [bit_position] = 0",
         "UPDATE [fixedio] SET [physical_name] = '" + std::string(255, 'p') + "' WHERE [bit_position] = 2"});
    Guarded<KaloIoSignal[3]> guarded;
    EXPECT_EQ(KaloGetFixedIOInfo(2, 1, guarded.record), 0u);
    EXPECT_EQ(static_cast<unsigned char>(guarded.record[0].logical_name[0]), 0xEE);
    EXPECT_STREQ(guarded.record[0].physical_name, "a");
    EXPECT_EQ(guarded.record[0].positive_logic, 0xEEEE);
    EXPECT_TRUE(guarded.GuardsIntact());
}

TEST_F(FixedIoTest, EveryFailingStatementHasItsCodeAndLeavesNoTable) {
    std::uint16_t count = 0;
    KaloIoSignal signals[8];
    const struct {
        std::function<KaloStatus(std::int16_t)> call;
        FaultRegion read, drop;
    } cases[] = {
        {[&](auto axis) { return KaloGetFixedIONum(axis, 1, &count); }, Code(0x2BFF0864), Code(0x2BFF0865)},
        {[&](auto axis) { return KaloGetFixedIOInfo(axis, 1, signals); }, Filling(Code(0x2BFF0867)),
         Code(0x2BFF0868)}};
    for (const auto& c : cases) {
        std::vector<FaultRegion> regions;
        for (const KaloStatus code : {0x2BFF085E, 0x2BFF085F, 0x2BFF0861, 0x2BFF0862, 0x2BFF0863, 0x2BFF08B0,
                                      0x2BFF08B1, 0x2BFF08B2}) {
            regions.push_back(Code(code));
        }
        regions.push_back(c.read);
        regions.push_back(Filling(Leaving(c.drop)));
        ExpectFaults({.call = [&] { return c.call(1); },
                      .regions = regions,
                      .prepare =
                          [this] {
                              if (TableExists("tempFixedIo")) Execute({"DROP TABLE [tempFixedIo]"});
                          },
                      .output = {BytesOf(count), BytesOf(signals)},
                      .behind = {BytesOf(signals[7])}});
        EXPECT_EQ(c.call(9), 0x2BFF085Du);
    }
    Execute({"DROP TABLE [cmodfixedio]"});
    EXPECT_EQ(cases[0].call(1), 0x2BFF08B0u);
    EXPECT_FALSE(TableExists("tempFixedIo")) << "a failed build leaves nothing";
    ReleaseLock();
    UseClosedDatabase();
    for (const auto& c : cases)
        EXPECT_EQ(c.call(1), 0x2BFF085Eu);
}

}  // namespace
