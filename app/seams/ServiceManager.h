#pragma once

#include <string>
#include <vector>

namespace velmorin {

/// The per-user job that guards a session: it looks every 3 seconds, and at the next login, whether a process of this
/// program's name lives, and starts the program in the background where none does. Main thread.
class ServiceManager {
public:
    virtual ~ServiceManager() = default;

    /// Sets the job up with the arguments for the program, each of which arrives there as one word, whatever it holds.
    /// It takes the place of a job that may be there. May block for as long as the system's own tools run. A failure
    /// leaves the session unguarded and is not told.
    virtual void install(const std::vector<std::string>& launchArguments) = 0;
    /// Takes the job away, if it is there.
    virtual void remove() = 0;
};

} // namespace velmorin
