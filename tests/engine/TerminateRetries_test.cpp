#include "tests/engine/EnforcementTest.h"

namespace velmorin {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class TerminateRetriesTest : public EnforcementTest {
protected:
    static constexpr const char* newID = "org.example.new";

    /// Starts an application that ignores every request, behind the front, where no activation adds to the ticks.
    std::int32_t startStubborn(std::string_view bundleID = newID) { return start(bundleID, QuitManners::never, false); }
};

TEST_F(TerminateRetriesTest, anApplicationThatIgnoresItsRequestsGoesThroughTheTableRowByRow) {
    startWithEditorAndGame();
    const std::int32_t pid = startStubborn();
    EXPECT_EQ(retries(pid), 0);
    EXPECT_FALSE(isHidden(pid));
    EXPECT_EQ(times("terminate", pid), 1U);
    struct Row {
        std::optional<std::int64_t> retries;
        bool isHidden;
        std::size_t requests;
        std::size_t givenUp;
    };
    const Row rows[]{
        {1, false, 2, 0}, {2, false, 3, 0},           {3, false, 4, 0},           {4, true, 5, 0},
        {5, true, 6, 0},  {std::nullopt, true, 6, 1}, {std::nullopt, true, 6, 1}, {std::nullopt, true, 6, 1},
    };
    for (int tick = 1; const auto& row : rows) {
        SCOPED_TRACE("tick " + std::to_string(tick++));
        advance(1);
        EXPECT_EQ(retries(pid), row.retries);
        EXPECT_EQ(isHidden(pid), row.isHidden);
        EXPECT_EQ(times("terminate", pid), row.requests);
        EXPECT_EQ(logged("would not quit, kept hidden: org.example.new"), row.givenUp);
    }
    EXPECT_TRUE(isRunning(pid));
    EXPECT_EQ(times("hide", pid), 1U);
    EXPECT_EQ(attempts(), 1); // the launch, and nothing of what followed
}

TEST_F(TerminateRetriesTest, whatIsLaunchedInALockedStretchCountsIsAskedToQuitAndStaysVisibleUntilTheFourthTick) {
    startWithEditorAndGame();
    const std::int32_t pid = startStubborn();
    EXPECT_EQ(attempts(), 1);
    ASSERT_TRUE(warning());
    EXPECT_EQ(warning()->target, "Newcomer");
    EXPECT_EQ(times("terminate", pid), 1U);
    advance(3.5);
    EXPECT_FALSE(isHidden(pid));
    advance(0.5);
    EXPECT_TRUE(isHidden(pid));
}

TEST_F(TerminateRetriesTest, theActivationThatComesWithALaunchAddsOneRequest) {
    startWithEditorAndGame();
    const std::int32_t pid = start(newID, QuitManners::never, true);
    EXPECT_EQ(retries(pid), 1);
    EXPECT_EQ(times("terminate", pid), 2U);
    EXPECT_FALSE(isHidden(pid));
    advance(2);
    EXPECT_EQ(retries(pid), 3);
    EXPECT_FALSE(isHidden(pid));
    advance(1); // so it is hidden one tick earlier
    EXPECT_TRUE(isHidden(pid));
    advance(10);
    EXPECT_EQ(times("terminate", pid), 6U);
    EXPECT_EQ(attempts(), 1);
}

TEST_F(TerminateRetriesTest, anotherApplicationsActivationAddsOneToEveryApplicationThatIsAsked) {
    startWithEditorAndGame();
    const std::int32_t pid = startStubborn();
    push();
    push();
    EXPECT_EQ(retries(pid), 2);
    EXPECT_EQ(times("terminate", pid), 3U);
    activate(editor); // no pass for an allowed one
    EXPECT_EQ(retries(pid), 2);
}

TEST_F(TerminateRetriesTest, aBrowsersRefusalAddsOneToo) {
    addEditorAndGame();
    addBrowser(chromeKind);
    startSession(profile(SessionMode::pomodoro, {chromeID}));
    answer(chromeKind, Denied{}, 0.1);
    const std::int32_t pid = startStubborn();
    advance(2);
    EXPECT_EQ(retries(pid), 2);
    advance(0.1);
    EXPECT_EQ(retries(pid), 3);
}

TEST_F(TerminateRetriesTest, anApplicationThatObeysGoesAfterTheFirstRequest) {
    startWithEditorAndGame();
    const std::int32_t pid = start(newID, QuitManners::politely, false);
    EXPECT_TRUE(isRunning(pid));
    advance(0.5);
    EXPECT_FALSE(isRunning(pid));
    advance(10);
    EXPECT_EQ(times("terminate", pid), 1U);
    EXPECT_EQ(times("hide", pid), 0U);
    EXPECT_THAT(log(), ElementsAre("blocked launch org.example.new", "attempt 1 target=Newcomer pause=5"));
}

TEST_F(TerminateRetriesTest, eachApplicationHasItsOwnCount) {
    startWithEditorAndGame();
    const std::int32_t first = startStubborn("org.example.first");
    advance(2);
    const std::int32_t second = startStubborn("org.example.second");
    EXPECT_EQ(retries(first), 2);
    EXPECT_EQ(retries(second), 0);
    advance(2);
    EXPECT_TRUE(isHidden(first));
    EXPECT_FALSE(isHidden(second));
    advance(2);
    EXPECT_EQ(retries(first), std::nullopt);
    EXPECT_EQ(retries(second), 4);
    EXPECT_TRUE(isHidden(second));
    advance(2);
    EXPECT_EQ(retries(second), std::nullopt);
    EXPECT_EQ(times("terminate", first), 6U);
    EXPECT_EQ(times("terminate", second), 6U);
}

TEST_F(TerminateRetriesTest, twoInstancesOfOneApplicationAreCountedApart) {
    startWithEditorAndGame();
    const std::int32_t first = startStubborn();
    advance(1);
    const std::int32_t second = startStubborn();
    advance(6);
    EXPECT_EQ(times("terminate", first), 6U);
    EXPECT_EQ(times("terminate", second), 6U);
    EXPECT_EQ(logged("would not quit, kept hidden: org.example.new"), 2U);
    EXPECT_THAT(session().hiddenBundleIDs, ElementsAre(gameID, newID));
}

TEST_F(TerminateRetriesTest, onceGivenUpItIsHiddenWheneverItShowsAndNeverAskedAgain) {
    startWithEditorAndGame();
    const std::int32_t pid = startStubborn();
    advance(6);
    ASSERT_EQ(retries(pid), std::nullopt);
    for (std::size_t again = 2; again < 6; ++again) {
        desktop().workspace.unhide(pid);
        advance(1);
        EXPECT_TRUE(isHidden(pid));
        EXPECT_EQ(times("hide", pid), again);
    }
    activate(pid);
    EXPECT_TRUE(isHidden(pid));
    EXPECT_EQ(times("terminate", pid), 6U);
    EXPECT_TRUE(isRunning(pid));
}

TEST_F(TerminateRetriesTest, aRunningApplicationThatIsShownAgainWhileItIsAskedIsHiddenOnlyFromTheFourthTickOn) {
    startWithEditorAndGame();
    const std::int32_t pid = startStubborn();
    activate(pid);
    EXPECT_FALSE(isHidden(pid));
    EXPECT_EQ(front(), pid);
    advance(2);
    EXPECT_FALSE(isHidden(pid));
    advance(1);
    EXPECT_TRUE(isHidden(pid));
    EXPECT_EQ(front(), editor);
}

TEST_F(TerminateRetriesTest, whatHidItselfIsRememberedWhenItIsGivenUp) {
    startWithEditorAndGame();
    SimulatedApplicationInfo info{20, newID, "Newcomer", ActivationPolicy::regular, true, QuitManners::never};
    desktop().workspace.launch(info, false);
    advance(5);
    EXPECT_EQ(times("hide", 20), 0U);
    EXPECT_THAT(session().hiddenBundleIDs, ElementsAre(gameID));
    forgetEvents();
    advance(1);
    EXPECT_THAT(eventNames(), ElementsAre("log", "save"));
    EXPECT_THAT(session().hiddenBundleIDs, ElementsAre(gameID, newID));
}

TEST_F(TerminateRetriesTest, givingUpWritesNothingForWhatIsRememberedAlready) {
    startWithEditorAndGame();
    startStubborn();
    advance(5);
    ASSERT_THAT(session().hiddenBundleIDs, ElementsAre(gameID, newID)); // hidden on the fourth tick
    forgetEvents();
    advance(1);
    EXPECT_THAT(eventNames(), ElementsAre("log"));
    EXPECT_THAT(session().hiddenBundleIDs, ElementsAre(gameID, newID));
}

TEST_F(TerminateRetriesTest, withoutAnIdentifierItIsGivenUpAsUnknownAndNotRemembered) {
    startWithEditorAndGame();
    SimulatedApplicationInfo info{20, std::nullopt, "Tool", ActivationPolicy::regular, false, QuitManners::never};
    desktop().workspace.launch(info, false);
    advance(6);
    EXPECT_TRUE(isHidden(20));
    EXPECT_EQ(logged("would not quit, kept hidden: unknown"), 1U);
    EXPECT_THAT(session().hiddenBundleIDs, ElementsAre(gameID));
}

TEST_F(TerminateRetriesTest, withNobodyInFrontNoRequestIsRepeated) {
    startWithEditorAndGame();
    desktop().workspace.leaveFront();
    const std::int32_t pid = startStubborn();
    EXPECT_EQ(times("terminate", pid), 1U); // the launch itself is answered
    advance(5);
    EXPECT_EQ(retries(pid), 0);
    EXPECT_EQ(times("terminate", pid), 1U);
}

TEST_F(TerminateRetriesTest, theEntryOfAProcessThatDidQuitStaysUntilTheSessionEnds) {
    startWithEditorAndGame();
    const std::int32_t pid = start(newID, QuitManners::politely, false);
    advance(60);
    ASSERT_FALSE(isRunning(pid));
    EXPECT_EQ(retries(pid), 0);
    endSession();
    EXPECT_THAT(controller().terminateRetries(), IsEmpty());
}

TEST_F(TerminateRetriesTest, anOpenBreakStopsTheCountAndWorkTakesItUpAgain) {
    startWithEditorAndGame();
    advance(25 * 60 - 3 - 2.5);
    const std::int32_t pid = startStubborn();
    advance(2); // two ticks of work are left
    ASSERT_EQ(retries(pid), 2);
    advance(5 * 60);
    EXPECT_EQ(retries(pid), 2);
    EXPECT_EQ(times("terminate", pid), 3U);
    advance(0.5);
    EXPECT_EQ(retries(pid), 3);
    advance(1);
    EXPECT_TRUE(isHidden(pid));
}

TEST_F(TerminateRetriesTest, whatStartedInAnOpenBreakHasNoEntry) {
    startWithEditorAndGame();
    advance(25 * 60);
    const std::int32_t pid = startStubborn();
    EXPECT_EQ(retries(pid), std::nullopt);
    advance(6 * 60);
    EXPECT_TRUE(isHidden(pid));
    EXPECT_EQ(times("terminate", pid), 0U);
}

TEST_F(TerminateRetriesTest, aResumedSessionHidesWhatTheLastProcessAskedToQuit) {
    startWithEditorAndGame();
    const std::int32_t pid = startStubborn();
    crash();
    forgetEvents();
    relaunch();
    EXPECT_TRUE(isHidden(pid));
    advance(10);
    EXPECT_EQ(times("terminate", pid), 0U);
    EXPECT_THAT(session().hiddenBundleIDs, Contains(newID));
}

TEST_F(TerminateRetriesTest, theNextSessionOnlyHidesWhatTheLastOneAskedToQuit) {
    startWithEditorAndGame();
    const std::int32_t pid = startStubborn();
    advance(2);
    endSession();
    forgetEvents();
    startSession(profile(SessionMode::pomodoro));
    EXPECT_TRUE(isHidden(pid));
    EXPECT_EQ(times("terminate", pid), 0U);
    EXPECT_EQ(attempts(), 0);
}

} // namespace
} // namespace velmorin
