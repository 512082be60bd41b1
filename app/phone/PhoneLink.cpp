#include "app/phone/PhoneLink.h"

#include "app/phone/RelayLine.h"
#include "core/foundation/JSONCoding.h"
#include "core/phone/PhoneStatus.h"
#include "core/phone/PhoneWire.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace velmorin {

namespace {

constexpr double requestTimeout = 15.0;    // seconds
constexpr double reconnectDelay = 5.0;     // seconds
constexpr double commandRetryDelay = 5.0;  // seconds
constexpr double thoughtRetryDelay = 10.0; // seconds
constexpr int thoughtAttempts = 5;
constexpr double answerTime = 25.0;    // seconds
constexpr double endValidity = 3600.0; // seconds
constexpr std::size_t nonceLength = 12;

/// Overloads as one visitor of a variant.
template <class... Calls>
struct Overloaded : Calls... {
    using Calls::operator()...;
};
template <class... Calls>
Overloaded(Calls...) -> Overloaded<Calls...>;

/// Whole milliseconds since 1970, held within what a 64-bit number can be told to be.
std::int64_t sequence(Date now) {
    constexpr double farAway = 9e18;
    return static_cast<std::int64_t>(std::clamp(now.secondsSince1970() * 1000.0, -farAway, farAway));
}

std::string urlOf(const std::string& topic) {
    return std::string{PhoneLink::relay} + "/" + topic;
}

} // namespace

PhoneLink::PhoneLink(const JSONStore& store, Log log, Seams seams)
    : m_store{store}, m_log{std::move(log)}, m_saved{store.load<SavedPairing>(fileName)}, m_seams{seams} {
    if (m_saved) m_pairingState.set(m_saved->isConfirmed ? PairingState::paired : PairingState::waitingForPhone);
}

std::optional<std::string> PhoneLink::problemText() const {
    switch (*m_lockState) {
    case LockState::noAnswer: return std::string{m_seams.appearance.strings().phoneNoAnswerDetail};
    case LockState::needsSetup: return std::string{m_seams.appearance.strings().phoneNeedsSetup};
    default: return std::nullopt;
    }
}

std::optional<std::string> PhoneLink::pairingURI() const {
    return m_saved ? std::optional{m_saved->pairing.uri()} : std::nullopt;
}

void PhoneLink::beginPairing() {
    m_saved = SavedPairing{};
    m_saved->pairing = PhonePairing::generate([this](std::size_t count) { return m_seams.random.bytes(count); });
    persist();
    m_pairingState.set(PairingState::waitingForPhone);
    m_log("phone pairing started");
    startListening();
}

void PhoneLink::disconnect() {
    m_listener.cancel();
    m_sender.cancel();
    m_answerWatch.cancel();
    m_saved.reset();
    m_store.remove(fileName);
    m_pairingState.set(PairingState::notPaired);
    m_lockState.set(LockState::idle);
    m_currentSessionID.reset();
    m_log("phone unpaired");
}

// A file of the store is made readable and writable by its owner only.
void PhoneLink::persist() const {
    if (m_saved) m_store.save(*m_saved, fileName);
}

void PhoneLink::startListening() {
    m_listener.cancel();
    if (!m_saved) return;
    m_since = m_saved->lastMessageID.value_or("latest");
    m_listener = m_seams.timers.after(0, [this] { listen(); });
}

void PhoneLink::listen() {
    const auto url = urlOf(m_saved->pairing.statusTopic()) + "/json?since=" + m_since;
    const auto line = [this](std::string text) {
        const auto message = RelayLine::parse(std::move(text));
        if (!message) return;
        // First, because what the message brings about may begin another pairing, which listens from elsewhere.
        m_since = message->id;
        receive(message->text, message->id);
    };
    const auto end = [this] { m_listener = m_seams.timers.after(reconnectDelay, [this] { listen(); }); };
    m_listener = m_seams.transport.stream(url, line, end);
}

void PhoneLink::receive(const std::string& text, const std::string& messageID) {
    if (!m_saved) return;
    // Before the message is opened, so that a bad one is not fetched again at the next start.
    m_saved->lastMessageID = messageID;
    persist();
    const auto opened = PhoneWire::open(text, m_saved->pairing.key, PhoneWire::status);
    const auto status = opened ? PhoneStatus::decode(std::string{opened->begin(), opened->end()}) : std::nullopt;
    if (!status) {
        m_log("ignored a phone message");
        return;
    }
    std::visit(
        Overloaded{
            [this](const PhoneStatus::Locked& locked) { takeLockState(locked.id, LockState::locked, "phone locked"); },
            [this](const PhoneStatus::Released& released) {
                takeLockState(released.id, LockState::releasedByPhone, "phone released early");
            },
            [this](const PhoneStatus::NotReady& notReady) {
                takeLockState(notReady.id, LockState::needsSetup, "phone needs setup");
            },
            [this](const PhoneThought& thought) {
                if (onThought) onThought(thought);
            },
            [this](const PhoneStatus::Hello&) { takeHello(); },
        },
        *status);
}

void PhoneLink::takeLockState(const UUID& sessionID, LockState state, std::string_view message) {
    if (m_currentSessionID != sessionID) return;
    m_answerWatch.cancel();
    m_lockState.set(state);
    m_log(message);
}

void PhoneLink::takeHello() {
    m_saved->isConfirmed = true;
    persist();
    m_pairingState.set(PairingState::paired);
    m_log("phone paired");
    if (onPaired) onPaired();
}

void PhoneLink::sendStart(const ActiveSession& session) {
    if (*m_pairingState != PairingState::paired) return;
    m_currentSessionID = session.id;
    m_lockState.set(LockState::sending);
    send(PhoneCommand::Start{session.id, session.startedAt, session.segments, sequence(m_seams.clock.now())},
         session.plannedEnd());
    m_answerWatch = m_seams.timers.after(answerTime, [this] {
        if (*m_lockState != LockState::sending) return;
        m_lockState.set(LockState::noAnswer);
        m_log("phone did not answer");
    });
}

void PhoneLink::sendEnd(const ActiveSession& session) {
    m_answerWatch.cancel();
    const bool isLockedFor = m_currentSessionID == session.id;
    m_currentSessionID.reset();
    m_lockState.set(LockState::idle);
    if (!isLockedFor || *m_pairingState != PairingState::paired) return;
    const Date now = m_seams.clock.now();
    send(PhoneCommand::End{session.id, sequence(now)}, now + endValidity);
}

void PhoneLink::send(const PhoneCommand::Command& command, Date until) {
    if (!m_saved) return;
    auto text = sealed(PhoneCommand::encoded(command));
    if (!text) return;
    // A new command takes the place of one that has not got through: an end stops the tries of its start.
    m_sender = m_seams.timers.after(
        0, [this, text = std::move(*text), url = commandURL(), until] { trySending(url, text, until); });
}

void PhoneLink::trySending(const std::string& url, const std::string& text, Date until) {
    if (!(m_seams.clock.now() < until)) return;
    m_sender = m_seams.transport.post(url, text, requestTimeout, [this, url, text, until](std::optional<int> status) {
        if (status == 200) {
            m_log("phone command sent");
            return;
        }
        m_sender = m_seams.timers.after(commandRetryDelay, [this, url, text, until] { trySending(url, text, until); });
    });
}

void PhoneLink::sendThought(const PhoneThought& thought) {
    if (*m_pairingState != PairingState::paired || !m_saved) return;
    auto text = sealed(thought.encoded());
    if (!text) return;
    // Nobody calls these off, so that thoughts do not replace one another.
    m_seams.timers
        .after(0, m_lifetime.guard([this, text = std::move(*text), url = commandURL()] { tryThought(url, text, 1); }))
        .detach();
}

void PhoneLink::tryThought(const std::string& url, const std::string& text, int attempt) {
    const auto again = [this, url, text, attempt] {
        if (attempt == thoughtAttempts) {
            m_log("thought not sent");
        } else {
            tryThought(url, text, attempt + 1);
        }
    };
    const auto answer = [this, again](std::optional<int> status) {
        if (status != 200) m_seams.timers.after(thoughtRetryDelay, m_lifetime.guard(again)).detach();
    };
    m_seams.transport.post(url, text, requestTimeout, m_lifetime.guard(answer)).detach();
}

std::optional<std::string> PhoneLink::sealed(const std::optional<std::string>& message) const {
    if (!message) return std::nullopt;
    const Bytes plaintext{message->begin(), message->end()};
    return PhoneWire::seal(plaintext, m_saved->pairing.key, PhoneWire::command, m_seams.random.bytes(nonceLength));
}

std::string PhoneLink::commandURL() const {
    return urlOf(m_saved->pairing.commandTopic());
}

} // namespace velmorin
