#pragma once

#include "tests/applications/RealProcess.h"

#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <functional>
#include <gio/gio.h>
#include <string>
#include <utility>
#include <vector>

namespace velmorin {

/// A session bus of a test's own, which the process takes for the session's while this lives.
class PrivateBus {
public:
    PrivateBus() {
        std::array<int, 2> ends{};
        EXPECT_EQ(::pipe2(ends.data(), O_CLOEXEC), 0);
        std::array<std::string, 4> words{"dbus-daemon", "--session", "--nofork",
                                         "--print-address=" + std::to_string(addressDescriptor)};
        std::array<char*, 5> arguments{words[0].data(), words[1].data(), words[2].data(), words[3].data(), nullptr};
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, ends[1], addressDescriptor);
        EXPECT_EQ(::posix_spawnp(&m_pid, "dbus-daemon", &actions, nullptr, arguments.data(), environ), 0);
        posix_spawn_file_actions_destroy(&actions);
        ::close(ends[1]);
        for (char c = 0; ::read(ends[0], &c, 1) == 1 && c != '\n';)
            m_address += c;
        ::close(ends[0]);
        if (const char* before = std::getenv(variable)) m_before = before;
        ::setenv(variable, m_address.c_str(), 1);
    }
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;
    ~PrivateBus() {
        m_before.empty() ? ::unsetenv(variable) : ::setenv(variable, m_before.c_str(), 1);
        ::kill(m_pid, SIGTERM);
        ::waitpid(m_pid, nullptr, 0);
    }

    const std::string& address() const { return m_address; }

private:
    static constexpr const char* variable = "DBUS_SESSION_BUS_ADDRESS";
    static constexpr int addressDescriptor = 9;

    pid_t m_pid = 0;
    std::string m_address;
    std::string m_before;
};

/// One object on a bus that writes down what is asked of it, and answers nothing.
class RecordingService {
public:
    struct Call {
        std::string method;
        std::string arguments; ///< in the text form of D-Bus values
    };

    RecordingService(const PrivateBus& bus, const char* name, const char* path, const char* interface) {
        const auto flags = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                             G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
        m_connection = g_dbus_connection_new_for_address_sync(bus.address().c_str(), flags, nullptr, nullptr, nullptr);
        m_node = g_dbus_node_info_new_for_xml(interface, nullptr);
        static const GDBusInterfaceVTable functions{record, nullptr, nullptr, {}};
        EXPECT_NE(g_dbus_connection_register_object(m_connection, path, m_node->interfaces[0], &functions, this,
                                                    nullptr, nullptr),
                  0U);
        GVariant* result = g_dbus_connection_call_sync(
            m_connection, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "RequestName",
            g_variant_new("(su)", name, 0U), nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr);
        EXPECT_NE(result, nullptr);
        g_variant_unref(result);
    }
    RecordingService(const RecordingService&) = delete;
    RecordingService& operator=(const RecordingService&) = delete;
    ~RecordingService() {
        g_dbus_connection_close_sync(m_connection, nullptr, nullptr);
        g_dbus_node_info_unref(m_node);
        g_object_unref(m_connection);
    }

    std::vector<Call> calls;

private:
    static void record(GDBusConnection*, const char*, const char*, const char*, const char* method, GVariant* arguments,
                       GDBusMethodInvocation* invocation, gpointer data) {
        char* text = g_variant_print(arguments, FALSE);
        static_cast<RecordingService*>(data)->calls.push_back({method, text});
        g_free(text);
        g_dbus_method_invocation_return_value(invocation, nullptr);
    }

    GDBusConnection* m_connection = nullptr;
    GDBusNodeInfo* m_node = nullptr;
};

} // namespace velmorin
