#include "core/language/TimeText.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <memory>
#include <unicode/gregocal.h>
#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>

namespace velmorin::TimeText {

namespace {

/// Locale, calendar and pattern of a format.
std::unique_ptr<icu::SimpleDateFormat> makeFormatter(const char* locale, const char* pattern) {
    UErrorCode status = U_ZERO_ERROR;
    auto formatter =
        std::make_unique<icu::SimpleDateFormat>(icu::UnicodeString::fromUTF8(pattern), icu::Locale{locale}, status);
    if (U_FAILURE(status)) return nullptr;
    // The day is told by the zone's clocks before it comes here.
    formatter->setTimeZone(*icu::TimeZone::getGMT());
    return formatter;
}

icu::SimpleDateFormat* formatter(DayFormat format) {
    thread_local const std::array formatters{
        makeFormatter("fa_IR@calendar=persian", "d MMMM"),
        makeFormatter("en_GB@calendar=gregorian", "d MMM"),
        makeFormatter("de_DE@calendar=gregorian", "d. MMM"),
    };
    return formatters[static_cast<std::size_t>(format)].get();
}

/// Noon of a day as if clocks showed UTC, in milliseconds since 1970: far from both ends of the day.
UDate noon(std::chrono::local_days day) {
    return static_cast<UDate>(std::chrono::milliseconds{day.time_since_epoch() + std::chrono::hours{12}}.count());
}

} // namespace

std::int64_t roundedUp(double length) {
    constexpr double bound = 1e15;
    // Written so that what is no number counts as none.
    return length > 0 ? static_cast<std::int64_t>(std::ceil(std::min(length, bound))) : 0;
}

HoursAndMinutes HoursAndMinutes::roundedUp(double seconds) {
    const auto minutes = TimeText::roundedUp(seconds / 60.0);
    return {minutes / 60, minutes % 60};
}

std::string twoDigits(std::int64_t value) {
    return (value < 10 ? "0" : "") + std::to_string(value);
}

std::string duration(double seconds, const Labels& labels) {
    const auto [hours, minutes] = HoursAndMinutes::roundedUp(seconds);
    std::string text;
    if (hours > 0) text = std::to_string(hours) + " " + std::string{labels.hours};
    if (hours > 0 && minutes > 0) text += labels.between;
    if (hours == 0 || minutes > 0) text += std::to_string(minutes) + " " + std::string{labels.minutes};
    return text;
}

std::string compactRemaining(double seconds, const Labels& labels) {
    const auto [hours, minutes] = HoursAndMinutes::roundedUp(seconds);
    if (hours == 0) return duration(seconds, labels);
    return std::to_string(hours) + ":" + twoDigits(minutes);
}

std::string timeOfDay(Date date, const Calendar& calendar) {
    const auto time = calendar.timeOfDay(date);
    return twoDigits(time.hour) + ":" + twoDigits(time.minute);
}

std::string shortDate(Date date, const Calendar& timeZone, DayFormat format) {
    const auto day = timeZone.day(date);
    auto* const formats = formatter(format);
    if (!day || formats == nullptr) return {};
    icu::UnicodeString text;
    formats->format(noon(*day), text);
    std::string utf8;
    return text.toUTF8String(utf8);
}

} // namespace velmorin::TimeText
