#include "app/engine/SessionController.h"

#include "app/engine/Watchdog.h"
#include "core/foundation/Text.h"

#include <algorithm>
#include <utility>

namespace velmorin {

namespace {

constexpr double tickPeriod = 1.0;          // seconds
constexpr double suppressionAtStart = 3.0;  // seconds
constexpr double suppressionIntoWork = 2.0; // seconds
constexpr double unattendedDelay = 2.0;     // seconds
constexpr double lateSummaryLimit = 300.0;  // seconds
constexpr std::string_view changeSound = "Glass";
constexpr double changeVolume = 0.4;

std::vector<std::string> bundleIDs(const std::vector<AllowedApp>& apps) {
    std::vector<std::string> identifiers;
    identifiers.reserve(apps.size());
    for (const auto& app : apps)
        identifiers.push_back(app.bundleID);
    return identifiers;
}

} // namespace

SessionController::SessionController(AppData& data, Seams seams)
    : m_data{data},
      m_seams{std::move(seams)},
      m_browserMonitor{m_seams.childProcesses, m_seams.workspace, m_seams.timers, m_seams.scriptTool} {}

void SessionController::start(const Profile& profile, std::string_view intent) {
    inTurn([this, profile, goal = std::string{trimmed(intent)}] {
        if (isActive()) return;
        begin(ActiveSession{profile.name, profile.mode, goal, m_seams.clock.now(), profile.segments(),
                            bundleIDs(profile.allowedApps), profile.allowedDomains, freshID(m_seams.random)});
    });
}

// The order is the design: each step relies on those before it.
void SessionController::begin(const ActiveSession& session) {
    m_session.set(session);
    persist(); // a crash from here on can be resumed
    rememberFrontmostIfAllowed();
    m_seams.serviceManager.install(Watchdog::launchArguments(watchdogArguments));
    runFocusShortcut(Switch::on);
    m_lastSegmentIndex = 0; // the first segment of a new session is no change of segment
    m_suppressAttemptsUntil = m_seams.clock.now() + suppressionAtStart;
    startRunning();
    tick();
    focusAllowedApp();
    m_data.log("session started mode=" + std::string{rawValue(session.mode)} +
               " segments=" + std::to_string(session.segments.size()));
    if (onSessionBegan) onSessionBegan(session);
}

bool SessionController::resumeIfNeeded() {
    inTurn([this] { resume(); });
    return isActive();
}

void SessionController::resume() {
    auto session = m_data.store().load<ActiveSession>(sessionFile);
    if (!session || session->segments.empty()) {
        m_data.store().remove(sessionFile);
        m_seams.serviceManager.remove();
        return;
    }
    m_session.set(session);
    const Date now = m_seams.clock.now();
    if (session->status(now).isFinished) {
        const double late = now - session->plannedEnd();
        finish(SessionOutcome::completed, std::nullopt, late < lateSummaryLimit ? Summary::shown : Summary::skipped);
        return;
    }
    m_seams.serviceManager.install(Watchdog::launchArguments(watchdogArguments));
    m_lastSegmentIndex.reset(); // so that the tick restores the overlay of the present segment
    m_suppressAttemptsUntil = m_seams.clock.now() + suppressionAtStart;
    startRunning();
    tick();
    // Installing takes its time, in which the plan may have run out.
    if (!isActive()) return;
    m_data.log("session resumed");
    if (onSessionBegan) onSessionBegan(*session);
}

void SessionController::startRunning() {
    m_observers.clear();
    m_observers.push_back(m_seams.workspace.observeActivations(m_lifetime.guard(
        [this](const Workspace::Application& application) { inTurn([&] { appActivated(application); }); })));
    m_observers.push_back(m_seams.workspace.observeLaunches(m_lifetime.guard(
        [this](const Workspace::Application& application) { inTurn([&] { appLaunched(application); }); })));
    m_timer = m_seams.timers.every(tickPeriod, m_lifetime.guard([this] { inTurn([this] { tick(); }); }));
    if (onSessionChange) onSessionChange();
}

void SessionController::stopRunning() {
    m_timer.cancel();
    m_observers.clear();
}

void SessionController::tick() {
    if (!isActive()) return;
    const ScheduleStatus status = (*m_session)->status(m_seams.clock.now());
    m_status.set(status);
    if (status.isFinished) {
        finish(SessionOutcome::completed, std::nullopt, Summary::shown);
        return;
    }
    if (m_lastSegmentIndex != status.segmentIndex) {
        segmentChanged(m_lastSegmentIndex, status.segmentIndex);
        m_lastSegmentIndex = status.segmentIndex;
    }
    if (status.isLocked()) {
        enforceApps();
        ++m_tickCount;
        if (m_tickCount % 2 == 0) pollBrowsers();
    }
    if (onTick) onTick();
}

void SessionController::segmentChanged(std::optional<std::int64_t> from, std::int64_t to) {
    const auto kindOf = [this](std::int64_t index) {
        return (*m_session)->segments[static_cast<std::size_t>(index)].kind;
    };
    const SegmentKind kind = kindOf(to);
    m_data.log("segment " + std::to_string(to) + " " + std::string{rawValue(kind)});
    if (from) m_seams.sounds.play(changeSound, changeVolume);
    // An exit under way is never displaced by the plan.
    const bool isExiting = shows<Overlay::EmergencyExit>(*m_overlay);
    if (kind == SegmentKind::work) {
        if (!from) return;
        m_suppressAttemptsUntil = m_seams.clock.now() + suppressionIntoWork;
        if (!isExiting) enterWork(!velmorin::isLocked(kindOf(*from)));
    } else if (!isExiting) {
        assignOverlay(kind == SegmentKind::lockedBreak ? OverlayState{Overlay::LockedBreak{}} : Overlay::None{});
    }
}

void SessionController::enterWork(bool wasOpenBreak) {
    if (!wasOpenBreak) {
        assignOverlay(Overlay::None{});
        focusAllowedApp();
        return;
    }
    assignOverlay(Overlay::BackToWork{});
    if (autoReturnFromWarnings) callLater(unattendedDelay, [this] { returnToWork(); });
}

void SessionController::finish(SessionOutcome outcome, std::optional<std::string> reason, Summary summary) {
    if (!isActive()) return;
    const ActiveSession session = **m_session;
    stopRunning();
    if (onSessionEnded) onSessionEnded(session);
    const Date now = m_seams.clock.now();
    // However late the process noticed, a completed session never records more than its plan.
    const Date endedAt = outcome == SessionOutcome::completed ? std::min(now, session.plannedEnd()) : now;
    const SessionRecord record{session, endedAt, outcome, std::move(reason)};
    auto history = *m_data.history();
    history.insert(history.begin(), record);
    m_data.setHistory(std::move(history));
    unhideAll(session.hiddenBundleIDs);
    m_data.store().remove(sessionFile);
    m_seams.serviceManager.remove();
    runFocusShortcut(Switch::off);
    forgetSession();
    assignOverlay(summary == Summary::shown ? OverlayState{Overlay::Finished{record}} : Overlay::None{});
    if (summary == Summary::shown) m_seams.sounds.play(changeSound, changeVolume);
    m_data.log("session ended outcome=" + std::string{rawValue(outcome)} +
               " attempts=" + std::to_string(record.attempts) + " returns=" + std::to_string(record.returns));
    if (onSessionChange) onSessionChange();
    if (onTick) onTick();
    if (autoReturnFromWarnings) callLater(unattendedDelay, [this] { m_seams.application.terminate(); });
}

// `m_suppressAttemptsUntil`, `m_lastAllowedBundleID` and `m_tickCount` live on.
void SessionController::forgetSession() {
    m_session.set(std::nullopt);
    m_status.set(std::nullopt);
    m_lastSegmentIndex.reset();
    m_deniedBrowsers.clear();
    m_browsersInFlight.clear();
    m_browsersConfirmed.clear();
    m_terminateRetries.clear();
}

void SessionController::unhideAll(const std::vector<std::string>& hidden) {
    for (const auto& bundleID : hidden) {
        for (const auto& application : m_seams.workspace.runningApplications(bundleID))
            application->unhide();
    }
}

void SessionController::persist() {
    // The session runs on in memory where it cannot be saved.
    if (isActive()) m_data.store().save(**m_session, sessionFile);
}

void SessionController::assignAndSave(ActiveSession session) {
    m_session.set(std::move(session));
    persist();
}

void SessionController::runFocusShortcut(Switch to) {
    const AppSettings& settings = *m_data.settings();
    if (!settings.useFocusShortcuts) return;
    m_seams.shortcuts.run(to == Switch::on ? settings.focusOnShortcut : settings.focusOffShortcut);
}

void SessionController::callLater(double seconds, std::function<void()> call) {
    m_seams.timers.after(seconds, m_lifetime.guard(std::move(call))).detach();
}

void SessionController::inTurn(std::function<void()> operation) {
    if (m_isAtWork) {
        callLater(0, [this, operation = std::move(operation)] { inTurn(operation); });
        return;
    }
    m_isAtWork = true;
    operation();
    m_isAtWork = false;
}

void SessionController::setOverlay(OverlayState state) {
    inTurn([this, state = std::move(state)] { assignOverlay(state); });
}

void SessionController::assignOverlay(OverlayState state) {
    m_overlay.set(std::move(state));
    if (onOverlayChange) onOverlayChange(*m_overlay);
}

bool SessionController::isSelf(const RunningApplication& application) const {
    return application.processIdentifier() == m_seams.application.processIdentifier();
}

} // namespace velmorin
