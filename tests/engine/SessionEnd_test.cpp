// How a session goes down, in each of the ways it can, and what a disk that fails changes about it.

#include "tests/support/EngineTest.h"

namespace velmorin {
namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr auto historyFile = AppData::historyFile;

class SessionEndTest : public EngineTest {
protected:
    SessionEndTest() {
        setup.tellsTicks = true;
        setup.exitWaitOverride = 0;
        addEditorAndGame();
    }

    void runWithShortcuts() {
        launch();
        AppSettings settings;
        settings.useFocusShortcuts = true;
        data().setSettings(settings);
        startSession(profile(SessionMode::pomodoro));
        forgetEvents();
    }
    void endEarlyWithBlanks() {
        controller().beginEmergencyExit();
        controller().confirmEmergencyExit(std::string{"  "} + reason + " \n");
    }
    /// A session of one minute that ends by itself.
    void runOut() {
        leaveSession({{SegmentKind::work, 60}}, 0);
        launch();
        forgetEvents();
        advance(60);
    }
};

TEST_F(SessionEndTest, aPlanThatHasRunOutEndsTheSessionStepByStep) {
    runWithShortcuts();
    advance(130 * 60 - 3.5);
    forgetEvents();
    const auto sessionWatch = controller().session().watch([this] { desktop().journal.tell("sessionGone"); });
    const auto statusWatch = controller().status().watch([this] { desktop().journal.tell("status"); });
    advance(0.5);
    // The first "status" is the tick that finds the plan at its end.
    EXPECT_THAT(eventNames(), ElementsAre("status", "sessionEnded", "save", "unhide", "remove", "watchdog", "shortcut",
                                          "sessionGone", "status", "overlay", "sound", "log", "sessionChange", "tick"));
    EXPECT_EQ(saves(historyFile), 1U);
    EXPECT_THAT(events("remove"), ElementsAre(R"("file":"active-session.json")"));
    EXPECT_THAT(events("watchdog"), ElementsAre(R"("action":"remove","arguments":[])"));
    EXPECT_THAT(events("shortcut"), ElementsAre(R"("name":"Velmorin Off")"));
    EXPECT_THAT(events("sound"), ElementsAre(R"("name":"Glass","volume":0.4)"));
    EXPECT_THAT(log(), ElementsAre("session ended outcome=completed attempts=0 returns=0"));
}

TEST_F(SessionEndTest, anEarlyEndTakesTheSameStepsWithoutASound) {
    runWithShortcuts();
    controller().beginEmergencyExit();
    forgetEvents();
    controller().confirmEmergencyExit(reason);
    EXPECT_THAT(eventNames(), ElementsAre("sessionEnded", "save", "unhide", "remove", "watchdog", "shortcut", "overlay",
                                          "log", "sessionChange", "tick"));
    EXPECT_THAT(log(), ElementsAre("session ended outcome=aborted attempts=0 returns=0"));
}

TEST_F(SessionEndTest, anExitOnceAllWorkIsDoneTakesTheStepsOfACompletedSession) {
    runWithShortcuts();
    advance(116 * 60); // in the long break at the end
    forgetEvents();
    controller().beginEmergencyExit();
    EXPECT_THAT(eventNames(), ElementsAre("sessionEnded", "save", "unhide", "remove", "watchdog", "shortcut", "overlay",
                                          "sound", "log", "sessionChange", "tick"));
}

TEST_F(SessionEndTest, eachStepOfAnEndFindsWhatTheOnesBeforeItHaveDone) {
    runWithShortcuts();
    controller().beginEmergencyExit();
    std::vector<std::string> seen;
    onEvent = [&](const SimulatedEvent& event) {
        seen.push_back(event.name + (controller().isActive() ? " active" : "") + (file(sessionFile) ? " saved" : "") +
                       (desktop().serviceManager.job ? " guarded" : "") + (file(historyFile) ? " recorded" : "") +
                       (*controller().status() ? " placed" : "") + " " + std::string{name(overlay())});
    };
    controller().confirmEmergencyExit(reason);
    EXPECT_THAT(seen, ElementsAre("sessionEnded active saved guarded placed emergencyExit",
                                  "save active saved guarded recorded placed emergencyExit",
                                  "unhide active saved guarded recorded placed emergencyExit",
                                  "remove active saved guarded recorded placed emergencyExit",
                                  "watchdog active recorded placed emergencyExit",
                                  "shortcut active recorded placed emergencyExit", "overlay recorded none",
                                  "log recorded none", "sessionChange recorded none", "tick recorded none"));
}

TEST_F(SessionEndTest, theCallbackOfTheEndGetsTheFinalCounters) {
    startSession(profile(SessionMode::pomodoro));
    push();
    controller().returnToWork();
    std::optional<ActiveSession> ended;
    controller().onSessionEnded = [&ended](const ActiveSession& session) { ended = session; };
    endEarlyWithBlanks();
    ASSERT_TRUE(ended);
    EXPECT_EQ(ended->attempts, 1);
    EXPECT_EQ(ended->returns, 1);
    EXPECT_THAT(ended->hiddenBundleIDs, ElementsAre("org.example.game"));
}

TEST_F(SessionEndTest, theCountersGoIntoTheRecordAndTheLog) {
    startSession(profile(SessionMode::pomodoro));
    push();
    controller().returnToWork();
    advance(3);
    push();
    endEarlyWithBlanks();
    EXPECT_EQ(record().attempts, 2);
    EXPECT_EQ(record().returns, 1);
    EXPECT_EQ(log().back(), "session ended outcome=aborted attempts=2 returns=1");
}

TEST_F(SessionEndTest, aPlanThatRunsOutIsACompletedRecordThatEndsAsPlanned) {
    runOut();
    EXPECT_EQ(record().outcome, SessionOutcome::completed);
    EXPECT_EQ(record().exitReason, std::nullopt);
    EXPECT_EQ(record().endedAt, startOfScene + 60.0);
    EXPECT_EQ(record().focusedSeconds, 60);
    EXPECT_EQ(overlay(), OverlayState{Overlay::Finished{record()}});
}

TEST_F(SessionEndTest, aTickThatComesLateRecordsThePlannedEnd) {
    leaveSession({{SegmentKind::work, 60}}, 0);
    launch();
    desktop().time.sleep(7200);
    EXPECT_EQ(record().endedAt, startOfScene + 60.0);
    EXPECT_EQ(record().outcome, SessionOutcome::completed);
    // Only a start that is late leaves the summary out.
    EXPECT_TRUE(shows<Overlay::Finished>(overlay()));
}

TEST_F(SessionEndTest, aSessionEndedInItsLastBreakRecordsThePresentMoment) {
    startSession(profile(SessionMode::pomodoro));
    advance(120 * 60 - 3);
    controller().beginEmergencyExit();
    EXPECT_EQ(record().outcome, SessionOutcome::completed);
    EXPECT_EQ(record().endedAt, startOfScene + 120 * 60.0);
}

TEST_F(SessionEndTest, anAbortedSessionEndsAtThePresentMomentWithTheTrimmedReason) {
    startSession(profile(SessionMode::deep));
    advance(100);
    endEarlyWithBlanks();
    EXPECT_EQ(record().outcome, SessionOutcome::aborted);
    EXPECT_EQ(record().endedAt, startOfScene + 103.0);
    EXPECT_EQ(record().exitReason, reason);
}

TEST_F(SessionEndTest, theRecordKeepsTheIdentifierOfTheSession) {
    startSession(profile(SessionMode::deep));
    const UUID id = session().id;
    endEarlyWithBlanks();
    EXPECT_EQ(record().id, id);
    EXPECT_EQ(record().intent, "write");
}

TEST_F(SessionEndTest, theNewestRecordComesFirst) {
    startSession(profile(SessionMode::deep));
    endEarlyWithBlanks();
    startSession(profile(SessionMode::pomodoro));
    endEarlyWithBlanks();
    ASSERT_EQ(data().history()->size(), 2U);
    EXPECT_EQ((*data().history())[0].mode, SessionMode::pomodoro);
    EXPECT_EQ((*data().history())[1].mode, SessionMode::deep);
    EXPECT_EQ(stored<std::vector<SessionRecord>>(historyFile), *data().history());
}

TEST_F(SessionEndTest, whatWasHiddenIsShownAgainInItsOrder) {
    addApplication(20, "org.example.player", "Player");
    addApplication(21, "org.example.game", "Game twice");
    ActiveSession left = leaveSession({{SegmentKind::work, 60}}, 0);
    left.hiddenBundleIDs = {"org.example.player", "org.example.gone", "org.example.game"};
    writeFile(sessionFile, *encodeJSON(left));
    launch();
    ASSERT_TRUE(isHidden(game));
    endEarlyWithBlanks();
    EXPECT_THAT(events("unhide"), ElementsAre(R"("pid":20)", R"("pid":11)", R"("pid":21)"));
    EXPECT_FALSE(isHidden(game));
}

TEST_F(SessionEndTest, whatHasQuitSinceIsNotShownAgain) {
    startSession(profile(SessionMode::deep));
    desktop().workspace.quit(game);
    endEarlyWithBlanks();
    EXPECT_THAT(events("unhide"), IsEmpty());
    EXPECT_FALSE(controller().isActive());
}

TEST_F(SessionEndTest, theEndForgetsWhatBelongedToTheSession) {
    addApplication(chrome, "com.google.Chrome", "Chrome");
    desktop().browsers.behave(BrowserKind::chrome, {SimulatedBrowsers::Denied{}});
    startSession(profile(SessionMode::deep, {"com.google.Chrome"}));
    start("org.example.newcomer", QuitManners::never);
    EXPECT_THAT(controller().deniedBrowsers(), Not(IsEmpty()));
    EXPECT_THAT(controller().terminateRetries(), Not(IsEmpty()));
    endEarlyWithBlanks();
    EXPECT_FALSE(*controller().session());
    EXPECT_FALSE(*controller().status());
    EXPECT_EQ(controller().lastSegmentIndex(), std::nullopt);
    EXPECT_THAT(controller().deniedBrowsers(), IsEmpty());
    EXPECT_THAT(controller().terminateRetries(), IsEmpty());
}

TEST_F(SessionEndTest, theEndKeepsTheSuppressionTheLastAllowedApplicationAndTheTickCount) {
    startSession(profile(SessionMode::deep));
    push();
    controller().returnToWork();
    const Date suppressed = controller().suppressAttemptsUntil();
    EXPECT_EQ(suppressed, startOfScene + 5.0);
    endEarlyWithBlanks();
    EXPECT_EQ(controller().suppressAttemptsUntil(), suppressed);
    EXPECT_EQ(controller().lastAllowedBundleID(), "org.example.editor");
    EXPECT_EQ(controller().tickCount(), 4);
}

TEST_F(SessionEndTest, nothingTicksOrListensAfterTheEnd) {
    startSession(profile(SessionMode::deep));
    endEarlyWithBlanks();
    EXPECT_EQ(desktop().time.nextDeadline(), std::nullopt);
    const auto before = files.contents;
    forgetEvents();
    push();
    start("org.example.newcomer");
    advance(3600);
    EXPECT_FALSE(isHidden(game));
    EXPECT_THAT(eventNames(), IsEmpty());
    EXPECT_EQ(files.contents, before);
}

TEST_F(SessionEndTest, aNotificationUnderWayAtTheEndIsNotHeard) {
    startSession(profile(SessionMode::deep));
    desktop().workspace.activate(game); // announced once the present work is done
    endEarlyWithBlanks();
    settle();
    EXPECT_EQ(record().attempts, 0);
    EXPECT_FALSE(isHidden(game));
}

TEST_F(SessionEndTest, withoutASessionThereIsNothingToEnd) {
    launch();
    const auto before = files.contents;
    forgetEvents();
    controller().beginEmergencyExit();
    EXPECT_THAT(eventNames(), IsEmpty());
    EXPECT_EQ(files.contents, before);
    EXPECT_THAT(*data().history(), IsEmpty());
}

TEST_F(SessionEndTest, aSessionThatCannotBeSavedRunsOnInMemory) {
    launch();
    desktop().disk.isFull = true;
    startSession(profile(SessionMode::pomodoro));
    EXPECT_TRUE(controller().isActive());
    EXPECT_EQ(file(sessionFile), std::nullopt);
    push();
    EXPECT_EQ(session().attempts, 1);
    EXPECT_TRUE(shows<Overlay::Warning>(overlay()));
    advance(26 * 60);
    EXPECT_EQ((*controller().status())->kind, SegmentKind::shortBreak);
}

TEST_F(SessionEndTest, aCrashLosesASessionThatCouldNotBeSaved) {
    launch();
    desktop().disk.isFull = true;
    startSession(profile(SessionMode::pomodoro));
    crash();
    desktop().disk.isFull = false;
    launch();
    EXPECT_FALSE(controller().isActive());
    EXPECT_EQ(desktop().serviceManager.job, std::nullopt);
}

TEST_F(SessionEndTest, aChangeThatCannotBeSavedLeavesTheLastOneThatCould) {
    startSession(profile(SessionMode::pomodoro));
    desktop().disk.isFull = true;
    push();
    EXPECT_EQ(session().attempts, 1);
    EXPECT_EQ(stored<ActiveSession>(sessionFile)->attempts, 0);
    desktop().disk.isFull = false;
    controller().returnToWork();
    EXPECT_EQ(stored<ActiveSession>(sessionFile), session());
}

TEST_F(SessionEndTest, aSessionEndsAlsoWhereItsRecordCannotBeSaved) {
    runWithShortcuts();
    desktop().disk.isFull = true;
    endEarlyWithBlanks();
    EXPECT_FALSE(controller().isActive());
    EXPECT_EQ(file(historyFile), std::nullopt);
    EXPECT_EQ(file(sessionFile), std::nullopt);
    EXPECT_EQ(data().history()->size(), 1U);
    EXPECT_THAT(eventNames(), AllOf(Contains("saveFailed"), Contains("unhide"), Contains("watchdog"),
                                    Contains("shortcut"), Contains("sessionChange")));
    EXPECT_THAT(events("log"),
                Contains(HasSubstr(R"("session ended outcome=aborted attempts=0 returns=0","lost":true)")));
}

TEST_F(SessionEndTest, theCallbacksOfTheFourEndsComeInOneOrder) {
    const std::vector<std::string> order{"sessionEnded", "overlay", "sessionChange", "tick"};
    const auto callbacks = [this] {
        auto names = eventNames();
        std::erase_if(names, [](const std::string& name) {
            return name != "sessionEnded" && name != "overlay" && name != "sessionChange" && name != "tick";
        });
        forgetEvents();
        return names;
    };
    leaveSession({{SegmentKind::work, 60}}, 61);
    launch();
    EXPECT_EQ(callbacks(), order) << "while the program was away";
    leaveSession({{SegmentKind::work, 60}}, 59.5);
    EXPECT_TRUE(controller().resumeIfNeeded());
    forgetEvents();
    advance(1);
    EXPECT_EQ(callbacks(), order) << "by the plan";
    leaveSession({{SegmentKind::work, 60}, {SegmentKind::longBreak, 60}}, 61);
    EXPECT_TRUE(controller().resumeIfNeeded());
    forgetEvents();
    controller().beginEmergencyExit();
    EXPECT_EQ(callbacks(), order) << "with all work done";
    startSession(profile(SessionMode::deep));
    controller().beginEmergencyExit();
    forgetEvents();
    controller().confirmEmergencyExit(reason);
    EXPECT_EQ(callbacks(), order) << "early";
}

} // namespace
} // namespace velmorin
