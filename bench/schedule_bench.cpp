// Building a plan, and asking it as every tick of a running session does.

#include "core/session/ActiveSession.h"
#include "core/session/Profile.h"
#include "core/session/Schedule.h"

#include <benchmark/benchmark.h>

namespace velmorin {
namespace {

const Date start{800'000'000};

void buildPomodoro(benchmark::State& state) {
    const PomodoroConfig config{.totalCycles = state.range(0)};
    for (auto _ : state)
        benchmark::DoNotOptimize(Schedule::pomodoro(config));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(buildPomodoro)->Arg(4)->Arg(48)->Arg(480)->Complexity(benchmark::oN);

void buildDeep(benchmark::State& state) {
    const DeepConfig config{.totalMinutes = state.range(0)};
    for (auto _ : state)
        benchmark::DoNotOptimize(Schedule::deep(config));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(buildDeep)->Arg(180)->Arg(1440)->Arg(14400)->Complexity(benchmark::oN);

/// The last moment of a plan is the dearest to ask for.
void askLate(benchmark::State& state) {
    const auto plan = Schedule::pomodoro({.totalCycles = state.range(0)});
    const Date now = start + Schedule::totalDuration(plan) - 1.0;
    for (auto _ : state)
        benchmark::DoNotOptimize(Schedule::status(plan, start, now));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(askLate)->Arg(4)->Arg(48)->Arg(480)->Complexity(benchmark::oN);

void creditFocusedSeconds(benchmark::State& state) {
    const auto plan = Schedule::deep({});
    for (auto _ : state)
        benchmark::DoNotOptimize(Schedule::focusedSeconds(plan, start, start + 9'000.0));
}
BENCHMARK(creditFocusedSeconds);

void creditFinishedWork(benchmark::State& state) {
    const auto plan = Schedule::pomodoro({});
    for (auto _ : state)
        benchmark::DoNotOptimize(Schedule::finishedWork(plan, start, start + 6'000.0));
}
BENCHMARK(creditFinishedWork);

} // namespace
} // namespace velmorin
