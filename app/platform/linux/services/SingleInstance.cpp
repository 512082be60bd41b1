#include "app/platform/linux/services/SingleInstance.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <optional>
#include <string_view>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>
#include <utility>

namespace velmorin {

namespace fs = std::filesystem;

namespace {

constexpr char request = 's';
constexpr char answer = 'y';
constexpr timeval patience{1, 0};
/// Of those that have connected and say nothing, no more are kept.
constexpr std::size_t mostClients = 16;
constexpr double pauseAfterFailure = 1; // seconds

/// A socket's address by way of its open folder, since the path itself may be longer than an address can be.
struct SocketAddress {
    explicit SocketAddress(const fs::path& path)
        : folder{::open(path.parent_path().c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC)} {
        const auto name = "/proc/self/fd/" + std::to_string(folder.number()) + "/" + path.filename().string();
        value.sun_family = AF_UNIX;
        isValid = folder.isOpen() && name.size() < sizeof value.sun_path;
        if (isValid) std::memcpy(value.sun_path, name.c_str(), name.size() + 1);
    }
    const sockaddr* get() const { return static_cast<const sockaddr*>(static_cast<const void*>(&value)); }

    Descriptor folder;
    sockaddr_un value{};
    bool isValid = false;
};

Descriptor newSocket(int flags) {
    return Descriptor{::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | flags, 0)};
}

/// Whether whoever is at the other end is of this user.
bool isOwnUser(int socket) {
    ucred peer{};
    socklen_t size = sizeof peer;
    return ::getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 && peer.uid == ::getuid();
}

} // namespace

SingleInstance::SingleInstance(MainLoop& loop, const fs::path& directory)
    : m_socketPath{directory / "instance.socket"}, m_loop{loop} {
    std::error_code failure;
    fs::create_directories(directory.parent_path(), failure);
    ::mkdir(directory.c_str(), S_IRWXU);
    m_isFirst = lock(directory / "instance.lock");
    if (m_isFirst) listen();
}

SingleInstance::~SingleInstance() {
    m_watch.cancel();
    if (m_isFirst && m_socket.isOpen()) ::unlink(m_socketPath.c_str());
}

bool SingleInstance::lock(const fs::path& file) {
    m_lock = Descriptor{::open(file.c_str(), O_CREAT | O_RDWR | O_CLOEXEC, S_IRUSR | S_IWUSR)};
    if (!m_lock.isOpen()) return true;
    // The file is never removed: a second one under its name could be locked as well.
    return uninterrupted([&] { return ::flock(m_lock.number(), LOCK_EX | LOCK_NB); }) == 0 || errno != EWOULDBLOCK;
}

void SingleInstance::listen() {
    // Only who holds the lock comes here, so that a socket which is there has been left behind.
    ::unlink(m_socketPath.c_str());
    const SocketAddress address{m_socketPath};
    Descriptor socket = newSocket(SOCK_NONBLOCK);
    constexpr int waiting = 16;
    if (!address.isValid || ::bind(socket.number(), address.get(), sizeof address.value) != 0) return;
    ::chmod(m_socketPath.c_str(), S_IRUSR | S_IWUSR);
    if (::listen(socket.number(), waiting) != 0) return;
    m_socket = std::move(socket);
    watch();
}

void SingleInstance::watch() {
    m_watch = m_loop.watchReadable(m_socket.number(), [this] { accept(); });
}

void SingleInstance::accept() {
    Descriptor socket{
        uninterrupted([&] { return ::accept4(m_socket.number(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK); })};
    if (!socket.isOpen() && errno != EAGAIN && errno != ECONNABORTED) {
        // Who waits there stays there, and the loop would do nothing but ask again.
        m_watch.cancel();
        m_pause = m_timers.after(pauseAfterFailure, [this] { watch(); });
    }
    if (!socket.isOpen() || !isOwnUser(socket.number())) return;
    const int number = socket.number();
    auto watch = m_loop.watchReadable(number, [this, number] { hear(number); });
    if (m_clients.size() == mostClients) m_clients.pop_front();
    m_clients.push_back({std::move(socket), std::move(watch)});
}

void SingleInstance::hear(int client) {
    char said = 0;
    const auto count = uninterrupted([&] { return ::recv(client, &said, 1, 0); });
    // Held while it is called, where it may be the last use of this.
    const auto call = m_onShow;
    const bool isAsked = count == 1 && said == request && call;
    if (isAsked) ::send(client, &answer, 1, MSG_NOSIGNAL);
    m_clients.remove_if([client](const Client& each) { return each.socket.number() == client; });
    if (isAsked) call();
}

bool SingleInstance::askFirstToShow() const {
    const SocketAddress address{m_socketPath};
    const Descriptor socket = newSocket(0);
    ::setsockopt(socket.number(), SOL_SOCKET, SO_SNDTIMEO, &patience, sizeof patience);
    ::setsockopt(socket.number(), SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
    // The first may hold the lock already and not listen yet.
    constexpr int attempts = 50;
    constexpr useconds_t pause = 20'000;
    bool isConnected = false;
    for (int attempt = 0; address.isValid && !isConnected && attempt < attempts; ++attempt) {
        isConnected = ::connect(socket.number(), address.get(), sizeof address.value) == 0;
        if (!isConnected) ::usleep(pause);
    }
    char said = 0;
    return isConnected && isOwnUser(socket.number()) && ::send(socket.number(), &request, 1, MSG_NOSIGNAL) == 1 &&
           uninterrupted([&] { return ::recv(socket.number(), &said, 1, 0); }) == 1 && said == answer;
}

} // namespace velmorin
