#pragma once

#include "core/foundation/Calendar.h"
#include "core/foundation/Date.h"

namespace velmorin {

/// The hands of an analog clock, in degrees clockwise from twelve. Both move continuously.
struct ClockHands {
    double hourDegrees = 0;
    double minuteDegrees = 0;

    ClockHands() = default;
    ClockHands(Date date, const Calendar& calendar);

    bool operator==(const ClockHands&) const = default;
};

} // namespace velmorin
