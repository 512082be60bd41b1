#include "tests/support/EngineTest.h"

namespace velmorin {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

/// What becomes of the session file and of the agent that guards the session, through all that can end a process.
class SessionLivesTest : public EngineTest {
protected:
    void startDeepSession() { startSession(profile(SessionMode::deep)); }
    bool isGuarded() { return desktop().serviceManager.job.has_value(); }
    bool hasSessionFile() const { return file(SessionController::sessionFile).has_value(); }
    std::vector<SessionRecord> records() const {
        return stored<std::vector<SessionRecord>>(AppData::historyFile).value_or(std::vector<SessionRecord>{});
    }
    bool isProgramRunning() { return scene().program() != nullptr; }
};

TEST_F(SessionLivesTest, theAgentComesWithTheSessionAndGoesWithIt) {
    launch();
    EXPECT_FALSE(isGuarded());
    EXPECT_FALSE(hasSessionFile());
    startDeepSession();
    EXPECT_TRUE(isGuarded());
    EXPECT_TRUE(hasSessionFile());
    advance(session().plannedEnd() - now());
    EXPECT_FALSE(controller().isActive());
    EXPECT_FALSE(isGuarded());
    EXPECT_FALSE(hasSessionFile());
    EXPECT_THAT(records(), SizeIs(1));
}

TEST_F(SessionLivesTest, theAgentStartsTheProgramWithItsArgumentAndTheExtraOnes) {
    setup.watchdogArguments = {"--one", "two words"};
    startDeepSession();
    EXPECT_EQ(desktop().serviceManager.job, (std::vector<std::string>{"--watchdog", "--one", "two words"}));
    crash();
    desktop().serviceManager.job.reset();
    relaunch();
    EXPECT_EQ(desktop().serviceManager.job, (std::vector<std::string>{"--watchdog", "--one", "two words"}))
        << "a resumed session is guarded anew";
}

TEST_F(SessionLivesTest, aKilledProcessLeavesBothAndTheNextOneResumes) {
    startDeepSession();
    const auto started = session();
    crash();
    EXPECT_TRUE(isGuarded());
    EXPECT_TRUE(hasSessionFile());
    EXPECT_THAT(records(), IsEmpty());
    advance(3);
    relaunch();
    ASSERT_TRUE(controller().isActive());
    EXPECT_EQ(session(), started);
    EXPECT_TRUE(isGuarded());
}

TEST_F(SessionLivesTest, timeThatWasLostIsNotMadeUpFor) {
    startDeepSession();
    const auto plan = session().segments;
    ASSERT_GT(plan.size(), 1U);
    const Date end = session().plannedEnd();
    crash();
    advance(plan[0].duration);
    relaunch();
    EXPECT_EQ((*controller().status())->segmentIndex, 1);
    EXPECT_EQ(session().plannedEnd(), end);
}

TEST_F(SessionLivesTest, aRequestToQuitDuringASessionLeavesBoth) {
    startDeepSession();
    forgetEvents();
    program().askToQuit();
    settle();
    EXPECT_TRUE(isProgramRunning());
    EXPECT_TRUE(isGuarded());
    EXPECT_TRUE(hasSessionFile());
    EXPECT_THAT(eventNames(), Not(Contains("terminateApplication")));
}

TEST_F(SessionLivesTest, anAnnouncementOfTheSystemsEndAloneEndsNothing) {
    startDeepSession();
    program().announcePowerOff();
    settle();
    EXPECT_TRUE(isProgramRunning());
    EXPECT_TRUE(controller().isActive());
}

TEST_F(SessionLivesTest, theEndOfTheSystemLeavesBothWithoutARecordAndTheNextLoginResumes) {
    startDeepSession();
    program().announcePowerOff();
    program().askToQuit();
    settle();
    EXPECT_FALSE(isProgramRunning());
    EXPECT_TRUE(isGuarded());
    EXPECT_TRUE(hasSessionFile());
    EXPECT_THAT(records(), IsEmpty());
    advance(60);
    relaunch();
    EXPECT_TRUE(controller().isActive());
    program().askToQuit();
    settle();
    EXPECT_TRUE(isProgramRunning()) << "another process has heard of no end";
}

TEST_F(SessionLivesTest, aSessionThatRanOutDuringTheEndOfTheSystemIsFinishedAtTheNextLogin) {
    startDeepSession();
    const double left = session().plannedEnd() - now();
    program().announcePowerOff();
    program().askToQuit();
    settle();
    advance(left + 3600);
    relaunch();
    EXPECT_FALSE(isProgramRunning()) << "there is nothing left to guard";
    ASSERT_THAT(records(), SizeIs(1));
    EXPECT_EQ(records()[0].outcome, SessionOutcome::completed);
    EXPECT_FALSE(isGuarded());
    EXPECT_FALSE(hasSessionFile());
}

TEST_F(SessionLivesTest, aLaunchWithoutASessionFileTakesTheAgentAway) {
    startDeepSession();
    crash();
    files.contents.erase(setup.directory / SessionController::sessionFile);
    relaunch();
    EXPECT_FALSE(isGuarded());
    EXPECT_FALSE(isProgramRunning());
}

TEST_F(SessionLivesTest, aLaunchWithADamagedSessionFileTakesBothAway) {
    startDeepSession();
    crash();
    writeFile(SessionController::sessionFile, "{}");
    launch();
    EXPECT_FALSE(isGuarded());
    EXPECT_FALSE(hasSessionFile());
    EXPECT_TRUE(isProgramRunning()) << "the user has started it";
    EXPECT_THAT(records(), IsEmpty());
}

TEST_F(SessionLivesTest, aSummaryOfASessionThatEndedMeanwhileStaysUntilTheUserQuits) {
    startDeepSession();
    const double left = session().plannedEnd() - now();
    crash();
    advance(left + 60);
    relaunch();
    ASSERT_TRUE(isProgramRunning());
    EXPECT_TRUE(shows<Overlay::Finished>(overlay()));
    advance(3600);
    EXPECT_TRUE(isProgramRunning());
    program().askToQuit();
    settle();
    EXPECT_FALSE(isProgramRunning());
}

TEST_F(SessionLivesTest, aSecondInstanceEndsAtOnceAndTheFirstGoesOn) {
    startDeepSession();
    const std::int32_t pid = program().pid();
    const auto before = files.contents;
    forgetEvents();
    launch();
    EXPECT_THAT(eventNames(), ElementsAre("terminateApplication"));
    EXPECT_EQ(files.contents, before);
    EXPECT_TRUE(isGuarded());
    EXPECT_EQ(program().pid(), pid);
    EXPECT_TRUE(controller().isActive());
    relaunch();
    EXPECT_EQ(program().pid(), pid) << "one that the watchdog starts is no better";
}

TEST_F(SessionLivesTest, aRequestToQuitAfterTheSessionIsGranted) {
    startDeepSession();
    advance(session().plannedEnd() - now());
    program().askToQuit();
    settle();
    EXPECT_FALSE(isProgramRunning());
}

} // namespace
} // namespace velmorin
