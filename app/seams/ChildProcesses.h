#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace velmorin {

/// What came of a child process that was run to its end.
struct ScriptResult {
    /// Exit status; the number of the signal that ended it, SIGTERM's also where nobody knows how it ended or whether;
    /// -1 when it could not be started.
    std::int32_t code = 0;
    /// All of standard output, as UTF-8 in which U+FFFD stands for each bad sequence. Of more than 64 MiB the
    /// beginning.
    std::string output;
    /// All of standard error, likewise; why it could not be started, if so.
    std::string error;

    bool operator==(const ScriptResult&) const = default;
};

/// Other programs run by this one, in its environment and with nothing on their standard input. Each is reaped. An
/// executable is named by its path and gets the arguments as they are; no shell reads them. Main thread; `run` and
/// `start` return at once.
class ChildProcesses {
public:
    using Arguments = std::vector<std::string>;
    using Completion = std::function<void(ScriptResult)>;

    virtual ~ChildProcesses() = default;

    /// Runs a program and gives its result to `completion` exactly once, on the main thread and never from within this
    /// call. Both outputs are read to their ends, also where its own children keep them open after it. Still running
    /// after `timeout` seconds (zero or less: at once) it is asked to end (SIGTERM) and never forced to. That time also
    /// ends the reading of outputs that are still open; for a program that does not listen, a second later. What
    /// becomes of such a program or of its children then is not told any more.
    virtual void run(const std::string& executable, const Arguments& arguments, double timeout,
                     Completion completion) = 0;
    /// Starts a program and forgets it. Its outputs are thrown away; no failure is told.
    virtual void start(const std::string& executable, const Arguments& arguments) = 0;
    /// Runs a program and returns when it has ended. Its outputs are thrown away; neither its status nor a failure to
    /// start it is told.
    virtual void runAndWait(const std::string& executable, const Arguments& arguments) = 0;
};

} // namespace velmorin
