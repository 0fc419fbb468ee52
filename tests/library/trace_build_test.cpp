#include "support/library_fixture.h"

namespace {

using namespace support;

struct Drive {
    std::int32_t servo, firmware, customSpec, option, optionFirmware, optionCustomSpec;
};

KaloStatus BuildAnalog(const Drive& d, std::int16_t axis, std::int16_t specVersion = 2,
                       std::int32_t country = 0) {
    return KaloAnalogtraceCreate(country, d.servo, d.firmware, d.customSpec, d.option, d.optionFirmware,
                                 d.optionCustomSpec, axis, specVersion, 0);
}

KaloStatus BuildIo(const Drive& d, std::int16_t axis, std::int16_t specVersion = 2,
                   std::int16_t control = 1) {
    return KaloIotraceCreate(d.servo, d.firmware, d.customSpec, d.option, d.optionFirmware,
                             d.optionCustomSpec, axis, specVersion, control);
}

constexpr Drive kFull = {18, 5, 202, 3, 3, 202};
constexpr Drive kPlain = {17, 1, 0, KALO_NO_OPTION, 0, 0};

// On the sample database.
class TraceBuildTest : public LibraryTest {
  protected:
    TraceBuildTest() { OpenSession(); }

    static std::string NameOf(const std::string& kind, int axis) {
        const std::string name = Dump(
            "SELECT [" + kind + "_table] FROM [tablemanager] WHERE [axis_num] = " + std::to_string(axis));
        return name.substr(0, name.find('\n'));
    }
    static int RowsOf(const std::string& kind, int axis) {
        return std::stoi(Dump("SELECT COUNT (*) FROM [" + NameOf(kind, axis) + "]"));
    }
};

TEST_F(TraceBuildTest, TheTourHoldsWhatTheVersionsMakeOfIt) {
    const struct {
        Drive drive;
        int analog, io;
    } axes[] = {{kFull, 39, 27},
                {{17, 6, 101, KALO_NO_OPTION, 0, 0}, 37, 28},
                {kPlain, 37, 26},
                {{34, 4, 202, KALO_NO_OPTION, 0, 0}, 39, 27},
                {{17, 6, 0, 5, 4, 0}, 40, 28}};
    for (std::int16_t axis = 1; axis <= 5; ++axis) {
        SCOPED_TRACE(axis);
        ASSERT_EQ(BuildAnalog(axes[axis - 1].drive, axis), 0u);
        ASSERT_EQ(BuildIo(axes[axis - 1].drive, axis), 0u);
        EXPECT_EQ(RowsOf("analogtrace", axis), axes[axis - 1].analog);
        EXPECT_EQ(RowsOf("iotrace", axis), axes[axis - 1].io);
    }
    EXPECT_EQ(NameOf("analogtrace", 1), "AMPB200_FN_5_202_3_202_analogtrace");
    EXPECT_EQ(NameOf("iotrace", 3), "AMPA100_1_0_iotrace");
    KaloAnalogTrace record;
    ASSERT_EQ(KaloGetAnalogtraceOfflineInfo(0, 1, &record), 0u) << "through the stored query";
    EXPECT_EQ(record.limit, 8000u);
    EXPECT_STRNE(record.target_name, "");
}

TEST_F(TraceBuildTest, EveryCombinationSpecVersionAndControlTypeIsBuilt) {
    const std::pair<std::int32_t, std::int32_t> combinations[] = {
        {17, KALO_NO_OPTION}, {17, 5}, {18, KALO_NO_OPTION}, {18, 3}, {18, 5}, {19, KALO_NO_OPTION},
        {34, KALO_NO_OPTION}, {34, 3}};
    int analogRows[3] = {};
    for (const auto& [servo, option] : combinations) {
        for (const std::int16_t specVersion : {std::int16_t{1}, std::int16_t{2}, std::int16_t{9}}) {
            for (const std::int16_t control : {std::int16_t{1}, std::int16_t{2}}) {
                const Drive drive = {servo, 2, 0, option, 1, 0};
                ASSERT_EQ(BuildAnalog(drive, 1, specVersion, specVersion % 3), 0u) << servo << ' ' << option;
                ASSERT_EQ(BuildIo(drive, 1, specVersion, control), 0u) << servo << ' ' << option;
                EXPECT_EQ(Dump("SELECT COUNT (*) FROM [" + NameOf("iotrace", 1) +
                               "] WHERE [sv_control_type] <> 0 AND [sv_control_type] <> " +
                               std::to_string(control)),
                          "0\n");
                if (servo == 17 && option == 5) analogRows[specVersion % 3] = RowsOf("analogtrace", 1);
                ASSERT_EQ(KaloDeleteAxisTable(1), 0u)
                    << "the name carries neither spec version nor control type";
            }
        }
    }
    EXPECT_LT(analogRows[1], analogRows[2]) << "spec version 2 has more targets";
    EXPECT_EQ(analogRows[0], analogRows[2]) << "the newest one not above the wanted one";
}

TEST_F(TraceBuildTest, TablesAreSharedAndGoWithTheirLastAxis) {
    ASSERT_EQ(BuildAnalog(kPlain, 1), 0u);
    ASSERT_EQ(BuildAnalog({273, 1, 0, KALO_NO_OPTION, 0, 0}, 2), 0u);
    EXPECT_EQ(NameOf("analogtrace", 2), "AMPA100L_1_0_analogtrace") << "the variant's table";
    Execute({"DELETE * FROM [" + NameOf("analogtrace", 1) + "] WHERE [target_name_id] = 1"});
    const int trimmed = RowsOf("analogtrace", 1);
    ASSERT_EQ(BuildAnalog(kPlain, 3), 0u);
    EXPECT_EQ(RowsOf("analogtrace", 3), trimmed) << "not built again";
    ASSERT_EQ(BuildAnalog(kFull, 1), 0u);
    EXPECT_TRUE(TableExists("AMPA100_1_0_analogtrace")) << "axis 3 still uses it";
    ASSERT_EQ(BuildAnalog(kFull, 3), 0u);
    EXPECT_FALSE(TableExists("AMPA100_1_0_analogtrace"));
}

TEST_F(TraceBuildTest, FailuresSayWhereAndBlockNoLaterBuild) {
    EXPECT_EQ(BuildAnalog({99, 1, 0, KALO_NO_OPTION, 0, 0}, 1), 0x2BFF06EAu);
    EXPECT_EQ(BuildIo({17, 1, 0, 3, 0, 0}, 1), 0x2BFF076Au);
    EXPECT_EQ(BuildAnalog(kPlain, 1, 0), 0x2BFF1261u);
    EXPECT_EQ(BuildAnalog(kPlain, 1, 2, 7), 0x2BFF000Du) << "a language without names";
    EXPECT_FALSE(TableExists("AMPA100_1_0_anatemp"));
    Execute({"UPDATE [unit] SET [unit_str_id] = [unit_str_id] + 1000"});
    EXPECT_EQ(BuildAnalog(kPlain, 1), 0x2BFF0010u);
    EXPECT_FALSE(TableExists("AMPA100_1_0_anatemp"));
    Execute(
        {"CREATE TABLE [AMPA100_1_0_iotemp] ([a] LONG)", "CREATE TABLE [AMPA100_1_0_iotrace] ([a] LONG)"});
    EXPECT_EQ(BuildIo(kPlain, 1), 0u) << "what an interrupted build left is in nobody's way";
    EXPECT_EQ(RowsOf("iotrace", 1), 26);
}

TEST_F(TraceBuildTest, EveryFailingStatementHasItsCode) {
    const auto fresh = [] {
        Execute({"DELETE * FROM [tablemanager]",
                 "INSERT INTO [tablemanager] ([axis_num],[analogtrace_table],"
                 "[iotrace_table]) VALUES (1,'PreviousA','PreviousI')"});
        for (const char* kind : {"anatemp", "analogtrace", "iotemp", "iotrace"}) {
            const std::string table = "AMPB200_FN_5_202_3_202_" + std::string(kind);
            if (TableExists(table)) Execute({"DROP TABLE [" + table + "]"});
        }
        for (const char* table : {"PreviousA", "PreviousI"}) {
            if (!TableExists(table)) Execute({"CREATE TABLE [" + std::string(table) + "] ([a] LONG)"});
        }
    };
    std::vector<FaultRegion> analog = {Code(0x2BFF000A), Code(0x2BFF000B), Code(0x2BFF06EC),
                                       Code(0x2BFF1262)};
    std::vector<FaultRegion> io = {Code(0x2BFF0768), Code(0x2BFF0769), Code(0x2BFF076C), Code(0x2BFF1262)};
    const auto steps = {0u, 1u, 2u, 3u, 4u, 5u, 6u, 1u, 1u, 2u, 3u, 4u, 5u, 6u};
    for (const KaloStatus step : steps) {
        analog.push_back(Leaving(Code(0x2BFF1510 + step)));
        io.push_back(Leaving(Code(0x2BFF1520 + step)));
    }
    for (const KaloStatus code : {0x2BFF000C, 0x2BFF000F, 0x2BFF0012, 0x2BFF0013, 0x2BFF06ED, 0x2BFF06ED,
                                  0x2BFF06ED, 0x2BFF06F3, 0x2BFF06F4}) {
        analog.push_back(Code(code));
    }
    for (const KaloStatus code :
         {0x2BFF0774, 0x2BFF0775, 0x2BFF076D, 0x2BFF076D, 0x2BFF076D, 0x2BFF0772, 0x2BFF0773}) {
        io.push_back(Code(code));
    }
    ExpectFaults({.call = [] { return BuildAnalog(kFull, 1); },
                  .regions = analog,
                  .swallowsSome = true,
                  .prepare = fresh});
    ExpectFaults(
        {.call = [] { return BuildIo(kFull, 1); }, .regions = io, .swallowsSome = true, .prepare = fresh});
}

}  // namespace
