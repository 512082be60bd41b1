// How the session controller treats the other applications: what is forbidden is hidden, what is started is asked to
// quit, and a push against the lock is counted.

#include "app/engine/SessionController.h"
#include "core/rules/Friction.h"

#include <algorithm>
#include <utility>

namespace velmorin {

namespace {

constexpr std::int64_t repeatedQuitRequests = 5;
/// An application that was just asked to quit stays visible through its first requests.
constexpr std::int64_t retriesBeforeHiding = 2;
constexpr std::string_view fallbackBundleID = "com.apple.finder";
constexpr std::string_view attemptSound = "Purr";
constexpr double attemptVolume = 0.3;
/// How much later than the pause's end the unattended overlay answers itself, in seconds.
constexpr double unattendedSlack = 0.5;

std::string loggedIdentifier(const RunningApplication& application) {
    return application.bundleIdentifier().value_or("unknown");
}

bool isSystemExempt(const RunningApplication& application) {
    return application.bundleIdentifier() && AppPolicy::isSystemExempt(*application.bundleIdentifier());
}

} // namespace

AppPolicy SessionController::policy() const {
    AppPolicy policy;
    if (isActive()) {
        for (const auto& bundleID : (*m_session)->allowedBundleIDs) {
            if (!m_deniedBrowsers.contains(bundleID)) policy.allowed.insert(bundleID);
        }
    }
    policy.selfBundleID = m_seams.application.bundleIdentifier();
    policy.onlyBlock = onlyBlock;
    return policy;
}

void SessionController::rememberFrontmostIfAllowed() {
    const auto front = m_seams.workspace.frontmostApplication();
    if (!front || isSelf(*front) || !policy().isAllowed(front->bundleIdentifier()) || isSystemExempt(*front)) return;
    m_lastAllowedBundleID = front->bundleIdentifier();
}

void SessionController::enforceApps() {
    const auto front = m_seams.workspace.frontmostApplication();
    if (!front) return;
    const AppPolicy policy = this->policy();
    const bool frontIsBlocked = !isSelf(*front) && !policy.isAllowed(front->bundleIdentifier());
    std::vector<std::string> hidden;
    for (const auto& application : m_seams.workspace.runningApplications()) {
        if (application->activationPolicy() != ActivationPolicy::regular || isSelf(*application) ||
            policy.isAllowed(application->bundleIdentifier())) {
            continue;
        }
        const auto retries = m_terminateRetries.find(application->processIdentifier());
        const bool mayHide = retries == m_terminateRetries.end() || retries->second > retriesBeforeHiding;
        if (mayHide && !application->isHidden()) {
            application->hide();
            if (application->bundleIdentifier()) hidden.push_back(*application->bundleIdentifier());
            m_data.log("hid " + loggedIdentifier(*application));
        }
        retryTerminate(*application);
    }
    rememberHidden(hidden);
    if (!frontIsBlocked) return;
    registerAttempt(blockedName(*front));
    // The attempt was not shown: the front is taken away quietly. Any other overlay covers the screen itself.
    if (shows<Overlay::None>(*m_overlay)) focusAllowedApp();
}

void SessionController::appActivated(const Workspace::Application& application) {
    if (!application || !isLocked() || isSelf(*application)) return;
    if (!policy().isAllowed(application->bundleIdentifier())) {
        enforceApps();
    } else if (!isSystemExempt(*application)) {
        m_lastAllowedBundleID = application->bundleIdentifier();
    }
}

void SessionController::appLaunched(const Workspace::Application& application) {
    if (!application || !isLocked() || application->activationPolicy() != ActivationPolicy::regular ||
        isSelf(*application) || policy().isAllowed(application->bundleIdentifier())) {
        return;
    }
    m_data.log("blocked launch " + loggedIdentifier(*application));
    registerAttempt(blockedName(*application));
    m_terminateRetries[application->processIdentifier()] = 0;
    application->terminate();
}

void SessionController::retryTerminate(RunningApplication& application) {
    const auto retries = m_terminateRetries.find(application.processIdentifier());
    if (retries == m_terminateRetries.end()) return;
    if (retries->second < repeatedQuitRequests) {
        ++retries->second;
        application.terminate();
        return;
    }
    m_terminateRetries.erase(retries);
    m_data.log("would not quit, kept hidden: " + loggedIdentifier(application));
    if (application.bundleIdentifier()) rememberHidden({*application.bundleIdentifier()});
}

void SessionController::rememberHidden(const std::vector<std::string>& bundleIDs) {
    if (!isActive() || bundleIDs.empty()) return;
    ActiveSession session = **m_session;
    const std::size_t before = session.hiddenBundleIDs.size();
    for (const auto& bundleID : bundleIDs) {
        if (std::ranges::find(session.hiddenBundleIDs, bundleID) == session.hiddenBundleIDs.end())
            session.hiddenBundleIDs.push_back(bundleID);
    }
    if (session.hiddenBundleIDs.size() > before) assignAndSave(std::move(session));
}

std::string SessionController::blockedName(const RunningApplication& application) const {
    const AppStrings& strings = m_seams.appearance.strings();
    const auto& bundleID = application.bundleIdentifier();
    const std::string name = application.localizedName().value_or(bundleID.value_or(std::string{strings.thisApp}));
    return bundleID && m_deniedBrowsers.contains(*bundleID) ? strings.noAutomation(name) : name;
}

void SessionController::registerAttempt(const std::string& target) {
    if (!isActive()) return;
    // While a screen is up nothing counts: one push against the lock is one attempt.
    if (!shows<Overlay::None>(*m_overlay)) return;
    const Date now = m_seams.clock.now();
    if (now < m_suppressAttemptsUntil) return;
    ActiveSession session = **m_session;
    const std::int64_t attempt = ++session.attempts;
    assignAndSave(std::move(session));
    const double pause = Friction::warningPauseSeconds(attempt);
    assignOverlay(Overlay::Warning{{target, attempt, now, now + pause}});
    m_seams.sounds.play(attemptSound, attemptVolume);
    m_data.log("attempt " + std::to_string(attempt) + " target=" + target +
               " pause=" + std::to_string(static_cast<std::int64_t>(pause)));
    if (autoReturnFromWarnings) callLater(pause + unattendedSlack, [this] { returnToWork(); });
}

void SessionController::focusAllowedApp() {
    // What is forbidden by now, such as a browser that refused to be read or what the last profile allowed, must not
    // come forward: it would be hidden and brought forward again without end.
    const AppPolicy policy = this->policy();
    std::vector<std::string> candidates;
    if (m_lastAllowedBundleID && policy.isAllowed(*m_lastAllowedBundleID)) candidates.push_back(*m_lastAllowedBundleID);
    if (isActive()) {
        std::ranges::copy_if((*m_session)->allowedBundleIDs, std::back_inserter(candidates),
                             [this, &policy](const auto& bundleID) {
                                 return !m_deniedBrowsers.contains(bundleID) && policy.isAllowed(bundleID);
                             });
    }
    if (std::ranges::any_of(candidates, [this](const auto& bundleID) { return activateRunning(bundleID); })) return;
    const auto location = candidates.empty() ? std::nullopt : m_seams.workspace.locate(candidates.front());
    if (location) {
        m_seams.workspace.open(*location, Workspace::Opening::activating);
    } else if (!onlyBlock) {
        activateRunning(fallbackBundleID);
    }
}

bool SessionController::activateRunning(std::string_view bundleID) {
    const auto running = m_seams.workspace.runningApplications(bundleID);
    if (running.empty()) return false;
    m_seams.application.yieldActivation(*running.front());
    running.front()->activate();
    return true;
}

} // namespace velmorin
