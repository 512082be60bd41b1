#pragma once

#include <string>

namespace velmorin {

/// What the user has prepared under a name to be run when a session starts or ends. Main thread.
class Shortcuts {
public:
    virtual ~Shortcuts() = default;

    /// Starts it and forgets it: returns at once, its output is thrown away, and no failure is ever told.
    virtual void run(const std::string& name) = 0;
};

} // namespace velmorin
