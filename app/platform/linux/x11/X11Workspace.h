#pragma once

#include "app/platform/linux/applications/ApplicationIdentities.h"
#include "app/platform/linux/applications/ApplicationLauncher.h"
#include "app/platform/linux/x11/X11Application.h"
#include "app/platform/linux/x11/X11Desk.h"
#include "app/seams/Workspace.h"

#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmorin {

/// The applications of an X11 desktop: processes with windows, told apart by the process that the server knows behind
/// each window. Works under any window manager that keeps EWMH, by which all is asked and told; events drive it, and
/// nothing polls. With no active window the desktop itself is in front, which has the file manager's identifier; a
/// panel, a dock or a notification that becomes active counts as that part of the system, whoever made it.
class X11Workspace final : public Workspace {
public:
    /// What is known of the applications. All must outlive the workspace.
    struct Knowledge {
        const ApplicationIdentities& identities;
        const Processes& processes;
        const ApplicationLauncher& launcher;
        ApplicationIdentity self; ///< of this program
    };

    X11Workspace(X11Connection& connection, Knowledge knowledge);

    Application frontmostApplication() const override;
    std::vector<Application> runningApplications() const override;
    std::vector<Application> runningApplications(std::string_view bundleID) const override;
    [[nodiscard]] Cancellable observeActivations(Observer observer) override;
    [[nodiscard]] Cancellable observeLaunches(Observer observer) override;
    std::optional<std::string> locate(std::string_view bundleID) const override;
    void open(const std::string& location, Opening opening) override;

private:
    using Handle = std::shared_ptr<X11Application>;
    using Moment = std::chrono::steady_clock::time_point;
    using Observers = std::map<std::uint64_t, Observer>;

    struct Process {
        /// What it was identified by.
        struct Label {
            xcb_window_t window = XCB_WINDOW_NONE;
            std::string instance;
            std::string className;

            bool operator==(const Label&) const = default;
        };

        Handle application;
        Label label;
    };

    /// An application that was started and whose first window has not come to the front yet.
    struct Expected {
        std::string location;
        Opening opening;
        Application front;       ///< what was in front when it was started
        Application application; ///< null until it has come
        Moment until;
    };

    void handle(const X11Clients::Change& change);
    std::vector<Handle> regroup();
    std::int32_t numberOf(const X11Client& client) const;
    Handle makeApplication(std::int32_t number) const;
    void identify(Process& process) const;
    bool isLaunch(const X11Application& application);
    Application frontNow() const;
    void receive(const Handle& application);
    void sendBack(const Application& front);
    Cancellable add(const std::shared_ptr<Observers>& observers, Observer observer);
    static void tell(const std::shared_ptr<Observers>& observers, const Application& application);

    X11Connection& m_connection;
    Knowledge m_knowledge;
    std::uint64_t m_watchingSince; ///< in the kernel's ticks since boot, as processes have their start times
    std::shared_ptr<X11Desk> m_desk;
    std::map<std::int32_t, Process> m_processes;      ///< those with windows
    std::vector<std::int32_t> m_order;                ///< of their oldest windows
    std::map<std::int32_t, std::uint64_t> m_launched; ///< processes that have shown a window, by when they began
    Handle m_self;
    Application m_desktop, m_dock, m_notification;
    Application m_front; ///< what was told of last
    std::vector<Expected> m_expected;
    std::shared_ptr<Observers> m_activationObservers = std::make_shared<Observers>();
    std::shared_ptr<Observers> m_launchObservers = std::make_shared<Observers>();
    std::uint64_t m_lastObserver = 0;
};

} // namespace velmorin
