#include "app/platform/linux/browsers/BrowserHost.h"

#include "app/platform/linux/browsers/BrowserReply.h"
#include "app/platform/linux/browsers/Peer.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace velmorin {

namespace {

/// The places of what is always polled; the clients follow.
enum Place : std::size_t { browserInput, browserOutput, signals, newClients, firstClient };

constexpr short readable = POLLIN | POLLHUP | POLLERR;

void makeNonBlocking(int descriptor) {
    const int flags = ::fcntl(descriptor, F_GETFL);
    if (flags != -1) ::fcntl(descriptor, F_SETFL, flags | O_NONBLOCK);
}

int millisecondsUntil(HostClient::Moment moment) {
    const auto left = moment - std::chrono::steady_clock::now();
    // Rounded up, or the last millisecond would be spent polling.
    return static_cast<int>(std::max<std::int64_t>(std::chrono::ceil<std::chrono::milliseconds>(left).count(), 0));
}

std::string answerText(const BrowserReply& reply) {
    if (reply.error) return HostAnswer::failure(*reply.error);
    std::string text;
    for (const auto& tab : reply.tabs) {
        text += HostAnswer::line(tab);
        if (text.size() > BrowserHost::longestAnswer) return HostAnswer::failure("the browser shows too much");
    }
    return text += HostAnswer::end;
}

} // namespace

BrowserHost::BrowserHost(const HostSocket& socket, int fromBrowser, int toBrowser, int signals)
    : m_socket{socket}, m_fromBrowser{fromBrowser}, m_toBrowser{toBrowser}, m_signals{signals} {
    makeNonBlocking(fromBrowser);
    makeNonBlocking(toBrowser);
}

BrowserHost::End BrowserHost::run() {
    while (!m_end) {
        wait();
        if (!m_end && !proceed() && !m_end) m_end = End::failed;
    }
    return *m_end;
}

void BrowserHost::wait() {
    // A browser that leaves closes both pipes; that of its input says so without being asked for anything.
    const auto toBrowser = static_cast<short>(m_outgoing.empty() ? 0 : POLLOUT);
    m_polled = {{m_fromBrowser, POLLIN, 0},
                {m_toBrowser, toBrowser, 0},
                {m_signals, POLLIN, 0},
                {m_socket.descriptor().number(), POLLIN, 0}};
    std::optional<Moment> earliest;
    for (const auto& client : m_clients) {
        m_polled.push_back({client.number(), client.events(), 0});
        const auto deadline = client.deadline();
        if (deadline && (!earliest || *deadline < *earliest)) earliest = deadline;
    }
    const int timeout = earliest ? millisecondsUntil(*earliest) : -1;
    if (uninterrupted([&] { return ::poll(m_polled.data(), m_polled.size(), timeout); }) < 0) m_end = End::failed;
}

bool BrowserHost::proceed() {
    const auto isReady = [this](std::size_t place, short events) { return (m_polled[place].revents & events) != 0; };
    if (isReady(signals, readable)) {
        m_end = End::asked;
        return true;
    }
    if (isReady(browserOutput, POLLHUP | POLLERR)) {
        m_end = End::browserLeft;
        return true;
    }
    // Clients first: their places in what was polled are those of before anything comes or goes.
    proceedWithClients();
    if (isReady(browserInput, readable) && !readMessages()) return false;
    if (isReady(newClients, readable) && !acceptClients()) return false;
    handOverRequests();
    return writeToBrowser();
}

void BrowserHost::proceedWithClients() {
    const auto now = std::chrono::steady_clock::now();
    std::size_t place = firstClient;
    std::erase_if(m_clients, [&](HostClient& client) { return !client.proceed(m_polled[place++].revents, now); });
}

bool BrowserHost::readMessages() {
    std::array<char, 8192> bytes{};
    const auto count = uninterrupted([&] { return ::read(m_fromBrowser, bytes.data(), bytes.size()); });
    if (count < 0) return errno == EAGAIN;
    if (count == 0) {
        m_end = End::browserLeft;
        return true;
    }
    bool isSound = m_incoming.append({bytes.data(), static_cast<std::size_t>(count)});
    while (isSound) {
        auto message = m_incoming.take();
        if (!message) break;
        isSound = receive(std::move(*message));
    }
    if (!isSound) m_end = End::malformed;
    return true;
}

bool BrowserHost::receive(std::string message) {
    const auto reply = BrowserReply::parse(std::move(message));
    if (!reply) return false;
    // Nobody expects it where the client has left.
    const auto client =
        std::ranges::find_if(m_clients, [&](const HostClient& each) { return each.expects(reply->id); });
    if (client != m_clients.end()) client->answer(answerText(*reply), std::chrono::steady_clock::now());
    return true;
}

void BrowserHost::handOverRequests() {
    for (auto& client : m_clients) {
        // A browser that takes nothing any more gets nothing more: the requests stay with the clients.
        if (!m_outgoing.empty() && !writeToBrowser()) return;
        if (!m_outgoing.empty()) return;
        if (!client.request()) continue;
        m_outgoing = framed(client.request()->message(++m_lastID)).value_or("");
        client.expect(m_lastID);
    }
}

bool BrowserHost::writeToBrowser() {
    if (m_outgoing.empty()) return true;
    const auto count = uninterrupted([&] { return ::write(m_toBrowser, m_outgoing.data(), m_outgoing.size()); });
    if (count >= 0) m_outgoing.erase(0, static_cast<std::size_t>(count));
    if (count < 0 && errno == EPIPE) m_end = End::browserLeft;
    return count >= 0 || errno == EAGAIN || errno == EPIPE;
}

bool BrowserHost::acceptClients() {
    for (std::size_t count = 0; count < mostClients; ++count) {
        Descriptor socket{::accept4(m_socket.descriptor().number(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC)};
        if (!socket.isOpen()) {
            if (errno == EAGAIN || errno == EINTR || errno == ECONNABORTED) return true;
            if (m_clients.empty()) return false;
            m_clients.erase(m_clients.begin());
            continue;
        }
        const auto peer = peerOf(socket);
        if (!peer || peer->user != ::geteuid()) continue;
        if (m_clients.size() >= mostClients) m_clients.erase(m_clients.begin());
        m_clients.emplace_back(std::move(socket), std::chrono::steady_clock::now());
    }
    return true;
}

} // namespace velmorin
