#pragma once

#include "core/foundation/Calendar.h"
#include "core/foundation/Date.h"
#include "core/language/AppLanguage.h"

#include <cstdint>
#include <string>

/// Numbers, lengths of time and dates in the words and digits of each language. Pure; any thread. Seconds are finite.
namespace velmorin {

/// Plain decimal text in the language's digits, without grouping.
std::string number(AppLanguage language, std::int64_t value);

/// Whole minutes, rounded up, so that a time left is never shown as shorter than it is: "2 hr 5 min".
std::string duration(AppLanguage language, double seconds);

/// The short form for tight places: minutes alone below an hour, otherwise hours and minutes as in "2:10".
std::string compactRemaining(AppLanguage language, double seconds);

/// Hour and minute of the day, two digits each.
std::string timeOfDay(AppLanguage language, Date date, const Calendar& calendar);

/// Day and month: of the solar year in Persian, of the Gregorian one else, never with the year. Empty outside the
/// calendar's years.
std::string shortDate(AppLanguage language, Date date, const Calendar& timeZone);

} // namespace velmorin
