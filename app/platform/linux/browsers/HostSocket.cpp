#include "app/platform/linux/browsers/HostSocket.h"

#include "app/platform/linux/browsers/FolderEntries.h"
#include "app/platform/linux/browsers/Numbers.h"
#include "app/platform/linux/browsers/Peer.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>

namespace velmorin {

namespace {

constexpr int backlog = 64;

Descriptor streamSocket() {
    return Descriptor{::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0)};
}

/// Absent for a path that is too long, which none of `RuntimeFolder` is.
std::optional<sockaddr_un> addressOf(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path) return std::nullopt;
    std::memcpy(address.sun_path, path.data(), path.size());
    return address;
}

template <class Call>
int callWithAddress(Call call, const Descriptor& socket, const std::string& path) {
    const auto address = addressOf(path);
    if (!address) return -1;
    return call(socket.number(), reinterpret_cast<const sockaddr*>(&*address), sizeof *address);
}

bool isAlive(pid_t process) {
    return ::kill(process, 0) == 0 || errno != ESRCH;
}

std::optional<pid_t> takeNumberAtEnd(std::string_view& text) {
    const auto dot = text.rfind('.');
    if (dot == std::string_view::npos) return std::nullopt;
    const auto number = parseNumber<pid_t>(text.substr(dot + 1));
    text = text.substr(0, dot);
    return number;
}

/// A name that nobody takes for a socket yet.
std::string nameInTheMaking(const HostSocketName& name) {
    return '.' + name.text();
}

void removeLeftSockets(const RuntimeFolder& folder) {
    std::vector<std::string> names;
    forEachEntry(folder.pathTo("").c_str(), [&](std::string_view entry) { names.emplace_back(entry); });
    for (const std::string& entry : names) {
        const bool isInTheMaking = entry.starts_with('.');
        const auto name = HostSocketName::parse(std::string_view{entry}.substr(isInTheMaking ? 1 : 0));
        if (!name) continue;
        const bool isLeft = !isAlive(name->host) ||
                            (!isInTheMaking && connectToHost(folder, *name).state == HostConnection::State::gone);
        if (isLeft) ::unlinkat(folder.number(), entry.c_str(), 0);
    }
}

} // namespace

std::string HostSocketName::text() const {
    return identity + '.' + std::to_string(browser) + '.' + std::to_string(host);
}

std::optional<HostSocketName> HostSocketName::parse(std::string_view text) {
    const auto host = takeNumberAtEnd(text);
    const auto browser = takeNumberAtEnd(text);
    if (!host || !browser || *host <= 0 || *browser <= 0 || text.empty() || text.front() == '.') return std::nullopt;
    return HostSocketName{std::string{text}, *browser, *host};
}

std::vector<HostSocketName> hostSockets(const RuntimeFolder& folder) {
    std::vector<HostSocketName> names;
    forEachEntry(folder.pathTo("").c_str(), [&](std::string_view entry) {
        if (auto name = HostSocketName::parse(entry)) names.push_back(std::move(*name));
    });
    std::ranges::sort(names, {}, &HostSocketName::host);
    return names;
}

HostConnection connectToHost(const RuntimeFolder& folder, const HostSocketName& name) {
    auto socket = streamSocket();
    if (!socket.isOpen()) return {HostConnection::State::busy, {}};
    if (callWithAddress(::connect, socket, folder.pathTo(name.text())) != 0) {
        const bool isBusy = errno == EAGAIN || errno == EINTR;
        return {isBusy ? HostConnection::State::busy : HostConnection::State::gone, {}};
    }
    const auto peer = peerOf(socket);
    // A number may belong to another process by now.
    if (!peer || peer->user != ::geteuid() || peer->process != name.host) return {HostConnection::State::gone, {}};
    return {HostConnection::State::open, std::move(socket)};
}

std::optional<HostSocket> HostSocket::listen(const RuntimeFolder& folder, const HostSocketName& name) {
    removeLeftSockets(folder);
    const auto made = nameInTheMaking(name);
    const auto final = name.text();
    auto socket = streamSocket();
    if (callWithAddress(::bind, socket, folder.pathTo(made)) != 0) return std::nullopt;
    // It gets its name only when it listens: a socket that refuses is always one that was left behind.
    if (::listen(socket.number(), backlog) != 0 ||
        ::renameat(folder.number(), made.c_str(), folder.number(), final.c_str()) != 0) {
        ::unlinkat(folder.number(), made.c_str(), 0);
        return std::nullopt;
    }
    return HostSocket{std::move(socket), folder.pathTo(final)};
}

HostSocket::~HostSocket() {
    if (m_socket.isOpen()) ::unlink(m_path.c_str());
}

} // namespace velmorin
