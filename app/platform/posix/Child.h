#pragma once

#include "core/store/Descriptor.h"

#include <cstdint>
#include <string>
#include <sys/types.h>
#include <vector>

namespace velmorin {

/// A program to run, and the environment for it as NAME=value.
struct Program {
    std::string executable;
    std::vector<std::string> arguments;
    std::vector<std::string> environment;
};

/// The environment of this program at this moment. For the thread that changes it, which is the main one.
std::vector<std::string> currentEnvironment();

/// A child process, from its start until it is reaped. By its own process ID only: children of other parts of the
/// program are none of its business. One thread at a time, so that nobody can signal a number that another process
/// already has. It is not reaped by going: `hasEnded` or `waitForEnd` must have seen its end.
class Child {
public:
    /// Starts a program with nothing on its standard input, and with nothing else of this program's than the
    /// environment: signals do what they do by default and none is held back, no descriptor is passed on but the two
    /// its outputs go to. An output whose descriptor is not open is thrown away.
    explicit Child(const Program& program, const Descriptor& output = {}, const Descriptor& error = {});

    /// The error number that kept it from being started; 0 for a child that was started.
    int launchError() const { return m_launchError; }

    /// Whether it has ended, without waiting for it. True for one that was never started.
    bool hasEnded();
    /// Returns when it has ended.
    void waitForEnd();
    /// Asks it to end (SIGTERM), unless its end was seen. It may take its time, or not listen at all.
    void askToEnd();

    /// The exit status, or the number of the signal that ended it. SIGTERM's as long as nobody knows: before its end
    /// was seen, or where something else in the program took its status.
    std::int32_t code() const { return m_code; }

private:
    bool reap(int options);

    pid_t m_id = -1;
    int m_launchError = 0;
    bool m_hasEnded = false;
    std::int32_t m_code;
};

} // namespace velmorin
