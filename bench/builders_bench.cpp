#include <functional>
#include <string>

#include "pair.h"
#include "plain_builders.h"
#include "stage.h"

namespace bench {
namespace {

constexpr int kAxis = 1;
constexpr double kBudget = 1.3;

// One builder or several: the library's and the plain program's.
struct Builder {
    std::function<void(const Drive&, int axis)> library;
    std::function<void(const PlainBuilders&, const Drive&, int axis)> plain;
};

const Builder kParameters = {BuildParameters, [](const PlainBuilders& plain, const Drive& drive, int axis) {
                                 plain.UserParameters(drive, axis);
                             }};
const Builder kMonitors = {BuildMonitors, [](const PlainBuilders& plain, const Drive& drive, int axis) {
                               plain.Monitors(drive, axis);
                           }};
const Builder kAlarms = {
    BuildAlarms, [](const PlainBuilders& plain, const Drive& drive, int axis) { plain.Alarms(drive, axis); }};
const Builder kAnalogTrace = {BuildAnalogTrace, [](const PlainBuilders& plain, const Drive& drive, int axis) {
                                  plain.AnalogTrace(drive, axis, kSpecVersion);
                              }};
const Builder kIoTrace = {BuildIoTrace, [](const PlainBuilders& plain, const Drive& drive, int axis) {
                              plain.IoTrace(drive, axis, kSpecVersion, kControlType);
                          }};

const Builder kAllFive = {[](const Drive& drive, int axis) {
                              BuildParameters(drive, axis);
                              BuildMonitors(drive, axis);
                              BuildAlarms(drive, axis);
                              BuildAnalogTrace(drive, axis);
                              BuildIoTrace(drive, axis);
                          },
                          [](const PlainBuilders& plain, const Drive& drive, int axis) {
                              plain.UserParameters(drive, axis);
                              plain.Monitors(drive, axis);
                              plain.Alarms(drive, axis);
                              plain.AnalogTrace(drive, axis, kSpecVersion);
                              plain.IoTrace(drive, axis, kSpecVersion, kControlType);
                          }};

// Both sides must build the same tables.
bool Agree(benchmark::State& state, const Stage& stage, const Builder& builder, const Drive& drive) {
    const PlainBuilders plain(stage.Plain());
    builder.library(drive, kAxis);
    builder.plain(plain, drive, kAxis);
    const std::string differences = stage.Differences(kAxis);
    Check(KaloDeleteAxisTable(kAxis), "KaloDeleteAxisTable");
    plain.DeleteAxis(kAxis);
    if (!differences.empty()) state.SkipWithError(differences.c_str());
    return differences.empty();
}

void Repeat(benchmark::State& state, const Stage& stage, const Builder& builder, const Drive& drive) {
    if (!Agree(state, stage, builder, drive)) return;
    const PlainBuilders plain(stage.Plain());
    Measure(state, {[&] { builder.library(drive, kAxis); },
                    [&] { builder.plain(plain, drive, kAxis); },
                    kBudget,
                    1,
                    {},
                    [&] {
                        Check(KaloDeleteAxisTable(kAxis), "KaloDeleteAxisTable");
                        plain.DeleteAxis(kAxis);
                    }});
}

void OnSample(benchmark::State& state, const Builder& builder) {
    const Stage stage;
    Repeat(state, stage, builder, kDrive);
}

// The first axis of a session: nothing is translated, prepared or read yet.
void FirstOfSession(benchmark::State& state) {
    Stage stage;
    if (!Agree(state, stage, kAllFive, kDrive)) return;
    Measure(state, {[] { kAllFive.library(kDrive, kAxis); },
                    [&] { kAllFive.plain(PlainBuilders(stage.Plain()), kDrive, kAxis); }, kBudget, 1,
                    [&] { stage.Reopen(); },
                    [&] {
                        Check(KaloDeleteAxisTable(kAxis), "KaloDeleteAxisTable");
                        PlainBuilders(stage.Plain()).DeleteAxis(kAxis);
                    }});
}

// A model with 5,000 parameters and 20,000 changes: three of four modify rows of several firmware versions,
// the others insert and delete.
void MakeManyDeltas(const PlainDatabase& file) {
    const char* const kColumns =
        "user_constant, category_name_id, parameter_name_id, nibble_data_id, dec_data_id, decdata_num, "
        "nonvolatile_address, volatile_address, size, max, min, max_check, min_check, initial_value, "
        "unit_str_id, "
        "edit_type, disp_type, user_level, control_mode, access_level, sv_control_type, effective_timing, "
        "fixed_id, parameter_help";
    const std::string copied = std::string(kColumns).substr(std::string("user_constant").size());
    file.Run(
        "BEGIN; CREATE TEMP TABLE origin AS SELECT row_number() OVER () - 1 AS place, * FROM AMPA100_Upara; "
        "DELETE FROM AMPA100_Upara; DELETE FROM FirmUPara; DELETE FROM CmodUPara");
    const std::string rows =
        " FROM n JOIN origin ON place = n.i % (SELECT count(*) FROM origin) ORDER BY n.i";
    file.Run(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 5000) INSERT INTO "
        "AMPA100_Upara (Parameter_id, " +
        std::string(kColumns) + ") SELECT n.i, printf('P%05d', n.i)" + copied + rows);
    file.Run(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 20000) INSERT INTO "
        "FirmUPara "
        "(FirmUPara_id, " +
        std::string(kColumns) +
        ", model_id, option_id, change_type, firm_id) SELECT CASE WHEN n.i % 8 = 0 THEN 5000 + n.i ELSE 1 + "
        "n.i * 7919 % 5000 END, printf('P%05d', CASE WHEN n.i % 8 = 0 THEN 5000 + n.i ELSE 1 + n.i * 7919 % "
        "5000 END)" +
        copied +
        ", 17, 65533, CASE WHEN n.i % 8 = 0 THEN 2 WHEN n.i % 80 = 1 THEN 3 ELSE 1 END, 1 + n.i % 6" + rows);
    file.Run("COMMIT; DROP TABLE origin");
}

void OnManyDeltas(benchmark::State& state) {
    constexpr Drive kLarge = {0, 17, 6, 0, 3, Drive::kNoOption, 0, 0};
    const Stage stage(MakeManyDeltas);
    Repeat(state, stage, kParameters, kLarge);
}

// A second axis with the combination of the first: its tables are there, so that no table may be made.
void SecondAxis(benchmark::State& state) {
    constexpr int kSecondAxis = 2;
    const Stage stage;
    const PlainBuilders plain(stage.Plain());
    kAllFive.library(kDrive, kAxis);
    kAllFive.plain(plain, kDrive, kAxis);
    const std::int64_t design = stage.DesignVersion();
    Measure(state, {[] { kAllFive.library(kDrive, kSecondAxis); },
                    [&] { kAllFive.plain(plain, kDrive, kSecondAxis); },
                    kBudget,
                    1,
                    {},
                    [&] {
                        Check(KaloDeleteAxisTable(kSecondAxis), "KaloDeleteAxisTable");
                        stage.Plain().Run("DELETE FROM tablemanager WHERE axis_num = 2");
                    }});
    if (stage.DesignVersion() != design) state.SkipWithError("tables were made for the second axis");
    state.SetLabel("no table made");
}

constexpr int kTurns = 25;

BENCHMARK_CAPTURE(OnSample, parameters, kParameters)
    ->Name("KaloUparaCreate, sample")
    ->Iterations(kTurns)
    ->UseManualTime();
BENCHMARK(OnManyDeltas)
    ->Name("KaloUparaCreate, 5,000 rows, 20,000 deltas")
    ->Iterations(kTurns)
    ->UseManualTime();
BENCHMARK_CAPTURE(OnSample, monitors, kMonitors)
    ->Name("KaloMonCreate, sample")
    ->Iterations(kTurns)
    ->UseManualTime();
BENCHMARK_CAPTURE(OnSample, alarms, kAlarms)
    ->Name("KaloAlarmCreate, sample")
    ->Iterations(kTurns)
    ->UseManualTime();
BENCHMARK_CAPTURE(OnSample, analog, kAnalogTrace)
    ->Name("KaloAnalogtraceCreate, sample")
    ->Iterations(kTurns)
    ->UseManualTime();
BENCHMARK_CAPTURE(OnSample, io, kIoTrace)
    ->Name("KaloIotraceCreate, sample")
    ->Iterations(kTurns)
    ->UseManualTime();
BENCHMARK_CAPTURE(OnSample, five, kAllFive)
    ->Name("five builders, sample")
    ->Iterations(kTurns)
    ->UseManualTime();
BENCHMARK(FirstOfSession)
    ->Name("five builders, first axis of a session")
    ->Iterations(kTurns)
    ->UseManualTime();
BENCHMARK(SecondAxis)
    ->Name("five builders, second axis, same combination")
    ->Iterations(kTurns)
    ->UseManualTime();

}  // namespace
}  // namespace bench
