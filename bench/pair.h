#pragma once

#include <benchmark/benchmark.h>

#include <functional>

namespace bench {

// One piece of work done by the library and by the plain program, in turns. The steps between the turns are
// not measured.
struct Pair {
    std::function<void()> library;
    std::function<void()> plain;
    double budget;  // of the library's time in terms of the plain program's; 0 = none
    int calls = 1;  // of either side in one turn
    std::function<void()> before = {};
    std::function<void()> after = {};
};

// Runs a pair, one turn of each side an iteration, and reports the medians as counters: library and plain (in
// microseconds a call), ratio, and the budget. Time is the processor time of this process: what else the
// machine does is no part of it.
void Measure(benchmark::State& state, const Pair& pair);

// Reports values that were measured otherwise.
void Report(benchmark::State& state, double library, double plain, double ratio, double budget);

double ProcessorSeconds();

}  // namespace bench
