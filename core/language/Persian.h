#pragma once

#include "core/foundation/Calendar.h"
#include "core/foundation/Date.h"

#include <cstdint>
#include <string>
#include <string_view>

/// Numbers, lengths of time and dates as Persian writes them. Pure; any thread. Seconds are finite.
namespace velmorin::Persian {

/// The text with the digits 0 to 9 replaced by ۰ to ۹, and all else as it is.
std::string digits(std::string_view text);

/// Without grouping; a minus sign stays as it is.
std::string number(std::int64_t value);

/// Whole minutes, rounded up, as in "۲ ساعت و ۵ دقیقه". Negative seconds count as none.
std::string duration(double seconds);

/// The short form: minutes alone below an hour, otherwise hours and minutes as in "۲:۱۰".
std::string compactRemaining(double seconds);

/// Minutes and seconds, with the hours before them from one hour on; seconds are rounded up.
std::string clock(double seconds);

/// Hour and minute of the day, two digits each.
std::string timeOfDay(Date date, const Calendar& calendar);

/// Day and month of the solar calendar, as in "۱۰ اسفند". Empty outside the calendar's years.
std::string shortDate(Date date, const Calendar& timeZone);

} // namespace velmorin::Persian
