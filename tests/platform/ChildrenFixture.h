#pragma once

#include "app/platform/posix/PosixChildProcesses.h"
#include "tests/support/CallQueue.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <iterator>
#include <optional>
#include <ostream>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace velmorin {

/// How a failed test shows a result.
inline void PrintTo(const ScriptResult& result, std::ostream* out) {
    const auto print = [&](const char* name, const std::string& text) {
        *out << ", " << text.size() << " bytes of " << name << " \"" << text.substr(0, 200) << '"';
    };
    *out << "code " << result.code;
    print("output", result.output);
    print("error", result.error);
}

/// Asks again and again whether something holds that nobody tells of. False when it does not in good time.
template <class Condition>
bool eventually(Condition condition) {
    const auto deadline = std::chrono::steady_clock::now() + CallQueue::patience;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > deadline) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds{1});
    }
    return true;
}

inline std::ptrdiff_t entriesOf(const char* folder) {
    const std::filesystem::directory_iterator entries{folder};
    return std::distance(begin(entries), end(entries));
}
inline std::ptrdiff_t openDescriptors() {
    return entriesOf("/proc/self/fd");
}
inline std::ptrdiff_t threads() {
    return entriesOf("/proc/self/task");
}
/// No child is running, and none has ended without being reaped.
inline bool hasNoChild() {
    siginfo_t child{};
    return ::waitid(P_ALL, 0, &child, WEXITED | WNOHANG | WNOWAIT) == -1 && errno == ECHILD;
}

/// Measures the seconds since it was made.
class Stopwatch {
public:
    double seconds() const { return std::chrono::duration<double>{std::chrono::steady_clock::now() - m_start}.count(); }

private:
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
};

/// Sees to it that no thread, no descriptor and no child of what was made after it outlasts it.
class NothingIsLeft {
public:
    NothingIsLeft() = default;
    NothingIsLeft(const NothingIsLeft&) = delete;
    NothingIsLeft& operator=(const NothingIsLeft&) = delete;
    ~NothingIsLeft() {
        EXPECT_TRUE(eventually([this] { return threads() == m_threads; })) << "a thread is left";
        EXPECT_TRUE(hasNoChild()) << "a child is left";
        EXPECT_EQ(openDescriptors(), m_descriptors);
    }

private:
    /// The number of threads, counted after a first one has come and gone: a sanitizer adds one of its own to it.
    static std::ptrdiff_t threadsOfOld() {
        std::string first;
        std::thread{[&] { first = "/proc/self/task/" + std::to_string(::gettid()); }}.join();
        EXPECT_TRUE(eventually([&] { return !std::filesystem::exists(first); }));
        return threads();
    }

    std::ptrdiff_t m_threads = threadsOfOld();
    std::ptrdiff_t m_descriptors = openDescriptors();
};

/// Child processes with the thread that waits for them.
class Children {
public:
    /// More than any child here needs that is not meant to be stopped.
    static constexpr double ample = 60;

    /// Runs a program and waits for its result.
    ScriptResult run(const std::string& executable, const ChildProcesses::Arguments& arguments = {},
                     double timeout = ample) {
        std::optional<ScriptResult> result;
        processes->run(executable, arguments, timeout, [&](ScriptResult arrived) { result = std::move(arrived); });
        if (!queue.runUntil([&] { return result.has_value(); })) ADD_FAILURE() << "no result in good time";
        return result.value_or(ScriptResult{});
    }
    ScriptResult shell(const std::string& script, double timeout = ample) {
        return run("/bin/sh", {"-c", script}, timeout);
    }

    CallQueue queue;
    std::optional<PosixChildProcesses> processes{std::in_place,
                                                 [this](std::function<void()> call) { queue.post(std::move(call)); }};
};

/// Each test leaves no thread, no descriptor and no child behind.
class ChildrenFixture : public testing::Test, NothingIsLeft, protected Children {};

} // namespace velmorin
