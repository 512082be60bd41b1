// The part of a desktop that logs its user out (the session manager of GNOME and its kin), for tests of a program that
// hears of it.
//
// Usage: velmorin-session-manager
//
// Prints "client NAME" for each program that enrols, and "agrees" or "objects" for what one answers. Each line of the
// standard input is said to those that have enrolled: QueryEndSession, EndSession, Stop.

#include <cstring>
#include <gio/gio.h>
#include <iostream>
#include <string>
#include <unistd.h>

namespace {

constexpr const char* clientPath = "/org/gnome/SessionManager/Client1";
constexpr const char* clientInterface = "org.gnome.SessionManager.ClientPrivate";
constexpr const char* description = R"(
<node>
  <interface name="org.gnome.SessionManager">
    <method name="RegisterClient">
      <arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="o" direction="out"/>
    </method>
  </interface>
  <interface name="org.gnome.SessionManager.ClientPrivate">
    <method name="EndSessionResponse"><arg type="b" direction="in"/><arg type="s" direction="in"/></method>
  </interface>
</node>)";

GDBusConnection* bus = nullptr;

void handleCall(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar* method, GVariant* parameters,
                GDBusMethodInvocation* invocation, gpointer) {
    if (std::strcmp(method, "RegisterClient") == 0) {
        const gchar* identifier = nullptr;
        g_variant_get(parameters, "(&s&s)", &identifier, nullptr);
        std::cout << "client " << identifier << std::endl;
        return g_dbus_method_invocation_return_value(invocation, g_variant_new("(o)", clientPath));
    }
    gboolean agrees = FALSE;
    g_variant_get(parameters, "(b&s)", &agrees, nullptr);
    std::cout << (agrees != FALSE ? "agrees" : "objects") << std::endl;
    g_dbus_method_invocation_return_value(invocation, nullptr);
}

gboolean say(GIOChannel*, GIOCondition, gpointer) {
    std::string signal;
    if (!std::getline(std::cin, signal)) return G_SOURCE_REMOVE;
    GVariant* flags = signal == "Stop" ? nullptr : g_variant_new("(u)", 0U);
    g_dbus_connection_emit_signal(bus, nullptr, clientPath, clientInterface, signal.c_str(), flags, nullptr);
    return G_SOURCE_CONTINUE;
}

void acquired(GDBusConnection* connection, const gchar*, gpointer) {
    static const GDBusInterfaceVTable functions{handleCall, nullptr, nullptr, {}};
    bus = connection;
    GDBusNodeInfo* node = g_dbus_node_info_new_for_xml(description, nullptr);
    g_dbus_connection_register_object(connection, "/org/gnome/SessionManager", node->interfaces[0], &functions, nullptr,
                                      nullptr, nullptr);
    g_dbus_connection_register_object(connection, clientPath, node->interfaces[1], &functions, nullptr, nullptr,
                                      nullptr);
}

} // namespace

int main() {
    g_bus_own_name(G_BUS_TYPE_SESSION, "org.gnome.SessionManager", G_BUS_NAME_OWNER_FLAGS_NONE, acquired, nullptr,
                   nullptr, nullptr, nullptr);
    g_io_add_watch(g_io_channel_unix_new(STDIN_FILENO), G_IO_IN, say, nullptr);
    g_main_loop_run(g_main_loop_new(nullptr, FALSE));
}
