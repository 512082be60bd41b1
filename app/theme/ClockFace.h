#pragma once

#include "core/language/AppLanguage.h"
#include "core/language/ClockHands.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace velmorin {

/// What an analog clock of one size shows at one moment, in the order in which it is drawn. Lengths in the units of the
/// size, the origin in the upper left corner; angles in degrees clockwise from three o'clock.
struct ClockFace {
    struct Point {
        double x = 0;
        double y = 0;

        bool operator==(const Point&) const = default;
    };

    struct Line {
        Point from;
        Point to;
        double width = 0;

        bool operator==(const Line&) const = default;
    };

    /// A part of the rim, with round ends.
    struct Arc {
        double startDegrees = -90;
        double sweepDegrees = 0;
        double width = 0;

        bool operator==(const Arc&) const = default;
    };

    struct Numeral {
        std::string text;
        Point centre;

        bool operator==(const Numeral&) const = default;
    };

    ClockFace() = default;
    /// `remainingFraction` is what is left of the session, 0 to 1; absent on a plain clock.
    ClockFace(double size, ClockHands hands, std::optional<double> remainingFraction, AppLanguage language);

    Point centre;
    double rimRadius = 0;
    double rimWidth = 0;
    std::optional<Arc> remaining;
    std::array<Line, 12> ticks; ///< that of twelve o'clock first
    std::vector<Numeral> numerals;
    double numeralSize = 0; ///< the height of the type
    Line hourHand;
    Line minuteHand;
    double hubRadius = 0;

    bool operator==(const ClockFace&) const = default;
};

} // namespace velmorin
