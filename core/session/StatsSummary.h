#pragma once

#include "core/foundation/Calendar.h"
#include "core/foundation/Date.h"
#include "core/session/SessionRecord.h"
#include "core/session/StatsPeriod.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace velmorin {

/// What one project added up to.
struct ProjectTotal {
    std::string name; ///< also names this value
    double seconds = 0;
    std::int64_t sessions = 0;

    bool operator==(const ProjectTotal&) const = default;
};

/// One piece of the stacked bar of one day. The minutes are minutes of focus counted from the bottom of the bar; they
/// have nothing to do with the time of day.
struct DaySegment {
    Date day; ///< its first moment
    std::string project;
    double startMinutes = 0;
    double endMinutes = 0;

    /// The day in seconds since 1970 and the project, as in "1772323200.0-Work".
    std::string id() const;

    bool operator==(const DaySegment&) const = default;
};

/// What the focus sessions of a period added up to. Only the start of a session decides about its day and whether it
/// is included; one that spans midnight is never split.
struct StatsSummary {
    std::vector<const SessionRecord*> records; ///< of the period, in the order of the history
    double focusedSeconds = 0;
    std::int64_t sessions = 0;
    std::int64_t rounds = 0; ///< a deep session has none; like `returns` it stops at the ends of its type
    std::int64_t returns = 0;
    std::vector<ProjectTotal> byProject; ///< most time first; at equal time by name
    std::vector<Date> days;              ///< of the chart, oldest first; empty for the period `today`
    std::vector<DaySegment> segments;    ///< day by day from the oldest, each from the bottom up

    /// Looks at each record of the whole history a fixed number of times, whatever the period. The summary points
    /// into `history`, which must outlive it unchanged. Cannot fail: where the zone left out the first day of the
    /// period, it begins today; where the calendar has no days at all (outside its years), it begins now and the chart
    /// is empty.
    StatsSummary(std::span<const SessionRecord> history, StatsPeriod period, Date now, const Calendar& calendar);
};

} // namespace velmorin
