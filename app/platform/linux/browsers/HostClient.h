#pragma once

#include "app/platform/linux/browsers/HostRequest.h"
#include "core/store/Descriptor.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

namespace velmorin {

/// One script at a host, which asks one thing and leaves. Nothing that it does or leaves undone makes the host wait,
/// and it is never read further than to the end of its request. Main thread.
class HostClient {
public:
    using Moment = std::chrono::steady_clock::time_point;

    /// How long a client may take to say what it wants, and then between two pieces of its answer that it takes.
    static constexpr std::chrono::seconds patience{5};

    /// `socket` does not block.
    HostClient(Descriptor socket, Moment now) : m_socket{std::move(socket)}, m_deadline{now + patience} {}

    int number() const { return m_socket.number(); }
    /// What to wait for on its socket, as `poll` takes it.
    short events() const;
    /// When it has to go if nothing happens; absent while it waits for the browser.
    std::optional<Moment> deadline() const;

    /// Does what its socket is ready for. False where it has left, or has to go.
    bool proceed(short events, Moment now);

    /// The request that was not handed to the browser yet; absent before it is complete and once it was handed over.
    const std::optional<HostRequest>& request() const { return m_request; }
    /// From now on it waits for the answer with this number.
    void expect(std::uint64_t id);
    bool expects(std::int64_t id) const { return m_awaited && static_cast<std::uint64_t>(id) == *m_awaited; }
    /// Begins to write its answer; it has to go when that is done.
    void answer(std::string text, Moment now);

private:
    bool isAnswered() const { return !m_answer.empty(); }
    bool isReading() const { return !m_request && !m_awaited && !isAnswered(); }
    bool read();
    bool write(Moment now);

    Descriptor m_socket;
    Moment m_deadline;
    std::string m_line;
    std::optional<HostRequest> m_request;
    std::optional<std::uint64_t> m_awaited;
    std::string m_answer;
    std::size_t m_written = 0;
};

} // namespace velmorin
