#pragma once

#include "app/platform/linux/browsers/RuntimeFolder.h"
#include "core/store/Descriptor.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

namespace velmorin {

/// Whose socket it is, as its name in the runtime folder tells.
struct HostSocketName {
    std::string identity; ///< the browser's
    pid_t browser;        ///< the main process
    pid_t host;

    bool operator==(const HostSocketName&) const = default;

    /// Identity and both numbers, with dots in between.
    std::string text() const;
    /// Absent for a text that is no such name.
    static std::optional<HostSocketName> parse(std::string_view text);
};

/// The names of all sockets in the folder, in the order of the hosts' numbers.
std::vector<HostSocketName> hostSockets(const RuntimeFolder& folder);

/// A connection to a host, as far as it came.
struct HostConnection {
    enum class State : std::uint8_t {
        open, ///< connected; nothing was read or written yet
        busy, ///< the host lives but takes no more at the moment
        gone, ///< there is no host behind this name any more
    };
    State state;
    Descriptor socket;
};

/// Connects without ever waiting, and only to a process of this user.
HostConnection connectToHost(const RuntimeFolder& folder, const HostSocketName& name);

/// A socket that waits for connections under its name, until it goes.
class HostSocket {
public:
    /// Also removes what hosts have left behind that were killed. Absent where there can be no socket.
    static std::optional<HostSocket> listen(const RuntimeFolder& folder, const HostSocketName& name);
    HostSocket(HostSocket&&) = default;
    HostSocket& operator=(HostSocket&&) = delete;
    HostSocket(const HostSocket&) = delete;
    HostSocket& operator=(const HostSocket&) = delete;
    ~HostSocket();

    const Descriptor& descriptor() const { return m_socket; }

private:
    HostSocket(Descriptor socket, std::string path) : m_socket{std::move(socket)}, m_path{std::move(path)} {}

    Descriptor m_socket;
    std::string m_path;
};

} // namespace velmorin
