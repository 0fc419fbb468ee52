#include <gmock/gmock.h>

#include "library/monitor_tables.h"
#include "support/library_fixture.h"

namespace {

using namespace support;
using namespace monitor_tables;

constexpr std::int16_t kIn = 1;
constexpr std::int16_t kOut = 2;

// Axis 1 has the I/O table I.
class IoTest : public LibraryTest {
  protected:
    IoTest() {
        UseDatabase(kRegistry);
        Execute(
            {Create("I", kIoColumns), "INSERT INTO [tablemanager] ([axis_num],[io_table]) VALUES (1,' I ')"});
    }

    // An allocation row.
    void Allocate(std::int16_t direction, int address, int digit, int value, const std::string& rest) {
        Execute(
            {"INSERT INTO [I] "
             "([io_code],[address],[digit],[value],[mode_select],[logical_name],[physical_name],"
             "[positive_logic],[reverse],[reverse_address]) VALUES (" +
             std::to_string(direction) + "," + std::to_string(address) + "," + std::to_string(digit) + "," +
             std::to_string(value) + ",0," + rest + ")"});
    }
    // A mode-selection row of the parameter at 500: input mode, reverse and reverse address.
    void Select(std::int16_t direction, int digit, int value, const std::string& rest) {
        Execute(
            {"INSERT INTO [I] "
             "([io_code],[address],[digit],[value],[mode_select],[input_mode_select],[reverse],"
             "[reverse_address]) VALUES (" +
             std::to_string(direction) + ",500," + std::to_string(digit) + "," + std::to_string(value) +
             ",1," + rest + ")"});
    }
};

std::string Text(const KaloIoSignal& signal) {
    return signal.logical_name + std::string("@") + signal.physical_name + " " +
           std::to_string(signal.positive_logic) + std::to_string(signal.reverse);
}

TEST_F(IoTest, AddressesOfADirectionAreCountedAndIndexed) {
    std::uint16_t count = 99;
    std::int32_t address = 99;
    EXPECT_EQ(KaloGetIONum(1, kIn, &count), 0u);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(KaloGetIOAddress(1, kIn, 0, &address), 0x2BC30000u);
    EXPECT_EQ(KaloGetIOSelectAddress(1, kIn, &address), 0u);
    EXPECT_EQ(address, -1);

    for (const std::int16_t direction : {kIn, kOut}) {
        for (const int parameter : {70000, 300, 300, -1})
            Allocate(direction, parameter, 0, 0, "'','',0,0,0");
        Select(direction, 0, 0, "1,0,0");
    }
    const struct {
        std::int16_t direction;
        std::vector<std::int32_t> addresses;
    } cases[] = {{kIn, {-1, 300, 500, 70000}}, {kOut, {-1, 300, 70000}}, {3, {}}};
    for (const auto& c : cases) {
        EXPECT_EQ(KaloGetIONum(1, c.direction, &count), 0u);
        ASSERT_EQ(count, c.addresses.size());
        for (std::int16_t i = 0; i < count; ++i) {
            EXPECT_EQ(KaloGetIOAddress(1, c.direction, i, &address), 0u);
            EXPECT_EQ(address, c.addresses[i]);
        }
    }
    EXPECT_EQ(KaloGetIOAddress(1, kOut, 3, &address), 0x2BC50000u + 3021);
    EXPECT_EQ(KaloGetIOAddress(1, kOut, -1, &address), 0x2BC50000u + 3021);
    ReleaseLock();
    EXPECT_EQ(KaloGetIOSelectAddress(1, kOut, &address), 0u);
    EXPECT_EQ(address, 500);
    Execute({"UPDATE [I] SET [address] = NULL"});
    EXPECT_EQ(KaloGetIOAddress(1, kOut, 0, &address), 0x2BC40000u);
    EXPECT_EQ(KaloGetIOSelectAddress(1, kOut, &address), 0x2A00007Cu);
    EXPECT_EQ(address, 500);
}

TEST_F(IoTest, InputsAreAllocatedByDigitUnlessAModeIsSelected) {
    Allocate(kIn, 300, 0, 0xF, "'S-ON','DI1',1,0,0");
    Allocate(kIn, 300, 1, 2, "NULL,'DI2',NULL,NULL,0");
    Allocate(kIn, 300, 3, 0x8, "'STOP','DI4',0,1,0");
    Allocate(kIn, 301, 2, 4, "'OTHER','DI9',0,1,0");
    Select(kIn, 1, 5, "2,0,0");
    Select(kIn, 2, 7, "1,0,0");
    Select(kIn, 3, 6, "NULL,0,0");
    Guarded<KaloIoSignal[4]> guarded;
    std::uint16_t mode = 99;
    const auto decode = [&](std::int32_t select) {
        std::memset(guarded.record, 0xEE, sizeof guarded.record);
        return KaloGetIOInfo(1, kIn, 300, static_cast<std::int32_t>(0xFFFF842F), select, &mode,
                             guarded.record);
    };
    for (const std::int32_t select :
         {0, 0x0700, 0x6700}) {  // nothing, or "by parameter" at the lowest digit with a row
        EXPECT_EQ(decode(select), 0u);
        EXPECT_EQ(mode, 0);
        EXPECT_EQ(Text(guarded.record[0]), "S-ON@DI1 10");
        EXPECT_EQ(Text(guarded.record[1]), "@DI2 00");
        EXPECT_EQ(Text(guarded.record[2]), "@ 00");
        EXPECT_EQ(Text(guarded.record[3]), "STOP@DI4 01");
    }
    EXPECT_EQ(decode(0x6750), 0u);
    EXPECT_EQ(mode, 2);
    const KaloIoSignal none[4] = {};
    EXPECT_EQ(std::memcmp(guarded.record, none, sizeof none), 0);
    EXPECT_EQ(decode(0x6000), 0x2A00007Au);
    EXPECT_TRUE(guarded.GuardsIntact());
}

TEST_F(IoTest, OutputsTakeTheirPolarityFromTheLastSettingThatFits) {
    Allocate(kOut, 300, 0, 1, "'ALM','DO1',1,7,20");
    Allocate(kOut, 300, 1, 1, "'RDY','DO2',0,7,21");
    Allocate(kOut, 300, 2, 1, "'BRK','DO3',0,7,99");
    Allocate(kOut, 300, 3, 1, "'ZSP','DO4',0,7,NULL");
    Select(kOut, 0, 1, "NULL,5,20");
    Select(kOut, 1, 1, "NULL,6,20");
    Select(kOut, 2, 1, "NULL,NULL,21");
    Guarded<KaloIoSignal[4]> guarded;
    for (KaloIoSignal& signal : guarded.record)
        signal.reverse = 9;
    std::uint16_t mode = 99;
    EXPECT_EQ(KaloGetIOInfo(1, kOut, 300, 0x1111, 0x0111, &mode, guarded.record), 0u);
    EXPECT_EQ(mode, 0);
    EXPECT_EQ(Text(guarded.record[0]), "ALM@DO1 16") << "the later of two settings";
    EXPECT_EQ(Text(guarded.record[1]), "RDY@DO2 00");
    EXPECT_EQ(Text(guarded.record[2]), "BRK@DO3 09") << "left as it was";
    EXPECT_EQ(Text(guarded.record[3]), "ZSP@DO4 00") << "address 0 of the digit without a row";

    EXPECT_EQ(KaloGetIOInfo(1, 3, 300, 0x1111, 0x0111, &mode, guarded.record), 0u);
    EXPECT_EQ(Text(guarded.record[2]), "BRK@DO3 09") << "no such direction";
    EXPECT_TRUE(guarded.GuardsIntact());
}

TEST_F(IoTest, LongNamesEndWithTheLastRecord) {
    for (int digit = 0; digit < 4; ++digit)
        Allocate(kIn, 300, digit, 0, "'a','" + std::string(255, 'p') + "',0,0,0");
    Guarded<KaloIoSignal[4]> guarded;
    std::uint16_t mode = 99;
    EXPECT_EQ(KaloGetIOInfo(1, kIn, 300, 0, 0, &mode, guarded.record), 0u);
    EXPECT_TRUE(guarded.GuardsIntact());
    Execute(
        {"CREATE TABLE [PELK_Io] ([pelkvalue] SHORT, [logical_name] TEXT(255), [physical_name] TEXT(20), "
         "[positive_logic] SHORT, [reverse] SHORT)"});
    for (int i = 0; i < 7; ++i) {
        Execute({"INSERT INTO [PELK_Io] VALUES (0,'" + std::string(255, 'l') + "','',0,0)"});
    }
    Guarded<KaloIoSignal[7]> pelk;
    EXPECT_EQ(KaloGetPELKIOInfo(0, pelk.record), 0u);
    EXPECT_TRUE(pelk.GuardsIntact());
}

TEST_F(IoTest, PelkSelectorsHaveSevenSignals) {
    Execute(
        {"CREATE TABLE [PELK_Io] ([pelkvalue] SHORT, [logical_name] TEXT(19), [physical_name] TEXT(19), "
         "[positive_logic] SHORT, [reverse] SHORT)"});
    for (int i = 0; i < 10; ++i) {
        Execute({"INSERT INTO [PELK_Io] VALUES (" + std::to_string(i < 8 ? 1 : 2) + ",'L" +
                 std::to_string(i) + "',NULL,NULL,1)"});
    }
    Guarded<KaloIoSignal[7]> guarded;
    std::uint32_t count = 99;
    EXPECT_EQ(KaloGetPELKIOInfo(1, guarded.record), 0u);
    EXPECT_EQ(Text(guarded.record[6]), "L6@ 01");
    EXPECT_EQ(KaloGetPELKIOInfoNum(1, &count), 0u);
    EXPECT_EQ(count, 8u);
    EXPECT_EQ(KaloGetPELKIOInfo(2, guarded.record), 0x2BCE0000u + 3021) << "two signals only";
    EXPECT_EQ(Text(guarded.record[1]), "L9@ 01");
    EXPECT_EQ(Text(guarded.record[2]), "L2@ 01");
    ReleaseLock();
    EXPECT_EQ(KaloGetPELKIOInfo(3, guarded.record), 0x2A00007Bu);
    EXPECT_EQ(KaloGetPELKIOInfoNum(3, &count), 0u);
    EXPECT_EQ(count, 0u);
    ExpectFaults(
        {.call = [&] { return KaloGetPELKIOInfo(1, guarded.record); }, .regions = {Base(0x2BCE0000)}});
    ExpectFaults({.call = [&] { return KaloGetPELKIOInfoNum(1, &count); },
                  .regions = {Base(0x2BCE0000)},
                  .output = {BytesOf(count)}});
    EXPECT_TRUE(guarded.GuardsIntact());
    UseClosedDatabase();
    EXPECT_EQ(KaloGetPELKIOInfo(1, guarded.record), 0x2A00002Cu);
    EXPECT_EQ(KaloGetPELKIOInfoNum(1, &count), 0x2A00002Cu);
}

TEST_F(IoTest, SelectionsAndAllocationsFailWithTheirOwnCodes) {
    Select(kIn, 3, 0, "1,0,0");
    Select(kOut, 3, 0, "1,0,0");
    for (const std::int16_t direction : {kIn, kOut}) {
        for (int digit = 0; digit < 4; ++digit)
            Allocate(direction, 300, digit, 0, "'a','b',0,0,0");
    }
    KaloIoSignal signals[5];
    std::uint16_t mode = 0;
    const auto decode = [&](std::int16_t direction) {
        return KaloGetIOInfo(1, direction, 300, 0, 0, &mode, signals);
    };
    ExpectFaults({.call = [&] { return decode(kIn); },
                  .regions = {Base(0x2BC80000), Filling(Base(0x2BCA0000)), Filling(Base(0x2BCB0000))},
                  .output = {BytesOf(mode), BytesOf(signals)},
                  .behind = {BytesOf(signals[4])}});
    ExpectFaults({.call = [&] { return decode(kOut); },
                  .regions = {Base(0x2BC80000), Filling(Base(0x2BCC0000)), Filling(Base(0x2BCD0000))},
                  .output = {BytesOf(mode), BytesOf(signals)},
                  .behind = {BytesOf(signals[4])}});
}

}  // namespace
