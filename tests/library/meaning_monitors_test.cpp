#include <gmock/gmock.h>

#include "library/monitor_tables.h"
#include "support/library_fixture.h"

namespace {

using namespace support;
using namespace monitor_tables;
using testing::ElementsAre;

constexpr std::size_t kRoom = 8;

// Axis 1 has an option unit, axis 2 has none; both have the monitor table T.
class MeaningMonitorsTest : public LibraryTest {
  protected:
    MeaningMonitorsTest() {
        UseDatabase(kRegistry);
        MakeGroups();
        MakeValues();
        Execute({"CREATE TABLE [T] ([monitor_id] LONG, [fixed_id] SHORT)", "INSERT INTO [T] VALUES (501,51)",
                 "INSERT INTO [T] VALUES (502,52)"});
        const std::string columns =
            "([axis_num],[servo_id],[option_id],[sFirm_version],[sCmod_version],[oFirm_version],[oCmod_"
            "version],"
            "[monitor_table])";
        Execute({"INSERT INTO [tablemanager] " + columns + " VALUES (1,7,3,2,100,2,0,'T')",
                 "INSERT INTO [tablemanager] " + columns + " VALUES (2,7,65533,2,0,0,0,' T ')"});
    }

    void MakeKind(const std::string& base, const std::string& columns, const std::string& changes) {
        Execute({Create(base, "[servo_id] LONG, [option_id] LONG, " + columns),
                 Create("firm" + changes, "[servo_id] LONG, [option_id] LONG, " + columns +
                                              ", [change_type] BYTE, [firm_id] LONG"),
                 Create("cmod" + changes, "[servo_id] LONG, [option_id] LONG, " + columns +
                                              ", [change_type] BYTE, [cmod_id] LONG")});
    }

    void MakeGroups() {
        MakeKind("MeaningMonGrp", "[grp_id] SHORT, [func_id] SHORT", "MeaningMonGrp");
        for (const char* row : {"7,65533,1,3", "7,65533,1,1", "7,3,1,5", "7,3,1,4", "8,65533,1,9"}) {
            Execute({"INSERT INTO [MeaningMonGrp] VALUES (" + std::string(row) + ")"});
        }
        Execute({"INSERT INTO [firmMeaningMonGrp] VALUES (7,65533,1,2,2,2)",
                 "INSERT INTO [firmMeaningMonGrp] VALUES (7,3,1,5,3,2)",
                 "INSERT INTO [cmodMeaningMonGrp] VALUES (7,65533,1,6,2,100)"});
    }

    void MakeValues() {
        MakeKind("MeaningMonInfo", "[func_id] SHORT, [fixed_id] LONG, [bit] LONG, [value] LONG",
                 "meaningmoninfo");
        Execute({"INSERT INTO [MeaningMonInfo] VALUES (7,65533,2,52,0,1)",
                 "INSERT INTO [MeaningMonInfo] VALUES (7,65533,1,51,0,1)",
                 "INSERT INTO [MeaningMonInfo] VALUES (7,65533,3,99,0,-1)",
                 "INSERT INTO [firmmeaningmoninfo] VALUES (7,65533,2,52,1,7,1,2)"});
    }

    // A second call over a table that was left would fail.
    void ExpectNothingLeft() {
        EXPECT_FALSE(TableExists("tempMeaningMonGrp"));
        EXPECT_FALSE(TableExists("tempmeaningmoninfo"));
    }
};

TEST_F(MeaningMonitorsTest, GroupsListTheirFunctions) {
    const struct {
        std::int32_t axis, group;
        std::vector<std::uint16_t> functions;
    } cases[] = {{1, 1, {2, 4, 6}}, {2, 1, {1, 2, 3}}, {2, 2, {}}};
    for (const auto& c : cases) {
        std::uint16_t count = 99;
        Guarded<std::uint16_t[kRoom]> guarded;
        EXPECT_EQ(KaloGetMeaningMonGrpNum(c.axis, c.group, &count), 0u);
        ASSERT_EQ(count, c.functions.size());
        EXPECT_EQ(KaloGetMeaningMonGrp(c.axis, c.group, guarded.record), count == 0 ? 0x2BFF21BFu : 0u);
        EXPECT_EQ(std::vector(guarded.record, guarded.record + count), c.functions);
        EXPECT_EQ(guarded.record[count], 0xEEEE);
        ExpectNothingLeft();
    }
    std::uint16_t functions[kRoom];
    Execute({"UPDATE [MeaningMonGrp] SET [func_id] = NULL WHERE [func_id] = 3"});
    EXPECT_EQ(KaloGetMeaningMonGrp(2, 1, functions), 0x2BFF21BEu);
    ExpectNothingLeft();
}

TEST_F(MeaningMonitorsTest, FunctionsComeWithTheMonitorsOfTheAxisWithinTheirNumber) {
    std::uint16_t count = 99;
    EXPECT_EQ(KaloGetAllMeaningMonInfoNum(2, &count), 0u);
    ASSERT_EQ(count, 3);
    Guarded<KaloMeaningMonitor[3]> guarded;
    const auto& monitors = guarded.record;
    const auto monitorIds = [&] {
        return std::vector<std::uint32_t>{monitors[0].monitor_id, monitors[1].monitor_id,
                                          monitors[2].monitor_id};
    };
    EXPECT_EQ(KaloGetAllMeaningMonInfo(2, guarded.record), 0u);
    EXPECT_THAT(monitorIds(), ElementsAre(501u, 502u, KALO_NONE));
    EXPECT_EQ(monitors[1].func_id, 2u);
    EXPECT_EQ(monitors[1].value, 7);
    EXPECT_EQ(monitors[2].value, -1);

    Execute({"INSERT INTO [T] VALUES (511,51)"});
    EXPECT_EQ(KaloGetAllMeaningMonInfo(2, guarded.record), 0u);
    EXPECT_THAT(monitorIds(), ElementsAre(501u, 511u, 502u))
        << "a monitor twice, the last function not at all";
    EXPECT_TRUE(guarded.GuardsIntact());
    EXPECT_EQ(KaloGetAllMeaningMonInfo(1, guarded.record), 0x2BFF21DFu) << "no functions";
    Execute({"UPDATE [tablemanager] SET [monitor_table] = NULL"});
    EXPECT_EQ(KaloGetAllMeaningMonInfo(2, guarded.record), 0x2BFF21DAu);
    ExpectNothingLeft();
}

TEST_F(MeaningMonitorsTest, EveryFailingStatementHasItsCodeAndLeavesNoTable) {
    std::uint16_t count;
    std::uint16_t numbers[kRoom];
    KaloMeaningMonitor monitors[kRoom];
    Execute({"UPDATE [tablemanager] SET [oCmod_version] = 5 WHERE [axis_num] = 1",
             "INSERT INTO [MeaningMonInfo] VALUES (7,3,1,51,0,1)"});
    const struct {
        KaloStatus base;
        bool lists;
        bool readsMonitors;
        bool modifies;
        std::function<KaloStatus(std::int32_t axis)> call;
    } cases[] = {
        {0x2BFF21A0, false, false, false,
         [&](auto axis) { return KaloGetMeaningMonGrpNum(axis, 1, &count); }},
        {0x2BFF21B0, true, false, false, [&](auto axis) { return KaloGetMeaningMonGrp(axis, 1, numbers); }},
        {0x2BFF21C0, false, false, true,
         [&](auto axis) { return KaloGetAllMeaningMonInfoNum(axis, &count); }},
        {0x2BFF21D0, true, true, true, [&](auto axis) { return KaloGetAllMeaningMonInfo(axis, monitors); }},
    };
    for (const auto& c : cases) {
        std::vector<FaultRegion> regions;
        if (c.readsMonitors) regions.push_back(Code(c.base + 13));
        for (const KaloStatus offset : {9, 0, 1, 2, 3, 4, 5, 6, 1, 1, 2, 3, 4, 5, 6}) {
            const bool modify = offset == 1 || offset == 4;
            if (!modify || c.modifies) regions.push_back(Leaving(Code(c.base + offset)));
        }
        const FaultRegion read = Code(c.base + 12);
        regions.push_back(c.lists ? Filling(read) : read);
        regions.push_back(Filling(Leaving(Code(c.base + 7))));
        // What a failing drop leaves is in the way of the next call only.
        const auto clean = [this] {
            for (const char* table : {"tempMeaningMonGrp", "tempmeaningmoninfo"}) {
                if (TableExists(table)) Execute({"DROP TABLE [" + std::string(table) + "]"});
            }
        };
        ExpectFaults({.call = [&c] { return c.call(1); },
                      .regions = regions,
                      .prepare = clean,
                      .output = {BytesOf(count), BytesOf(numbers), BytesOf(monitors)},
                      .behind = {BytesOf(numbers[kRoom - 1]), BytesOf(monitors[kRoom - 1])}});
        EXPECT_EQ(c.call(9), c.base + 8);
    }
    ExpectNothingLeft();
    Execute({"CREATE TABLE [tempMeaningMonGrp] ([a] LONG)"});
    EXPECT_EQ(cases[0].call(1), 0x2BFF21A0u) << "left by a killed process";
    EXPECT_EQ(cases[0].call(1), 0u);
    UseClosedDatabase();
    for (const auto& c : cases)
        EXPECT_EQ(c.call(1), c.base + 11);
}

}  // namespace
