// What becomes of a child that the system does not allow, or allows only in part.

#include "app/platform/posix/PosixChildProcesses.h"
#include "tests/platform/ChildrenFixture.h"
#include "tests/support/TemporaryDirectory.h"

#include <csignal>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace velmorin {
namespace {

ScriptResult notStarted(int error) {
    return {-1, "", std::strerror(error)};
}

class LaunchFailureTest : public ChildrenFixture {
protected:
    std::string file(const char* name, const char* content, mode_t mode) const {
        const auto path = m_directory.path() / name;
        std::ofstream{path} << content;
        EXPECT_EQ(::chmod(path.c_str(), mode), 0);
        return path.string();
    }

private:
    TemporaryDirectory m_directory;
};

TEST_F(LaunchFailureTest, theResultSaysWhyAProgramCouldNotBeStarted) {
    const auto text = file("text", "#!/bin/sh\nexit 0\n", 0644);
    EXPECT_EQ(run("/nowhere/program"), notStarted(ENOENT));
    EXPECT_EQ(run(""), notStarted(ENOENT));
    EXPECT_EQ(run(text), notStarted(EACCES));
    EXPECT_EQ(run("/"), notStarted(EACCES)) << "a folder";
    EXPECT_EQ(run(text + "/program"), notStarted(ENOTDIR));
    EXPECT_EQ(run(file("orphan", "#!/nowhere/interpreter\n", 0755)), notStarted(ENOENT));
    EXPECT_EQ(run(file("nonsense", "no program at all\n", 0755)), notStarted(ENOEXEC));
    EXPECT_EQ(run("/bin/echo", {std::string(3'000'000, 'x')}), notStarted(E2BIG));
}

TEST_F(LaunchFailureTest, aNameIsNotLookedForInTheFoldersOfTheEnvironment) {
    EXPECT_EQ(run("sh", {"-c", "true"}), notStarted(ENOENT));
}

TEST_F(LaunchFailureTest, anArgumentThatWouldBeCutShortIsRefused) {
    EXPECT_EQ(run("/bin/echo", {std::string("rm\0-i", 5)}), notStarted(EINVAL));
    EXPECT_EQ(run(std::string("/bin/echo\0x", 11)), notStarted(EINVAL));
}

TEST_F(LaunchFailureTest, manyFailuresLeaveNoDescriptor) {
    const auto before = openDescriptors();
    for (int round = 0; round < 200; ++round) {
        ASSERT_EQ(run("/nowhere/program"), notStarted(ENOENT));
        ASSERT_EQ(openDescriptors(), before);
    }
}

/// Faults that concern the whole program happen in one of their own, which ends well if all was as it should be.
class SystemFaultDeathTest : public testing::Test {
protected:
    SystemFaultDeathTest() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }

    /// Ends the program; what was not as expected is said on standard error.
    [[noreturn]] static void finish(bool isAsExpected) { ::_exit(isAsExpected && !HasFailure() ? 0 : 1); }
};

bool isSame(const ScriptResult& result, const ScriptResult& expected) {
    EXPECT_EQ(result, expected);
    return result == expected;
}

/// The limit under which exactly this many more descriptors can be opened.
rlim_t limitWithFree(int wanted) {
    int number = 0;
    for (int found = 0; found < wanted; ++number) {
        if (::fcntl(number, F_GETFD) == -1) ++found;
    }
    // Those in use may stand above; none of them may be free.
    while (::fcntl(number, F_GETFD) != -1)
        ++number;
    return static_cast<rlim_t>(number);
}

/// Runs a child while only so many more descriptors can be opened.
ScriptResult runWithFree(Children& children, int wanted) {
    rlimit before{};
    ::getrlimit(RLIMIT_NOFILE, &before);
    const rlimit limited{limitWithFree(wanted), before.rlim_max};
    ::setrlimit(RLIMIT_NOFILE, &limited);
    const auto result = children.run("/bin/echo", {"x"});
    ::setrlimit(RLIMIT_NOFILE, &before);
    return result;
}

bool descriptorsMayRunOut() {
    {
        // Once with as many as it likes, to the end of its thread: a sanitizer, too, needs descriptors for what it has
        // not seen before.
        const NothingIsLeft nothingIsLeft;
        EXPECT_EQ(Children{}.run("/bin/echo", {"x"}).code, 0);
    }
    Children children;
    const auto before = openDescriptors();
    bool isAsExpected = true;
    for (const int wanted : {0, 1, 2, 3, 4, 5, 8, 0, 4}) {
        const auto expected = wanted < 4 ? notStarted(EMFILE) : ScriptResult{0, "x\n", ""};
        isAsExpected = isSame(runWithFree(children, wanted), expected) && openDescriptors() == before && hasNoChild() &&
                       isAsExpected;
    }
    return isAsExpected;
}

TEST_F(SystemFaultDeathTest, whereDescriptorsRunOutTheResultSaysSoAndNoneIsLost) {
    EXPECT_EXIT(finish(descriptorsMayRunOut()), testing::ExitedWithCode(0), "");
}

bool threadsMayRunOut() {
    // The system's administrator knows no such limit, hence the change to another user. Who cannot become another one
    // is none.
    if (::setuid(65534) != 0) std::fprintf(stderr, "no change of the user\n");
    const rlimit none{0, 0};
    ::setrlimit(RLIMIT_NPROC, &none);
    Children children;
    children.processes->start("/bin/echo", {"x"});
    bool hasReturned = false;
    std::optional<ScriptResult> result;
    children.processes->run("/bin/echo", {"x"}, Children::ample, [&](const ScriptResult& arrived) {
        EXPECT_TRUE(hasReturned);
        result = arrived;
    });
    hasReturned = true;
    return children.queue.runUntil([&] { return result.has_value(); }) && result == notStarted(EAGAIN) && hasNoChild();
}

TEST_F(SystemFaultDeathTest, whereThreadsRunOutTheResultSaysSo) {
    EXPECT_EXIT(finish(threadsMayRunOut()), testing::ExitedWithCode(0), "");
}

bool standardStreamsMayBeClosed() {
    for (const int number : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        ::close(number);
    Children children;
    const auto before = openDescriptors();
    // Many at once, so that all kinds of descriptors come and go under the numbers of the streams.
    constexpr int many = 100;
    int asExpected = 0;
    int arrived = 0;
    for (int index = 0; index < many; ++index) {
        children.processes->run("/bin/sh", {"-c", "cat; echo out; echo err >&2"}, Children::ample,
                                [&](const ScriptResult& result) {
                                    ++arrived;
                                    if (result == ScriptResult{0, "out\n", "err\n"}) ++asExpected;
                                });
    }
    return children.queue.runUntil([&] { return arrived == many; }) && asExpected == many &&
           openDescriptors() == before;
}

TEST_F(SystemFaultDeathTest, aProgramWithoutStandardStreamsHasChildrenWithThem) {
    EXPECT_EXIT(finish(standardStreamsMayBeClosed()), testing::ExitedWithCode(0), "");
}

bool endsMayBeIgnoredBefore() {
    std::signal(SIGCHLD, SIG_IGN);
    Children children;
    return isSame(children.shell("echo x; exit 7"), {7, "x\n", ""});
}

TEST_F(SystemFaultDeathTest, aProgramStartedWithTheEndsOfChildrenIgnoredStillLearnsHowTheyEnd) {
    EXPECT_EXIT(finish(endsMayBeIgnoredBefore()), testing::ExitedWithCode(0), "");
}

bool statusMayBeTaken() {
    Children children;
    std::signal(SIGCHLD, SIG_IGN);
    children.processes->runAndWait("/bin/true", {});
    return isSame(children.shell("echo x; exit 7"), {SIGTERM, "x\n", ""});
}

TEST_F(SystemFaultDeathTest, aStatusThatSomethingElseTookIsNeitherSuccessNorAFailureToStart) {
    EXPECT_EXIT(finish(statusMayBeTaken()), testing::ExitedWithCode(0), "");
}

} // namespace
} // namespace velmorin
