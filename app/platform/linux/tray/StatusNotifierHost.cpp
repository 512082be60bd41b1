#include "app/platform/linux/tray/StatusNotifierHost.h"

#include <string_view>
#include <utility>

namespace velmorin {

namespace {

/// Who keeps the list of the icons, and of those who show them.
constexpr const char* watcher = "org.kde.StatusNotifierWatcher";
constexpr const char* watcherPath = "/StatusNotifierWatcher";

} // namespace

StatusNotifierHost::StatusNotifierHost(std::function<void()> call)
    : m_call{std::move(call)}, m_bus{Bus::session, [this](GDBusConnection* connection) { watch(connection); }} {}

StatusNotifierHost::~StatusNotifierHost() {
    if (m_watch != 0) g_bus_unwatch_name(m_watch);
}

void StatusNotifierHost::watch(GDBusConnection* connection) {
    const auto appear = [](GDBusConnection*, const gchar*, const gchar* owner, gpointer data) {
        static_cast<StatusNotifierHost*>(data)->ask(owner);
    };
    const auto vanish = [](GDBusConnection*, const gchar*, gpointer data) {
        static_cast<StatusNotifierHost*>(data)->m_signals = {};
    };
    m_watch = g_bus_watch_name_on_connection(connection, watcher, G_BUS_NAME_WATCHER_FLAGS_NONE, appear, vanish, this,
                                             nullptr);
}

/// A watcher may be there before anybody who shows what it lists.
void StatusNotifierHost::ask(const char* owner) {
    m_signals = {m_bus.get(), owner, watcherPath, watcher, [this](const char* member, GVariant*) {
                     if (std::string_view{member} == "StatusNotifierHostRegistered") m_call();
                 }};
    using Mark = std::weak_ptr<StatusNotifierHost*>;
    const auto arrive = [](GObject* connection, GAsyncResult* result, gpointer data) {
        const std::unique_ptr<Mark> mark{static_cast<Mark*>(data)};
        const GValueTree answer{g_dbus_connection_call_finish(G_DBUS_CONNECTION(connection), result, nullptr)};
        const auto host = mark->lock();
        if (!host || !answer) return;
        GVariant* boxed = nullptr;
        g_variant_get(answer.get(), "(v)", &boxed);
        const GValueTree isThere{boxed};
        if (g_variant_is_of_type(isThere.get(), G_VARIANT_TYPE_BOOLEAN) != FALSE &&
            g_variant_get_boolean(isThere.get()) != FALSE)
            (*host)->m_call();
    };
    g_dbus_connection_call(m_bus.get(), owner, watcherPath, "org.freedesktop.DBus.Properties", "Get",
                           g_variant_new("(ss)", watcher, "IsStatusNotifierHostRegistered"), G_VARIANT_TYPE("(v)"),
                           G_DBUS_CALL_FLAGS_NO_AUTO_START, -1, nullptr, arrive, new Mark{m_mark});
}

} // namespace velmorin
