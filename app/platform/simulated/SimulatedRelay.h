#pragma once

#include "app/platform/simulated/Journal.h"
#include "app/platform/simulated/VirtualTime.h"
#include "app/seams/RelayTransport.h"

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace velmorin {

/// A relay in memory that speaks the ntfy protocol as far as the phone link does: topics, a stream of each, and the
/// messages since a given one. Everything arrives at the moment it is sent.
class SimulatedRelay final : public RelayTransport {
public:
    /// Opens a sealed message of the program for the journal, as the phone that listens to the topic could: a JSON
    /// text; absent when it cannot.
    using Opener = std::function<std::optional<std::string>(const std::string& topic, std::string_view sealed)>;

    /// Both must outlive this.
    SimulatedRelay(VirtualTime& time, const Journal& journal) : m_time{time}, m_journal{journal} {}

    Cancellable post(const std::string& url, const std::string& body, double timeout, Answer answer) override;
    Cancellable stream(const std::string& url, Line line, End end) override;

    // The control side.

    Opener opener;
    /// A relay that is down refuses requests and ends its streams.
    void setUp(bool isUp);
    bool isUp() const { return m_isUp; }
    /// What another party sends. Lost while the relay is down.
    void publish(const std::string& topic, const std::string& text);
    /// Sends any line to those who listen to a topic.
    void sendLine(const std::string& topic, const std::string& line);
    std::size_t streamCount() const { return m_streams.size(); }
    /// The messages of a topic as they were sent, the oldest first.
    std::vector<std::string> messages(const std::string& topic) const;

private:
    struct Message {
        std::string id;
        std::string text;
        std::string line; ///< of the stream
    };
    struct Stream {
        std::string topic;
        Line line;
        End end;
    };

    void deliver(std::uint64_t stream, std::string line);
    void endStream(std::uint64_t stream);
    std::vector<std::string> linesSince(const std::string& topic, std::string_view since) const;

    VirtualTime& m_time;
    const Journal& m_journal;
    bool m_isUp = true;
    std::uint64_t m_streamCount = 0;
    std::uint64_t m_messageCount = 0;
    std::map<std::uint64_t, Stream> m_streams;
    std::map<std::string, std::vector<Message>> m_messages; ///< by topic, the oldest first
};

} // namespace velmorin
