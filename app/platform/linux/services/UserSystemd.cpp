#include "app/platform/linux/services/UserSystemd.h"

#include "app/platform/linux/loop/GLibPointers.h"

#include <algorithm>
#include <functional>
#include <gio/gio.h>
#include <optional>
#include <utility>

namespace velmorin {

namespace {

constexpr const char* managerPath = "/org/freedesktop/systemd1";
constexpr const char* managerInterface = "org.freedesktop.systemd1.Manager";
/// How long a unit may need to be asked for its state again.
constexpr unsigned statePause = 10;    // milliseconds
constexpr unsigned greetingPause = 20; // milliseconds

struct DropContext {
    void operator()(GMainContext* context) const { g_main_context_unref(context); }
};
using Context = std::unique_ptr<GMainContext, DropContext>;

/// Has GLib deliver into a context of its own as long as it lives, so that nothing else of the program is called.
class Within {
public:
    explicit Within(GMainContext* context) : m_context{context} { g_main_context_push_thread_default(context); }
    Within(const Within&) = delete;
    Within& operator=(const Within&) = delete;
    ~Within() { g_main_context_pop_thread_default(m_context); }

private:
    GMainContext* m_context;
};

/// What an operation of GIO has come to.
struct Outcome {
    GAsyncResult* result = nullptr;

    static void arrive(GObject*, GAsyncResult* result, gpointer outcome) {
        static_cast<Outcome*>(outcome)->result = G_ASYNC_RESULT(g_object_ref(result));
    }
    ~Outcome() { g_clear_object(&result); }
};

} // namespace

class UserSystemd::Connection {
public:
    Connection(const std::filesystem::path& runtimeDirectory, double patience)
        : m_context{g_main_context_new()}, m_end{g_cancellable_new()} {
        const auto cancel = [](gpointer end) -> gboolean {
            g_cancellable_cancel(static_cast<GCancellable*>(end));
            return G_SOURCE_REMOVE;
        };
        m_deadline = timer(static_cast<unsigned>(patience * 1000), cancel, m_end.get());
        if (!runtimeDirectory.empty()) connect(runtimeDirectory / "systemd" / "private");
    }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    ~Connection() {
        g_source_destroy(m_deadline.get());
        m_connection.reset();
        // What is still to be delivered holds on to objects of this context.
        while (g_main_context_iteration(m_context.get(), FALSE) != FALSE) {
        }
    }

    bool isOpen() const { return m_connection != nullptr; }

    /// Whether somebody answers. The manager leaves a message lying that comes together with the end of the greeting,
    /// until another comes; so this says it again and again.
    bool greet() {
        if (!isOpen()) return false;
        const Within within{m_context.get()};
        const auto repeat = [](gpointer connection) -> gboolean {
            g_dbus_connection_call(static_cast<GDBusConnection*>(connection), nullptr, managerPath,
                                   "org.freedesktop.DBus.Peer", "Ping", nullptr, nullptr, G_DBUS_CALL_FLAGS_NONE, -1,
                                   nullptr, nullptr, nullptr);
            return G_SOURCE_CONTINUE;
        };
        const auto repetition = timer(greetingPause, repeat, m_connection.get());
        const bool isAnswered = call(managerPath, "org.freedesktop.DBus.Peer", "Ping", g_variant_new("()")) != nullptr;
        g_source_destroy(repetition.get());
        return isAnswered;
    }

    /// Null when it fails. `parameters` are taken.
    GValueTree call(const char* path, const char* interface, const char* method, GVariant* parameters) {
        const GValueTree held{g_variant_ref_sink(parameters)};
        if (!isOpen()) return nullptr;
        const Within within{m_context.get()};
        Outcome outcome;
        g_dbus_connection_call(m_connection.get(), nullptr, path, interface, method, parameters, nullptr,
                               G_DBUS_CALL_FLAGS_NONE, -1, m_end.get(), Outcome::arrive, &outcome);
        wait(outcome);
        return GValueTree{g_dbus_connection_call_finish(m_connection.get(), outcome.result, nullptr)};
    }
    GValueTree callManager(const char* method, GVariant* parameters) {
        return call(managerPath, managerInterface, method, parameters);
    }

    /// Absent when that cannot be told. A unit that is not there is inactive.
    std::optional<std::string> stateOf(const std::string& unit) {
        const auto path = pathOf(unit);
        if (!path) return isCut() ? std::nullopt : std::optional<std::string>{"inactive"};
        const auto state = property(*path, "ActiveState");
        return state ? std::optional<std::string>{g_variant_get_string(state.get(), nullptr)} : std::nullopt;
    }

    /// The state of a unit once nothing is about to happen to it; absent when that does not come in time.
    std::optional<std::string> settledStateOf(const std::string& unit) {
        while (hasJob(unit) && !isCut())
            pause();
        return stateOf(unit);
    }

    /// Asks for the state of a unit until it is as wanted; false when it does not become so in time.
    bool waitForState(const std::string& unit, const std::function<bool(const std::string&)>& isWanted) {
        for (auto state = stateOf(unit); state; state = stateOf(unit)) {
            if (isWanted(*state)) return true;
            pause();
        }
        return false;
    }

private:
    std::optional<std::string> pathOf(const std::string& unit) {
        const auto found = callManager("GetUnit", g_variant_new("(s)", unit.c_str()));
        if (!found) return std::nullopt;
        const char* path = nullptr;
        g_variant_get(found.get(), "(&o)", &path);
        return path;
    }

    /// A property of a unit; null when it cannot be had.
    GValueTree property(const std::string& path, const char* name) {
        const auto answer = call(path.c_str(), "org.freedesktop.DBus.Properties", "Get",
                                 g_variant_new("(ss)", "org.freedesktop.systemd1.Unit", name));
        if (!answer) return nullptr;
        GVariant* value = nullptr;
        g_variant_get(answer.get(), "(v)", &value);
        return GValueTree{value};
    }

    /// Whether a unit is still to be started or stopped.
    bool hasJob(const std::string& unit) {
        const auto path = pathOf(unit);
        const auto job = path ? property(*path, "Job") : nullptr;
        guint32 number = 0;
        if (job) g_variant_get(job.get(), "(uo)", &number, nullptr);
        return number != 0;
    }

    /// Nobody listens on the other side any more, or the time is up.
    bool isCut() const {
        return g_cancellable_is_cancelled(m_end.get()) != FALSE ||
               g_dbus_connection_is_closed(m_connection.get()) != FALSE;
    }

    void connect(const std::filesystem::path& socket) {
        const Within within{m_context.get()};
        const GText path{g_dbus_address_escape_value(socket.c_str())};
        const std::string address = std::string{"unix:path="} + path.get();
        Outcome outcome;
        g_dbus_connection_new_for_address(address.c_str(), G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT, nullptr,
                                          m_end.get(), Outcome::arrive, &outcome);
        wait(outcome);
        m_connection.reset(g_dbus_connection_new_for_address_finish(outcome.result, nullptr));
    }

    void wait(const Outcome& outcome) const {
        while (outcome.result == nullptr)
            g_main_context_iteration(m_context.get(), TRUE);
    }

    void pause() const {
        bool isOver = false;
        const auto note = [](gpointer over) -> gboolean {
            *static_cast<bool*>(over) = true;
            return G_SOURCE_REMOVE;
        };
        const auto end = timer(statePause, note, &isOver);
        while (!isOver)
            g_main_context_iteration(m_context.get(), TRUE);
    }

    GHeldSource timer(unsigned milliseconds, GSourceFunc fire, gpointer data) const {
        GHeldSource source{g_timeout_source_new(milliseconds)};
        g_source_set_callback(source.get(), fire, data, nullptr);
        g_source_attach(source.get(), m_context.get());
        return source;
    }

    Context m_context;
    GOwned<GCancellable> m_end; ///< cancels whatever is asked when the time is up
    GHeldSource m_deadline;
    GOwned<GDBusConnection> m_connection;
};

UserSystemd::UserSystemd(const std::filesystem::path& runtimeDirectory, double patience)
    : m_connection{std::make_unique<Connection>(runtimeDirectory, patience)}, m_isReachable{m_connection->greet()} {}

UserSystemd::~UserSystemd() = default;

bool UserSystemd::isReachable() const {
    return m_isReachable;
}

bool UserSystemd::reload() {
    return m_connection->callManager("Reload", g_variant_new("()")) != nullptr;
}

bool UserSystemd::restart(std::string_view unit) {
    const std::string name{unit};
    return m_connection->callManager("RestartUnit", g_variant_new("(ss)", name.c_str(), "replace")) &&
           m_connection->settledStateOf(name) == "active";
}

bool UserSystemd::stop(std::string_view unit) {
    const std::string name{unit};
    if (!m_isReachable) return false;
    // Fails for a unit that is not there, which is as good.
    m_connection->callManager("StopUnit", g_variant_new("(ss)", name.c_str(), "replace"));
    return m_connection->waitForState(
        name, [](const std::string& state) { return state == "inactive" || state == "failed"; });
}

void UserSystemd::resetFailed(std::string_view unit) {
    m_connection->callManager("ResetFailedUnit", g_variant_new("(s)", std::string{unit}.c_str()));
}

} // namespace velmorin
