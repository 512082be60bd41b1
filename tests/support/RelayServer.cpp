#include "tests/support/RelayServer.h"

#include <array>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <netinet/in.h>
#include <sys/socket.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace velmorin {

namespace {

void sendAll(int descriptor, std::string_view bytes) {
    ::send(descriptor, bytes.data(), bytes.size(), MSG_NOSIGNAL);
}

sockaddr_in here(std::uint16_t port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(port);
    return address;
}

std::size_t lengthOfBody(const std::string& head) {
    constexpr std::string_view key = "Content-Length: ";
    const auto found = head.find(key);
    std::size_t length = 0;
    if (found != std::string::npos)
        std::from_chars(head.data() + found + key.size(), head.data() + head.size(), length);
    return length;
}

std::string pathOf(const std::string& head) {
    const auto start = head.find(' ') + 1;
    return head.substr(start, head.find_first_of(" ?", start) - start);
}

} // namespace

RelayServer::RelayServer() {
    setUp(true);
}

RelayServer::~RelayServer() {
    setUp(false);
}

std::string RelayServer::url(std::string_view path) const {
    return "http://127.0.0.1:" + std::to_string(m_port) + std::string{path};
}

void RelayServer::setUp(bool isUp) {
    m_watch = {};
    if (m_listener >= 0) ::close(std::exchange(m_listener, -1));
    while (!m_connections.empty())
        close(m_connections.begin()->first);
    if (!isUp) return;
    m_listener = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const int isShared = 1;
    ::setsockopt(m_listener, SOL_SOCKET, SO_REUSEADDR, &isShared, sizeof isShared);
    auto address = here(m_port);
    socklen_t size = sizeof address;
    auto* const plain = reinterpret_cast<sockaddr*>(&address);
    if (::bind(m_listener, plain, size) != 0 || ::listen(m_listener, 16) != 0 ||
        ::getsockname(m_listener, plain, &size) != 0)
        throw std::system_error{errno, std::generic_category(), "a test's server"};
    m_port = ntohs(address.sin_port);
    m_watch = m_loop.watchReadable(m_listener, [this] { accept(); });
}

void RelayServer::send(std::string_view bytes) {
    std::array<char, 32> size{};
    const auto length = std::snprintf(size.data(), size.size(), "%zx\r\n", bytes.size());
    const auto piece = std::string(size.data(), static_cast<std::size_t>(length)).append(bytes).append("\r\n");
    for (const auto& [number, connection] : m_connections) {
        if (connection.isStream) sendAll(connection.descriptor, piece);
    }
}

void RelayServer::endStreams() {
    send({});
    std::vector<std::uint64_t> ending;
    for (const auto& [number, connection] : m_connections) {
        if (connection.isStream) ending.push_back(number);
    }
    for (const auto number : ending)
        close(number);
}

std::size_t RelayServer::openStreams() const {
    std::size_t count = 0;
    for (const auto& [number, connection] : m_connections)
        count += connection.isStream ? 1 : 0;
    return count;
}

void RelayServer::accept() {
    const int descriptor = ::accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC);
    if (descriptor < 0) return;
    const auto number = ++m_count;
    auto& connection = m_connections[number];
    connection.descriptor = descriptor;
    connection.watch = m_loop.watchReadable(descriptor, [this, number] { read(number); });
}

void RelayServer::read(std::uint64_t number) {
    auto& connection = m_connections.at(number);
    std::array<char, 4096> piece{};
    const auto count = ::read(connection.descriptor, piece.data(), piece.size());
    if (count <= 0) return close(number);
    connection.received.append(piece.data(), static_cast<std::size_t>(count));
    constexpr std::string_view separator = "\r\n\r\n";
    const auto end = connection.received.find(separator);
    if (end == std::string::npos) return;
    const auto head = connection.received.substr(0, end + 2);
    const auto body = connection.received.substr(end + separator.size());
    if (body.size() < lengthOfBody(head)) return;
    connection.received.clear();
    answer(connection, head, body);
}

void RelayServer::answer(Connection& connection, const std::string& head, const std::string& body) {
    const auto path = pathOf(head);
    heads.push_back(head);
    if (path == "/post") bodies.push_back(body);
    if (isSilent) return;
    if (const auto found = answers.find(path); found != answers.end())
        return sendAll(connection.descriptor, found->second);
    connection.isStream = path == "/stream";
    sendAll(connection.descriptor, connection.isStream ? "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n"
                                                       : "HTTP/1.1 200 OK\r\nContent-Length: 2\r\n\r\nok");
}

void RelayServer::close(std::uint64_t number) {
    auto entry = m_connections.extract(number);
    if (entry.empty()) return;
    entry.mapped().watch = {};
    ::close(entry.mapped().descriptor);
}

} // namespace velmorin
