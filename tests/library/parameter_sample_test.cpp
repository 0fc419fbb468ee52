#include <gmock/gmock.h>

#include <filesystem>
#include <map>
#include <vector>

#include "support/library_fixture.h"

namespace {

using Parameters = std::map<std::int32_t, KaloUserParameter>;

constexpr std::int32_t kNone = KALO_NO_OPTION;
constexpr std::int32_t kFilterFrequency = 0x200;  // P2.00
constexpr std::int32_t kAddedByFirmware = 0x146;  // P1.70

// The axes of the sample's tour.
struct Axis {
    std::int16_t number;
    std::int32_t servo, servoFirmware, servoCustomSpec, power, option, optionFirmware, optionCustomSpec;
    std::int32_t motor, encoder, encoderFirmware;
    std::uint16_t parameters;
};

constexpr Axis kTour[] = {
    {1, 18, 5, 202, 4, 3, 3, 202, 302, 4, 3, 485},     {2, 17, 6, 101, 3, kNone, 0, 0, 301, 2, 3, 376},
    {3, 17, 1, 0, 3, kNone, 0, 0, 301, 1, 65535, 374}, {4, 34, 4, 202, 4, kNone, 0, 0, 401, 11, 65535, 394},
    {5, 17, 6, 0, 3, 5, 4, 0, 301, 2, 2, 386},
};

KaloStatus Create(const Axis& axis, std::int16_t country = 0) {
    return KaloUparaCreate(country, axis.servo, axis.servoFirmware, axis.servoCustomSpec, axis.power,
                           axis.option, axis.optionFirmware, axis.optionCustomSpec, axis.number);
}

KaloStatus Describe(const Axis& axis) {
    return KaloModelInfoCreate(axis.servo, axis.servoFirmware, axis.servoCustomSpec, axis.power, axis.option,
                               axis.optionFirmware, axis.optionCustomSpec, axis.motor, axis.encoder,
                               axis.encoderFirmware, axis.number);
}

class ParameterSampleTest : public support::LibraryTest {
  protected:
    void SetUp() override { OpenSession(); }

    Parameters Read(std::int16_t axis) {
        std::uint16_t count = 0;
        EXPECT_EQ(KaloGetUParaNum(axis, &count), 0u);
        std::vector<KaloUserParameter> records(count);
        EXPECT_EQ(KaloGetAllUParaInfo(axis, static_cast<std::int16_t>(count), records.data()), 0u);
        Parameters parameters;
        for (const KaloUserParameter& record : records)
            parameters[record.parameter_id] = record;
        EXPECT_EQ(parameters.size(), count) << "ids are unique";
        return parameters;
    }

    // The parameters of a combination, on an axis that exists for this call only.
    Parameters Build(std::int32_t servo, std::int32_t firmware, std::int32_t customSpec = 0,
                     std::int32_t power = 0, std::int32_t option = kNone, std::int32_t optionFirmware = 0,
                     std::int32_t optionCustomSpec = 0) {
        constexpr std::int16_t kAxis = 9;
        EXPECT_EQ(KaloUparaCreate(0, servo, firmware, customSpec, power, option, optionFirmware,
                                  optionCustomSpec, kAxis),
                  0u);
        Parameters parameters = Read(kAxis);
        EXPECT_EQ(KaloDeleteAxisTable(kAxis), 0u);
        return parameters;
    }
};

TEST_F(ParameterSampleTest, TourOfFiveAxes) {
    for (const Axis& axis : kTour) {
        ASSERT_EQ(Create(axis), 0u) << axis.number;
        ASSERT_EQ(Describe(axis), 0u) << axis.number;
        EXPECT_EQ(Read(axis.number).size(), axis.parameters) << axis.number;
    }
    EXPECT_EQ(Dump("SELECT [axis_num],[servo_id],[encodor_ability],[encodor_type] FROM [tablemanager]"),
              "1|18|26|ABS26MT\n2|17|24|ABS24\n3|17|20|INC20\n4|34|18|SCALE-S\n5|17|23|ABS23\n");
    std::uint16_t changed = 7;
    EXPECT_EQ(KaloGetUparaChangeInfo(5, 6, 6, 1, 4, &changed), 0u);
    EXPECT_EQ(changed, 1) << "by its option unit";
    for (const Axis& axis : kTour)
        EXPECT_EQ(KaloDeleteAxisTable(axis.number), 0u) << axis.number;
    EXPECT_EQ(KaloClose(), 0u);
    Connect();
    EXPECT_EQ(Dump("SELECT [mdb_status] FROM [mdbname]"), "Close\n");
}

TEST_F(ParameterSampleTest, FirmwareChangesLimitsStepByStep) {
    const struct {
        std::int32_t firmware, max;
    } versions[] = {{0, 5000}, {1, 5000}, {2, 8000}, {3, 8000}, {4, 8000}, {6, 10000}, {99, 10000}};
    for (const auto& [firmware, max] : versions) {
        EXPECT_EQ(Build(17, firmware)[kFilterFrequency].max, max) << firmware;
    }
}

TEST_F(ParameterSampleTest, ACustomSpecsParameterWinsOverTheFirmwares) {
    EXPECT_EQ(Build(17, 1).count(kAddedByFirmware), 0u);
    EXPECT_EQ(Build(17, 2)[kAddedByFirmware].initial_value, 16);
    EXPECT_EQ(Build(17, 2, 101)[kAddedByFirmware].initial_value, 33);
    EXPECT_EQ(Build(17, 6, 101, 0, 5, 4)[kAddedByFirmware].initial_value, 33);
    for (const std::int32_t standard : {0, 65535}) {
        EXPECT_EQ(Build(17, 2, standard)[kAddedByFirmware].initial_value, 16) << standard;
    }
}

TEST_F(ParameterSampleTest, VariantsBuildTheirOwnTable) {
    EXPECT_EQ(KaloUparaCreate(0, 273, 1, 0, 0, kNone, 0, 0, 1), 0u);
    EXPECT_EQ(Dump("SELECT [userparameter_table] FROM [tablemanager]"), "AMPA100L_1_0_0_Upara\n");
    EXPECT_EQ(Read(1).size(), 237u);
    EXPECT_EQ(Build(17, 1).size(), 374u);
    EXPECT_EQ(Build(16, 2).size(), 374u + 2) << "17 from firmware 2";
    EXPECT_EQ(Build(16, 1).size(), 237u) << "19 below it";
}

TEST_F(ParameterSampleTest, PowerRatingsSetLimits) {
    constexpr std::int32_t kTorqueLimit = 1281;  // P5.01
    EXPECT_EQ(Build(17, 1, 0, 0)[kTorqueLimit].max, 800);
    EXPECT_EQ(Build(17, 1, 0, 3)[kTorqueLimit].max, 350);
    EXPECT_EQ(Build(17, 1, 0, 6)[kTorqueLimit].max, 250);
}

TEST_F(ParameterSampleTest, NamesAndUnitsInEveryLanguage) {
    std::map<std::string, int> names;
    for (std::int16_t country = 0; country < 3; ++country) {
        ASSERT_EQ(Create(kTour[2], country), 0u);
        Parameters parameters = Read(3);
        for (const auto& [id, parameter] : parameters) {
            EXPECT_STRNE(parameter.category_name, "") << id;
            EXPECT_STRNE(parameter.parameter_name, "") << id;
            EXPECT_NE(parameter.category_id, 0) << id;
        }
        EXPECT_STREQ(parameters[kFilterFrequency].unit, "Hz");
        EXPECT_FLOAT_EQ(parameters[kFilterFrequency].unit_multiplier, 1);
        ++names[parameters[kFilterFrequency].parameter_name];
        ASSERT_EQ(KaloDeleteAxisTable(3), 0u);
    }
    EXPECT_EQ(names.size(), 3u) << "one per language";
    EXPECT_EQ(Create(kTour[2], 7), 0x2A000005u);
}

TEST_F(ParameterSampleTest, TablesOfATourGrowTheFileWithinItsBounds) {
    for (int round = 0; round < 2; ++round) {
        for (const Axis& axis : kTour)
            ASSERT_EQ(Create(axis), 0u);
        for (const Axis& axis : kTour)
            ASSERT_EQ(KaloDeleteAxisTable(axis.number), 0u);
        ASSERT_EQ(KaloClose(), 0u);
        const auto written = std::filesystem::last_write_time(WorkingFile());
        ASSERT_EQ(KaloCopy(0), 0u);
        EXPECT_EQ(std::filesystem::last_write_time(WorkingFile()), written) << "the file is kept";
        ASSERT_EQ(KaloOpen(0), 0u);
    }
}

}  // namespace
