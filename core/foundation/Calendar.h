#pragma once

#include "core/foundation/Date.h"

#include <chrono>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace velmorin {

/// A stretch of time throughout which a zone keeps one distance from UTC.
struct OffsetSpan {
    Date start;
    Date end;          ///< exclusive
    double offset = 0; ///< seconds that local clocks are ahead of UTC

    bool contains(Date date) const { return start <= date && date < end; }
    /// The calendar day that local clocks show at `date`, which lies in this span.
    std::chrono::local_days day(Date date) const;
};

/// What local clocks show.
struct TimeOfDay {
    int hour = 0;   ///< 0 to 23
    int minute = 0; ///< 0 to 59
    int second = 0; ///< 0 to 59

    bool operator==(const TimeOfDay&) const = default;
};

/// The Gregorian calendar in one time zone: which day a moment belongs to, and when a day begins. Days are what local
/// clocks show; a change of the clocks may make one shorter, begin it after midnight, or leave it out altogether. Any
/// thread.
class Calendar {
public:
    /// The calendar in the zone with this name of the system's time zone database (IANA), such as "Asia/Tehran";
    /// absent when there is no such zone.
    static std::optional<Calendar> inTimeZone(std::string_view name);

    /// The calendar day of a moment; absent outside the years −9999 to 9999.
    std::optional<std::chrono::local_days> day(Date date) const;

    /// What the zone's clocks show at a moment; midnight outside these years.
    TimeOfDay timeOfDay(Date date) const;

    /// The first moment that shows this day. Absent for a day that the zone left out, and outside these years.
    std::optional<Date> startOfDay(std::chrono::local_days day) const;

    /// The spans that together cover the time from `from` to `to`, in order. Empty far outside these years.
    std::vector<OffsetSpan> offsets(Date from, Date to) const;

private:
    /// The zone's rules as the library holds them, hidden so that its headers stay out of ours.
    struct Zone;

    explicit Calendar(std::shared_ptr<const Zone> zone);

    std::shared_ptr<const Zone> m_zone;
};

} // namespace velmorin
