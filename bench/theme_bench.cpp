// What a window's ground costs: all of it, when a window appears, and what one tick of a clock in front of it lays
// open.

#include "app/theme/GlowField.h"

#include <benchmark/benchmark.h>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace velmorin {
namespace {

void fillGround(benchmark::State& state) {
    const GlowField field{ThemeColors::of(ColorTheme::dusk), 1920, 1080};
    std::vector<std::uint32_t> row(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        for (int y = 0; y < state.range(1); ++y) {
            field.fill(row, {0.5, y + 0.5});
            benchmark::DoNotOptimize(row.data());
        }
    }
}
BENCHMARK(fillGround)->Args({1920, 1080})->Args({200, 60})->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace velmorin
