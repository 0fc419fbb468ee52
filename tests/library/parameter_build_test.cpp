#include <gmock/gmock.h>

#include <string>

#include "support/library_fixture.h"
#include "support/parameter_database.h"

namespace {

using support::Base;

constexpr std::int32_t kNone = KALO_NO_OPTION;

class ParameterBuildTest : public support::LibraryTest {
  protected:
    // Two parameters: P1 has digits, a list and a unit of its own language, P2 a unit of all languages.
    void SetUp() override {
        UseDatabase(support::ParameterDatabase());
        for (const char* table : {"M17_Upara", "M17_FB_Upara"}) {
            Insert(table, "2,'P2',1,1,0,0,2,7,50,1");
            Insert(table, "1,'P1',1,1,101,801,1,5,100,1");
        }
    }

    void Insert(const std::string& table, const std::string& values) {
        Execute({"INSERT INTO [" + table +
                 "] ([Parameter_id],[user_constant],[category_name_id],[parameter_name_id],[nibble_data_id],"
                 "[dec_data_id],[unit_str_id],[min],[max],[sv_control_type]) VALUES (" +
                 values + ")"});
    }

    static KaloStatus Create(std::int16_t axis, std::int16_t country = 0, std::int32_t firmware = 1,
                             std::int32_t power = 0, std::int32_t option = kNone) {
        return KaloUparaCreate(country, 17, firmware, 0, power, option, option == kNone ? 0 : 2, 0, axis);
    }

    static std::string Tables() {
        return Dump(
            "SELECT [axis_num],[userparameter_table],[nibble_table],[dec_table] FROM [tablemanager] ORDER BY "
            "[axis_num]");
    }

    // True when nothing of a build is there.
    static bool NoneOf(const std::string& combination) {
        for (const char* kind : {"TempUpara", "Upara", "nibble", "dec"}) {
            if (TableExists(combination + "_" + kind)) return false;
        }
        return true;
    }
};

TEST_F(ParameterBuildTest, BuildsLocalisesAndRegisters) {
    ASSERT_EQ(Create(1, 1), 0u);
    EXPECT_EQ(Tables(), "1|M17_1_0_0_Upara|M17_1_0_0_nibble|M17_1_0_0_dec\n");
    EXPECT_EQ(
        Dump("SELECT [Parameter_id],[category_name],[parameter_name],[unit],[unit_name],[category_id],[max] "
             "FROM "
             "[M17_1_0_0_Upara]"),
        "1|Kihon|Gein|kaiten|kaiten|11|100\n2|Kihon|Gein|0.1 Hz|Hz|11|50\n");
    EXPECT_EQ(Dump("SELECT * FROM [M17_1_0_0_nibble]"), "101|0\n");
    EXPECT_EQ(Dump("SELECT * FROM [M17_1_0_0_dec]"), "801|1|2\n");
    for (const char* column : {"category_name_id", "parameter_name_id", "unit_str_id"}) {
        EXPECT_NE(DaoErrorOf(std::string("SELECT [") + column + "] FROM [M17_1_0_0_Upara]"), 0) << column;
    }
    EXPECT_FALSE(TableExists("M17_1_0_0_TempUpara"));

    ASSERT_EQ(Create(2, 0, 1, 3, 5), 0u);
    EXPECT_EQ(Dump("SELECT [userparameter_table] FROM [tablemanager] WHERE [axis_num] = 2"),
              "M17_FB_1_0_3_2_0_Upara\n");
    EXPECT_EQ(Dump("SELECT [Parameter_id],[max],[min],[initial_value] FROM [M17_FB_1_0_3_2_0_Upara]"),
              "1|300|-300|30\n2|50|7|-\n")
        << "the power rating of this model";
}

TEST_F(ParameterBuildTest, EmptyDigitAndDecimalTablesAreDropped) {
    Execute({"UPDATE [M17_Upara] SET [nibble_data_id] = 0, [dec_data_id] = 0"});
    ASSERT_EQ(Create(1), 0u);
    EXPECT_EQ(Tables(), "1|M17_1_0_0_Upara|-|-\n");
    EXPECT_FALSE(TableExists("M17_1_0_0_nibble"));
    EXPECT_FALSE(TableExists("M17_1_0_0_dec"));
    ASSERT_EQ(Create(2), 0u);
    EXPECT_EQ(Tables(), "1|M17_1_0_0_Upara|-|-\n2|M17_1_0_0_Upara|-|-\n");
    EXPECT_EQ(KaloDeleteAxisTable(1), 0u);
    EXPECT_EQ(KaloDeleteAxisTable(2), 0u);
}

TEST_F(ParameterBuildTest, AxesOfOneCombinationShareItsTables) {
    ASSERT_EQ(Create(1), 0u);
    Execute({"DELETE * FROM [M17_1_0_0_Upara] WHERE [Parameter_id] = 1"});
    ASSERT_EQ(Create(2, 1), 0u) << "not built again, whatever the language";
    EXPECT_EQ(Dump("SELECT [parameter_name] FROM [M17_1_0_0_Upara]"), "Gain\n");
    EXPECT_EQ(Tables(),
              "1|M17_1_0_0_Upara|M17_1_0_0_nibble|M17_1_0_0_dec\n"
              "2|M17_1_0_0_Upara|M17_1_0_0_nibble|M17_1_0_0_dec\n");

    ASSERT_EQ(Create(1, 0, 2), 0u);
    EXPECT_TRUE(TableExists("M17_1_0_0_Upara")) << "axis 2 still uses it";
    ASSERT_EQ(Create(2, 0, 2), 0u);
    EXPECT_TRUE(NoneOf("M17_1_0_0")) << "the last user left";
    ASSERT_EQ(Create(2, 0, 2), 0u) << "the same once more";
    EXPECT_EQ(Tables(),
              "1|M17_2_0_0_Upara|M17_2_0_0_nibble|M17_2_0_0_dec\n"
              "2|M17_2_0_0_Upara|M17_2_0_0_nibble|M17_2_0_0_dec\n");
}

TEST_F(ParameterBuildTest, ALanguageWithoutNamesLeavesNothing) {
    EXPECT_EQ(Create(1, 9), 0x2A000005u);
    EXPECT_TRUE(NoneOf("M17_1_0_0"));
    Execute({"UPDATE [M17_Upara] SET [category_name_id] = 2"});
    EXPECT_EQ(Create(1, 2), 0x2A000006u);
    EXPECT_TRUE(NoneOf("M17_1_0_0"));
    EXPECT_TRUE(LockIsFree());
    Execute({"UPDATE [M17_Upara] SET [category_name_id] = 1"});
    EXPECT_EQ(Create(1, 0), 0u);
}

TEST_F(ParameterBuildTest, RefusesWhatItDoesNotKnow) {
    EXPECT_EQ(KaloUparaCreate(0, 99, 1, 0, 0, kNone, 0, 0, 1), 0x2BFF0750u);
    EXPECT_EQ(KaloUparaCreate(0, 17, 1, 0, 0, 9, 0, 0, 1), 0x2BFF0750u) << "no such option unit";
    EXPECT_EQ(KaloUparaCreate(0, 18, 1, 0, 0, kNone, 0, 0, 1), 0x2BFF0750u) << "a model without a name";
    EXPECT_EQ(KaloUparaCreate(0, 273, 1, 0, 0, kNone, 0, 0, 1), 0x2BFF0750u) << "its variant, 19, is unknown";
    Execute({"INSERT INTO [model] VALUES ('20','M20')"});
    EXPECT_EQ(KaloUparaCreate(0, 20, 1, 0, 0, kNone, 0, 0, 1), 0x2B070000u + 3078)
        << "a model without parameters";
    UseClosedDatabase();
    ReleaseLock();
    EXPECT_EQ(Create(1), 0x2A000004u);
}

TEST_F(ParameterBuildTest, EachMissingTableHasItsBase) {
    const struct {
        const char* table;
        KaloStatus base;
    } cases[] = {
        {"powerrating", 0x2B140000},      {"unit", 0x2B130000},
        {"paraname", 0x2B120000},         {"paracategory", 0x2B110000},
        {"decdata", 0x2B100000},          {"nibble_ex", 0x2B0F0000},
        {"FirmUPara", 0x2B080000},        {"M17_Upara", 0x2B070000},
        {"tablemanager", 0x2B050000},     {"model", 0x2B040000},
        {"model_subspecies", 0x2B030000},
    };
    for (const auto& [table, base] : cases) {
        Execute({std::string("DROP TABLE [") + table + "]"});
        EXPECT_EQ(Create(1, 0, 1, 3), base + 3078) << table;
        EXPECT_EQ(ReleaseLock(), 1) << table;
    }
}

// Every failure in a build of everything: firmware, custom specification, option unit, power rating, and an
// axis whose previous tables go. Whatever failed, the next call builds.
TEST_F(ParameterBuildTest, FailingEngineCalls) {
    const std::string values = " VALUES (9,'P9',1,1,1,17,";
    const std::string columns =
        ",[user_constant],[category_name_id],[parameter_name_id],[sv_control_type],[model_id],"
        "[option_id],[change_type],";
    Execute({"INSERT INTO [FirmUPara] ([FirmUPara_id]" + columns + "[firm_id])" + values + "65533,2,1)",
             "INSERT INTO [FirmUPara] ([FirmUPara_id]" + columns + "[firm_id])" + values + "5,3,1)"});
    ASSERT_EQ(Create(1), 0u);
    SaveDatabase();
    const auto create = [] { return KaloUparaCreate(0, 17, 1, 101, 3, 5, 2, 202, 1); };
    ExpectFaults(
        {.call = create,
         .regions = {Base(0x2B030000), Base(0x2B040000), Base(0x2B050000), Base(0x2B070000), Base(0x2B080000),
                     Base(0x2B090000), Base(0x2B0A0000), Base(0x2B0B0000), Base(0x2B0C0000), Base(0x2B0D0000),
                     Base(0x2B0E0000), Base(0x2B0F0000), Base(0x2B100000), Base(0x2B110000), Base(0x2B120000),
                     Base(0x2B130000), Base(0x2B140000), Base(0x2B150000), Base(0x2B160000), Base(0x2B170000),
                     Base(0x2B180000), Base(0x2B190000)},
         .swallowsSome = true,  // removing what an earlier call left
         .prepare = [this] { RestoreDatabase(); }});

    // Sharing reads the other axis's names.
    RestoreDatabase();
    ExpectFaults({.call = [] { return Create(2); },
                  .regions = {Base(0x2B030000), Base(0x2B040000), Base(0x2B050000), Base(0x2B060000),
                              Base(0x2B170000), Base(0x2B190000)},
                  .prepare = [this] { Execute({"DELETE * FROM [tablemanager] WHERE [axis_num] = 2"}); }});
}

TEST_F(ParameterBuildTest, BuildsAfterAFailureAtAnyStep) {
    for (const char* table : {"nibble_ex", "decdata", "paraname", "unit", "paracategory"}) {
        const std::string kept = std::string(table) + "_kept";
        Execute(
            {"SELECT * INTO [" + kept + "] FROM [" + table + "]", std::string("DROP TABLE [") + table + "]"});
        EXPECT_NE(Create(1), 0u) << table;
        EXPECT_EQ(ReleaseLock(), 1);
        Execute({std::string("SELECT * INTO [") + table + "] FROM [" + kept + "]"});
        EXPECT_EQ(Create(1), 0u) << table;
        EXPECT_EQ(KaloDeleteAxisTable(1), 0u);
        EXPECT_TRUE(NoneOf("M17_1_0_0")) << table;
    }
}

}  // namespace
