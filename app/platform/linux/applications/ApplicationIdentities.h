#pragma once

#include "app/platform/linux/applications/DesktopEntries.h"
#include "app/platform/linux/applications/Processes.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace velmorin {

/// What a window tells of its application.
struct WindowFacts {
    std::optional<std::int32_t> processID; ///< as the display server knows it; absent for one of another machine
    std::string instance;                  ///< the two parts of WM_CLASS; empty where there is none
    std::string className;
};

/// Which application a window belongs to.
struct ApplicationIdentity {
    std::optional<std::string> bundleID; ///< as the core knows the application; absent when nothing tells
    std::optional<std::string> name;     ///< for people
    std::optional<std::string> desktopFile;

    bool operator==(const ApplicationIdentity&) const = default;
};

/// Tells which application a window belongs to. A window class is a claim that any program can make: it never gives a
/// part of the system that the lock passes over, nor an application whose program is known to be another one, nor a
/// browser whose tabs are read. The order of trust stands in docs/identities.md. Each answer reads a few files below
/// /proc; ask once for a window. Main thread.
class ApplicationIdentities {
public:
    /// Both must outlive this.
    ApplicationIdentities(const DesktopEntries& entries, const Processes& processes)
        : m_entries{entries}, m_processes{processes} {}

    ApplicationIdentity identify(const WindowFacts& window) const;

    /// The identifier of what an entry starts, as `identify` will tell once it runs.
    static std::string bundleID(const DesktopEntry& entry);

private:
    struct Finding {
        std::string bundleID;
        const DesktopEntry* entry = nullptr;
    };
    using Candidates = std::vector<const DesktopEntry*>;

    ApplicationIdentity own() const;
    std::optional<Finding> find(const WindowFacts& window, const ProcessFacts& process) const;
    std::optional<Finding> findAnything(const WindowFacts& window, const ProcessFacts& process) const;
    std::optional<Finding> bySandbox(const ProcessFacts& process) const;
    std::optional<Finding> byKnownProgram(const WindowFacts& window, const ProcessFacts& process) const;
    std::optional<Finding> byWindowClass(const WindowFacts& window, const ProcessFacts& process) const;
    std::optional<Finding> byEntryOfProgram(const ProcessFacts& process) const;
    std::optional<Finding> byControlGroup(const ProcessFacts& process) const;
    std::optional<Finding> byNameAlone(const WindowFacts& window, const ProcessFacts& process) const;

    Candidates claimed(const WindowFacts& window) const;
    bool isOfOther(const ProcessFacts& process, const DesktopEntry& entry) const;

    const DesktopEntries& m_entries;
    const Processes& m_processes;
};

} // namespace velmorin
