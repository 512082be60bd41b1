#pragma once

#include "app/engine/BrowserResult.h"
#include "app/seams/ChildProcesses.h"
#include "app/seams/Lifetime.h"
#include "app/seams/Timers.h"
#include "app/seams/Workspace.h"
#include "core/rules/BrowserKind.h"

#include <functional>
#include <string>

namespace velmorin {

/// Asks browsers which addresses they show, by scripts that a tool of the system runs. Keeps nothing between calls;
/// every completion is called exactly once, later and on the main thread, unless this has gone by then. Main thread.
class BrowserMonitor {
public:
    using Completion = std::function<void(BrowserResult)>;

    /// How long a browser may take that has never answered, in seconds: the user may have to answer a dialog first.
    static constexpr double firstTimeout = 90.0;
    /// How long it may take once it has answered, in seconds.
    static constexpr double confirmedTimeout = 10.0;
    /// How long it may take to blank a tab, in seconds.
    static constexpr double blankTimeout = 5.0;
    /// How long a browser that was started gets to come up before it is asked, in seconds.
    static constexpr double launchDelay = 2.0;

    /// `scriptTool` takes "-e" and a script. The seams must outlive this.
    BrowserMonitor(ChildProcesses& childProcesses, Workspace& workspace, Timers& timers, std::string scriptTool);

    /// Runs a script; one that takes more than `timeout` seconds is ended, with a status other than 0.
    void run(const std::string& script, double timeout, ChildProcesses::Completion completion);
    /// Asks for the tabs. A script starts a browser that is not running, so callers look first.
    void fetchTabs(BrowserKind kind, double timeout, Completion completion);
    /// Asks for the tabs so that the system asks the user for permission, and starts the browser for it if need be.
    void requestPermission(BrowserKind kind, Completion completion);

private:
    ChildProcesses& m_childProcesses;
    Workspace& m_workspace;
    Timers& m_timers;
    std::string m_scriptTool;
    Lifetime m_lifetime;
};

/// What a script's result says about the browser. A refusal counts whatever the exit status.
BrowserResult browserResult(const ScriptResult& result);

} // namespace velmorin
