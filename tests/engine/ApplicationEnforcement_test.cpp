#include "tests/engine/EnforcementTest.h"

namespace velmorin {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ApplicationEnforcementTest : public EnforcementTest {
protected:
    void addPlain(std::int32_t pid, std::optional<std::string> bundleID, std::optional<std::string> name,
                  ActivationPolicy policy = ActivationPolicy::regular) {
        ASSERT_TRUE(desktop().workspace.add({pid, std::move(bundleID), std::move(name), policy}));
    }
    /// Brings the program's own window to the front and lets some ticks pass.
    void expectOwnWindowIsLeftAlone() {
        activate(program().pid());
        forgetEvents();
        advance(5);
        EXPECT_EQ(attempts(), 0);
        EXPECT_EQ(front(), program().pid());
        EXPECT_EQ(times("hide", program().pid()), 0U);
        EXPECT_THAT(eventNames(), IsEmpty());
    }
};

// --- Who is enforced ------------------------------------------------------------------------------------------------

TEST_F(ApplicationEnforcementTest, theAllowedApplicationInFrontAndTheRestHiddenChangesAndWritesNothing) {
    startWithEditorAndGame();
    const ActiveSession before = session();
    advance(10);
    EXPECT_THAT(eventNames(), IsEmpty());
    EXPECT_EQ(session(), before);
    EXPECT_EQ(controller().tickCount(), 14);
}

TEST_F(ApplicationEnforcementTest, theProgramsOwnWindowInFrontIsNeverAnAttemptAndNeverHidden) {
    startWithEditorAndGame();
    expectOwnWindowIsLeftAlone();
}

TEST_F(ApplicationEnforcementTest, aProgramWithoutAnIdentifierIsNotItsOwnOffender) {
    setup.bundleID.reset();
    startWithEditorAndGame();
    expectOwnWindowIsLeftAlone();
}

TEST_F(ApplicationEnforcementTest, theProgramsOwnIdentifierAmongTheBlockedOnesDoesNotTouchItsProcess) {
    setup.onlyBlock = AppPolicy::BundleIDs{*setup.bundleID};
    startWithEditorAndGame();
    expectOwnWindowIsLeftAlone();
}

TEST_F(ApplicationEnforcementTest, theProgramsOwnProcessIsNotHiddenWhereItIsAnOrdinaryApplication) {
    setup.bundleID.reset();
    addEditorAndGame();
    addPlain(70, std::nullopt, "Velmorin");
    SimulatedProgram own{desktop(), setup, LaunchOptions{}, 70};
    own.launch();
    own.controller().start(profile(SessionMode::pomodoro), "write");
    advance(5);
    ASSERT_TRUE(isHidden(game));
    EXPECT_FALSE(isHidden(70));
    EXPECT_EQ(times("hide", 70), 0U);
}

TEST_F(ApplicationEnforcementTest, allForbiddenOnesAreHiddenInTheSystemsOrder) {
    addEditorAndGame();
    addApplication(mail, mailID, "Mail");
    addApplication(20, "org.example.chat", "Chat");
    startSession(profile(SessionMode::pomodoro));
    EXPECT_THAT(events("hide"), ElementsAre("\"pid\":11", "\"pid\":15", "\"pid\":20"));
    EXPECT_FALSE(isHidden(editor));
}

TEST_F(ApplicationEnforcementTest, applicationsWithoutAPlaceInTheTaskBarAreNotHidden) {
    addPlain(20, "org.example.menu", "Menu", ActivationPolicy::accessory);
    addPlain(21, "org.example.agent", "Agent", ActivationPolicy::prohibited);
    startWithEditorAndGame();
    advance(3);
    EXPECT_FALSE(isHidden(20));
    EXPECT_FALSE(isHidden(21));
}

TEST_F(ApplicationEnforcementTest, anAccessoryInFrontIsAnAttemptAndStaysOnScreen) {
    addPlain(20, "org.example.menu", "Menu", ActivationPolicy::accessory);
    startWithEditorAndGame();
    activate(20);
    ASSERT_TRUE(warning());
    EXPECT_EQ(warning()->target, "Menu");
    EXPECT_FALSE(isHidden(20));
    EXPECT_THAT(events("terminate"), IsEmpty());
}

TEST_F(ApplicationEnforcementTest, accessoriesThatStartAreNeitherCountedNorAskedToQuit) {
    startWithEditorAndGame();
    desktop().workspace.launch({20, "org.example.menu", "Menu", ActivationPolicy::accessory}, false);
    desktop().workspace.launch({21, "org.example.agent", "Agent", ActivationPolicy::prohibited}, false);
    advance(3);
    EXPECT_EQ(attempts(), 0);
    EXPECT_THAT(eventNames(), IsEmpty());
    EXPECT_THAT(controller().terminateRetries(), IsEmpty());
}

TEST_F(ApplicationEnforcementTest, partsOfTheSystemMayComeToTheFront) {
    addApplication(finder, finderID, "Finder");
    startWithEditorAndGame();
    activate(finder);
    advance(3);
    EXPECT_EQ(front(), finder);
    EXPECT_FALSE(isHidden(finder));
    EXPECT_THAT(eventNames(), IsEmpty());
}

TEST_F(ApplicationEnforcementTest, nobodyInFrontMeansThatNothingIsEnforced) {
    startWithEditorAndGame();
    desktop().workspace.leaveFront();
    desktop().workspace.unhide(game);
    addApplication(mail, mailID, "Mail");
    advance(5);
    EXPECT_THAT(eventNames(), IsEmpty());
    EXPECT_FALSE(isHidden(game));
    activate(editor); // an allowed one; the tick after it makes good for the rest
    EXPECT_THAT(eventNames(), IsEmpty());
    advance(1);
    EXPECT_TRUE(isHidden(game));
    EXPECT_TRUE(isHidden(mail));
    EXPECT_EQ(attempts(), 0);
}

TEST_F(ApplicationEnforcementTest, whereOnlySomeAreBlockedAllOthersPass) {
    setup.onlyBlock = AppPolicy::BundleIDs{gameID, editorID};
    addEditorAndGame();
    addApplication(mail, mailID, "Mail");
    addPlain(20, std::nullopt, "Tool");
    desktop().workspace.startInFront(mail);
    startSession(profile(SessionMode::pomodoro)); // which allows the editor, to no avail
    EXPECT_TRUE(isHidden(game));
    EXPECT_TRUE(isHidden(editor));
    EXPECT_FALSE(isHidden(mail));
    EXPECT_FALSE(isHidden(20));
    EXPECT_EQ(front(), mail);
    activate(20);
    EXPECT_EQ(attempts(), 0);
    push();
    EXPECT_EQ(attempts(), 1);
}

TEST_F(ApplicationEnforcementTest, nothingIsTouchedInAnOpenBreak) {
    startWithEditorAndGame();
    advance(25 * 60 - 3);
    ASSERT_FALSE((*controller().status())->isLocked());
    forgetEvents();
    EXPECT_TRUE(isHidden(game)); // a break shows nothing again
    activate(game);
    const std::int32_t newcomer = start("org.example.new");
    advance(5 * 60 - 1);
    EXPECT_THAT(eventNames(), IsEmpty());
    EXPECT_FALSE(isHidden(game));
    EXPECT_TRUE(isRunning(newcomer));
    advance(1); // work again: both are there like any other application, so that neither is asked to quit
    EXPECT_TRUE(isHidden(game));
    EXPECT_TRUE(isHidden(newcomer));
    advance(10);
    EXPECT_THAT(events("terminate"), IsEmpty());
    EXPECT_EQ(attempts(), 0);
}

// --- What happens, in which order -----------------------------------------------------------------------------------

TEST_F(ApplicationEnforcementTest, aForbiddenFrontIsHiddenAndLoggedBeforeItsAttempt) {
    startWithEditorAndGame();
    push(); // it was hidden in this session before, so that only the count is saved
    EXPECT_THAT(eventNames(), ElementsAre("hide", "log", "save", "overlay", "sound", "log"));
    EXPECT_THAT(log(), ElementsAre("hid org.example.game", "attempt 1 target=Game pause=5"));
    EXPECT_THAT(events("sound"), ElementsAre(R"("name":"Purr","volume":0.3)"));
    EXPECT_EQ(front(), editor);
    ASSERT_TRUE(warning());
    EXPECT_EQ(*warning(), (WarningInfo{"Game", 1, now(), now() + 5}));
}

TEST_F(ApplicationEnforcementTest, whatIsHiddenForTheFirstTimeIsSavedBeforeTheAttempt) {
    startWithEditorAndGame();
    addApplication(mail, mailID, "Mail");
    activate(mail);
    EXPECT_THAT(eventNames(), ElementsAre("hide", "log", "save", "save", "overlay", "sound", "log"));
    EXPECT_THAT(stored<ActiveSession>(SessionController::sessionFile)->hiddenBundleIDs, ElementsAre(gameID, mailID));
    EXPECT_EQ(stored<ActiveSession>(SessionController::sessionFile)->attempts, 1);
}

TEST_F(ApplicationEnforcementTest, aCountedAttemptLeavesTheFrontToTheOverlay) {
    startWithEditorAndGame();
    push();
    ASSERT_TRUE(warning());
    EXPECT_THAT(events("activate"), IsEmpty());
}

TEST_F(ApplicationEnforcementTest, aForbiddenFrontWithAWarningUpIsNoSecondAttempt) {
    startWithEditorAndGame();
    addApplication(mail, mailID, "Mail");
    push();
    ASSERT_TRUE(warning());
    const WarningInfo first = *warning();
    advance(2);
    activate(mail);
    advance(2);
    EXPECT_TRUE(isHidden(mail));
    EXPECT_EQ(attempts(), 1);
    ASSERT_TRUE(warning());
    EXPECT_EQ(*warning(), first);
}

TEST_F(ApplicationEnforcementTest, whileAnyScreenIsUpNothingCountsButAllIsHidden) {
    startWithEditorAndGame();
    const OverlayState screens[]{Overlay::EmergencyExit{now()}, Overlay::Finished{}, Overlay::LockedBreak{},
                                 Overlay::BackToWork{}};
    for (const auto& screen : screens) {
        SCOPED_TRACE(name(screen));
        controller().setOverlay(screen);
        forgetEvents();
        push();
        EXPECT_TRUE(isHidden(game));
        EXPECT_EQ(attempts(), 0);
        EXPECT_EQ(overlay(), screen);
        EXPECT_THAT(eventNames(), ElementsAre("hide", "log"));
    }
}

TEST_F(ApplicationEnforcementTest, aLaunchCountsAndIsAskedToQuitAlsoBehindTheFront) {
    startWithEditorAndGame();
    const std::int32_t newcomer = start("org.example.new", QuitManners::politely, false);
    EXPECT_THAT(eventNames(), ElementsAre("log", "save", "overlay", "sound", "log", "terminate"));
    EXPECT_THAT(log(), ElementsAre("blocked launch org.example.new", "attempt 1 target=Newcomer pause=5"));
    EXPECT_EQ(times("terminate", newcomer), 1U);
    EXPECT_EQ(retries(newcomer), 0);
    EXPECT_EQ(front(), editor);
}

TEST_F(ApplicationEnforcementTest, aLaunchOfAnAllowedApplicationIsNoMatter) {
    addEditorAndGame();
    startSession(profile(SessionMode::pomodoro, {mailID}));
    forgetEvents();
    start(mailID);
    EXPECT_THAT(eventNames(), IsEmpty());
    EXPECT_EQ(controller().lastAllowedBundleID(), mailID);
}

TEST_F(ApplicationEnforcementTest, whatRanBeforeTheSessionIsHiddenButNeverAskedToQuitEvenInFront) {
    startWithEditorAndGame();
    for (int i = 0; i < 10; ++i) {
        push();
        advance(1);
        EXPECT_TRUE(isHidden(game));
    }
    EXPECT_TRUE(isRunning(game));
    EXPECT_EQ(times("hide", game), 10U);
    EXPECT_EQ(times("terminate", game), 0U);
}

TEST_F(ApplicationEnforcementTest, eachWarningHasItsNumberAndALongerPause) {
    startWithEditorAndGame();
    const double pauses[]{5, 10, 20, 30, 45, 60, 60};
    for (std::int64_t attempt = 1; const double pause : pauses) {
        push();
        ASSERT_TRUE(warning());
        EXPECT_EQ(*warning(), (WarningInfo{"Game", attempt, now(), now() + pause}));
        EXPECT_THAT(log(), Contains("attempt " + std::to_string(attempt) +
                                    " target=Game pause=" + std::to_string(static_cast<int>(pause))));
        controller().returnToWork();
        advance(2);
        ++attempt;
    }
}

TEST_F(ApplicationEnforcementTest, unattendedAWarningAnswersItselfHalfASecondAfterItsPause) {
    setup.autoReturnFromWarnings = true;
    startWithEditorAndGame();
    push();
    advance(5.25);
    EXPECT_TRUE(warning());
    advance(0.25);
    EXPECT_FALSE(warning());
    EXPECT_EQ(session().returns, 1);
}

// --- Names ----------------------------------------------------------------------------------------------------------

TEST_F(ApplicationEnforcementTest, theWarningNamesTheApplicationElseItsIdentifier) {
    addPlain(20, "org.example.tool", std::nullopt);
    startWithEditorAndGame();
    activate(20);
    ASSERT_TRUE(warning());
    EXPECT_EQ(warning()->target, "org.example.tool");
}

TEST_F(ApplicationEnforcementTest, anApplicationWithNeitherNameNorIdentifierIsThisAppInEachLanguage) {
    addPlain(20, std::nullopt, std::nullopt);
    startWithEditorAndGame();
    const std::pair<AppLanguage, const char*> words[]{
        {AppLanguage::english, "This app"}, {AppLanguage::german, "Diese App"}, {AppLanguage::persian, "این اپ"}};
    for (const auto& [language, word] : words) {
        speak(language);
        activate(20);
        ASSERT_TRUE(warning());
        EXPECT_EQ(warning()->target, word);
        controller().returnToWork();
        advance(2);
    }
}

TEST_F(ApplicationEnforcementTest, anApplicationWithoutAnIdentifierIsHiddenAndLoggedAsUnknownButNotRemembered) {
    startWithEditorAndGame();
    addPlain(20, std::nullopt, "Tool");
    advance(1);
    EXPECT_TRUE(isHidden(20));
    EXPECT_THAT(eventNames(), ElementsAre("hide", "log")); // nothing to save
    EXPECT_THAT(log(), ElementsAre("hid unknown"));
    EXPECT_THAT(session().hiddenBundleIDs, ElementsAre(gameID));
}

TEST_F(ApplicationEnforcementTest, aLaunchWithoutAnIdentifierIsLoggedAsUnknown) {
    startWithEditorAndGame();
    desktop().workspace.launch({20, std::nullopt, "Tool"}, false);
    settle();
    EXPECT_THAT(log(), ElementsAre("blocked launch unknown", "attempt 1 target=Tool pause=5"));
    EXPECT_EQ(times("terminate", 20), 1U);
}

TEST_F(ApplicationEnforcementTest, aNotificationThatDoesNotTellTheApplicationDoesNothing) {
    startSession(profile(SessionMode::pomodoro));
    forgetEvents();
    desktop().workspace.announceUnknown();
    settle();
    EXPECT_THAT(eventNames(), IsEmpty());
}

} // namespace
} // namespace velmorin
