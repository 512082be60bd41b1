#include "app/theme/ClockFace.h"

#include <cmath>
#include <gmock/gmock.h>
#include <numbers>
#include <optional>
#include <string>
#include <vector>

namespace velmorin {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

ClockHands handsAt(double hourDegrees, double minuteDegrees) {
    ClockHands hands;
    hands.hourDegrees = hourDegrees;
    hands.minuteDegrees = minuteDegrees;
    return hands;
}

ClockFace face(double size, std::optional<double> remaining = std::nullopt,
               AppLanguage language = AppLanguage::english) {
    return {size, handsAt(0, 0), remaining, language};
}

double length(ClockFace::Point from, ClockFace::Point to) {
    return std::hypot(to.x - from.x, to.y - from.y);
}

/// Clockwise from twelve o'clock, 0 to 360.
double degrees(ClockFace::Point centre, ClockFace::Point point) {
    const double angle = std::atan2(point.x - centre.x, centre.y - point.y) * 180 / std::numbers::pi;
    return angle < -1e-9 ? angle + 360 : std::abs(angle);
}

std::vector<std::string> numerals(const ClockFace& face) {
    std::vector<std::string> found;
    for (const auto& numeral : face.numerals) {
        found.push_back(numeral.text);
    }
    return found;
}

TEST(ClockFaceTest, aPlainClockHasNoArc) {
    EXPECT_FALSE(face(210).remaining);
}

TEST(ClockFaceTest, aRemainderOfNothingHasNoArc) {
    EXPECT_FALSE(face(210, 0.0).remaining);
    EXPECT_FALSE(face(210, -0.5).remaining);
}

TEST(ClockFaceTest, theArcBeginsAtTheTopAndIsWhatRemains) {
    const auto arc = face(200, 0.25).remaining;
    ASSERT_TRUE(arc);
    EXPECT_DOUBLE_EQ(arc->startDegrees, -90);
    EXPECT_DOUBLE_EQ(arc->sweepDegrees, 90);
    EXPECT_DOUBLE_EQ(arc->width, 10);
    EXPECT_DOUBLE_EQ(face(200, 1.0).remaining->sweepDegrees, 360);
}

TEST(ClockFaceTest, moreThanAllIsAll) {
    EXPECT_DOUBLE_EQ(face(200, 1.5).remaining->sweepDegrees, 360);
}

TEST(ClockFaceTest, theArcStaysInsideItsSquare) {
    const auto clock = face(200, 0.5);
    EXPECT_LE(clock.rimRadius + clock.remaining->width / 2, 100 + 1e-9);
}

TEST(ClockFaceTest, aSmallClockHasNoNumerals) {
    EXPECT_THAT(numerals(face(62)), IsEmpty());
    EXPECT_THAT(numerals(face(119.9)), IsEmpty());
}

TEST(ClockFaceTest, aLargeClockHasFour) {
    EXPECT_THAT(numerals(face(210)), ElementsAre("12", "3", "6", "9"));
    EXPECT_THAT(numerals(face(120)), ElementsAre("12", "3", "6", "9"));
}

TEST(ClockFaceTest, aPersianClockHasPersianNumerals) {
    EXPECT_THAT(numerals(face(210, std::nullopt, AppLanguage::persian)), ElementsAre("۱۲", "۳", "۶", "۹"));
    EXPECT_THAT(numerals(face(210, std::nullopt, AppLanguage::german)), ElementsAre("12", "3", "6", "9"));
}

TEST(ClockFaceTest, theNumeralsStandInsideTheTicksAtTheirHours) {
    const auto clock = face(200);
    const std::vector<double> hours{0, 90, 180, 270};
    for (std::size_t index = 0; index < hours.size(); ++index) {
        const auto centre = clock.numerals[index].centre;
        EXPECT_NEAR(degrees(clock.centre, centre), hours[index], 1e-6);
        EXPECT_LT(length(clock.centre, centre), 0.86 * 100);
    }
}

TEST(ClockFaceTest, everyHourHasATickThatRunsOutEquallyFar) {
    for (const double size : {62.0, 210.0}) {
        const auto clock = face(size);
        for (std::size_t hour = 0; hour < 12; ++hour) {
            const auto& tick = clock.ticks[hour];
            EXPECT_NEAR(length(clock.centre, tick.to), 0.93 * size / 2, 1e-9);
            EXPECT_NEAR(degrees(clock.centre, tick.to), 30.0 * static_cast<double>(hour), 1e-6);
        }
    }
}

TEST(ClockFaceTest, onASmallClockTheQuarterHoursAreLonger) {
    const auto clock = face(100);
    for (std::size_t hour = 0; hour < 12; ++hour) {
        EXPECT_NEAR(length(clock.centre, clock.ticks[hour].from), hour % 3 == 0 ? 40 : 43, 1e-9) << hour;
    }
}

TEST(ClockFaceTest, onALargeClockAllTicksAreAlike) {
    const auto clock = face(120);
    for (const auto& tick : clock.ticks) {
        EXPECT_NEAR(length(clock.centre, tick.from), 0.86 * 60, 1e-9);
    }
}

TEST(ClockFaceTest, linesGrowWithTheClockButNeverBelowOne) {
    EXPECT_DOUBLE_EQ(face(500).ticks[0].width, 4);
    EXPECT_DOUBLE_EQ(face(100).ticks[0].width, 1);
    EXPECT_DOUBLE_EQ(face(500).hourHand.width, 15);
    EXPECT_DOUBLE_EQ(face(20).hourHand.width, 1);
    EXPECT_DOUBLE_EQ(face(500).minuteHand.width, 9);
    EXPECT_DOUBLE_EQ(face(20).minuteHand.width, 1);
}

TEST(ClockFaceTest, theHandsPointAtTheTime) {
    const ClockFace clock{200, handsAt(95, 210), std::nullopt, AppLanguage::english};
    EXPECT_EQ(clock.hourHand.from, clock.centre);
    EXPECT_EQ(clock.minuteHand.from, clock.centre);
    EXPECT_NEAR(degrees(clock.centre, clock.hourHand.to), 95, 1e-6);
    EXPECT_NEAR(degrees(clock.centre, clock.minuteHand.to), 210, 1e-6);
    EXPECT_NEAR(length(clock.centre, clock.hourHand.to), 50, 1e-9);
    EXPECT_NEAR(length(clock.centre, clock.minuteHand.to), 72, 1e-9);
}

} // namespace
} // namespace velmorin
