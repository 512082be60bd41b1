#include "app/platform/linux/services/SingleInstance.h"

#include "tests/support/LoopRunner.h"
#include "tests/support/TemporaryDirectory.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdint>
#include <cstring>
#include <ctime>
#include <gtest/gtest.h>
#include <list>
#include <optional>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace velmorin {
namespace {

/// A process of the program, which tells what has come of its start and then, as the first, lives until it is ended.
class Start {
public:
    /// `shows` is how often the first is asked to show itself before it ends by itself; 0: never.
    explicit Start(const std::filesystem::path& directory, int shows = 0) {
        std::array<int, 2> ends{};
        if (::pipe(ends.data()) != 0) return;
        m_process = ::fork();
        if (m_process == 0) {
            ::alarm(60);
            ::_exit(live(directory, shows, ends[1]));
        }
        ::close(ends[1]);
        char told = 0;
        m_isFirst = ::read(ends[0], &told, 1) == 1 && told == '1';
        ::close(ends[0]);
    }
    Start(const Start&) = delete;
    Start& operator=(const Start&) = delete;
    ~Start() { kill(); }

    bool isFirst() const { return m_isFirst; }
    void kill() {
        if (m_process <= 0) return;
        ::kill(m_process, SIGKILL);
        ::waitpid(m_process, nullptr, 0);
        m_process = -1;
    }
    /// Waits for its end and gives its status.
    int status() {
        int status = 0;
        ::waitpid(std::exchange(m_process, -1), &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    static constexpr int wasShown = 10;
    static constexpr int hasAsked = 20;
    static constexpr int wasNotHeard = 21;

private:
    static int live(const std::filesystem::path& directory, int shows, int told) {
        LoopRunner runner;
        SingleInstance instance{runner.loop(), directory};
        const char isFirst = instance.isFirst() ? '1' : '0';
        int asked = 0;
        instance.onShow([&] { ++asked; });
        if (::write(told, &isFirst, 1) != 1) return 1;
        if (!instance.isFirst()) return instance.askFirstToShow() ? hasAsked : wasNotHeard;
        runner.runUntil([&] { return shows > 0 && asked >= shows; });
        return wasShown;
    }

    pid_t m_process = -1;
    bool m_isFirst = false;
};

class SingleInstanceTest : public testing::Test {
protected:
    std::filesystem::path directory() const { return m_directory.path() / "data"; }

private:
    TemporaryDirectory m_directory;
};

TEST_F(SingleInstanceTest, aSecondStartAsksTheFirstToShowItself) {
    Start first{directory(), 2};
    EXPECT_TRUE(first.isFirst());
    for (int time = 0; time < 2; ++time) {
        Start second{directory()};
        EXPECT_FALSE(second.isFirst());
        EXPECT_EQ(second.status(), Start::hasAsked);
    }
    EXPECT_EQ(first.status(), Start::wasShown);
}

TEST_F(SingleInstanceTest, oneThatShowsNothingDoesNotSayThatItDoes) {
    LoopRunner runner;
    const SingleInstance first{runner.loop(), directory()};
    Start second{directory()};
    runner.run(0.2);
    EXPECT_EQ(second.status(), Start::wasNotHeard);
}

TEST_F(SingleInstanceTest, oneThatDoesNotListenIsToldOf) {
    LoopRunner runner;
    SingleInstance first{runner.loop(), directory()};
    first.onShow([] {});
    EXPECT_EQ(Start{directory()}.status(), Start::wasNotHeard) << "its loop does not run";
}

TEST_F(SingleInstanceTest, aFirstThatWasKilledLeavesNothingInTheWay) {
    Start first{directory()};
    ASSERT_TRUE(first.isFirst());
    first.kill();
    Start next{directory(), 1};
    EXPECT_TRUE(next.isFirst());
    Start second{directory()};
    EXPECT_FALSE(second.isFirst());
    EXPECT_EQ(next.status(), Start::wasShown);
}

TEST_F(SingleInstanceTest, ofManyAtOnceExactlyOneIsTheFirst) {
    constexpr int rounds = 10;
    constexpr int starters = 8;
    for (int round = 0; round < rounds; ++round) {
        std::array<int, 2> gate{};
        std::array<int, 2> told{};
        ASSERT_EQ(::pipe(gate.data()) + ::pipe(told.data()), 0);
        std::vector<pid_t> processes;
        for (int number = 0; number < starters; ++number) {
            const auto process = ::fork();
            if (process == 0) {
                ::alarm(60);
                ::close(gate[1]);
                char opened = 0;
                // All wait here until the gate goes.
                static_cast<void>(::read(gate[0], &opened, 1));
                LoopRunner runner;
                const SingleInstance instance{runner.loop(), directory()};
                const char isFirst = instance.isFirst() ? '1' : '0';
                static_cast<void>(::write(told[1], &isFirst, 1));
                for (;;)
                    ::pause();
            }
            processes.push_back(process);
        }
        ::close(gate[0]);
        ::close(gate[1]);
        int firsts = 0;
        for (int number = 0; number < starters; ++number) {
            char isFirst = 0;
            ASSERT_EQ(::read(told[0], &isFirst, 1), 1);
            firsts += isFirst == '1' ? 1 : 0;
        }
        EXPECT_EQ(firsts, 1);
        for (const auto process : processes) {
            ::kill(process, SIGKILL);
            ::waitpid(process, nullptr, 0);
        }
        ::close(told[0]);
        ::close(told[1]);
    }
}

TEST_F(SingleInstanceTest, nobodyElseMayComeNear) {
    const Start first{directory()};
    const auto rightsOf = [](const std::filesystem::path& path) {
        struct stat info {};
        return ::stat(path.c_str(), &info) == 0 ? info.st_mode & 0777U : 0U;
    };
    EXPECT_EQ(rightsOf(directory()), 0700U);
    EXPECT_EQ(rightsOf(directory() / "instance.socket"), 0600U);
    EXPECT_EQ(rightsOf(directory() / "instance.lock"), 0600U);
}

TEST_F(SingleInstanceTest, itsLockIsNotHandedToWhatItStarts) {
    std::optional<LoopRunner> runner{std::in_place};
    std::optional<SingleInstance> first{std::in_place, runner->loop(), directory()};
    ASSERT_TRUE(first->isFirst());
    const auto child = ::fork();
    if (child == 0) {
        ::execl("/bin/sleep", "sleep", "60", nullptr);
        ::_exit(1);
    }
    // Until the child has become the other program, it holds what this one holds.
    while (std::filesystem::read_symlink("/proc/" + std::to_string(child) + "/exe").filename() ==
           std::filesystem::read_symlink("/proc/self/exe").filename()) {
    }
    first.reset();
    EXPECT_TRUE((SingleInstance{runner->loop(), directory()}.isFirst()));
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
}

TEST_F(SingleInstanceTest, aDirectoryWithALongNameIsOneAsWell) {
    const auto deep = directory() / std::string(150, 'x') / "it's here";
    Start first{deep, 1};
    EXPECT_TRUE(first.isFirst());
    Start second{deep};
    EXPECT_EQ(second.status(), Start::hasAsked);
    EXPECT_EQ(first.status(), Start::wasShown);
}

/// Someone who has connected to the first.
class Caller {
public:
    explicit Caller(const std::filesystem::path& directory) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        const auto path = (directory / "instance.socket").string();
        std::memcpy(address.sun_path, path.c_str(), std::min(path.size() + 1, sizeof address.sun_path - 1));
        const auto* generic = static_cast<const sockaddr*>(static_cast<const void*>(&address));
        m_isConnected = ::connect(m_socket.number(), generic, sizeof address) == 0;
    }
    bool isConnected() const { return m_isConnected; }
    void ask() const { EXPECT_EQ(::send(m_socket.number(), "s", 1, MSG_NOSIGNAL), 1); }
    bool isHungUp() const {
        char said = 0;
        return ::recv(m_socket.number(), &said, 1, MSG_DONTWAIT) == 0;
    }

private:
    Descriptor m_socket{::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)};
    bool m_isConnected = false;
};

TEST_F(SingleInstanceTest, ofThoseWhoSayNothingTheOldestGo) {
    LoopRunner runner;
    SingleInstance first{runner.loop(), directory()};
    int asked = 0;
    first.onShow([&] { ++asked; });
    constexpr int kept = 16;
    constexpr int callers = 40;
    std::list<Caller> silent;
    for (int number = 0; number < callers; ++number) {
        ASSERT_TRUE(silent.emplace_back(directory()).isConnected());
        runner.run(0.005);
    }
    EXPECT_TRUE(
        runner.runUntil([&] { return std::ranges::count_if(silent, &Caller::isHungUp) == callers - kept; }, 10));
    EXPECT_TRUE(silent.front().isHungUp());
    silent.back().ask();
    EXPECT_TRUE(runner.runUntil([&] { return asked == 1; }, 10));
}

/// Takes every further descriptor from this process.
class NoDescriptors {
public:
    NoDescriptors() {
        ::getrlimit(RLIMIT_NOFILE, &m_before);
        const Descriptor next{::dup(STDERR_FILENO)};
        const rlimit none{static_cast<rlim_t>(next.number()), m_before.rlim_max};
        ::setrlimit(RLIMIT_NOFILE, &none);
    }
    NoDescriptors(const NoDescriptors&) = delete;
    NoDescriptors& operator=(const NoDescriptors&) = delete;
    ~NoDescriptors() { ::setrlimit(RLIMIT_NOFILE, &m_before); }

private:
    rlimit m_before{};
};

TEST_F(SingleInstanceTest, whoCannotBeTakenNowIsTakenLaterWithoutAskingAllTheTime) {
    LoopRunner runner;
    SingleInstance first{runner.loop(), directory()};
    int asked = 0;
    first.onShow([&] { ++asked; });
    runner.run(0.01);
    const Caller caller{directory()};
    caller.ask();
    {
        const NoDescriptors none;
        const auto begin = std::clock();
        runner.run(0.5);
        EXPECT_LT(std::clock() - begin, CLOCKS_PER_SEC / 10);
        EXPECT_EQ(asked, 0);
    }
    EXPECT_TRUE(runner.runUntil([&] { return asked == 1; }, 10));
}

TEST_F(SingleInstanceTest, whereNothingCanBeLockedTheProgramStillStarts) {
    LoopRunner runner;
    EXPECT_TRUE((SingleInstance{runner.loop(), "/proc/nowhere"}.isFirst()));
}

} // namespace
} // namespace velmorin
