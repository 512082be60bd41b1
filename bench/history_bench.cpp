// A long history: read, summed up for each period, written; and the log, one line at a time.

#include "core/foundation/Calendar.h"
#include "core/session/StatsSummary.h"
#include "core/store/EventLog.h"
#include "core/store/JSONStore.h"
#include "core/store/PosixFiles.h"
#include "tests/support/SampleHistory.h"
#include "tests/support/TemporaryDirectory.h"

#include <benchmark/benchmark.h>
#include <filesystem>
#include <string>

namespace velmorin {
namespace {

constexpr std::int64_t sizes[] = {1'000, 10'000, 40'000};

void everySize(benchmark::internal::Benchmark* benchmark) {
    for (const auto size : sizes)
        benchmark->Arg(size);
    benchmark->Complexity(benchmark::oN)->Unit(benchmark::kMillisecond);
}

struct Bench {
    TemporaryDirectory directory;
    PosixFiles files;
    JSONStore store{directory.path(), files};
};

void load(benchmark::State& state) {
    const Bench bench;
    bench.store.save(sampleHistory(static_cast<std::size_t>(state.range(0))), "history.json");
    for (auto _ : state) {
        const auto history = bench.store.load<std::vector<SessionRecord>>("history.json");
        if (!history) state.SkipWithError("the history did not load");
        benchmark::DoNotOptimize(history);
    }
    const auto bytes = static_cast<std::int64_t>(std::filesystem::file_size(bench.directory.path() / "history.json"));
    state.SetBytesProcessed(state.iterations() * bytes);
    state.SetComplexityN(state.range(0));
}
BENCHMARK(load)->Apply(everySize);

void save(benchmark::State& state) {
    const Bench bench;
    const auto history = sampleHistory(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        if (!bench.store.save(history, "history.json")) state.SkipWithError("the history was not saved");
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(save)->Apply(everySize)->UseRealTime();

/// What of `save` is ours; the rest is the disk's.
void encodeOnly(benchmark::State& state) {
    const auto history = sampleHistory(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(encodeJSON(history));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(encodeOnly)->Apply(everySize);

void summarise(benchmark::State& state, StatsPeriod period, SampleSpread spread) {
    const auto history = sampleHistory(static_cast<std::size_t>(state.range(0)), spread);
    const auto calendar = Calendar::inTimeZone("Asia/Tehran");
    for (auto _ : state)
        benchmark::DoNotOptimize(StatsSummary{history, period, sampleNow, *calendar});
    state.SetComplexityN(state.range(0));
}
BENCHMARK_CAPTURE(summarise, today, StatsPeriod::today, SampleSpread::years)->Apply(everySize);
BENCHMARK_CAPTURE(summarise, week, StatsPeriod::week, SampleSpread::years)->Apply(everySize);
BENCHMARK_CAPTURE(summarise, month, StatsPeriod::month, SampleSpread::years)->Apply(everySize);
BENCHMARK_CAPTURE(summarise, all, StatsPeriod::all, SampleSpread::years)->Apply(everySize);
BENCHMARK_CAPTURE(summarise, monthOfMany, StatsPeriod::month, SampleSpread::days)->Apply(everySize);
BENCHMARK_CAPTURE(summarise, allOfMany, StatsPeriod::all, SampleSpread::days)->Apply(everySize);

/// A line costs the same however long the log already is.
void appendToLog(benchmark::State& state) {
    const Bench bench;
    bench.store.appendLine(std::string(static_cast<std::size_t>(state.range(0)), '.'), EventLog::fileName);
    for (auto _ : state)
        EventLog::log(bench.store, sampleNow, "thought parked");
}
BENCHMARK(appendToLog)->Arg(0)->Arg(100'000)->Arg(1'000'000)->UseRealTime()->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace velmorin
