#include "app/engine/Lifecycle.h"

#include "tests/support/EngineTest.h"

#include <memory>

namespace velmorin {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

using Start = Lifecycle::Start;
using QuitAnswer = Lifecycle::QuitAnswer;
using Arguments = std::vector<std::string>;

TEST(LaunchOptionsTest, theWatchdogsArgumentCountsInAnyPosition) {
    EXPECT_TRUE(LaunchOptions::parse(Arguments{"--watchdog"}).launchedByWatchdog);
    EXPECT_TRUE(LaunchOptions::parse(Arguments{"/usr/bin/Velmorin", "--watchdog"}).launchedByWatchdog);
    EXPECT_TRUE(LaunchOptions::parse(Arguments{"--watchdog", "a", "b"}).launchedByWatchdog);
    EXPECT_TRUE(LaunchOptions::parse(Arguments{"a", "--watchdog", "b"}).launchedByWatchdog);
    EXPECT_TRUE(LaunchOptions::parse(Arguments{"a", "--", "--watchdog", "--watchdog"}).launchedByWatchdog);
}

TEST(LaunchOptionsTest, nothingButTheExactArgumentCounts) {
    for (const char* argument : {"--Watchdog", "--WATCHDOG", "-watchdog", "watchdog", "--watchdog=1", "--watchdogs",
                                 " --watchdog", "--watchdog ", "--watch", ""}) {
        EXPECT_FALSE(LaunchOptions::parse(Arguments{argument}).launchedByWatchdog) << argument;
    }
}

TEST(LaunchOptionsTest, otherArgumentsAreIgnored) {
    EXPECT_EQ(LaunchOptions::parse({}), LaunchOptions{});
    EXPECT_EQ(LaunchOptions::parse(Arguments{"Velmorin", "--help", "--home", "/tmp", "--homeDirectory=/tmp", "-x"}),
              LaunchOptions{});
    EXPECT_FALSE(LaunchOptions::parse(Arguments{"--watchdog", "/tmp"}).homeDirectory);
}

/// A process of the program that answers only when it is asked.
struct Process {
    Process(SimulatedDesktop& desktop, const ProgramSetup& setup, LaunchedBy by, std::int32_t pid)
        : program{desktop, setup, {}, pid},
          application{pid, setup.bundleID},
          lifecycle{{by == LaunchedBy::watchdog, {}}, program.controller(), desktop.workspace, application} {
        desktop.workspace.add({pid, setup.bundleID, std::nullopt, ActivationPolicy::accessory});
        lifecycle.observePowerOff();
    }
    /// Goes through the launch, as far as it is decided here.
    Start launch() {
        if (lifecycle.isAnotherInstanceRunning()) return Start::quit;
        lifecycle.resume();
        return lifecycle.start();
    }

    SimulatedProgram program;
    SimulatedApplication application;
    Lifecycle lifecycle;
};

class LifecycleTest : public EngineTest {
protected:
    static constexpr std::int32_t ownPID = SimulatedWorkspace::firstOwnPID + 500;

    Process& process(LaunchedBy by) {
        m_process = std::make_unique<Process>(desktop(), setup, by, ownPID);
        return *m_process;
    }
    Lifecycle& lifecycle() { return m_process->lifecycle; }
    SessionController& ownController() { return m_process->program.controller(); }
    /// A session that runs, and then the process dies.
    void loseSession() {
        startSession(profile(SessionMode::pomodoro));
        m_plannedEnd = session().plannedEnd();
        crash();
        forgetEvents();
    }
    /// Waits until this many seconds after the end of the plan.
    void waitForEnd(double after) { advance(m_plannedEnd - now() + after); }
    bool isGuarded() { return desktop().serviceManager.job.has_value(); }
    bool hasSessionFile() const { return file(SessionController::sessionFile).has_value(); }

    std::unique_ptr<Process> m_process;

private:
    Date m_plannedEnd;
};

TEST_F(LifecycleTest, aStartByTheUserShowsTheMainWindow) {
    EXPECT_EQ(process(LaunchedBy::user).launch(), Start::showMainWindow);
}

TEST_F(LifecycleTest, aStartByTheUserWithASessionToResumeShowsTheMainWindowToo) {
    loseSession();
    EXPECT_EQ(process(LaunchedBy::user).launch(), Start::showMainWindow);
    EXPECT_TRUE(ownController().isActive());
}

TEST_F(LifecycleTest, aStartByTheUserAfterTheEndOfThePlanShowsTheMainWindowToo) {
    loseSession();
    waitForEnd(1000);
    EXPECT_EQ(process(LaunchedBy::user).launch(), Start::showMainWindow);
    EXPECT_FALSE(ownController().isActive());
}

TEST_F(LifecycleTest, aStartByTheWatchdogThatResumesASessionStaysBehind) {
    loseSession();
    EXPECT_EQ(process(LaunchedBy::watchdog).launch(), Start::stayBehind);
    EXPECT_TRUE(ownController().isActive());
    EXPECT_TRUE(isGuarded());
    EXPECT_THAT(log(), ElementsAre("segment 0 work", "session resumed"));
}

TEST_F(LifecycleTest, aStartByTheWatchdogWithoutASessionRemovesTheAgentAndQuits) {
    desktop().serviceManager.job = Arguments{"--watchdog"};
    EXPECT_EQ(process(LaunchedBy::watchdog).launch(), Start::quit);
    EXPECT_FALSE(isGuarded());
}

TEST_F(LifecycleTest, aStartByTheWatchdogWithADamagedSessionRemovesItAndQuits) {
    loseSession();
    writeFile(SessionController::sessionFile, "{damaged");
    EXPECT_EQ(process(LaunchedBy::watchdog).launch(), Start::quit);
    EXPECT_FALSE(isGuarded());
    EXPECT_FALSE(hasSessionFile());
    EXPECT_FALSE(file(AppData::historyFile)) << "there is nothing to make a record of";
}

TEST_F(LifecycleTest, aStartByTheWatchdogSoonAfterTheEndStaysForTheSummary) {
    loseSession();
    waitForEnd(299);
    EXPECT_EQ(process(LaunchedBy::watchdog).launch(), Start::stayBehind);
    EXPECT_TRUE(shows<Overlay::Finished>(*ownController().overlay()));
    EXPECT_FALSE(isGuarded());
    EXPECT_FALSE(hasSessionFile());
    EXPECT_EQ(lifecycle().answerToQuit(), QuitAnswer::quit) << "until the user quits it";
}

TEST_F(LifecycleTest, aStartByTheWatchdogLongAfterTheEndWritesTheRecordAndQuits) {
    loseSession();
    waitForEnd(300);
    EXPECT_EQ(process(LaunchedBy::watchdog).launch(), Start::quit);
    EXPECT_TRUE(shows<Overlay::None>(*ownController().overlay()));
    const auto history = stored<std::vector<SessionRecord>>(AppData::historyFile);
    ASSERT_TRUE(history);
    ASSERT_THAT(*history, SizeIs(1));
    EXPECT_EQ(history->front().outcome, SessionOutcome::completed);
    EXPECT_FALSE(isGuarded());
    EXPECT_FALSE(hasSessionFile());
}

TEST_F(LifecycleTest, anInstanceThatFindsAnotherQuitsAndTouchesNothing) {
    loseSession();
    const auto before = files.contents;
    desktop().workspace.add({ownPID + 1, setup.bundleID, std::nullopt, ActivationPolicy::accessory});
    for (const auto by : {LaunchedBy::user, LaunchedBy::watchdog}) {
        EXPECT_EQ(process(by).launch(), Start::quit);
        EXPECT_FALSE(ownController().isActive());
        EXPECT_EQ(lifecycle().answerToQuit(), QuitAnswer::quit);
    }
    EXPECT_EQ(files.contents, before);
    EXPECT_TRUE(isGuarded());
    EXPECT_THAT(eventNames(), IsEmpty());
}

TEST_F(LifecycleTest, onlyAnotherProcessOfTheOwnIdentifierIsAnotherInstance) {
    auto& own = process(LaunchedBy::user);
    EXPECT_FALSE(own.lifecycle.isAnotherInstanceRunning()) << "it finds itself";
    addApplication(game, "com.kestrava.velmorin.other", "Velmorin");
    EXPECT_FALSE(own.lifecycle.isAnotherInstanceRunning()) << "a name is no identifier";
    desktop().workspace.add({ownPID + 1, setup.bundleID, std::nullopt, ActivationPolicy::accessory});
    EXPECT_TRUE(own.lifecycle.isAnotherInstanceRunning());
    desktop().workspace.quit(ownPID + 1);
    EXPECT_FALSE(own.lifecycle.isAnotherInstanceRunning());
}

TEST_F(LifecycleTest, aProgramWithoutAnIdentifierSeesNoOther) {
    setup.bundleID.reset();
    auto& own = process(LaunchedBy::user);
    desktop().workspace.add({ownPID + 1, std::nullopt, "Velmorin", ActivationPolicy::accessory});
    EXPECT_FALSE(own.lifecycle.isAnotherInstanceRunning());
    EXPECT_EQ(own.launch(), Start::showMainWindow);
}

TEST_F(LifecycleTest, twoThatFindEachOtherBothQuitAndTheWatchdogBringsOneBack) {
    loseSession();
    {
        Process one{desktop(), setup, LaunchedBy::watchdog, ownPID};
        Process other{desktop(), setup, LaunchedBy::watchdog, ownPID + 1};
        EXPECT_EQ(one.launch(), Start::quit);
        EXPECT_EQ(other.launch(), Start::quit);
    }
    desktop().workspace.quit(ownPID);
    desktop().workspace.quit(ownPID + 1);
    EXPECT_TRUE(isGuarded());
    EXPECT_TRUE(hasSessionFile());
    relaunch();
    EXPECT_TRUE(controller().isActive());
}

TEST_F(LifecycleTest, aRequestToQuitWithoutASessionIsGranted) {
    process(LaunchedBy::user);
    EXPECT_EQ(lifecycle().answerToQuit(), QuitAnswer::quit);
    (void)m_process->launch();
    EXPECT_EQ(lifecycle().answerToQuit(), QuitAnswer::quit);
}

TEST_F(LifecycleTest, aRequestToQuitDuringASessionBringsUpTheMainWindowInstead) {
    process(LaunchedBy::user);
    (void)m_process->launch();
    ownController().start(profile(SessionMode::deep), "");
    EXPECT_EQ(lifecycle().answerToQuit(), QuitAnswer::stayAndShowMainWindow);
    advance(60);
    EXPECT_EQ(lifecycle().answerToQuit(), QuitAnswer::stayAndShowMainWindow);
    EXPECT_TRUE(hasSessionFile());
    EXPECT_TRUE(isGuarded());
}

TEST_F(LifecycleTest, theEndOfTheSystemIsGrantedDuringASession) {
    auto& own = process(LaunchedBy::user);
    (void)m_process->launch();
    ownController().start(profile(SessionMode::deep), "");
    own.application.announcePowerOff();
    EXPECT_EQ(lifecycle().answerToQuit(), QuitAnswer::quit);
    EXPECT_TRUE(ownController().isActive()) << "nothing ends it";
    EXPECT_TRUE(hasSessionFile());
}

TEST_F(LifecycleTest, anAnnouncedEndOfTheSystemIsNeverTakenBack) {
    auto& own = process(LaunchedBy::user);
    own.application.announcePowerOff();
    (void)m_process->launch();
    advance(3600);
    ownController().start(profile(SessionMode::deep), "");
    EXPECT_EQ(lifecycle().answerToQuit(), QuitAnswer::quit);
}

} // namespace
} // namespace velmorin
