#include "tests/contracts/TimeContract.h"

#include <gmock/gmock.h>
#include <string>
#include <thread>
#include <vector>

namespace velmorin {
namespace {

using ::testing::ElementsAre;

TEST_P(TimeContract, aTimerCallsOnce) {
    int calls = 0;
    const auto timer = timers().after(0.02, counting(calls));
    EXPECT_TRUE(bench().eventually([&] { return calls == 1; }));
    bench().wait(0.2);
    EXPECT_EQ(calls, 1);
}

TEST_P(TimeContract, aTimerDoesNotCallBeforeItsTime) {
    int calls = 0;
    const Date start = bench().clock().now();
    const auto timer = timers().after(0.2, counting(calls));
    bench().settle();
    EXPECT_EQ(calls, 0);
    EXPECT_TRUE(bench().eventually([&] { return calls > 0; }));
    // The wall clock and that of the timers may differ by a hair.
    EXPECT_GE(bench().clock().now() - start, 0.19);
}

TEST_P(TimeContract, noTimerCallsFromWithinTheOperationThatAsksForIt) {
    int calls = 0;
    const auto now = timers().after(0, counting(calls));
    const auto overdue = timers().after(-1, counting(calls));
    const auto repeating = timers().every(0.02, counting(calls));
    EXPECT_EQ(calls, 0);
    EXPECT_TRUE(bench().eventually([&] { return calls >= 3; }));
}

TEST_P(TimeContract, zeroAndLessMeanAsSoonAsThePresentWorkIsDone) {
    int calls = 0;
    const auto zero = timers().after(0, counting(calls));
    const auto less = timers().after(-3, counting(calls));
    bench().settle();
    EXPECT_EQ(calls, 2);
}

TEST_P(TimeContract, callsComeInTheOrderOfTheirDeadlines) {
    std::vector<std::string> calls;
    const auto late = timers().after(0.3, [&] { calls.emplace_back("late"); });
    const auto early = timers().after(0.1, [&] { calls.emplace_back("early"); });
    const auto now = timers().after(0, [&] { calls.emplace_back("now"); });
    EXPECT_TRUE(bench().eventually([&] { return calls.size() == 3; }));
    EXPECT_THAT(calls, ElementsAre("now", "early", "late"));
}

TEST_P(TimeContract, aRepeatingTimerCallsAgainAndAgain) {
    int calls = 0;
    const auto timer = timers().every(0.05, counting(calls));
    bench().settle();
    EXPECT_EQ(calls, 0);
    EXPECT_TRUE(bench().eventually([&] { return calls >= 4; }));
}

TEST_P(TimeContract, aRepeatingTimerKeepsItsPeriod) {
    int calls = 0;
    const auto timer = timers().every(0.1, counting(calls));
    const Date start = bench().clock().now();
    EXPECT_TRUE(bench().eventually([&] { return calls >= 5; }));
    EXPECT_GE(bench().clock().now() - start, 0.45);
}

TEST_P(TimeContract, aPeriodThatWasMissedIsNotMadeUpFor) {
    int calls = 0;
    const auto timer = timers().every(0.2, counting(calls));
    bench().stall(1.1);
    bench().settle();
    EXPECT_EQ(calls, 1);
    EXPECT_TRUE(bench().eventually([&] { return calls >= 2; }));
}

TEST_P(TimeContract, whatIsOverdueAfterAStandstillCallsAtOnceInTheOrderOfItsDeadlines) {
    std::vector<std::string> calls;
    const auto late = timers().after(0.2, [&] { calls.emplace_back("late"); });
    const auto early = timers().after(0.1, [&] { calls.emplace_back("early"); });
    bench().stall(0.4);
    bench().settle();
    EXPECT_THAT(calls, ElementsAre("early", "late"));
}

TEST_P(TimeContract, nothingCallsAnyMoreOnceItWasCancelled) {
    int calls = 0;
    auto now = timers().after(0, counting(calls));
    auto later = timers().after(0.05, counting(calls));
    auto repeating = timers().every(0.05, counting(calls));
    now.cancel();
    later.cancel();
    repeating.cancel();
    bench().wait(0.3);
    EXPECT_EQ(calls, 0);
}

TEST_P(TimeContract, aTimerThatIsOverdueCanStillBeCancelled) {
    int calls = 0;
    auto timer = timers().after(0.05, counting(calls));
    bench().stall(0.2);
    timer.cancel();
    bench().wait(0.2);
    EXPECT_EQ(calls, 0);
}

TEST_P(TimeContract, aTimerGoesWithWhatStandsForIt) {
    int calls = 0;
    {
        const auto scoped = timers().after(0.05, counting(calls));
        auto replaced = timers().every(0.05, counting(calls));
        replaced = Cancellable{};
    }
    bench().wait(0.3);
    EXPECT_EQ(calls, 0);
}

TEST_P(TimeContract, aDetachedTimerCallsAllTheSame) {
    int calls = 0;
    timers().after(0.05, counting(calls)).detach();
    EXPECT_TRUE(bench().eventually([&] { return calls == 1; }));
}

TEST_P(TimeContract, aRepeatingTimerMayCancelItselfFromWithinItsCall) {
    int calls = 0;
    Cancellable timer;
    timer = timers().every(0.05, [&] {
        if (++calls == 2) timer.cancel();
    });
    EXPECT_TRUE(bench().eventually([&] { return calls == 2; }));
    bench().wait(0.3);
    EXPECT_EQ(calls, 2);
}

TEST_P(TimeContract, aTimerMayCancelItselfWithinItsOnlyCall) {
    int calls = 0;
    Cancellable timer;
    timer = timers().after(0.05, [&] {
        ++calls;
        timer.cancel();
    });
    bench().wait(0.3);
    EXPECT_EQ(calls, 1);
}

TEST_P(TimeContract, aCallMayCancelAnotherTimerThatIsDue) {
    int calls = 0;
    Cancellable second;
    const auto first = timers().after(0.05, [&] { second.cancel(); });
    second = timers().after(0.06, counting(calls));
    bench().stall(0.2);
    bench().wait(0.2);
    EXPECT_EQ(calls, 0);
}

TEST_P(TimeContract, aCallMayAskForFurtherOnes) {
    std::vector<std::string> calls;
    Cancellable second;
    const auto first = timers().after(0.02, [&] {
        calls.emplace_back("first");
        second = timers().after(0, [&] { calls.emplace_back("second"); });
        calls.emplace_back("still first");
    });
    EXPECT_TRUE(bench().eventually([&] { return calls.size() == 3; }));
    EXPECT_THAT(calls, ElementsAre("first", "still first", "second"));
}

TEST_P(TimeContract, callsComeOnTheMainThread) {
    std::vector<std::thread::id> threads;
    const auto once = timers().after(0.02, [&] { threads.push_back(std::this_thread::get_id()); });
    const auto again = timers().every(0.02, [&] { threads.push_back(std::this_thread::get_id()); });
    EXPECT_TRUE(bench().eventually([&] { return threads.size() >= 4; }));
    EXPECT_THAT(threads, ::testing::Each(std::this_thread::get_id()));
}

TEST_P(TimeContract, theClockGoesOn) {
    const Date start = bench().clock().now();
    bench().wait(0.2);
    EXPECT_GE(bench().clock().now() - start, 0.19);
}

TEST_P(TimeContract, theClockGoesOnWhileNothingIsCalled) {
    const Date start = bench().clock().now();
    bench().stall(0.2);
    EXPECT_GE(bench().clock().now() - start, 0.19);
}

TEST_P(TimeContract, settingTheClockMovesNoTimer) {
    int calls = 0;
    const auto timer = timers().after(10, counting(calls));
    const auto soon = timers().after(0.1, counting(calls));
    const Date start = bench().clock().now();
    if (!bench().setClock(-3600)) GTEST_SKIP() << "no test sets this clock";
    EXPECT_LT(bench().clock().now(), start);
    bench().setClock(7200);
    EXPECT_GT(bench().clock().now(), start + 3599);
    bench().settle();
    EXPECT_EQ(calls, 0);
    EXPECT_TRUE(bench().eventually([&] { return calls == 1; }));
}

} // namespace
} // namespace velmorin
