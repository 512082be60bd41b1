#include "core/session/ActiveSession.h"

#include "core/foundation/JSONCoding.h"
#include "core/session/Schedule.h"

#include <gtest/gtest.h>

namespace velmorin {
namespace {

const Date start{800'000'000.5};

ActiveSession session(std::vector<Segment> plan, SessionMode mode = SessionMode::pomodoro) {
    return {"Work", mode, "Write", start, std::move(plan), {"org.example.editor"}, {"example.org"}};
}

TEST(ActiveSessionTest, aNewSessionHasCountedNothingAndHiddenNothing) {
    const auto fresh = session(Schedule::pomodoro({}));
    EXPECT_EQ(fresh.attempts, 0);
    EXPECT_EQ(fresh.returns, 0);
    EXPECT_TRUE(fresh.hiddenBundleIDs.empty());
    EXPECT_NE(fresh.id, session({}).id);
    EXPECT_EQ(fresh.plannedEnd(), start + 7'800.0);
}

TEST(ActiveSessionTest, aPlanEndingInALongBreakIsAllDoneFromTheMomentItBegins) {
    const auto pomodoro = session(Schedule::pomodoro({}));
    EXPECT_FALSE(pomodoro.isAllWorkDone(start + 6'899.999));
    EXPECT_TRUE(pomodoro.isAllWorkDone(start + 6'900.0));
    EXPECT_TRUE(pomodoro.isAllWorkDone(start + 7'800.0));
    EXPECT_TRUE(pomodoro.isAllWorkDone(start + 1e6));
}

TEST(ActiveSessionTest, aPlanEndingOnWorkIsAllDoneOnlyWhenFinished) {
    const auto deep = session(Schedule::deep({}), SessionMode::deep);
    EXPECT_FALSE(deep.isAllWorkDone(start + 10'799.999));
    EXPECT_TRUE(deep.isAllWorkDone(start + 10'800.0));
}

TEST(ActiveSessionTest, aShortBreakWithWorkAfterItIsNotAllDone) {
    EXPECT_FALSE(session(Schedule::pomodoro({})).isAllWorkDone(start + 1'600.0));
}

TEST(ActiveSessionTest, remainingFractionFallsFromOneToZero) {
    const auto pomodoro = session(Schedule::pomodoro({}));
    EXPECT_EQ(pomodoro.remainingFraction(start), 1.0);
    EXPECT_EQ(pomodoro.remainingFraction(start - 100.0), 1.0);
    EXPECT_EQ(pomodoro.remainingFraction(start + 3'900.0), 0.5);
    EXPECT_EQ(pomodoro.remainingFraction(pomodoro.plannedEnd()), 0.0);
    EXPECT_EQ(pomodoro.remainingFraction(start + 1e6), 0.0);
}

TEST(ActiveSessionTest, remainingFractionOfAnEmptyPlanIsZero) {
    EXPECT_EQ(session({}).remainingFraction(start), 0.0);
}

TEST(ActiveSessionTest, remainingFractionStaysBetweenZeroAndOneForPlansEditedByHand) {
    const auto fractionOf = [](std::vector<Segment> plan) { return session(std::move(plan)).remainingFraction(start); };
    EXPECT_EQ(fractionOf({{SegmentKind::work, 1e308}, {SegmentKind::work, 1e308}}), 0.0);
    EXPECT_EQ(fractionOf({{SegmentKind::work, -60}}), 0.0);
    EXPECT_EQ(fractionOf({{SegmentKind::work, 60}, {SegmentKind::work, -30}}), 1.0);
}

TEST(ActiveSessionTest, leavingADeepSessionCostsThreeTimesAsMuchWhateverThePlansLength) {
    EXPECT_EQ(session({{SegmentKind::work, 1}}, SessionMode::deep).exitWaitSeconds(), 180.0);
    EXPECT_EQ(session(Schedule::deep({}), SessionMode::deep).exitWaitSeconds(), 180.0);
    EXPECT_EQ(session(Schedule::deep({}), SessionMode::pomodoro).exitWaitSeconds(), 60.0);
}

TEST(ActiveSessionTest, statusIsThatOfThePlan) {
    const auto pomodoro = session(Schedule::pomodoro({}));
    EXPECT_EQ(pomodoro.status(start + 1'600.0),
              Schedule::status(pomodoro.segments, pomodoro.startedAt, start + 1'600.0));
}

TEST(ActiveSessionTest, aSessionWithoutItsHiddenBundleIDsDoesNotDecode) {
    std::string text = *encodeJSON(session(Schedule::deep({})));
    EXPECT_TRUE(decodeJSON<ActiveSession>(text));
    text.replace(text.find("hiddenBundleIDs"), 6, "HIDDEN");
    EXPECT_FALSE(decodeJSON<ActiveSession>(text));
}

TEST(ActiveSessionTest, aSessionReadsBackEqual) {
    auto running = session(Schedule::pomodoro({}));
    running.attempts = 3;
    running.returns = 2;
    running.hiddenBundleIDs = {"org.example.game", "org.example.chat"};
    EXPECT_EQ(decodeJSON<ActiveSession>(*encodeJSON(running)), running);
}

} // namespace
} // namespace velmorin
