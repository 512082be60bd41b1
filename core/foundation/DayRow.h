#pragma once

#include "core/foundation/Calendar.h"
#include "core/foundation/Date.h"

#include <chrono>
#include <cstddef>
#include <optional>
#include <vector>

namespace velmorin {

/// Consecutive calendar days that end with the day of a given moment. It finds the day of any moment without asking
/// the calendar again, so that a long history is cut quickly.
class DayRow {
public:
    /// The last `count` days up to that of `now`. A day that the zone left out is missing from the row; outside the
    /// calendar's years the row is empty.
    DayRow(const Calendar& calendar, Date now, int count);

    /// The first moment of each day, oldest first.
    const std::vector<Date>& starts() const { return m_starts; }

    /// The place in `starts` of the day that a moment belongs to; absent when it is none of them.
    std::optional<std::size_t> find(Date date) const;

private:
    std::vector<Date> m_starts;
    std::vector<std::chrono::local_days> m_days;
    std::vector<OffsetSpan> m_offsets;
};

} // namespace velmorin
