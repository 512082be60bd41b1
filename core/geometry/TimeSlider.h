#pragma once

#include <cstdint>

/// The grid of a slider over whole numbers. Pure; any thread.
namespace velmorin::TimeSlider {

/// The value on the grid that is nearest to where the slider stands, halves away from zero, within the bounds. Steps
/// below 1 count as 1. Where the bounds cross, the upper one holds.
std::int64_t stored(double x, std::int64_t lower, std::int64_t upper, std::int64_t step);

} // namespace velmorin::TimeSlider
