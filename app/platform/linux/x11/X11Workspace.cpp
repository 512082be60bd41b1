#include "app/platform/linux/x11/X11Workspace.h"

#include <algorithm>
#include <bit>
#include <ctime>
#include <iterator>
#include <unistd.h>
#include <utility>

namespace velmorin {

namespace {

/// How long an application that was started may take to show its first window.
constexpr std::chrono::seconds launchPatience{30};

/// How long after its start an application that was opened for the background is sent back when it takes the front.
constexpr std::chrono::seconds backgroundTime{2};

/// Above every process identifier: for windows of other machines, whose processes are not ours to know.
constexpr std::int32_t firstForeignNumber = 1 << 23;

/// The present moment as the start times of processes are told: in the kernel's ticks since boot.
std::uint64_t ticksSinceBoot() {
    timespec now{};
    ::clock_gettime(CLOCK_BOOTTIME, &now);
    const auto ticksPerSecond = static_cast<std::uint64_t>(::sysconf(_SC_CLK_TCK));
    constexpr std::uint64_t nanosecondsPerSecond = 1'000'000'000;
    return static_cast<std::uint64_t>(now.tv_sec) * ticksPerSecond +
           static_cast<std::uint64_t>(now.tv_nsec) * ticksPerSecond / nanosecondsPerSecond;
}

bool isRegular(const RunningApplication& application) {
    return application.activationPolicy() == ActivationPolicy::regular;
}

bool belongsToApplication(const X11Client& client) {
    return client.role == X11Client::Role::application || client.role == X11Client::Role::attachment;
}

} // namespace

X11Workspace::X11Workspace(X11Connection& connection, Knowledge knowledge)
    : m_connection{connection},
      m_knowledge{std::move(knowledge)},
      m_watchingSince{ticksSinceBoot()},
      m_desk{std::make_shared<X11Desk>(connection, [this](const X11Clients::Change& change) { handle(change); })},
      m_desktop{std::make_shared<X11DesktopPart>("com.apple.finder")},
      m_dock{std::make_shared<X11DesktopPart>("com.apple.dock")},
      m_notification{std::make_shared<X11DesktopPart>("com.apple.notificationcenterui")} {
    m_self = std::make_shared<X11Application>(m_desk, static_cast<std::int32_t>(::getpid()));
    m_self->setIdentity(m_knowledge.self);
    regroup();
    m_front = frontNow();
}

Workspace::Application X11Workspace::frontmostApplication() const {
    return frontNow();
}

std::vector<Workspace::Application> X11Workspace::runningApplications() const {
    std::vector<Application> running;
    for (const auto number : m_order)
        running.push_back(m_processes.at(number).application);
    if (!m_processes.contains(m_self->processIdentifier())) running.push_back(m_self);
    running.push_back(m_desktop);
    return running;
}

std::vector<Workspace::Application> X11Workspace::runningApplications(std::string_view bundleID) const {
    auto running = runningApplications();
    std::erase_if(running, [&](const Application& application) { return application->bundleIdentifier() != bundleID; });
    return running;
}

Cancellable X11Workspace::observeActivations(Observer observer) {
    return add(m_activationObservers, std::move(observer));
}

Cancellable X11Workspace::observeLaunches(Observer observer) {
    return add(m_launchObservers, std::move(observer));
}

std::optional<std::string> X11Workspace::locate(std::string_view bundleID) const {
    return m_knowledge.launcher.locate(bundleID);
}

void X11Workspace::open(const std::string& location, Opening opening) {
    const auto isThere = [&](const auto& entry) {
        return entry.second.application->identity().desktopFile == location;
    };
    const auto running = std::ranges::find_if(m_processes, isThere);
    if (running != m_processes.end()) {
        if (opening == Opening::activating) running->second.application->activate();
        return;
    }
    const auto now = std::chrono::steady_clock::now();
    std::erase_if(m_expected, [&](const Expected& expected) { return expected.until < now; });
    m_expected.push_back({location, opening, frontNow(), nullptr, now + launchPatience});
    m_knowledge.launcher.open(location, opening, m_desk->clients().time());
}

void X11Workspace::handle(const X11Clients::Change& change) {
    // Observers may come and go, and ask anything, while they are told; the lists do not change meanwhile.
    const auto launched = change.touched.empty() ? std::vector<Handle>{} : regroup();
    for (const auto& application : launched) {
        receive(application);
        tell(m_launchObservers, application);
    }
    const auto front = frontNow();
    if (front == m_front) return;
    m_front = front;
    // The desktop is in front of nothing: it does not come there, it is what is left.
    const bool isLeftover = front == m_desktop && m_desk->clients().active() == nullptr;
    if (isLeftover) return;
    tell(m_activationObservers, front);
    sendBack(front);
}

/// Puts the windows together by process, and gives the applications that have just been launched.
std::vector<X11Workspace::Handle> X11Workspace::regroup() {
    std::map<std::int32_t, std::vector<xcb_window_t>> groups;
    m_order.clear();
    for (const auto window : m_desk->clients().order()) {
        const auto* client = m_desk->clients().find(window);
        if (client == nullptr || !belongsToApplication(*client)) continue;
        auto& group = groups[numberOf(*client)];
        if (group.empty()) m_order.push_back(numberOf(*client));
        group.push_back(window);
    }
    std::erase_if(m_processes, [&](const auto& entry) {
        if (groups.contains(entry.first)) return false;
        entry.second.application->setWindows({});
        return true;
    });
    std::vector<Handle> launched;
    for (auto& [number, windows] : groups) {
        auto& process = m_processes[number];
        if (!process.application) process.application = makeApplication(number);
        const bool wasRegular = isRegular(*process.application);
        process.application->setWindows(std::move(windows));
        identify(process);
        if (!wasRegular && isRegular(*process.application) && isLaunch(*process.application))
            launched.push_back(process.application);
    }
    return launched;
}

X11Workspace::Handle X11Workspace::makeApplication(std::int32_t number) const {
    if (number == m_self->processIdentifier()) return m_self;
    return std::make_shared<X11Application>(m_desk, number);
}

std::int32_t X11Workspace::numberOf(const X11Client& client) const {
    if (client.processID) return *client.processID;
    // The server gives each connection a range of numbers for what it makes.
    const auto mask = xcb_get_setup(m_connection.get())->resource_id_mask;
    const int shift = std::countr_one(mask);
    return firstForeignNumber + static_cast<std::int32_t>((client.window & ~mask) >> shift);
}

/// By the oldest window of an application's own, which is its main one.
void X11Workspace::identify(Process& process) const {
    if (process.application == m_self) return;
    const auto& windows = process.application->windows();
    const auto isMain = [this](xcb_window_t window) {
        const auto* client = m_desk->clients().find(window);
        return client != nullptr && client->role == X11Client::Role::application;
    };
    const auto main = std::ranges::find_if(windows, isMain);
    const auto* client = m_desk->clients().find(main == windows.end() ? windows.front() : *main);
    if (client == nullptr) return;
    Process::Label label{client->window, client->instance, client->className};
    if (process.label == label) return;
    process.application->setIdentity(
        m_knowledge.identities.identify({client->processID, client->instance, client->className}));
    process.label = std::move(label);
}

/// Whether a process shows its first window, and was started after this was made. One that has none for a while, as in
/// the tray or while the window manager is replaced, is not launched again.
bool X11Workspace::isLaunch(const X11Application& application) {
    const auto number = application.processIdentifier();
    const auto facts = m_knowledge.processes.facts(number);
    const std::uint64_t startTime = facts ? facts->startTime : UINT64_MAX;
    const auto [known, isNew] = m_launched.try_emplace(number, startTime);
    const bool wasTold = !isNew && known->second == startTime;
    known->second = startTime;
    return !wasTold && startTime >= m_watchingSince;
}

Workspace::Application X11Workspace::frontNow() const {
    const auto* active = m_desk->clients().active();
    if (active == nullptr) return m_desktop;
    switch (active->role) {
    case X11Client::Role::desktop: return m_desktop;
    case X11Client::Role::dock: return m_dock;
    case X11Client::Role::notification: return m_notification;
    case X11Client::Role::application:
    case X11Client::Role::attachment: break;
    }
    const auto found = m_processes.find(numberOf(*active));
    return found == m_processes.end() ? m_desktop : found->second.application;
}

/// What was opened for the front may not get there without help.
void X11Workspace::receive(const Handle& application) {
    const auto now = std::chrono::steady_clock::now();
    const auto expected = std::ranges::find_if(m_expected, [&](const Expected& each) {
        return !each.application && each.until > now && each.location == application->identity().desktopFile;
    });
    if (expected == m_expected.end()) return;
    if (expected->opening == Opening::activating) {
        application->activate();
        m_expected.erase(expected);
    } else {
        expected->application = application;
        expected->until = now + backgroundTime;
    }
}

/// What was opened for the background takes the front all the same under some managers.
void X11Workspace::sendBack(const Application& front) {
    const auto now = std::chrono::steady_clock::now();
    const auto expected = std::ranges::find_if(
        m_expected, [&](const Expected& each) { return each.application == front && each.until > now; });
    if (expected == m_expected.end()) return;
    expected->front->activate();
    m_expected.erase(expected);
}

Cancellable X11Workspace::add(const std::shared_ptr<Observers>& observers, Observer observer) {
    const auto number = ++m_lastObserver;
    observers->emplace(number, std::move(observer));
    return Cancellable{[held = std::weak_ptr{observers}, number] {
        if (const auto list = held.lock()) list->erase(number);
    }};
}

void X11Workspace::tell(const std::shared_ptr<Observers>& observers, const Application& application) {
    const auto told = *observers;
    for (const auto& [number, observer] : told)
        if (observers->contains(number)) observer(application);
}

} // namespace velmorin
