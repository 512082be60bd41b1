#include "app/platform/linux/services/BusConnection.h"

#include <cstdlib>
#include <filesystem>
#include <utility>

namespace velmorin {

namespace {

std::optional<std::string> environmentVariable(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr || *value == '\0' ? std::nullopt : std::optional<std::string>{value};
}

std::string addressOf(const std::filesystem::path& socket) {
    const GText path{g_dbus_address_escape_value(socket.c_str())};
    return std::string{"unix:path="} + path.get();
}

constexpr auto clientOfBus = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                               G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);

/// Time that is over at some point, with a context of GLib's of its own until then.
class Hurry {
public:
    explicit Hurry(double patience) : m_context{g_main_context_new()}, m_isOver{g_cancellable_new()} {
        const auto cancel = [](gpointer isOver) -> gboolean {
            g_cancellable_cancel(static_cast<GCancellable*>(isOver));
            return G_SOURCE_REMOVE;
        };
        m_deadline.reset(g_timeout_source_new(static_cast<unsigned>(patience * 1000)));
        g_source_set_callback(m_deadline.get(), cancel, m_isOver.get(), nullptr);
        g_source_attach(m_deadline.get(), m_context);
        g_main_context_push_thread_default(m_context);
    }
    Hurry(const Hurry&) = delete;
    Hurry& operator=(const Hurry&) = delete;
    ~Hurry() {
        g_source_destroy(m_deadline.get());
        // What is still to be delivered holds on to objects of this context.
        while (g_main_context_iteration(m_context, FALSE) != FALSE) {
        }
        g_main_context_pop_thread_default(m_context);
        g_main_context_unref(m_context);
    }

    GOwned<GDBusConnection> connect(const std::string& address) const {
        GOwned<GAsyncResult> result;
        g_dbus_connection_new_for_address(address.c_str(), clientOfBus, nullptr, m_isOver.get(), arrive, &result);
        wait(result);
        return GOwned<GDBusConnection>{g_dbus_connection_new_for_address_finish(result.get(), nullptr)};
    }
    bool call(GDBusConnection* connection, const BusCall& call) const {
        GOwned<GAsyncResult> result;
        g_dbus_connection_call(connection, call.name, call.path, call.interface, call.method, call.parameters, nullptr,
                               G_DBUS_CALL_FLAGS_NONE, -1, m_isOver.get(), arrive, &result);
        wait(result);
        return GValueTree{g_dbus_connection_call_finish(connection, result.get(), nullptr)} != nullptr;
    }

private:
    static void arrive(GObject*, GAsyncResult* result, gpointer place) {
        static_cast<GOwned<GAsyncResult>*>(place)->reset(G_ASYNC_RESULT(g_object_ref(result)));
    }
    void wait(const GOwned<GAsyncResult>& result) const {
        while (!result)
            g_main_context_iteration(m_context, TRUE);
    }

    GMainContext* m_context;
    GOwned<GCancellable> m_isOver;
    GHeldSource m_deadline;
};

} // namespace

std::optional<std::string> busAddress(Bus bus) {
    const bool isSystem = bus == Bus::system;
    if (auto address = environmentVariable(isSystem ? "DBUS_SYSTEM_BUS_ADDRESS" : "DBUS_SESSION_BUS_ADDRESS"))
        return address;
    if (isSystem) return addressOf("/run/dbus/system_bus_socket");
    const auto runtimeDirectory = environmentVariable("XDG_RUNTIME_DIR");
    return runtimeDirectory ? std::optional{addressOf(std::filesystem::path{*runtimeDirectory} / "bus")} : std::nullopt;
}

struct BusConnection::State {
    Ready ready;
    GOwned<GCancellable> isOver{g_cancellable_new()};
    GOwned<GDBusConnection> connection;

    static void arrive(GObject*, GAsyncResult* result, gpointer data) {
        const std::unique_ptr<std::weak_ptr<State>> owner{static_cast<std::weak_ptr<State>*>(data)};
        GOwned<GDBusConnection> made{g_dbus_connection_new_for_address_finish(result, nullptr)};
        const auto state = owner->lock();
        if (!state || !made) return;
        state->connection = std::move(made);
        state->ready(state->connection.get());
    }
};

BusConnection::BusConnection(Bus bus, Ready ready) : m_state{std::make_shared<State>()} {
    m_state->ready = std::move(ready);
    const auto address = busAddress(bus);
    if (!address) return;
    g_dbus_connection_new_for_address(address->c_str(), clientOfBus, nullptr, m_state->isOver.get(), State::arrive,
                                      new std::weak_ptr<State>{m_state});
}

BusConnection::~BusConnection() {
    g_cancellable_cancel(m_state->isOver.get());
    if (m_state->connection) g_dbus_connection_close(m_state->connection.get(), nullptr, nullptr, nullptr);
}

GDBusConnection* BusConnection::get() const {
    return m_state->connection.get();
}

bool callAndWait(Bus bus, GDBusConnection* connection, const BusCall& call, double patience) {
    const GValueTree held{g_variant_ref_sink(call.parameters)};
    const Hurry hurry{patience};
    if (connection != nullptr) return hurry.call(connection, call);
    const auto address = busAddress(bus);
    const auto own = address ? hurry.connect(*address) : nullptr;
    return own && hurry.call(own.get(), call);
}

SignalSubscription::SignalSubscription(GDBusConnection* connection, const char* sender, const char* path,
                                       const char* interface, Handler handler)
    : m_connection{G_DBUS_CONNECTION(g_object_ref(connection))} {
    const auto call = [](GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar* member,
                         GVariant* parameters, gpointer data) {
        // It may end the subscription, and with it itself.
        const auto held = *static_cast<Handler*>(data);
        held(member, parameters);
    };
    const auto drop = [](gpointer data) { delete static_cast<Handler*>(data); };
    m_number =
        g_dbus_connection_signal_subscribe(connection, sender, interface, nullptr, path, nullptr,
                                           G_DBUS_SIGNAL_FLAGS_NONE, call, new Handler{std::move(handler)}, drop);
}

SignalSubscription::SignalSubscription(SignalSubscription&& other) noexcept
    : m_connection{std::move(other.m_connection)}, m_number{std::exchange(other.m_number, 0)} {}

SignalSubscription& SignalSubscription::operator=(SignalSubscription&& other) noexcept {
    if (this != &other) {
        end();
        m_connection = std::move(other.m_connection);
        m_number = std::exchange(other.m_number, 0);
    }
    return *this;
}

SignalSubscription::~SignalSubscription() {
    end();
}

void SignalSubscription::end() {
    if (m_number != 0) g_dbus_connection_signal_unsubscribe(m_connection.get(), std::exchange(m_number, 0));
}

} // namespace velmorin
