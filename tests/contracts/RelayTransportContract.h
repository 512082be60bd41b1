#pragma once

#include "app/seams/RelayTransport.h"
#include "tests/contracts/Bench.h"

#include <string>
#include <vector>

namespace velmorin {

class RelayTransportBench : public Bench {
public:
    virtual RelayTransport& transport() = 0;

    /// An address that takes bodies with status 200.
    virtual std::string postURL() = 0;
    /// The bodies that have arrived there, in order.
    virtual std::vector<std::string> received() = 0;
    /// An address with a stream that stays open.
    virtual std::string streamURL() = 0;
    /// Sends a line to whoever listens there.
    virtual void sendLine(const std::string& line) = 0;
    /// How many streams are open.
    virtual std::size_t openStreams() = 0;
    /// Takes the other side away, which ends its streams, or brings it back.
    virtual void setUp(bool isUp) = 0;
    /// Has the other side take requests and never answer; false where it always does.
    virtual bool fallSilent() = 0;
};

/// What the phone link's HTTP promises.
class RelayTransportContract : public Contract<RelayTransportBench> {
protected:
    static constexpr double longTimeout = 5.0; // seconds

    RelayTransport& transport() { return bench().transport(); }
    RelayTransport::Answer noting() {
        return [this](std::optional<int> status) { answers.push_back(status); };
    }
    /// Listens, and returns when the stream is open.
    Cancellable listen() {
        auto stream = transport().stream(
            bench().streamURL(), [this](std::string line) { lines.push_back(std::move(line)); }, [this] { ++ends; });
        EXPECT_TRUE(bench().eventually([this] { return bench().openStreams() == 1; }));
        return stream;
    }

    std::vector<std::optional<int>> answers;
    std::vector<std::string> lines;
    int ends = 0;
};

} // namespace velmorin
