#include "core/session/StatsSummary.h"

#include "core/foundation/RawValue.h"
#include "core/session/ProjectSlots.h"
#include "tests/support/SampleHistory.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <limits>
#include <map>
#include <random>

namespace velmorin {
namespace {

using History = std::vector<SessionRecord>;
using std::chrono::local_days;
using std::chrono::year;

Calendar zone(std::string_view name) {
    return Calendar::inTimeZone(name).value();
}

/// A moment by the clocks of Berlin in winter.
Date berlin(std::chrono::year_month_day day, int hour = 12, int minute = 0) {
    const auto start = zone("Europe/Berlin").startOfDay(local_days{day}).value();
    return start + (hour * 60 + minute) * 60.0;
}

SessionRecord record(const char* project, Date startedAt, double focusedSeconds) {
    SessionRecord record;
    record.profileName = project;
    record.startedAt = startedAt;
    record.endedAt = startedAt + 3'600.0;
    record.focusedSeconds = focusedSeconds;
    record.completedRounds = 2;
    record.returns = 3;
    return record;
}

const Date wednesday = berlin(year{2026} / 1 / 14, 15);
const Calendar inBerlin = zone("Europe/Berlin");

TEST(StatsSummaryTest, anEmptyHistoryHasNoTotalsAndAllItsDays) {
    const std::map<StatsPeriod, std::size_t> dayCounts{
        {StatsPeriod::today, 0}, {StatsPeriod::week, 7}, {StatsPeriod::month, 30}, {StatsPeriod::all, 30}};
    for (const auto& [period, count] : dayCounts) {
        const StatsSummary summary{{}, period, wednesday, inBerlin};
        EXPECT_EQ(summary.focusedSeconds, 0.0);
        EXPECT_EQ(summary.sessions, 0);
        EXPECT_EQ(summary.rounds, 0);
        EXPECT_EQ(summary.returns, 0);
        EXPECT_TRUE(summary.byProject.empty());
        EXPECT_TRUE(summary.segments.empty());
        EXPECT_EQ(summary.days.size(), count);
    }
}

TEST(StatsSummaryTest, aSessionOverMidnightCountsWhollyForTheDayOnWhichItStarted) {
    const History history{record("A", berlin(year{2026} / 1 / 13, 23, 50), 3'000)};
    EXPECT_EQ(StatsSummary(history, StatsPeriod::today, wednesday, inBerlin).sessions, 0);
    const StatsSummary week{history, StatsPeriod::week, wednesday, inBerlin};
    EXPECT_EQ(week.segments, (std::vector<DaySegment>{{berlin(year{2026} / 1 / 13, 0), "A", 0.0, 50.0}}));
}

TEST(StatsSummaryTest, theWeekOfAWednesdayBeginsWithTheFirstMomentOfTheThursdayBefore) {
    const Date thursday = berlin(year{2026} / 1 / 8, 0);
    const History history{record("A", thursday, 60), record("B", thursday - 0.001, 60)};
    const StatsSummary week{history, StatsPeriod::week, wednesday, inBerlin};
    EXPECT_EQ(week.days.front(), thursday);
    ASSERT_EQ(week.records.size(), 1U);
    EXPECT_EQ(week.records[0]->profileName, "A");
}

TEST(StatsSummaryTest, theSixthProjectIsShownAsTheRestHoweverMuchTimeItHas) {
    History history;
    for (const char* name : {"A", "B", "C", "D", "E"}) {
        history.push_back(record(name, wednesday + (static_cast<double>(history.size()) - 10.0), 60));
    }
    history.push_back(record("F", wednesday, 100'000));
    const StatsSummary summary{history, StatsPeriod::today, wednesday, inBerlin};
    EXPECT_EQ(summary.byProject.front(), (ProjectTotal{"بقیه", 100'000, 1}));
    EXPECT_EQ(summary.byProject.size(), 6U);
    const StatsSummary week{history, StatsPeriod::week, wednesday, inBerlin};
    EXPECT_EQ(week.segments.back().project, ProjectSlots::otherName) << "the rest is on top of the bar";
}

TEST(StatsSummaryTest, projectsWithEqualTimeAreRankedByName) {
    const History history{record("b", wednesday, 60), record("B", wednesday, 60), record("ä", wednesday, 60),
                          record("A", wednesday, 30)};
    const StatsSummary summary{history, StatsPeriod::today, wednesday, inBerlin};
    EXPECT_EQ(summary.byProject, (std::vector<ProjectTotal>{{"B", 60, 1}, {"b", 60, 1}, {"ä", 60, 1}, {"A", 30, 1}}));
}

TEST(StatsSummaryTest, deepSessionsHaveNoRounds) {
    History history{record("A", wednesday, 60), record("A", wednesday, 60)};
    EXPECT_EQ(StatsSummary(history, StatsPeriod::today, wednesday, inBerlin).rounds, 4);
    for (auto& entry : history)
        entry.completedRounds.reset();
    EXPECT_EQ(StatsSummary(history, StatsPeriod::today, wednesday, inBerlin).rounds, 0);
}

TEST(StatsSummaryTest, todayHasTotalsAndNoChart) {
    const History history{record("A", wednesday, 60), record("B", wednesday - 3'600.0, 90)};
    const StatsSummary summary{history, StatsPeriod::today, wednesday, inBerlin};
    EXPECT_EQ(summary.focusedSeconds, 150.0);
    EXPECT_EQ(summary.sessions, 2);
    EXPECT_EQ(summary.returns, 6);
    EXPECT_EQ(summary.byProject.size(), 2U);
    EXPECT_TRUE(summary.days.empty());
    EXPECT_TRUE(summary.segments.empty());
}

TEST(StatsSummaryTest, inAllAnOldSessionCountsButHasNoPiece) {
    const History history{record("A", berlin(year{2025} / 12 / 15), 60), record("B", berlin(year{2025} / 12 / 16), 60)};
    const StatsSummary summary{history, StatsPeriod::all, wednesday, inBerlin};
    EXPECT_EQ(summary.focusedSeconds, 120.0);
    EXPECT_EQ(summary.byProject.size(), 2U);
    ASSERT_EQ(summary.segments.size(), 1U);
    EXPECT_EQ(summary.segments[0].project, "B") << "the thirtieth day is the last one shown";
}

TEST(StatsSummaryTest, aSessionWithoutFocusIsASessionAndNoPiece) {
    const History history{record("A", wednesday, 0)};
    const StatsSummary summary{history, StatsPeriod::week, wednesday, inBerlin};
    EXPECT_EQ(summary.sessions, 1);
    EXPECT_EQ(summary.byProject, (std::vector<ProjectTotal>{{"A", 0, 1}}));
    EXPECT_TRUE(summary.segments.empty());
}

TEST(StatsSummaryTest, aProfileWithANewNameIsASecondProject) {
    const History history{record("New name", wednesday, 60), record("Old name", wednesday - 60.0, 60)};
    EXPECT_EQ(StatsSummary(history, StatsPeriod::today, wednesday, inBerlin).byProject.size(), 2U);
}

TEST(StatsSummaryTest, aSessionInTheFutureIsIncludedInEveryPeriod) {
    const History history{record("A", wednesday + 30 * 86'400.0, 60)};
    for (const auto period : allCases<StatsPeriod>()) {
        const StatsSummary summary{history, period, wednesday, inBerlin};
        EXPECT_EQ(summary.sessions, 1);
        EXPECT_TRUE(summary.segments.empty());
    }
}

TEST(StatsSummaryTest, aBarIsStackedInTheOrderOfFirstUse) {
    const History history{record("B", wednesday, 600), record("A", wednesday - 60.0, 60), record("B", wednesday, 30)};
    const StatsSummary summary{history, StatsPeriod::week, wednesday, inBerlin};
    const Date today = berlin(year{2026} / 1 / 14, 0);
    EXPECT_EQ(summary.segments, (std::vector<DaySegment>{{today, "A", 0.0, 1.0}, {today, "B", 1.0, 11.5}}));
}

TEST(StatsSummaryTest, theIDOfAPieceIsItsDaySince1970AndItsProject) {
    EXPECT_EQ((DaySegment{Date::fromSecondsSince1970(1'772'323'200), "Work", 0, 1}.id()), "1772323200.0-Work");
    EXPECT_EQ((DaySegment{Date::fromSecondsSince1970(-3'600), "", 0, 1}.id()), "-3600.0-");
}

TEST(StatsSummaryTest, countersOfAnySizeDoNotOverflow) {
    History history{record("A", wednesday, 60), record("A", wednesday, 60)};
    for (auto& entry : history) {
        entry.completedRounds = std::numeric_limits<std::int64_t>::max();
        entry.returns = std::numeric_limits<std::int64_t>::min();
    }
    const StatsSummary summary{history, StatsPeriod::today, wednesday, inBerlin};
    EXPECT_EQ(summary.rounds, std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(summary.returns, std::numeric_limits<std::int64_t>::min());
    history[1].completedRounds = -1;
    const StatsSummary mixed{history, StatsPeriod::today, wednesday, inBerlin};
    EXPECT_EQ(mixed.rounds, std::numeric_limits<std::int64_t>::max() - 1);
}

TEST(StatsSummaryTest, aPresentThatNoCalendarKnowsHasNoDays) {
    const History history{record("A", wednesday, 60)};
    for (const double now :
         {1e300, -1e300, std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
        const StatsSummary summary{history, StatsPeriod::all, Date{now}, inBerlin};
        EXPECT_EQ(summary.sessions, 1);
        EXPECT_TRUE(summary.days.empty());
        EXPECT_TRUE(summary.segments.empty());
        // Nothing lies before a moment that is no number, or after one without end.
        EXPECT_EQ(StatsSummary(history, StatsPeriod::week, Date{now}, inBerlin).sessions, now < 0 ? 1 : 0);
    }
}

// The definition of a summary, as plainly as it can be said: each day and each group scans all records anew.

std::string slotName(const ProjectSlots& slots, const SessionRecord& entry) {
    return slots.slot(entry.profileName) ? entry.profileName : std::string{ProjectSlots::otherName};
}

std::vector<Date> plainDays(int count, Date now, const Calendar& calendar) {
    std::vector<Date> days;
    for (int offset = 1 - count; offset <= 0; ++offset) {
        const auto start = calendar.startOfDay(*calendar.day(now) + std::chrono::days{offset});
        if (start) days.push_back(*start);
    }
    return days;
}

std::vector<DaySegment> plainSegments(const std::vector<const SessionRecord*>& records, const std::vector<Date>& days,
                                      const ProjectSlots& slots, const Calendar& calendar) {
    auto stack = slots.names;
    stack.emplace_back(ProjectSlots::otherName);
    std::vector<DaySegment> segments;
    for (const Date day : days) {
        double bottom = 0;
        for (const auto& name : stack) {
            double sum = 0;
            for (const auto* entry : records) {
                const bool isOfDay = calendar.day(entry->startedAt) == calendar.day(day);
                if (isOfDay && slotName(slots, *entry) == name) sum += entry->focusedSeconds;
            }
            if (!(sum > 0)) continue;
            segments.push_back({day, name, bottom, bottom + sum / 60.0});
            bottom = segments.back().endMinutes;
        }
    }
    return segments;
}

void expectPlainDefinition(const History& history, StatsPeriod period, Date now, const Calendar& calendar) {
    const ProjectSlots slots{history};
    const int count = period == StatsPeriod::today ? 1 : period == StatsPeriod::week ? 7 : 30;
    const auto today = *calendar.day(now);
    const Date cut = calendar.startOfDay(today - std::chrono::days{count - 1}).value_or(*calendar.startOfDay(today));
    std::vector<const SessionRecord*> records;
    for (const auto& entry : history) {
        if (period == StatsPeriod::all || entry.startedAt >= cut) records.push_back(&entry);
    }
    std::vector<ProjectTotal> totals;
    for (const auto* entry : records) {
        const auto name = slotName(slots, *entry);
        auto found = std::ranges::find(totals, name, &ProjectTotal::name);
        if (found == totals.end()) found = totals.insert(found, {name, 0, 0});
        found->seconds += entry->focusedSeconds;
        ++found->sessions;
    }
    std::ranges::sort(totals, {}, [](const ProjectTotal& total) { return std::pair{-total.seconds, total.name}; });
    const auto days = period == StatsPeriod::today ? std::vector<Date>{} : plainDays(count, now, calendar);

    const StatsSummary summary{history, period, now, calendar};
    EXPECT_EQ(summary.records, records);
    EXPECT_EQ(summary.byProject, totals);
    EXPECT_EQ(summary.days, days);
    EXPECT_EQ(summary.segments, plainSegments(records, days, slots, calendar));
}

/// Days around which clocks change, at midnight or not, by a whole hour, by half of one or by a whole day.
struct ZoneAndDay {
    const char* zone;
    std::chrono::year_month_day day;
};

class StatsSummaryProperty : public testing::TestWithParam<ZoneAndDay> {};

TEST_P(StatsSummaryProperty, theSummaryIsThatOfThePlainDefinition) {
    const Calendar calendar = zone(GetParam().zone);
    const Date around = calendar.startOfDay(local_days{GetParam().day}).value();
    std::mt19937_64 random{7};
    for (int round = 0; round < 40; ++round) {
        auto history = sampleHistory(random() % 60);
        for (auto& entry : history) {
            const double days = static_cast<double>(random() % 44) - 40.0;
            // Often on the border of a day, give or take what clocks change by.
            const double hours = static_cast<double>(random() % 5) * 0.5 - 1.0;
            const double jitter = random() % 2 == 0 ? 0.0 : static_cast<double>(random() % 86'400) + 0.25;
            entry.startedAt = around + (days * 86'400.0 + hours * 3'600.0 + jitter);
            if (random() % 9 == 0) entry.profileName = ProjectSlots::otherName;
            if (random() % 5 == 0) entry.focusedSeconds = 0.1 * static_cast<double>(random() % 1'000);
        }
        const Date now =
            around + (static_cast<double>(random() % 20) * 86'400.0 + static_cast<double>(random() % 86'400));
        for (const auto period : allCases<StatsPeriod>())
            expectPlainDefinition(history, period, now, calendar);
        if (HasFailure()) return;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Zones, StatsSummaryProperty,
    testing::Values(
        ZoneAndDay{"UTC", year{2026} / 3 / 1}, ZoneAndDay{"Europe/Berlin", year{2026} / 3 / 29},
        ZoneAndDay{"Europe/Berlin", year{2026} / 10 / 25}, ZoneAndDay{"Asia/Tehran", year{2022} / 3 / 22},
        ZoneAndDay{"Asia/Tehran", year{2021} / 9 / 22}, ZoneAndDay{"Asia/Kathmandu", year{2026} / 1 / 1},
        ZoneAndDay{"America/St_Johns", year{2010} / 11 / 7}, ZoneAndDay{"America/St_Johns", year{2010} / 3 / 14},
        ZoneAndDay{"Australia/Lord_Howe", year{2026} / 4 / 5}, ZoneAndDay{"America/Santiago", year{2025} / 9 / 7},
        ZoneAndDay{"America/Sao_Paulo", year{2018} / 2 / 18}, ZoneAndDay{"Africa/Cairo", year{2026} / 4 / 24},
        ZoneAndDay{"America/Havana", year{2025} / 11 / 2}, ZoneAndDay{"Pacific/Chatham", year{2026} / 4 / 5},
        ZoneAndDay{"Pacific/Apia", year{2011} / 12 / 29}),
    [](const auto& instance) {
        std::string name = instance.param.zone;
        std::ranges::replace(name, '/', '_');
        return name + "_" + std::to_string(instance.index);
    });

} // namespace
} // namespace velmorin
