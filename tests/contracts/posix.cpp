// The contracts that a POSIX system keeps, on real processes.

#include "app/platform/posix/PosixChildProcesses.h"
#include "app/platform/posix/SystemRandom.h"
#include "tests/contracts/ChildProcessesContract.h"
#include "tests/contracts/RandomContract.h"
#include "tests/support/CallQueue.h"
#include "tests/support/TemporaryDirectory.h"

#include <filesystem>
#include <string>

namespace velmorin {
namespace {

class PosixChildProcessesBench final : public ChildProcessesBench {
public:
    void settle() override { m_queue.runPosted(); }
    void wait(double seconds) override {
        m_queue.runUntil([] { return false; }, std::chrono::duration<double>{seconds});
    }

    ChildProcesses& childProcesses() override { return m_processes; }
    Program succeeding(int number) override {
        const std::string text = "program " + std::to_string(number);
        return {"/bin/echo", {text}, {0, text + "\n", ""}};
    }
    Program failing() override { return shell("echo wrong >&2; exit 3", {3, "", "wrong\n"}); }
    Program lasting(double seconds) override { return {"/bin/sleep", {std::to_string(seconds)}, {}}; }
    Program missing() override { return {"/nowhere/program", {}, {}}; }
    std::optional<Program> tracing(double seconds) override {
        const auto trace = m_directory.path() / "trace";
        return shell("sleep " + std::to_string(seconds) + "; echo >> '" + trace.string() + "'", {});
    }
    std::size_t traces() override {
        std::error_code missing;
        const auto size = std::filesystem::file_size(m_directory.path() / "trace", missing);
        return missing ? 0 : static_cast<std::size_t>(size);
    }

private:
    static Program shell(const std::string& script, ScriptResult result) {
        return {"/bin/sh", {"-c", script}, std::move(result)};
    }

    TemporaryDirectory m_directory;
    CallQueue m_queue;
    PosixChildProcesses m_processes{[this](std::function<void()> call) { m_queue.post(std::move(call)); }};
};

class SystemRandomBench final : public RandomBench {
public:
    Random& random() override { return m_random; }

private:
    SystemRandom m_random;
};

template <class Kind, class Real>
auto posix() {
    return ::testing::Values(BenchMaker<Kind>{"POSIX", [] { return std::make_unique<Real>(); }});
}

INSTANTIATE_TEST_SUITE_P(Contracts, ChildProcessesContract, (posix<ChildProcessesBench, PosixChildProcessesBench>()),
                         nameOfMaker<ChildProcessesBench>);
INSTANTIATE_TEST_SUITE_P(Contracts, RandomContract, (posix<RandomBench, SystemRandomBench>()),
                         nameOfMaker<RandomBench>);

} // namespace
} // namespace velmorin
