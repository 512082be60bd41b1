#include "core/language/Formatting.h"
#include "tests/shell/AppDelegateTest.h"

#include <algorithm>

namespace velmorin {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

using Reply = AppDelegate::TerminateReply;

class AppDelegateSessionTest : public AppDelegateTest {
protected:
    std::ptrdiff_t count(const std::string& step) const { return std::ranges::count(shell.steps, step); }
    /// A session of this plan that goes on after a start by the user.
    void resume(std::vector<Segment> plan, double elapsed = 0) {
        addEditorAndGame();
        leaveSession(std::move(plan), elapsed);
        launchProgram();
    }
    void expectCountdown() {
        const auto& status = *controller().status();
        ASSERT_TRUE(status);
        EXPECT_EQ(shell.item.title,
                  " " + compactRemaining(*shell.context->appearance.language(), status->remainingInSegment));
    }
};

// --- The door

TEST_F(AppDelegateSessionTest, aRequestToQuitOutsideASessionEndsTheProgram) {
    launchProgram();
    choose(MenuAction::quitFromMenu);
    EXPECT_TRUE(hasEnded());
}

TEST_F(AppDelegateSessionTest, aRequestToQuitDuringASessionShowsTheMainWindowAndTheProgramStays) {
    launchProgram();
    startSession();
    for (const auto action : {MenuAction::terminate, MenuAction::quitFromMenu}) {
        shell.closeWindow();
        action == MenuAction::terminate ? shell.onMainMenu(action) : choose(action);
        settle();
        EXPECT_FALSE(hasEnded());
        EXPECT_TRUE(shell.window.isVisible);
    }
    EXPECT_TRUE(controller().isActive());
}

TEST_F(AppDelegateSessionTest, theSameRequestAfterTheAnnouncedEndOfTheSystemEndsTheProgram) {
    launchProgram();
    startSession();
    shell.closeWindow();
    EXPECT_FALSE(program().isSystemShuttingDown());
    application().announcePowerOff();
    EXPECT_TRUE(program().isSystemShuttingDown());
    choose(MenuAction::terminate);
    EXPECT_TRUE(hasEnded());
    EXPECT_FALSE(shell.window.isVisible);
    EXPECT_TRUE(controller().isActive()) << "nothing ends the session";
    EXPECT_TRUE(file(SessionController::sessionFile));
    EXPECT_FALSE(file(AppData::historyFile)) << "nor makes a record of it";
}

TEST_F(AppDelegateSessionTest, aRequestDuringASessionMakesTheMainWindowWhereThereIsNoneYet) {
    leaveSession({work}, 10);
    launchProgram(LaunchedBy::watchdog);
    EXPECT_EQ(program().applicationShouldTerminate(), Reply::cancel);
    EXPECT_TRUE(shell.window.isVisible);
    EXPECT_EQ(shell.window.title, texts().appName);
}

TEST_F(AppDelegateSessionTest, closingTheMainWindowEndsNeitherTheProgramNorTheSession) {
    launchProgram();
    EXPECT_FALSE(AppDelegate::applicationShouldTerminateAfterLastWindowClosed());
    startSession();
    const auto before = *controller().session();
    program().applicationShouldHandleReopen();
    shell.closeWindow();
    settle();
    EXPECT_FALSE(hasEnded());
    EXPECT_EQ(*controller().session(), before);
}

TEST_F(AppDelegateSessionTest, anotherStartShowsTheOneMainWindow) {
    launchProgram();
    shell.closeWindow();
    program().applicationShouldHandleReopen();
    EXPECT_TRUE(shell.window.isVisible);
    EXPECT_EQ(count("main window"), 1);
}

// --- The main window

TEST_F(AppDelegateSessionTest, theMainWindowHidesAtTheStartAndDoesNotComeBackByItself) {
    launchProgram();
    startSession();
    EXPECT_FALSE(shell.window.isVisible);
    EXPECT_THAT(log(), Contains("main window hidden"));
    controller().exitWaitOverride = 0;
    controller().beginEmergencyExit();
    controller().confirmEmergencyExit(reason);
    settle();
    ASSERT_FALSE(controller().isActive());
    EXPECT_FALSE(shell.window.isVisible);
}

TEST_F(AppDelegateSessionTest, aMainWindowThatIsClosedIsNotHiddenAgain) {
    launchProgram();
    shell.closeWindow();
    startSession();
    EXPECT_THAT(log(), Not(Contains("main window hidden")));
    EXPECT_THAT(shell.steps, Not(Contains("main window out")));
}

TEST_F(AppDelegateSessionTest, duringASessionItsUserCanOpenTheMainWindow) {
    launchProgram();
    startSession();
    choose(MenuAction::openMainFromMenu);
    advance(30);
    EXPECT_TRUE(shell.window.isVisible);
}

// --- The taskbar

TEST_F(AppDelegateSessionTest, duringASessionTheProgramHasNoEntryInTheTaskbar) {
    launchProgram();
    EXPECT_EQ(shell.policy, ActivationPolicy::regular);
    startSession();
    EXPECT_EQ(shell.policy, ActivationPolicy::accessory);
    controller().exitWaitOverride = 0;
    controller().beginEmergencyExit();
    controller().confirmEmergencyExit(reason);
    settle();
    EXPECT_EQ(shell.policy, ActivationPolicy::regular);
    auto lines = log();
    std::erase_if(lines, [](const auto& line) { return !line.starts_with("activation"); });
    EXPECT_THAT(lines, ElementsAre("activation regular", "activation accessory", "activation regular"));
}

TEST_F(AppDelegateSessionTest, timerWindowAndTaskbarFollowASessionInThisOrder) {
    launchProgram();
    shell.steps.clear();
    startSession();
    auto steps = shell.steps;
    std::erase_if(steps, [](const auto& step) {
        return step != "timer front" && step != "main window out" && step != "accessory" && step.find("log m") != 0;
    });
    EXPECT_THAT(steps, ElementsAre("timer front", "main window out", "log main window hidden", "accessory"));
}

// --- The status item

TEST_F(AppDelegateSessionTest, theStatusItemCountsTheSegmentDown) {
    launchProgram();
    EXPECT_EQ(shell.item.title, "");
    startSession();
    expectCountdown();
    const auto before = shell.item.title;
    advance(60);
    expectCountdown();
    EXPECT_NE(shell.item.title, before);
    EXPECT_EQ(shell.item.title.front(), ' ') << "keeps the text off the icon";
}

TEST_F(AppDelegateSessionTest, withTheFloatingTimerOffTheStatusItemStillCountsDown) {
    AppSettings settings;
    settings.showFloatingTimer = false;
    leaveSettings(settings);
    launchProgram();
    startSession();
    EXPECT_FALSE(shell.isTimerShown);
    const auto before = shell.item.title;
    advance(60);
    expectCountdown();
    EXPECT_NE(shell.item.title, before);
    EXPECT_FALSE(shell.isTimerShown);
}

TEST_F(AppDelegateSessionTest, theStatusItemIsEmptyAfterASession) {
    resume({work});
    EXPECT_NE(shell.item.title, "");
    advance(61);
    ASSERT_FALSE(controller().isActive());
    EXPECT_EQ(shell.item.title, "");
}

TEST_F(AppDelegateSessionTest, theStatusItemSpeaksTheLanguageOfTheSettingsAtOnce) {
    launchProgram();
    startSession();
    for (const auto language : {AppLanguage::english, AppLanguage::german, AppLanguage::persian}) {
        changeSettings([language](AppSettings& settings) { settings.language = language; });
        expectCountdown();
    }
}

// --- The floating timer

TEST_F(AppDelegateSessionTest, theFloatingTimerGoesWithTheSession) {
    resume({work});
    EXPECT_TRUE(shell.isTimerShown);
    advance(61);
    EXPECT_FALSE(shell.isTimerShown);
}

TEST_F(AppDelegateSessionTest, theTimersRowOutsideASessionShowsNoTimer) {
    launchProgram();
    choose(MenuAction::toggleFloatingTimer);
    choose(MenuAction::toggleFloatingTimer);
    EXPECT_FALSE(shell.isTimerShown);
}

// --- The overlay

TEST_F(AppDelegateSessionTest, theOverlaysWindowsStayThroughAllItsScreens) {
    resume({work, lockedRest, work});
    advance(3); // the first seconds count no attempt
    push();
    ASSERT_FALSE(shows<Overlay::None>(overlay()));
    EXPECT_TRUE(shell.isOverlayShown);
    EXPECT_EQ(count("overlay shown"), 1);
    controller().beginEmergencyExit();
    EXPECT_TRUE(shows<Overlay::EmergencyExit>(overlay()));
    EXPECT_TRUE(shell.isOverlayShown);
    EXPECT_EQ(count("overlay shown"), 1) << "the windows are kept";
    EXPECT_EQ(count("overlay hidden"), 0);
    controller().cancelEmergencyExit();
    settle();
    EXPECT_TRUE(shows<Overlay::None>(overlay()));
    EXPECT_FALSE(shell.isOverlayShown);
    EXPECT_EQ(count("overlay shown"), 1);
}

// --- The backdrop

TEST_F(AppDelegateSessionTest, theBackdropLeavesForAnOpenBreakAndReturnsWithWork) {
    resume({work, shortRest, work, longRest, work}, 55);
    EXPECT_TRUE(shell.backdrop->isVisible);
    EXPECT_EQ(count("backdrop fades in"), 1);
    advance(6);
    EXPECT_FALSE(shell.backdrop->isVisible);
    EXPECT_EQ(count("backdrop fades out"), 1);
    EXPECT_THAT(log(), Contains("backdrop hidden"));
    advance(60);
    EXPECT_TRUE(shell.backdrop->isVisible);
    advance(60);
    EXPECT_FALSE(shell.backdrop->isVisible) << "in a long break";
    EXPECT_EQ(count("backdrop fades in"), 2);
    EXPECT_EQ(count("backdrop fades out"), 2);
}

TEST_F(AppDelegateSessionTest, theBackdropStaysThroughALockedBreak) {
    resume({work, lockedRest, work}, 55);
    advance(70);
    EXPECT_TRUE(shell.backdrop->isVisible);
    EXPECT_EQ(count("backdrop fades in"), 1);
    EXPECT_EQ(count("backdrop fades out"), 0);
}

TEST_F(AppDelegateSessionTest, theBackdropGoesWithTheSession) {
    resume({work});
    advance(61);
    EXPECT_FALSE(shell.backdrop->isVisible);
    EXPECT_EQ(count("backdrop fades out"), 1);
}

TEST_F(AppDelegateSessionTest, theBackdropFollowsItsSettingWithTheNextTick) {
    resume({work, work});
    changeSettings([](AppSettings& settings) { settings.showQuoteBackdrop = false; });
    advance(1);
    EXPECT_FALSE(shell.backdrop->isVisible);
    changeSettings([](AppSettings& settings) { settings.showQuoteBackdrop = true; });
    advance(1);
    EXPECT_TRUE(shell.backdrop->isVisible);
}

TEST_F(AppDelegateSessionTest, withoutASessionThereIsNoBackdrop) {
    launchProgram();
    advance(10);
    EXPECT_FALSE(shell.backdrop->isVisible);
    EXPECT_THAT(shell.steps, Not(Contains("backdrop fades in")));
}

// --- The thought in between

TEST_F(AppDelegateSessionTest, theHotKeyOpensTheQuickThoughtWhereNoOverlayIs) {
    launchProgram();
    shell.hotKey();
    EXPECT_EQ(shell.thoughtsShown, 1);
    startSession();
    shell.hotKey();
    EXPECT_EQ(shell.thoughtsShown, 2);
}

TEST_F(AppDelegateSessionTest, theHotKeyOpensNothingUnderAnyOverlay) {
    launchProgram();
    const OverlayState states[]{Overlay::Warning{}, Overlay::EmergencyExit{}, Overlay::Finished{},
                                Overlay::LockedBreak{}, Overlay::BackToWork{}};
    for (const auto& state : states) {
        controller().setOverlay(state);
        shell.hotKey();
        EXPECT_EQ(shell.thoughtsShown, 0) << name(state);
    }
    controller().setOverlay(Overlay::None{});
    shell.hotKey();
    EXPECT_EQ(shell.thoughtsShown, 1);
}

TEST_F(AppDelegateSessionTest, screensOpenTheQuickThoughtAndNameItsKeys) {
    launchProgram();
    shell.context->writeThought();
    EXPECT_EQ(shell.thoughtsShown, 1);
    EXPECT_EQ(shell.context->thoughtKeys(AppLanguage::english), "Ctrl+Alt+T");
}

// --- The phone

TEST_F(AppDelegateSessionTest, aSessionLocksThePhoneWhereThatIsWanted) {
    AppSettings settings;
    settings.lockPhoneToo = true;
    leaveSettings(settings);
    leavePairing();
    launchProgram();
    startSession();
    advance(1);
    EXPECT_THAT(sentToPhone(), Contains("start"));
}

TEST_F(AppDelegateSessionTest, aPhoneThatShallNotBeLockedHearsNothingOfTheStart) {
    leavePairing();
    launchProgram();
    startSession();
    advance(1);
    EXPECT_THAT(sentToPhone(), Not(Contains("start")));
}

TEST_F(AppDelegateSessionTest, thePhoneHearsOfTheEndWhateverTheSettingSays) {
    AppSettings settings;
    settings.lockPhoneToo = true;
    leaveSettings(settings);
    leavePairing();
    launchProgram();
    startSession();
    changeSettings([](AppSettings& changed) { changed.lockPhoneToo = false; });
    controller().exitWaitOverride = 0;
    controller().beginEmergencyExit();
    controller().confirmEmergencyExit(reason);
    advance(1);
    EXPECT_THAT(sentToPhone(), Contains("end"));
}

// --- Its end

TEST_F(AppDelegateSessionTest, whatIsCalledAfterItsEndDoesNothing) {
    launchProgram();
    const auto calls = shell.item.calls;
    const auto hotKey = shell.hotKey;
    const auto writeThought = shell.context->writeThought;
    killProgram();
    calls.pressed();
    calls.chosen(MenuAction::quitFromMenu);
    hotKey();
    writeThought();
    application().announcePowerOff();
    EXPECT_THAT(shell.steps, IsEmpty());
    EXPECT_FALSE(hasEnded());
}

} // namespace
} // namespace velmorin
