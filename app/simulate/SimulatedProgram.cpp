#include "app/simulate/SimulatedProgram.h"

#include "app/engine/StateWriting.h"

#include <utility>

namespace velmorin {

SimulatedProgram::SimulatedProgram(SimulatedDesktop& desktop, ProgramSetup setup, LaunchOptions options,
                                   std::int32_t pid)
    : m_desktop{desktop},
      m_setup{std::move(setup)},
      m_application{pid, m_setup.bundleID},
      m_data{JSONStore{m_setup.directory, desktop.disk},
             {desktop.time, desktop.time, desktop.random, desktop.relay, m_appearance}},
      m_controller{m_data,
                   {desktop.time, desktop.time, desktop.random, desktop.workspace, m_application, desktop.sounds,
                    desktop.shortcuts, desktop.serviceManager, desktop.browsers, m_appearance,
                    SimulatedBrowsers::scriptTool}},
      m_lifecycle{std::move(options), m_controller, desktop.workspace, m_application} {
    m_appearance.apply(*m_data.settings());
    m_controller.onlyBlock = m_setup.onlyBlock;
    m_controller.exitWaitOverride = m_setup.exitWaitOverride;
    m_controller.autoReturnFromWarnings = m_setup.autoReturnFromWarnings;
    m_controller.watchdogArguments = m_setup.watchdogArguments;
    m_application.onTerminate = [this] { askToQuit(); };
}

void SimulatedProgram::launch() {
    if (m_lifecycle.isAnotherInstanceRunning()) {
        m_application.terminate();
        return;
    }
    connect();
    if (m_data.phoneLink().pairing()) m_data.phoneLink().startListening();
    m_lifecycle.observePowerOff();
    m_lifecycle.resume();
    if (m_lifecycle.start() == Lifecycle::Start::quit) m_application.terminate();
}

void SimulatedProgram::askToQuit() {
    if (m_hasEnded || m_lifecycle.answerToQuit() != Lifecycle::QuitAnswer::quit) return;
    m_hasEnded = true;
    m_desktop.journal.tell("terminateApplication");
    if (onEnd) onEnd();
}

void SimulatedProgram::connect() {
    Journal& journal = m_desktop.journal;
    m_controller.onOverlayChange = [&journal](const OverlayState& state) {
        journal.tell("overlay", [&state](JSONOutput& output) { writeOverlay(output, state); });
    };
    m_controller.onSessionChange = [&journal] { journal.tell("sessionChange"); };
    if (m_setup.tellsTicks) m_controller.onTick = [&journal] { journal.tell("tick"); };
    m_controller.onSessionBegan = [this](const ActiveSession& session) {
        m_desktop.journal.tell("sessionBegan");
        if (m_data.settings()->lockPhoneToo) m_data.phoneLink().sendStart(session);
    };
    m_controller.onSessionEnded = [this](const ActiveSession& session) {
        m_desktop.journal.tell("sessionEnded");
        m_data.phoneLink().sendEnd(session);
    };
}

} // namespace velmorin
