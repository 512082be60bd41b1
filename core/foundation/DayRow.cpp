#include "core/foundation/DayRow.h"

#include <algorithm>

namespace velmorin {

DayRow::DayRow(const Calendar& calendar, Date now, int count) {
    const auto today = calendar.day(now);
    if (!today) return;
    for (int offset = 1 - count; offset <= 0; ++offset) {
        const auto day = *today + std::chrono::days{offset};
        const auto start = calendar.startOfDay(day);
        if (!start) continue;
        m_starts.push_back(*start);
        m_days.push_back(day);
    }
    if (m_starts.empty()) return;
    // Clocks set back over midnight show the end of a day once more after the next one has begun, and the last day
    // may last longer than others: look a little past both ends.
    constexpr double margin = static_cast<double>(std::chrono::seconds{std::chrono::days{3}}.count());
    m_offsets = calendar.offsets(m_starts.front() - margin, m_starts.back() + margin);
}

std::optional<std::size_t> DayRow::find(Date date) const {
    const auto span =
        std::ranges::find_if(m_offsets, [date](const OffsetSpan& candidate) { return candidate.contains(date); });
    if (span == m_offsets.end()) return std::nullopt;
    const auto day = span->day(date);
    const auto found = std::ranges::lower_bound(m_days, day);
    if (found == m_days.end() || *found != day) return std::nullopt;
    return static_cast<std::size_t>(found - m_days.begin());
}

} // namespace velmorin
