#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace velmorin {

/// What the system tells of one running process. What it keeps to itself is empty: of a process that guards itself, for
/// instance, it does not tell the program.
struct ProcessFacts {
    std::string program;      ///< path of the executable, or of the script that an interpreter runs; links resolved
    bool isOfSystem = false;  ///< the program is a file that the process's own user could not have put there
    bool isScript = false;    ///< the program is a script: the process executes its interpreter
    std::string shortName;    ///< of at most 15 bytes, and as the process likes
    std::string controlGroup; ///< path in the service manager's hierarchy, as "/user.slice/…/app-….scope"
    std::optional<std::string> flatpakID; ///< of the application whose sandbox it runs in
    std::uint64_t startTime = 0; ///< in the kernel's ticks since boot: with the pid it names a process for ever
    std::uint32_t userID = 0;    ///< the real one

    bool operator==(const ProcessFacts&) const = default;
};

/// Looks at processes. Main thread.
class Processes {
public:
    virtual ~Processes() = default;

    /// Absent when there is no such process.
    virtual std::optional<ProcessFacts> facts(std::int32_t processID) const = 0;
};

} // namespace velmorin
