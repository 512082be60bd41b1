#include "core/foundation/Date.h"

#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>

namespace velmorin {

namespace {

using std::chrono::sys_seconds;

constexpr sys_seconds earliest = std::chrono::sys_days{std::chrono::year{0} / 1 / 1};
constexpr sys_seconds latest = std::chrono::sys_days{std::chrono::year{10000} / 1 / 1} - std::chrono::seconds{1};

sys_seconds wholeSeconds(Date date) {
    const double seconds = std::floor(date.secondsSince1970());
    // Written so that a moment that is no number counts as the earliest one.
    if (!(seconds > static_cast<double>(earliest.time_since_epoch().count()))) return earliest;
    if (seconds > static_cast<double>(latest.time_since_epoch().count())) return latest;
    return sys_seconds{std::chrono::seconds{static_cast<std::chrono::seconds::rep>(seconds)}};
}

} // namespace

std::string iso8601(Date date) {
    const sys_seconds moment = wholeSeconds(date);
    const auto day = std::chrono::floor<std::chrono::days>(moment);
    const std::chrono::year_month_day calendarDay{day};
    const std::chrono::hh_mm_ss time{moment - day};
    std::array<char, 64> text{};
    const int length =
        std::snprintf(text.data(), text.size(), "%04d-%02u-%02uT%02d:%02d:%02dZ", static_cast<int>(calendarDay.year()),
                      static_cast<unsigned>(calendarDay.month()), static_cast<unsigned>(calendarDay.day()),
                      static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count()),
                      static_cast<int>(time.seconds().count()));
    return {text.data(), static_cast<std::size_t>(length)};
}

} // namespace velmorin
