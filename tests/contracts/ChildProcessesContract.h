#pragma once

#include "app/seams/ChildProcesses.h"
#include "tests/contracts/Bench.h"

#include <cstddef>
#include <optional>
#include <string>

namespace velmorin {

class ChildProcessesBench : public Bench {
public:
    /// A program that the platform can run, and what is expected of it.
    struct Program {
        std::string executable;
        ChildProcesses::Arguments arguments;
        ScriptResult result; ///< what comes of it when it may run to its end
    };

    virtual ChildProcesses& childProcesses() = 0;

    /// A program that writes to its standard output and succeeds. Two of different numbers write different texts.
    virtual Program succeeding(int number) = 0;
    /// A program that writes to its standard error and fails.
    virtual Program failing() = 0;
    /// A program that runs for so many seconds.
    virtual Program lasting(double seconds) = 0;
    /// A program that is not there.
    virtual Program missing() = 0;
    /// A program that runs for so many seconds and leaves a trace in the end; absent where none can.
    virtual std::optional<Program> tracing(double seconds) = 0;
    /// How many of those have left theirs.
    virtual std::size_t traces() = 0;
};

/// What the running of other programs promises.
class ChildProcessesContract : public Contract<ChildProcessesBench> {
protected:
    static constexpr double longTimeout = 60.0;

    /// What came of one program.
    struct Outcome {
        int calls = 0;
        ScriptResult result;
    };

    void run(const ChildProcessesBench::Program& program, double timeout, Outcome& outcome) {
        bench().childProcesses().run(program.executable, program.arguments, timeout, [&outcome](ScriptResult result) {
            ++outcome.calls;
            outcome.result = std::move(result);
        });
    }
};

} // namespace velmorin
