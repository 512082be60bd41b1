#include "app/engine/Lifecycle.h"

#include <algorithm>
#include <utility>

namespace velmorin {

Lifecycle::Lifecycle(LaunchOptions options, SessionController& controller, const Workspace& workspace,
                     Application& application)
    : m_options{std::move(options)}, m_controller{controller}, m_workspace{workspace}, m_application{application} {}

bool Lifecycle::isAnotherInstanceRunning() const {
    const auto& bundleID = m_application.bundleIdentifier();
    if (!bundleID) return false;
    const auto isAnother = [own = m_application.processIdentifier()](const Workspace::Application& instance) {
        return instance->processIdentifier() != own;
    };
    return std::ranges::any_of(m_workspace.runningApplications(*bundleID), isAnother);
}

void Lifecycle::observePowerOff() {
    m_powerOff = m_application.observePowerOff(m_lifetime.guard([this] { m_isSystemShuttingDown = true; }));
}

void Lifecycle::resume() {
    m_isResumed = m_controller.resumeIfNeeded();
}

Lifecycle::Start Lifecycle::start() const {
    if (!m_options.launchedByWatchdog) return Start::showMainWindow;
    const bool isIdle = !m_isResumed && shows<Overlay::None>(*m_controller.overlay());
    return isIdle ? Start::quit : Start::stayBehind;
}

Lifecycle::QuitAnswer Lifecycle::answerToQuit() const {
    const bool mayQuit = !m_controller.isActive() || m_isSystemShuttingDown;
    return mayQuit ? QuitAnswer::quit : QuitAnswer::stayAndShowMainWindow;
}

} // namespace velmorin
