#include "app/platform/linux/applications/SessionBus.h"

#include "app/platform/linux/loop/GLibPointers.h"

#include <filesystem>
#include <system_error>

namespace velmorin {

namespace {

bool isThere() {
    if (g_getenv("DBUS_SESSION_BUS_ADDRESS") != nullptr) return true;
    std::error_code missing;
    return std::filesystem::exists(std::filesystem::path{g_get_user_runtime_dir()} / "bus", missing);
}

} // namespace

GDBusConnection* sessionBus() {
    static GOwned<GDBusConnection> connection;
    if (connection && g_dbus_connection_is_closed(connection.get()) != FALSE) connection.reset();
    if (!connection && isThere()) {
        connection.reset(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr));
        if (connection) g_dbus_connection_set_exit_on_close(connection.get(), FALSE);
    }
    return connection.get();
}

} // namespace velmorin
