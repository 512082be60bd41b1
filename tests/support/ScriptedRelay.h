#pragma once

#include "app/seams/Clock.h"
#include "app/seams/RelayTransport.h"
#include "app/seams/Timers.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace velmorin {

/// A relay that writes down what it is asked and answers as it is told.
class ScriptedRelay final : public RelayTransport {
public:
    struct Post {
        std::string url;
        std::string body;
        double timeout = 0;
        Date at;
    };

    /// Both must outlive this.
    ScriptedRelay(const Clock& clock, Timers& timers) : m_clock{clock}, m_timers{timers} {}

    Cancellable post(const std::string& url, const std::string& body, double timeout, Answer answer) override {
        posts.push_back({url, body, timeout, m_clock.now()});
        return m_timers.after(answerDelay, [answer = std::move(answer), status = this->status] { answer(status); });
    }
    Cancellable stream(const std::string& url, Line line, End end) override {
        streams.push_back(url);
        const std::uint64_t number = streams.size();
        m_open[number] = {std::move(line), std::move(end)};
        if (refusesStreams) m_timers.after(0, [this, number] { endOne(number); }).detach();
        return Cancellable{[this, number] { m_open.erase(number); }};
    }

    // The control side.

    std::vector<Post> posts;
    std::vector<std::string> streams; ///< the address of each that was ever opened
    std::optional<int> status = 200;  ///< of the answers from now on; absent for a relay out of reach
    double answerDelay = 0;           ///< seconds until an answer
    bool refusesStreams = false;      ///< each stream ends as soon as it is opened

    std::size_t openCount() const { return m_open.size(); }
    /// Sends a line down every open stream.
    void sendLine(const std::string& line) {
        const auto receivers = m_open;
        for (const auto& [number, receiver] : receivers) {
            if (m_open.contains(number)) receiver.line(line);
        }
    }
    /// Ends every open stream.
    void endStreams() {
        const auto ending = m_open;
        for (const auto& entry : ending)
            endOne(entry.first);
    }

private:
    struct Receiver {
        Line line;
        End end;
    };

    void endOne(std::uint64_t number) {
        const auto found = m_open.extract(number);
        if (!found.empty()) found.mapped().end();
    }

    const Clock& m_clock;
    Timers& m_timers;
    std::map<std::uint64_t, Receiver> m_open;
};

} // namespace velmorin
