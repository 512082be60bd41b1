// A program of the true name, killed again and again while a session is guarded, with a service manager and without.

#include "app/platform/linux/services/LinuxServiceManager.h"
#include "app/platform/linux/services/watchdog/ProcessLookup.h"
#include "app/platform/posix/PosixChildProcesses.h"
#include "core/store/PosixFiles.h"
#include "tests/support/GuardedWorld.h"
#include "tests/support/UserManagerProcess.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstring>
#include <fstream>
#include <gmock/gmock.h>
#include <iostream>
#include <random>
#include <sys/socket.h>
#include <sys/un.h>

namespace velmorin {
namespace {

using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

/// Seconds that a call takes.
template <class Call>
double duration(Call call) {
    const auto begin = std::chrono::steady_clock::now();
    call();
    return std::chrono::duration<double>{std::chrono::steady_clock::now() - begin}.count();
}

double medianOf(std::vector<double> values) {
    std::ranges::sort(values);
    return values[values.size() / 2];
}

/// The program's true name, for one test on a machine at a time: the stand-in of one would count for another.
class TrueName {
public:
    TrueName() {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        // Without a file, and free again when this process ends.
        std::memcpy(address.sun_path + 1, lock.data(), lock.size());
        const auto* generic = static_cast<const sockaddr*>(static_cast<const void*>(&address));
        wait([&] { return ::bind(m_socket, generic, sizeof address) == 0; });
        wait([] { return !isProcessAlive(text, ::getuid()); });
    }
    TrueName(const TrueName&) = delete;
    TrueName& operator=(const TrueName&) = delete;
    ~TrueName() { ::close(m_socket); }

    static constexpr const char* text = "Velmorin";

private:
    static constexpr std::string_view lock = "velmorin-test-of-the-true-name";

    template <class Condition>
    static void wait(Condition condition) {
        constexpr double patience = 300; // seconds
        constexpr double step = 0.1;     // seconds
        double waited = 0;
        for (; !condition() && waited < patience; waited += step)
            GuardedWorld::wait(step);
        EXPECT_LT(waited, patience) << "another process of the program's name is there";
    }

    int m_socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
};

class Watchdog {
public:
    /// Guards a stand-in of a name of its own.
    Watchdog(std::filesystem::path configDirectory, std::filesystem::path runtimeDirectory)
        : world{std::move(configDirectory), std::move(runtimeDirectory)} {}
    /// Guards one of the program's name.
    Watchdog(const TrueName&, std::filesystem::path configDirectory, std::filesystem::path runtimeDirectory)
        : world{TrueName::text, std::move(configDirectory), std::move(runtimeDirectory)} {}
    ~Watchdog() { serviceManager.remove(); }

    /// Kills the one program that lives at a random moment and gives the seconds until another does.
    double killAtRandom() {
        GuardedWorld::wait(std::uniform_real_distribution{0.0, 3.0}(m_random));
        const auto living = world.living();
        EXPECT_THAT(living, SizeIs(1));
        if (living.empty()) return longest;
        world.kill(living.front());
        return duration([&] { awaitProgram(); });
    }
    void awaitProgram() {
        constexpr double step = 0.005; // seconds
        for (double waited = 0; world.living().empty() && waited < longest; waited += step)
            GuardedWorld::wait(step);
    }
    /// Kills so often, and has each absence be a short one.
    void killAgainAndAgain(int times) {
        std::vector<double> absences;
        for (int time = 0; time < times; ++time) {
            absences.push_back(killAtRandom());
            EXPECT_LT(absences.back(), 4.0);
        }
        std::cout << "back after " << medianOf(absences) << " s (median), " << *std::ranges::max_element(absences)
                  << " s (longest)\n";
    }
    void expectNothingAfterRemoval() {
        std::cout << "removed in " << duration([&] { serviceManager.remove(); }) << " s\n";
        EXPECT_THAT(world.filesLeft(), IsEmpty());
        for (const auto process : world.living())
            world.kill(process);
        GuardedWorld::wait(4);
        EXPECT_THAT(world.living(), IsEmpty());
        EXPECT_THAT(world.keepers(), IsEmpty());
    }

    static constexpr double longest = 20; // seconds; only a test that fails waits this long
    GuardedWorld world;
    PosixFiles files;
    PosixChildProcesses childProcesses{[](const std::function<void()>&) {}};
    LinuxServiceManager serviceManager{world.place(), childProcesses, files};

private:
    std::mt19937 m_random{std::random_device{}()};
};

/// How often a program is killed.
int times() {
    const char* asked = std::getenv("VELMORIN_KILLS");
    return asked == nullptr ? 4 : std::max(1, std::atoi(asked));
}

TEST(WatchdogTest, aServiceManagerBringsTheProgramBackUntilTheJobIsRemoved) {
    const UserManagerProcess manager;
    if (manager.obstacle()) GTEST_SKIP() << *manager.obstacle();
    const TrueName name;
    Watchdog watchdog{name, manager.configDirectory(), manager.runtimeDirectory()};
    std::cout << "installed in " << duration([&] { watchdog.serviceManager.install({"--watchdog"}); }) << " s\n";
    watchdog.awaitProgram();
    watchdog.killAgainAndAgain(times());
    watchdog.expectNothingAfterRemoval();
}

TEST(WatchdogTest, aKeeperBringsTheProgramBackUntilTheJobIsRemoved) {
    const TemporaryDirectory directory;
    const TrueName name;
    Watchdog watchdog{name, directory.path() / "config", directory.path() / "run"};
    std::cout << "installed in " << duration([&] { watchdog.serviceManager.install({"--watchdog"}); }) << " s\n";
    watchdog.awaitProgram();
    EXPECT_THAT(watchdog.world.keepers(), SizeIs(1));
    watchdog.killAgainAndAgain(times());
    watchdog.expectNothingAfterRemoval();
}

TEST(WatchdogTest, aServiceManagerThatHangsDoesNotHoldUpASession) {
    const UserManagerProcess manager;
    if (manager.obstacle()) GTEST_SKIP() << *manager.obstacle();
    Watchdog watchdog{manager.configDirectory(), manager.runtimeDirectory()};
    ::kill(manager.process(), SIGSTOP);
    EXPECT_LT(duration([&] { watchdog.serviceManager.install({"--watchdog"}); }), 3.5);
    watchdog.awaitProgram();
    // The other way guards it, and it alone.
    EXPECT_THAT(watchdog.world.keepers(), SizeIs(1));
    EXPECT_THAT(watchdog.world.filesLeft(), Each(Not(HasSubstr("systemd"))));
    EXPECT_LT(duration([&] { watchdog.serviceManager.remove(); }), 3.5);
    EXPECT_THAT(watchdog.world.keepers(), IsEmpty());
    watchdog.serviceManager.install({"--watchdog"});
    ::kill(manager.process(), SIGCONT);
    watchdog.serviceManager.install({"--watchdog"});
    EXPECT_THAT(watchdog.world.filesLeft(), Each(Not(HasSubstr("autostart"))));
    EXPECT_THAT(watchdog.world.filesLeft(), Contains(HasSubstr("watchdog.timer")));
}

TEST(WatchdogTest, aJobThatAServiceManagerWasNotToldToEndStartsNothing) {
    const UserManagerProcess manager;
    if (manager.obstacle()) GTEST_SKIP() << *manager.obstacle();
    Watchdog watchdog{manager.configDirectory(), manager.runtimeDirectory()};
    watchdog.serviceManager.install({"--watchdog"});
    watchdog.awaitProgram();
    ::kill(manager.process(), SIGSTOP);
    watchdog.serviceManager.remove();
    ::kill(manager.process(), SIGCONT);
    EXPECT_THAT(watchdog.world.filesLeft(), IsEmpty());
    for (const auto process : watchdog.world.living())
        watchdog.world.kill(process);
    GuardedWorld::wait(7);
    EXPECT_THAT(watchdog.world.living(), IsEmpty());
}

TEST(WatchdogTest, aTimerThatDoesNotStartIsNotWaitedFor) {
    const UserManagerProcess manager;
    if (manager.obstacle()) GTEST_SKIP() << *manager.obstacle();
    const auto changes = manager.configDirectory() / "systemd/user/com.kestrava.velmorin.watchdog.timer.d";
    std::filesystem::create_directories(changes);
    std::ofstream{changes / "never.conf"} << "[Unit]\nConditionPathExists=/nowhere\n";
    Watchdog watchdog{manager.configDirectory(), manager.runtimeDirectory()};
    EXPECT_LT(duration([&] { watchdog.serviceManager.install({"--watchdog"}); }), SystemdServiceManager::patience / 2);
    EXPECT_THAT(watchdog.world.keepers(), SizeIs(1));
}

TEST(WatchdogTest, wordsThatNoUnitHoldsAreGuardedByTheKeeper) {
    const UserManagerProcess manager;
    if (manager.obstacle()) GTEST_SKIP() << *manager.obstacle();
    Watchdog watchdog{manager.configDirectory(), manager.runtimeDirectory()};
    watchdog.serviceManager.install({"--watchdog", "\xFF"});
    watchdog.awaitProgram();
    ASSERT_THAT(watchdog.world.living(), SizeIs(1));
    EXPECT_THAT(GuardedWorld::argumentsOf(watchdog.world.living().front()), ElementsAre("--watchdog", "\xFF"));
    EXPECT_THAT(watchdog.world.keepers(), SizeIs(1));
}

TEST(WatchdogTest, foldersThatAreEmptyAfterwardsGoAndOthersStay) {
    const TemporaryDirectory directory;
    const auto config = directory.path() / "config";
    Watchdog watchdog{config, directory.path() / "run"};
    watchdog.serviceManager.install({"--watchdog"});
    watchdog.serviceManager.remove();
    EXPECT_TRUE(std::filesystem::is_empty(config));
    std::filesystem::create_directories(config / "elsewhere");
    std::filesystem::create_symlink("elsewhere", config / "autostart");
    watchdog.serviceManager.install({"--watchdog"});
    watchdog.serviceManager.remove();
    EXPECT_TRUE(std::filesystem::is_symlink(config / "autostart"));
    EXPECT_TRUE(std::filesystem::is_directory(config / "elsewhere"));
}

TEST(WatchdogTest, aKeeperGoesWithItsAutostartEntryAndWithItsDisplay) {
    const TemporaryDirectory directory;
    Watchdog watchdog{directory.path() / "config", directory.path() / "run"};
    const AutostartServiceManager autostart{watchdog.world.place(), watchdog.childProcesses, watchdog.files};
    watchdog.serviceManager.install({"--watchdog"});
    watchdog.awaitProgram();
    ASSERT_THAT(watchdog.world.keepers(), SizeIs(1));
    std::filesystem::remove(autostart.entryFile());
    GuardedWorld::wait(1);
    EXPECT_THAT(watchdog.world.keepers(), IsEmpty());
    watchdog.serviceManager.install({"--watchdog"});
    ASSERT_THAT(watchdog.world.keepers(), SizeIs(1));
    watchdog.world.closeDisplay();
    GuardedWorld::wait(7);
    EXPECT_THAT(watchdog.world.keepers(), IsEmpty());
}

TEST(WatchdogTest, theNextLoginsKeeperTakesThePlaceOfTheLast) {
    const TemporaryDirectory directory;
    Watchdog watchdog{directory.path() / "config", directory.path() / "run"};
    watchdog.serviceManager.install({"--watchdog"});
    watchdog.awaitProgram();
    const auto first = watchdog.world.keepers();
    ASSERT_THAT(first, SizeIs(1));
    watchdog.world.launchAutostart();
    const auto second = watchdog.world.keepers();
    ASSERT_THAT(second, SizeIs(1));
    EXPECT_NE(first, second);
}

} // namespace
} // namespace velmorin
