#include "core/language/Formatting.h"

#include "core/foundation/RawValue.h"
#include "core/language/ClockHands.h"
#include "core/language/Persian.h"
#include "tests/support/TestData.h"

#include <chrono>
#include <gtest/gtest.h>

namespace velmorin {
namespace {

constexpr auto persian = AppLanguage::persian;
constexpr auto english = AppLanguage::english;
constexpr auto german = AppLanguage::german;

const Calendar utc = Calendar::inTimeZone("UTC").value();

/// A moment by the clocks of Greenwich.
Date at(std::chrono::year_month_day day, int hour = 0, int minute = 0, int second = 0) {
    return *utc.startOfDay(std::chrono::local_days{day}) + (hour * 3600.0 + minute * 60.0 + second);
}

const std::chrono::year_month_day someDay = std::chrono::year{2026} / 3 / 1;

TEST(PersianTest, digitsAreReplacedAndNothingElse) {
    EXPECT_EQ(Persian::digits("12:05"), "۱۲:۰۵");
    EXPECT_EQ(Persian::digits("0123456789"), "۰۱۲۳۴۵۶۷۸۹");
    EXPECT_EQ(Persian::digits("no digits"), "no digits");
    EXPECT_EQ(Persian::digits("٣۴"), "٣۴") << "those of Arabic and Persian stay";
    EXPECT_EQ(Persian::digits(""), "");
}

TEST(PersianTest, theClockShowsHoursFromOneHourOn) {
    EXPECT_EQ(Persian::clock(0), "۰۰:۰۰");
    EXPECT_EQ(Persian::clock(-5), "۰۰:۰۰");
    EXPECT_EQ(Persian::clock(59.2), "۰۱:۰۰");
    EXPECT_EQ(Persian::clock(3'599), "۵۹:۵۹");
    EXPECT_EQ(Persian::clock(3'600), "۱:۰۰:۰۰");
    EXPECT_EQ(Persian::clock(45'296), "۱۲:۳۴:۵۶");
}

TEST(FormattingTest, numbersHaveNoSeparatorsAndALatinMinusSign) {
    EXPECT_EQ(number(english, 1'234'567), "1234567");
    EXPECT_EQ(number(german, 1'234'567), "1234567");
    EXPECT_EQ(number(persian, 1'234'567), "۱۲۳۴۵۶۷");
    EXPECT_EQ(number(persian, -12), "-۱۲");
}

TEST(FormattingTest, lengthsOfTimeAreRoundedUpToMinutes) {
    EXPECT_EQ(duration(english, 3'600), "1 hr");
    EXPECT_EQ(duration(english, 3'601), "1 hr 1 min");
    EXPECT_EQ(duration(english, 3'599.5), "1 hr");
    EXPECT_EQ(duration(english, 1), "1 min");
    EXPECT_EQ(duration(english, 60), "1 min");
    EXPECT_EQ(duration(english, 61), "2 min");
    EXPECT_EQ(duration(english, 7'200), "2 hr");
    EXPECT_EQ(duration(german, 7'500), "2 Std. 5 Min.");
    EXPECT_EQ(duration(persian, 7'500), "۲ ساعت و ۵ دقیقه");
    EXPECT_EQ(duration(persian, 7'200), "۲ ساعت");
}

TEST(FormattingTest, aNegativeLengthIsNone) {
    EXPECT_EQ(duration(english, -100), "0 min");
    EXPECT_EQ(duration(german, 0), "0 Min.");
    EXPECT_EQ(duration(persian, -0.5), "۰ دقیقه");
}

TEST(FormattingTest, lengthsBeyondAllSessionsAreStillNumbers) {
    for (const double seconds : {1e21, 1e300}) {
        EXPECT_EQ(duration(english, seconds).find('-'), std::string::npos);
        EXPECT_EQ(compactRemaining(persian, seconds).find('-'), std::string::npos);
        EXPECT_EQ(Persian::clock(seconds).find('-'), std::string::npos);
    }
}

TEST(FormattingTest, theShortFormHasNoLabelsFromOneHourOn) {
    EXPECT_EQ(compactRemaining(german, 3'540), "59 Min.");
    EXPECT_EQ(compactRemaining(german, 3'541), "1:00");
    EXPECT_EQ(compactRemaining(german, 7'800), "2:10");
    EXPECT_EQ(compactRemaining(english, 60), "1 min");
    EXPECT_EQ(compactRemaining(persian, 7'800), "۲:۱۰");
    EXPECT_EQ(compactRemaining(persian, 7'500), "۲:۰۵");
}

TEST(FormattingTest, theTimeOfDayKeepsItsLeadingZeros) {
    EXPECT_EQ(timeOfDay(persian, at(someDay, 9, 5), utc), "۰۹:۰۵");
    EXPECT_EQ(timeOfDay(english, at(someDay, 9, 5), utc), "09:05");
    EXPECT_EQ(timeOfDay(german, at(someDay, 0, 0), utc), "00:00");
    EXPECT_EQ(timeOfDay(english, at(someDay, 20, 31), Calendar::inTimeZone("Asia/Tehran").value()), "00:01");
}

TEST(FormattingTest, theShortDateNamesTheMonthInTheLanguagesCalendar) {
    EXPECT_EQ(shortDate(persian, at(someDay), utc), "۱۰ اسفند");
    EXPECT_EQ(shortDate(english, at(someDay), utc), "1 Mar");
    EXPECT_EQ(shortDate(german, at(someDay), utc), "1. März");
}

TEST(FormattingTest, theShortDateDiffersWhereTheDayDoes) {
    const Calendar tehran = Calendar::inTimeZone("Asia/Tehran").value();
    const Date evening = at(someDay, 21);
    EXPECT_EQ(shortDate(english, evening, utc), "1 Mar");
    EXPECT_EQ(shortDate(english, evening, tehran), "2 Mar");
    EXPECT_EQ(shortDate(persian, evening, tehran), "۱۱ اسفند");
}

std::vector<std::string> solarMonths() {
    for (const auto& line : testDataLines("persian_month_names.tsv")) {
        auto parts = columns(line);
        if (parts[0] == "fa" && parts[1] == "stand-alone") return {parts.begin() + 2, parts.end()};
    }
    return {};
}

int field(const std::string& date, std::size_t from, std::size_t length) {
    return std::stoi(date.substr(from, length));
}

/// Expects that the day "2001-03-21" of one calendar shows as the day "1380-01-01" of the other, from its first moment
/// to its last.
void expectSolarDay(const std::string& gregorian, const std::string& solar) {
    const auto months = solarMonths();
    ASSERT_EQ(months.size(), 12U);
    const auto day = std::chrono::year{field(gregorian, 0, 4)} / field(gregorian, 5, 2) / field(gregorian, 8, 2);
    const auto expected =
        Persian::number(field(solar, 8, 2)) + " " + months[static_cast<std::size_t>(field(solar, 5, 2)) - 1];
    EXPECT_EQ(shortDate(persian, at(day), utc), expected) << gregorian;
    EXPECT_EQ(shortDate(persian, at(day, 23, 59, 59), utc), expected) << gregorian;
}

/// Checks each row of a file whose columns hold a Gregorian and a solar date; returns how many there are.
int expectSolarDays(std::string_view fileName, std::size_t gregorianColumn, std::size_t solarColumn) {
    int count = 0;
    for (const auto& line : testDataLines(fileName)) {
        const auto parts = columns(line);
        if (parts[gregorianColumn].find('-') == std::string::npos) continue;
        expectSolarDay(parts[gregorianColumn], parts[solarColumn]);
        ++count;
    }
    return count;
}

TEST(FormattingTest, theSolarCalendarIsThatOfTheCollectedDays) {
    EXPECT_GE(expectSolarDays("persian_days.tsv", 1, 0), 1'000);
    EXPECT_GE(expectSolarDays("persian_icu_mapping.tsv", 0, 1), 30);
}

TEST(FormattingTest, everySolarYearBeginsWhereItShould) {
    int count = 0;
    for (const auto& line : testDataLines("persian_years.tsv")) {
        const auto parts = columns(line);
        if (parts[0] == "ap_year") continue;
        expectSolarDay(parts[3], parts[0] + "-01-01");
        ++count;
    }
    EXPECT_GE(count, 30);
}

TEST(ClockHandsTest, bothHandsMoveContinuously) {
    const auto hands = [](int hour, int minute, int second) {
        return ClockHands{at(someDay, hour, minute, second), utc};
    };
    EXPECT_EQ(hands(15, 30, 0).hourDegrees, 105.0);
    EXPECT_EQ(hands(15, 30, 0).minuteDegrees, 180.0);
    EXPECT_EQ(hands(0, 0, 0), ClockHands{});
    EXPECT_EQ(hands(12, 0, 0), ClockHands{});
    EXPECT_EQ(hands(1, 0, 30).minuteDegrees, 3.0);
    EXPECT_DOUBLE_EQ(hands(1, 0, 30).hourDegrees, 30.25);
}

TEST(AppLanguageTest, theSettingsHoldTheTwoLetters) {
    EXPECT_EQ(rawValue(persian), "fa");
    EXPECT_EQ(rawValue(english), "en");
    EXPECT_EQ(rawValue(german), "de");
}

} // namespace
} // namespace velmorin
