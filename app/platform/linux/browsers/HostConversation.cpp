#include "app/platform/linux/browsers/HostConversation.h"

#include <array>
#include <cerrno>
#include <sys/socket.h>
#include <utility>

namespace velmorin {

void HostConversation::start(const RuntimeFolder& folder) {
    if (m_state != State::trying) return;
    auto connection = connectToHost(folder, m_name);
    if (connection.state == HostConnection::State::gone) end(State::lost);
    if (connection.state != HostConnection::State::open) return;
    m_socket = std::move(connection.socket);
    m_state = State::waiting;
    const auto line = m_request.line();
    // A fresh connection has room for so short a line.
    if (::send(m_socket.number(), line.data(), line.size(), MSG_NOSIGNAL) != static_cast<ssize_t>(line.size()))
        end(State::lost);
}

void HostConversation::proceed() {
    std::array<char, 16384> bytes{};
    while (m_state == State::waiting) {
        const auto count = uninterrupted([&] { return ::recv(m_socket.number(), bytes.data(), bytes.size(), 0); });
        if (count < 0 && errno == EAGAIN) return;
        if (count <= 0 || m_text.size() + static_cast<std::size_t>(count) > longestAnswer) return end(State::lost);
        m_text.append(bytes.data(), static_cast<std::size_t>(count));
        takeLines();
    }
}

void HostConversation::takeLines() {
    for (auto stop = m_text.find('\n', m_taken); stop != std::string::npos; stop = m_text.find('\n', m_taken)) {
        const auto line = std::string_view{m_text}.substr(m_taken, stop - m_taken);
        m_taken = stop + 1;
        takeLine(line);
        if (isOver()) return;
    }
}

void HostConversation::takeLine(std::string_view line) {
    if (auto tab = HostAnswer::parseTab(line)) return m_tabs.push_back(std::move(*tab));
    if (auto error = HostAnswer::parseFailure(line)) {
        m_error = std::move(*error);
        return end(State::failed);
    }
    end(line == HostAnswer::end.substr(0, HostAnswer::end.size() - 1) ? State::answered : State::lost);
}

void HostConversation::end(State state) {
    m_state = state;
    m_socket.close();
}

} // namespace velmorin
