#include "pair.h"

#include <algorithm>
#include <ctime>
#include <vector>

namespace bench {
namespace {

double Median(std::vector<double> values) {
    if (values.empty()) return 0;
    std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2),
                     values.end());
    return values[values.size() / 2];
}

double TimeOf(const std::function<void()>& call, int calls) {
    const double start = ProcessorSeconds();
    for (int i = 0; i < calls; ++i)
        call();
    return (ProcessorSeconds() - start) / calls;
}

}  // namespace

double ProcessorSeconds() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

void Measure(benchmark::State& state, const Pair& pair) {
    std::vector<double> library;
    std::vector<double> plain;
    std::vector<double> ratios;
    bool libraryFirst = true;
    for (auto _ : state) {
        if (pair.before) pair.before();
        if (libraryFirst) library.push_back(TimeOf(pair.library, pair.calls));
        plain.push_back(TimeOf(pair.plain, pair.calls));
        if (!libraryFirst) library.push_back(TimeOf(pair.library, pair.calls));
        libraryFirst = !libraryFirst;
        if (pair.after) pair.after();
        ratios.push_back(library.back() / plain.back());
        state.SetIterationTime(library.back());
    }
    Report(state, Median(library), Median(plain), Median(ratios), pair.budget);
}

void Report(benchmark::State& state, double library, double plain, double ratio, double budget) {
    state.counters["library"] = library * 1e6;
    state.counters["plain"] = plain * 1e6;
    state.counters["ratio"] = ratio;
    state.counters["budget"] = budget;
}

}  // namespace bench
