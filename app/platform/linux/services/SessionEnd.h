#pragma once

#include "app/platform/linux/services/BusConnection.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace velmorin {

/// Listens to those who announce the end: of the machine (logind, on the system bus) and of the user's session (the
/// session managers of GNOME and its kin, and of XFCE, on the session bus). To a session manager it never objects.
/// Where nobody speaks, nothing is heard. Main thread; the making of this takes no time.
class SessionEnd {
public:
    struct Calls {
        std::function<void()> onAnnounced; ///< the machine shuts down or restarts, or the user is logged out
        std::function<void()> onStop;      ///< a session manager wants this program to end, with the session or alone
    };

    /// `identifier` is what a session manager knows this program by. What one has called it at its start, in
    /// $DESKTOP_AUTOSTART_ID, is taken out of the environment.
    SessionEnd(std::string identifier, Calls calls);
    SessionEnd(const SessionEnd&) = delete;
    SessionEnd& operator=(const SessionEnd&) = delete;
    ~SessionEnd();

private:
    class Client;
    struct Names {
        std::string identifier;
        std::string startupIdentifier;
    };

    void listenToLogind(GDBusConnection* connection);
    void registerWithManagers(GDBusConnection* connection);

    Names m_names;
    Calls m_calls;
    SignalSubscription m_shutdown;
    std::vector<std::unique_ptr<Client>> m_clients;
    // These call the others, so they go first.
    BusConnection m_systemBus;
    BusConnection m_sessionBus;
};

} // namespace velmorin
