#include "app/platform/simulated/SimulatedWorkspace.h"

#include <algorithm>
#include <utility>

namespace velmorin {

/// One application. Its operations go through the workspace, which knows the others.
class SimulatedWorkspace::Process final : public RunningApplication, public std::enable_shared_from_this<Process> {
public:
    Process(SimulatedWorkspace& workspace, SimulatedApplicationInfo described)
        : info{std::move(described)}, m_workspace{workspace} {}

    std::int32_t processIdentifier() const override { return info.pid; }
    const std::optional<std::string>& bundleIdentifier() const override { return info.bundleID; }
    const std::optional<std::string>& localizedName() const override { return info.name; }
    ActivationPolicy activationPolicy() const override { return info.policy; }
    bool isHidden() const override { return info.isHidden; }

    void hide() override {
        tell("hide");
        m_workspace.hide(*this);
    }
    void unhide() override {
        tell("unhide");
        if (isAlive) info.isHidden = false;
    }
    void terminate() override {
        tell("terminate");
        m_workspace.askToQuit(shared_from_this());
    }
    void activate() override {
        tell("activate");
        m_workspace.bringToFront(shared_from_this());
    }

    SimulatedApplicationInfo info;
    bool isAlive = true;
    std::uint64_t lastActivation = 0; ///< counts up with each; 0 for an application that was never in front

private:
    void tell(std::string_view event) const {
        m_workspace.m_journal.tell(event, [this](JSONOutput& output) {
            output.key("pid");
            output.write(std::int64_t{info.pid});
        });
    }

    SimulatedWorkspace& m_workspace;
};

Workspace::Application SimulatedWorkspace::frontmostApplication() const {
    return m_front;
}

std::vector<Workspace::Application> SimulatedWorkspace::runningApplications() const {
    return {m_processes.begin(), m_processes.end()};
}

std::vector<Workspace::Application> SimulatedWorkspace::runningApplications(std::string_view bundleID) const {
    std::vector<Application> found;
    std::ranges::copy_if(m_processes, std::back_inserter(found),
                         [bundleID](const auto& process) { return process->info.bundleID == bundleID; });
    return found;
}

std::optional<std::string> SimulatedWorkspace::locate(std::string_view bundleID) const {
    // An application's place is its identifier: there is no disk with applications on it here.
    return installed.contains(bundleID) ? std::optional{std::string{bundleID}} : std::nullopt;
}

void SimulatedWorkspace::open(const std::string& location, Opening opening) {
    m_journal.tell("open", [&location](JSONOutput& output) {
        output.key("bundleID");
        output.write(location);
    });
    if (!installed.contains(location)) return;
    const bool inFront = opening == Opening::activating;
    m_time
        .after(openDelay,
               [this, location, inFront] {
                   const auto running = runningApplications(location);
                   if (running.empty()) {
                       SimulatedApplicationInfo info;
                       info.pid = unusedPID();
                       info.bundleID = location;
                       launch(std::move(info), inFront);
                   } else if (inFront) {
                       activate(running.front()->processIdentifier());
                   }
               })
        .detach();
}

bool SimulatedWorkspace::add(SimulatedApplicationInfo info) {
    if (isRunning(info.pid)) return false;
    if (info.pid < firstOwnPID) m_highestPID = std::max(m_highestPID, info.pid);
    m_processes.push_back(std::make_shared<Process>(*this, std::move(info)));
    return true;
}

bool SimulatedWorkspace::startInFront(std::int32_t pid) {
    m_front = find(pid);
    if (m_front) m_front->lastActivation = ++m_activations;
    return m_front != nullptr;
}

bool SimulatedWorkspace::launch(SimulatedApplicationInfo info, bool inFront) {
    if (!add(std::move(info))) return false;
    const auto process = m_processes.back();
    announce(m_launchObservers, process);
    if (inFront) bringToFront(process);
    return true;
}

void SimulatedWorkspace::activate(std::int32_t pid) {
    if (const auto process = find(pid)) bringToFront(process);
}

void SimulatedWorkspace::unhide(std::int32_t pid) {
    if (const auto process = find(pid)) process->info.isHidden = false;
}

void SimulatedWorkspace::quit(std::int32_t pid) {
    if (const auto process = find(pid)) end(process);
}

void SimulatedWorkspace::announceUnknown() {
    announce(m_launchObservers, nullptr);
    announce(m_activationObservers, nullptr);
}

std::vector<SimulatedApplicationInfo> SimulatedWorkspace::list() const {
    std::vector<SimulatedApplicationInfo> infos;
    std::ranges::transform(m_processes, std::back_inserter(infos), [](const auto& process) { return process->info; });
    return infos;
}

Cancellable SimulatedWorkspace::observe(std::shared_ptr<Observers>& observers, Observer observer) {
    const std::uint64_t number = ++m_observerCount;
    observers->emplace(number, std::move(observer));
    return Cancellable{[held = std::weak_ptr{observers}, number] {
        if (const auto watched = held.lock()) watched->erase(number);
    }};
}

void SimulatedWorkspace::announce(const std::shared_ptr<Observers>& observers,
                                  const std::shared_ptr<Process>& process) {
    // Each to those who listen now, if they still do when it is delivered.
    for (const auto& entry : *observers) {
        m_time
            .post([observers, process, number = entry.first] {
                const auto found = observers->find(number);
                if (found == observers->end()) return;
                const Observer observer = found->second;
                observer(process);
            })
            .detach();
    }
}

std::shared_ptr<SimulatedWorkspace::Process> SimulatedWorkspace::find(std::int32_t pid) const {
    const auto found = std::ranges::find(m_processes, pid, [](const auto& process) { return process->info.pid; });
    return found == m_processes.end() ? nullptr : *found;
}

void SimulatedWorkspace::bringToFront(const std::shared_ptr<Process>& process) {
    if (!process->isAlive) return;
    process->info.isHidden = false;
    process->lastActivation = ++m_activations;
    if (m_front == process) return;
    m_front = process;
    announce(m_activationObservers, process);
}

void SimulatedWorkspace::loseFront(const Process& process) {
    if (m_front.get() != &process) return;
    m_front.reset();
    std::shared_ptr<Process> next;
    for (const auto& candidate : m_processes) {
        if (candidate->info.policy != ActivationPolicy::regular || candidate->info.isHidden) continue;
        if (!next || candidate->lastActivation > next->lastActivation) next = candidate;
    }
    if (!next) return;
    m_front = next;
    next->lastActivation = ++m_activations;
    announce(m_activationObservers, next);
}

void SimulatedWorkspace::hide(Process& process) {
    if (!process.isAlive) return;
    process.info.isHidden = true;
    loseFront(process);
}

void SimulatedWorkspace::askToQuit(const std::shared_ptr<Process>& process) {
    if (!process->isAlive || process->info.quits == QuitManners::never) return;
    m_time.after(quitDelay, [this, process] { end(process); }).detach();
}

void SimulatedWorkspace::end(const std::shared_ptr<Process>& process) {
    if (!process->isAlive) return;
    process->isAlive = false;
    std::erase(m_processes, process);
    loseFront(*process);
}

} // namespace velmorin
