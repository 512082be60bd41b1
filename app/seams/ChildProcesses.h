#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace velmorin {

/// What came of a child process that was run to its end.
struct ScriptResult {
    std::int32_t code = 0; ///< exit status; the number of the signal that ended it; -1 when it could not be started
    std::string output;    ///< all of standard output, as UTF-8 with bad sequences repaired
    std::string error;     ///< all of standard error, likewise; why it failed when it could not be started

    bool operator==(const ScriptResult&) const = default;
};

/// Other programs run by this one, in its environment and with nothing on their standard input. Each is reaped. An
/// executable is named by its path. Main thread; `run` and `start` return at once.
class ChildProcesses {
public:
    using Arguments = std::vector<std::string>;
    using Completion = std::function<void(ScriptResult)>;

    virtual ~ChildProcesses() = default;

    /// Runs a program and gives its result to `completion` exactly once, on the main thread and never from within this
    /// call. Still running after `timeout` seconds it is asked to end (SIGTERM), which ends the wait also for outputs
    /// that its own children keep open.
    virtual void run(const std::string& executable, const Arguments& arguments, double timeout,
                     Completion completion) = 0;
    /// Starts a program and forgets it. Its outputs are thrown away; no failure is told.
    virtual void start(const std::string& executable, const Arguments& arguments) = 0;
    /// Runs a program and returns when it has ended. Its outputs are thrown away; neither its status nor a failure to
    /// start it is told.
    virtual void runAndWait(const std::string& executable, const Arguments& arguments) = 0;
};

} // namespace velmorin
