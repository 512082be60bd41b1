#pragma once

#include "app/engine/AppData.h"
#include "app/engine/BrowserMonitor.h"
#include "app/engine/OverlayState.h"
#include "app/seams/Application.h"
#include "app/seams/Cancellable.h"
#include "app/seams/ChildProcesses.h"
#include "app/seams/Clock.h"
#include "app/seams/Lifetime.h"
#include "app/seams/Observable.h"
#include "app/seams/Random.h"
#include "app/seams/ServiceManager.h"
#include "app/seams/Shortcuts.h"
#include "app/seams/Sounds.h"
#include "app/seams/Timers.h"
#include "app/seams/Workspace.h"
#include "core/rules/AppPolicy.h"
#include "core/session/ActiveSession.h"
#include "core/session/Profile.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace velmorin {

/// Turns a profile into a running session, drives it second by second through its plan, holds the lock, and makes it a
/// record at the end. Idle, it has no session, no timer and no observers; running, all of them.
///
/// One class to its callers; its operations stand in a file for each subject: the run in `SessionController.cpp`, the
/// other applications in `SessionControllerApplications.cpp`, the browsers in `SessionControllerBrowsers.cpp` and the
/// overlay in `SessionControllerOverlay.cpp`. Main thread, so that a tick and a notification never interleave. An
/// operation that a callback or a watcher asks for is done once the one that it is told of has ended.
class SessionController {
public:
    /// What it needs of the platform. All must outlive it.
    struct Seams {
        Clock& clock;
        Timers& timers;
        Random& random;
        Workspace& workspace;
        Application& application;
        Sounds& sounds;
        Shortcuts& shortcuts;
        ServiceManager& serviceManager;
        ChildProcesses& childProcesses;
        const Appearance& appearance;
        std::string scriptTool; ///< the program that takes "-e" and a script for a browser
    };

    static constexpr std::string_view sessionFile = "active-session.json";

    /// Starts nothing. `data` must outlive the controller.
    SessionController(AppData& data, Seams seams);

    /// The running session; absent means idle.
    const Observable<std::optional<ActiveSession>>& session() const { return m_session; }
    /// Where the session stood at the last tick.
    const Observable<std::optional<ScheduleStatus>>& status() const { return m_status; }
    const Observable<OverlayState>& overlay() const { return m_overlay; }
    /// What asks the browsers, for whoever wants to know whether they answer.
    BrowserMonitor& browserMonitor() { return m_browserMonitor; }
    /// Whether a session is running.
    bool isActive() const { return m_session->has_value(); }

    /// Starts a session of a profile, for what the user says it is for, without white space around it. Does nothing
    /// while one runs.
    void start(const Profile& profile, std::string_view intent);
    /// Takes up the session that the last process left behind, once at launch; one whose plan has run out meanwhile
    /// becomes a record. True when a session is running afterwards.
    bool resumeIfNeeded();

    /// Puts the overlay down and gives the front back to work. From a warning this counts as a return; whether the
    /// warning's pause is over is for the screen to check.
    void returnToWork();
    /// Asks to end early: once no work is left the session ends at once, otherwise the wait begins, anew each time.
    void beginEmergencyExit();
    /// Goes back to what the plan shows: the screen of a locked break in such a one, otherwise to work, as
    /// `returnToWork`. Also where no exit is open.
    void cancelEmergencyExit();
    /// Ends the session if the exit is open, its wait over and the reason long enough; otherwise only a line in the log
    /// comes of it.
    void confirmEmergencyExit(std::string_view reason);
    /// The overlay's own assignment, by which the summary's button puts it down. Watchers hear of a change,
    /// `onOverlayChange` of every call.
    void setOverlay(OverlayState state);

    // Callbacks, assigned once by the owner. Each may be missing.
    std::function<void(const OverlayState&)> onOverlayChange; ///< after every assignment of the overlay
    std::function<void()> onSessionChange;                    ///< a session has come up or gone down
    std::function<void()> onTick;                             ///< at the end of each live tick, and of a session
    /// Started, with the session as it was before the first tick hid anything; or resumed, as it was stored.
    std::function<void(const ActiveSession&)> onSessionBegan;
    /// Ending, with the final counters. The session, its file and the watchdog's job are still there.
    std::function<void(const ActiveSession&)> onSessionEnded;

    // Knobs for whoever embeds the controller; the application leaves them alone.
    std::optional<AppPolicy::BundleIDs> onlyBlock; ///< when present, only these applications are blocked
    std::vector<std::string> watchdogArguments;    ///< extra arguments for the process that the watchdog starts
    bool autoReturnFromWarnings = false;           ///< unattended: the overlay answers itself, the end quits
    std::optional<double> exitWaitOverride;        ///< seconds, in the place of the exit's wait

    /// Before this moment no attempt is counted.
    Date suppressAttemptsUntil() const { return m_suppressAttemptsUntil; }
    /// The browsers whose automation was refused in this session, by identifier.
    const AppPolicy::BundleIDs& deniedBrowsers() const { return m_deniedBrowsers; }
    /// The applications that are being asked to quit, with the number of repeated requests.
    const std::map<std::int32_t, std::int64_t>& terminateRetries() const { return m_terminateRetries; }
    /// Locked ticks so far, over all sessions.
    std::int64_t tickCount() const { return m_tickCount; }
    /// The segment that the last tick acted on; absent without one.
    std::optional<std::int64_t> lastSegmentIndex() const { return m_lastSegmentIndex; }
    /// The allowed application that was last in front, parts of the system aside; outlives the session. Absent before
    /// there was one.
    const std::optional<std::string>& lastAllowedBundleID() const { return m_lastAllowedBundleID; }

private:
    enum class Summary { shown, skipped };
    enum class Switch { on, off };

    // The run.
    void inTurn(std::function<void()> operation);
    void begin(const ActiveSession& session);
    void resume();
    void persist();
    void assignAndSave(ActiveSession session);
    void startRunning();
    void stopRunning();
    void tick();
    void segmentChanged(std::optional<std::int64_t> from, std::int64_t to);
    void enterWork(bool wasOpenBreak);
    void finish(SessionOutcome outcome, std::optional<std::string> reason, Summary summary);
    void forgetSession();
    void unhideAll(const std::vector<std::string>& hidden);
    void runFocusShortcut(Switch to);
    bool isLocked() const { return *m_status && (*m_status)->isLocked(); }
    bool isSelf(const RunningApplication& application) const;
    void callLater(double seconds, std::function<void()> call);

    // The other applications.
    AppPolicy policy() const;
    void rememberFrontmostIfAllowed();
    void enforceApps();
    void appActivated(const Workspace::Application& application);
    void appLaunched(const Workspace::Application& application);
    void retryTerminate(RunningApplication& application);
    void rememberHidden(const std::vector<std::string>& bundleIDs);
    std::string blockedName(const RunningApplication& application) const;
    void registerAttempt(const std::string& target);
    void focusAllowedApp();
    bool activateRunning(std::string_view bundleID);

    // The overlay.
    void assignOverlay(OverlayState state);
    void goBackToWork();
    void openExit();
    void closeExit();
    void leave(std::string_view reason);

    // The browsers.
    void pollBrowsers();
    void handleBrowserResult(const BrowserResult& result, BrowserKind browser);
    bool isLocked(const UUID& sessionID) const;
    void judgeTabs(const std::vector<BrowserTab>& tabs, BrowserKind browser);

    Observable<std::optional<ActiveSession>> m_session;
    Observable<std::optional<ScheduleStatus>> m_status;
    Observable<OverlayState> m_overlay{Overlay::None{}};
    AppData& m_data;
    Seams m_seams;
    BrowserMonitor m_browserMonitor;
    Cancellable m_timer;
    std::vector<Cancellable> m_observers;
    std::optional<std::int64_t> m_lastSegmentIndex;
    std::optional<std::string> m_lastAllowedBundleID;
    Date m_suppressAttemptsUntil = Date::distantPast();
    AppPolicy::BundleIDs m_deniedBrowsers;
    std::set<BrowserKind> m_browsersInFlight;  ///< asked, with no answer yet
    std::set<BrowserKind> m_browsersConfirmed; ///< have answered once
    std::map<std::int32_t, std::int64_t> m_terminateRetries;
    std::int64_t m_tickCount = 0;
    bool m_isAtWork = false; ///< an operation is under way
    Lifetime m_lifetime;
};

} // namespace velmorin
