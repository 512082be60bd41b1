#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace velmorin {

/// What the system tells of one running process. What it keeps to itself is empty: of another user's process, for
/// instance, it does not tell the executable.
struct ProcessFacts {
    std::string executable;               ///< absolute path, as the process itself sees it
    bool isExecutableOfUser = false;      ///< whether the process's own user could have put the executable there
    std::string shortName;                ///< of at most 15 bytes, and as the process likes
    std::vector<std::string> arguments;   ///< the command line, the program's name first; as the process likes
    std::string controlGroup;             ///< path in the service manager's hierarchy, as "/user.slice/…/app.scope"
    std::optional<std::string> flatpakID; ///< of the application whose sandbox it runs in
    std::uint64_t startTime = 0; ///< in the kernel's ticks since boot; with the pid it names a process for ever
    std::uint32_t userID = 0;    ///< the real one
};

/// Looks at processes. Main thread.
class Processes {
public:
    virtual ~Processes() = default;

    /// Absent when there is no such process.
    virtual std::optional<ProcessFacts> facts(std::int32_t processID) const = 0;
};

} // namespace velmorin
