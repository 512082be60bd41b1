#pragma once

#include <compare>
#include <string>

namespace velmorin {

/// A wall-clock moment, in seconds since 2001-01-01 00:00:00 UTC. Lengths of time are plain doubles in seconds.
struct Date {
    /// Seconds from 1970-01-01 to 2001-01-01, both 00:00:00 UTC.
    static constexpr double secondsFrom1970To2001 = 978'307'200.0;

    double secondsSince2001 = 0;

    /// A moment before all others that matter: 0001-01-01 00:00:00 UTC.
    static constexpr Date distantPast() { return {-63'114'076'800.0}; }

    static constexpr Date fromSecondsSince1970(double seconds) { return {seconds - secondsFrom1970To2001}; }
    constexpr double secondsSince1970() const { return secondsSince2001 + secondsFrom1970To2001; }

    friend constexpr Date operator+(Date date, double seconds) { return {date.secondsSince2001 + seconds}; }
    friend constexpr Date operator-(Date date, double seconds) { return {date.secondsSince2001 - seconds}; }
    /// Seconds from `earlier` to `later`; negative when `later` is the earlier one.
    friend constexpr double operator-(Date later, Date earlier) {
        return later.secondsSince2001 - earlier.secondsSince2001;
    }
    friend constexpr auto operator<=>(const Date&, const Date&) = default;
};

/// The internet date-time form in UTC with whole seconds, as in "2026-03-01T14:05:09Z" (RFC 3339). A fraction of a
/// second is cut off. Moments outside the years 0 to 9999 show as the nearest moment inside.
std::string iso8601(Date date);

} // namespace velmorin
