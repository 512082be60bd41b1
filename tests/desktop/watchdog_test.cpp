// A program of the true name, killed again and again while a session is guarded, with a service manager and without.

#include "app/platform/linux/services/LinuxServiceManager.h"
#include "app/platform/posix/PosixChildProcesses.h"
#include "core/store/PosixFiles.h"
#include "tests/support/GuardedWorld.h"
#include "tests/support/UserManagerProcess.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <gmock/gmock.h>
#include <iostream>
#include <random>

namespace velmorin {
namespace {

using ::testing::IsEmpty;
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

class Watchdog {
public:
    Watchdog(std::filesystem::path configDirectory, std::filesystem::path runtimeDirectory)
        : world{"Velmorin", std::move(configDirectory), std::move(runtimeDirectory)} {}
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
    Watchdog watchdog{manager.configDirectory(), manager.runtimeDirectory()};
    std::cout << "installed in " << duration([&] { watchdog.serviceManager.install({"--watchdog"}); }) << " s\n";
    EXPECT_THAT(watchdog.world.keepers(), SizeIs(::testing::Le(1))) << "a check at most";
    watchdog.awaitProgram();
    watchdog.killAgainAndAgain(times());
    watchdog.expectNothingAfterRemoval();
}

TEST(WatchdogTest, aKeeperBringsTheProgramBackUntilTheJobIsRemoved) {
    const TemporaryDirectory directory;
    Watchdog watchdog{directory.path() / "config", directory.path() / "run"};
    std::cout << "installed in " << duration([&] { watchdog.serviceManager.install({"--watchdog"}); }) << " s\n";
    EXPECT_THAT(watchdog.world.keepers(), SizeIs(1));
    watchdog.awaitProgram();
    watchdog.killAgainAndAgain(times());
    watchdog.expectNothingAfterRemoval();
}

TEST(WatchdogTest, aServiceManagerThatHangsDoesNotHoldUpASession) {
    const UserManagerProcess manager;
    if (manager.obstacle()) GTEST_SKIP() << *manager.obstacle();
    Watchdog watchdog{manager.configDirectory(), manager.runtimeDirectory()};
    ::kill(manager.process(), SIGSTOP);
    EXPECT_LT(duration([&] { watchdog.serviceManager.install({"--watchdog"}); }), 12.0);
    // The other way guards it.
    EXPECT_THAT(watchdog.world.keepers(), SizeIs(1));
    EXPECT_LT(duration([&] { watchdog.serviceManager.remove(); }), 8.0);
    ::kill(manager.process(), SIGCONT);
    EXPECT_THAT(watchdog.world.keepers(), IsEmpty());
}

TEST(WatchdogTest, aKeeperGoesWithItsAutostartEntryAndWithItsDisplay) {
    const TemporaryDirectory directory;
    Watchdog watchdog{directory.path() / "config", directory.path() / "run"};
    const AutostartServiceManager autostart{watchdog.world.place(), watchdog.childProcesses, watchdog.files};
    watchdog.serviceManager.install({"--watchdog"});
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
    const auto first = watchdog.world.keepers();
    ASSERT_THAT(first, SizeIs(1));
    watchdog.world.launchAutostart();
    const auto second = watchdog.world.keepers();
    ASSERT_THAT(second, SizeIs(1));
    EXPECT_NE(first, second);
}

} // namespace
} // namespace velmorin
