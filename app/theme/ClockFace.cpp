#include "app/theme/ClockFace.h"

#include "core/language/Formatting.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

namespace velmorin {

namespace {

/// Below this size the quarter hours are longer ticks, from it on they have numerals.
constexpr double smallestWithNumerals = 120;

/// Where a hand of `length` that points there ends.
ClockFace::Point end(ClockFace::Point centre, double length, double degrees) {
    const double radians = degrees * std::numbers::pi / 180;
    return {centre.x + length * std::cos(radians), centre.y + length * std::sin(radians)};
}

} // namespace

ClockFace::ClockFace(double size, ClockHands hands, std::optional<double> remainingFraction, AppLanguage language)
    : centre{size * 0.5, size * 0.5} {
    const double r = size * 0.5;
    const double arcWidth = size * 0.05;
    // The rim runs where the middle of the arc does, so that all of the arc is inside the square.
    rimRadius = r - arcWidth / 2;
    rimWidth = std::max(size * 0.006, 1.0);
    if (remainingFraction && *remainingFraction > 0) {
        remaining = Arc{-90, 360 * std::min(*remainingFraction, 1.0), arcWidth};
    }

    const bool hasNumerals = size >= smallestWithNumerals;
    numeralSize = size * 0.085;
    for (int index = 0; index < 12; ++index) {
        const bool isQuarter = index % 3 == 0;
        const double degrees = index * 30 - 90;
        const double start = isQuarter && !hasNumerals ? 0.8 : 0.86;
        ticks[static_cast<std::size_t>(index)] = {end(centre, start * r, degrees), end(centre, 0.93 * r, degrees),
                                                  std::max(size * 0.008, 1.0)};
        if (isQuarter && hasNumerals) {
            numerals.push_back({number(language, index == 0 ? 12 : index), end(centre, 0.7 * r, degrees)});
        }
    }

    hourHand = {centre, end(centre, 0.5 * r, hands.hourDegrees - 90), std::max(size * 0.03, 1.0)};
    minuteHand = {centre, end(centre, 0.72 * r, hands.minuteDegrees - 90), std::max(size * 0.018, 1.0)};
    hubRadius = std::max(size * 0.028, 1.5);
}

} // namespace velmorin
