// How a process takes up the session that another one has left behind.

#include "tests/support/EngineTest.h"

namespace velmorin {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class SessionResumeTest : public EngineTest {
protected:
    SessionResumeTest() {
        setup.tellsTicks = true;
        addEditorAndGame();
    }

    void writeSession(const ActiveSession& session) { writeFile(sessionFile, *encodeJSON(session)); }
    /// The process comes up this late after the end of a plan of one minute.
    void launchLate(double seconds) {
        leaveSession({work}, 60 + seconds);
        launch();
    }
};

TEST_F(SessionResumeTest, aSessionIsTakenUpInWork) {
    const ActiveSession left = leaveSession({work, shortRest}, 10);
    relaunch();
    ASSERT_TRUE(controller().isActive());
    EXPECT_EQ(session().id, left.id);
    EXPECT_EQ((*controller().status())->remainingInSegment, 50);
    EXPECT_EQ(controller().lastSegmentIndex(), 0);
    EXPECT_TRUE(shows<Overlay::None>(overlay()));
    // Nothing is played, nothing shown, no front given and no shortcut run.
    EXPECT_THAT(eventNames(),
                ElementsAre("watchdog", "sessionChange", "log", "hide", "log", "save", "tick", "log", "sessionBegan"));
    EXPECT_THAT(log(), ElementsAre("segment 0 work", "hid org.example.game", "session resumed"));
}

TEST_F(SessionResumeTest, aSessionIsTakenUpInALockedBreakWithItsScreenAtOnceAndNoSound) {
    leaveSession({work, lockedRest, work}, 70);
    relaunch();
    EXPECT_TRUE(shows<Overlay::LockedBreak>(overlay()));
    EXPECT_THAT(eventNames(), ElementsAre("watchdog", "sessionChange", "log", "overlay", "hide", "log", "save", "tick",
                                          "log", "sessionBegan"));
    EXPECT_EQ(log().front(), "segment 1 lockedBreak");
}

TEST_F(SessionResumeTest, aSessionIsTakenUpInAnOpenBreakWithNothingEnforced) {
    for (const Segment rest : {shortRest, longRest}) {
        crash();
        forgetEvents();
        leaveSession({work, rest, work}, 70);
        relaunch();
        push();
        advance(1);
        EXPECT_TRUE(shows<Overlay::None>(overlay()));
        // The callback hears of the overlay although it was down before.
        EXPECT_THAT(eventNames(),
                    ElementsAre("watchdog", "sessionChange", "log", "overlay", "tick", "log", "sessionBegan", "tick"));
        EXPECT_THAT(events("overlay"), ElementsAre(R"("state":"none")"));
        EXPECT_FALSE(isHidden(game));
        EXPECT_EQ(controller().tickCount(), 0);
    }
}

TEST_F(SessionResumeTest, aResumeTellsWhetherASessionRuns) {
    launch();
    EXPECT_FALSE(controller().resumeIfNeeded());
    leaveSession({work}, 60);
    EXPECT_FALSE(controller().resumeIfNeeded());
    leaveSession({work}, 59);
    EXPECT_TRUE(controller().resumeIfNeeded());
}

TEST_F(SessionResumeTest, aResumeIsTheSameHoweverTheProcessWasStarted) {
    leaveSession({work}, 10);
    launch(LaunchedBy::user);
    EXPECT_TRUE(controller().isActive());
    crash();
    launch(LaunchedBy::watchdog);
    EXPECT_TRUE(controller().isActive());
}

TEST_F(SessionResumeTest, aResumeRunsNoShortcut) {
    launch();
    AppSettings settings;
    settings.useFocusShortcuts = true;
    data().setSettings(settings);
    crash();
    leaveSession({work}, 10);
    relaunch();
    EXPECT_TRUE(controller().isActive());
    EXPECT_THAT(events("shortcut"), IsEmpty());
}

TEST_F(SessionResumeTest, aResumeDoesNotRememberTheFront) {
    leaveSession({work}, 10);
    relaunch();
    EXPECT_EQ(front(), editor);
    EXPECT_EQ(controller().lastAllowedBundleID(), std::nullopt);
    EXPECT_THAT(events("activate"), IsEmpty());
}

TEST_F(SessionResumeTest, noAttemptIsCountedInTheFirstThreeSeconds) {
    leaveSession({work}, 10);
    relaunch();
    EXPECT_EQ(controller().suppressAttemptsUntil(), startOfScene + 3.0);
    advance(2.5);
    push();
    EXPECT_EQ(session().attempts, 0);
    advance(0.5);
    push();
    EXPECT_EQ(session().attempts, 1);
}

TEST_F(SessionResumeTest, theWatchdogIsInstalledAnewWithItsArguments) {
    launch();
    controller().watchdogArguments = {"--more"};
    leaveSession({work}, 10);
    forgetEvents();
    EXPECT_TRUE(controller().resumeIfNeeded());
    EXPECT_THAT(events("watchdog"), ElementsAre(R"("action":"install","arguments":["--watchdog","--more"])"));
}

TEST_F(SessionResumeTest, theCountersAndWhatWasHiddenComeBack) {
    ActiveSession left = leaveSession({work}, 10);
    left.attempts = 7;
    left.returns = 5;
    left.hiddenBundleIDs = {"org.example.other"};
    writeSession(left);
    relaunch();
    EXPECT_EQ(session().attempts, 7);
    EXPECT_EQ(session().returns, 5);
    EXPECT_THAT(session().hiddenBundleIDs, ElementsAre("org.example.other", "org.example.game"));
    advance(50);
    EXPECT_EQ(record().attempts, 7);
    EXPECT_EQ(record().returns, 5);
}

TEST_F(SessionResumeTest, anUnchangedSessionIsNotSavedAgain) {
    ActiveSession left = leaveSession({work}, 10);
    left.hiddenBundleIDs = {"org.example.game"};
    writeSession(left);
    relaunch();
    advance(10);
    EXPECT_TRUE(isHidden(game));
    EXPECT_EQ(saves(sessionFile), 0U);
}

TEST_F(SessionResumeTest, aCrashCostsNothingButTime) {
    startSession(profile(SessionMode::pomodoro));
    push();
    const ActiveSession before = session();
    crash();
    advance(600);
    relaunch();
    EXPECT_EQ(session(), before);
    EXPECT_TRUE(shows<Overlay::None>(overlay()));
    EXPECT_EQ((*controller().status())->remainingInSegment, 25 * 60 - 603);
    EXPECT_EQ(front(), editor);
}

TEST_F(SessionResumeTest, whatBelongedToTheProcessStartsEmpty) {
    addApplication(chrome, "com.google.Chrome", "Chrome");
    desktop().browsers.behave(BrowserKind::chrome, {SimulatedBrowsers::Denied{}});
    startSession(profile(SessionMode::deep, {"com.google.Chrome"}));
    start("org.example.newcomer", QuitManners::never);
    EXPECT_EQ(controller().deniedBrowsers().size(), 1U);
    EXPECT_EQ(controller().terminateRetries().size(), 1U);
    crash();
    relaunch();
    EXPECT_THAT(controller().deniedBrowsers(), IsEmpty());
    EXPECT_THAT(controller().terminateRetries(), IsEmpty());
    EXPECT_EQ(controller().tickCount(), 1);
}

TEST_F(SessionResumeTest, aSessionResumedInWorkGoesOnThroughItsPlan) {
    leaveSession({work, shortRest, work}, 59);
    relaunch();
    forgetEvents();
    advance(61);
    EXPECT_THAT(log(), ElementsAre("segment 1 shortBreak", "segment 2 work"));
    EXPECT_EQ(events("sound").size(), 2U);
    EXPECT_TRUE(shows<Overlay::BackToWork>(overlay()));
}

TEST_F(SessionResumeTest, aStartInTheFutureCountsAsTheStart) {
    leaveSession({work, shortRest}, -3600);
    relaunch();
    EXPECT_EQ((*controller().status())->remainingTotal, 120);
}

TEST_F(SessionResumeTest, theCallbackGetsTheSession) {
    launch();
    const ActiveSession left = leaveSession({work}, 10);
    std::optional<ActiveSession> begun;
    controller().onSessionBegan = [&begun](const ActiveSession& session) { begun = session; };
    controller().resumeIfNeeded();
    EXPECT_EQ(begun, left);
}

TEST_F(SessionResumeTest, aPlanThatEndedLessThanFiveMinutesAgoHasItsSummary) {
    for (const double late : {0.0, 1.0, 299.0, 299.9375}) {
        crash();
        forgetEvents();
        launchLate(late);
        EXPECT_FALSE(controller().isActive()) << late;
        EXPECT_EQ(record().outcome, SessionOutcome::completed);
        EXPECT_EQ(record().endedAt, startOfScene - late);
        EXPECT_EQ(overlay(), OverlayState{Overlay::Finished{record()}}) << late;
        EXPECT_THAT(events("sound"), ElementsAre(R"("name":"Glass","volume":0.4)"));
    }
}

TEST_F(SessionResumeTest, aPlanThatEndedFiveMinutesAgoOrMoreIsRecordedQuietly) {
    for (const double late : {300.0, 301.0, 86400.0}) {
        crash();
        forgetEvents();
        launchLate(late);
        EXPECT_FALSE(controller().isActive()) << late;
        EXPECT_EQ(record().outcome, SessionOutcome::completed);
        EXPECT_EQ(record().endedAt, startOfScene - late);
        EXPECT_TRUE(shows<Overlay::None>(overlay())) << late;
        EXPECT_THAT(events("sound"), IsEmpty());
    }
}

TEST_F(SessionResumeTest, aPlanThatRanOutEndsWithoutHavingComeUp) {
    launchLate(10);
    EXPECT_THAT(eventNames(), ElementsAre("sessionEnded", "save", "remove", "watchdog", "overlay", "sound", "log",
                                          "sessionChange", "tick"));
    EXPECT_THAT(log(), ElementsAre("session ended outcome=completed attempts=0 returns=0"));
    EXPECT_EQ(desktop().time.nextDeadline(), std::nullopt);
}

TEST_F(SessionResumeTest, theEndWhileAwayShowsWhatWasHiddenAndRunsTheShortcut) {
    launch();
    AppSettings settings;
    settings.useFocusShortcuts = true;
    data().setSettings(settings);
    crash();
    ActiveSession left = leaveSession({work}, 400);
    left.hiddenBundleIDs = {"org.example.game"};
    writeSession(left);
    forgetEvents();
    launch();
    EXPECT_THAT(events("unhide"), ElementsAre(R"("pid":11)"));
    EXPECT_THAT(events("shortcut"), ElementsAre(R"("name":"Velmorin Off")"));
    EXPECT_THAT(events("watchdog"), ElementsAre(R"("action":"remove","arguments":[])"));
    EXPECT_EQ(file(sessionFile), std::nullopt);
}

TEST_F(SessionResumeTest, aPlanWithoutAnyTimeHasRunOut) {
    leaveSession({{SegmentKind::work, 0}}, 0);
    launch();
    EXPECT_FALSE(controller().isActive());
    EXPECT_EQ(record().endedAt, startOfScene);
    EXPECT_TRUE(shows<Overlay::Finished>(overlay()));
}

TEST_F(SessionResumeTest, withoutASessionFileAStaleWatchdogGoes) {
    desktop().serviceManager.job = std::vector<std::string>{"--watchdog"};
    launch();
    EXPECT_EQ(desktop().serviceManager.job, std::nullopt);
    EXPECT_FALSE(controller().isActive());
    EXPECT_THAT(eventNames(), ElementsAre("remove", "watchdog"));
}

TEST_F(SessionResumeTest, unknownKeysAndAnotherOrderDoNoHarm) {
    const ActiveSession left = leaveSession({work}, 10);
    writeFile(sessionFile, R"( {"later":[1,{"a":null}],"hiddenBundleIDs":[],)" + file(sessionFile)->substr(1));
    std::string text = *file(sessionFile);
    const auto last = text.rfind(R"(,"hiddenBundleIDs":[])");
    ASSERT_NE(last, std::string::npos);
    writeFile(sessionFile, text.erase(last, std::string_view{R"(,"hiddenBundleIDs":[])"}.size()));
    relaunch();
    ASSERT_TRUE(controller().isActive());
    EXPECT_EQ(session().id, left.id);
}

TEST_F(SessionResumeTest, aPlanThatRunsOutWhileTheWatchdogIsInstalledIsNoResumedSession) {
    leaveSession({Segment{SegmentKind::work, 60}}, 59);
    desktop().serviceManager.whileInstalling = [this] { desktop().time.setClock(2); };
    launch();
    EXPECT_FALSE(controller().isActive());
    EXPECT_TRUE(shows<Overlay::Finished>(overlay()));
    EXPECT_EQ(data().history()->size(), 1U);
    EXPECT_EQ(log().back(), "session ended outcome=completed attempts=0 returns=0");
    EXPECT_TRUE(events("sessionBegan").empty());
}

} // namespace
} // namespace velmorin
