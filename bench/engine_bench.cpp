// What the engine costs while a session runs, on the simulated desktop with its disk in memory.

#include "app/simulate/Scene.h"
#include "tests/support/MemoryFiles.h"

#include <atomic>
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <new>
#include <string>

namespace {

std::atomic<std::int64_t> allocations{0};
std::atomic<std::int64_t> living{0};

} // namespace

// Counted, so that a tick that leaves anything behind is seen.
void* operator new(std::size_t size) {
    ++allocations;
    ++living;
    if (void* memory = std::malloc(size)) return memory;
    throw std::bad_alloc{};
}
void operator delete(void* memory) noexcept {
    if (memory) --living;
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    operator delete(memory);
}

namespace velmorin {
namespace {

constexpr Date startOfScene{800'000'000};
constexpr double threeHours = 3 * 3600.0;

ProgramSetup programSetup() {
    ProgramSetup setup;
    setup.directory = "/data/Velmorin";
    setup.bundleID = "com.kestrava.velmorin";
    return setup;
}

/// A machine with the program and `count` applications: the first is in front and allowed, one in ten of the others is
/// allowed, too.
struct Machine {
    explicit Machine(int count) : scene{startOfScene, files, programSetup()} {
        for (int pid = 1; pid <= count; ++pid) {
            const auto identifier = "org.example.application" + std::to_string(pid);
            scene.desktop().workspace.add({pid, identifier, "Application " + std::to_string(pid)});
            if (pid % 10 == 1) profile.allowedApps.push_back({identifier, "Application"});
        }
        scene.desktop().workspace.startInFront(1);
        scene.launch(LaunchedBy::user);
        scene.desktop().time.settle();
        profile.deep.totalMinutes = 180;
    }

    void start() {
        scene.program()->controller().start(profile, "write");
        scene.desktop().time.settle();
    }

    MemoryFiles files;
    Scene scene;
    Profile profile{"Work", SessionMode::deep};
};

/// A second of a locked session in which nobody does anything.
void lockedTick(benchmark::State& state) {
    Machine machine{static_cast<int>(state.range(0))};
    machine.profile.deep.totalMinutes = 1'000'000;
    machine.profile.deep.breakEveryMinutes = 1'000'000;
    machine.start();
    machine.scene.desktop().time.advance(10);
    const std::int64_t allocationsBefore = allocations;
    const std::int64_t livingBefore = living;
    for (auto _ : state)
        machine.scene.desktop().time.advance(1);
    const auto made = static_cast<double>(allocations - allocationsBefore);
    const auto left = static_cast<double>(living - livingBefore);
    state.counters["allocations"] = made / static_cast<double>(state.iterations());
    state.counters["left_behind"] = left;
}
BENCHMARK(lockedTick)->Arg(5)->Arg(20)->Arg(200)->Unit(benchmark::kMicrosecond);

/// Three hours of a deep session with locked breaks, from its start to its record.
void deepSession(benchmark::State& state) {
    for (auto _ : state) {
        Machine machine{20};
        machine.start();
        machine.scene.desktop().time.advance(threeHours + 1);
        if (machine.scene.program()->controller().isActive()) state.SkipWithError("the session is not over");
    }
}
BENCHMARK(deepSession)->Unit(benchmark::kMillisecond);

/// A push against the lock and the return from it, both written to the disk in memory.
void pushAndReturn(benchmark::State& state) {
    Machine machine{20};
    machine.profile.deep.totalMinutes = 1'000'000;
    machine.profile.deep.breakEveryMinutes = 1'000'000;
    machine.start();
    machine.scene.desktop().time.advance(10);
    SessionController& controller = machine.scene.program()->controller();
    for (auto _ : state) {
        machine.scene.desktop().workspace.activate(2);
        machine.scene.desktop().time.settle();
        controller.returnToWork();
        machine.scene.desktop().time.advance(3);
    }
}
BENCHMARK(pushAndReturn)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace velmorin
