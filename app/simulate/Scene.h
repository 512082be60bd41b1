#pragma once

#include "app/platform/simulated/SimulatedDesktop.h"
#include "app/simulate/SimulatedProgram.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmorin {

/// Who starts a process of the program.
enum class LaunchedBy { user, watchdog };

/// A simulated machine with the program on it, through all the lives of its process.
class Scene {
public:
    /// `files` hold what the disk holds, and must outlive this. Starts no process.
    Scene(Date start, Files& files, ProgramSetup setup);
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;

    SimulatedDesktop& desktop() { return m_desktop; }
    /// The process that runs; null when there is none. The first one, where they could not see each other.
    SimulatedProgram* program();

    /// Whether a process was ever started.
    bool hasLaunched() const { return m_nextPID > SimulatedWorkspace::firstOwnPID; }
    /// Starts a process and lets it go through its launch. Beside a living one it is a second instance.
    void launch(LaunchedBy by);
    /// The process dies; false when none runs.
    bool crash();
    /// Tells everything of the moment to the journal as the event "state".
    void tellState();
    /// Keeps the present pairing in mind, as its phone would: messages that were sealed for it can then be shown also
    /// when there is another one.
    void notePairing();
    /// Seals a message as the paired phone would and sends it; false without a pairing.
    bool sendFromPhone(std::string_view message);

private:
    /// Lets an ended or dying process go.
    void bury(const SimulatedProgram* program);
    void writeState(JSONOutput& output);

    ProgramSetup m_setup;
    SimulatedDesktop m_desktop;
    std::int32_t m_nextPID;                   ///< of the program itself
    std::map<std::string, Bytes> m_phoneKeys; ///< by the topic of the commands
    std::vector<std::unique_ptr<SimulatedProgram>> m_programs;
};

} // namespace velmorin
