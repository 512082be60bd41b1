#include "core/foundation/Calendar.h"

#include "core/foundation/DayRow.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <limits>

namespace velmorin {
namespace {

using std::chrono::local_days;
using std::chrono::year;

Calendar zone(std::string_view name) {
    return Calendar::inTimeZone(name).value();
}

/// The first moment of a day, in UTC.
std::string start(std::string_view name, std::chrono::year_month_day day) {
    const auto moment = zone(name).startOfDay(local_days{day});
    return moment ? iso8601(*moment) : "none";
}

TEST(CalendarTest, anUnknownZoneHasNoCalendar) {
    EXPECT_TRUE(Calendar::inTimeZone("Asia/Tehran"));
    for (const char* name : {"", "Asia/Atlantis", "Europe", "../../etc/passwd", "asia tehran"}) {
        EXPECT_FALSE(Calendar::inTimeZone(name)) << name;
    }
}

TEST(CalendarTest, daysBeginAtMidnightOfTheZone) {
    EXPECT_EQ(start("UTC", year{2026} / 3 / 1), "2026-03-01T00:00:00Z");
    EXPECT_EQ(start("Asia/Tehran", year{2026} / 3 / 1), "2026-02-28T20:30:00Z");
    EXPECT_EQ(start("Asia/Kathmandu", year{2026} / 3 / 1), "2026-02-28T18:15:00Z");
    EXPECT_EQ(start("America/St_Johns", year{2026} / 3 / 1), "2026-03-01T03:30:00Z");
}

TEST(CalendarTest, daysOfChangingClocksAreShorterOrLonger) {
    EXPECT_EQ(start("Europe/Berlin", year{2026} / 3 / 29), "2026-03-28T23:00:00Z");
    EXPECT_EQ(start("Europe/Berlin", year{2026} / 3 / 30), "2026-03-29T22:00:00Z");
    EXPECT_EQ(start("Europe/Berlin", year{2026} / 10 / 25), "2026-10-24T22:00:00Z");
    EXPECT_EQ(start("Europe/Berlin", year{2026} / 10 / 26), "2026-10-25T23:00:00Z");
    EXPECT_EQ(start("Australia/Lord_Howe", year{2026} / 4 / 6), "2026-04-05T13:30:00Z");
}

TEST(CalendarTest, aDayWithoutAMidnightBeginsWhenItsFirstHourDoes) {
    EXPECT_EQ(start("Asia/Tehran", year{2022} / 3 / 22), "2022-03-21T20:30:00Z");
    EXPECT_EQ(start("America/Santiago", year{2025} / 9 / 7), "2025-09-07T04:00:00Z");
    EXPECT_EQ(start("Africa/Cairo", year{2026} / 4 / 24), "2026-04-23T22:00:00Z");
}

TEST(CalendarTest, aDayWithTwoMidnightsBeginsWithTheFirst) {
    EXPECT_EQ(start("America/Havana", year{2025} / 11 / 2), "2025-11-02T04:00:00Z");
    EXPECT_EQ(start("America/Havana", year{2025} / 11 / 3), "2025-11-03T05:00:00Z");
}

TEST(CalendarTest, clocksSetBackOverMidnightShowTheDayBeforeOnceMore) {
    const Calendar calendar = zone("America/St_Johns");
    const auto sunday = local_days{year{2010} / 11 / 7};
    const Date firstMidnight = calendar.startOfDay(sunday).value();
    EXPECT_EQ(iso8601(firstMidnight), "2010-11-07T02:30:00Z");
    EXPECT_EQ(calendar.day(firstMidnight + 59.0), sunday);
    EXPECT_EQ(calendar.day(firstMidnight + 60.0), sunday - std::chrono::days{1});
    EXPECT_EQ(calendar.day(firstMidnight + 3'600.0), sunday);
}

TEST(CalendarTest, aDayThatTheZoneLeftOutHasNoStart) {
    EXPECT_EQ(start("Pacific/Apia", year{2011} / 12 / 29), "2011-12-29T10:00:00Z");
    EXPECT_EQ(start("Pacific/Apia", year{2011} / 12 / 30), "none");
    EXPECT_EQ(start("Pacific/Apia", year{2011} / 12 / 31), "2011-12-30T10:00:00Z");
}

TEST(CalendarTest, rulesGoOnBeyondTheTablesOfTheDatabase) {
    EXPECT_EQ(start("Europe/Berlin", year{2079} / 7 / 1), "2079-06-30T22:00:00Z");
    EXPECT_EQ(start("Europe/Berlin", year{2079} / 12 / 1), "2079-11-30T23:00:00Z");
}

TEST(CalendarTest, outsideItsYearsThereAreNoDays) {
    const Calendar calendar = zone("Europe/Berlin");
    for (const double seconds :
         {1e12, -1e12, 1e300, std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_FALSE(calendar.day(Date{seconds})) << seconds;
        EXPECT_TRUE(calendar.offsets(Date{seconds}, Date{seconds + 1}).empty()) << seconds;
    }
    EXPECT_FALSE(calendar.startOfDay(local_days{year{10'000} / 1 / 1}));
    EXPECT_TRUE(calendar.day(Date{1e11}));
    for (const auto border : {local_days{year{9999} / 12 / 31}, local_days{year{-9999} / 1 / 1}}) {
        const auto start = calendar.startOfDay(border);
        ASSERT_TRUE(start);
        EXPECT_EQ(calendar.day(*start + 3'600.0), border);
        EXPECT_EQ(DayRow(calendar, *start + 3'600.0, 1).find(*start), 0U);
    }
}

TEST(DayRowTest, aRowEndsWithTheDayOfNow) {
    const Calendar calendar = zone("Europe/Berlin");
    const Date now = calendar.startOfDay(local_days{year{2026} / 4 / 1}).value() + 7'200.0;
    const DayRow row{calendar, now, 7};
    ASSERT_EQ(row.starts().size(), 7U);
    EXPECT_EQ(iso8601(row.starts().front()), "2026-03-25T23:00:00Z");
    EXPECT_EQ(iso8601(row.starts().back()), "2026-03-31T22:00:00Z");
    EXPECT_EQ(row.find(now), 6U);
    EXPECT_EQ(row.find(row.starts().front()), 0U);
    EXPECT_EQ(row.find(row.starts().front() - 0.001), std::nullopt);
    EXPECT_EQ(row.find(now + 30 * 3'600.0), std::nullopt);
}

TEST(DayRowTest, aDayThatTheZoneLeftOutIsMissing) {
    const Calendar calendar = zone("Pacific/Apia");
    const Date now = calendar.startOfDay(local_days{year{2012} / 1 / 1}).value();
    const DayRow row{calendar, now, 4};
    ASSERT_EQ(row.starts().size(), 3U);
    EXPECT_EQ(row.find(now), 2U);
    EXPECT_EQ(row.find(row.starts()[0] + 86'399.0), 0U);
}

TEST(DayRowTest, itFindsTheDayThatTheCalendarNames) {
    for (const char* name : {"America/St_Johns", "America/Havana", "Asia/Tehran", "Australia/Lord_Howe"}) {
        const Calendar calendar = zone(name);
        const Date now = calendar.startOfDay(local_days{year{2010} / 11 / 20}).value();
        const DayRow row{calendar, now, 30};
        for (Date moment = now - 33 * 86'400.0; moment < now + 2 * 86'400.0; moment = moment + 59.0) {
            const auto found = row.find(moment);
            const auto day = calendar.day(moment).value();
            const auto expected = calendar.startOfDay(day);
            const auto place = std::ranges::find(row.starts(), *expected);
            ASSERT_EQ(found.has_value(), place != row.starts().end()) << name << " " << iso8601(moment);
            ASSERT_TRUE(!found || row.starts()[*found] == *expected) << name << " " << iso8601(moment);
        }
    }
}

} // namespace
} // namespace velmorin
