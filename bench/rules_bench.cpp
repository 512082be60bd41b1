// What runs often or on the way of a keystroke: judging a tab, sealing a message, writing a date.

#include "core/language/Formatting.h"
#include "core/phone/PhoneWire.h"
#include "core/rules/AppPolicy.h"
#include "core/rules/DomainPolicy.h"

#include <benchmark/benchmark.h>
#include <string>
#include <vector>

namespace velmorin {
namespace {

std::vector<std::string> domains(std::int64_t count) {
    std::vector<std::string> domains;
    for (std::int64_t index = 0; index < count; ++index)
        domains.push_back("site" + std::to_string(index) + ".example.org");
    return domains;
}

/// The dearest answer: no domain fits.
void judgeAddress(benchmark::State& state) {
    const auto allowed = domains(state.range(0));
    const std::string url = "https://www.news.example.com/2026/03/01/an-article?from=start#comments";
    for (auto _ : state)
        benchmark::DoNotOptimize(DomainPolicy::isAllowed(url, allowed));
}
BENCHMARK(judgeAddress)->Arg(0)->Arg(10)->Arg(100);

void judgeApplication(benchmark::State& state) {
    AppPolicy policy;
    for (int index = 0; index < 30; ++index)
        policy.allowed.insert("org.example.app" + std::to_string(index));
    for (auto _ : state)
        benchmark::DoNotOptimize(policy.isAllowed("org.example.game"));
}
BENCHMARK(judgeApplication);

void seal(benchmark::State& state) {
    const Bytes key(32, 7);
    const Bytes message(static_cast<std::size_t>(state.range(0)), 'x');
    for (auto _ : state)
        benchmark::DoNotOptimize(PhoneWire::seal(message, key, PhoneWire::command));
}
BENCHMARK(seal)->Arg(100)->Arg(1'000)->Arg(10'000);

void open(benchmark::State& state) {
    const Bytes key(32, 7);
    const auto sealed =
        PhoneWire::seal(Bytes(static_cast<std::size_t>(state.range(0)), 'x'), key, PhoneWire::command).value();
    for (auto _ : state)
        benchmark::DoNotOptimize(PhoneWire::open(sealed, key, PhoneWire::command));
}
BENCHMARK(open)->Arg(1'000);

void writeShortDate(benchmark::State& state, AppLanguage language) {
    const auto zone = Calendar::inTimeZone("Asia/Tehran");
    Date date{800'000'000};
    for (auto _ : state) {
        benchmark::DoNotOptimize(shortDate(language, date, *zone));
        date = date + 3'600.0;
    }
}
BENCHMARK_CAPTURE(writeShortDate, persian, AppLanguage::persian);
BENCHMARK_CAPTURE(writeShortDate, english, AppLanguage::english);
BENCHMARK_CAPTURE(writeShortDate, german, AppLanguage::german);

} // namespace
} // namespace velmorin
