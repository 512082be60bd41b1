#include "core/session/Schedule.h"

#include "tests/support/Plans.h"

#include <cmath>
#include <gmock/gmock.h>
#include <limits>

namespace velmorin {
namespace {

const Date planStart{800'000'000};

TEST(ScheduleTest, theDefaultPomodoroPlanEndsInALongBreak) {
    const auto plan = Schedule::pomodoro({});
    EXPECT_EQ(text(plan), "W25 S5 W25 S5 W25 S5 W25 L15");
    EXPECT_EQ(Schedule::totalDuration(plan), 130 * 60.0);
}

TEST(ScheduleTest, aPomodoroConfigOfZerosIsOneMinuteOfWorkAndOneOfLongBreak) {
    EXPECT_EQ(text(Schedule::pomodoro({0, 0, 0, 0, 0})), "W1 L1");
}

TEST(ScheduleTest, negativePomodoroValuesCountAsOne) {
    EXPECT_EQ(text(Schedule::pomodoro({-5, -1, -7, -2, -9})), "W1 L1");
}

TEST(ScheduleTest, threeCyclesBeforeALongBreakAfterFourEndOnWork) {
    EXPECT_EQ(text(Schedule::pomodoro({.cyclesBeforeLongBreak = 4, .totalCycles = 3})), "W25 S5 W25 S5 W25");
}

TEST(ScheduleTest, fiveCyclesWithALongBreakAfterEverySecond) {
    EXPECT_EQ(text(Schedule::pomodoro({.cyclesBeforeLongBreak = 2, .totalCycles = 5})),
              "W25 S5 W25 L15 W25 S5 W25 L15 W25");
}

TEST(ScheduleTest, fourCyclesWithALongBreakAfterEverySecondEndInALongBreak) {
    EXPECT_EQ(text(Schedule::pomodoro({.cyclesBeforeLongBreak = 2, .totalCycles = 4})),
              "W25 S5 W25 L15 W25 S5 W25 L15");
}

TEST(ScheduleTest, withALongBreakAfterEveryCycleThereAreNoShortBreaks) {
    EXPECT_EQ(text(Schedule::pomodoro({.cyclesBeforeLongBreak = 1, .totalCycles = 3})), "W25 L15 W25 L15 W25 L15");
}

TEST(ScheduleTest, theDefaultDeepPlanHasTwoLockedBreaks) {
    const auto plan = Schedule::deep({});
    EXPECT_EQ(text(plan), "W60 B5 W60 B5 W50");
    EXPECT_EQ(Schedule::totalDuration(plan), 180 * 60.0);
}

TEST(ScheduleTest, aDeepPlanWithoutAPositiveBreakOrIntervalIsOneWorkBlock) {
    EXPECT_EQ(text(Schedule::deep({.breakMinutes = 0})), "W180");
    EXPECT_EQ(text(Schedule::deep({.breakMinutes = -5})), "W180");
    EXPECT_EQ(text(Schedule::deep({.breakEveryMinutes = 0})), "W180");
    EXPECT_EQ(text(Schedule::deep({.breakEveryMinutes = -60})), "W180");
}

TEST(ScheduleTest, aDeepPlanOfNoTimeLastsAMinute) {
    EXPECT_EQ(text(Schedule::deep({.totalMinutes = 0})), "W1");
    EXPECT_EQ(text(Schedule::deep({.totalMinutes = -180})), "W1");
}

TEST(ScheduleTest, aDeepPlanAsLongAsItsIntervalHasNoBreak) {
    EXPECT_EQ(text(Schedule::deep({.totalMinutes = 60, .breakEveryMinutes = 60, .breakMinutes = 5})), "W60");
}

TEST(ScheduleTest, aDeepPlanOfTwoHoursPutsTheBreakInsideTheTotal) {
    EXPECT_EQ(text(Schedule::deep({.totalMinutes = 120, .breakEveryMinutes = 60, .breakMinutes = 5})), "W60 B5 W55");
}

TEST(ScheduleTest, aRestNoLongerThanABreakJoinsTheLastWorkBlock) {
    EXPECT_EQ(text(Schedule::deep({.totalMinutes = 65, .breakEveryMinutes = 60, .breakMinutes = 5})), "W65");
    EXPECT_EQ(text(Schedule::deep({.totalMinutes = 66, .breakEveryMinutes = 60, .breakMinutes = 5})), "W60 B5 W1");
}

TEST(ScheduleTest, everyDeepPlanAddsUpToItsTotalAndEndsOnWork) {
    for (std::int64_t total = 1; total <= 240; ++total) {
        for (const std::int64_t every : {1, 7, 25, 60}) {
            for (const std::int64_t pause : {1, 5, 30}) {
                const auto plan = Schedule::deep({total, every, pause});
                ASSERT_EQ(Schedule::totalDuration(plan), static_cast<double>(total) * 60.0)
                    << total << " " << every << " " << pause;
                ASSERT_EQ(plan.back().kind, SegmentKind::work);
            }
        }
    }
}

TEST(ScheduleTest, absurdTimingsStillGiveAPlanInNoTime) {
    constexpr auto most = std::numeric_limits<std::int64_t>::max();
    EXPECT_LE(Schedule::pomodoro({1, 1, 1, 4, most}).size(), Schedule::maximumSegments);
    const auto deep = Schedule::deep({1'000'000'000, 1, 1});
    EXPECT_LE(deep.size(), Schedule::maximumSegments);
    EXPECT_EQ(Schedule::totalDuration(deep), 60e9);
    EXPECT_LE(Schedule::deep({most, 1, 1}).size(), Schedule::maximumSegments);
    EXPECT_EQ(Schedule::pomodoro({most, most, most, most, 1}).size(), 1U);
}

TEST(ScheduleTest, anInstantBeforeASegmentsEndIsInItAndTheEndIsInTheNext) {
    const auto plan = Schedule::pomodoro({});
    const auto before = Schedule::status(plan, planStart, planStart + 1'499.999);
    EXPECT_EQ(before.segmentIndex, 0);
    EXPECT_NEAR(before.remainingInSegment, 0.001, 1e-6);
    EXPECT_EQ(Schedule::status(plan, planStart, planStart + 1'500.0),
              (ScheduleStatus{1, SegmentKind::shortBreak, 300.0, 6'300.0, false}));
}

TEST(ScheduleTest, atThePlansEndItIsFinishedAtTheLastIndex) {
    const auto plan = Schedule::pomodoro({});
    const ScheduleStatus finished{7, SegmentKind::longBreak, 0.0, 0.0, true};
    EXPECT_FALSE(Schedule::status(plan, planStart, planStart + 7'799.999).isFinished);
    EXPECT_EQ(Schedule::status(plan, planStart, planStart + 7'800.0), finished);
    EXPECT_EQ(Schedule::status(plan, planStart, planStart + 1e9), finished);
}

TEST(ScheduleTest, aMomentBeforeTheStartIsTheStart) {
    EXPECT_EQ(Schedule::status(Schedule::pomodoro({}), planStart, planStart - 3'600.0),
              (ScheduleStatus{0, SegmentKind::work, 1'500.0, 7'800.0, false}));
}

TEST(ScheduleTest, anEmptyPlanIsFinishedAtIndexZero) {
    EXPECT_EQ(Schedule::status({}, planStart, planStart), (ScheduleStatus{0, SegmentKind::work, 0.0, 0.0, true}));
}

TEST(ScheduleTest, aFinishedPlanIsNotLockedWhateverItsLastSegment) {
    const std::vector<Segment> plan{{SegmentKind::work, 60}};
    EXPECT_TRUE(Schedule::status(plan, planStart, planStart).isLocked());
    EXPECT_FALSE(Schedule::status(plan, planStart, planStart + 60.0).isLocked());
}

TEST(ScheduleTest, workAndLockedBreaksAreLockedAndFreeBreaksAreNot) {
    EXPECT_TRUE(isLocked(SegmentKind::work));
    EXPECT_TRUE(isLocked(SegmentKind::lockedBreak));
    EXPECT_FALSE(isLocked(SegmentKind::shortBreak));
    EXPECT_FALSE(isLocked(SegmentKind::longBreak));
}

TEST(ScheduleTest, finishedWorkForgivesAHundredthOfASecond) {
    const auto plan = Schedule::pomodoro({});
    EXPECT_EQ(text(Schedule::finishedWork(plan, planStart, planStart + (1'500.0 - 0.005))), "W25");
    EXPECT_EQ(text(Schedule::finishedWork(plan, planStart, planStart + (1'500.0 - 0.02))), "");
    EXPECT_EQ(text(Schedule::finishedWork(plan, planStart, planStart + 7'800.0)), "W25 W25 W25 W25");
}

TEST(ScheduleTest, aBlockThatLacksJustAHundredthIsFinished) {
    const std::vector<Segment> plan{{SegmentKind::work, 1'500}};
    EXPECT_EQ(Schedule::finishedWork(plan, Date{0}, Date{1'500 - 0.01}).size(), 1U);
    EXPECT_EQ(Schedule::finishedWork(plan, Date{0}, Date{std::nextafter(1'500 - 0.01, 0)}).size(), 0U);
}

TEST(ScheduleTest, theTimeLeftIsTheWholeLessTheElapsed) {
    const std::vector<Segment> plan(11, Segment{SegmentKind::work, 0.1});
    const double total = Schedule::totalDuration(plan);
    EXPECT_EQ(Schedule::status(plan, Date{0}, Date{0.35}).remainingTotal, total - 0.35);
    EXPECT_EQ(Schedule::status(plan, Date{0}, Date{0.35}).remainingInSegment, (0.1 + 0.1 + 0.1 + 0.1) - 0.35);
}

TEST(ScheduleTest, onlyFinishedWorkHasATolerance) {
    const auto plan = Schedule::pomodoro({});
    const Date almost = planStart + (1'500.0 - 0.005);
    EXPECT_EQ(Schedule::status(plan, planStart, almost).segmentIndex, 0);
    EXPECT_LT(Schedule::focusedSeconds(plan, planStart, almost), 1'500.0);
}

TEST(ScheduleTest, focusedSecondsStandStillDuringALockedBreak) {
    const auto plan = Schedule::deep({});
    for (const double into : {0.0, 1.0, 150.0, 300.0}) {
        EXPECT_EQ(Schedule::focusedSeconds(plan, planStart, planStart + (3'600.0 + into)), 3'600.0) << into;
    }
}

TEST(ScheduleTest, aBlockLeftInTheMiddleIsNotFinishedButItsTimeIsFocused) {
    const auto plan = Schedule::deep({});
    const Date now = planStart + (3'600.0 + 300.0 + 1'000.0);
    EXPECT_EQ(text(Schedule::finishedWork(plan, planStart, now)), "W60");
    EXPECT_EQ(Schedule::focusedSeconds(plan, planStart, now), 4'600.0);
}

TEST(ScheduleTest, timeBeyondThePlanAddsNothing) {
    EXPECT_EQ(Schedule::focusedSeconds(Schedule::pomodoro({}), planStart, planStart + 1e9), 6'000.0);
}

TEST(ScheduleTest, anEmptyPlanHasNoFocusAndNoFinishedWork) {
    EXPECT_EQ(Schedule::focusedSeconds({}, planStart, planStart + 60.0), 0.0);
    EXPECT_TRUE(Schedule::finishedWork({}, planStart, planStart + 60.0).empty());
    EXPECT_EQ(Schedule::totalDuration({}), 0.0);
}

TEST(ScheduleTest, durationsAreAddedInListOrder) {
    const std::vector<Segment> plan{{SegmentKind::work, 1e16}, {SegmentKind::work, 1}, {SegmentKind::work, 1}};
    ASSERT_NE((1e16 + 1) + 1, (1 + 1.0) + 1e16);
    EXPECT_EQ(Schedule::totalDuration(plan), (1e16 + 1) + 1);
    EXPECT_EQ(Schedule::focusedSeconds(plan, Date{0}, Date{1e17}), (1e16 + 1) + 1);
}

} // namespace
} // namespace velmorin
