#include "tests/engine/EnforcementTest.h"

namespace velmorin {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

/// Which application gets the front back, and which one is remembered for that.
class FocusAllowedAppTest : public EnforcementTest {
protected:
    static constexpr const char* notesID = "org.example.notes";

    /// Starts a session with the program's own window in front, so that nothing is remembered.
    void startFromOwnWindow(const Profile& profile) {
        if (!scene().program()) launch();
        activate(program().pid());
        forgetEvents();
        startSession(profile);
    }
    void returnToWork() {
        controller().returnToWork();
        advance(0.25); // an application that is opened takes a moment
    }
};

// --- What is remembered ---------------------------------------------------------------------------------------------

TEST_F(FocusAllowedAppTest, theAllowedApplicationInFrontAtTheStartIsRemembered) {
    addEditorAndGame();
    startSession(profile(SessionMode::pomodoro));
    EXPECT_EQ(controller().lastAllowedBundleID(), editorID);
}

TEST_F(FocusAllowedAppTest, aStartRemembersNeitherForbiddenNorSystemNorOwnNorNobody) {
    addEditorAndGame();
    addApplication(finder, finderID, "Finder");
    launch();
    const std::optional<std::int32_t> fronts[]{game, finder, program().pid(), std::nullopt};
    for (const auto& inFront : fronts) {
        SCOPED_TRACE(inFront.value_or(0));
        desktop().workspace.leaveFront();
        if (inFront) activate(*inFront);
        controller().start(allowing({}), "");
        settle();
        EXPECT_EQ(controller().lastAllowedBundleID(), std::nullopt);
        endSession();
    }
}

TEST_F(FocusAllowedAppTest, theLastAllowedApplicationInFrontIsRemembered) {
    addEditorAndGame();
    addApplication(mail, mailID, "Mail");
    addApplication(finder, finderID, "Finder");
    startSession(profile(SessionMode::pomodoro, {mailID}));
    activate(mail);
    EXPECT_EQ(controller().lastAllowedBundleID(), mailID);
    for (const auto pid : {finder, program().pid()}) {
        activate(pid);
        EXPECT_EQ(controller().lastAllowedBundleID(), mailID);
    }
}

TEST_F(FocusAllowedAppTest, aForbiddenApplicationIsNeverRemembered) {
    addEditorAndGame();
    addApplication(mail, mailID, "Mail");
    startSession(profile(SessionMode::pomodoro));
    activate(mail);
    push();
    EXPECT_EQ(controller().lastAllowedBundleID(), editorID);
}

TEST_F(FocusAllowedAppTest, partsOfTheSystemAreNotRememberedEvenWhereTheProfileAllowsThem) {
    addEditorAndGame();
    addApplication(finder, finderID, "Finder");
    startSession(profile(SessionMode::pomodoro, {finderID}));
    activate(finder);
    EXPECT_EQ(controller().lastAllowedBundleID(), editorID);
}

TEST_F(FocusAllowedAppTest, nothingIsRememberedInAnOpenBreak) {
    addEditorAndGame();
    addApplication(mail, mailID, "Mail");
    startSession(profile(SessionMode::pomodoro, {mailID}));
    advance(26 * 60);
    activate(mail);
    EXPECT_EQ(controller().lastAllowedBundleID(), editorID);
}

TEST_F(FocusAllowedAppTest, anAllowedApplicationWithoutAnIdentifierLeavesNothingToRemember) {
    setup.onlyBlock = AppPolicy::BundleIDs{gameID};
    addEditorAndGame();
    desktop().workspace.add({20, std::nullopt, "Tool"});
    startSession(profile(SessionMode::pomodoro));
    ASSERT_EQ(controller().lastAllowedBundleID(), editorID);
    activate(20);
    EXPECT_EQ(controller().lastAllowedBundleID(), std::nullopt);
}

TEST_F(FocusAllowedAppTest, whatIsRememberedOutlivesTheSession) {
    addEditorAndGame();
    startSession(profile(SessionMode::pomodoro));
    endSession();
    EXPECT_EQ(controller().lastAllowedBundleID(), editorID);
}

// --- Who comes to the front -----------------------------------------------------------------------------------------

TEST_F(FocusAllowedAppTest, theRememberedOneComesBeforeTheListsFirst) {
    addEditorAndGame();
    addApplication(mail, mailID, "Mail");
    startSession(profile(SessionMode::pomodoro, {mailID}));
    activate(mail);
    forgetEvents();
    returnToWork();
    EXPECT_THAT(events("activate"), ElementsAre("\"pid\":15"));
}

TEST_F(FocusAllowedAppTest, withNothingRememberedTheFirstOfTheListThatRunsIsTaken) {
    addApplication(mail, mailID, "Mail");
    addApplication(editor, editorID, "Editor");
    startFromOwnWindow(allowing({notesID, editorID, mailID}));
    EXPECT_THAT(events("activate"), ElementsAre("\"pid\":10"));
    EXPECT_EQ(front(), editor);
}

TEST_F(FocusAllowedAppTest, ofSeveralInstancesTheFirstIsTaken) {
    addEditorAndGame();
    addApplication(20, editorID, "Editor");
    startSession(profile(SessionMode::pomodoro));
    activate(20);
    forgetEvents();
    returnToWork();
    EXPECT_EQ(front(), editor);
    EXPECT_EQ(times("activate", 20), 0U);
}

TEST_F(FocusAllowedAppTest, aHiddenOneIsTakenAsWellAndShown) {
    addApplication(mail, mailID, "Mail");
    desktop().workspace.add({editor, editorID, "Editor", ActivationPolicy::regular, true});
    launch();
    controller().start(allowing({editorID, mailID}), "");
    settle();
    EXPECT_EQ(front(), editor);
    EXPECT_FALSE(isHidden(editor));
}

TEST_F(FocusAllowedAppTest, aRememberedOneThatHasQuitGivesWayToARunningOneAndIsNotStarted) {
    addEditorAndGame();
    // Hidden, or the desktop would bring it forward by itself when the editor goes.
    desktop().workspace.add({mail, mailID, "Mail", ActivationPolicy::regular, true});
    desktop().workspace.installed = {editorID, mailID};
    startSession(profile(SessionMode::pomodoro, {mailID}));
    desktop().workspace.quit(editor);
    settle();
    ASSERT_EQ(controller().lastAllowedBundleID(), editorID);
    returnToWork();
    EXPECT_EQ(front(), mail);
    EXPECT_THAT(events("open"), IsEmpty());
    EXPECT_FALSE(isRunning(editor));
}

TEST_F(FocusAllowedAppTest, withNoneRunningTheRememberedOneIsOpened) {
    addEditorAndGame();
    desktop().workspace.installed = {editorID, mailID};
    startSession(profile(SessionMode::pomodoro, {mailID}));
    desktop().workspace.quit(editor);
    settle();
    forgetEvents();
    returnToWork();
    EXPECT_THAT(events("open"), ElementsAre(R"("bundleID":"org.example.editor")"));
    EXPECT_EQ(desktop().workspace.frontmostApplication()->bundleIdentifier(), editorID);
    EXPECT_EQ(attempts(), 0);
}

TEST_F(FocusAllowedAppTest, withNoneRunningAndNothingRememberedTheListsFirstIsOpened) {
    desktop().workspace.installed = {mailID, notesID};
    startFromOwnWindow(allowing({mailID, notesID}));
    EXPECT_THAT(events("open"), ElementsAre(R"("bundleID":"org.example.mail")"));
    EXPECT_EQ(desktop().workspace.frontmostApplication()->bundleIdentifier(), mailID);
    EXPECT_EQ(controller().lastAllowedBundleID(), mailID);
}

TEST_F(FocusAllowedAppTest, onlyTheFirstCandidateIsEverOpened) {
    addApplication(finder, finderID, "Finder");
    desktop().workspace.installed = {notesID};
    startFromOwnWindow(allowing({mailID, notesID}));
    returnToWork();
    EXPECT_THAT(events("open"), IsEmpty());
    EXPECT_EQ(front(), finder); // the place for those who have nowhere to go
}

TEST_F(FocusAllowedAppTest, anAllowedApplicationThatIsNotInstalledIsNotOpened) {
    startFromOwnWindow(allowing({mailID}));
    returnToWork();
    EXPECT_THAT(events("open"), IsEmpty());
    EXPECT_EQ(front(), program().pid());
}

TEST_F(FocusAllowedAppTest, withNothingAllowedAndNothingRememberedTheFinderComesForward) {
    addApplication(finder, finderID, "Finder");
    launch();
    activate(program().pid());
    controller().start(allowing({}), "");
    settle();
    ASSERT_EQ(controller().lastAllowedBundleID(), std::nullopt);
    EXPECT_THAT(events("activate"), ElementsAre("\"pid\":13"));
    EXPECT_EQ(front(), finder);
}

TEST_F(FocusAllowedAppTest, whereOnlySomeAreBlockedNothingComesForwardInstead) {
    setup.onlyBlock = AppPolicy::BundleIDs{gameID};
    addApplication(finder, finderID, "Finder");
    launch();
    activate(program().pid());
    controller().start(allowing({}), "");
    settle();
    EXPECT_THAT(events("activate"), IsEmpty());
    EXPECT_EQ(front(), program().pid());
}

TEST_F(FocusAllowedAppTest, whereOnlySomeAreBlockedAnAllowedApplicationStillComesForward) {
    setup.onlyBlock = AppPolicy::BundleIDs{gameID};
    addEditorAndGame();
    startFromOwnWindow(allowing({gameID, editorID}));
    returnToWork();
    EXPECT_EQ(front(), editor);
    EXPECT_EQ(times("activate", game), 0U);
}

TEST_F(FocusAllowedAppTest, whereOnlySomeAreBlockedABrowserThatRefusedComesForwardOnlyAsTheRememberedOne) {
    setup.onlyBlock = AppPolicy::BundleIDs{gameID};
    addBrowser(chromeKind);
    answer(chromeKind, Denied{});
    startFromOwnWindow(allowing({chromeID})); // the browser comes forward, and refuses one second later
    ASSERT_EQ(controller().deniedBrowsers().count(chromeID), 1U);
    ASSERT_EQ(controller().lastAllowedBundleID(), chromeID);
    returnToWork();
    EXPECT_EQ(front(), chrome);
    crash(); // which forgets what was remembered, and the refusal with it
    relaunch();
    activate(program().pid());
    advance(2);
    ASSERT_EQ(controller().deniedBrowsers().count(chromeID), 1U);
    forgetEvents();
    returnToWork();
    EXPECT_EQ(times("activate", chrome), 0U);
}

TEST_F(FocusAllowedAppTest, withNoneToBeFoundTheFrontStaysAsItIs) {
    startFromOwnWindow(allowing({}));
    forgetEvents();
    returnToWork();
    EXPECT_THAT(eventNames(), ElementsAre("overlay"));
    EXPECT_EQ(front(), program().pid());
}

TEST_F(FocusAllowedAppTest, aRememberedBrowserThatRefusedIsPassedOver) {
    addEditorAndGame();
    addBrowser(chromeKind);
    answer(chromeKind, Denied{});
    desktop().workspace.startInFront(chrome);
    launch();
    controller().start(profile(SessionMode::pomodoro, {chromeID}), "");
    settle();
    activate(program().pid()); // so that nothing else is remembered meanwhile
    advance(3);
    ASSERT_EQ(controller().deniedBrowsers().count(chromeID), 1U);
    ASSERT_EQ(controller().lastAllowedBundleID(), chromeID);
    forgetEvents();
    returnToWork();
    EXPECT_EQ(front(), editor);
    EXPECT_EQ(times("activate", chrome), 0U);
}

TEST_F(FocusAllowedAppTest, aBrowserThatRefusedIsNeitherActivatedNorOpenedThoughItComesFirstInTheList) {
    addApplication(finder, finderID, "Finder");
    addBrowser(chromeKind);
    answer(chromeKind, Denied{});
    desktop().workspace.installed = {chromeID};
    launch();
    desktop().workspace.startInFront(chrome);
    startSession(allowing({chromeID}));
    ASSERT_EQ(controller().deniedBrowsers().count(chromeID), 1U);
    ASSERT_EQ(controller().lastAllowedBundleID(), chromeID);
    forgetEvents();
    returnToWork();
    EXPECT_EQ(front(), finder);
    desktop().workspace.quit(chrome);
    returnToWork();
    EXPECT_THAT(events("open"), IsEmpty());
    EXPECT_THAT(events("activate"), Not(IsEmpty()));
    EXPECT_EQ(times("activate", chrome), 0U);
}

TEST_F(FocusAllowedAppTest, whatTheLastProfileAllowedIsPassedOverWhereThisOneForbidsIt) {
    addEditorAndGame();
    addApplication(mail, mailID, "Mail");
    startSession(allowing({gameID}));
    activate(game);
    endSession();
    ASSERT_EQ(controller().lastAllowedBundleID(), gameID);
    startFromOwnWindow(allowing({mailID}));
    returnToWork();
    EXPECT_EQ(front(), mail);
    EXPECT_EQ(times("activate", game), 0U);
}

TEST_F(FocusAllowedAppTest, withNoSessionNothingIsBroughtForward) {
    addEditorAndGame();
    startSession(profile(SessionMode::pomodoro));
    endSession();
    activate(game);
    forgetEvents();
    returnToWork();
    EXPECT_THAT(eventNames(), ElementsAre("overlay"));
    EXPECT_EQ(front(), game);
}

TEST_F(FocusAllowedAppTest, theProgramYieldsToAnApplicationBeforeItActivatesIt) {
    addEditorAndGame();
    startSession(profile(SessionMode::pomodoro));
    push();
    std::vector<std::int32_t> yielded;
    std::optional<std::int32_t> frontMeanwhile;
    program().application().onYield = [&](RunningApplication& other) {
        yielded.push_back(other.processIdentifier());
        frontMeanwhile = front();
    };
    desktop().workspace.leaveFront();
    controller().returnToWork();
    EXPECT_THAT(yielded, ElementsAre(editor));
    EXPECT_EQ(frontMeanwhile, std::nullopt);
    EXPECT_EQ(front(), editor);
}

} // namespace
} // namespace velmorin
