// Each transition of the overlay, tried from every screen.

#include "tests/engine/OverlayStates.h"
#include "tests/support/EngineTest.h"

namespace velmorin {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class OverlayTransitionTest : public EngineTest, public ::testing::WithParamInterface<std::size_t> {
protected:
    OverlayTransitionTest() { addEditorAndGame(); }

    /// Puts the screen of this test up, with nothing told before.
    void showScreen() {
        before = overlayState(GetParam(), now());
        controller().setOverlay(before);
        forgetEvents();
    }
    /// A session in which nothing is suppressed any more.
    void runUnderScreen(SessionMode mode = SessionMode::pomodoro) {
        startSession(profile(mode));
        showScreen();
    }
    void runUnderScreen(std::vector<Segment> plan, double elapsed) {
        leaveSession(std::move(plan), elapsed);
        launch();
        advance(3);
        showScreen();
    }
    void showWithoutSession() {
        launch();
        showScreen();
    }

    OverlayState before;
};

TEST_P(OverlayTransitionTest, anAttemptIsCountedOnlyWhereNoScreenIsUp) {
    runUnderScreen();
    push();
    const bool isFree = shows<Overlay::None>(before);
    EXPECT_EQ(session().attempts, isFree ? 1 : 0);
    EXPECT_EQ(overlay(), isFree ? (OverlayState{Overlay::Warning{{"Game", 1, now(), now() + 5.0}}}) : before);
    EXPECT_EQ(events("sound").size(), isFree ? 1U : 0U);
    EXPECT_EQ(saves(sessionFile), isFree ? 1U : 0U);
    EXPECT_TRUE(isHidden(game));
}

TEST_P(OverlayTransitionTest, aReturnPutsAnyScreenDownAndCountsFromAWarningAlone) {
    runUnderScreen();
    controller().returnToWork();
    const bool isWarned = shows<Overlay::Warning>(before);
    EXPECT_TRUE(shows<Overlay::None>(overlay()));
    EXPECT_EQ(session().returns, isWarned ? 1 : 0);
    EXPECT_EQ(saves(sessionFile), isWarned ? 1U : 0U);
    EXPECT_EQ(log(), isWarned ? std::vector<std::string>{"returned 1"} : std::vector<std::string>{});
    EXPECT_EQ(controller().suppressAttemptsUntil(), now() + 2.0);
    EXPECT_THAT(events("overlay"), ElementsAre(R"("state":"none")"));
    EXPECT_THAT(events("activate"), ElementsAre(R"("pid":10)"));
    EXPECT_THAT(events("sound"), IsEmpty());
}

TEST_P(OverlayTransitionTest, aReturnWithoutASessionPutsTheScreenDownAndGivesNothingTheFront) {
    showWithoutSession();
    controller().returnToWork();
    EXPECT_TRUE(shows<Overlay::None>(overlay()));
    EXPECT_EQ(controller().suppressAttemptsUntil(), now() + 2.0);
    EXPECT_THAT(eventNames(), ElementsAre("overlay"));
}

TEST_P(OverlayTransitionTest, theExitOpensFromAnyScreenWhileWorkRemains) {
    runUnderScreen();
    const ActiveSession running = session();
    const Date suppressed = controller().suppressAttemptsUntil();
    controller().beginEmergencyExit();
    EXPECT_EQ(overlay(), OverlayState{Overlay::EmergencyExit{now() + 60.0}});
    EXPECT_THAT(eventNames(), ElementsAre("log", "overlay"));
    EXPECT_THAT(log(), ElementsAre("emergency exit opened"));
    EXPECT_EQ(session(), running);
    EXPECT_EQ(controller().suppressAttemptsUntil(), suppressed);
}

TEST_P(OverlayTransitionTest, theExitCompletesTheSessionFromAnyScreenOnceAllWorkIsDone) {
    runUnderScreen({{SegmentKind::work, 60}, {SegmentKind::longBreak, 60}}, 70);
    controller().beginEmergencyExit();
    EXPECT_FALSE(controller().isActive());
    EXPECT_EQ(record().outcome, SessionOutcome::completed);
    EXPECT_EQ(overlay(), OverlayState{Overlay::Finished{record()}});
    EXPECT_THAT(events("sound"), ElementsAre(R"("name":"Glass","volume":0.4)"));
}

TEST_P(OverlayTransitionTest, theExitDoesNothingWithoutASession) {
    showWithoutSession();
    controller().beginEmergencyExit();
    EXPECT_EQ(overlay(), before);
    EXPECT_THAT(eventNames(), IsEmpty());
}

TEST_P(OverlayTransitionTest, aCancelInWorkActsLikeAReturn) {
    runUnderScreen();
    controller().cancelEmergencyExit();
    EXPECT_TRUE(shows<Overlay::None>(overlay()));
    // Only a cancel without an exit finds a warning.
    EXPECT_EQ(session().returns, shows<Overlay::Warning>(before) ? 1 : 0);
    EXPECT_EQ(log().front(), "emergency exit cancelled");
    EXPECT_EQ(controller().suppressAttemptsUntil(), now() + 2.0);
    EXPECT_THAT(events("activate"), ElementsAre(R"("pid":10)"));
}

TEST_P(OverlayTransitionTest, aCancelInALockedBreakBringsItsScreen) {
    runUnderScreen({{SegmentKind::lockedBreak, 60}, {SegmentKind::work, 60}}, 0);
    const Date suppressed = controller().suppressAttemptsUntil();
    controller().cancelEmergencyExit();
    EXPECT_TRUE(shows<Overlay::LockedBreak>(overlay()));
    EXPECT_THAT(eventNames(), ElementsAre("log", "overlay"));
    EXPECT_EQ(controller().suppressAttemptsUntil(), suppressed);
    EXPECT_EQ(session().returns, 0);
}

TEST_P(OverlayTransitionTest, aCancelWithoutASessionPutsTheScreenDown) {
    showWithoutSession();
    controller().cancelEmergencyExit();
    EXPECT_TRUE(shows<Overlay::None>(overlay()));
    EXPECT_THAT(eventNames(), ElementsAre("log", "overlay"));
    EXPECT_THAT(log(), ElementsAre("emergency exit cancelled"));
}

TEST_P(OverlayTransitionTest, aConfirmationIsRefusedUnderEveryOtherScreen) {
    runUnderScreen();
    if (shows<Overlay::EmergencyExit>(before)) advance(59); // and under this one while the wait runs
    forgetEvents();
    controller().confirmEmergencyExit(reason);
    EXPECT_EQ(overlay(), before);
    EXPECT_TRUE(controller().isActive());
    EXPECT_THAT(eventNames(), ElementsAre("log"));
    EXPECT_THAT(log(), ElementsAre("exit refused"));
}

TEST_P(OverlayTransitionTest, aConfirmationIsHeardUnderTheExitAlone) {
    runUnderScreen();
    advance(60);
    controller().confirmEmergencyExit(reason);
    const bool isExiting = shows<Overlay::EmergencyExit>(before);
    EXPECT_EQ(controller().isActive(), !isExiting);
    EXPECT_EQ(overlay(), isExiting ? OverlayState{Overlay::None{}} : before);
    EXPECT_EQ(data().history()->size(), isExiting ? 1U : 0U);
}

TEST_P(OverlayTransitionTest, aConfirmationWithoutASessionChangesNothing) {
    showWithoutSession();
    advance(60);
    controller().confirmEmergencyExit(reason);
    EXPECT_FALSE(controller().isActive());
    EXPECT_THAT(*data().history(), IsEmpty());
}

TEST_P(OverlayTransitionTest, thePlansEndBringsTheSummaryOverAnyScreen) {
    runUnderScreen({{SegmentKind::work, 60}}, 0);
    advance(57);
    EXPECT_FALSE(controller().isActive());
    EXPECT_EQ(record().outcome, SessionOutcome::completed);
    EXPECT_EQ(overlay(), OverlayState{Overlay::Finished{record()}});
    EXPECT_THAT(events("sound"), ElementsAre(R"("name":"Glass","volume":0.4)"));
}

TEST_P(OverlayTransitionTest, theStartOfASessionLeavesTheScreenAsItIs) {
    showWithoutSession();
    controller().start(profile(SessionMode::pomodoro), "write");
    advance(60);
    EXPECT_EQ(overlay(), before);
    EXPECT_THAT(events("overlay"), IsEmpty());
    EXPECT_TRUE(controller().isActive());
}

TEST_P(OverlayTransitionTest, theClosingOfTheSummaryOnlyPutsTheScreenDown) {
    runUnderScreen();
    const Date suppressed = controller().suppressAttemptsUntil();
    const ActiveSession running = session();
    controller().setOverlay(Overlay::None{});
    EXPECT_TRUE(shows<Overlay::None>(overlay()));
    EXPECT_THAT(eventNames(), ElementsAre("overlay"));
    EXPECT_EQ(controller().suppressAttemptsUntil(), suppressed);
    EXPECT_EQ(session(), running);
}

TEST_P(OverlayTransitionTest, theSameScreenAgainIsHeardByTheCallbackAlone) {
    launch();
    showScreen();
    int changes = 0;
    const auto watch = controller().overlay().watch([&changes] { ++changes; });
    controller().setOverlay(before);
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(events("overlay").size(), 1U);
    EXPECT_EQ(overlay(), before);
}

TEST_P(OverlayTransitionTest, eachOtherScreenIsAChange) {
    launch();
    showScreen();
    for (std::size_t other = 0; other < overlayStates; ++other) {
        int changes = 0;
        const auto watch = controller().overlay().watch([&changes] { ++changes; });
        controller().setOverlay(overlayState(other, now()));
        EXPECT_EQ(changes, other == GetParam() ? 0 : 1) << other;
        controller().setOverlay(before);
    }
}

INSTANTIATE_TEST_SUITE_P(Screens, OverlayTransitionTest, ::testing::Range(std::size_t{0}, overlayStates), overlayName);

} // namespace
} // namespace velmorin
