#include "tests/phone/PhoneLinkTest.h"

#include <algorithm>

namespace velmorin {

PhoneLink& PhoneLinkTest::link() {
    if (!m_link) {
        m_link = std::make_unique<PhoneLink>(
            store, [this](std::string_view message) { log.emplace_back(message); },
            PhoneLink::Seams{time, time, random, relay, appearance});
    }
    return *m_link;
}

void PhoneLinkTest::pair() {
    link().beginPairing();
    settle();
    say(hello);
    forget();
}

void PhoneLinkTest::say(std::string_view message) {
    deliver(sealed(message));
}

void PhoneLinkTest::deliver(const std::string& text) {
    ++m_messages;
    relay.sendLine(R"({"id":")" + lastMessageID() + R"(","event":"message","message":")" + text + R"("})");
    settle();
}

std::string PhoneLinkTest::sealed(std::string_view message, std::string_view direction) {
    return PhoneWire::seal({message.begin(), message.end()}, link().pairing()->key, direction).value_or("");
}

ActiveSession PhoneLinkTest::session(double length) const {
    return {"Work", SessionMode::deep, "write", time.now(), {{SegmentKind::work, length}}, {}, {}};
}

PhoneThought PhoneLinkTest::thought(std::string text) {
    return message(Thought{std::move(text), start - 10}, start, false);
}

std::vector<std::string> PhoneLinkTest::posted() {
    std::vector<std::string> messages;
    for (const auto& post : relay.posts) {
        const auto opened = PhoneWire::open(post.body, link().pairing()->key, PhoneWire::command);
        messages.emplace_back(opened ? std::string{opened->begin(), opened->end()} : "cannot be opened");
    }
    return messages;
}

std::vector<double> PhoneLinkTest::postTimes() const {
    std::vector<double> times;
    for (const auto& post : relay.posts)
        times.push_back(post.at - start);
    return times;
}

std::optional<std::string> PhoneLinkTest::file() const {
    const auto found = files.contents.find(store.directory() / PhoneLink::fileName);
    return found == files.contents.end() ? std::nullopt : std::optional{found->second};
}

void PhoneLinkTest::writeFile(std::string text) {
    files.contents[store.directory() / PhoneLink::fileName] = std::move(text);
}

} // namespace velmorin
