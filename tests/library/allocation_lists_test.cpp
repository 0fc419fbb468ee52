#include <gmock/gmock.h>

#include "library/monitor_tables.h"
#include "support/library_fixture.h"

namespace {

using namespace support;
using namespace monitor_tables;

struct Direction {
    KaloStatus(KALO_CALL* count)(std::int16_t, std::uint16_t*);
    KaloStatus(KALO_CALL* list)(std::int16_t, std::int32_t*);
    int firstFixedId;
    KaloStatus countCodes, listCodes;  // the first of each
};

constexpr Direction kDirections[] = {
    {KaloGetInputSignalPrmIDNum, KaloGetInputSignalPrmID, 1001, 0x2BFF0420, 0x2BFF0430},
    {KaloGetOutputSignalPrmIDNum, KaloGetOutputSignalPrmID, 1101, 0x2BFF0440, 0x2BFF0447},
};

// Axis 1 has the user parameter table U.
class AllocationListsTest : public LibraryTest {
  protected:
    AllocationListsTest() {
        UseDatabase(kRegistry);
        Execute({"CREATE TABLE [U] ([parameter_id] LONG, [fixed_id] SHORT)",
                 "INSERT INTO [tablemanager] ([axis_num],[userparameter_table]) VALUES (1,'U')",
                 "INSERT INTO [tablemanager] ([axis_num]) VALUES (2)"});
    }

    void Add(const std::string& parameter, int fixedId) {
        Execute({"INSERT INTO [U] VALUES (" + parameter + "," + std::to_string(fixedId) + ")"});
    }
};

TEST_F(AllocationListsTest, ListTheParametersOfTheirRangeInTableOrder) {
    for (const Direction& direction : kDirections) {
        const int first = direction.firstFixedId;
        std::uint16_t count = 99;
        Guarded<std::int32_t[4]> guarded;
        EXPECT_EQ(direction.count(1, &count), direction.countCodes + 4);
        EXPECT_EQ(count, 0) << "written beside the code";
        EXPECT_EQ(direction.list(1, guarded.record), direction.listCodes + 4);
        EXPECT_TRUE(guarded.Untouched());
        const int fixedIds[] = {first + 19, first - 1, first, first + 20, first + 5};
        for (int i = 0; i < 5; ++i)
            Add(std::to_string(100 - i), fixedIds[i]);
        EXPECT_EQ(direction.count(1, &count), 0u);
        EXPECT_EQ(count, 3);
        EXPECT_EQ(direction.list(1, guarded.record), 0u);
        EXPECT_THAT(guarded.record, testing::ElementsAre(100, 98, 96, static_cast<std::int32_t>(0xEEEEEEEE)));
        Execute({"UPDATE [U] SET [parameter_id] = NULL WHERE [parameter_id] = 98"});
        std::int32_t ids[3] = {-1, -1, -1};
        EXPECT_EQ(direction.list(1, ids), direction.listCodes + 5);
        EXPECT_THAT(ids, testing::ElementsAre(100, -1, -1));
    }
}

TEST_F(AllocationListsTest, EveryFailureHasItsCode) {
    for (const Direction& direction : kDirections) {
        Add("1", direction.firstFixedId);
        std::uint16_t count = 0;
        std::int32_t ids[2] = {};
        ExpectFaults({.call = [&] { return direction.count(1, &count); },
                      .regions = {Code(direction.countCodes + 3), Code(direction.countCodes + 5)},
                      .output = {BytesOf(count)}});
        ExpectFaults({.call = [&] { return direction.list(1, ids); },
                      .regions = {Code(direction.listCodes + 3)},
                      .behind = {BytesOf(ids[1])}});
        EXPECT_EQ(direction.count(9, &count), direction.countCodes + 1);
        EXPECT_EQ(direction.list(9, ids), direction.listCodes + 1);
        EXPECT_EQ(direction.count(2, &count), direction.countCodes + 2);
        EXPECT_EQ(direction.list(2, ids), direction.listCodes + 2);
    }
    UseClosedDatabase();
    for (const Direction& direction : kDirections) {
        std::uint16_t count = 0;
        std::int32_t id = 0;
        EXPECT_EQ(direction.count(1, &count), direction.countCodes);
        EXPECT_EQ(direction.list(1, &id), direction.listCodes);
    }
}

TEST_F(AllocationListsTest, TableNamesAreTakenAsStored) {
    Execute({"UPDATE [tablemanager] SET [userparameter_table] = ' U ' WHERE [axis_num] = 1"});
    std::uint16_t count = 0;
    EXPECT_EQ(KaloGetInputSignalPrmIDNum(1, &count), 0x2BFF0425u);
}

}  // namespace
