#include "tests/engine/EnforcementTest.h"

namespace velmorin {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// What is remembered of the applications that were hidden, and that they come back at the end.
class HiddenApplicationsTest : public EnforcementTest {
protected:
    void startWithEditorGameAndMail() {
        addEditorAndGame();
        addApplication(mail, mailID, "Mail");
        startSession(profile(SessionMode::pomodoro));
        forgetEvents();
    }
};

TEST_F(HiddenApplicationsTest, whatTheFirstTickHidesIsSavedOnceForAll) {
    addEditorAndGame();
    addApplication(mail, mailID, "Mail");
    launch();
    forgetEvents();
    controller().start(profile(SessionMode::pomodoro), "write");
    EXPECT_EQ(saves(sessionFile), 2U); // the session itself, and then with what is hidden
    EXPECT_THAT(stored<ActiveSession>(sessionFile)->hiddenBundleIDs, ElementsAre(gameID, mailID));
}

TEST_F(HiddenApplicationsTest, whatIsHiddenAgainIsRememberedOnceAndCostsNoWrite) {
    startWithEditorGameAndMail();
    desktop().workspace.unhide(game);
    advance(1);
    EXPECT_TRUE(isHidden(game));
    EXPECT_THAT(eventNames(), ElementsAre("hide", "log"));
    EXPECT_THAT(session().hiddenBundleIDs, ElementsAre(gameID, mailID));
}

TEST_F(HiddenApplicationsTest, aNewOneAmongThoseHiddenAgainIsAddedAlone) {
    startWithEditorGameAndMail();
    desktop().workspace.unhide(game);
    desktop().workspace.unhide(mail);
    addApplication(20, "org.example.chat", "Chat");
    advance(1);
    EXPECT_EQ(saves(sessionFile), 1U);
    EXPECT_THAT(session().hiddenBundleIDs, ElementsAre(gameID, mailID, "org.example.chat"));
}

TEST_F(HiddenApplicationsTest, severalInstancesAreHiddenEachAndRememberedOnce) {
    addEditorAndGame();
    addApplication(20, gameID, "Game");
    addApplication(21, gameID, "Game");
    startSession(profile(SessionMode::pomodoro));
    EXPECT_THAT(events("hide"), ElementsAre("\"pid\":11", "\"pid\":20", "\"pid\":21"));
    EXPECT_EQ(logged("hid org.example.game"), 3U);
    EXPECT_THAT(session().hiddenBundleIDs, ElementsAre(gameID));
}

TEST_F(HiddenApplicationsTest, whatWasHiddenBeforeTheSessionIsNeitherHiddenNorRemembered) {
    addEditorAndGame();
    desktop().workspace.add({mail, mailID, "Mail", ActivationPolicy::regular, true});
    startSession(profile(SessionMode::pomodoro));
    EXPECT_EQ(times("hide", mail), 0U);
    EXPECT_THAT(session().hiddenBundleIDs, ElementsAre(gameID));
    endSession();
    EXPECT_TRUE(isHidden(mail));
}

TEST_F(HiddenApplicationsTest, theListNeverShrinksDuringASession) {
    startWithEditorGameAndMail();
    desktop().workspace.quit(game);
    advance(60);
    EXPECT_THAT(session().hiddenBundleIDs, ElementsAre(gameID, mailID));
}

TEST_F(HiddenApplicationsTest, everyInstanceOfEachIsShownAgainAtTheEndInTheOrderOfTheList) {
    addEditorAndGame();
    addApplication(mail, mailID, "Mail");
    addApplication(20, gameID, "Game");
    startSession(profile(SessionMode::pomodoro));
    endSession();
    EXPECT_THAT(events("unhide"), ElementsAre("\"pid\":11", "\"pid\":20", "\"pid\":15"));
    EXPECT_FALSE(isHidden(game));
    EXPECT_FALSE(isHidden(20));
    EXPECT_FALSE(isHidden(mail));
    EXPECT_EQ(front(), editor); // they come back behind it
}

TEST_F(HiddenApplicationsTest, thePlansEndShowsThemAgainToo) {
    startWithEditorGameAndMail();
    advance(4 * 60 * 60);
    ASSERT_FALSE(controller().isActive());
    EXPECT_THAT(events("unhide"), ElementsAre("\"pid\":11", "\"pid\":15"));
    EXPECT_FALSE(isHidden(game));
}

TEST_F(HiddenApplicationsTest, whatQuitMeanwhileIsPassedOver) {
    startWithEditorGameAndMail();
    desktop().workspace.quit(game);
    endSession();
    EXPECT_THAT(events("unhide"), ElementsAre("\"pid\":15"));
}

TEST_F(HiddenApplicationsTest, whatWasStartedAnewMeanwhileIsShownAgain) {
    startWithEditorGameAndMail();
    desktop().workspace.quit(game);
    const std::int32_t again = start(gameID, QuitManners::never, false);
    advance(10);
    ASSERT_TRUE(isHidden(again));
    endSession();
    EXPECT_FALSE(isHidden(again));
}

TEST_F(HiddenApplicationsTest, whatWouldNotQuitIsShownAgain) {
    startWithEditorGameAndMail();
    const std::int32_t pid = start("org.example.new", QuitManners::never, false);
    advance(10);
    ASSERT_TRUE(isHidden(pid));
    endSession();
    EXPECT_FALSE(isHidden(pid));
}

TEST_F(HiddenApplicationsTest, whatHasNoIdentifierIsNotShownAgain) {
    addEditorAndGame();
    desktop().workspace.add({20, std::nullopt, "Tool"});
    startSession(profile(SessionMode::pomodoro));
    ASSERT_TRUE(isHidden(20));
    endSession();
    EXPECT_TRUE(isHidden(20));
    EXPECT_EQ(times("unhide", 20), 0U);
}

TEST_F(HiddenApplicationsTest, aBreakShowsNothing) {
    startWithEditorGameAndMail();
    advance(27 * 60);
    EXPECT_TRUE(isHidden(game));
    EXPECT_THAT(events("unhide"), IsEmpty());
}

TEST_F(HiddenApplicationsTest, whatTheUserShowedInABreakIsHiddenByTheNextLockedTick) {
    startWithEditorGameAndMail();
    advance(27 * 60);
    activate(game);
    EXPECT_FALSE(isHidden(game));
    advance(3 * 60 - 3);
    EXPECT_TRUE(isHidden(game));
    EXPECT_EQ(attempts(), 0);
}

TEST_F(HiddenApplicationsTest, aProcessThatComesBackStillKnowsWhatToShow) {
    startWithEditorGameAndMail();
    crash();
    relaunch();
    EXPECT_THAT(session().hiddenBundleIDs, ElementsAre(gameID, mailID));
    EXPECT_THAT(events("hide"), IsEmpty());
    endSession();
    EXPECT_FALSE(isHidden(game));
    EXPECT_FALSE(isHidden(mail));
}

TEST_F(HiddenApplicationsTest, aSessionThatRanOutWithoutAProcessIsTidiedUpByTheNextOne) {
    startWithEditorGameAndMail();
    crash();
    advance(5 * 60 * 60);
    EXPECT_TRUE(isHidden(game));
    relaunch();
    EXPECT_FALSE(isHidden(game));
    EXPECT_FALSE(isHidden(mail));
}

TEST_F(HiddenApplicationsTest, aFullDiskKeepsNothingFromBeingHiddenAndShownAgain) {
    addEditorAndGame();
    desktop().disk.isFull = true;
    startSession(profile(SessionMode::pomodoro));
    EXPECT_TRUE(isHidden(game));
    EXPECT_EQ(saves(sessionFile), 0U);
    endSession();
    EXPECT_FALSE(isHidden(game));
}

} // namespace
} // namespace velmorin
