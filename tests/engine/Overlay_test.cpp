// What the user's answers to the overlay do.

#include "tests/support/EngineTest.h"

namespace velmorin {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class OverlayTest : public EngineTest {
protected:
    OverlayTest() { addEditorAndGame(); }

    /// A session three seconds into its plan, with an exit opened there.
    void openExit(SessionMode mode = SessionMode::pomodoro) {
        startSession(profile(mode));
        forgetEvents();
        controller().beginEmergencyExit();
    }
    Date waitUntil() { return std::get<Overlay::EmergencyExit>(overlay()).waitUntil; }
};

TEST_F(OverlayTest, theFirstAttemptBringsAWarningOfFiveSeconds) {
    startSession(profile(SessionMode::pomodoro));
    forgetEvents();
    push();
    EXPECT_EQ(overlay(), (OverlayState{Overlay::Warning{{"Game", 1, now(), now() + 5.0}}}));
    EXPECT_EQ(session().attempts, 1);
    EXPECT_EQ(stored<ActiveSession>(sessionFile)->attempts, 1);
    EXPECT_EQ(saves(sessionFile), 1U);
    EXPECT_THAT(events("sound"), ElementsAre(R"("name":"Purr","volume":0.3)"));
    EXPECT_EQ(log().back(), "attempt 1 target=Game pause=5");
}

TEST_F(OverlayTest, aReturnFromAWarningIsCountedAndSaved) {
    startSession(profile(SessionMode::pomodoro));
    push();
    advance(5);
    forgetEvents();
    controller().returnToWork();
    EXPECT_EQ(session().returns, 1);
    EXPECT_EQ(stored<ActiveSession>(sessionFile)->returns, 1);
    EXPECT_TRUE(shows<Overlay::None>(overlay()));
    EXPECT_EQ(controller().suppressAttemptsUntil(), now() + 2.0);
    EXPECT_THAT(eventNames(), ElementsAre("save", "log", "overlay", "activate"));
    EXPECT_THAT(log(), ElementsAre("returned 1"));
    EXPECT_THAT(events("activate"), ElementsAre(R"("pid":10)"));
}

TEST_F(OverlayTest, aReturnIsNotHeldUpByThePause) {
    startSession(profile(SessionMode::pomodoro));
    push();
    controller().returnToWork();
    EXPECT_TRUE(shows<Overlay::None>(overlay()));
    EXPECT_EQ(session().returns, 1);
}

TEST_F(OverlayTest, aWarningNeverEndsByItself) {
    startSession(profile(SessionMode::pomodoro));
    push();
    const OverlayState warning = overlay();
    forgetEvents();
    advance(20 * 60);
    EXPECT_EQ(overlay(), warning);
    EXPECT_THAT(eventNames(), IsEmpty());
}

TEST_F(OverlayTest, noAttemptIsCountedForTwoSecondsAfterAReturn) {
    startSession(profile(SessionMode::pomodoro));
    push();
    controller().returnToWork();
    advance(1.75);
    push();
    EXPECT_EQ(session().attempts, 1);
    advance(0.25);
    push();
    EXPECT_EQ(session().attempts, 2);
    controller().returnToWork();
    EXPECT_EQ(log().back(), "returned 2");
}

TEST_F(OverlayTest, attemptsAndReturnsAddUpThroughASession) {
    startSession(profile(SessionMode::pomodoro));
    controller().exitWaitOverride = 0;
    for (int attempt = 1; attempt <= 3; ++attempt) {
        push();
        EXPECT_EQ(session().attempts, attempt);
        controller().returnToWork();
        advance(2);
    }
    push(); // gives way to an exit
    controller().beginEmergencyExit();
    controller().confirmEmergencyExit(reason);
    EXPECT_EQ(record().attempts, 4);
    EXPECT_EQ(record().returns, 3);
}

TEST_F(OverlayTest, theReturnFromABreakIsNotCounted) {
    startSession(profile(SessionMode::pomodoro));
    advance(30 * 60);
    ASSERT_TRUE(shows<Overlay::BackToWork>(overlay()));
    forgetEvents();
    controller().returnToWork();
    EXPECT_TRUE(shows<Overlay::None>(overlay()));
    EXPECT_EQ(session().returns, 0);
    EXPECT_EQ(controller().suppressAttemptsUntil(), now() + 2.0);
    EXPECT_THAT(eventNames(), ElementsAre("overlay", "activate"));
}

TEST_F(OverlayTest, anExitInAPomodoroSessionWaitsAMinute) {
    openExit();
    EXPECT_EQ(waitUntil(), now() + 60.0);
    EXPECT_THAT(eventNames(), ElementsAre("log", "overlay"));
    EXPECT_THAT(log(), ElementsAre("emergency exit opened"));
}

TEST_F(OverlayTest, anExitInADeepSessionWaitsThreeMinutes) {
    openExit(SessionMode::deep);
    EXPECT_EQ(waitUntil(), now() + 180.0);
}

TEST_F(OverlayTest, theWaitCanBeReplaced) {
    startSession(profile(SessionMode::deep));
    controller().exitWaitOverride = 0;
    controller().beginEmergencyExit();
    EXPECT_EQ(waitUntil(), now());
    controller().exitWaitOverride = 7.5;
    controller().beginEmergencyExit();
    EXPECT_EQ(waitUntil(), now() + 7.5);
}

TEST_F(OverlayTest, aSecondExitStartsTheWaitAnew) {
    for (const auto& [mode, wait] : {std::pair{SessionMode::pomodoro, 60.0}, std::pair{SessionMode::deep, 180.0}}) {
        openExit(mode);
        advance(30);
        controller().beginEmergencyExit();
        EXPECT_EQ(waitUntil(), now() + wait);
        EXPECT_THAT(log(), ElementsAre("emergency exit opened", "emergency exit opened"));
        advance(wait);
        controller().confirmEmergencyExit(reason);
    }
}

TEST_F(OverlayTest, anExitInAShortBreakWithWorkLeftWaitsAMinute) {
    startSession(profile(SessionMode::pomodoro));
    advance(26 * 60);
    ASSERT_EQ((*controller().status())->kind, SegmentKind::shortBreak);
    controller().beginEmergencyExit();
    EXPECT_EQ(waitUntil(), now() + 60.0);
}

TEST_F(OverlayTest, anExitInTheLongBreakAtTheEndCompletesTheSessionAtOnce) {
    startSession(profile(SessionMode::pomodoro));
    advance(116 * 60);
    ASSERT_EQ((*controller().status())->kind, SegmentKind::longBreak);
    forgetEvents();
    controller().beginEmergencyExit();
    EXPECT_FALSE(controller().isActive());
    EXPECT_EQ(record().outcome, SessionOutcome::completed);
    EXPECT_EQ(record().exitReason, std::nullopt);
    EXPECT_EQ(overlay(), OverlayState{Overlay::Finished{record()}});
    EXPECT_THAT(log(), ElementsAre("session ended outcome=completed attempts=0 returns=0"));
}

TEST_F(OverlayTest, theMomentCountsForAnExitAndNotTheLastTick) {
    startSession(profile(SessionMode::pomodoro));
    advance(115 * 60 - 3.5);
    controller().beginEmergencyExit();
    EXPECT_TRUE(shows<Overlay::EmergencyExit>(overlay()));
    controller().cancelEmergencyExit();
    desktop().time.setClock(0.5); // no tick has seen the long break yet
    controller().beginEmergencyExit();
    EXPECT_TRUE(shows<Overlay::Finished>(overlay()));
}

TEST_F(OverlayTest, anExitIsRefusedBeforeTheWaitIsOver) {
    openExit();
    advance(59);
    const OverlayState before = overlay();
    const auto history = *data().history();
    forgetEvents();
    controller().confirmEmergencyExit(reason);
    EXPECT_EQ(overlay(), before);
    EXPECT_TRUE(controller().isActive());
    EXPECT_EQ(*data().history(), history);
    EXPECT_THAT(eventNames(), ElementsAre("log"));
    EXPECT_THAT(log(), ElementsAre("exit refused"));
}

TEST_F(OverlayTest, anExitIsConfirmedExactlyWhenTheWaitIsOver) {
    openExit();
    advance(60);
    controller().confirmEmergencyExit(reason);
    EXPECT_FALSE(controller().isActive());
    EXPECT_EQ(record().outcome, SessionOutcome::aborted);
}

TEST_F(OverlayTest, anExitCanBeConfirmedLongAfterTheWait) {
    openExit();
    advance(20 * 60);
    controller().confirmEmergencyExit(reason);
    EXPECT_EQ(record().endedAt, now());
}

TEST_F(OverlayTest, anExitWithTwelveBlanksAndThreeLettersIsRefused) {
    startSession(profile(SessionMode::pomodoro));
    controller().exitWaitOverride = 0;
    controller().beginEmergencyExit();
    for (const char* tooShort : {"      abc      ", "            abc", "abc            ", "", "123456789"}) {
        controller().confirmEmergencyExit(tooShort);
        EXPECT_TRUE(controller().isActive()) << tooShort;
        EXPECT_EQ(log().back(), "exit refused");
    }
    controller().confirmEmergencyExit("1234567890");
    EXPECT_FALSE(controller().isActive());
}

TEST_F(OverlayTest, anEarlyEndIsRecordedWithItsTrimmedReasonAndHasNoSummary) {
    openExit();
    advance(90);
    forgetEvents();
    controller().confirmEmergencyExit(" \n\tenough for today \r\n");
    EXPECT_EQ(record().exitReason, reason);
    EXPECT_EQ(record().endedAt, now());
    EXPECT_EQ(record().outcome, SessionOutcome::aborted);
    EXPECT_TRUE(shows<Overlay::None>(overlay()));
    EXPECT_THAT(events("sound"), IsEmpty());
    EXPECT_THAT(events("overlay"), ElementsAre(R"("state":"none")"));
}

TEST_F(OverlayTest, cancellingInWorkSuppressesAttemptsAndGivesTheFrontBack) {
    openExit();
    advance(10);
    forgetEvents();
    controller().cancelEmergencyExit();
    EXPECT_TRUE(shows<Overlay::None>(overlay()));
    EXPECT_EQ(controller().suppressAttemptsUntil(), now() + 2.0);
    EXPECT_EQ(session().returns, 0);
    EXPECT_THAT(eventNames(), ElementsAre("log", "overlay", "activate"));
    EXPECT_THAT(log(), ElementsAre("emergency exit cancelled"));
}

TEST_F(OverlayTest, cancellingInALockedBreakBringsItsScreenBackAndNothingElse) {
    startSession(profile(SessionMode::deep));
    advance(61 * 60);
    controller().beginEmergencyExit();
    advance(10);
    const Date suppressed = controller().suppressAttemptsUntil();
    forgetEvents();
    controller().cancelEmergencyExit();
    EXPECT_TRUE(shows<Overlay::LockedBreak>(overlay()));
    EXPECT_EQ(controller().suppressAttemptsUntil(), suppressed);
    EXPECT_THAT(eventNames(), ElementsAre("log", "overlay"));
}

TEST_F(OverlayTest, cancellingInAnOpenBreakPutsTheScreenDownAndGivesTheFrontBack) {
    startSession(profile(SessionMode::pomodoro));
    advance(26 * 60);
    push();
    controller().beginEmergencyExit();
    forgetEvents();
    controller().cancelEmergencyExit();
    EXPECT_TRUE(shows<Overlay::None>(overlay()));
    EXPECT_THAT(eventNames(), ElementsAre("log", "overlay", "activate"));
    EXPECT_EQ(front(), editor);
}

TEST_F(OverlayTest, anExitOpenedInWorkAndCancelledInALockedBreakLandsThere) {
    startSession(profile(SessionMode::deep));
    controller().beginEmergencyExit();
    advance(61 * 60);
    ASSERT_TRUE(shows<Overlay::EmergencyExit>(overlay()));
    controller().cancelEmergencyExit();
    EXPECT_TRUE(shows<Overlay::LockedBreak>(overlay()));
}

TEST_F(OverlayTest, anExitOpenedInALockedBreakAndCancelledInWorkLeavesNoScreen) {
    startSession(profile(SessionMode::deep));
    advance(61 * 60);
    controller().beginEmergencyExit();
    advance(5 * 60);
    controller().cancelEmergencyExit();
    EXPECT_TRUE(shows<Overlay::None>(overlay()));
}

TEST_F(OverlayTest, aCancelDoesNotBringTheReturnFromABreakBack) {
    startSession(profile(SessionMode::pomodoro));
    advance(30 * 60);
    ASSERT_TRUE(shows<Overlay::BackToWork>(overlay()));
    controller().beginEmergencyExit();
    controller().cancelEmergencyExit();
    EXPECT_TRUE(shows<Overlay::None>(overlay()));
}

TEST_F(OverlayTest, aWarningThatGaveWayToAnExitIsNoReturnWhenThatIsCancelled) {
    startSession(profile(SessionMode::pomodoro));
    push();
    controller().beginEmergencyExit();
    controller().cancelEmergencyExit();
    EXPECT_EQ(session().attempts, 1);
    EXPECT_EQ(session().returns, 0);
}

TEST_F(OverlayTest, aPlanThatEndsDuringAnExitCompletesTheSession) {
    leaveSession({{SegmentKind::work, 30}}, 0);
    launch();
    controller().beginEmergencyExit();
    advance(30);
    EXPECT_EQ(record().outcome, SessionOutcome::completed);
    EXPECT_EQ(overlay(), OverlayState{Overlay::Finished{record()}});
}

TEST_F(OverlayTest, aConfirmationAfterThePlanHasEndedIsRefused) {
    leaveSession({{SegmentKind::work, 30}}, 0);
    launch();
    controller().exitWaitOverride = 0;
    controller().beginEmergencyExit();
    advance(30);
    controller().confirmEmergencyExit(reason);
    EXPECT_EQ(log().back(), "exit refused");
    EXPECT_EQ(data().history()->size(), 1U);
    EXPECT_TRUE(shows<Overlay::Finished>(overlay()));
}

TEST_F(OverlayTest, theSummaryIsUpWithoutASessionUntilItIsPutDown) {
    leaveSession({{SegmentKind::work, 30}}, 0);
    launch();
    advance(30);
    EXPECT_FALSE(controller().isActive());
    const Date suppressed = controller().suppressAttemptsUntil();
    forgetEvents();
    advance(3600);
    EXPECT_TRUE(shows<Overlay::Finished>(overlay()));
    controller().setOverlay(Overlay::None{});
    EXPECT_TRUE(shows<Overlay::None>(overlay()));
    EXPECT_THAT(eventNames(), ElementsAre("overlay"));
    EXPECT_EQ(controller().suppressAttemptsUntil(), suppressed);
}

TEST_F(OverlayTest, aCrashDuringAnExitBringsTheSessionBackWithoutIt) {
    openExit();
    crash();
    relaunch();
    EXPECT_TRUE(controller().isActive());
    EXPECT_TRUE(shows<Overlay::None>(overlay()));
}

TEST_F(OverlayTest, anExitAskedForAfterThePlanButBeforeTheNextTickIsACompletedSession) {
    startSession(profile(SessionMode::deep));
    const Date plannedEnd = session().plannedEnd();
    desktop().time.setClock(4 * 3600);
    controller().beginEmergencyExit();
    EXPECT_EQ(record().outcome, SessionOutcome::completed);
    EXPECT_EQ(record().endedAt, plannedEnd);
    EXPECT_TRUE(shows<Overlay::Finished>(overlay()));
}

TEST_F(OverlayTest, anExitConfirmedAfterThePlanButBeforeTheNextTickEndsAtThatMoment) {
    openExit(SessionMode::deep);
    desktop().time.setClock(4 * 3600);
    controller().confirmEmergencyExit(reason);
    EXPECT_EQ(record().outcome, SessionOutcome::aborted);
    EXPECT_EQ(record().endedAt, now());
}

} // namespace
} // namespace velmorin
