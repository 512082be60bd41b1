// A session of a whole day on a real display, with a clock that runs as fast as the machine: nothing may pile up.

#include "app/engine/AppData.h"
#include "app/engine/SessionController.h"
#include "app/platform/linux/services/LinuxApplication.h"
#include "app/platform/linux/services/LinuxSounds.h"
#include "app/platform/posix/PosixChildProcesses.h"
#include "app/platform/posix/SystemRandom.h"
#include "app/platform/simulated/Journal.h"
#include "app/platform/simulated/SimulatedServices.h"
#include "app/platform/simulated/VirtualTime.h"
#include "core/store/JSONStore.h"
#include "core/store/PosixFiles.h"
#include "tests/support/ScriptedRelay.h"
#include "tests/support/X11World.h"

#include <chrono>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iostream>
#include <malloc.h>
#include <xcb/res.h>

namespace velmorin {
namespace {

namespace fs = std::filesystem;

using ::testing::Gt;
using ::testing::Le;

constexpr int secondsOfDay = 86'400;
constexpr const char* sounds = VELMORIN_SOUNDS;

std::ptrdiff_t entriesIn(const fs::path& folder) {
    return std::distance(fs::directory_iterator{folder}, fs::directory_iterator{});
}

/// What this process holds on to.
struct Holdings {
    std::size_t heap = 0; ///< bytes; zero where an allocator stands in that does not tell
    std::ptrdiff_t descriptors = 0;
    std::ptrdiff_t threads = 0;
    std::uint32_t resources = 0; ///< of the X server

    static Holdings of(xcb_connection_t* connection) {
        const auto info = ::mallinfo2();
        return {info.uordblks + info.hblkhd, entriesIn("/proc/self/fd"), entriesIn("/proc/self/task"),
                resourcesOf(connection)};
    }

    static std::uint32_t resourcesOf(xcb_connection_t* connection) {
        const auto cookie = xcb_res_query_client_resources(connection, xcb_get_setup(connection)->resource_id_base);
        const X11Reply<xcb_res_query_client_resources_reply_t> reply{
            xcb_res_query_client_resources_reply(connection, cookie, nullptr)};
        std::uint32_t count = 0;
        if (!reply) return count;
        for (auto types = xcb_res_query_client_resources_types_iterator(reply.get()); types.rem > 0;
             xcb_res_type_next(&types))
            count += types.data->count;
        return count;
    }
};

std::ostream& operator<<(std::ostream& stream, const Holdings& holdings) {
    return stream << holdings.heap << " bytes, " << holdings.descriptors << " descriptors, " << holdings.threads
                  << " threads, " << holdings.resources << " X resources";
}

class DayTest : public ::testing::Test {
protected:
    void SetUp() override {
        for (int number = 0; number < 5; ++number) {
            const auto name = (number % 2 == 0 ? "game" : "allowed") + std::to_string(number);
            programs.push_back(&world.launch(name, {"--class", name, "--windows", "4"}));
        }
        controller.autoReturnFromWarnings = true;
        const ActiveSession session{"Day",
                                    SessionMode::deep,
                                    "",
                                    time.now(),
                                    {{SegmentKind::work, secondsOfDay + 10'000.0}},
                                    {"allowed1", "allowed3"},
                                    {}};
        data.store().save(session, SessionController::sessionFile);
        ASSERT_TRUE(controller.resumeIfNeeded());
        ASSERT_TRUE(world.runner().runUntil([&] { return isHidden(*programs.back()); }));
        settle();
    }

    /// The window manager needs moments of real time, in which hours of the other would pass.
    void settle() { world.runner().run(0.1); }

    bool isHidden(const WindowProgram& program) {
        const auto state = world.words(program.window(), "WM_STATE");
        return !state.empty() && state.front() == 3;
    }

    /// Lets seconds pass, each with all that the desktop has to tell by then.
    void pass(int seconds) {
        for (int second = 0; second < seconds; ++second) {
            time.advance(1);
            world.runner().run(0);
        }
    }

    /// A forbidden window comes to the front, which is an attempt, and a program starts and is sent away.
    void disturb() {
        const auto attempts = (*controller.session())->attempts;
        world.userActivates(programs.front()->window());
        const auto isCounted = [&] { return (*controller.session())->attempts == attempts + 1; };
        ASSERT_TRUE(world.runner().runUntil(isCounted));
        ASSERT_TRUE(world.runner().runUntil([&] { return isHidden(*programs.front()); }));
        WindowProgram late{VELMORIN_TEST_WINDOW, {"--class", "late"}};
        ASSERT_TRUE(world.runner().runUntil([&] { return !late.isRunning(); }));
        ASSERT_TRUE(world.runner().runUntil([&] { return world.workspace().runningApplications("late").empty(); }));
        settle();
    }

    X11World world;
    std::vector<WindowProgram*> programs;
    TemporaryDirectory directory;
    VirtualTime time{Date{} + 800'000'000.0};
    PosixFiles files;
    SystemRandom random;
    PosixChildProcesses childProcesses{
        [this](std::function<void()> call) { world.runner().loop().post(std::move(call)); }};
    ScriptedRelay relay{time, time};
    Appearance appearance;
    AppData data{JSONStore{directory.path(), files}, {time, time, random, relay, appearance}};
    LinuxApplication application{world.runner().loop(), "com.kestrava.velmorin", [] {}};
    LinuxSounds player{sounds, files};
    Journal journal{[this] { return time.elapsed(); }};
    SimulatedShortcuts shortcuts{journal};
    SimulatedServiceManager serviceManager{journal};
    SessionController controller{data,
                                 {time, time, random, world.workspace(), application, player, shortcuts, serviceManager,
                                  childProcesses, appearance, "/bin/false"}};
};

TEST_F(DayTest, aDayOfTicksLeavesNothingBehind) {
    constexpr int hour = 3600;
    constexpr int warmUp = 2000;
    constexpr std::size_t tolerance = 32 * 1024; // bytes
    pass(warmUp / 2);
    disturb();
    pass(warmUp / 2);
    const auto before = Holdings::of(world.connection().get());
    const auto ticks = controller.tickCount();
    const auto start = std::chrono::steady_clock::now();
    for (int passed = 0; passed < secondsOfDay; passed += hour) {
        disturb();
        pass(hour);
    }
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
    const auto after = Holdings::of(world.connection().get());
    std::cout << "before: " << before << "\nafter:  " << after << "\n" << took.count() << " s for a day\n";
    EXPECT_EQ(controller.tickCount() - ticks, secondsOfDay);
    EXPECT_EQ((*controller.session())->attempts, secondsOfDay / hour + 1);
    EXPECT_THAT(after.heap, Le(before.heap + tolerance));
    EXPECT_THAT(after.descriptors, Le(before.descriptors));
    EXPECT_THAT(after.threads, Le(before.threads));
    EXPECT_THAT(before.resources, Gt(0U));
    EXPECT_EQ(after.resources, before.resources);
    EXPECT_TRUE(isHidden(*programs.front()));
    EXPECT_FALSE(isHidden(*programs[1]));
}

} // namespace
} // namespace velmorin
