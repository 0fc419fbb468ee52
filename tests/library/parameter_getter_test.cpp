#include <gmock/gmock.h>

#include <string>
#include <thread>
#include <vector>

#include "support/library_fixture.h"
#include "support/parameter_database.h"

namespace {

using support::Base;
using support::BytesOf;
using support::Code;
using support::Filling;
using support::Guarded;
using testing::ElementsAre;

constexpr std::uint32_t kNone = KALO_NO_OPTION;

KaloUserParameter records[2];
std::uint16_t number;
std::uint32_t id;

// A getter as the tests that go over all of them see it, on an axis.
struct Getter {
    const char* name;
    KaloStatus (*call)(std::int16_t axis);
    KaloStatus notOpen, noAxis, noTable, emptyTable;
    support::FaultRegion lookup, query;
};

const Getter kGetters[] = {
    {"KaloGetUParaNum", [](std::int16_t axis) { return KaloGetUParaNum(axis, &number); }, 0x2A000067,
     0x2A000068, 0x2A000069, 0, Base(0x2B7D0000), Base(0x2B7E0000)},
    {"KaloGetUParaId", [](std::int16_t axis) { return KaloGetUParaId(axis, 0, &id); }, 0x2A00005F, 0x2A000060,
     0x2A000061, 0x2A000062, Base(0x2B740000), Base(0x2B750000)},
    {"KaloGetUParaInfo", [](std::int16_t axis) { return KaloGetUParaInfo(axis, 1, records); }, 0x2A000064,
     0x2A000065, 0x2A000066, 0x2A000071, Filling(Base(0x2B790000)), Filling(Base(0x2B7A0000))},
    {"KaloGetAllUParaInfo", [](std::int16_t axis) { return KaloGetAllUParaInfo(axis, 1, records); },
     0x2A000064, 0x2A000065, 0x2A000066, 0x2A000071, Filling(Base(0x2B7B0000)), Filling(Base(0x2B7C0000))},
    {"KaloUparaUpdate", [](std::int16_t axis) { return KaloUparaUpdate(axis, 7); }, 0x2BFF1570, 0x2BFF1571,
     0x2BFF1572, 0x2BFF1573, Code(0x2BFF1574), Code(0x2BFF1575)},
};

class ParameterGetterTest : public support::LibraryTest {
  protected:
    // Axis 1 has three parameters, axis 2 no table, axis 3 an empty one, axis 4 a table that is missing.
    void SetUp() override {
        UseDatabase(support::ParameterDatabase());
        Execute({
            "CREATE TABLE [params] ([Parameter_id] LONG, [user_constant] TEXT(30), [category_id] LONG, "
            "[category_name] "
            "TEXT(200), [parameter_name] TEXT(200), [nibble_data_id] LONG, [dec_data_id] LONG, [decdata_num] "
            "LONG, "
            "[nonvolatile_address] LONG, [volatile_address] LONG, [size] LONG, [max] LONG, [min] LONG, "
            "[max_check] "
            "LONG, [min_check] LONG, [initial_value] LONG, [edit_type] LONG, [disp_type] LONG, [user_level] "
            "LONG, "
            "[control_mode] LONG, [access_level] LONG, [sv_control_type] LONG, [effective_timing] LONG, "
            "[fixed_id] "
            "LONG, [parameter_help] TEXT(200), [unit] TEXT(100), [unit_multiplier] SINGLE, [unit_name] "
            "TEXT(100))",
            "SELECT * INTO [empty] FROM [params]",
            "INSERT INTO [params] VALUES "
            "(3,'P3',3,'Three','Third',31,32,33,-2,70000,70001,2147483647,-2147483647,"
            "70002,70003,-5,6,7,8,9,10,4,12,13,'p3.htm','0.01 Hz',0.01,'Hz')",
            "INSERT INTO [params] ([Parameter_id],[sv_control_type]) VALUES (1,12)",
            "INSERT INTO [params] ([Parameter_id],[sv_control_type]) VALUES (2,1)",
            "INSERT INTO [tablemanager] ([axis_num],[userparameter_table]) VALUES (1,'  params ')",
            "INSERT INTO [tablemanager] ([axis_num]) VALUES (2)",
            "INSERT INTO [tablemanager] ([axis_num],[userparameter_table]) VALUES (3,'empty')",
            "INSERT INTO [tablemanager] ([axis_num],[userparameter_table]) VALUES (4,'missing')",
        });
    }

    static std::string Remaining() {
        return Dump("SELECT [Parameter_id] FROM [params] ORDER BY [Parameter_id]");
    }
};

TEST_F(ParameterGetterTest, AnswersEachCheckWithItsOwnCode) {
    for (const Getter& getter : kGetters) {
        EXPECT_EQ(getter.call(1), 0u) << getter.name;
        EXPECT_EQ(getter.call(9), getter.noAxis) << getter.name;
        EXPECT_EQ(getter.call(2), getter.noTable) << getter.name;
        EXPECT_EQ(getter.call(3), getter.emptyTable) << getter.name;
        EXPECT_TRUE(LockIsFree()) << getter.name;
        const KaloStatus missing = getter.query.base + (getter.query.addsNumber ? 3078 : 0);
        EXPECT_EQ(getter.call(4), missing) << getter.name;
        EXPECT_EQ(ReleaseLock(), 1) << getter.name;
    }
    UseClosedDatabase();
    for (const Getter& getter : kGetters)
        EXPECT_EQ(getter.call(1), getter.notOpen) << getter.name;
    EXPECT_TRUE(LockIsFree());
}

TEST_F(ParameterGetterTest, FailingEngineCalls) {
    for (const Getter& getter : kGetters) {
        SCOPED_TRACE(getter.name);
        ExpectFaults({.call = [&] { return getter.call(1); },
                      .regions = {getter.lookup, getter.query},
                      .output = {BytesOf(number), BytesOf(id), BytesOf(records)},
                      .behind = {BytesOf(records[1])}});
    }
    SaveDatabase();
    ExpectFaults({.call = [] { return KaloUparaUpdate(1, 8); },
                  .regions = {Code(0x2BFF1574), Code(0x2BFF1575), Code(0x2BFF1576)},
                  .prepare = [this] { RestoreDatabase(); }});
}

TEST_F(ParameterGetterTest, FillsARecord) {
    Guarded<KaloUserParameter> p;
    ASSERT_EQ(KaloGetUParaInfo(1, 3, &p.record), 0u);
    EXPECT_TRUE(p.GuardsIntact());
    const KaloUserParameter& is = p.record;
    EXPECT_STREQ(is.user_constant, "P3");
    EXPECT_STREQ(is.category_name, "Three");
    EXPECT_STREQ(is.parameter_name, "Third");
    EXPECT_STREQ(is.unit, "0.01 Hz");
    EXPECT_STREQ(is.unit_name, "Hz");
    EXPECT_STREQ(is.parameter_help, "p3.htm");
    EXPECT_FLOAT_EQ(is.unit_multiplier, 0.01f);
    EXPECT_THAT((std::vector<std::int64_t>{is.parameter_id, is.category_id, is.nibble_data_id, is.dec_data_id,
                                           is.decdata_num, is.max, is.min, is.initial_value}),
                ElementsAre(3, 3, 31, 32, 33, 2147483647, -2147483647, -5));
    EXPECT_THAT((std::vector<std::uint32_t>{is.volatile_address, is.nonvolatile_address, is.fixed_id}),
                ElementsAre(70000u, 0xFFFFFFFEu, 13u));
    EXPECT_THAT(
        (std::vector<int>{is.size, is.max_check, is.min_check, is.edit_type, is.disp_type, is.user_level,
                          is.control_mode, is.access_level, is.sv_control_type, is.effective_timing}),
        ElementsAre(70001 - 65536, 70002 - 65536, 70003 - 65536, 6, 7, 8, 9, 10, 4, 12))
        << "cut to 16 bits";

    ASSERT_EQ(KaloGetUParaInfo(1, 1, &p.record), 0u);
    KaloUserParameter nulls = {};
    nulls.parameter_id = 1;
    nulls.sv_control_type = 12;
    EXPECT_EQ(std::memcmp(&p.record, &nulls, sizeof nulls), 0) << "NULL is zero";
}

TEST_F(ParameterGetterTest, CutsLongTexts) {
    const std::string twoBytes = "\xC3\xA9";  // é
    std::string name;
    for (int i = 0; i < 40; ++i)
        name += twoBytes;
    Execute({"UPDATE [params] SET [parameter_name] = '" + name + "', [unit] = 'x" + name +
             "', [user_constant] = 'a constant of twenty-five' WHERE [Parameter_id] = 3"});
    Guarded<KaloUserParameter> p;
    ASSERT_EQ(KaloGetUParaInfo(1, 3, &p.record), 0u);
    EXPECT_TRUE(p.GuardsIntact());
    EXPECT_STREQ(p.record.user_constant, "a constant of twent");
    EXPECT_EQ(p.record.parameter_name, name.substr(0, 58)) << "no half character";
    EXPECT_EQ(p.record.unit, "x" + name.substr(0, 48));
    EXPECT_EQ(p.record.nibble_data_id, 31);
}

TEST_F(ParameterGetterTest, ListsByPositionAndAll) {
    EXPECT_EQ(KaloGetUParaNum(1, &number), 0u);
    EXPECT_EQ(number, 3);
    EXPECT_EQ(KaloGetUParaId(1, 1, &id), 0u);
    EXPECT_EQ(id, 1u) << "in stored order";
    EXPECT_EQ(KaloGetUParaId(1, 3, &id), 0x2B750000u + 3021);
    EXPECT_EQ(KaloGetUParaId(1, -1, &id), 0x2B750000u + 3021);
    EXPECT_EQ(id, 1u);
    ReleaseLock();
    Execute({"INSERT INTO [empty] ([size]) VALUES (1)"});
    EXPECT_EQ(KaloGetUParaId(3, 0, &id), 0x2A000063u);

    Guarded<KaloUserParameter[5]> all;
    ASSERT_EQ(KaloGetAllUParaInfo(1, 5, all.record), 0u);
    EXPECT_TRUE(all.GuardsIntact());
    const KaloUserParameter zero = {};
    EXPECT_EQ(all.record[0].parameter_id, 1);
    EXPECT_EQ(all.record[2].parameter_id, 3);
    EXPECT_EQ(std::memcmp(&all.record[3], &zero, sizeof zero), 0);
    EXPECT_EQ(std::memcmp(&all.record[4], &zero, sizeof zero), 0);

    Guarded<KaloUserParameter[2]> two;
    ASSERT_EQ(KaloGetAllUParaInfo(1, 2, two.record), 0u);
    EXPECT_TRUE(two.GuardsIntact());
    EXPECT_EQ(two.record[1].parameter_id, 2);
    Guarded<KaloUserParameter> none;
    EXPECT_EQ(KaloGetAllUParaInfo(1, -1, &none.record), 0u);
    EXPECT_TRUE(none.Untouched() && none.GuardsIntact());
}

TEST_F(ParameterGetterTest, CountsWrapAt16Bits) {
    Execute({"INSERT INTO [empty] SELECT [params].[Parameter_id] FROM [params] WHERE ([Parameter_id] = 3)"});
    for (int i = 0; i < 16; ++i)
        Execute({"INSERT INTO [empty] SELECT * FROM [empty]"});
    EXPECT_EQ(KaloGetUParaNum(3, &number), 0u);
    EXPECT_EQ(number, 0);
    Execute({"INSERT INTO [empty] SELECT * FROM [params]"});
    EXPECT_EQ(KaloGetUParaNum(3, &number), 0u);
    EXPECT_EQ(number, 3);
}

TEST_F(ParameterGetterTest, UpdateRemovesWhatTheMaskDoesNotMeet) {
    EXPECT_EQ(KaloUparaUpdate(1, 1 | 4), 0u);
    EXPECT_EQ(Remaining(), "1\n2\n3\n");
    EXPECT_EQ(KaloUparaUpdate(1, 8 | 1), 0u);
    EXPECT_EQ(Remaining(), "1\n2\n");
    EXPECT_EQ(KaloUparaUpdate(1, 0x8000), 0u);
    EXPECT_EQ(Remaining(), "");
    EXPECT_EQ(KaloUparaUpdate(1, 1), 0x2BFF1573u);
}

// " OR sv_control_type = 1" stands already in " OR sv_control_type = 12".
TEST_F(ParameterGetterTest, UpdatePassesOverATypeWhoseClauseIsTheBeginningOfAnother) {
    Execute({"INSERT INTO [empty] ([Parameter_id],[sv_control_type]) VALUES (1,2)",
             "INSERT INTO [empty] ([Parameter_id],[sv_control_type]) VALUES (2,12)",
             "INSERT INTO [empty] ([Parameter_id],[sv_control_type]) VALUES (3,1)"});
    EXPECT_EQ(KaloUparaUpdate(3, 0), 0u);
    EXPECT_EQ(Dump("SELECT [Parameter_id] FROM [empty]"), "3\n");
}

TEST_F(ParameterGetterTest, CustomSpecs) {
    const std::string insert =
        "INSERT INTO [CmodUPara] ([model_id],[option_id],[model_type],[cmod_id]) VALUES ";
    for (const char* values : {"(17,65533,1,202)", "(17,65533,1,101)", "(17,65533,1,101)", "(17,5,2,303)",
                               "(17,5,1,101)", "(18,65533,1,404)", "(5,5,2,NULL)", "(6,65533,1,NULL)"}) {
        Execute({insert + values});
    }
    std::uint32_t ids[4] = {7, 7, 7, 7};
    EXPECT_EQ(KaloGetUserCmodId(17, kNone, 1, 3, ids), 0u);
    EXPECT_THAT(ids, ElementsAre(101u, 202u, 7u, 7u));
    EXPECT_EQ(KaloGetUserCmodId(17, kNone, 1, 1, ids + 2), 0u);
    EXPECT_THAT(ids, ElementsAre(101u, 202u, 101u, 7u));
    EXPECT_EQ(KaloGetUserCmodId(17, 5, 2, 3, ids), 0x2A00006Bu) << "no option is both 17 and 5";
    EXPECT_EQ(KaloGetUserCmodId(19, kNone, 1, 3, ids), 0x2A00006Bu);
    EXPECT_EQ(KaloGetUserCmodId(17, kNone, 3, 3, ids), 0x2A00006Bu);
    EXPECT_EQ(KaloGetUserCmodId(5, 5, 2, 3, ids), 0x2A00006Cu) << "NULL comes first";

    KaloCustomSpecSummary summary;
    EXPECT_EQ(KaloGetUserCmodNum(17, kNone, &summary), 0u);
    EXPECT_EQ(summary.count, 2);
    EXPECT_EQ(summary.kinds, 1);
    EXPECT_EQ(KaloGetUserCmodNum(19, kNone, &summary), 0u);
    EXPECT_EQ(summary.count, 0);
    EXPECT_EQ(KaloGetUserCmodNum(6, kNone, &summary), 0x2A00006Eu);

    ExpectFaults({.call = [&] { return KaloGetUserCmodId(17, kNone, 1, 3, ids); },
                  .regions = {Base(0x2B7F0000)},
                  .behind = {BytesOf(ids[3])}});
    ExpectFaults(
        {.call = [&] { return KaloGetUserCmodNum(17, kNone, &summary); }, .regions = {Base(0x2B800000)}});
    UseClosedDatabase();
    EXPECT_EQ(KaloGetUserCmodId(17, kNone, 1, 3, ids), 0x2A00006Au);
    EXPECT_EQ(KaloGetUserCmodNum(17, kNone, &summary), 0x2A00006Du);
}

TEST_F(ParameterGetterTest, TellsWhetherAFirmwareChangesParameters) {
    Execute({"UPDATE [tablemanager] SET [servo_id] = 17, [option_id] = 65533 WHERE [axis_num] = 1",
             "UPDATE [tablemanager] SET [servo_id] = 17, [option_id] = 5 WHERE [axis_num] = 3",
             "INSERT INTO [FirmUPara] ([model_id],[option_id],[firm_id]) VALUES (17,65533,4)",
             "INSERT INTO [FirmUPara] ([model_id],[option_id],[firm_id]) VALUES (17,5,2)"});
    const struct {
        std::int16_t axis;
        std::uint32_t a, b, optionA, optionB;
        std::uint16_t changed;
    } cases[] = {
        {1, 3, 4, 0, 0, 1}, {1, 4, 3, 0, 0, 1}, {1, 4, 6, 0, 0, 0}, {1, 4, 4, 1, 2, 0},
        {3, 4, 4, 1, 2, 1}, {3, 4, 4, 2, 1, 1}, {3, 4, 4, 2, 3, 0}, {3, 1, 2, 7, 7, 1},
    };
    for (const auto& [axis, a, b, optionA, optionB, changed] : cases) {
        number = 7;
        EXPECT_EQ(KaloGetUparaChangeInfo(axis, a, b, optionA, optionB, &number), 0u);
        EXPECT_EQ(number, changed) << axis << ": " << a << ", " << b << "; " << optionA << ", " << optionB;
    }
    EXPECT_EQ(KaloGetUparaChangeInfo(9, 1, 2, 1, 2, &number), 0x2BFF011Bu);
    EXPECT_EQ(KaloGetUparaChangeInfo(2, 1, 2, 1, 2, &number), 0x2BFF011Cu);
    ExpectFaults({.call = [] { return KaloGetUparaChangeInfo(3, 7, 8, 1, 2, &number); },
                  .regions = {Code(0x2BFF011D)}});
    UseClosedDatabase();
    EXPECT_EQ(KaloGetUparaChangeInfo(1, 1, 2, 1, 2, &number), 0x2BFF011Au);
}

// After a failure of the first generation the calling thread goes on, and another waits until it is let in.
TEST_F(ParameterGetterTest, AFailureKeepsOtherThreadsOut) {
    EXPECT_EQ(KaloGetUParaNum(4, &number), 0x2B7E0000u + 3078);
    EXPECT_EQ(KaloGetUParaNum(1, &number), 0u) << "the same thread";
    EXPECT_FALSE(LockIsFree());
    std::uint16_t others = 0;
    std::thread waiting([&others] { KaloGetUParaNum(1, &others); });
    ReleaseLock();  // whose count of steps may hold a turn of the other thread
    waiting.join();
    EXPECT_EQ(others, 3);
}

}  // namespace
