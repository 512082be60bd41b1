#pragma once

#include "app/platform/linux/browsers/HostRequest.h"
#include "app/platform/linux/browsers/HostSocket.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace velmorin {

/// A script's side of what it asks one host. Never waits. One thread.
class HostConversation {
public:
    enum class State : std::uint8_t {
        trying, ///< the host takes no more at the moment
        waiting,
        answered,
        failed, ///< the browser could not do it, `error` says why
        lost,   ///< there is no host behind the name, or it left without an answer
    };

    /// The longest answer that is listened to, in bytes; one more and the host counts as lost.
    static constexpr std::size_t longestAnswer = std::size_t{32} << 20U;

    HostConversation(HostSocketName name, HostRequest request) : m_name{std::move(name)}, m_request{request} {}

    const HostSocketName& name() const { return m_name; }
    State state() const { return m_state; }
    bool isOver() const { return m_state != State::trying && m_state != State::waiting; }
    /// What was answered: nothing for a request other than the list.
    const std::vector<ShownTab>& tabs() const { return m_tabs; }
    const std::string& error() const { return m_error; }
    /// Can be read when there is something to proceed with; -1 while there is no connection.
    int number() const { return m_socket.number(); }

    /// Connects and asks, where that has not happened yet.
    void start(const RuntimeFolder& folder);
    /// Takes in what the host has said by now.
    void proceed();

private:
    void takeLines();
    void takeLine(std::string_view line);
    void end(State state);

    HostSocketName m_name;
    HostRequest m_request;
    State m_state = State::trying;
    Descriptor m_socket;
    std::string m_text;
    std::size_t m_taken = 0;
    std::vector<ShownTab> m_tabs;
    std::string m_error;
};

} // namespace velmorin
