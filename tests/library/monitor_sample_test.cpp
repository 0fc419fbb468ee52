#include <gmock/gmock.h>

#include <map>

#include "support/library_fixture.h"

namespace {

using namespace support;

struct Drive {
    std::int32_t servo, firmware, customSpec, power, option, optionFirmware, optionCustomSpec;
};

KaloStatus Build(const Drive& d, std::uint16_t country, std::int16_t axis) {
    const KaloStatus status = KaloMonCreate(country, d.servo, d.firmware, d.customSpec, d.power, d.option,
                                            d.optionFirmware, d.optionCustomSpec, axis);
    if (status != 0) return status;
    return KaloAlarmCreate(country, d.servo, d.firmware, d.customSpec, d.power, d.option, d.optionFirmware,
                           d.optionCustomSpec, axis);
}

class MonitorSampleTest : public LibraryTest {
  protected:
    static std::uint32_t RowsOf(const std::string& kind, std::int16_t axis) {
        const std::string table =
            Dump("SELECT [" + kind + "] FROM [tablemanager] WHERE [axis_num] = " + std::to_string(axis));
        return static_cast<std::uint32_t>(
            std::stoul(Dump("SELECT COUNT (*) FROM [" + table.substr(0, table.find('\n')) + "]")));
    }

    static std::uint16_t FixedSignals(std::int16_t axis, std::int32_t direction) {
        std::uint16_t count = 0;
        EXPECT_EQ(KaloGetFixedIONum(axis, direction, &count), 0u);
        return count;
    }
};

TEST_F(MonitorSampleTest, TheTourHoldsWhatTheVersionsMakeOfIt) {
    OpenSession();
    const struct {
        Drive drive;
        std::uint32_t monitors, io, alarms;
        std::uint16_t fixedInputs, fixedOutputs;
    } axes[] = {{{18, 5, 202, 4, 3, 3, 202}, 160, 394, 85, 12, 10},
                {{17, 6, 101, 3, KALO_NO_OPTION, 0, 0}, 152, 410, 79, 8, 8},
                {{17, 1, 0, 3, KALO_NO_OPTION, 0, 0}, 152, 395, 80, 8, 8},
                {{34, 4, 202, 4, KALO_NO_OPTION, 0, 0}, 156, 396, 80, 8, 8},
                {{17, 6, 0, 3, 5, 4, 0}, 154, 410, 85, 12, 10}};
    for (std::int16_t axis = 1; axis <= 5; ++axis) {
        SCOPED_TRACE(axis);
        const auto& [drive, monitors, io, alarms, fixedInputs, fixedOutputs] = axes[axis - 1];
        ASSERT_EQ(Build(drive, 0, axis), 0u);
        ASSERT_EQ(
            KaloModelInfoCreate(drive.servo, drive.firmware, drive.customSpec, drive.power, drive.option,
                                drive.optionFirmware, drive.optionCustomSpec, 301, 1, KALO_NONE, axis),
            0u);
        EXPECT_EQ(RowsOf("monitor_table", axis), monitors);
        EXPECT_EQ(RowsOf("io_table", axis), io);
        EXPECT_EQ(RowsOf("dispalarm_table", axis), alarms);
        EXPECT_EQ(FixedSignals(axis, 1), fixedInputs);
        EXPECT_EQ(FixedSignals(axis, 2), fixedOutputs);
    }
}

TEST_F(MonitorSampleTest, EveryCombinationIsBuiltInEveryLanguage) {
    const std::map<std::int32_t, std::vector<std::int32_t>> firmware = {
        {17, {1, 2, 4, 6, 99}}, {18, {1, 3, 5}}, {19, {1, 2}}, {34, {1, 2, 4}}};
    const std::vector<std::pair<std::int32_t, std::int32_t>> combinations = {
        {17, KALO_NO_OPTION}, {17, 5}, {18, KALO_NO_OPTION}, {18, 3}, {18, 5}, {19, KALO_NO_OPTION},
        {34, KALO_NO_OPTION}, {34, 3}};
    const std::pair<const char*, std::uint16_t> sessions[] = {
        {"IdeInfo.mdb", 0}, {"IdeInfo.mdb", 1}, {"IdeInfo.mdb", 2}, {"IdeInfoJ.mdb", 1}};
    for (const auto& [sample, country] : sessions) {
        OpenSession(country, sample);
        for (const auto& [servo, option] : combinations) {
            for (const std::int32_t version : firmware.at(servo)) {
                for (const std::int32_t customSpec : {0, 101, 202}) {
                    const Drive drive = {servo, version, customSpec, 1, option, 3, customSpec};
                    ASSERT_EQ(Build(drive, country, 1), 0u) << servo << ' ' << option << ' ' << version;
                    EXPECT_EQ(Dump("SELECT COUNT (*) FROM [tablemanager]"), "1\n");
                }
            }
        }
        EXPECT_EQ(KaloDeleteAxisTable(1), 0u);
        EXPECT_EQ(KaloClose(), 0u);
        EXPECT_EQ(KaloRemove(), 0u);
    }
}

TEST_F(MonitorSampleTest, ADiagnosisNamesTheMonitorsOfTheAxis) {
    OpenSession();
    ASSERT_EQ(Build({18, 5, 202, 4, 3, 3, 202}, 0, 1), 0u);
    std::uint16_t count = 0;
    ASSERT_EQ(KaloGetAlarmDiagDataNum(1, 0xA30A, 0xFFFF, &count), 0u);
    std::vector<KaloAlarmDiagnosis> diagnoses(count);
    ASSERT_EQ(KaloGetAlarmDiagData(1, 0xA30A, 0xFFFF, diagnoses.data()), 0u);
    const auto full = std::find_if(diagnoses.begin(), diagnoses.end(),
                                   [](const KaloAlarmDiagnosis& d) { return d.condition_count == 10; });
    ASSERT_NE(full, diagnoses.end());
    EXPECT_STRNE(full->confirm, "");
    for (const KaloAlarmCondition& entry : full->conditions) {
        const std::uint32_t monitorId = entry.monitor_id;
        if (monitorId == KALO_NONE) continue;
        KaloMonitor monitor;
        EXPECT_EQ(KaloGetMonitorInfo(1, static_cast<std::int32_t>(monitorId), &monitor), 0u);
        EXPECT_NE(monitor.fixed_id, 0);
    }
}

}  // namespace
