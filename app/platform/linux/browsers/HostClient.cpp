#include "app/platform/linux/browsers/HostClient.h"

#include <array>
#include <cerrno>
#include <poll.h>
#include <sys/socket.h>
#include <utility>

namespace velmorin {

short HostClient::events() const {
    if (isReading()) return POLLIN;
    // One that has closed its own side only still wants its answer; that it has left altogether is always told.
    return isAnswered() ? POLLOUT : short{0};
}

std::optional<HostClient::Moment> HostClient::deadline() const {
    return isReading() || isAnswered() ? std::optional{m_deadline} : std::nullopt;
}

bool HostClient::proceed(short events, Moment now) {
    const auto limit = deadline();
    if (limit && now >= *limit) return false;
    if (isReading()) return (events & (POLLIN | POLLHUP | POLLERR)) == 0 || read();
    if ((events & (POLLHUP | POLLERR)) != 0) return false;
    return (events & POLLOUT) == 0 || write(now);
}

void HostClient::expect(std::uint64_t id) {
    m_request.reset();
    m_awaited = id;
}

void HostClient::answer(std::string text, Moment now) {
    m_awaited.reset();
    m_answer = std::move(text);
    m_deadline = now + patience;
}

bool HostClient::read() {
    std::array<char, HostRequest::longestLine> bytes{};
    const auto room = bytes.size() - m_line.size();
    const auto count = uninterrupted([&] { return ::recv(m_socket.number(), bytes.data(), room, 0); });
    if (count < 0) return errno == EAGAIN;
    if (count == 0) return false;
    m_line.append(bytes.data(), static_cast<std::size_t>(count));
    const auto end = m_line.find('\n');
    if (end == std::string::npos) return m_line.size() < HostRequest::longestLine;
    m_request = HostRequest::parse(std::string_view{m_line}.substr(0, end));
    return m_request.has_value();
}

bool HostClient::write(Moment now) {
    const auto* const start = m_answer.data() + m_written;
    const auto length = m_answer.size() - m_written;
    const auto count =
        uninterrupted([&] { return ::send(m_socket.number(), start, length, MSG_NOSIGNAL | MSG_DONTWAIT); });
    if (count < 0) return errno == EAGAIN;
    m_written += static_cast<std::size_t>(count);
    m_deadline = now + patience;
    return m_written < m_answer.size();
}

} // namespace velmorin
