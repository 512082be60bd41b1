#include "core/language/Persian.h"

#include "core/language/TimeText.h"

#include <array>

namespace velmorin::Persian {

namespace {

constexpr TimeText::Labels labels{.hours = "ساعت", .minutes = "دقیقه", .between = " و "};

} // namespace

std::string digits(std::string_view text) {
    constexpr std::array<std::string_view, 10> persian{"۰", "۱", "۲", "۳", "۴", "۵", "۶", "۷", "۸", "۹"};
    std::string replaced;
    replaced.reserve(text.size() * 2);
    for (const char character : text) {
        if (character >= '0' && character <= '9') {
            replaced += persian[static_cast<std::size_t>(character - '0')];
        } else {
            replaced += character;
        }
    }
    return replaced;
}

std::string number(std::int64_t value) {
    return digits(std::to_string(value));
}

std::string duration(double seconds) {
    return digits(TimeText::duration(seconds, labels));
}

std::string compactRemaining(double seconds) {
    return digits(TimeText::compactRemaining(seconds, labels));
}

std::string clock(double seconds) {
    const auto total = TimeText::roundedUp(seconds);
    const std::string minutesAndSeconds = TimeText::twoDigits(total / 60 % 60) + ":" + TimeText::twoDigits(total % 60);
    return digits(total < 3600 ? minutesAndSeconds : std::to_string(total / 3600) + ":" + minutesAndSeconds);
}

std::string timeOfDay(Date date, const Calendar& calendar) {
    return digits(TimeText::timeOfDay(date, calendar));
}

std::string shortDate(Date date, const Calendar& timeZone) {
    return digits(TimeText::shortDate(date, timeZone, TimeText::DayFormat::persian));
}

} // namespace velmorin::Persian
