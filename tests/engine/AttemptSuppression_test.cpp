#include "tests/engine/EnforcementTest.h"

namespace velmorin {
namespace {

using ::testing::ElementsAre;

/// The stretches in which a push against the lock is answered but not counted.
class AttemptSuppressionTest : public EnforcementTest {
protected:
    /// Pushes after `seconds` in which nothing counts, less a moment, and again when they are over.
    void expectNothingCountsFor(double seconds) {
        const std::int64_t before = attempts();
        EXPECT_EQ(controller().suppressAttemptsUntil(), now() + seconds);
        advance(seconds - 0.125);
        forgetEvents();
        push();
        EXPECT_TRUE(isHidden(game));
        EXPECT_EQ(front(), editor);
        EXPECT_EQ(attempts(), before);
        EXPECT_TRUE(shows<Overlay::None>(overlay()));
        EXPECT_THAT(eventNames(), ElementsAre("hide", "log", "activate"));
        advance(0.125);
        push();
        EXPECT_EQ(attempts(), before + 1);
        EXPECT_TRUE(warning());
    }
};

TEST_F(AttemptSuppressionTest, aForbiddenFrontInTheFirstThreeSecondsIsHiddenNotCountedAndFocusGoesToWork) {
    addEditorAndGame();
    desktop().workspace.startInFront(game);
    launch();
    controller().start(profile(SessionMode::pomodoro), "write");
    settle();
    EXPECT_TRUE(isHidden(game));
    EXPECT_EQ(attempts(), 0);
    EXPECT_TRUE(shows<Overlay::None>(overlay()));
    EXPECT_EQ(front(), editor);
    EXPECT_EQ(times("activate", editor), 2U); // by the first tick and by the start itself
    EXPECT_EQ(times("activate", game), 0U);
    advance(1);
    push();
    EXPECT_TRUE(isHidden(game));
    EXPECT_EQ(attempts(), 0);
    EXPECT_EQ(front(), editor);
}

TEST_F(AttemptSuppressionTest, nothingCountsInTheThreeSecondsAfterTheStart) {
    addEditorAndGame();
    launch();
    controller().start(profile(SessionMode::pomodoro), "write");
    settle();
    expectNothingCountsFor(3);
}

TEST_F(AttemptSuppressionTest, nothingCountsInTheThreeSecondsAfterASessionIsResumed) {
    startWithEditorAndGame();
    advance(100);
    crash();
    advance(7);
    relaunch();
    expectNothingCountsFor(3);
}

TEST_F(AttemptSuppressionTest, nothingCountsInTheTwoSecondsAfterTheReturnToWork) {
    startWithEditorAndGame();
    push();
    advance(5);
    controller().returnToWork();
    settle();
    expectNothingCountsFor(2);
}

TEST_F(AttemptSuppressionTest, nothingCountsInTheTwoSecondsAfterALockedBreak) {
    startWithEditorAndGame(SessionMode::deep);
    advance(65 * 60 - 3);
    ASSERT_EQ((*controller().status())->segmentIndex, 2);
    expectNothingCountsFor(2);
}

TEST_F(AttemptSuppressionTest, theEndOfAnOpenBreakOpensTheWindowBehindItsScreen) {
    startWithEditorAndGame();
    advance(30 * 60 - 3);
    EXPECT_TRUE(shows<Overlay::BackToWork>(overlay()));
    EXPECT_EQ(controller().suppressAttemptsUntil(), now() + 2);
    controller().setOverlay(Overlay::None{}); // puts the screen down without opening a window of its own
    expectNothingCountsFor(2);
}

TEST_F(AttemptSuppressionTest, anExitUnderWayDoesNotKeepTheWindowOfWorkFromOpening) {
    startWithEditorAndGame(SessionMode::deep);
    advance(64 * 60);
    controller().beginEmergencyExit();
    advance(60 - 3);
    ASSERT_EQ((*controller().status())->segmentIndex, 2);
    EXPECT_TRUE(shows<Overlay::EmergencyExit>(overlay()));
    EXPECT_EQ(controller().suppressAttemptsUntil(), now() + 2);
}

TEST_F(AttemptSuppressionTest, theStartOfALockedBreakOpensNoWindow) {
    startWithEditorAndGame(SessionMode::deep);
    const Date before = controller().suppressAttemptsUntil();
    advance(60 * 60);
    ASSERT_TRUE(shows<Overlay::LockedBreak>(overlay()));
    EXPECT_EQ(controller().suppressAttemptsUntil(), before);
}

TEST_F(AttemptSuppressionTest, everyPushIsHiddenAndRefocusedThroughout) {
    addEditorAndGame();
    launch();
    controller().start(profile(SessionMode::pomodoro), "write");
    settle();
    forgetEvents();
    for (int i = 0; i < 5; ++i) {
        advance(0.5);
        push();
        EXPECT_EQ(front(), editor);
    }
    EXPECT_EQ(times("hide", game), 5U);
    EXPECT_EQ(times("activate", editor), 5U);
    EXPECT_EQ(saves(SessionController::sessionFile), 0U);
    EXPECT_EQ(attempts(), 0);
}

TEST_F(AttemptSuppressionTest, aLaunchIsAskedToQuitButNotCounted) {
    addEditorAndGame();
    launch();
    controller().start(profile(SessionMode::pomodoro), "write");
    settle();
    forgetEvents();
    const std::int32_t pid = start("org.example.new");
    EXPECT_EQ(attempts(), 0);
    EXPECT_TRUE(shows<Overlay::None>(overlay()));
    EXPECT_EQ(front(), editor); // taken from the newcomer, which may not be hidden yet
    EXPECT_FALSE(isHidden(pid));
    EXPECT_THAT(eventNames(), ElementsAre("log", "terminate", "terminate", "activate"));
    advance(0.5);
    EXPECT_FALSE(isRunning(pid));
}

TEST_F(AttemptSuppressionTest, theWindowOutlivesTheSession) {
    startWithEditorAndGame();
    push();
    controller().returnToWork();
    const Date until = controller().suppressAttemptsUntil();
    endSession();
    EXPECT_EQ(controller().suppressAttemptsUntil(), until);
}

} // namespace
} // namespace velmorin
