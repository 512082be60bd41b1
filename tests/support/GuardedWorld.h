#pragma once

#include "app/platform/linux/services/WatchdogPlace.h"
#include "tests/support/TemporaryDirectory.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace velmorin {

/// A desktop session in which a watchdog guards a stand-in for the program: this process takes the session's
/// environment on for as long as this lives. Whatever the stand-ins have become ends with this. One at a time.
class GuardedWorld {
public:
    using Process = std::int32_t;

    /// Every path is below directories of the test's own; the program's path holds what paths may hold. Its processes
    /// have a name that those of no other test have.
    GuardedWorld(std::filesystem::path configDirectory, std::filesystem::path runtimeDirectory);
    /// As above, with a name for the program's processes.
    GuardedWorld(const std::string& processName, std::filesystem::path configDirectory,
                 std::filesystem::path runtimeDirectory);
    GuardedWorld(const GuardedWorld&) = delete;
    GuardedWorld& operator=(const GuardedWorld&) = delete;
    ~GuardedWorld();

    const WatchdogPlace& place() const { return m_place; }
    const std::map<std::string, std::string>& session() const { return m_session; }

    static void wait(double seconds);
    /// The living stand-ins, by their executable.
    std::vector<Process> living();
    /// The processes of the checker that work on this world.
    std::vector<Process> keepers() const;
    static std::vector<std::string> argumentsOf(Process process);
    static std::map<std::string, std::string> environmentOf(Process process);
    /// The application that a stand-in has opened, also when that has ended since.
    std::optional<Process> openedBy(Process process);
    Process launch();
    void kill(Process process);
    /// Has the display server of this session end.
    void closeDisplay();
    /// Runs the autostart entries as a desktop does at login, with GLib's reading of them, and returns when they have
    /// gone into the background.
    void launchAutostart() const;
    /// What lies where jobs are kept.
    std::vector<std::string> filesLeft() const;

private:
    void listen();
    void noteOpened(Process process);

    TemporaryDirectory m_directory;
    WatchdogPlace m_place;
    std::map<std::string, std::string> m_session;
    std::map<std::string, std::optional<std::string>> m_before; ///< the environment as it was
    std::map<Process, Process> m_opened;
    int m_display = -1;
};

} // namespace velmorin
