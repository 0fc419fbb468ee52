#include <gmock/gmock.h>

#include <string>

#include "session/model_variant.h"
#include "support/axis_tables.h"
#include "support/library_fixture.h"

namespace {

using support::Base;
using support::Leaving;

constexpr const char* kDatabase[] = {
    support::kCreateTableManager,
    "INSERT INTO [tablemanager] ([axis_num],[original_servo_id],[userparameter_table],[nibble_table]) VALUES "
    "(1,4711,'shared','own')",
    "INSERT INTO [tablemanager] ([axis_num],[userparameter_table]) VALUES (2,'shared')",
    "CREATE TABLE [shared] ([a] LONG)",
    "CREATE TABLE [own] ([a] LONG)",
    "CREATE TABLE [model_subspecies] ([servo_id] LONG, [ide_servo_id] LONG, [modify_flag_bitmask] LONG, "
    "[modify_flag] "
    "LONG, [modify_threshold_bitmask] LONG, [modify_threshold] LONG)",
    "INSERT INTO [model_subspecies] VALUES (17,19,1,1,0,1)",
    "INSERT INTO [model_subspecies] VALUES (16,19,255,255,65535,0)",
    "INSERT INTO [model_subspecies] VALUES (16,17,255,255,65535,2)",
    "INSERT INTO [model_subspecies] VALUES (18,20,48,48,0,1)",
    "INSERT INTO [model_subspecies] VALUES (21,22,255,255,-1,-16)",
    "CREATE TABLE [tavro2_model_subspecies] ([servo_id] LONG, [ide_servo_id] LONG, [modify_flag_bitmask] "
    "LONG, "
    "[modify_flag] LONG, [modify_threshold_bitmask] LONG, [modify_threshold] LONG)",
    "INSERT INTO [tavro2_model_subspecies] VALUES (17,27,1,1,0,1)",
    "CREATE TABLE [encodor] ([encodor_id] LONG, [motor_id] LONG, [encodor_ability] LONG, [encodor_type] "
    "TEXT(20), "
    "[encodor_help] TEXT(100))",
    "INSERT INTO [encodor] VALUES (1,301,20,'INC20',NULL)",
    "INSERT INTO [encodor] VALUES (2,301,22,'ABS22',NULL)",
    "INSERT INTO [encodor] VALUES (12,301,NULL,NULL,NULL)",
    "CREATE TABLE [Firmencodor] ([encodor_id] LONG, [motor_id] LONG, [encodor_ability] LONG, [encodor_type] "
    "TEXT(20), "
    "[encodor_help] TEXT(100), [change_type] BYTE, [firm_id] LONG)",
    "INSERT INTO [Firmencodor] VALUES (2,301,23,'ABS23',NULL,1,2)",
    "INSERT INTO [Firmencodor] VALUES (3,301,24,'ABS24MT',NULL,2,3)",
    "INSERT INTO [Firmencodor] VALUES (1,301,NULL,NULL,NULL,3,4)",
    "INSERT INTO [Firmencodor] VALUES (2,302,99,'OTHER',NULL,1,1)",
};

class AxisRegistryTest : public support::LibraryTest {
  protected:
    void SetUp() override { UseDatabase(kDatabase); }

    static KaloStatus Describe(std::int16_t axis, std::int32_t servo = 17, std::int32_t encoder = 2,
                               std::int32_t encoderFirmware = 3) {
        return KaloModelInfoCreate(servo, 6, 101, 3, 5, 4, 202, 301, encoder, encoderFirmware, axis);
    }
};

TEST_F(AxisRegistryTest, UpdatesAnAxisAsGiven) {
    EXPECT_EQ(Describe(1, 273), 0u);
    EXPECT_EQ(Dump("SELECT [servo_id],[sFirm_version],[sCmod_version],[prate],[option_id],[oFirm_version],"
                   "[oCmod_version],[motor_id],[eFirm_id],[original_servo_id] FROM [tablemanager] WHERE "
                   "[axis_num]=1"),
              "273|6|101|3|5|4|202|301|3|4711\n")
        << "no variant, and the original id stays";
    EXPECT_EQ(Dump("SELECT [servo_id] FROM [tablemanager] WHERE [axis_num]=2"), "-\n");
    EXPECT_FALSE(TableExists("ModelEFencodor"));
    EXPECT_TRUE(LockIsFree());
}

TEST_F(AxisRegistryTest, ANewAxisIsRefused) {
    EXPECT_EQ(Describe(3), 0x2B8B0000u + 3346);
    EXPECT_FALSE(LockIsFree());
    EXPECT_EQ(ReleaseLock(), 1);
    EXPECT_EQ(Dump("SELECT [axis_num] FROM [tablemanager]"), "1\n2\n");
}

TEST_F(AxisRegistryTest, ResolvesTheEncoder) {
    const struct {
        std::int32_t encoder, firmware;
        const char* expected;
    } cases[] = {
        {2, 65535, "22|ABS22\n"}, {2, 1, "22|ABS22\n"}, {2, 2, "23|ABS23\n"}, {3, 2, "0|*\n"},
        {3, 3, "24|ABS24MT\n"},   {1, 3, "20|INC20\n"}, {1, 4, "0|*\n"},      {12, 65535, "0|*\n"},
        {77, 65535, "0|*\n"},     {77, 9, "0|*\n"},
    };
    for (const auto& [encoder, firmware, expected] : cases) {
        EXPECT_EQ(Describe(1, 17, encoder, firmware), 0u);
        EXPECT_EQ(Dump("SELECT [encodor_ability],[encodor_type] FROM [tablemanager] WHERE [axis_num]=1"),
                  expected)
            << encoder << ", " << firmware;
    }
}

TEST_F(AxisRegistryTest, IdentifiesVariantsByFlagsOrFirmware) {
    const struct {
        std::int32_t model, firmware, variant;
        kalo::ModelFamily family = kalo::ModelFamily::Tavro;
    } cases[] = {
        {17, 6, 17},                    // the flag is not set, and the threshold not reached
        {17 + 0x100, 0, 19},            // by the flag, whatever the firmware
        {17 + 0x200, 0, 17 + 0x200},    // another bit than the flag
        {16, 1, 19},                    // the lower threshold
        {16, 2, 17},                    // the larger threshold is looked at first
        {18 + 0x1000, 0, 18 + 0x1000},  // one of two flags
        {18 + 0x3000, 0, 20},           // both
        {21, 16, 21},                   // thresholds are unsigned
        {21, -1, 22},
        {99, 9, 99},  // no row
        {17 + 0x100, 0, 27, kalo::ModelFamily::Tavro2},
        {16, 2, 16, kalo::ModelFamily::Tavro2},
    };
    for (const auto& [model, firmware, variant, family] : cases) {
        std::int32_t id = model;
        std::int32_t original = -1;
        EXPECT_EQ(kalo::IdentifyModelVariant(id, firmware, kalo::DaoBase(0), &original, family), 0u);
        EXPECT_EQ(id, variant) << model << ", " << firmware;
        EXPECT_EQ(original, variant == model ? 0 : model) << model << ", " << firmware;
    }
}

TEST_F(AxisRegistryTest, DropsATableWithItsLastAxis) {
    EXPECT_EQ(KaloDeleteAxisTable(7), 0u) << "no such axis";
    EXPECT_EQ(KaloDeleteAxisTable(1), 0u);
    EXPECT_TRUE(TableExists("shared"));
    EXPECT_FALSE(TableExists("own"));
    EXPECT_EQ(Dump("SELECT [axis_num] FROM [tablemanager]"), "2\n");
    EXPECT_EQ(KaloDeleteAxisTable(2), 0u);
    EXPECT_FALSE(TableExists("shared"));
    EXPECT_EQ(Dump("SELECT [axis_num] FROM [tablemanager]"), "");
}

TEST_F(AxisRegistryTest, AnAxisWhoseTableIsMissingKeepsItsRow) {
    Execute({"DROP TABLE [own]"});
    EXPECT_EQ(KaloDeleteAxisTable(1), 0x2C040000u + 3376);
    EXPECT_TRUE(LockIsFree());
    EXPECT_EQ(Dump("SELECT [axis_num] FROM [tablemanager]"), "1\n2\n");
}

TEST_F(AxisRegistryTest, AnswersOnAClosedDatabase) {
    UseClosedDatabase();
    EXPECT_EQ(Describe(1), 0x2A000072u);
    EXPECT_EQ(KaloDeleteAxisTable(1), 0u);
}

TEST_F(AxisRegistryTest, FailingEngineCalls) {
    SaveDatabase();
    const auto prepare = [this] { RestoreDatabase(); };
    ExpectFaults({.call = [] { return Describe(1); },
                  .regions = {Base(0x2B870000), Base(0x2B890000), Base(0x2B8C0000), Base(0x2B990000),
                              Base(0x2B9A0000), Base(0x2B9B0000)},
                  .swallowsSome = true,  // removing what an earlier call left
                  .prepare = prepare});
    ExpectFaults({.call = [] { return Describe(1, 17, 2, 65535); },
                  .regions = {Base(0x2B870000), Base(0x2B890000), Base(0x2B990000), Base(0x2B9B0000)},
                  .prepare = prepare});
    ExpectFaults({.call = [] { return KaloDeleteAxisTable(1); },
                  .regions = {Leaving(Base(0x2C040000)), Base(0x2C050000)},
                  .prepare = prepare});
}

// What a call that failed in the middle left does not stand in the way of the next one.
TEST_F(AxisRegistryTest, GoesOnAfterAFailure) {
    Execute({"CREATE TABLE [ModelEFencodor] ([a] LONG)"});
    EXPECT_EQ(Describe(1), 0u);
    EXPECT_FALSE(TableExists("ModelEFencodor"));
}

}  // namespace
