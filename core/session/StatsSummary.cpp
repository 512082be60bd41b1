#include "core/session/StatsSummary.h"

#include "core/foundation/DayRow.h"
#include "core/foundation/NumberText.h"
#include "core/session/ProjectSlots.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <limits>
#include <optional>
#include <string_view>

namespace velmorin {

namespace {

/// Counters of a file edited by hand may be of any size; a sum stops at the ends of its type.
std::int64_t saturatingSum(std::int64_t left, std::int64_t right) {
    std::int64_t sum = 0;
    if (!__builtin_add_overflow(left, right, &sum)) return sum;
    return right > 0 ? std::numeric_limits<std::int64_t>::max() : std::numeric_limits<std::int64_t>::min();
}

/// How many days, today included, a period looks back; for `all` those that its chart shows.
int daysOf(StatsPeriod period) {
    switch (period) {
    case StatsPeriod::today: return 1;
    case StatsPeriod::week: return 7;
    case StatsPeriod::month:
    case StatsPeriod::all: break;
    }
    return 30;
}

/// The moment from which on sessions count; absent when all do.
std::optional<Date> earliestStart(StatsPeriod period, Date now, const Calendar& calendar) {
    if (period == StatsPeriod::all) return std::nullopt;
    const auto today = calendar.day(now);
    if (!today) return now;
    const Date startOfToday = calendar.startOfDay(*today).value_or(now);
    return calendar.startOfDay(*today - std::chrono::days{daysOf(period) - 1}).value_or(startOfToday);
}

/// The groups that records are counted in: the projects with a place, in that order, and the rest.
class Groups {
public:
    explicit Groups(std::span<const SessionRecord> history) : m_slots{history} {
        // A project that bears the name of the rest and has a place is one with it.
        m_rest = m_slots.slot(ProjectSlots::otherName).value_or(m_slots.names.size());
    }

    static constexpr std::size_t maximum = ProjectSlots::maximum + 1;

    std::size_t group(const SessionRecord& record) const { return m_slots.slot(record.profileName).value_or(m_rest); }

    std::string_view name(std::size_t group) const {
        return group < m_slots.names.size() ? std::string_view{m_slots.names[group]} : ProjectSlots::otherName;
    }

    /// The groups of a bar from the bottom up. The rest always comes last, also where it has a place besides.
    std::vector<std::size_t> stack() const {
        std::vector<std::size_t> groups;
        for (std::size_t group = 0; group < m_slots.names.size(); ++group)
            groups.push_back(group);
        groups.push_back(m_rest);
        return groups;
    }

private:
    ProjectSlots m_slots;
    std::size_t m_rest = 0;
};

struct GroupTotal {
    double seconds = 0;
    std::int64_t sessions = 0;
};

std::vector<ProjectTotal> ranking(const Groups& groups, const std::array<GroupTotal, Groups::maximum>& totals) {
    std::vector<ProjectTotal> ranked;
    for (std::size_t group = 0; group < totals.size(); ++group) {
        const auto& total = totals[group];
        if (total.sessions > 0) ranked.push_back({std::string{groups.name(group)}, total.seconds, total.sessions});
    }
    std::ranges::sort(ranked, [](const ProjectTotal& left, const ProjectTotal& right) {
        return left.seconds != right.seconds ? left.seconds > right.seconds : left.name < right.name;
    });
    return ranked;
}

using DayTotals = std::array<double, Groups::maximum>;

void appendBar(std::vector<DaySegment>& segments, Date day, const Groups& groups, const DayTotals& seconds) {
    double bottom = 0;
    for (const std::size_t group : groups.stack()) {
        if (!(seconds[group] > 0)) continue;
        const double top = bottom + seconds[group] / 60.0;
        segments.push_back({day, std::string{groups.name(group)}, bottom, top});
        bottom = top;
    }
}

} // namespace

std::string DaySegment::id() const {
    const double seconds = day.secondsSince1970();
    NumberBuffer buffer;
    std::string text{numberText(seconds, buffer)};
    if (seconds == std::trunc(seconds)) text += ".0";
    return text + "-" + project;
}

StatsSummary::StatsSummary(std::span<const SessionRecord> history, StatsPeriod period, Date now,
                           const Calendar& calendar) {
    const Groups groups{history};
    const bool hasChart = period != StatsPeriod::today;
    const DayRow row{calendar, now, hasChart ? daysOf(period) : 0};
    const auto earliest = earliestStart(period, now, calendar);

    std::array<GroupTotal, Groups::maximum> totals{};
    std::vector<DayTotals> bars(row.starts().size());
    for (const auto& record : history) {
        if (earliest && !(record.startedAt >= *earliest)) continue;
        records.push_back(&record);
        focusedSeconds += record.focusedSeconds;
        rounds = saturatingSum(rounds, record.completedRounds.value_or(0));
        returns = saturatingSum(returns, record.returns);

        const std::size_t group = groups.group(record);
        totals[group].seconds += record.focusedSeconds;
        ++totals[group].sessions;
        if (const auto day = row.find(record.startedAt)) bars[*day][group] += record.focusedSeconds;
    }
    sessions = static_cast<std::int64_t>(records.size());
    byProject = ranking(groups, totals);
    days = row.starts();
    for (std::size_t day = 0; day < days.size(); ++day)
        appendBar(segments, days[day], groups, bars[day]);
}

} // namespace velmorin
