#pragma once

#include "app/phone/PhoneLink.h"
#include "app/platform/simulated/SimulatedServices.h"
#include "app/platform/simulated/VirtualTime.h"
#include "core/phone/PhoneWire.h"
#include "tests/support/MemoryFiles.h"
#include "tests/support/ScriptedRelay.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmorin {

/// A phone link by itself, with a relay that obeys and files in memory. The link is made when it is first asked for.
class PhoneLinkTest : public ::testing::Test {
protected:
    static constexpr Date start{800'000'000};
    static constexpr std::string_view hello = R"({"type":"hello","v":1})";

    PhoneLink& link();
    /// Lets the link go; the next one loads what it has left.
    void forgetLink() { m_link.reset(); }
    void settle() { time.settle(); }
    void advance(double seconds) { time.advance(seconds); }
    PairingState pairingState() { return *link().pairingState(); }
    LockState lockState() { return *link().lockState(); }

    /// Begins a pairing and lets the phone say hello. What was logged and posted so far is forgotten.
    void pair();
    /// Seals what the phone says and lets the relay deliver it under the next identifier: "m1", "m2" and so on.
    void say(std::string_view message);
    /// Lets the relay deliver any text as a message.
    void deliver(const std::string& text);
    void sayOf(std::string_view type, const UUID& session) {
        say(R"({"type":")" + std::string{type} + R"(","id":")" + session.text() + R"("})");
    }
    std::string lastMessageID() const { return "m" + std::to_string(m_messages); }
    std::string sealed(std::string_view message, std::string_view direction = PhoneWire::status);

    /// A session that starts now and has one segment of this many seconds.
    ActiveSession session(double length = 3600) const;
    /// A thought of this text.
    static PhoneThought thought(std::string text);
    /// What was posted, opened as the phone would.
    std::vector<std::string> posted();
    /// The moments of the posts, in seconds since the start.
    std::vector<double> postTimes() const;
    std::optional<std::string> file() const;
    void writeFile(std::string text);
    void forget() {
        log.clear();
        relay.posts.clear();
    }

    VirtualTime time{start};
    SimulatedRandom random{1};
    Appearance appearance;
    ScriptedRelay relay{time, time};
    MemoryFiles files;
    JSONStore store{"/data", files};
    std::vector<std::string> log;

private:
    std::unique_ptr<PhoneLink> m_link;
    int m_messages = 0;
};

} // namespace velmorin
