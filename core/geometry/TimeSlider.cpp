#include "core/geometry/TimeSlider.h"

#include <algorithm>
#include <cmath>

namespace velmorin::TimeSlider {

std::int64_t stored(double x, std::int64_t lower, std::int64_t upper, std::int64_t step) {
    const auto stepWidth = static_cast<double>(std::max<std::int64_t>(step, 1));
    const double onGrid = std::round(x / stepWidth) * stepWidth;
    // Compared as doubles first: what no integer can hold lies beyond one of the bounds.
    if (!(onGrid > static_cast<double>(lower))) return std::min(lower, upper);
    if (onGrid >= static_cast<double>(upper)) return upper;
    return static_cast<std::int64_t>(onGrid);
}

} // namespace velmorin::TimeSlider
