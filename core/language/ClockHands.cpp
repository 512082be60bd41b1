#include "core/language/ClockHands.h"

namespace velmorin {

ClockHands::ClockHands(Date date, const Calendar& calendar) {
    const auto time = calendar.timeOfDay(date);
    const double minuteValue = time.minute + time.second / 60.0;
    hourDegrees = ((time.hour % 12) + minuteValue / 60.0) * 30.0;
    minuteDegrees = minuteValue * 6.0;
}

} // namespace velmorin
