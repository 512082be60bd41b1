#include "tests/engine/EnforcementTest.h"

#include <algorithm>

namespace velmorin {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// What becomes of the addresses that the browsers show. The session asks in its seconds 5, 7 and so on after
/// `startSession`.
class BrowserEnforcementTest : public EnforcementTest {
protected:
    static constexpr const char* work = "https://work.example/";
    static constexpr const char* news = "https://www.news.example/today";
    static constexpr const char* games = "https://games.example/";
    static constexpr const char* blockedNews = "blocked site in Chrome: news.example";
    static constexpr const char* blockedGames = "blocked site in Chrome: games.example";

    static Profile browsing(SessionMode mode = SessionMode::pomodoro) {
        return profile(mode, {chromeID, safariID}, {"work.example"});
    }
    void startBrowsing(SessionMode mode = SessionMode::pomodoro) {
        addEditorAndGame();
        addBrowser(chromeKind);
        startSession(browsing(mode));
        activate(chrome);
        advance(0.5);
        forgetEvents();
    }
    /// What Chrome shows from now on.
    void show(SimulatedBrowsers::Says says, double delay = 0.1, bool isStubborn = false) {
        desktop().browsers.behave(chromeKind, {std::move(says), delay, isStubborn});
    }
    /// Lets it answer the next question, and be done with the blanking, where neither takes longer.
    void askOnce() { advance(2); }
    std::vector<std::string> addresses(BrowserKind kind = chromeKind) {
        const auto tabs = desktop().browsers.tabs(kind);
        std::vector<std::string> found;
        std::ranges::transform(tabs, std::back_inserter(found), &BrowserTab::url);
        return found;
    }
};

// --- Tabs -----------------------------------------------------------------------------------------------------------

TEST_F(BrowserEnforcementTest, aForbiddenTabOfTheBrowserInFrontIsAnAttemptAndBlanked) {
    startBrowsing();
    show(Tabs{{"7", news}});
    askOnce();
    EXPECT_THAT(eventNames(), ElementsAre("script", "log", "save", "overlay", "sound", "log", "script"));
    EXPECT_THAT(log(), ElementsAre(blockedNews, "attempt 1 target=news.example pause=5"));
    EXPECT_THAT(events("script").back(), R"("kind":"chrome","timeout":5,"what":"blankTab","windowID":"7")");
    ASSERT_TRUE(warning());
    EXPECT_EQ(warning()->target, "news.example");
    EXPECT_THAT(addresses(), ElementsAre("about:blank"));
}

TEST_F(BrowserEnforcementTest, aForbiddenTabBehindAnotherApplicationIsBlankedWithoutAnAttempt) {
    startBrowsing();
    activate(editor);
    show(Tabs{{"7", news}});
    askOnce();
    EXPECT_THAT(eventNames(), ElementsAre("script", "log", "script"));
    EXPECT_THAT(log(), ElementsAre(blockedNews));
    EXPECT_THAT(blanked(), ElementsAre("chrome 7"));
    EXPECT_EQ(attempts(), 0);
    EXPECT_FALSE(warning());
}

TEST_F(BrowserEnforcementTest, aForbiddenTabWithNobodyInFrontIsBlankedWithoutAnAttempt) {
    startBrowsing();
    desktop().workspace.leaveFront();
    show(Tabs{{"7", news}});
    askOnce();
    EXPECT_THAT(blanked(), ElementsAre("chrome 7"));
    EXPECT_EQ(attempts(), 0);
}

TEST_F(BrowserEnforcementTest, twoForbiddenTabsAreOneAttemptTwoLinesAndBothBlanked) {
    startBrowsing();
    show(Tabs{{"7", news}, {"8", work}, {"9", games}});
    askOnce();
    EXPECT_EQ(attempts(), 1);
    ASSERT_TRUE(warning());
    EXPECT_EQ(warning()->target, "news.example");
    EXPECT_THAT(log(), ElementsAre(blockedNews, "attempt 1 target=news.example pause=5", blockedGames));
    EXPECT_THAT(blanked(), ElementsAre("chrome 7", "chrome 9"));
    EXPECT_THAT(addresses(), ElementsAre("about:blank", work, "about:blank"));
}

TEST_F(BrowserEnforcementTest, aForbiddenTabWhileNothingCountsIsBlankedAndLoggedAndMovesNoFocus) {
    startBrowsing();
    controller().returnToWork(); // nothing counts for two seconds
    forgetEvents();
    show(Tabs{{"7", news}});
    advance(1.625); // asked after 1.5 seconds
    EXPECT_THAT(eventNames(), ElementsAre("script", "log", "script"));
    EXPECT_EQ(attempts(), 0);
    EXPECT_FALSE(warning());
    EXPECT_EQ(front(), chrome);
    advance(0.5);
    EXPECT_THAT(addresses(), ElementsAre("about:blank"));
}

TEST_F(BrowserEnforcementTest, allowedAndNeutralAndEmptyAddressesAreLeftAlone) {
    startBrowsing();
    show(Tabs{
        {"1", work}, {"2", "https://docs.work.example/a"}, {"3", "about:blank"}, {"4", "chrome://newtab/"}, {"5", ""}});
    askOnce();
    EXPECT_THAT(eventNames(), ElementsAre("script"));
}

TEST_F(BrowserEnforcementTest, aProfileWithoutSitesForbidsAllButTheNeutralPages) {
    addEditorAndGame();
    addBrowser(chromeKind);
    show(Tabs{{"1", work}, {"2", "about:blank"}, {"3", "chrome://settings/"}, {"4", ""}, {"5", "file:///home"}});
    startSession(profile(SessionMode::pomodoro, {chromeID}));
    EXPECT_THAT(blanked(), ElementsAre("chrome 1", "chrome 3", "chrome 5"));
}

TEST_F(BrowserEnforcementTest, ofAWindowsIdentifierOnlyTheDigitsReachTheScript) {
    startBrowsing();
    show(Tabs{{"4\" then quit \"2", news}});
    askOnce();
    EXPECT_THAT(blanked(), ElementsAre("chrome 42"));
}

TEST_F(BrowserEnforcementTest, noAnswerChangesNothing) {
    startBrowsing();
    show(NoAnswer{});
    askOnce();
    EXPECT_THAT(eventNames(), ElementsAre("script"));
}

TEST_F(BrowserEnforcementTest, theBrowserBehindIsBlankedAndTheOneInFrontWarnedOf) {
    startBrowsing();
    addBrowser(safariKind);
    show(Tabs{{"7", news}});
    answer(safariKind, Tabs{{"7", games}});
    activate(safari);
    forgetEvents();
    askOnce();
    EXPECT_THAT(log(), ElementsAre(blockedNews, "blocked site in Safari: games.example",
                                   "attempt 1 target=games.example pause=5"));
    EXPECT_THAT(blanked(), ElementsAre("chrome 7", "safari 7"));
    EXPECT_THAT(addresses(safariKind), ElementsAre("about:blank"));
}

// --- Tabs that stay -------------------------------------------------------------------------------------------------

TEST_F(BrowserEnforcementTest, aTabThatWillNotBlankIsFoundAgainByEveryPoll) {
    startBrowsing();
    show(Tabs{{"7", news}}, 0.1, true);
    advance(10);
    EXPECT_EQ(blanked().size(), 5U);
    EXPECT_EQ(logged(blockedNews), 5U);
    EXPECT_EQ(attempts(), 1); // the warning is still up
    EXPECT_THAT(addresses(), ElementsAre(news));
}

TEST_F(BrowserEnforcementTest, whoComesBackToATabThatStaysIsWarnedAgainOnceCountingHasBegun) {
    startBrowsing();
    show(Tabs{{"7", news}}, 0.1, true);
    advance(4); // a warning, and a poll that finds it up
    ASSERT_EQ(attempts(), 1);
    controller().returnToWork();
    forgetEvents();
    advance(1.75); // the next poll comes while nothing counts
    EXPECT_EQ(logged(blockedNews), 1U);
    EXPECT_EQ(attempts(), 1);
    EXPECT_FALSE(warning());
    advance(2);
    EXPECT_EQ(attempts(), 2);
    ASSERT_TRUE(warning());
    EXPECT_EQ(warning()->attempt, 2);
}

TEST_F(BrowserEnforcementTest, aBlankingThatHangsIsEndedAfterFiveSecondsAndTriedAgain) {
    startBrowsing();
    show(Tabs{{"7", news}, {"9", games}}, 5.5);
    advance(1.5 + 5.5 + 5.25); // asked, answered, both blankings ended
    EXPECT_THAT(blanked(), ElementsAre("chrome 7", "chrome 9"));
    EXPECT_THAT(addresses(), ElementsAre(news, games));
    show(Tabs{{"7", news}, {"9", games}}, 0.1);
    advance(4);
    EXPECT_THAT(addresses(), ElementsAre("about:blank", "about:blank"));
    EXPECT_EQ(attempts(), 1);
}

TEST_F(BrowserEnforcementTest, onlyTheWindowThatStaysIsBlankedAgain) {
    startBrowsing();
    show(Tabs{{"7", news}, {"9", games}});
    askOnce();
    ASSERT_THAT(addresses(), ElementsAre("about:blank", "about:blank"));
    show(Tabs{{"7", "about:blank"}, {"9", games}});
    forgetEvents();
    askOnce();
    EXPECT_THAT(blanked(), ElementsAre("chrome 9"));
}

// --- The moment of the answer ---------------------------------------------------------------------------------------

TEST_F(BrowserEnforcementTest, aBrowserThatLeftTheFrontMeanwhileIsNoAttempt) {
    startBrowsing();
    show(Tabs{{"7", news}}, 5);
    askOnce();
    activate(editor);
    advance(6);
    EXPECT_THAT(blanked(), ElementsAre("chrome 7"));
    EXPECT_EQ(attempts(), 0);
}

TEST_F(BrowserEnforcementTest, aBrowserThatCameToTheFrontMeanwhileIsAnAttempt) {
    startBrowsing();
    activate(editor);
    show(Tabs{{"7", news}}, 5);
    askOnce();
    activate(chrome);
    advance(6);
    EXPECT_EQ(attempts(), 1);
}

TEST_F(BrowserEnforcementTest, anAnswerThatComesInAnOpenBreakIsDropped) {
    startBrowsing();
    advance(25 * 60 - 3.5 - 2);
    show(Tabs{{"7", news}}, 5); // asked in the last second of work
    forgetEvents();
    advance(10);
    ASSERT_FALSE((*controller().status())->isLocked());
    EXPECT_THAT(log(), ElementsAre("segment 1 shortBreak"));
    EXPECT_THAT(blanked(), IsEmpty());
    EXPECT_EQ(attempts(), 0);
}

TEST_F(BrowserEnforcementTest, anAnswerThatComesInALockedBreakIsBlankedBehindItsScreen) {
    startBrowsing(SessionMode::deep);
    advance(60 * 60 - 3.5 - 2);
    show(Tabs{{"7", news}}, 5); // asked in the last second of work
    advance(8);
    ASSERT_TRUE(shows<Overlay::LockedBreak>(overlay()));
    EXPECT_THAT(blanked(), ElementsAre("chrome 7"));
    advance(3.5); // blanking takes as long as the answer
    EXPECT_THAT(addresses(), ElementsAre("about:blank"));
    EXPECT_EQ(attempts(), 0);
}

TEST_F(BrowserEnforcementTest, anAnswerThatOutlastsAWholeBreakIsJudgedByTheWorkAfterIt) {
    addEditorAndGame();
    addBrowser(chromeKind);
    show(NoAnswer{}, 0.1); // so that it keeps its ninety seconds
    Profile brief = browsing();
    brief.pomodoro.shortBreakMinutes = 1;
    startSession(brief);
    activate(chrome);
    advance(25 * 60 - 5);
    show(Tabs{{"7", news}}, 80); // asked in the last second of work
    forgetEvents();
    advance(70);
    ASSERT_EQ((*controller().status())->segmentIndex, 2);
    EXPECT_THAT(blanked(), IsEmpty());
    controller().returnToWork();
    advance(12);
    EXPECT_THAT(blanked(), ElementsAre("chrome 7"));
    EXPECT_EQ(attempts(), 1);
}

TEST_F(BrowserEnforcementTest, anAnswerAfterTheEndOfTheSessionIsDropped) {
    startBrowsing();
    show(Tabs{{"7", news}}, 5);
    askOnce();
    endSession();
    forgetEvents();
    advance(10);
    EXPECT_THAT(eventNames(), IsEmpty());
    EXPECT_THAT(addresses(), ElementsAre(news));
}

TEST_F(BrowserEnforcementTest, anAnswerIsJudgedByTheSitesOfTheSessionInWhichItArrives) {
    startBrowsing();
    show(Tabs{{"7", news}, {"9", work}}, 8);
    askOnce(); // after 1.5 seconds
    endSession();
    show(Tabs{});
    startSession(profile(SessionMode::pomodoro, {chromeID}, {"news.example"}));
    EXPECT_THAT(blanked(), IsEmpty());
    advance(5);
    EXPECT_THAT(blanked(), ElementsAre("chrome 9"));
    EXPECT_EQ(logged("blocked site in Chrome: work.example"), 1U);
    EXPECT_EQ(logged(blockedNews), 0U);
}

TEST_F(BrowserEnforcementTest, tabsOfABrowserThatQuitMeanwhileAreNoAttempt) {
    startBrowsing();
    show(Tabs{{"7", news}}, 5);
    askOnce();
    desktop().workspace.quit(chrome);
    advance(20);
    EXPECT_EQ(logged(blockedNews), 1U);
    EXPECT_EQ(attempts(), 0);
    EXPECT_THAT(blanked(), ElementsAre("chrome 7"));
}

// --- Refusal --------------------------------------------------------------------------------------------------------

TEST_F(BrowserEnforcementTest, aRefusalOfTheBrowserInFrontHidesItAndIsOneAttemptThatSaysWhy) {
    startBrowsing();
    speak(AppLanguage::english);
    show(Denied{});
    forgetEvents();
    askOnce();
    EXPECT_THAT(eventNames(), ElementsAre("script", "log", "hide", "log", "save", "save", "overlay", "sound", "log"));
    EXPECT_THAT(log(), ElementsAre("automation denied for Chrome", "hid com.google.Chrome",
                                   "attempt 1 target=Chrome (no Automation permission) pause=5"));
    EXPECT_TRUE(isHidden(chrome));
    EXPECT_EQ(attempts(), 1);
    ASSERT_TRUE(warning());
    EXPECT_EQ(warning()->target, "Chrome (no Automation permission)");
}

TEST_F(BrowserEnforcementTest, aRefusalBehindAnotherApplicationHidesWithoutAnAttempt) {
    startBrowsing();
    activate(editor);
    show(Denied{});
    askOnce();
    EXPECT_TRUE(isHidden(chrome));
    EXPECT_EQ(attempts(), 0);
    EXPECT_EQ(front(), editor);
}

TEST_F(BrowserEnforcementTest, aBrowserThatRefusedIsForbiddenThoughTheProfileListsIt) {
    startBrowsing();
    activate(editor);
    show(Denied{});
    askOnce();
    const std::pair<AppLanguage, const char*> words[]{{AppLanguage::english, "Chrome (no Automation permission)"},
                                                      {AppLanguage::german, "Chrome (ohne Automation-Erlaubnis)"},
                                                      {AppLanguage::persian, "Chrome (بدون مجوز Automation)"}};
    for (const auto& [language, word] : words) {
        speak(language);
        activate(chrome);
        EXPECT_TRUE(isHidden(chrome));
        ASSERT_TRUE(warning());
        EXPECT_EQ(warning()->target, word);
        controller().returnToWork();
        advance(2);
    }
    EXPECT_EQ(times("terminate", chrome), 0U); // it ran before it was forbidden
}

TEST_F(BrowserEnforcementTest, aBrowserThatRefusedAndIsStartedAnewIsAskedToQuit) {
    startBrowsing();
    activate(editor);
    show(Denied{});
    askOnce();
    desktop().workspace.quit(chrome);
    desktop().workspace.launch({40, chromeID, "Chrome"}, false);
    settle();
    EXPECT_EQ(logged("blocked launch com.google.Chrome"), 1U);
    EXPECT_EQ(times("terminate", 40), 1U);
    EXPECT_EQ(attempts(), 1);
}

TEST_F(BrowserEnforcementTest, aRefusalOfABrowserThatQuitMeanwhileStillForbidsIt) {
    startBrowsing();
    activate(editor);
    show(Denied{}, 5);
    askOnce();
    desktop().workspace.quit(chrome);
    advance(5);
    EXPECT_EQ(logged("automation denied for Chrome"), 1U);
    EXPECT_TRUE(controller().deniedBrowsers().contains(chromeID));
    EXPECT_EQ(attempts(), 0);
}

TEST_F(BrowserEnforcementTest, aBrowserThatRefusedIsShownAgainAtTheEnd) {
    startBrowsing();
    show(Denied{});
    askOnce();
    ASSERT_TRUE(isHidden(chrome));
    endSession();
    EXPECT_FALSE(isHidden(chrome));
}

TEST_F(BrowserEnforcementTest, whereOnlySomeAreBlockedARefusalForbidsNothing) {
    setup.onlyBlock = AppPolicy::BundleIDs{gameID};
    startBrowsing();
    show(Denied{});
    askOnce();
    EXPECT_THAT(log(), ElementsAre("automation denied for Chrome"));
    EXPECT_FALSE(isHidden(chrome));
    EXPECT_EQ(attempts(), 0);
}

TEST_F(BrowserEnforcementTest, whatIsStillToBeBlankedWhenTheSessionEndsIsLeftAlone) {
    addEditorAndGame();
    addBrowser(chromeKind);
    show(Tabs{{"1", "https://news.example/"}}, 0.1, true);
    Profile minute = browsing(SessionMode::deep);
    minute.deep = {1, 0, 0};
    startSession(minute);
    advance(56.05);
    forgetEvents();
    // On waking the answer of second 59 and the tick that ends the session are due at once.
    desktop().time.sleep(10);
    EXPECT_FALSE(controller().isActive());
    EXPECT_EQ(log().front(), blockedNews);
    EXPECT_THAT(events("script"), IsEmpty());
}

} // namespace
} // namespace velmorin
