#include "app/platform/linux/services/SessionEnd.h"

#include <array>
#include <cstdlib>
#include <string_view>
#include <utility>

namespace velmorin {

namespace {

/// The same talk under two names.
struct Manager {
    const char* name;
    const char* path;
    const char* interface;
    const char* clientInterface;
};
constexpr std::array<Manager, 2> managers{{
    {"org.gnome.SessionManager", "/org/gnome/SessionManager", "org.gnome.SessionManager",
     "org.gnome.SessionManager.ClientPrivate"},
    {"org.xfce.SessionManager", "/org/xfce/SessionManager", "org.xfce.Session.Manager", "org.xfce.Session.Client"},
}};

/// What the session manager has called this program at its start, if it started it. Taken out of the environment, so
/// that nothing that is started from here passes for this program.
std::string takeStartupIdentifier() {
    constexpr const char* variable = "DESKTOP_AUTOSTART_ID";
    const char* found = std::getenv(variable);
    std::string identifier = found == nullptr ? "" : found;
    g_unsetenv(variable);
    return identifier;
}

} // namespace

/// This program as a client of one session manager, for as long as that is there.
class SessionEnd::Client {
public:
    Client(const Manager& manager, GDBusConnection* connection, const Names& names, const Calls& calls)
        : m_manager{manager},
          m_connection{G_DBUS_CONNECTION(g_object_ref(connection))},
          m_names{names},
          m_calls{calls} {
        const auto appear = [](GDBusConnection*, const gchar*, const gchar* owner, gpointer data) {
            static_cast<Client*>(data)->enrol(owner);
        };
        const auto vanish = [](GDBusConnection*, const gchar*, gpointer data) {
            static_cast<Client*>(data)->m_signals = {};
        };
        m_watch = g_bus_watch_name_on_connection(connection, manager.name, G_BUS_NAME_WATCHER_FLAGS_NONE, appear,
                                                 vanish, this, nullptr);
    }
    Client(const Client&) = delete;
    Client& operator=(const Client&) = delete;
    ~Client() { g_bus_unwatch_name(m_watch); }

private:
    using Mark = std::weak_ptr<Client*>;

    void enrol(const char* owner) {
        m_owner = owner;
        const auto arrive = [](GObject* connection, GAsyncResult* result, gpointer data) {
            const std::unique_ptr<Mark> mark{static_cast<Mark*>(data)};
            const GValueTree answer{g_dbus_connection_call_finish(G_DBUS_CONNECTION(connection), result, nullptr)};
            if (const auto client = mark->lock(); client && answer) (*client)->listen(answer.get());
        };
        g_dbus_connection_call(m_connection.get(), owner, m_manager.path, m_manager.interface, "RegisterClient",
                               g_variant_new("(ss)", m_names.identifier.c_str(), m_names.startupIdentifier.c_str()),
                               G_VARIANT_TYPE("(o)"), G_DBUS_CALL_FLAGS_NO_AUTO_START, -1, nullptr, arrive,
                               new Mark{m_mark});
    }

    void listen(GVariant* answer) {
        const char* path = nullptr;
        g_variant_get(answer, "(&o)", &path);
        m_path = path;
        m_signals = {m_connection.get(), m_owner.c_str(), path, m_manager.clientInterface,
                     [this](const char* member, GVariant*) { hear(member); }};
    }

    void hear(std::string_view member) {
        if (member == "QueryEndSession") answer();
        if (member == "EndSession") {
            m_calls.onAnnounced();
            answer();
        }
        // Also said to a single program, by whoever looks after those that run. A log-out has been announced before.
        if (member == "Stop") m_calls.onStop();
    }

    /// Nothing here is against the end. A session that is guarded goes on at the next login.
    void answer() {
        g_dbus_connection_call(m_connection.get(), m_owner.c_str(), m_path.c_str(), m_manager.clientInterface,
                               "EndSessionResponse", g_variant_new("(bs)", TRUE, ""), nullptr,
                               G_DBUS_CALL_FLAGS_NO_AUTO_START, -1, nullptr, nullptr, nullptr);
    }

    const Manager& m_manager;
    GOwned<GDBusConnection> m_connection;
    const Names& m_names;
    const Calls& m_calls;
    unsigned m_watch = 0;
    std::string m_owner;
    std::string m_path;
    SignalSubscription m_signals;
    std::shared_ptr<Client*> m_mark = std::make_shared<Client*>(this);
};

SessionEnd::SessionEnd(std::string identifier, Calls calls)
    : m_names{std::move(identifier), takeStartupIdentifier()},
      m_calls{std::move(calls)},
      m_systemBus{Bus::system, [this](GDBusConnection* connection) { listenToLogind(connection); }},
      m_sessionBus{Bus::session, [this](GDBusConnection* connection) { registerWithManagers(connection); }} {}

SessionEnd::~SessionEnd() = default;

void SessionEnd::listenToLogind(GDBusConnection* connection) {
    const auto hear = [this](const char* member, GVariant* parameters) {
        if (std::string_view{member} != "PrepareForShutdown") return;
        if (g_variant_is_of_type(parameters, G_VARIANT_TYPE("(b)")) == FALSE) return;
        gboolean begins = FALSE;
        g_variant_get(parameters, "(b)", &begins);
        if (begins != FALSE) m_calls.onAnnounced();
    };
    m_shutdown = {connection, "org.freedesktop.login1", "/org/freedesktop/login1", "org.freedesktop.login1.Manager",
                  hear};
}

void SessionEnd::registerWithManagers(GDBusConnection* connection) {
    for (const auto& manager : managers)
        m_clients.push_back(std::make_unique<Client>(manager, connection, m_names, m_calls));
}

} // namespace velmorin
