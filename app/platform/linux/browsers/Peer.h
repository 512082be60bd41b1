#pragma once

#include "core/store/Descriptor.h"

#include <optional>
#include <sys/socket.h>
#include <sys/types.h>

namespace velmorin {

/// The process on the other side of a local socket, as the system knows it.
struct Peer {
    uid_t user;
    pid_t process;
};

/// Absent where the system does not tell.
inline std::optional<Peer> peerOf(const Descriptor& socket) {
    ucred credentials{};
    socklen_t length = sizeof credentials;
    if (::getsockopt(socket.number(), SOL_SOCKET, SO_PEERCRED, &credentials, &length) != 0) return std::nullopt;
    return Peer{credentials.uid, credentials.pid};
}

} // namespace velmorin
