#include "tests/engine/EnforcementTest.h"

namespace velmorin {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

/// When which browser is asked, and how long it may take: unknown, in flight, confirmed, denied. A session asks in its
/// seconds 1, 3, 5 and so on, so that two questions have been asked and one was answered when `startSession` returns.
class BrowserStatesTest : public EnforcementTest {
protected:
    void startWithChrome(SimulatedBrowsers::Says says = Tabs{}, double delay = 0.1) {
        addEditorAndGame();
        addBrowser(chromeKind);
        answer(chromeKind, std::move(says), delay);
        startSession(profile(SessionMode::pomodoro, {chromeID}));
    }
    bool isDenied(const char* bundleID) { return controller().deniedBrowsers().contains(bundleID); }
};

// --- Who is asked ---------------------------------------------------------------------------------------------------

TEST_F(BrowserStatesTest, withNeitherBrowserAllowedNoScriptIsEverStarted) {
    addEditorAndGame();
    addBrowser(chromeKind);
    addBrowser(safariKind);
    startSession(profile(SessionMode::pomodoro));
    activate(chrome);
    advance(60);
    EXPECT_THAT(events("script"), IsEmpty());
}

TEST_F(BrowserStatesTest, anAllowedBrowserIsAskedOnEverySecondLockedTick) {
    startWithChrome();
    EXPECT_EQ(asked().size(), 2U);
    advance(1);
    EXPECT_EQ(asked().size(), 2U);
    advance(1);
    EXPECT_EQ(asked().size(), 3U);
    advance(100);
    EXPECT_EQ(asked().size(), 53U);
}

TEST_F(BrowserStatesTest, anAllowedBrowserThatDoesNotRunIsAskedOnTheNextEvenTickAfterItsStart) {
    addEditorAndGame();
    startSession(profile(SessionMode::pomodoro, {chromeID}));
    advance(11.5);
    EXPECT_THAT(events("script"), IsEmpty());
    start(chromeID);
    EXPECT_THAT(events("script"), IsEmpty());
    advance(0.5); // the 16th tick
    EXPECT_THAT(asked(), ElementsAre("chrome 90"));
}

TEST_F(BrowserStatesTest, anOddTickAsksNobody) {
    addEditorAndGame();
    startSession(profile(SessionMode::pomodoro, {chromeID}));
    start(chromeID);
    advance(1);
    EXPECT_EQ(controller().tickCount() % 2, 1);
    EXPECT_THAT(asked(), IsEmpty());
    advance(1);
    EXPECT_THAT(asked(), ElementsAre("chrome 90"));
}

TEST_F(BrowserStatesTest, onlyTheAllowedOneOfTwoIsAsked) {
    addEditorAndGame();
    addBrowser(chromeKind);
    addBrowser(safariKind);
    startSession(profile(SessionMode::pomodoro, {safariID}));
    EXPECT_THAT(asked(), ElementsAre("safari 90", "safari 10"));
    EXPECT_TRUE(isHidden(chrome));
}

TEST_F(BrowserStatesTest, anotherKindOfBrowserIsAnOrdinaryApplication) {
    addEditorAndGame();
    addApplication(20, "org.mozilla.firefox", "Firefox");
    startSession(profile(SessionMode::pomodoro, {"org.mozilla.firefox"}));
    activate(20);
    advance(10);
    EXPECT_THAT(events("script"), IsEmpty());
    EXPECT_EQ(front(), 20);
}

TEST_F(BrowserStatesTest, nobodyIsAskedInAnOpenBreak) {
    startWithChrome();
    advance(25 * 60 - 3 + 1);
    forgetEvents();
    advance(4 * 60);
    EXPECT_THAT(asked(), IsEmpty());
    advance(60);
    EXPECT_EQ(asked().size(), 1U);
}

TEST_F(BrowserStatesTest, askingGoesOnInALockedBreakAndWithNobodyInFront) {
    addEditorAndGame();
    addBrowser(chromeKind);
    startSession(profile(SessionMode::deep, {chromeID}));
    advance(60 * 60);
    ASSERT_TRUE(shows<Overlay::LockedBreak>(overlay()));
    desktop().workspace.leaveFront();
    forgetEvents();
    advance(10);
    EXPECT_EQ(asked().size(), 5U);
}

// --- In flight ------------------------------------------------------------------------------------------------------

TEST_F(BrowserStatesTest, whileAScriptRunsNoSecondOneIsStarted) {
    startWithChrome(Tabs{}, 19.5);
    advance(17.5);
    EXPECT_THAT(asked(), ElementsAre("chrome 90"));
    advance(0.5); // it has just answered
    EXPECT_THAT(asked(), ElementsAre("chrome 90", "chrome 10"));
}

TEST_F(BrowserStatesTest, whatHangsWithoutEverHavingAnsweredIsAskedAgainAfterNinetySeconds) {
    startWithChrome(Tabs{}, 200);
    advance(87);
    EXPECT_THAT(asked(), ElementsAre("chrome 90"));
    advance(1);
    EXPECT_THAT(asked(), ElementsAre("chrome 90", "chrome 90"));
    EXPECT_FALSE(isDenied(chromeID));
}

TEST_F(BrowserStatesTest, whatHangsOnceConfirmedIsAskedAgainAfterTenSeconds) {
    startWithChrome();
    answer(chromeKind, Tabs{}, 11);
    forgetEvents();
    advance(2);
    EXPECT_THAT(asked(), ElementsAre("chrome 10"));
    advance(9.5);
    EXPECT_THAT(asked(), ElementsAre("chrome 10"));
    advance(0.5);
    EXPECT_THAT(asked(), ElementsAre("chrome 10", "chrome 10"));
}

TEST_F(BrowserStatesTest, aSlowBrowserDoesNotHoldUpTheOther) {
    addEditorAndGame();
    addBrowser(chromeKind);
    addBrowser(safariKind);
    answer(chromeKind, Tabs{}, 50);
    startSession(profile(SessionMode::pomodoro, {safariID, chromeID}));
    advance(4);
    EXPECT_THAT(asked(), ElementsAre("chrome 90", "safari 90", "safari 10", "safari 10", "safari 10"));
}

TEST_F(BrowserStatesTest, aBrowserThatQuitsWhileItIsAskedIsLeftAloneUntilItRunsAgain) {
    startWithChrome();
    answer(chromeKind, NoAnswer{}, 3);
    forgetEvents();
    advance(2.5);
    ASSERT_THAT(asked(), ElementsAre("chrome 10"));
    desktop().workspace.quit(chrome);
    advance(20);
    EXPECT_THAT(asked(), ElementsAre("chrome 10"));
    EXPECT_THAT(log(), IsEmpty());
    start(chromeID);
    advance(2);
    EXPECT_THAT(asked(), ElementsAre("chrome 10", "chrome 10")); // it had answered in this session
}

TEST_F(BrowserStatesTest, anAnswerToAProcessThatDiedReachesNobody) {
    startWithChrome(Denied{}, 20);
    crash();
    forgetEvents();
    advance(30);
    EXPECT_THAT(eventNames(), IsEmpty());
}

// --- Confirmed ------------------------------------------------------------------------------------------------------

TEST_F(BrowserStatesTest, anAnswerWithoutAnyTabConfirmsTheBrowser) {
    startWithChrome(Tabs{});
    EXPECT_THAT(asked(), ElementsAre("chrome 90", "chrome 10"));
}

TEST_F(BrowserStatesTest, whatNeverAnsweredKeepsItsNinetySeconds) {
    startWithChrome(NoAnswer{});
    advance(4);
    EXPECT_THAT(asked(), ElementsAre("chrome 90", "chrome 90", "chrome 90", "chrome 90"));
    EXPECT_THAT(log(), Not(Contains("automation denied for Chrome")));
    EXPECT_FALSE(isHidden(chrome));
}

TEST_F(BrowserStatesTest, aFailureDoesNotTakeTheConfirmationAway) {
    startWithChrome();
    answer(chromeKind, NoAnswer{});
    forgetEvents();
    advance(6);
    EXPECT_THAT(asked(), ElementsAre("chrome 10", "chrome 10", "chrome 10"));
}

TEST_F(BrowserStatesTest, anAnswerInAnOpenBreakConfirmsNothing) {
    startWithChrome(NoAnswer{});
    advance(25 * 60 - 5);
    answer(chromeKind, Tabs{}, 5); // asked in the last second of work
    forgetEvents();
    advance(10);
    ASSERT_THAT(asked(), ElementsAre("chrome 90"));
    ASSERT_FALSE((*controller().status())->isLocked());
    advance(5 * 60 - 5);
    EXPECT_THAT(asked(), ElementsAre("chrome 90", "chrome 90"));
}

TEST_F(BrowserStatesTest, aResumedSessionStartsBothBrowsersWithNinetySecondsAgain) {
    addEditorAndGame();
    addBrowser(chromeKind);
    addBrowser(safariKind);
    startSession(profile(SessionMode::pomodoro, {chromeID, safariID}));
    ASSERT_THAT(asked(), ElementsAre("chrome 90", "safari 90", "chrome 10", "safari 10"));
    crash();
    forgetEvents();
    relaunch();
    advance(3);
    EXPECT_THAT(asked(), ElementsAre("chrome 90", "safari 90", "chrome 10", "safari 10"));
}

// --- Denied ---------------------------------------------------------------------------------------------------------

TEST_F(BrowserStatesTest, aBrowserThatRefusesIsAskedNoMoreInThisSession) {
    startWithChrome(Denied{});
    EXPECT_TRUE(isDenied(chromeID));
    answer(chromeKind, Tabs{});
    advance(60);
    EXPECT_THAT(asked(), ElementsAre("chrome 90"));
    EXPECT_TRUE(isDenied(chromeID));
}

TEST_F(BrowserStatesTest, aConfirmedBrowserMayStillRefuse) {
    startWithChrome();
    answer(chromeKind, Denied{});
    advance(2.5);
    EXPECT_TRUE(isDenied(chromeID));
    EXPECT_TRUE(isHidden(chrome));
    forgetEvents();
    advance(10);
    EXPECT_THAT(asked(), IsEmpty());
}

TEST_F(BrowserStatesTest, oneBrowsersRefusalIsNotTheOthers) {
    addEditorAndGame();
    addBrowser(chromeKind);
    addBrowser(safariKind);
    answer(chromeKind, Denied{});
    startSession(profile(SessionMode::pomodoro, {chromeID, safariID}));
    EXPECT_THAT(asked(), ElementsAre("chrome 90", "safari 90", "safari 10"));
    EXPECT_TRUE(isHidden(chrome));
    EXPECT_FALSE(isHidden(safari));
    EXPECT_THAT(controller().deniedBrowsers(), ElementsAre(chromeID));
}

TEST_F(BrowserStatesTest, aRefusalInAnOpenBreakIsDroppedUntilALaterPollBringsItAgain) {
    startWithChrome();
    advance(25 * 60 - 5);
    answer(chromeKind, Denied{}, 5); // asked in the last second of work
    advance(10);
    ASSERT_FALSE((*controller().status())->isLocked());
    EXPECT_FALSE(isDenied(chromeID));
    EXPECT_FALSE(isHidden(chrome));
    EXPECT_EQ(logged("automation denied for Chrome"), 0U);
    advance(5 * 60 - 3);
    ASSERT_TRUE((*controller().status())->isLocked());
    EXPECT_FALSE(isDenied(chromeID));
    advance(7);
    EXPECT_TRUE(isDenied(chromeID));
    EXPECT_TRUE(isHidden(chrome));
    EXPECT_EQ(logged("automation denied for Chrome"), 1U);
}

TEST_F(BrowserStatesTest, theEndOfTheSessionForgetsEveryState) {
    addEditorAndGame();
    addBrowser(chromeKind);
    addBrowser(safariKind);
    answer(chromeKind, Denied{});
    startSession(profile(SessionMode::pomodoro, {chromeID, safariID}));
    advance(0.5); // all answers are in
    endSession();
    EXPECT_THAT(controller().deniedBrowsers(), IsEmpty());
    answer(chromeKind, Tabs{});
    forgetEvents();
    startSession(profile(SessionMode::pomodoro, {chromeID, safariID}));
    EXPECT_THAT(asked(), ElementsAre("chrome 90", "safari 90", "chrome 10", "safari 10"));
    EXPECT_FALSE(isHidden(chrome));
}

TEST_F(BrowserStatesTest, theEndOfTheProcessForgetsTheRefusal) {
    startWithChrome(Denied{});
    crash();
    forgetEvents();
    relaunch();
    EXPECT_FALSE(isDenied(chromeID));
    advance(1);
    EXPECT_THAT(asked(), ElementsAre("chrome 90"));
}

// --- Late answers ---------------------------------------------------------------------------------------------------

TEST_F(BrowserStatesTest, aRefusalAfterTheEndOfTheSessionLeavesNothingBehind) {
    startWithChrome(Denied{}, 20);
    endSession();
    forgetEvents();
    advance(30);
    EXPECT_THAT(eventNames(), IsEmpty());
    EXPECT_FALSE(isDenied(chromeID));
    EXPECT_FALSE(isHidden(chrome));
}

TEST_F(BrowserStatesTest, theNextSessionAsksThoughTheLastOnesScriptStillRuns) {
    startWithChrome(Tabs{}, 80);
    endSession();
    answer(chromeKind, Tabs{});
    forgetEvents();
    startSession(profile(SessionMode::pomodoro, {chromeID}));
    EXPECT_THAT(asked(), ElementsAre("chrome 90", "chrome 10"));
}

TEST_F(BrowserStatesTest, anAnswerToTheLastSessionsScriptConfirmsTheBrowserForTheSessionInWhichItArrives) {
    startWithChrome(Tabs{}, 4.5); // asked after one second
    endSession();
    forgetEvents();
    answer(chromeKind, NoAnswer{}, 60);
    startSession(profile(SessionMode::pomodoro, {chromeID}));
    // Asked after one second; two seconds later the old answer has come.
    EXPECT_THAT(asked(), ElementsAre("chrome 90", "chrome 10"));
}

TEST_F(BrowserStatesTest, aRefusalOfTheLastSessionsScriptCountsInTheSessionInWhichItArrives) {
    startWithChrome(Denied{}, 8);
    endSession();
    answer(chromeKind, Tabs{}, 20);
    startSession(profile(SessionMode::pomodoro, {chromeID}));
    EXPECT_FALSE(isDenied(chromeID));
    advance(4);
    EXPECT_TRUE(isDenied(chromeID));
    EXPECT_TRUE(isHidden(chrome));
}

} // namespace
} // namespace velmorin
