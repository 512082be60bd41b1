#pragma once

#include "app/seams/ServiceManager.h"
#include "tests/contracts/Bench.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace velmorin {

/// The world of a keeper of jobs that really starts programs.
class GuardedProgramBench : public Bench {
public:
    using Process = std::int32_t;

    virtual ServiceManager& serviceManager() = 0;
    /// Why it cannot be tried here; absent when it can.
    virtual std::optional<std::string> obstacle() = 0;

    /// The living processes of the program, whoever started them.
    virtual std::vector<Process> living() = 0;
    /// The arguments of a process.
    virtual std::vector<std::string> argumentsOf(Process process) = 0;
    /// The environment of a process.
    virtual std::map<std::string, std::string> environmentOf(Process process) = 0;
    /// An application that a process has opened, if that lives.
    virtual std::optional<Process> openedBy(Process process) = 0;
    /// Has the user start the program.
    virtual Process launch() = 0;
    /// Ends a process for good, and returns when it has ended.
    virtual void kill(Process process) = 0;

    /// What the desktop's own session tells every program.
    virtual std::map<std::string, std::string> session() = 0;
    /// Whatever a job has left where jobs are kept: files, units, processes.
    virtual std::vector<std::string> leftovers() = 0;
};

/// What the keeper of the watchdog's job promises of the program that it guards.
class GuardedProgramContract : public Contract<GuardedProgramBench> {
protected:
    /// From the death of a program to its next life, in seconds: a check every 3 seconds, and a start.
    static constexpr double longestAbsence = 4.0;

    void SetUp() override {
        if (const auto obstacle = bench().obstacle()) GTEST_SKIP() << *obstacle;
    }

    /// The one living process, once there is one; fails where it does not come back in time.
    GuardedProgramBench::Process awaitProgram();
};

} // namespace velmorin
