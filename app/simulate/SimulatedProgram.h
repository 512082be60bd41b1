#pragma once

#include "app/engine/AppData.h"
#include "app/engine/Lifecycle.h"
#include "app/engine/SessionController.h"
#include "app/platform/simulated/SimulatedApplication.h"
#include "app/platform/simulated/SimulatedDesktop.h"
#include "app/strings/Appearance.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace velmorin {

/// What every process of a scene is given.
struct ProgramSetup {
    std::filesystem::path directory;     ///< of the store
    std::optional<std::string> bundleID; ///< the program's own identifier
    std::optional<AppPolicy::BundleIDs> onlyBlock;
    std::optional<double> exitWaitOverride;
    bool autoReturnFromWarnings = false;
    std::vector<std::string> watchdogArguments;
    bool tellsTicks = false; ///< whether each tick is an event
};

/// One process of the program, from its start to its end, without windows: the engine wired as the application wires
/// it, with the journal where the windows would be.
class SimulatedProgram {
public:
    /// The desktop must outlive this.
    SimulatedProgram(SimulatedDesktop& desktop, ProgramSetup setup, LaunchOptions options, std::int32_t pid);
    /// The process is gone from one moment to the next, as by a kill: nothing is saved or tidied up.
    ~SimulatedProgram() = default;
    SimulatedProgram(const SimulatedProgram&) = delete;
    SimulatedProgram& operator=(const SimulatedProgram&) = delete;

    /// Goes through the launch. The process may have ended when this returns.
    void launch();
    /// Somebody asks it to quit.
    void askToQuit();
    void announcePowerOff() { m_application.announcePowerOff(); }

    bool hasEnded() const { return m_hasEnded; }
    std::int32_t pid() const { return m_application.processIdentifier(); }
    AppData& data() { return m_data; }
    SessionController& controller() { return m_controller; }
    SimulatedApplication& application() { return m_application; }
    const Appearance& appearance() const { return m_appearance; }

    std::function<void()> onEnd; ///< the program ended itself

private:
    void connect();

    SimulatedDesktop& m_desktop;
    ProgramSetup m_setup;
    Appearance m_appearance;
    SimulatedApplication m_application;
    AppData m_data;
    SessionController m_controller;
    Lifecycle m_lifecycle;
    bool m_hasEnded = false;
};

} // namespace velmorin
