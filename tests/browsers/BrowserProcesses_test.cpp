#include "app/platform/linux/browsers/BrowserProcesses.h"

#include <chrono>
#include <csignal>
#include <gtest/gtest.h>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace velmorin {
namespace {

/// Arguments as the system shows them.
template <class... Arguments>
std::string commandLine(Arguments... arguments) {
    std::string text;
    ((text += arguments, text += '\0'), ...);
    return text;
}

TEST(MainProcessTest, aBrowserStartedWithAnyAddressIsOne) {
    EXPECT_TRUE(isMainProcess(commandLine("/usr/lib/chromium/chromium")));
    EXPECT_TRUE(isMainProcess(commandLine("chromium", "--user-data-dir=/x", "http://a.example/")));
    EXPECT_TRUE(isMainProcess(commandLine("firefox-esr", "-P", "work")));
    EXPECT_TRUE(isMainProcess(""));
}

TEST(MainProcessTest, whatABrowserStartsForItselfIsNone) {
    EXPECT_FALSE(isMainProcess(commandLine("chromium", "--type=renderer", "--lang=en")));
    EXPECT_FALSE(isMainProcess("/usr/lib/chromium/chromium --type=zygote --no-sandbox" + std::string(3, '\0')))
        << "a process may have written its own command line";
    EXPECT_FALSE(isMainProcess(commandLine("firefox-esr", "-contentproc", "-isForBrowser", "tab")));
}

TEST(MainProcessTest, whatHasNoWindowsIsNone) {
    EXPECT_FALSE(isMainProcess(commandLine("chrome", "--headless")));
    EXPECT_FALSE(isMainProcess(commandLine("chrome", "--headless=new", "http://a.example/")));
    EXPECT_FALSE(isMainProcess(commandLine("firefox", "-headless")));
}

TEST(MainProcessTest, noAddressMakesABrowserLookLikeAPartOfOne) {
    EXPECT_TRUE(isMainProcess(commandLine("chromium", "--", "--type=renderer")));
    EXPECT_TRUE(isMainProcess(commandLine("chromium", "--", "--headless")));
    EXPECT_TRUE(isMainProcess(commandLine("chromium", "http://a.example/ --type=renderer")));
    EXPECT_TRUE(isMainProcess(commandLine("chromium", "--type=renderer", "--type="))) << "the last one counts";
    EXPECT_TRUE(isMainProcess(commandLine("firefox", "http://a.example/", "-contentproc")));
}

constexpr const char* exampleStatus = "42 (a) name (x) S 7 42 42 0 -1 4194560 1 2 3 4 5 6 7 8 20 0 1 0 5000 1 2 3\n";

TEST(ProcessStatusTest, aNameMayHoldParenthesesAndSpaces) {
    const auto status = parseProcessStatus(exampleStatus, 60, 100);
    ASSERT_TRUE(status);
    EXPECT_EQ(status->parent, 7);
    EXPECT_DOUBLE_EQ(status->age, 10);
    EXPECT_FALSE(status->isStopped);
}

TEST(ProcessStatusTest, whatIsNoStatusIsAbsent) {
    for (const auto* const text : {"", "42", "42 (name)", "42 (name) S", "42 (name) S x 1 2 3 4 5 6 7 8 9 10 11 12 13",
                                   "42 (name) Z 7 42 42 0 -1 4194560 1 2 3 4 5 6 7 8 20 0 1 0 5000 1 2 3"})
        EXPECT_FALSE(parseProcessStatus(text, 60, 100)) << text;
}

/// A child that does nothing until it is killed.
class Sleeper {
public:
    Sleeper() : m_id{::fork()} {
        if (m_id == 0) {
            for (;;)
                ::pause();
        }
    }
    Sleeper(const Sleeper&) = delete;
    Sleeper& operator=(const Sleeper&) = delete;
    ~Sleeper() {
        ::kill(m_id, SIGKILL);
        ::waitpid(m_id, nullptr, 0);
    }
    void stop() const {
        ::kill(m_id, SIGSTOP);
        ::waitpid(m_id, nullptr, WUNTRACED);
    }
    pid_t id() const { return m_id; }

private:
    pid_t m_id;
};

TEST(ProcessStatusTest, thisProcessIsYoungAndHasAParent) {
    const auto status = processStatus(::getpid());
    ASSERT_TRUE(status);
    EXPECT_EQ(status->parent, ::getppid());
    EXPECT_GE(status->age, 0);
    EXPECT_LT(status->age, 600);
}

TEST(ProcessStatusTest, theAgeGrowsWithTime) {
    const Sleeper child;
    std::this_thread::sleep_for(std::chrono::milliseconds{300});
    const auto status = processStatus(child.id());
    ASSERT_TRUE(status);
    EXPECT_GT(status->age, 0.25);
    EXPECT_LT(status->age, 30);
}

TEST(ProcessStatusTest, aProcessThatHasGoneHasNone) {
    const pid_t child = ::fork();
    if (child == 0) ::_exit(0);
    siginfo_t info{};
    ::waitid(P_PID, static_cast<id_t>(child), &info, WEXITED | WNOWAIT);
    EXPECT_FALSE(processStatus(child)) << "it only waits to be reaped";
    ::waitpid(child, nullptr, 0);
    EXPECT_FALSE(processStatus(child));
}

TEST(StoppedDescendantsTest, onlyThoseThatAreStoppedAreFound) {
    const Sleeper running;
    const Sleeper stopped;
    stopped.stop();
    EXPECT_EQ(stoppedDescendants(::getpid()), std::vector{stopped.id()});
    EXPECT_TRUE(stoppedDescendants(running.id()).empty());
}

TEST(BrowserProcessesTest, aProgramThatIsNoBrowserIsNone) {
    EXPECT_EQ(browserOfProcess(::getpid()), nullptr);
    EXPECT_FALSE(mayBelongTo(knownBrowsers().front(), ::getpid()));
}

} // namespace
} // namespace velmorin
