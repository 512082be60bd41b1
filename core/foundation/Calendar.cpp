#include "core/foundation/Calendar.h"

#include <absl/time/civil_time.h>
#include <absl/time/time.h>
#include <algorithm>
#include <utility>

namespace velmorin {

namespace {

using std::chrono::local_days;
using LocalSeconds = std::chrono::local_time<std::chrono::duration<double>>;

constexpr std::chrono::year firstYear{-9999};
constexpr std::chrono::year lastYear{9999};

/// No zone was ever further from UTC.
constexpr double largestOffset = 26 * 3600.0;

absl::Time toTime(Date date) {
    return absl::UnixEpoch() + absl::Seconds(date.secondsSince1970());
}

Date fromTime(absl::Time time) {
    return Date::fromSecondsSince1970(absl::ToDoubleSeconds(time - absl::UnixEpoch()));
}

/// Local midnight of a day, read as if local clocks showed UTC.
Date nominalMidnight(local_days day) {
    return Date::fromSecondsSince1970(static_cast<double>(std::chrono::seconds{day.time_since_epoch()}.count()));
}

bool isInRange(local_days day) {
    return day >= local_days{firstYear / 1 / 1} && day <= local_days{lastYear / 12 / 31};
}

/// Wide enough for every moment of these years in every zone, and for a look around it.
bool isInRange(Date date) {
    constexpr std::chrono::days margin{100};
    return nominalMidnight(local_days{firstYear / 1 / 1} - margin) <= date &&
           date <= nominalMidnight(local_days{lastYear / 12 / 31} + margin);
}

} // namespace

struct Calendar::Zone {
    absl::TimeZone rules;

    double offset(Date date) const { return rules.At(toTime(date)).offset; }

    std::optional<Date> nextTransition(Date after) const {
        absl::TimeZone::CivilTransition transition;
        if (!rules.NextTransition(toTime(after), &transition)) return std::nullopt;
        // Clocks set forward skip the local time they come from; clocks set back repeat the one they come to. Only
        // such a time knows the moment of the change.
        const bool isForward = transition.from < transition.to;
        return fromTime(rules.At(isForward ? transition.from : transition.to).trans);
    }
};

local_days OffsetSpan::day(Date date) const {
    const LocalSeconds local{std::chrono::duration<double>{date.secondsSince1970() + offset}};
    return std::chrono::floor<std::chrono::days>(local);
}

std::optional<Calendar> Calendar::inTimeZone(std::string_view name) {
    absl::TimeZone rules;
    if (!absl::LoadTimeZone({name.data(), name.size()}, &rules)) return std::nullopt;
    return Calendar{std::make_shared<const Zone>(Zone{rules})};
}

Calendar::Calendar(std::shared_ptr<const Zone> zone) : m_zone{std::move(zone)} {}

std::optional<local_days> Calendar::day(Date date) const {
    if (!isInRange(date)) return std::nullopt;
    const auto day = OffsetSpan{date, date, m_zone->offset(date)}.day(date);
    return isInRange(day) ? std::optional{day} : std::nullopt;
}

TimeOfDay Calendar::timeOfDay(Date date) const {
    if (!isInRange(date)) return {};
    const LocalSeconds local{std::chrono::duration<double>{date.secondsSince1970() + m_zone->offset(date)}};
    const auto day = std::chrono::floor<std::chrono::days>(local);
    const std::chrono::hh_mm_ss time{std::chrono::floor<std::chrono::seconds>(local - day)};
    return {static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count()),
            static_cast<int>(time.seconds().count())};
}

std::optional<Date> Calendar::startOfDay(local_days day) const {
    if (!isInRange(day)) return std::nullopt;
    const Date midnight = nominalMidnight(day);
    const Date nextMidnight = nominalMidnight(day + std::chrono::days{1});
    for (const auto& span : offsets(midnight - largestOffset, nextMidnight + largestOffset)) {
        const Date candidate = std::max(span.start, midnight - span.offset);
        if (span.contains(candidate) && span.day(candidate) == day) return candidate;
    }
    return std::nullopt;
}

std::vector<OffsetSpan> Calendar::offsets(Date from, Date to) const {
    std::vector<OffsetSpan> spans;
    if (!isInRange(from) || !isInRange(to)) return spans;
    Date start = from;
    while (start <= to) {
        const Date end = m_zone->nextTransition(start).value_or(to + 1.0);
        spans.push_back({start, end, m_zone->offset(start)});
        start = end;
    }
    return spans;
}

} // namespace velmorin
