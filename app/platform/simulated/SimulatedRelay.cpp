#include "app/platform/simulated/SimulatedRelay.h"

#include <algorithm>
#include <utility>

namespace velmorin {

namespace {

constexpr int success = 200;

/// The part of an address from its third slash on: the topic and what follows.
std::string_view pathOf(std::string_view url) {
    const auto host = url.find("://");
    const auto path = url.find('/', host == std::string_view::npos ? 0 : host + 3);
    return path == std::string_view::npos ? std::string_view{} : url.substr(path + 1);
}

std::string messageLine(const std::string& id, const std::string& topic, const std::string& text) {
    JSONOutput output;
    output.beginObject();
    const std::pair<std::string_view, std::string_view> members[]{
        {"id", id}, {"event", "message"}, {"topic", topic}, {"message", text}};
    for (const auto& [key, value] : members) {
        output.key(key);
        output.write(value);
    }
    output.endObject();
    return output.take().value_or("");
}

} // namespace

Cancellable SimulatedRelay::post(const std::string& url, const std::string& body, double, Answer answer) {
    const std::string topic{pathOf(url)};
    m_journal.tell("post", [&](JSONOutput& output) {
        output.key("topic");
        output.write(topic);
        output.key("message");
        const auto message = opener ? opener(topic, body) : std::nullopt;
        output.writeJSON(message.value_or("null"));
    });
    if (m_isUp) publish(topic, body);
    return m_time.post(
        [answer = std::move(answer), status = m_isUp ? std::optional{success} : std::nullopt] { answer(status); });
}

Cancellable SimulatedRelay::stream(const std::string& url, Line line, End end) {
    const std::string_view path = pathOf(url);
    const std::string topic{path.substr(0, path.find('/'))};
    const std::string_view since = path.substr(std::min(path.find("since="), path.size() - 6) + 6);
    m_journal.tell("listen", [&topic](JSONOutput& output) {
        output.key("topic");
        output.write(topic);
    });
    const std::uint64_t number = ++m_streamCount;
    m_streams[number] = {topic, std::move(line), std::move(end)};
    if (m_isUp) {
        for (auto& text : linesSince(topic, since))
            deliver(number, std::move(text));
    } else {
        endStream(number);
    }
    return Cancellable{[this, number] { m_streams.erase(number); }};
}

void SimulatedRelay::setUp(bool isUp) {
    m_isUp = isUp;
    if (isUp) return;
    for (const auto& entry : m_streams)
        endStream(entry.first);
}

void SimulatedRelay::publish(const std::string& topic, const std::string& text) {
    if (!m_isUp) return;
    const std::string id = "message" + std::to_string(++m_messageCount);
    const std::string line = messageLine(id, topic, text);
    m_messages[topic].push_back({id, text, line});
    sendLine(topic, line);
}

void SimulatedRelay::sendLine(const std::string& topic, const std::string& line) {
    for (const auto& [number, stream] : m_streams) {
        if (stream.topic == topic) deliver(number, line);
    }
}

std::vector<std::string> SimulatedRelay::messages(const std::string& topic) const {
    std::vector<std::string> texts;
    if (const auto found = m_messages.find(topic); found != m_messages.end())
        std::ranges::transform(found->second, std::back_inserter(texts), &Message::text);
    return texts;
}

void SimulatedRelay::deliver(std::uint64_t stream, std::string line) {
    m_time
        .post([this, stream, line = std::move(line)] {
            const auto found = m_streams.find(stream);
            if (found == m_streams.end()) return;
            const Line call = found->second.line;
            call(line);
        })
        .detach();
}

void SimulatedRelay::endStream(std::uint64_t stream) {
    m_time
        .post([this, stream] {
            const auto found = m_streams.extract(stream);
            if (!found.empty()) found.mapped().end();
        })
        .detach();
}

std::vector<std::string> SimulatedRelay::linesSince(const std::string& topic, std::string_view since) const {
    const auto found = m_messages.find(topic);
    if (found == m_messages.end()) return {};
    const auto& messages = found->second;
    auto first = since == "latest" ? messages.end() - 1 : std::ranges::find(messages, since, &Message::id);
    // An identifier that the relay has forgotten means everything it still has.
    if (since != "latest") first = first == messages.end() ? messages.begin() : first + 1;
    std::vector<std::string> lines;
    std::transform(first, messages.end(), std::back_inserter(lines),
                   [](const Message& message) { return message.line; });
    return lines;
}

} // namespace velmorin
