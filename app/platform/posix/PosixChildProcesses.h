#pragma once

#include "app/seams/ChildProcesses.h"

#include <functional>
#include <memory>

namespace velmorin {

/// The processes of a POSIX system. Each child has a thread of its own that is its only reader and its only reaper, so
/// that neither a signal handler nor a process ID that has passed to another process can come in between. These threads
/// outlive this object: what is still running then is read, guarded and reaped as before, but nobody is told.
class PosixChildProcesses final : public ChildProcesses {
public:
    /// Has a call made on the main thread, later. Any thread may ask for it; nobody does once this object is gone.
    using Post = std::function<void(std::function<void()>)>;

    explicit PosixChildProcesses(Post post);
    PosixChildProcesses(const PosixChildProcesses&) = delete;
    PosixChildProcesses& operator=(const PosixChildProcesses&) = delete;
    /// Does not wait for the children. Completions that were not called by now never are, and go with this.
    ~PosixChildProcesses() override;

    void run(const std::string& executable, const Arguments& arguments, double timeout, Completion completion) override;
    void start(const std::string& executable, const Arguments& arguments) override;
    void runAndWait(const std::string& executable, const Arguments& arguments) override;

private:
    class Results;

    std::shared_ptr<Results> m_results;
};

} // namespace velmorin
