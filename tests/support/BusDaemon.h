#pragma once

#include "app/platform/linux/loop/GLibPointers.h"
#include "tests/support/TemporaryDirectory.h"

#include <functional>
#include <optional>
#include <string>
#include <sys/types.h>

namespace velmorin {

/// A message bus of its own, which one variable of the environment names for as long as this lives.
class BusDaemon {
public:
    /// `variable` is DBUS_SESSION_BUS_ADDRESS or DBUS_SYSTEM_BUS_ADDRESS.
    explicit BusDaemon(std::string variable);
    BusDaemon(const BusDaemon&) = delete;
    BusDaemon& operator=(const BusDaemon&) = delete;
    ~BusDaemon();

    std::string address() const { return "unix:path=" + (m_directory.path() / "bus").string(); }
    /// Ends the bus, as its crash would.
    void stop();

private:
    TemporaryDirectory m_directory;
    std::string m_variable;
    std::optional<std::string> m_before;
    pid_t m_process = -1;
};

/// Someone on a bus with a well-known name.
class BusPeer {
public:
    /// Answers a call of a method; null says that there is no such method.
    using Answer = std::function<GVariant*(const std::string& method, GVariant* parameters)>;

    BusPeer(const BusDaemon& daemon, const char* name);
    BusPeer(const BusPeer&) = delete;
    BusPeer& operator=(const BusPeer&) = delete;
    ~BusPeer();

    void emit(const char* path, const char* interface, const char* signal, GVariant* parameters);
    /// Serves the methods of an interface, as its description in XML has them, from the main loop.
    void serve(const char* path, const char* description, Answer answer);

private:
    GOwned<GDBusConnection> m_connection;
};

} // namespace velmorin
