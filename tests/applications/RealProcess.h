#pragma once

#include <chrono>
#include <csignal>
#include <functional>
#include <gtest/gtest.h>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace velmorin {

/// Whether something comes true that nobody tells of, asked again and again.
inline bool comesTrue(const std::function<bool()>& condition) {
    constexpr std::chrono::seconds patience{30};
    const auto deadline = std::chrono::steady_clock::now() + patience;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > deadline) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds{2});
    }
    return true;
}

/// A program that runs, waiting for its standard input, until this goes.
class RealProcess {
public:
    explicit RealProcess(std::string program) {
        int ends[2];
        EXPECT_EQ(::pipe(ends), 0);
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, ends[0], 0);
        posix_spawn_file_actions_addclose(&actions, ends[1]);
        char* arguments[] = {program.data(), nullptr};
        EXPECT_EQ(::posix_spawn(&m_pid, program.c_str(), &actions, nullptr, arguments, environ), 0);
        posix_spawn_file_actions_destroy(&actions);
        ::close(ends[0]);
        m_input = ends[1];
    }
    RealProcess(const RealProcess&) = delete;
    RealProcess& operator=(const RealProcess&) = delete;
    ~RealProcess() {
        ::close(m_input);
        ::kill(m_pid, SIGKILL);
        ::waitpid(m_pid, nullptr, 0);
    }

    pid_t pid() const { return m_pid; }
    bool eventually(const std::function<bool()>& condition) const { return comesTrue(condition); }

private:
    pid_t m_pid = 0;
    int m_input = -1;
};

} // namespace velmorin
