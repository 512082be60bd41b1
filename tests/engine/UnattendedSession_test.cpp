// Sessions that answer their screens themselves, and what is still to come when their process dies.

#include "tests/support/EngineTest.h"

namespace velmorin {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

class UnattendedSessionTest : public EngineTest {
protected:
    explicit UnattendedSessionTest(bool isUnattended = true) {
        setup.autoReturnFromWarnings = isUnattended;
        setup.exitWaitOverride = 0;
        addEditorAndGame();
    }
};

TEST_F(UnattendedSessionTest, aWarningIsAnsweredHalfASecondAfterItsPause) {
    startSession(profile(SessionMode::pomodoro));
    push();
    advance(5.25);
    EXPECT_TRUE(shows<Overlay::Warning>(overlay()));
    advance(0.25);
    EXPECT_TRUE(shows<Overlay::None>(overlay()));
    EXPECT_EQ(session().returns, 1);
    advance(2);
    push();
    EXPECT_EQ(session().attempts, 2);
    advance(10.25);
    EXPECT_TRUE(shows<Overlay::Warning>(overlay()));
    advance(0.25);
    EXPECT_EQ(session().returns, 2);
}

TEST_F(UnattendedSessionTest, workAfterAnOpenBreakIsTakenUpAfterTwoSeconds) {
    run({work, shortRest, work});
    advance(121.75);
    EXPECT_TRUE(shows<Overlay::BackToWork>(overlay()));
    forgetEvents();
    advance(0.25);
    EXPECT_TRUE(shows<Overlay::None>(overlay()));
    EXPECT_EQ(session().returns, 0);
    EXPECT_THAT(events("activate"), ElementsAre(R"("pid":10)"));
    EXPECT_EQ(controller().suppressAttemptsUntil(), now() + 2.0);
}

TEST_F(UnattendedSessionTest, workAfterALockedBreakSetsNoTimer) {
    run({lockedRest, work});
    advance(61);
    forgetEvents();
    advance(10);
    EXPECT_THAT(eventNames(), IsEmpty());
}

TEST_F(UnattendedSessionTest, noTimerIsSetForWorkThatBeginsUnderAnExit) {
    run({shortRest, work});
    controller().beginEmergencyExit();
    advance(70);
    EXPECT_TRUE(shows<Overlay::EmergencyExit>(overlay()));
}

TEST_F(UnattendedSessionTest, aLateTimerPutsDownWhateverIsUpAndCountsNothing) {
    startSession(profile(SessionMode::pomodoro));
    push();
    controller().returnToWork();
    controller().beginEmergencyExit();
    advance(5.5);
    EXPECT_TRUE(shows<Overlay::None>(overlay()));
    EXPECT_EQ(session().returns, 1);
}

TEST_F(UnattendedSessionTest, aLateTimerAfterTheEndPutsTheSummaryDownAndGivesNothingTheFront) {
    run({work});
    advance(57);
    push();
    ASSERT_TRUE(shows<Overlay::Warning>(overlay()));
    controller().autoReturnFromWarnings = false; // or the process would end before
    advance(3);
    ASSERT_TRUE(shows<Overlay::Finished>(overlay()));
    forgetEvents();
    advance(2.5);
    EXPECT_TRUE(shows<Overlay::None>(overlay()));
    EXPECT_THAT(eventNames(), ElementsAre("overlay"));
    EXPECT_EQ(controller().suppressAttemptsUntil(), now() + 2.0);
}

TEST_F(UnattendedSessionTest, theProcessEndsTwoSecondsAfterASession) {
    run({work});
    advance(61.75);
    EXPECT_FALSE(controller().isActive());
    EXPECT_THAT(eventNames(), Not(Contains("terminateApplication")));
    advance(0.25);
    EXPECT_THAT(eventNames(), Contains("terminateApplication"));
    EXPECT_EQ(scene().program(), nullptr);
}

TEST_F(UnattendedSessionTest, theProcessEndsAfterAnEarlyEndToo) {
    startSession(profile(SessionMode::deep));
    endEarly();
    advance(1.75);
    EXPECT_NE(scene().program(), nullptr);
    advance(0.25);
    EXPECT_EQ(scene().program(), nullptr);
}

TEST_F(UnattendedSessionTest, theProcessEndsAfterASessionThatRanOutWhileItWasAway) {
    leaveSession({work}, 70);
    launch();
    advance(2);
    EXPECT_EQ(scene().program(), nullptr);
}

TEST_F(UnattendedSessionTest, theNextSessionKeepsTheProcess) {
    startSession(profile(SessionMode::deep));
    endEarly();
    controller().start(profile(SessionMode::deep), "again");
    advance(10);
    ASSERT_NE(scene().program(), nullptr);
    EXPECT_TRUE(controller().isActive());
}

class AttendedSessionTest : public UnattendedSessionTest {
protected:
    AttendedSessionTest() : UnattendedSessionTest{false} {}
};

TEST_F(AttendedSessionTest, nothingAnswersTheScreensOrEndsTheProcess) {
    run({shortRest, work});
    advance(90);
    EXPECT_TRUE(shows<Overlay::BackToWork>(overlay()));
    advance(60);
    EXPECT_TRUE(shows<Overlay::Finished>(overlay()));
    EXPECT_NE(scene().program(), nullptr);
}

/// A process that dies with calls to come. None of them may come, or touch what is gone.
class DeadProcessTest : public UnattendedSessionTest {
protected:
    void expectSilenceAfterCrash() {
        crash();
        const auto before = files.contents;
        forgetEvents();
        push();
        start("org.example.newcomer");
        advance(3600);
        EXPECT_THAT(eventNames(), IsEmpty());
        EXPECT_EQ(files.contents, before);
        EXPECT_EQ(desktop().time.nextDeadline(), std::nullopt);
    }
};

TEST_F(DeadProcessTest, aSessionUnderWayIsSilent) {
    startSession(profile(SessionMode::pomodoro));
    expectSilenceAfterCrash();
}

TEST_F(DeadProcessTest, aWarningThatWouldAnswerItselfIsSilent) {
    startSession(profile(SessionMode::pomodoro));
    push();
    expectSilenceAfterCrash();
}

TEST_F(DeadProcessTest, aReturnFromABreakThatWouldComeByItselfIsSilent) {
    run({shortRest, work});
    advance(60);
    ASSERT_TRUE(shows<Overlay::BackToWork>(overlay()));
    expectSilenceAfterCrash();
}

TEST_F(DeadProcessTest, theEndOfTheProcessThatWouldComeByItselfIsSilent) {
    startSession(profile(SessionMode::deep));
    endEarly();
    expectSilenceAfterCrash();
}

TEST_F(DeadProcessTest, aBrowserThatHasNotAnsweredYetIsSilent) {
    addApplication(chrome, "com.google.Chrome", "Chrome");
    desktop().browsers.behave(BrowserKind::chrome, {SimulatedBrowsers::Denied{}, 20});
    startSession(profile(SessionMode::deep, {"com.google.Chrome"}));
    ASSERT_EQ(events("script").size(), 1U);
    expectSilenceAfterCrash();
}

TEST_F(DeadProcessTest, aNotificationUnderWayIsSilent) {
    startSession(profile(SessionMode::deep));
    desktop().workspace.activate(game);
    expectSilenceAfterCrash();
}

TEST_F(DeadProcessTest, aWatcherOutlivesWhatItWatched) {
    startSession(profile(SessionMode::pomodoro));
    int changes = 0;
    const auto watch = controller().session().watch([&changes] { ++changes; });
    crash();
    advance(10);
    EXPECT_EQ(changes, 0);
}

} // namespace
} // namespace velmorin
