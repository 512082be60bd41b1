#include "app/platform/posix/PosixChildProcesses.h"

#include "tests/platform/ChildrenFixture.h"
#include "tests/support/TemporaryDirectory.h"

#include <array>
#include <cmath>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <memory>
#include <sstream>
#include <unistd.h>
#include <vector>

namespace velmorin {
namespace {

class PosixChildProcessesTest : public ChildrenFixture {
protected:
    /// A time in seconds that does for a child to get ready, also on a machine that has much else to do.
    static constexpr double soon = 1;

    std::filesystem::path path(const char* name) const { return m_directory.path() / name; }
    std::string content(const char* name) const {
        std::ostringstream text;
        text << std::ifstream{path(name)}.rdbuf();
        return text.str();
    }
    /// What the script has written into this file, once it is there.
    std::string awaitContent(const char* name) const {
        EXPECT_TRUE(eventually([&] { return content(name).ends_with('\n'); })) << name;
        return content(name);
    }
    /// Ends a process that would go on for long, whatever it thinks of that.
    static void kill(const std::string& processID) {
        const pid_t process = std::atoi(processID.c_str());
        ASSERT_GT(process, 1);
        ASSERT_EQ(::kill(process, SIGKILL), 0);
    }

private:
    TemporaryDirectory m_directory;
};

// How it ended.

TEST_F(PosixChildProcessesTest, aResultHasTheExitStatusAndBothOutputs) {
    EXPECT_EQ(shell("echo out; echo err >&2; exit 7"), (ScriptResult{7, "out\n", "err\n"}));
    EXPECT_EQ(shell("true"), (ScriptResult{0, "", ""}));
}

TEST_F(PosixChildProcessesTest, everyExitStatusComesThrough) {
    for (const int status : {0, 1, 2, 15, 126, 127, 128, 143, 255}) {
        EXPECT_EQ(shell("exit " + std::to_string(status)).code, status);
    }
}

TEST_F(PosixChildProcessesTest, aChildEndedByASignalHasTheSignalsNumber) {
    for (const int number : {SIGHUP, SIGINT, SIGKILL, SIGUSR1, SIGTERM}) {
        const auto result = shell("echo before; kill -" + std::to_string(number) + " $$; echo after");
        EXPECT_EQ(result, (ScriptResult{number, "before\n", ""}));
    }
}

// What is read.

/// A script that writes this many bytes, all of them `letter`.
std::string writing(char letter, std::size_t count) {
    return "head -c " + std::to_string(count) + " /dev/zero | tr \"\\0\" " + letter;
}

TEST_F(PosixChildProcessesTest, bothOutputsMayBeFloodedInEitherOrder) {
    constexpr std::size_t much = 5'000'000;
    const ScriptResult expected{3, std::string(much, 'o'), std::string(much, 'e')};
    EXPECT_EQ(shell(writing('o', much) + "; " + writing('e', much) + " >&2; exit 3"), expected);
    EXPECT_EQ(shell(writing('e', much) + " >&2; " + writing('o', much) + "; exit 3"), expected);
}

TEST_F(PosixChildProcessesTest, bothOutputsMayBeFloodedInTurns) {
    const auto script = "i=0; while [ $i -lt 50 ]; do " + writing('o', 100'000) + "; " + writing('e', 100'000) +
                        " >&2; i=$((i + 1)); done";
    EXPECT_EQ(shell(script), (ScriptResult{0, std::string(5'000'000, 'o'), std::string(5'000'000, 'e')}));
}

TEST_F(PosixChildProcessesTest, bothOutputsMayBeFloodedAtOnce) {
    const auto script = writing('o', 5'000'000) + " & " + writing('e', 5'000'000) + " >&2; wait";
    EXPECT_EQ(shell(script), (ScriptResult{0, std::string(5'000'000, 'o'), std::string(5'000'000, 'e')}));
}

TEST_F(PosixChildProcessesTest, moreThanAPipeHoldsOfTheOneWhileTheOtherStaysOpenAndSilent) {
    const std::string much(1'000'000, 'x');
    EXPECT_EQ(shell(writing('x', much.size()) + " >&2; echo done"), (ScriptResult{0, "done\n", much}));
    EXPECT_EQ(shell(writing('x', much.size()) + "; echo done >&2"), (ScriptResult{0, much, "done\n"}));
}

TEST_F(PosixChildProcessesTest, theOneOutputMayEndLongBeforeTheOther) {
    EXPECT_EQ(shell("exec >&-; sleep 0.2; echo late >&2"), (ScriptResult{0, "", "late\n"}));
    EXPECT_EQ(shell("exec 2>&-; sleep 0.2; echo late"), (ScriptResult{0, "late\n", ""}));
}

TEST_F(PosixChildProcessesTest, ofAnEndlessOutputTheBeginningIsKeptAndTheChildDoesNotComeToStand) {
    constexpr std::size_t most = std::size_t{64} << 20;
    const auto result = shell("head -c 70000000 /dev/zero; echo end >&2");
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(result.output.size(), most);
    EXPECT_EQ(result.error, "end\n");
}

TEST_F(PosixChildProcessesTest, badSequencesAreRepairedInBothOutputs) {
    const auto result = shell(R"(printf 'a\377b\342\202c\000\303\244'; printf '\355\240\200' >&2)");
    EXPECT_EQ(result.output, std::string("a\uFFFDb\uFFFDc\0ä", 12));
    EXPECT_EQ(result.error, "\uFFFD\uFFFD\uFFFD");
}

TEST_F(PosixChildProcessesTest, aCharacterThatIsWrittenInPiecesStaysWhole) {
    EXPECT_EQ(shell(R"(printf '\342'; sleep 0.1; printf '\202'; sleep 0.1; printf '\254')").output, "€");
}

// What a child is given.

TEST_F(PosixChildProcessesTest, argumentsArriveUnharmed) {
    const ChildProcesses::Arguments arguments{
        "two  words",      "",   "quo'te\"s", "line\nbreak\n", "back\\slash", "$HOME `id` $(id)", "*", "-n", " ",
        "äöü سلام 日本 🌱", "\t", "%s",        "last"};
    auto passed = arguments;
    passed.insert(passed.begin(), {"-c", "printf '<%s>' \"$@\"", "sh"});
    std::string expected;
    for (const auto& argument : arguments)
        expected += "<" + argument + ">";
    EXPECT_EQ(run("/bin/sh", passed), (ScriptResult{0, expected, ""}));
}

TEST_F(PosixChildProcessesTest, theEnvironmentIsThatOfTheMomentOfTheCall) {
    ::setenv("VELMORIN_TEST", "some value = ä", 1);
    EXPECT_EQ(shell("printenv VELMORIN_TEST"), (ScriptResult{0, "some value = ä\n", ""}));
    std::optional<ScriptResult> result;
    processes->run("/usr/bin/printenv", {"VELMORIN_TEST"}, ample, [&](ScriptResult arrived) { result = arrived; });
    ::unsetenv("VELMORIN_TEST");
    ASSERT_TRUE(queue.runUntil([&] { return result.has_value(); }));
    EXPECT_EQ(result->output, "some value = ä\n");
    EXPECT_EQ(shell("printenv VELMORIN_TEST"), (ScriptResult{1, "", ""}));
}

TEST_F(PosixChildProcessesTest, standardInputIsAtItsEnd) {
    // Ours has something to read, and never ends.
    std::array<int, 2> pipe{};
    ASSERT_EQ(::pipe(pipe.data()), 0);
    ASSERT_EQ(::write(pipe[1], "x", 1), 1);
    const int before = ::dup(STDIN_FILENO);
    ASSERT_EQ(::dup2(pipe[0], STDIN_FILENO), STDIN_FILENO);
    const auto copied = run("/bin/cat");
    const auto forgotten = path("forgotten").string();
    processes->runAndWait("/bin/sh", {"-c", "cat > " + forgotten + "; echo end >> " + forgotten});
    ::dup2(before, STDIN_FILENO);
    for (const int descriptor : {before, pipe[0], pipe[1]})
        ::close(descriptor);
    EXPECT_EQ(copied, (ScriptResult{0, "", ""}));
    EXPECT_EQ(content("forgotten"), "end\n");
}

TEST_F(PosixChildProcessesTest, noOtherDescriptorIsPassedOn) {
    const int inheritable = ::open("/dev/null", O_RDONLY);
    ASSERT_GE(inheritable, 3);
    // The fourth is that of the listed folder.
    EXPECT_EQ(run("/bin/ls", {"/proc/self/fd"}).output, "0\n1\n2\n3\n");
    ::close(inheritable);
}

TEST_F(PosixChildProcessesTest, signalsDoWhatTheyDoByDefaultAndNoneIsHeldBack) {
    const auto previous = std::signal(SIGPIPE, SIG_IGN);
    sigset_t held;
    sigset_t before;
    sigemptyset(&held);
    sigaddset(&held, SIGTERM);
    sigaddset(&held, SIGUSR2);
    ASSERT_EQ(::pthread_sigmask(SIG_BLOCK, &held, &before), 0);
    const auto blocked = run("/bin/sed", {"-n", "s/^SigBlk:\t//p", "/proc/self/status"}).output;
    const auto ignored = run("/bin/sed", {"-n", "s/^SigIgn:\t//p", "/proc/self/status"}).output;
    const auto brokenPipe = shell("kill -PIPE $$");
    const auto stopped = run("/bin/sleep", {"60"}, 0.1);
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    std::signal(SIGPIPE, previous);
    EXPECT_EQ(blocked, "0000000000000000\n");
    // The bits are those of the signals from 1 on; the C library keeps 32 and 33 for itself.
    EXPECT_EQ(std::stoull(ignored, nullptr, 16) & ~0x180000000ULL, 0U) << ignored;
    EXPECT_EQ(brokenPipe.code, SIGPIPE);
    EXPECT_EQ(stopped.code, SIGTERM);
}

// The guard.

TEST_F(PosixChildProcessesTest, theGuardEndsAChildThatOutlastsItsTime) {
    const Stopwatch watch;
    EXPECT_EQ(run("/bin/sleep", {"60"}, 0.2), (ScriptResult{SIGTERM, "", ""}));
    EXPECT_GE(watch.seconds(), 0.2);
    EXPECT_LT(watch.seconds(), 30);
}

TEST_F(PosixChildProcessesTest, withoutTimeTheGuardActsAtOnce) {
    for (const double timeout : {0.0, -5.0, -1e300, std::nan("")}) {
        EXPECT_EQ(run("/bin/sleep", {"60"}, timeout).code, SIGTERM) << timeout;
    }
}

TEST_F(PosixChildProcessesTest, anEndlessTimeoutIsOne) {
    for (const double timeout : {1e18, 1e300, HUGE_VAL}) {
        EXPECT_EQ(run("/bin/echo", {"x"}, timeout), (ScriptResult{0, "x\n", ""})) << timeout;
    }
}

TEST_F(PosixChildProcessesTest, whatAChildSaidBeforeTheGuardIsKept) {
    EXPECT_EQ(shell("echo out; echo err >&2; exec sleep 60", soon), (ScriptResult{SIGTERM, "out\n", "err\n"}));
}

TEST_F(PosixChildProcessesTest, aChildThatWritesWithoutEndIsEndedByTheGuard) {
    const auto result = run("/usr/bin/yes", {}, 0.1);
    EXPECT_EQ(result.code, SIGTERM);
    EXPECT_TRUE(result.output.starts_with("y\ny\n"));
}

TEST_F(PosixChildProcessesTest, aChildThatTidiesUpWhenAskedToEndIsHeardToItsEnd) {
    const auto script = "trap '" + writing('x', 200'000) + "; echo bye >&2; exit 3' TERM; sleep 60 & echo $! > " +
                        path("sleep").string() + "; wait";
    EXPECT_EQ(shell(script, soon), (ScriptResult{3, std::string(200'000, 'x'), "bye\n"}));
    kill(content("sleep"));
}

TEST_F(PosixChildProcessesTest, aChildThatDoesNotListenIsNeitherWaitedForNorForced) {
    const Stopwatch watch;
    const auto result = shell("trap '' TERM; echo $$; exec sleep 60", soon);
    EXPECT_GE(watch.seconds(), soon + 1) << "it is given a second after the guard";
    EXPECT_LT(watch.seconds(), 30);
    EXPECT_EQ(result.code, SIGTERM);
    // It is still there, and reaped when it does end, as the fixture sees.
    kill(result.output);
}

TEST_F(PosixChildProcessesTest, aChildThatDoesNotListenAndClosedItsOutputsIsNotWaitedForEither) {
    const auto script = "trap '' TERM; echo $$ > " + path("child").string() + "; exec >&- 2>&-; exec sleep 60";
    EXPECT_EQ(shell(script, soon), (ScriptResult{SIGTERM, "", ""}));
    kill(content("child"));
}

TEST_F(PosixChildProcessesTest, aChildThatClosedItsOutputsIsWaitedForUntilItEnds) {
    const Stopwatch watch;
    EXPECT_EQ(shell("echo early; exec >&- 2>&-; sleep 0.3; exit 4"), (ScriptResult{4, "early\n", ""}));
    EXPECT_GE(watch.seconds(), 0.3);
    EXPECT_EQ(shell("exec >/dev/null 2>&1; exec sleep 60", 0.3), (ScriptResult{SIGTERM, "", ""}));
}

// Children of children.

TEST_F(PosixChildProcessesTest, whatAGrandchildSaysAfterTheChildHasEndedIsHeard) {
    EXPECT_EQ(shell("(sleep 0.3; echo late; echo later >&2) & echo early; exit 5"),
              (ScriptResult{5, "early\nlate\n", "later\n"}));
}

TEST_F(PosixChildProcessesTest, aGrandchildThatKeepsThePipesIsReadNoLongerThanTheGuardAllows) {
    const Stopwatch watch;
    const auto result = shell("sleep 60 & echo $!; echo err >&2; exit 5", soon);
    EXPECT_GE(watch.seconds(), soon);
    EXPECT_LT(watch.seconds(), 30);
    EXPECT_EQ(result.code, 5) << "the child ended by itself and in time";
    EXPECT_EQ(result.error, "err\n");
    kill(result.output);
}

TEST_F(PosixChildProcessesTest, aGrandchildThatFloodsThePipesIsReadNoLongerThanTheGuardAllows) {
    const auto result = shell("yes & exit 5", 0.1);
    EXPECT_EQ(result.code, 5);
    EXPECT_TRUE(result.output.starts_with("y\ny\n"));
}

TEST_F(PosixChildProcessesTest, aGrandchildThatKeepsThePipesDoesNotOutlastAChildThatTheGuardEnded) {
    const auto result = shell("sleep 60 & echo $!; wait", soon);
    EXPECT_EQ(result.code, SIGTERM);
    kill(result.output);
}

// Many.

TEST_F(PosixChildProcessesTest, aResultDoesNotWaitForThatOfASlowerChild) {
    std::vector<std::string> outputs;
    const auto collect = [&](const ScriptResult& result) { outputs.push_back(result.output); };
    const auto go = path("go").string();
    processes->run("/bin/sh", {"-c", "while ! [ -e " + go + " ]; do sleep 0.01; done; echo slow"}, ample, collect);
    processes->run("/bin/echo", {"quick"}, ample, collect);
    ASSERT_TRUE(queue.runUntil([&] { return outputs.size() == 1; }));
    std::ofstream{go}.close();
    ASSERT_TRUE(queue.runUntil([&] { return outputs.size() == 2; }));
    EXPECT_EQ(outputs, (std::vector<std::string>{"quick\n", "slow\n"}));
}

TEST_F(PosixChildProcessesTest, manyRunsInARowLeaveNothing) {
    const auto before = openDescriptors();
    for (int round = 0; round < 200; ++round) {
        const auto status = round % 3;
        ASSERT_EQ(shell("echo x; exit " + std::to_string(status)), (ScriptResult{status, "x\n", ""}));
        ASSERT_EQ(openDescriptors(), before);
        ASSERT_TRUE(hasNoChild());
    }
}

TEST_F(PosixChildProcessesTest, manyAtOnceHaveEachItsOwnResultAndLeaveNothing) {
    constexpr int many = 50;
    std::vector<ScriptResult> results(many);
    int arrived = 0;
    for (int index = 0; index < many; ++index) {
        const auto word = std::to_string(index);
        const auto missing = index % 10 == 9;
        processes->run(missing ? "/nowhere/program" : "/bin/sh", {"-c", "echo " + word + "; exit " + word}, ample,
                       [&, index](ScriptResult result) {
                           results[static_cast<std::size_t>(index)] = std::move(result);
                           ++arrived;
                       });
    }
    ASSERT_TRUE(queue.runUntil([&] { return arrived == many; }));
    EXPECT_TRUE(hasNoChild());
    for (int index = 0; index < many; ++index) {
        const auto& result = results[static_cast<std::size_t>(index)];
        EXPECT_EQ(result.code, index % 10 == 9 ? -1 : index);
        EXPECT_EQ(result.output, index % 10 == 9 ? "" : std::to_string(index) + "\n");
    }
    EXPECT_EQ(queue.posted(), std::size_t{many}) << "one call each";
}

// Started and forgotten, and waited for.

TEST_F(PosixChildProcessesTest, aForgottenProgramRunsWithoutInputAndOutputs) {
    processes->start("/bin/sh",
                     {"-c", "echo noise; echo noise >&2; for n in 0 1 2; do s=\"$s $(readlink /proc/$$/fd/$n)\"; "
                            "done; echo $s > " +
                                path("streams").string()});
    EXPECT_EQ(awaitContent("streams"), "/dev/null /dev/null /dev/null\n");
    EXPECT_EQ(queue.posted(), 0U);
}

TEST_F(PosixChildProcessesTest, startingDoesNotWaitAndTheChildIsReapedWhenItEnds) {
    const Stopwatch watch;
    processes->start("/bin/sh", {"-c", "echo $$ > " + path("child").string() + "; exec sleep 60"});
    EXPECT_LT(watch.seconds(), 30);
    kill(awaitContent("child"));
}

TEST_F(PosixChildProcessesTest, aStartedProgramRunsThoughWhoStartedItIsGone) {
    processes->start("/bin/sh", {"-c", "sleep 0.2; echo here > " + path("file").string()});
    processes.reset();
    EXPECT_EQ(awaitContent("file"), "here\n");
}

TEST_F(PosixChildProcessesTest, waitingReturnsWhenTheProgramHasEndedAndIsReaped) {
    const auto file = path("file").string();
    processes->runAndWait("/bin/sh", {"-c", writing('x', 200'000) + "; " + writing('x', 200'000) +
                                                " >&2; sleep 0.2; echo done > " + file});
    EXPECT_EQ(content("file"), "done\n");
    EXPECT_TRUE(hasNoChild());
}

TEST_F(PosixChildProcessesTest, waitingForAProgramDoesNotMeanWaitingForItsChildren) {
    processes->runAndWait("/bin/sh", {"-c", "sleep 60 & echo $! > " + path("sleep").string()});
    kill(content("sleep"));
}

TEST_F(PosixChildProcessesTest, whatCannotBeStartedIsNotToldOf) {
    processes->start("/nowhere/program", {});
    processes->start("/", {"x"});
    processes->runAndWait("/nowhere/program", {});
    processes->runAndWait("/", {"x"});
    EXPECT_EQ(shell("echo next").output, "next\n");
    EXPECT_EQ(queue.posted(), 1U);
}

// Its end.

TEST_F(PosixChildProcessesTest, goingWhileAChildRunsWaitsForNothingAndTellsNothing) {
    const auto held = std::make_shared<int>();
    const auto script = "echo $$ > " + path("child").string() + "; exec sleep 60";
    processes->run("/bin/sh", {"-c", script}, ample, [held](const ScriptResult&) { ADD_FAILURE() << "a result"; });
    const auto child = awaitContent("child");
    processes.reset();
    EXPECT_EQ(held.use_count(), 1) << "the completion goes on this thread";
    kill(child);
    ASSERT_TRUE(eventually(hasNoChild));
}

TEST_F(PosixChildProcessesTest, theGuardEndsAChildAlsoAfterWhoRanItIsGone) {
    const Stopwatch watch;
    const auto script = "echo $$ > " + path("child").string() + "; exec sleep 60";
    processes->run("/bin/sh", {"-c", script}, soon, [](const ScriptResult&) { ADD_FAILURE() << "a result"; });
    awaitContent("child");
    processes.reset();
    EXPECT_TRUE(eventually(hasNoChild));
    EXPECT_LT(watch.seconds(), 30);
}

TEST_F(PosixChildProcessesTest, aResultThatIsUnderWayWhenItGoesIsNotDelivered) {
    const auto held = std::make_shared<int>();
    processes->run("/bin/echo", {"x"}, ample, [held](const ScriptResult&) { ADD_FAILURE() << "a result"; });
    ASSERT_TRUE(queue.awaitPosted(1));
    processes.reset();
    EXPECT_EQ(held.use_count(), 1);
    queue.runPosted();
}

TEST_F(PosixChildProcessesTest, aCompletionMayEndItAll) {
    int results = 0;
    for (int round = 0; round < 10; ++round) {
        processes->run("/bin/echo", {"x"}, ample, [&](const ScriptResult& result) {
            processes.reset();
            EXPECT_EQ(result.output, "x\n");
            ++results;
        });
    }
    ASSERT_TRUE(queue.runUntil([&] { return results > 0; }));
    queue.runPosted();
    EXPECT_EQ(results, 1) << "the others come too late";
}

TEST_F(PosixChildProcessesTest, goingWhileManyResultsArriveIsHarmless) {
    for (int round = 0; round < 10; ++round) {
        Children children;
        int results = 0;
        for (int index = 0; index < 8; ++index)
            children.processes->run("/bin/true", {}, ample, [&](const ScriptResult&) { ++results; });
        ASSERT_TRUE(children.queue.runUntil([&] { return results >= round % 8; }));
        const int before = results;
        children.processes.reset();
        const auto posted = children.queue.posted();
        children.queue.runPosted();
        EXPECT_EQ(results, before);
        ASSERT_TRUE(eventually(hasNoChild));
        EXPECT_EQ(children.queue.posted(), posted) << "the queue may go, too";
    }
}

} // namespace
} // namespace velmorin
