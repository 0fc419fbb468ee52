#include <malloc.h>

#include <vector>

#include "pair.h"
#include "stage.h"

namespace bench {
namespace {

// Memory in use, in bytes; the engine's and the library's alike come from malloc.
double InUse() {
    return static_cast<double>(mallinfo2().uordblks);
}

void GetEverything(std::vector<KaloUserParameter>& parameters) {
    for (int id = 0; id < 200; ++id) {
        KaloUserParameter parameter;
        KaloMonitor monitor;
        KaloAlarm alarm;
        KaloGetUParaInfo(1, id, &parameter);
        KaloGetMonitorInfo(1, id, &monitor);
        KaloGetAlarmInfo(1, id, &alarm);
    }
    KaloGetAllUParaInfo(1, static_cast<std::int16_t>(parameters.size()), parameters.data());
}

// A day of a host in short: axes come and go, everything is read. After a few rounds nothing may grow.
void Growth(benchmark::State& state) {
    constexpr int kWarmUp = 20;
    constexpr int kRounds = 100;
    constexpr double kAllowed = 64 * 1024;
    const Stage stage;
    std::vector<KaloUserParameter> parameters(500);
    const auto round = [&](int number) {
        Drive drive = kDrive;
        drive.firmware = 3 + number % 3;
        BuildParameters(drive, 1);
        BuildMonitors(drive, 1);
        BuildAlarms(drive, 1);
        GetEverything(parameters);
        Check(KaloDeleteAxisTable(1), "KaloDeleteAxisTable");
    };
    for (auto _ : state) {
        for (int i = 0; i < kWarmUp; ++i)
            round(i);
        const double before = InUse();
        for (int i = 0; i < kRounds; ++i)
            round(i);
        const double grown = InUse() - before;
        state.SetIterationTime(1);
        state.SetLabel(std::to_string(static_cast<long>(grown)) + " bytes more after 60,000 calls");
        if (grown > kAllowed) state.SkipWithError("memory grows with the number of calls");
    }
    Report(state, 0, 0, 0, 0);
}

BENCHMARK(Growth)->Name("memory")->Iterations(1)->UseManualTime();

}  // namespace
}  // namespace bench
