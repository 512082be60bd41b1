// How the session controller watches the allowed browsers: every window with a forbidden address is sent to a blank
// page, and a browser that may not be watched is locked.

#include "app/engine/SessionController.h"
#include "core/rules/DomainPolicy.h"

#include <algorithm>

namespace velmorin {

void SessionController::pollBrowsers() {
    if (!isActive()) return;
    const auto& allowed = (*m_session)->allowedBundleIDs;
    for (const auto kind : allCases<BrowserKind>()) {
        // A script would start a closed browser, so one that does not run is left alone.
        if (std::ranges::find(allowed, bundleID(kind)) == allowed.end() || m_deniedBrowsers.contains(bundleID(kind)) ||
            m_browsersInFlight.contains(kind) || m_seams.workspace.runningApplications(bundleID(kind)).empty()) {
            continue;
        }
        m_browsersInFlight.insert(kind);
        const double timeout =
            m_browsersConfirmed.contains(kind) ? BrowserMonitor::confirmedTimeout : BrowserMonitor::firstTimeout;
        // The tick goes on at once.
        callLater(0, [this, kind, timeout, id = (*m_session)->id] {
            if (!isLocked(id)) {
                m_browsersInFlight.erase(kind);
                return;
            }
            m_browserMonitor.fetchTabs(kind, timeout, m_lifetime.guard([this, kind](const BrowserResult& result) {
                inTurn([&] { handleBrowserResult(result, kind); });
            }));
        });
    }
}

// The segment may have changed or the session ended since the browser was asked: the moment of the answer counts.
void SessionController::handleBrowserResult(const BrowserResult& result, BrowserKind browser) {
    m_browsersInFlight.erase(browser);
    if (!isActive() || !isLocked()) return;
    if (std::holds_alternative<BrowserAnswer::Denied>(result)) {
        m_deniedBrowsers.emplace(bundleID(browser));
        m_data.log("automation denied for " + std::string{displayName(browser)});
        enforceApps();
    } else if (const auto* answer = std::get_if<BrowserAnswer::Tabs>(&result)) {
        m_browsersConfirmed.insert(browser);
        judgeTabs(answer->tabs, browser);
    }
}

void SessionController::judgeTabs(const std::vector<BrowserTab>& tabs, BrowserKind browser) {
    const auto front = m_seams.workspace.frontmostApplication();
    const bool isInFront = front && front->bundleIdentifier() == bundleID(browser);
    const std::vector<std::string> domains = (*m_session)->allowedDomains;
    for (const auto& tab : tabs) {
        if (DomainPolicy::isAllowed(tab.url, domains)) continue;
        const std::string name = DomainPolicy::displayName(tab.url);
        m_data.log("blocked site in " + std::string{displayName(browser)} + ": " + name);
        if (isInFront) registerAttempt(name);
        callLater(0, [this, browser, windowID = tab.windowID, id = (*m_session)->id] {
            if (!isLocked(id)) return;
            m_browserMonitor.run(BrowserScripts::blankTab(browser, windowID), BrowserMonitor::blankTimeout,
                                 [](const ScriptResult&) {});
        });
    }
}

// After a sleep several things fall due at one moment: a script that was to follow an answer must not be sent once the
// session has ended or a break has come.
bool SessionController::isLocked(const UUID& sessionID) const {
    return isActive() && (*m_session)->id == sessionID && isLocked();
}

} // namespace velmorin
