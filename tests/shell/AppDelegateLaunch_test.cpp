#include "tests/shell/AppDelegateTest.h"

namespace velmorin {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

class AppDelegateLaunchTest : public AppDelegateTest {};

TEST_F(AppDelegateLaunchTest, aFirstStartMakesEverythingInItsOrderAndShowsTheMainWindow) {
    launchProgram();
    EXPECT_THAT(shell.steps, ElementsAre("appearance dark", "main menu", "status item", "overlay windows",
                                         "quick thought", "backdrop windows", "floating timer", "hot key", "timer out",
                                         "regular", "log activation regular", "main window", "main window shown"));
    EXPECT_FALSE(hasEnded());
}

TEST_F(AppDelegateLaunchTest, aSessionIsTakenUpBetweenTheCallbacksAndTheMainWindow) {
    addEditorAndGame();
    leavePairing();
    leaveSession({work, shortRest}, 10);
    launchProgram();
    EXPECT_THAT(shell.steps, ElementsAre("appearance dark", "main menu", "status item", "overlay windows",
                                         "quick thought", "backdrop windows", "floating timer", "hot key",
                                         // What comes up with a session, and its first tick.
                                         "timer front", "log segment 0 work", "log hid org.example.game",
                                         "backdrop fades in", "log session resumed",
                                         // The end of the launch; the relay answers in its own time.
                                         "timer front", "main window", "main window shown", "listen"));
    EXPECT_EQ(shell.policy, ActivationPolicy::accessory);
}

TEST_F(AppDelegateLaunchTest, aWatchdogStartWithoutASessionEndsAtOnce) {
    desktop().serviceManager.job = {"--watchdog"};
    launchProgram(LaunchedBy::watchdog);
    EXPECT_TRUE(hasEnded());
    EXPECT_THAT(shell.steps, Not(Contains("main window")));
    EXPECT_EQ(shell.policy, ActivationPolicy::accessory);
    EXPECT_FALSE(desktop().serviceManager.job);
}

TEST_F(AppDelegateLaunchTest, aWatchdogStartWithASessionResumesItWithoutMainWindowAndTaskbarEntry) {
    leaveSession({work}, 10);
    launchProgram(LaunchedBy::watchdog);
    EXPECT_FALSE(hasEnded());
    EXPECT_TRUE(controller().isActive());
    EXPECT_THAT(shell.steps, Not(Contains("main window")));
    EXPECT_EQ(shell.policy, ActivationPolicy::accessory);
    EXPECT_TRUE(shell.isTimerShown);
    advance(120);
    EXPECT_FALSE(controller().isActive());
    EXPECT_EQ(shell.policy, ActivationPolicy::accessory) << "for the life of the process";
    EXPECT_THAT(shell.steps, Not(Contains("main window")));
}

TEST_F(AppDelegateLaunchTest, aWatchdogStartSoonAfterTheEndStaysForTheSummary) {
    leaveSession({work}, 60 + 299);
    launchProgram(LaunchedBy::watchdog);
    EXPECT_FALSE(hasEnded());
    EXPECT_TRUE(shows<Overlay::Finished>(overlay()));
    EXPECT_TRUE(shell.isOverlayShown);
    EXPECT_THAT(shell.steps, Not(Contains("main window")));
}

TEST_F(AppDelegateLaunchTest, aWatchdogStartLongAfterTheEndWritesTheRecordAndEnds) {
    leaveSession({work}, 60 + 300);
    launchProgram(LaunchedBy::watchdog);
    EXPECT_TRUE(hasEnded());
    EXPECT_THAT(*data().history(), ::testing::SizeIs(1));
}

TEST_F(AppDelegateLaunchTest, aSecondInstanceEndsBeforeAnythingIsMade) {
    leaveSession({work}, 10);
    const auto before = files.contents;
    desktop().workspace.add({ownPID + 1, setup.bundleID, std::nullopt, ActivationPolicy::accessory});
    launchProgram();
    EXPECT_TRUE(hasEnded());
    EXPECT_THAT(shell.steps, ElementsAre("appearance dark"));
    EXPECT_EQ(files.contents, before);
    // Nothing of it is asked for afterwards.
    program().applicationShouldHandleReopen();
    EXPECT_THAT(shell.steps, ElementsAre("appearance dark"));
}

TEST_F(AppDelegateLaunchTest, theStoredLanguageAndThemeHoldFromTheFirstMoment) {
    AppSettings settings;
    settings.language = AppLanguage::german;
    settings.colorTheme = ColorTheme::dawn;
    leaveSettings(settings);
    launchProgram();
    EXPECT_EQ(shell.appearance, DesktopShell::Appearance::light);
    EXPECT_EQ(shell.steps.front(), "appearance light");
    EXPECT_EQ(shell.mainMenu[1].title, AppStrings::german.menuEdit);
    EXPECT_EQ(shell.window.title, AppStrings::german.appName);
}

TEST_F(AppDelegateLaunchTest, theStoreIsInTheUsualPlaceUnlessTheOptionsNameAnother) {
    launchProgram();
    EXPECT_EQ(data().store().directory(), setup.directory);
    killProgram();
    options.homeDirectory = "/elsewhere";
    launchProgram();
    EXPECT_EQ(data().store().directory(), "/elsewhere");
}

TEST_F(AppDelegateLaunchTest, aPairedPhoneIsListenedTo) {
    leavePairing();
    launchProgram();
    EXPECT_EQ(desktop().relay.streamCount(), 1U);
}

TEST_F(AppDelegateLaunchTest, withoutAPhoneNobodyIsListenedTo) {
    launchProgram();
    EXPECT_EQ(desktop().relay.streamCount(), 0U);
}

TEST_F(AppDelegateLaunchTest, withoutAQuickThoughtPanelThereIsNoHotKey) {
    shell.hasQuickThought = false;
    shell.hasFloatingTimer = false;
    launchProgram();
    EXPECT_FALSE(shell.hotKey);
    EXPECT_FALSE(shell.context->writeThought);
    EXPECT_FALSE(shell.context->thoughtKeys);
    startSession();
    advance(5);
    EXPECT_EQ(shell.item.title.front(), ' ');
}

TEST_F(AppDelegateLaunchTest, beforeItsLaunchAProgramMayEnd) {
    launchProgram();
    FakeShell other;
    SimulatedApplication unlaunched{ownPID + 2, setup.bundleID};
    Appearance appearance;
    auto& machine = desktop();
    AppDelegate waiting{{},
                        {setup.directory,
                         machine.disk,
                         {machine.time, machine.time, machine.random, machine.relay, appearance},
                         {machine.time, machine.time, machine.random, machine.workspace, unlaunched, machine.sounds,
                          machine.shortcuts, machine.serviceManager, machine.browsers, appearance, ""},
                         machine.installedApplications,
                         *Calendar::inTimeZone("UTC"),
                         {}},
                        other};
    EXPECT_EQ(waiting.applicationShouldTerminate(), AppDelegate::TerminateReply::now);
    EXPECT_THAT(other.steps, IsEmpty());
}

} // namespace
} // namespace velmorin
