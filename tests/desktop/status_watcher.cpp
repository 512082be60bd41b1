// The part of a desktop that keeps the list of the icons in its bar, and stands for whoever shows them
// (StatusNotifierItem), for tests of what such a desktop is told.
//
// Usage: velmorin-status-watcher [--no-host]
//
// Prints each item that is registered, as the name on the bus under which it is to be found, a line each. With
// --no-host nobody shows them, until a line comes on the standard input.

#include <cstring>
#include <gio/gio.h>
#include <iostream>
#include <string>
#include <unistd.h>

namespace {

constexpr const char* description = R"(
<node>
  <interface name="org.kde.StatusNotifierWatcher">
    <method name="RegisterStatusNotifierItem"><arg type="s" direction="in"/></method>
    <method name="RegisterStatusNotifierHost"><arg type="s" direction="in"/></method>
    <property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
    <property name="RegisteredStatusNotifierItems" type="as" access="read"/>
    <property name="ProtocolVersion" type="i" access="read"/>
    <signal name="StatusNotifierItemRegistered"><arg type="s"/></signal>
    <signal name="StatusNotifierHostRegistered"/>
  </interface>
</node>)";

bool hasHost = true;
GDBusConnection* bus = nullptr;

void handleCall(GDBusConnection*, const gchar* sender, const gchar*, const gchar*, const gchar* method,
                GVariant* parameters, GDBusMethodInvocation* invocation, gpointer) {
    if (std::strcmp(method, "RegisterStatusNotifierItem") == 0) {
        const gchar* service = nullptr;
        g_variant_get(parameters, "(&s)", &service);
        std::cout << (*service == '/' ? sender : service) << std::endl;
    }
    g_dbus_method_invocation_return_value(invocation, nullptr);
}

GVariant* getProperty(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar* property, GError**,
                      gpointer) {
    if (std::strcmp(property, "IsStatusNotifierHostRegistered") == 0)
        return g_variant_new_boolean(hasHost ? TRUE : FALSE);
    if (std::strcmp(property, "ProtocolVersion") == 0) return g_variant_new_int32(0);
    return g_variant_new_strv(nullptr, 0);
}

gboolean registerHost(GIOChannel*, GIOCondition, gpointer) {
    hasHost = true;
    g_dbus_connection_emit_signal(bus, nullptr, "/StatusNotifierWatcher", "org.kde.StatusNotifierWatcher",
                                  "StatusNotifierHostRegistered", nullptr, nullptr);
    return G_SOURCE_REMOVE;
}

void acquired(GDBusConnection* connection, const gchar*, gpointer) {
    static const GDBusInterfaceVTable functions{handleCall, getProperty, nullptr, {}};
    bus = connection;
    GDBusNodeInfo* node = g_dbus_node_info_new_for_xml(description, nullptr);
    g_dbus_connection_register_object(connection, "/StatusNotifierWatcher", node->interfaces[0], &functions, nullptr,
                                      nullptr, nullptr);
}

} // namespace

int main(int count, char** words) {
    hasHost = !(count > 1 && std::string{words[1]} == "--no-host");
    g_bus_own_name(G_BUS_TYPE_SESSION, "org.kde.StatusNotifierWatcher", G_BUS_NAME_OWNER_FLAGS_NONE, acquired, nullptr,
                   nullptr, nullptr, nullptr);
    if (!hasHost) g_io_add_watch(g_io_channel_unix_new(STDIN_FILENO), G_IO_IN, registerHost, nullptr);
    g_main_loop_run(g_main_loop_new(nullptr, FALSE));
}
