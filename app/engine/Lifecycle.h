#pragma once

#include "app/engine/LaunchOptions.h"
#include "app/engine/SessionController.h"
#include "app/seams/Application.h"
#include "app/seams/Cancellable.h"
#include "app/seams/Lifetime.h"
#include "app/seams/Workspace.h"

namespace velmorin {

/// What the program decides about its own start and end. Main thread.
class Lifecycle {
public:
    /// What becomes of a process that has been started.
    enum class Start {
        quit,           ///< it ends: the watchdog has started it and there is nothing left to guard
        showMainWindow, ///< the user has started it
        stayBehind,     ///< the watchdog has; a session runs, or the summary of one is up
    };
    enum class QuitAnswer {
        quit,
        stayAndShowMainWindow, ///< a session runs, and only the end of the whole system may end it so
    };

    /// All must outlive this.
    Lifecycle(LaunchOptions options, SessionController& controller, const Workspace& workspace,
              Application& application);

    /// Whether another process of this program runs. A program without an identifier cannot tell and says no.
    bool isAnotherInstanceRunning() const;
    /// Listens from now on for the announcement that the system ends. To be called once.
    void observePowerOff();
    /// Takes up the session that the last process left. To be called once, when the controller's callbacks are
    /// connected; not where there is another instance, since a second one leaves the session and the watchdog alone.
    void resume();
    /// What becomes of this process, once `resume` was called.
    Start start() const;
    QuitAnswer answerToQuit() const;
    /// Whether the system has announced its end, which is never taken back.
    bool isSystemShuttingDown() const { return m_isSystemShuttingDown; }

private:
    LaunchOptions m_options;
    SessionController& m_controller;
    const Workspace& m_workspace;
    Application& m_application;
    bool m_isResumed = false; ///< a session goes on that was taken up
    bool m_isSystemShuttingDown = false;
    Lifetime m_lifetime;
    Cancellable m_powerOff;
};

} // namespace velmorin
