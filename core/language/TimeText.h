#pragma once

#include "core/foundation/Calendar.h"
#include "core/foundation/Date.h"

#include <cstdint>
#include <string>
#include <string_view>

/// What the languages share in writing times, with Latin digits.
namespace velmorin::TimeText {

/// A length of time as people read it.
struct HoursAndMinutes {
    std::int64_t hours = 0;
    std::int64_t minutes = 0;

    /// Whole minutes, rounded up; negative seconds count as none.
    static HoursAndMinutes roundedUp(double seconds);
};

/// A length of time as a whole number, rounded up and from 0 to far more than any session can last.
std::int64_t roundedUp(double length);

/// The words around the numbers.
struct Labels {
    std::string_view hours;
    std::string_view minutes;
    std::string_view between;
};

std::string duration(double seconds, const Labels& labels);
std::string compactRemaining(double seconds, const Labels& labels);

/// A number with as many leading zeros as make it two digits long.
std::string twoDigits(std::int64_t value);

std::string timeOfDay(Date date, const Calendar& calendar);

/// The formats of a day and a month. Each has one formatter a thread, since nothing but the day changes.
enum class DayFormat { persian, english, german };

/// The day that local clocks of the zone show, in the digits of the locale's data. Empty outside the calendar's years.
std::string shortDate(Date date, const Calendar& timeZone, DayFormat format);

} // namespace velmorin::TimeText
