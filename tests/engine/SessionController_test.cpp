// How a session comes up.

#include "tests/support/EngineTest.h"
#include "tests/support/Plans.h"

namespace velmorin {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class SessionControllerTest : public EngineTest {
protected:
    SessionControllerTest() { setup.tellsTicks = true; }

    void launchWithShortcuts(std::string on, std::string off) {
        addEditorAndGame();
        launch();
        AppSettings settings;
        settings.useFocusShortcuts = true;
        settings.focusOnShortcut = std::move(on);
        settings.focusOffShortcut = std::move(off);
        data().setSettings(settings);
        forgetEvents();
    }
};

TEST_F(SessionControllerTest, aNewSessionStartsAtItsFirstSegmentWithoutASound) {
    addEditorAndGame();
    launch();
    controller().start(profile(SessionMode::pomodoro), "write");
    EXPECT_EQ(controller().lastSegmentIndex(), 0);
    ASSERT_TRUE(*controller().status());
    EXPECT_EQ((*controller().status())->segmentIndex, 0);
    EXPECT_THAT(events("sound"), IsEmpty());
    EXPECT_THAT(events("overlay"), IsEmpty());
}

TEST_F(SessionControllerTest, aStartTakesItsStepsInOrder) {
    launchWithShortcuts("On", "Off");
    controller().start(profile(SessionMode::pomodoro), "write");
    // Saved before the watchdog comes, the game hidden by the first tick and remembered, the front given back.
    EXPECT_THAT(eventNames(), ElementsAre("save", "watchdog", "shortcut", "sessionChange", "hide", "log", "save",
                                          "tick", "activate", "log", "sessionBegan"));
    EXPECT_THAT(log(), ElementsAre("hid org.example.game", "session started mode=pomodoro segments=8"));
    EXPECT_EQ(saves(sessionFile), 2U);
}

TEST_F(SessionControllerTest, aStartWithNothingToHideSavesOnce) {
    addApplication(editor, "org.example.editor", "Editor");
    launch();
    controller().start(profile(SessionMode::pomodoro), "write");
    EXPECT_EQ(saves(sessionFile), 1U);
    EXPECT_EQ(stored<ActiveSession>(sessionFile), session());
}

TEST_F(SessionControllerTest, eachStepOfAStartFindsWhatTheOnesBeforeItHaveDone) {
    addEditorAndGame();
    launch();
    std::vector<std::string> seen;
    onEvent = [&](const SimulatedEvent& event) {
        seen.push_back(event.name + (controller().isActive() ? " active" : "") + (file(sessionFile) ? " saved" : "") +
                       (controller().lastAllowedBundleID() ? " remembered" : "") +
                       (desktop().serviceManager.job ? " guarded" : "") +
                       (controller().lastSegmentIndex() == 0 ? " first" : "") +
                       (controller().suppressAttemptsUntil() == now() + 3.0 ? " suppressed" : "") +
                       (*controller().status() ? " placed" : ""));
    };
    controller().start(profile(SessionMode::deep), "");
    ASSERT_EQ(seen.size(), 10U);
    EXPECT_EQ(seen[0], "save active saved");
    EXPECT_EQ(seen[1], "watchdog active saved remembered guarded");
    EXPECT_EQ(seen[2], "sessionChange active saved remembered guarded first suppressed");
    EXPECT_EQ(seen[3], "hide active saved remembered guarded first suppressed placed");
    EXPECT_EQ(seen[9], "sessionBegan active saved remembered guarded first suppressed placed");
}

TEST_F(SessionControllerTest, theSessionOnDiskAtTheStartIsTheWholeSession) {
    addEditorAndGame();
    launch();
    std::optional<ActiveSession> atWatchdog;
    onEvent = [&](const SimulatedEvent& event) {
        if (event.name == "watchdog") atWatchdog = stored<ActiveSession>(sessionFile);
    };
    controller().start(profile(SessionMode::deep), "write");
    ActiveSession started = session();
    EXPECT_THAT(started.hiddenBundleIDs, ElementsAre("org.example.game"));
    started.hiddenBundleIDs.clear(); // hidden only by the first tick
    EXPECT_EQ(atWatchdog, started);
}

TEST_F(SessionControllerTest, aPomodoroSessionIsACopyOfItsProfile) {
    addEditorAndGame();
    launch();
    controller().start(profile(SessionMode::pomodoro, {"org.example.b", "org.example.a"}, {"b.example", "a.example"}),
                       "write");
    EXPECT_EQ(session().profileName, "Work");
    EXPECT_EQ(session().mode, SessionMode::pomodoro);
    EXPECT_EQ(session().startedAt, startOfScene);
    EXPECT_EQ(text(session().segments), "W25 S5 W25 S5 W25 S5 W25 L15");
    EXPECT_THAT(session().allowedBundleIDs, ElementsAre("org.example.editor", "org.example.b", "org.example.a"));
    EXPECT_THAT(session().allowedDomains, ElementsAre("b.example", "a.example"));
    EXPECT_EQ(session().attempts, 0);
    EXPECT_EQ(session().returns, 0);
}

TEST_F(SessionControllerTest, aDeepSessionHasTheDeepPlan) {
    addEditorAndGame();
    launch();
    controller().start(profile(SessionMode::deep), "write");
    EXPECT_EQ(session().mode, SessionMode::deep);
    EXPECT_EQ(text(session().segments), "W60 B5 W60 B5 W50");
    EXPECT_EQ(log().back(), "session started mode=deep segments=5");
}

TEST_F(SessionControllerTest, theIntentLosesItsWhiteSpaceAndLineEndsAtBothEnds) {
    addEditorAndGame();
    launch();
    controller().start(profile(SessionMode::deep), " \t\r\n write  a page \n\u00A0\u2003");
    EXPECT_EQ(session().intent, "write  a page");
}

TEST_F(SessionControllerTest, anIntentOfOnlyBlanksIsEmptyAndTheSessionStarts) {
    addEditorAndGame();
    launch();
    controller().start(profile(SessionMode::deep), "   ");
    ASSERT_TRUE(controller().isActive());
    EXPECT_EQ(session().intent, "");
}

TEST_F(SessionControllerTest, aStartWhileASessionRunsDoesNothingAtAll) {
    addEditorAndGame();
    startSession(profile(SessionMode::pomodoro));
    const ActiveSession running = session();
    const auto before = files.contents;
    const Date suppressed = controller().suppressAttemptsUntil();
    forgetEvents();
    controller().start(profile(SessionMode::deep), "something else");
    settle();
    EXPECT_EQ(session(), running);
    EXPECT_EQ(files.contents, before);
    EXPECT_EQ(controller().suppressAttemptsUntil(), suppressed);
    EXPECT_THAT(eventNames(), IsEmpty());
}

TEST_F(SessionControllerTest, twoSessionsHaveTwoIdentifiers) {
    setup.exitWaitOverride = 0;
    addEditorAndGame();
    startSession(profile(SessionMode::deep));
    const UUID first = session().id;
    controller().beginEmergencyExit();
    controller().confirmEmergencyExit("enough for today");
    startSession(profile(SessionMode::deep));
    EXPECT_NE(session().id, first);
}

TEST_F(SessionControllerTest, theAllowedApplicationInFrontAtTheStartGetsTheFrontBack) {
    addEditorAndGame();
    addApplication(chrome, "com.google.Chrome", "Chrome");
    desktop().workspace.startInFront(chrome);
    launch();
    controller().start(profile(SessionMode::pomodoro, {"com.google.Chrome"}), "write");
    EXPECT_EQ(controller().lastAllowedBundleID(), "com.google.Chrome");
    EXPECT_THAT(events("activate"), ElementsAre(R"("pid":12)"));
}

TEST_F(SessionControllerTest, theWatchdogIsGivenTheExtraArguments) {
    setup.watchdogArguments = {"--home", "/a b"};
    addEditorAndGame();
    launch();
    forgetEvents(); // a launch with nothing to resume removes it
    controller().start(profile(SessionMode::pomodoro), "write");
    EXPECT_THAT(events("watchdog"), ElementsAre(R"("action":"install","arguments":["--watchdog","--home","\/a b"])"));
}

TEST_F(SessionControllerTest, theShortcutOfTheStartIsRunWhereTheSettingsSaySo) {
    launchWithShortcuts("Quiet", "Loud");
    controller().start(profile(SessionMode::pomodoro), "write");
    EXPECT_THAT(events("shortcut"), ElementsAre(R"("name":"Quiet")"));
}

TEST_F(SessionControllerTest, anEmptyNameOfAShortcutIsPassedOn) {
    setup.exitWaitOverride = 0;
    launchWithShortcuts("", "");
    controller().start(profile(SessionMode::pomodoro), "write");
    controller().beginEmergencyExit();
    controller().confirmEmergencyExit("enough for today");
    EXPECT_THAT(events("shortcut"), ElementsAre(R"("name":"")", R"("name":"")"));
}

TEST_F(SessionControllerTest, noShortcutIsRunWithoutTheSetting) {
    setup.exitWaitOverride = 0;
    addEditorAndGame();
    startSession(profile(SessionMode::pomodoro));
    controller().beginEmergencyExit();
    controller().confirmEmergencyExit("enough for today");
    EXPECT_FALSE(controller().isActive());
    EXPECT_THAT(events("shortcut"), IsEmpty());
}

TEST_F(SessionControllerTest, theSettingOfTheMomentDecidesAboutEachShortcut) {
    setup.exitWaitOverride = 0;
    launchWithShortcuts("Quiet", "Loud");
    controller().start(profile(SessionMode::pomodoro), "write");
    AppSettings settings = *data().settings();
    settings.focusOffShortcut = "Changed";
    data().setSettings(settings);
    controller().beginEmergencyExit();
    controller().confirmEmergencyExit("enough for today");
    EXPECT_THAT(events("shortcut"), ElementsAre(R"("name":"Quiet")", R"("name":"Changed")"));
}

TEST_F(SessionControllerTest, noAttemptIsCountedInTheFirstThreeSeconds) {
    addEditorAndGame();
    launch();
    controller().start(profile(SessionMode::pomodoro), "write");
    EXPECT_EQ(controller().suppressAttemptsUntil(), startOfScene + 3.0);
    settle();
    advance(2.875);
    push();
    EXPECT_EQ(session().attempts, 0);
    EXPECT_TRUE(shows<Overlay::None>(overlay()));
    advance(0.125);
    push();
    EXPECT_EQ(session().attempts, 1);
}

TEST_F(SessionControllerTest, theCallbackOfTheStartGetsTheSessionAsItWasBegun) {
    addEditorAndGame();
    launch();
    std::optional<ActiveSession> begun;
    controller().onSessionBegan = [&begun](const ActiveSession& session) { begun = session; };
    controller().start(profile(SessionMode::pomodoro), "write");
    ASSERT_TRUE(begun);
    EXPECT_EQ(begun->id, session().id);
    // The first tick has hidden the game since.
    EXPECT_THAT(begun->hiddenBundleIDs, IsEmpty());
    EXPECT_THAT(session().hiddenBundleIDs, ElementsAre("org.example.game"));
}

TEST_F(SessionControllerTest, nothingStartsByItself) {
    addEditorAndGame();
    launch();
    const auto before = files.contents;
    forgetEvents();
    advance(3600);
    push();
    EXPECT_FALSE(controller().isActive());
    EXPECT_FALSE(*controller().status());
    EXPECT_TRUE(shows<Overlay::None>(overlay()));
    EXPECT_EQ(controller().suppressAttemptsUntil(), Date::distantPast());
    EXPECT_EQ(controller().tickCount(), 0);
    EXPECT_EQ(controller().lastSegmentIndex(), std::nullopt);
    EXPECT_EQ(files.contents, before);
    EXPECT_THAT(eventNames(), IsEmpty());
}

} // namespace
} // namespace velmorin
