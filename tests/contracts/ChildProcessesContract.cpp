#include "tests/contracts/ChildProcessesContract.h"

#include <csignal>
#include <gmock/gmock.h>
#include <thread>

namespace velmorin {
namespace {

using ::testing::IsEmpty;
using ::testing::Not;

TEST_P(ChildProcessesContract, aProgramsResultComesOnce) {
    const auto program = bench().succeeding(1);
    Outcome outcome;
    run(program, longTimeout, outcome);
    EXPECT_TRUE(bench().eventually([&] { return outcome.calls == 1; }));
    EXPECT_EQ(outcome.result, program.result);
    EXPECT_EQ(outcome.result.code, 0);
    EXPECT_THAT(outcome.result.output, Not(IsEmpty()));
    bench().wait(0.3);
    EXPECT_EQ(outcome.calls, 1);
}

TEST_P(ChildProcessesContract, theResultNeverComesFromWithinTheCall) {
    Outcome started;
    Outcome notStarted;
    run(bench().succeeding(1), longTimeout, started);
    run(bench().missing(), longTimeout, notStarted);
    EXPECT_EQ(started.calls + notStarted.calls, 0);
    EXPECT_TRUE(bench().eventually([&] { return started.calls == 1 && notStarted.calls == 1; }));
}

TEST_P(ChildProcessesContract, theResultComesOnTheMainThread) {
    const auto program = bench().succeeding(1);
    std::optional<std::thread::id> thread;
    bench().childProcesses().run(program.executable, program.arguments, longTimeout,
                                 [&](const ScriptResult&) { thread = std::this_thread::get_id(); });
    EXPECT_TRUE(bench().eventually([&] { return thread.has_value(); }));
    EXPECT_EQ(thread, std::this_thread::get_id());
}

TEST_P(ChildProcessesContract, aFailureGivesItsStatusAndItsErrors) {
    const auto program = bench().failing();
    Outcome outcome;
    run(program, longTimeout, outcome);
    EXPECT_TRUE(bench().eventually([&] { return outcome.calls == 1; }));
    EXPECT_EQ(outcome.result, program.result);
    EXPECT_NE(outcome.result.code, 0);
    EXPECT_THAT(outcome.result.error, Not(IsEmpty()));
}

TEST_P(ChildProcessesContract, aProgramThatIsNotThereGivesMinusOneAndTheReason) {
    Outcome outcome;
    run(bench().missing(), longTimeout, outcome);
    EXPECT_TRUE(bench().eventually([&] { return outcome.calls == 1; }));
    EXPECT_EQ(outcome.result.code, -1);
    EXPECT_THAT(outcome.result.output, IsEmpty());
    EXPECT_THAT(outcome.result.error, Not(IsEmpty()));
}

TEST_P(ChildProcessesContract, aProgramThatOutlastsItsLimitIsAskedToEnd) {
    Outcome outcome;
    run(bench().lasting(60), 2.0, outcome);
    bench().wait(0.1);
    EXPECT_EQ(outcome.calls, 0);
    EXPECT_TRUE(bench().eventually([&] { return outcome.calls == 1; }));
    EXPECT_EQ(outcome.result.code, SIGTERM);
    bench().wait(0.3);
    EXPECT_EQ(outcome.calls, 1);
}

TEST_P(ChildProcessesContract, aProgramThatKeepsItsLimitEndsByItself) {
    const auto program = bench().lasting(0.3);
    Outcome outcome;
    run(program, longTimeout, outcome);
    bench().settle();
    EXPECT_EQ(outcome.calls, 0);
    EXPECT_TRUE(bench().eventually([&] { return outcome.calls == 1; }));
    EXPECT_EQ(outcome.result, program.result);
}

TEST_P(ChildProcessesContract, programsThatRunAtTheSameTimeKeepTheirResultsApart) {
    const auto first = bench().succeeding(1);
    const auto second = bench().succeeding(2);
    const auto third = bench().missing();
    Outcome outcomes[3];
    run(first, longTimeout, outcomes[0]);
    run(second, longTimeout, outcomes[1]);
    run(third, longTimeout, outcomes[2]);
    EXPECT_TRUE(bench().eventually([&] { return outcomes[0].calls && outcomes[1].calls && outcomes[2].calls; }));
    EXPECT_EQ(outcomes[0].result, first.result);
    EXPECT_EQ(outcomes[1].result, second.result);
    EXPECT_NE(outcomes[0].result.output, outcomes[1].result.output);
    EXPECT_EQ(outcomes[2].result.code, -1);
}

TEST_P(ChildProcessesContract, aCompletionMayRunAnotherProgram) {
    const auto program = bench().succeeding(1);
    Outcome second;
    bench().childProcesses().run(program.executable, program.arguments, longTimeout,
                                 [&](const ScriptResult&) { run(program, longTimeout, second); });
    EXPECT_TRUE(bench().eventually([&] { return second.calls == 1; }));
    EXPECT_EQ(second.result, program.result);
}

TEST_P(ChildProcessesContract, noFailureIsToldOfWhatIsForgottenOrWaitedFor) {
    const auto missing = bench().missing();
    const auto failing = bench().failing();
    bench().childProcesses().start(missing.executable, missing.arguments);
    bench().childProcesses().start(failing.executable, failing.arguments);
    bench().childProcesses().runAndWait(missing.executable, missing.arguments);
    bench().childProcesses().runAndWait(failing.executable, failing.arguments);
    // Others run as before.
    Outcome outcome;
    run(bench().succeeding(1), longTimeout, outcome);
    EXPECT_TRUE(bench().eventually([&] { return outcome.calls == 1; }));
    EXPECT_EQ(outcome.result.code, 0);
}

TEST_P(ChildProcessesContract, whatIsStartedAndForgottenRunsWhileTheCallerGoesOn) {
    const auto program = bench().tracing(0.3);
    if (!program) GTEST_SKIP() << "no program leaves a trace here";
    bench().childProcesses().start(program->executable, program->arguments);
    EXPECT_EQ(bench().traces(), 0U);
    EXPECT_TRUE(bench().eventually([&] { return bench().traces() == 1; }));
}

TEST_P(ChildProcessesContract, whatIsWaitedForHasEndedWhenTheCallReturns) {
    const auto program = bench().tracing(0.3);
    if (!program) GTEST_SKIP() << "no program leaves a trace here";
    bench().childProcesses().runAndWait(program->executable, program->arguments);
    EXPECT_EQ(bench().traces(), 1U);
}

} // namespace
} // namespace velmorin
