#include "app/engine/BrowserMonitor.h"

#include <utility>

namespace velmorin {

BrowserMonitor::BrowserMonitor(ChildProcesses& childProcesses, Workspace& workspace, Timers& timers,
                               std::string scriptTool)
    : m_childProcesses{childProcesses}, m_workspace{workspace}, m_timers{timers}, m_scriptTool{std::move(scriptTool)} {}

void BrowserMonitor::run(const std::string& script, double timeout, ChildProcesses::Completion completion) {
    m_childProcesses.run(m_scriptTool, {"-e", script}, timeout, m_lifetime.guard(std::move(completion)));
}

void BrowserMonitor::fetchTabs(BrowserKind kind, double timeout, Completion completion) {
    run(BrowserScripts::listTabs(kind), timeout,
        [completion = std::move(completion)](const ScriptResult& result) { completion(browserResult(result)); });
}

void BrowserMonitor::requestPermission(BrowserKind kind, Completion completion) {
    auto ask = [this, kind, completion = std::move(completion)] { fetchTabs(kind, firstTimeout, completion); };
    const bool isRunning = !m_workspace.runningApplications(bundleID(kind)).empty();
    const auto location = isRunning ? std::nullopt : m_workspace.locate(bundleID(kind));
    if (!location) {
        ask();
        return;
    }
    m_workspace.open(*location, Workspace::Opening::inBackground);
    m_timers.after(launchDelay, m_lifetime.guard(std::move(ask))).detach();
}

BrowserResult browserResult(const ScriptResult& result) {
    if (BrowserScripts::isPermissionDenied(result.error)) return BrowserAnswer::Denied{};
    if (result.code != 0) return BrowserAnswer::NoAnswer{};
    return BrowserAnswer::Tabs{BrowserScripts::parseTabs(result.output)};
}

} // namespace velmorin
