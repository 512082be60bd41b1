#include "tests/support/BusDaemon.h"

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <gio/gio.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace velmorin {

namespace {

GOwned<GDBusConnection> connectTo(const std::string& address) {
    const auto flags = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                         G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    constexpr int attempts = 500;
    constexpr unsigned long pause = 10'000; // microseconds
    for (int attempt = 0; attempt < attempts; ++attempt, g_usleep(pause))
        if (auto* made = g_dbus_connection_new_for_address_sync(address.c_str(), flags, nullptr, nullptr, nullptr))
            return GOwned<GDBusConnection>{made};
    throw std::runtime_error{"no message bus at " + address};
}

} // namespace

BusDaemon::BusDaemon(std::string variable) : m_variable{std::move(variable)} {
    const auto option = "--address=" + address();
    m_process = ::fork();
    if (m_process == 0) {
        const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
        ::dup2(nowhere, STDERR_FILENO);
        ::execlp("dbus-daemon", "dbus-daemon", "--session", "--nofork", "--nopidfile", option.c_str(), nullptr);
        ::_exit(127);
    }
    try {
        connectTo(address());
    } catch (...) {
        stop();
        throw;
    }
    if (const char* before = std::getenv(m_variable.c_str())) m_before = before;
    ::setenv(m_variable.c_str(), address().c_str(), 1);
}

BusDaemon::~BusDaemon() {
    m_before ? ::setenv(m_variable.c_str(), m_before->c_str(), 1) : ::unsetenv(m_variable.c_str());
    stop();
}

void BusDaemon::stop() {
    if (m_process <= 0) return;
    ::kill(m_process, SIGTERM);
    ::waitpid(std::exchange(m_process, -1), nullptr, 0);
}

BusPeer::BusPeer(const BusDaemon& daemon, const char* name) : m_connection{connectTo(daemon.address())} {
    constexpr guint32 plainly = 0;
    const GValueTree answer{g_dbus_connection_call_sync(
        m_connection.get(), "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "RequestName",
        g_variant_new("(su)", name, plainly), nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr)};
    if (!answer) throw std::runtime_error{std::string{"the bus refuses the name "} + name};
}

BusPeer::~BusPeer() {
    g_dbus_connection_close_sync(m_connection.get(), nullptr, nullptr);
}

void BusPeer::emit(const char* path, const char* interface, const char* signal, GVariant* parameters) {
    g_dbus_connection_emit_signal(m_connection.get(), nullptr, path, interface, signal, parameters, nullptr);
    g_dbus_connection_flush_sync(m_connection.get(), nullptr, nullptr);
}

void BusPeer::serve(const char* path, const char* description, Answer answer) {
    auto* node = g_dbus_node_info_new_for_xml(description, nullptr);
    const auto call = [](GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar* method,
                         GVariant* parameters, GDBusMethodInvocation* invocation, gpointer data) {
        if (auto* result = (*static_cast<Answer*>(data))(method, parameters)) {
            g_dbus_method_invocation_return_value(invocation, result);
        } else {
            g_dbus_method_invocation_return_dbus_error(invocation, "org.freedesktop.DBus.Error.UnknownMethod", "none");
        }
    };
    static const GDBusInterfaceVTable functions{call, nullptr, nullptr, {}};
    const auto drop = [](gpointer data) { delete static_cast<Answer*>(data); };
    g_dbus_connection_register_object(m_connection.get(), path, node->interfaces[0], &functions,
                                      new Answer{std::move(answer)}, drop, nullptr);
    g_dbus_node_info_unref(node);
}

} // namespace velmorin
