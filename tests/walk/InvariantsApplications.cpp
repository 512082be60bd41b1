// What must hold of the applications that the program touches, and of the scripts it sends to browsers.

#include "core/foundation/JSONMembers.h"
#include "core/rules/BrowserKind.h"
#include "tests/walk/Invariants.h"

#include <algorithm>
#include <charconv>

namespace velmorin {

namespace {

constexpr std::string_view ownBundleID = "com.kestrava.velmorin";
constexpr int quitRequests = 6;
/// From this many repeated requests on, the pass that made the last of them has hidden the application.
constexpr std::int64_t requestsWhenHidden = 4;
constexpr double hair = 1e-6; // seconds

} // namespace

/// The application that an event is about; null when it does not run.
Workspace::Application Invariants::application(const SimulatedEvent& event) const {
    constexpr std::size_t start = std::string_view{"\"pid\":"}.size();
    std::int32_t pid = 0;
    std::from_chars(event.details.data() + start, event.details.data() + event.details.size(), pid);
    const auto running = workspace().runningApplications();
    const auto found = std::ranges::find(running, pid, [](const auto& each) { return each->processIdentifier(); });
    return found == running.end() ? nullptr : *found;
}

bool Invariants::isAllowed(const std::optional<std::string>& bundleID) const {
    const SessionController& engine = controller();
    if (engine.onlyBlock) return !bundleID || !engine.onlyBlock->contains(*bundleID);
    if (!bundleID) return false;
    if (*bundleID == ownBundleID || AppPolicy::isSystemExempt(*bundleID)) return true;
    const auto& allowed = (**engine.session()).allowedBundleIDs;
    return std::ranges::find(allowed, *bundleID) != allowed.end() && !engine.deniedBrowsers().contains(*bundleID);
}

bool Invariants::isForbidden(const RunningApplication& application) const {
    return application.activationPolicy() == ActivationPolicy::regular &&
           application.processIdentifier() < SimulatedWorkspace::firstOwnPID &&
           !isAllowed(application.bundleIdentifier());
}

void Invariants::checkTouched(const RunningApplication& application) {
    require(application.processIdentifier() < SimulatedWorkspace::firstOwnPID, Invariant::selfIsNeverTouched,
            "the program acts on itself");
    require(program() && isLocked(), Invariant::actsOnlyWhileLocked, "nothing is locked");
    if (!program() || !controller().isActive()) return;
    const auto& bundleID = application.bundleIdentifier();
    require(controller().onlyBlock || !bundleID || !AppPolicy::isSystemExempt(*bundleID),
            Invariant::systemIsNeverTouched, "a part of the system");
    require(!isAllowed(bundleID), Invariant::allowedIsNeverHidden, "an allowed application");
}

void Invariants::hid(const SimulatedEvent& event) {
    const auto touched = application(event);
    if (!touched) return;
    checkTouched(*touched);
    require(!m_lacksHidLine, Invariant::hidingIsLogged, "the one before lacks its line");
    m_lacksHidLine = true;
    m_hidden.insert(touched->processIdentifier());
}

void Invariants::unhid(const SimulatedEvent&) {
    require(m_isEnding, Invariant::shownOnlyAtTheEnd, "shown in the midst of a session");
}

void Invariants::askedToQuit(const SimulatedEvent& event) {
    const auto touched = application(event);
    if (!touched) return;
    checkTouched(*touched);
    const std::int32_t pid = touched->processIdentifier();
    require(!m_ranBefore.contains(pid), Invariant::ranBeforeIsNeverAsked, "it ran before the lock");
    require(++m_asked[pid] <= quitRequests, Invariant::askedAtMostSixTimes, "asked once more");
}

void Invariants::broughtForward(const SimulatedEvent& event) {
    const auto touched = application(event);
    if (!touched) return;
    const bool mayCome = program() && controller().isActive() && isAllowed(touched->bundleIdentifier());
    require(mayCome, Invariant::bringsForwardOnlyAllowed, "a forbidden application is brought forward");
}

void Invariants::opened(const SimulatedEvent& event) {
    const auto members = JSONMembers::parse("{" + event.details + "}");
    const auto bundleID = members ? members->get<std::string>("bundleID") : std::nullopt;
    const bool mayOpen = program() && controller().isActive() && bundleID && isAllowed(bundleID);
    require(mayOpen, Invariant::bringsForwardOnlyAllowed, "a forbidden application is opened");
}

/// After a locked tick. With nobody in front the program waits; what it does itself never leaves it so.
void Invariants::checkHold() {
    if (!workspace().frontmostApplication()) return;
    const auto& retries = controller().terminateRetries();
    for (const auto& each : workspace().runningApplications()) {
        if (each->isHidden() || !isForbidden(*each)) continue;
        const auto asked = retries.find(each->processIdentifier());
        require(asked != retries.end() && asked->second < requestsWhenHidden, Invariant::forbiddenIsHidden,
                "a forbidden application is on screen");
    }
}

void Invariants::checkShownAgain() {
    for (const auto& each : workspace().runningApplications()) {
        if (!m_hidden.contains(each->processIdentifier()) || !each->bundleIdentifier()) continue;
        require(!each->isHidden(), Invariant::shownAgainAtTheEnd, "still hidden");
    }
}

/// Those that run while nothing is locked may never be asked to quit, unless that has begun already.
void Invariants::noteWhoRuns() {
    for (const auto& each : workspace().runningApplications()) {
        if (!m_asked.contains(each->processIdentifier())) m_ranBefore.insert(each->processIdentifier());
    }
}

void Invariants::ranScript(const SimulatedEvent& event) {
    const auto members = JSONMembers::parse("{" + event.details + "}");
    if (!members || !program() || !controller().isActive()) {
        fail(Invariant::scriptsOnlyWatchedBrowsers, "a script without a session");
        return;
    }
    require(isLocked(), Invariant::blanksOnlyWhileLocked, "a script while nothing is locked");
    const auto kind = members->get<std::string>("kind").value_or("");
    if (members->get<std::string>("what") != "listTabs") return;
    const std::string id{bundleID(kind == "chrome" ? BrowserKind::chrome : BrowserKind::safari)};
    const auto& allowed = m_session->allowedBundleIDs;
    require(std::ranges::find(allowed, id) != allowed.end() && !controller().deniedBrowsers().contains(id) &&
                !workspace().runningApplications(id).empty(),
            Invariant::scriptsOnlyWatchedBrowsers, "a browser that is not running, not allowed or refused");
    listedTabs(kind, members->get<double>("timeout").value_or(0), event.time);
}

// An answer that is still due from an earlier session of the same process counts, too: nobody can tell them apart.
void Invariants::listedTabs(const std::string& kind, double timeout, double time) {
    const auto hasAnswered = [&](double since) {
        return std::ranges::any_of(m_scripts, [&](const Script& script) {
            return script.kind == kind && script.endsAt >= since - hair && script.endsAt <= time + hair;
        });
    };
    const auto isOfSession = [&](const Script& script) {
        return script.kind == kind && script.session == m_session->id;
    };
    const auto last = std::find_if(m_scripts.rbegin(), m_scripts.rend(), isOfSession);
    require(last == m_scripts.rend() || hasAnswered(last->sentAt), Invariant::oneListScriptAtATime,
            "the last script has not answered yet");
    require(timeout == 90 || (timeout == 10 && hasAnswered(0)), Invariant::firstScriptWaitsLonger, "another limit");
    const auto delay = m_delays.find(kind);
    const double takes = std::min(delay == m_delays.end() ? 0.1 : delay->second, timeout);
    m_scripts.push_back({m_session->id, kind, time, time + takes});
}

} // namespace velmorin
