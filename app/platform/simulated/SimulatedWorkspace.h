#pragma once

#include "app/platform/simulated/Journal.h"
#include "app/platform/simulated/VirtualTime.h"
#include "app/seams/Observable.h"
#include "app/seams/Workspace.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace velmorin {

/// What an application does when it is asked to quit.
enum class QuitManners { politely, never };

constexpr std::array<std::string_view, 2> rawValues(QuitManners) {
    return {"politely", "never"};
}

/// What makes up an application of the simulated desktop.
struct SimulatedApplicationInfo {
    std::int32_t pid = 0;
    std::optional<std::string> bundleID;
    std::optional<std::string> name;
    ActivationPolicy policy = ActivationPolicy::regular;
    bool isHidden = false;
    QuitManners quits = QuitManners::politely;
};

/// Applications that obey or ignore. The program's operations are told to the journal, the user's are not. Observers
/// hear of what happened once the call that caused it has ended.
class SimulatedWorkspace final : public Workspace {
public:
    /// How long an application takes to go after it was asked, and to start after it was opened, in seconds.
    static constexpr double quitDelay = 0.5;
    static constexpr double openDelay = 0.2;

    /// Identifiers from here on belong to processes of the program itself, which stay out of `unusedPID`.
    static constexpr std::int32_t firstOwnPID = 2'000'000'000;

    /// Both must outlive this.
    SimulatedWorkspace(VirtualTime& time, const Journal& journal) : m_time{time}, m_journal{journal} {}

    Application frontmostApplication() const override;
    std::vector<Application> runningApplications() const override;
    std::vector<Application> runningApplications(std::string_view bundleID) const override;
    Cancellable observeActivations(Observer observer) override {
        return observe(m_activationObservers, std::move(observer));
    }
    Cancellable observeLaunches(Observer observer) override { return observe(m_launchObservers, std::move(observer)); }
    std::optional<std::string> locate(std::string_view bundleID) const override;
    void open(const std::string& location, Opening opening) override;

    // The control side: what the user does, and what is there.

    std::set<std::string, std::less<>> installed; ///< identifiers of what can be opened

    /// An application that was there before anybody looked; false when its process identifier is taken.
    bool add(SimulatedApplicationInfo info);
    /// The application that was in front before anybody looked; false when there is no such.
    bool startInFront(std::int32_t pid);
    /// Starts one; false when its process identifier is taken.
    bool launch(SimulatedApplicationInfo info, bool inFront);
    /// Brings an application to the front, shown. These do nothing for one that does not run.
    void activate(std::int32_t pid);
    void unhide(std::int32_t pid);
    void quit(std::int32_t pid);
    /// Something starts and comes to the front of which the system cannot tell what it is.
    void announceUnknown();
    /// Takes the front away from everybody.
    void leaveFront() { m_front.reset(); }
    /// All applications as they are, in the order of their start.
    std::vector<SimulatedApplicationInfo> list() const;
    bool isRunning(std::int32_t pid) const { return find(pid) != nullptr; }
    /// A process identifier that was never used.
    std::int32_t unusedPID() const { return m_highestPID + 1; }

private:
    class Process;
    using Processes = std::vector<std::shared_ptr<Process>>;
    using Observers = std::map<std::uint64_t, Observer>;

    Cancellable observe(std::shared_ptr<Observers>& observers, Observer observer);
    void announce(const std::shared_ptr<Observers>& observers, const std::shared_ptr<Process>& process);
    std::shared_ptr<Process> find(std::int32_t pid) const;
    void bringToFront(const std::shared_ptr<Process>& process);
    void loseFront(const Process& process);
    void hide(Process& process);
    void askToQuit(const std::shared_ptr<Process>& process);
    void end(const std::shared_ptr<Process>& process);

    VirtualTime& m_time;
    const Journal& m_journal;
    Processes m_processes;
    std::shared_ptr<Process> m_front;
    std::int32_t m_highestPID = 0;
    std::uint64_t m_activations = 0;
    std::uint64_t m_observerCount = 0;
    std::shared_ptr<Observers> m_activationObservers = std::make_shared<Observers>();
    std::shared_ptr<Observers> m_launchObservers = std::make_shared<Observers>();
};

} // namespace velmorin
