// How a session runs: second by second, through its plan, and by the wall clock.

#include "tests/support/EngineTest.h"

namespace velmorin {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class SessionTickTest : public EngineTest {
protected:
    SessionTickTest() {
        setup.tellsTicks = true;
        addEditorAndGame();
    }

    /// A session with this plan at its start, as after a crash in its first instant.
    void startWithChrome() {
        addApplication(chrome, "com.google.Chrome", "Chrome");
        launch();
        controller().start(profile(SessionMode::pomodoro, {"com.google.Chrome"}), "write");
        settle();
    }
    std::size_t polls() const { return events("script").size(); }
};

TEST_F(SessionTickTest, aTickComesEverySecond) {
    launch();
    controller().start(profile(SessionMode::pomodoro), "write");
    EXPECT_EQ(events("tick").size(), 1U);
    advance(0.9375);
    EXPECT_EQ(events("tick").size(), 1U);
    advance(0.0625);
    EXPECT_EQ(events("tick").size(), 2U);
    advance(60);
    EXPECT_EQ(events("tick").size(), 62U);
}

TEST_F(SessionTickTest, aPlainTickWritesNothing) {
    startSession(profile(SessionMode::pomodoro));
    const auto before = files.contents;
    const ActiveSession running = session();
    forgetEvents();
    advance(600);
    EXPECT_EQ(files.contents, before);
    EXPECT_EQ(session(), running);
    EXPECT_EQ(events("tick").size(), 600U);
    EXPECT_THAT(eventNames(), Each("tick"));
}

TEST_F(SessionTickTest, aPlainTickInAnOpenBreakWritesNothing) {
    run({shortRest, work});
    const auto before = files.contents;
    advance(59);
    EXPECT_EQ(files.contents, before);
    EXPECT_EQ(events("tick").size(), 59U);
    EXPECT_THAT(eventNames(), Each("tick"));
}

TEST_F(SessionTickTest, theStatusIsThatOfTheMomentAtEachTick) {
    run({work, shortRest});
    advance(20);
    EXPECT_EQ(**controller().status(), session().status(now()));
    EXPECT_EQ((*controller().status())->remainingInSegment, 40);
    advance(0.5);
    EXPECT_EQ((*controller().status())->remainingInSegment, 40);
    advance(40);
    EXPECT_EQ((*controller().status())->kind, SegmentKind::shortBreak);
}

TEST_F(SessionTickTest, aSegmentEndsWithTheTickAtItsEnd) {
    run({work, shortRest, work});
    advance(59);
    EXPECT_THAT(log(), IsEmpty());
    forgetEvents();
    advance(1);
    EXPECT_EQ(controller().lastSegmentIndex(), 1);
    EXPECT_THAT(eventNames(), ElementsAre("log", "sound", "overlay", "tick"));
}

TEST_F(SessionTickTest, eachSegmentIsLoggedWithItsIndexAndKind) {
    run({work, shortRest, work, {SegmentKind::longBreak, 60}, lockedRest, work});
    advance(330);
    EXPECT_THAT(log(), ElementsAre("segment 1 shortBreak", "segment 2 work", "segment 3 longBreak",
                                   "segment 4 lockedBreak", "segment 5 work"));
}

TEST_F(SessionTickTest, applicationsAreEnforcedEverySecond) {
    startSession(profile(SessionMode::pomodoro));
    desktop().workspace.unhide(game);
    advance(1);
    EXPECT_TRUE(isHidden(game));
    desktop().workspace.unhide(game);
    advance(1);
    EXPECT_TRUE(isHidden(game));
}

TEST_F(SessionTickTest, nothingIsEnforcedInAnOpenBreak) {
    run({shortRest, work});
    push();
    advance(30);
    EXPECT_FALSE(isHidden(game));
    EXPECT_EQ(front(), game);
    EXPECT_THAT(eventNames(), Each("tick"));
    EXPECT_EQ(session().attempts, 0);
    EXPECT_EQ(controller().tickCount(), 0);
}

TEST_F(SessionTickTest, aLockedBreakIsEnforced) {
    run({lockedRest, work});
    desktop().workspace.unhide(game);
    advance(1);
    EXPECT_TRUE(isHidden(game));
    EXPECT_EQ(controller().tickCount(), 2);
}

TEST_F(SessionTickTest, browsersArePolledEverySecondLockedTick) {
    startWithChrome();
    EXPECT_EQ(controller().tickCount(), 1);
    EXPECT_EQ(polls(), 0U);
    advance(1);
    EXPECT_EQ(controller().tickCount(), 2);
    EXPECT_EQ(polls(), 1U);
    advance(1);
    EXPECT_EQ(polls(), 1U);
    advance(1);
    EXPECT_EQ(controller().tickCount(), 4);
    EXPECT_EQ(polls(), 2U);
}

TEST_F(SessionTickTest, anOpenBreakDoesNotAdvanceTheTickCount) {
    startWithChrome();
    // One tick at the start and one each second; the break begins at 25 minutes.
    advance(25 * 60 - 1);
    EXPECT_EQ(controller().tickCount(), 1500);
    advance(5 * 60);
    EXPECT_EQ(controller().tickCount(), 1500);
    EXPECT_EQ(polls(), 750U);
    advance(1); // the first tick of work
    EXPECT_EQ(controller().tickCount(), 1501);
    EXPECT_EQ(polls(), 750U);
    advance(1);
    EXPECT_EQ(polls(), 751U);
}

TEST_F(SessionTickTest, theTickCountGoesOnThroughTheNextSession) {
    startWithChrome();
    controller().exitWaitOverride = 0;
    advance(2);
    EXPECT_EQ(controller().tickCount(), 3);
    controller().beginEmergencyExit();
    controller().confirmEmergencyExit("enough for today");
    advance(60);
    EXPECT_EQ(controller().tickCount(), 3);
    forgetEvents();
    controller().start(profile(SessionMode::pomodoro, {"com.google.Chrome"}), "write");
    EXPECT_EQ(controller().tickCount(), 4);
    EXPECT_EQ(polls(), 0U) << "the tick goes on before the script is sent";
    settle();
    // So the very first tick of this session asks the browser.
    EXPECT_EQ(polls(), 1U);
}

TEST_F(SessionTickTest, aLongSleepSkipsSegmentsWithOneChange) {
    run({work, shortRest, work, shortRest, work});
    desktop().time.sleep(190);
    EXPECT_EQ(controller().lastSegmentIndex(), 3);
    EXPECT_THAT(log(), ElementsAre("segment 3 shortBreak"));
    EXPECT_EQ(events("sound").size(), 1U);
    EXPECT_EQ(events("tick").size(), 1U);
}

TEST_F(SessionTickTest, aSleepOverABreakFromWorkToWorkNeedsNoScreen) {
    run({work, shortRest, work});
    desktop().time.sleep(130);
    EXPECT_THAT(log(), ElementsAre("segment 2 work"));
    EXPECT_TRUE(shows<Overlay::None>(overlay()));
    EXPECT_THAT(events("activate"), ElementsAre(R"("pid":10)"));
    EXPECT_EQ(events("sound").size(), 1U);
}

TEST_F(SessionTickTest, aSleepWithinASegmentChangesNothing) {
    run({work, shortRest});
    desktop().time.sleep(50);
    EXPECT_THAT(eventNames(), ElementsAre("tick"));
    EXPECT_EQ((*controller().status())->remainingInSegment, 10);
}

TEST_F(SessionTickTest, aClockSetBackMovesTheSessionBack) {
    run({shortRest, work, shortRest});
    advance(90);
    ASSERT_EQ(controller().lastSegmentIndex(), 1);
    forgetEvents();
    desktop().time.setClock(-60);
    advance(1);
    EXPECT_EQ(controller().lastSegmentIndex(), 0);
    EXPECT_EQ((*controller().status())->remainingInSegment, 29);
    EXPECT_THAT(log(), ElementsAre("segment 0 shortBreak"));
    EXPECT_EQ(events("sound").size(), 1U);
}

TEST_F(SessionTickTest, aClockSetBeforeTheStartHoldsTheSessionAtItsStart) {
    run({work, shortRest});
    desktop().time.setClock(-3600);
    advance(90);
    EXPECT_EQ(controller().lastSegmentIndex(), 0);
    EXPECT_EQ((*controller().status())->remainingTotal, 120);
    EXPECT_THAT(log(), IsEmpty());
}

TEST_F(SessionTickTest, aClockSetBackFromABreakIntoWorkAsksForTheReturn) {
    run({work, shortRest, work});
    advance(70);
    desktop().time.setClock(-30);
    advance(1);
    EXPECT_EQ(controller().lastSegmentIndex(), 0);
    EXPECT_TRUE(shows<Overlay::BackToWork>(overlay()));
}

TEST_F(SessionTickTest, aClockSetPastThePlanEndsTheSessionAtItsPlannedEnd) {
    run({work, shortRest});
    advance(10);
    desktop().time.setClock(86400);
    advance(1);
    EXPECT_FALSE(controller().isActive());
    EXPECT_EQ(data().history()->front().endedAt, startOfScene + 120.0);
}

TEST_F(SessionTickTest, theSessionFileKeepsWhatTheLastChangeSaved) {
    startSession(profile(SessionMode::pomodoro));
    push();
    const auto saved = file(sessionFile);
    EXPECT_EQ(stored<ActiveSession>(sessionFile), session());
    advance(30);
    EXPECT_EQ(file(sessionFile), saved);
}

} // namespace
} // namespace velmorin
